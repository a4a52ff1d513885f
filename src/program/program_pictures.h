// The program's own small pictures, drawn by its own code so that they are sharp at every screen scale.
#pragma once

#include "forms/picture.h"

namespace kestrun {

// A bird of prey on a dark round field, 64 by 64 pixels.
[[nodiscard]] Ref<Picture> ProgramIcon();
// A box with a lid: the game's archive. 64 by 64 pixels.
[[nodiscard]] Ref<Picture> ArchivePicture();
// A folded map sheet. 64 by 64 pixels.
[[nodiscard]] Ref<Picture> MapPicture();

}  // namespace kestrun
