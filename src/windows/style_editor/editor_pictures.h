// The pictures of the style editor's menus and trees, beside those that other windows have too. 32 by 32 pixels.
#pragma once

#include "forms/picture.h"

namespace kestrun {

[[nodiscard]] Ref<Picture> NewSheetPicture();   // an empty sheet with a folded corner
[[nodiscard]] Ref<Picture> TextSheetPicture();  // the same with lines
[[nodiscard]] Ref<Picture> ModulePicture();     // a sheet with two brackets
[[nodiscard]] Ref<Picture> SoundPicture();      // a loudspeaker
[[nodiscard]] Ref<Picture> FormPicture();       // a window

// What a drawing function draws, drawn once in the life of the process.
[[nodiscard]] Ref<Picture> DrawnOnce(Ref<Picture> (*draw)());

}  // namespace kestrun
