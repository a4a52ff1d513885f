#include "formats/bitmap/bitmap_file.h"

namespace kestrun {
namespace {

constexpr uint32_t kFileHeaderBytes = 14;
constexpr uint32_t kInfoHeaderBytes = 40;
constexpr uint32_t kPixelBytes = 3;
constexpr uint32_t kRowUnit = 4;  // each row is filled up to a multiple of it

void Append(Bytes& file, uint32_t number, int bytes) {
  for (int i = 0; i < bytes; ++i) file.push_back(static_cast<uint8_t>(number >> (8 * i)));
}

uint8_t OnWhite(uint32_t part, uint32_t alpha) {
  constexpr uint32_t kFull = 255;
  return static_cast<uint8_t>((part * alpha + kFull * (kFull - alpha) + kFull / 2) / kFull);
}

void AppendHeaders(Bytes& file, int width, int height, uint32_t image_bytes) {
  file.push_back('B');
  file.push_back('M');
  Append(file, kFileHeaderBytes + kInfoHeaderBytes + image_bytes, 4);
  Append(file, 0, 4);
  Append(file, kFileHeaderBytes + kInfoHeaderBytes, 4);
  Append(file, kInfoHeaderBytes, 4);
  Append(file, static_cast<uint32_t>(width), 4);
  Append(file, static_cast<uint32_t>(height), 4);  // positive: the lowest row comes first
  Append(file, 1, 2);                              // plane
  Append(file, 8 * kPixelBytes, 2);
  Append(file, 0, 4);  // not packed
  Append(file, image_bytes, 4);
  for (int unused = 0; unused < 4; ++unused) Append(file, 0, 4);  // resolution and colour table
}

}  // namespace

Bytes EncodeBitmap(int width, int height, const std::vector<uint32_t>& pixels) {
  const uint32_t row_bytes = (static_cast<uint32_t>(width) * kPixelBytes + kRowUnit - 1) / kRowUnit * kRowUnit;
  Bytes file;
  file.reserve(kFileHeaderBytes + kInfoHeaderBytes + size_t{row_bytes} * static_cast<size_t>(height));
  AppendHeaders(file, width, height, row_bytes * static_cast<uint32_t>(height));
  for (int row = height; row-- > 0;) {
    const size_t row_end = file.size() + row_bytes;
    for (int column = 0; column < width; ++column) {
      const uint32_t pixel =
          pixels[static_cast<size_t>(row) * static_cast<size_t>(width) + static_cast<size_t>(column)];
      for (int shift = 0; shift < 24; shift += 8) file.push_back(OnWhite(pixel >> shift & 0xFF, pixel >> 24));
    }
    file.resize(row_end);
  }
  return file;
}

}  // namespace kestrun
