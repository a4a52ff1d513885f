// Whether the text of a control has room in it.
#pragma once

#include <string>

#include "forms/control.h"

namespace kestrun {

// The text that a control shows, without its access key; empty for one that shows none, and for lists.
[[nodiscard]] std::string ShownText(const Control& control);

// True when less than the whole text can be seen on a screen with that many dots per inch. Texts that scroll, and
// labels that take the size of their text, are never clipped.
[[nodiscard]] bool IsTextClipped(const Control& control, int dpi);

}  // namespace kestrun
