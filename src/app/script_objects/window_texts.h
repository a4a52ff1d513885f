// What the windows show, for the check of the manual: the captions that it has to mention, and a number for each window
// that changes with its look.
#pragma once

#include <string>

namespace kestrun {

// A line for each menu entry, option and named field of each window, for each command word, and for each window's look:
//   frmain|menu|Put map in DFLW
//   frmoptions|field|Game folder
//   program|word|-open
//   frmain|look|343900c0...
// Captions stand without "&", colons, dots and blanks at their ends. The look is the SHA-256 of places, sizes and
// captions of all that stands in the window: a picture of it is out of date when the number is another one. Needs a
// platform; the windows are made, not loaded.
[[nodiscard]] std::string WindowTexts();

}  // namespace kestrun
