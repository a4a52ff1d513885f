#include "program/window_kit/fit_picture.h"

#include <algorithm>
#include <cstdint>

namespace kestrun {
namespace {

// A picture's own size is that of its pixels at 96 to the inch.
constexpr int64_t kTwipsPerPixel = 15;

}  // namespace

Place FitPicture(const Ref<Picture>& picture, const Place& room, SmallPicture small) {
  if (!picture) return room;
  const int64_t own_width = picture->width_pixels() * kTwipsPerPixel;
  const int64_t own_height = picture->height_pixels() * kTwipsPerPixel;
  int64_t width = std::min<int64_t>(room.width, room.height * own_width / own_height);
  int64_t height = std::min<int64_t>(room.height, room.width * own_height / own_width);
  if (small == SmallPicture::kKeepSize) {
    width = std::min(width, own_width);
    height = std::min(height, own_height);
  }
  width = std::max<int64_t>(width, 1);  // a very narrow picture can still be seen
  height = std::max<int64_t>(height, 1);
  return {room.left + static_cast<int>((room.width - width) / 2),
          room.top + static_cast<int>((room.height - height) / 2), static_cast<int>(width), static_cast<int>(height)};
}

}  // namespace kestrun
