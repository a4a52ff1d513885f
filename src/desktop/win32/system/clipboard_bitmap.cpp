#include "desktop/win32/system/clipboard_bitmap.h"

#include <cstring>

#include "desktop/win32/system/windows_api.h"

namespace kestrun {
namespace {

constexpr size_t kPixelBytes = 3;

// Rows end at a multiple of four bytes.
size_t RowBytes(int width) { return (static_cast<size_t>(width) * kPixelBytes + 3) / 4 * 4; }

uint8_t OverWhite(uint32_t pixel, int shift) {
  const uint32_t alpha = pixel >> 24;
  const uint32_t part = (pixel >> shift) & 0xFF;
  return static_cast<uint8_t>((part * alpha + 255 * (255 - alpha) + 127) / 255);
}

// What stands between the header and the bits: masks of the colours, and the palette.
uint64_t ColorBytes(const BITMAPINFOHEADER& header) {
  uint64_t colors = header.biClrUsed;
  if (colors == 0 && header.biBitCount <= 8) colors = uint64_t{1} << header.biBitCount;
  const bool has_masks = header.biCompression == BI_BITFIELDS && header.biSize == sizeof header;
  return colors * sizeof(RGBQUAD) + (has_masks ? 3 * sizeof(DWORD) : 0);
}

}  // namespace

Bytes ClipboardBitmap(const DecodedPicture& picture) {
  BITMAPINFOHEADER header{};
  header.biSize = sizeof header;
  header.biWidth = picture.width;
  header.biHeight = picture.height;  // rows from bottom to top
  header.biPlanes = 1;
  header.biBitCount = static_cast<WORD>(8 * kPixelBytes);
  header.biCompression = BI_RGB;
  const size_t row_bytes = RowBytes(picture.width);
  Bytes block(sizeof header + row_bytes * static_cast<size_t>(picture.height));
  std::memcpy(block.data(), &header, sizeof header);
  for (int y = 0; y < picture.height; ++y) {
    uint8_t* to = block.data() + sizeof header + row_bytes * static_cast<size_t>(picture.height - 1 - y);
    for (int x = 0; x < picture.width; ++x) {
      const uint32_t pixel =
          picture.pixels[static_cast<size_t>(y) * static_cast<size_t>(picture.width) + static_cast<size_t>(x)];
      for (const int shift : {0, 8, 16}) *to++ = OverWhite(pixel, shift);
    }
  }
  return block;
}

std::optional<Bytes> BitmapFile(ByteView block) {
  BITMAPINFOHEADER header{};
  if (block.size() < sizeof header) return std::nullopt;
  std::memcpy(&header, block.data(), sizeof header);
  const uint64_t bits = header.biSize + ColorBytes(header);
  if (header.biSize < sizeof header || bits >= block.size()) return std::nullopt;
  BITMAPFILEHEADER head{};
  head.bfType = 0x4D42;
  head.bfSize = static_cast<DWORD>(sizeof head + block.size());
  head.bfOffBits = static_cast<DWORD>(sizeof head + bits);
  Bytes file(sizeof head);
  std::memcpy(file.data(), &head, sizeof head);
  file.insert(file.end(), block.begin(), block.end());
  return file;
}

}  // namespace kestrun
