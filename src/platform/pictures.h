// Decoding picture files, and the shell's icons as pictures.
#pragma once

#include <cstdint>
#include <optional>
#include <string_view>
#include <vector>

#include "base/bytes.h"
#include "base/object.h"

namespace kestrun {

// The largest picture that is ever decoded: a small file may claim any size.
inline constexpr int kLargestPictureSide = 16384;
inline constexpr int64_t kMostPicturePixels = 64'000'000;
[[nodiscard]] constexpr bool IsPictureSizeAllowed(int64_t width, int64_t height) {
  return width > 0 && height > 0 && width <= kLargestPictureSide && height <= kLargestPictureSide &&
         width * height <= kMostPicturePixels;
}

// 32-bit pixels 0xAARRGGBB, not premultiplied, rows from top to bottom.
struct DecodedPicture {
  int width = 0;
  int height = 0;
  std::vector<uint32_t> pixels;
};

class Pictures {
 public:
  virtual ~Pictures() = default;
  // The first picture of a file's bytes: JPEG, GIF, BMP, PNG, ICO, CUR, WMF or EMF. Nothing when the bytes are none of
  // these, are damaged, or tell a size that is not allowed.
  [[nodiscard]] virtual std::optional<DecodedPicture> Decode(ByteView file) = 0;
  // The picture in somebody else's picture object, such as an add-in's; one without a size when that one is empty.
  // Nothing for any other object, error 481 for a picture that cannot be read.
  [[nodiscard]] virtual std::optional<DecodedPicture> FromObject(Object& object) = 0;
  // The shell's icon for a file that exists. Flags: 0 large, 1 small. Nothing when the shell has none.
  [[nodiscard]] virtual std::optional<DecodedPicture> FileIcon(std::string_view path, uint32_t flags) = 0;
};

}  // namespace kestrun
