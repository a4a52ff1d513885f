#include "desktop/headless/headless_pictures.h"

#include <cstdlib>

namespace kestrun {
namespace {

// Offsets of BITMAPFILEHEADER and BITMAPINFOHEADER, counted from the start of the file.
constexpr size_t kPixelsAt = 10;
constexpr size_t kHeaderBytes = 14;
constexpr size_t kWidth = 18;
constexpr size_t kHeight = 22;
constexpr size_t kBitCount = 28;
constexpr size_t kCompression = 30;
constexpr size_t kColorsUsed = 46;
constexpr size_t kLeastBytes = 54;
constexpr uint32_t kOpaque = 0xFF000000;

struct Bitmap {
  ByteView file;
  int64_t width = 0;
  int64_t height = 0;
  bool from_the_top = false;
  size_t bit_count = 0;
  size_t pixels_at = 0;
  size_t row_bytes = 0;
  size_t colors_at = 0;
  size_t color_count = 0;

  [[nodiscard]] uint32_t PixelAt(size_t row, size_t column) const {
    const size_t at = pixels_at + row * row_bytes + column * bit_count / 8;
    if (bit_count != 8) return kOpaque | file[at] | file[at + 1] << 8 | file[at + 2] << 16;
    const size_t color = file[at];
    return color < color_count ? kOpaque | LoadU32(file, colors_at + color * 4) : kOpaque;
  }
};

std::optional<Bitmap> ReadHeader(ByteView file) {
  if (file.size() < kLeastBytes || file[0] != 'B' || file[1] != 'M') return std::nullopt;
  Bitmap bitmap{file};
  bitmap.width = static_cast<int32_t>(LoadU32(file, kWidth));
  const int64_t height = static_cast<int32_t>(LoadU32(file, kHeight));
  bitmap.from_the_top = height < 0;
  bitmap.height = std::abs(height);
  bitmap.bit_count = LoadU16(file, kBitCount);
  const bool known = bitmap.bit_count == 8 || bitmap.bit_count == 24 || bitmap.bit_count == 32;
  if (!known || LoadU32(file, kCompression) != 0 || !IsPictureSizeAllowed(bitmap.width, bitmap.height)) {
    return std::nullopt;
  }
  bitmap.pixels_at = LoadU32(file, kPixelsAt);
  bitmap.row_bytes = (static_cast<size_t>(bitmap.width) * bitmap.bit_count + 31) / 32 * 4;
  const size_t needed = bitmap.row_bytes * static_cast<size_t>(bitmap.height);
  if (bitmap.pixels_at > file.size() || file.size() - bitmap.pixels_at < needed) return std::nullopt;
  return bitmap;
}

// The table stands between the header and the pixels.
bool ReadColors(Bitmap& bitmap) {
  if (bitmap.bit_count != 8) return true;
  const uint32_t used = LoadU32(bitmap.file, kColorsUsed);
  const uint32_t info_bytes = LoadU32(bitmap.file, kHeaderBytes);
  if (used > 256 || info_bytes > bitmap.file.size()) return false;
  bitmap.color_count = used == 0 ? 256 : used;
  bitmap.colors_at = kHeaderBytes + info_bytes;
  return bitmap.colors_at <= bitmap.file.size() && bitmap.file.size() - bitmap.colors_at >= bitmap.color_count * 4;
}

std::optional<DecodedPicture> DecodeBitmap(ByteView file) {
  std::optional<Bitmap> bitmap = ReadHeader(file);
  if (!bitmap || !ReadColors(*bitmap)) return std::nullopt;
  const auto width = static_cast<size_t>(bitmap->width);
  const auto height = static_cast<size_t>(bitmap->height);
  DecodedPicture picture{static_cast<int>(width), static_cast<int>(height), std::vector<uint32_t>(width * height)};
  for (size_t y = 0; y < height; ++y) {
    const size_t row = bitmap->from_the_top ? y : height - 1 - y;
    for (size_t x = 0; x < width; ++x) picture.pixels[y * width + x] = bitmap->PixelAt(row, x) | kOpaque;
  }
  return picture;
}

}  // namespace

std::optional<DecodedPicture> HeadlessPictures::Decode(ByteView file) {
  if (const auto answer = answers_.find(AsChars(file)); answer != answers_.end()) return answer->second;
  return DecodeBitmap(file);
}

std::optional<DecodedPicture> HeadlessPictures::FileIcon(std::string_view path, uint32_t flags) {
  icon_requests.push_back({std::string(path), flags});
  if (!has_icons) return std::nullopt;
  const int side = (flags & 1) != 0 ? 16 : 32;
  const auto count = static_cast<size_t>(side) * static_cast<size_t>(side);
  return DecodedPicture{side, side, std::vector<uint32_t>(count, 0xFFFFFFFF)};
}

}  // namespace kestrun
