// What stands behind the text of a control.
#pragma once

#include <vector>

#include "forms/control.h"
#include "styles/check/unseen_desktop.h"

namespace kestrun {

// The least contrast of the control's texts to what is behind them: its own background, or where it is see-through what
// its container shows there, be it a colour, a gradient or the mean of a picture's part. 21 for a control without a
// text.
[[nodiscard]] double LeastContrast(const Control& control, UnseenDesktop& desktop);

}  // namespace kestrun
