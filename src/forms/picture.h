// A decoded picture. Decoding is the platform's; what arrives here is plain pixels.
#pragma once

#include <cstdint>
#include <string>
#include <vector>

#include "base/object.h"

namespace kestrun {

// 32-bit pixels 0xAARRGGBB, not premultiplied, rows from top to bottom. Immutable once made.
class Picture final : public TableObject {
 public:
  Picture(int width_pixels, int height_pixels, std::vector<uint32_t> pixels);

  [[nodiscard]] int width_pixels() const { return width_pixels_; }
  [[nodiscard]] int height_pixels() const { return height_pixels_; }
  // Its own size: a pixel is a 96th of an inch.
  [[nodiscard]] int width_twips() const { return width_pixels_ * 15; }
  [[nodiscard]] int height_twips() const { return height_pixels_ * 15; }
  [[nodiscard]] const std::vector<uint32_t>& pixels() const { return pixels_; }

  [[nodiscard]] std::string TypeName() const override { return "Picture"; }
  [[nodiscard]] const MemberTable& Members() const override;

 private:
  int width_pixels_;
  int height_pixels_;
  std::vector<uint32_t> pixels_;
};

// The object as a picture: itself, or a copy of somebody else's. Null for an empty picture object; error 13 for an
// object that is no picture.
[[nodiscard]] Ref<Picture> PictureOf(Object& object);

}  // namespace kestrun
