// A font in which columns of text stand below each other.
#pragma once

#include "forms/control.h"

namespace kestrun {

// Gives the control the first font of a fixed pitch that the system has, at this size in points.
void GiveFixedPitch(Control& control, double size_points);

}  // namespace kestrun
