// The question mark that opens the help.
#pragma once

#include "forms/picture.h"

namespace kestrun {

// A white question mark on a blue disc, 64 by 64 pixels, with smooth edges.
[[nodiscard]] Ref<Picture> HelpPicture();

}  // namespace kestrun
