// A picture in the middle of its place, whole and in its own proportions.
#pragma once

#include "forms/picture.h"
#include "program/window_kit/place_controls.h"

namespace kestrun {

// Whether a picture that is smaller than its place is enlarged to it.
enum class SmallPicture { kEnlarge, kKeepSize };

// Where the picture goes inside the room; without one it is the whole room.
[[nodiscard]] Place FitPicture(const Ref<Picture>& picture, const Place& room, SmallPicture small);

}  // namespace kestrun
