// The vertical scroll bar of a window as a control's state asks for it: away, shown, or shown and disabled because
// there is nothing to scroll; flat where the system still has flat ones.
#pragma once

#include <optional>

#include "forms/user_control.h"
#include "platform/win32/windows_api.h"

namespace kestrun {

class VerticalScrollBar {
 public:
  // Does nothing when the bar is so already.
  void Show(HWND window, const ScrollBarState& state);
  // The position that a WM_VSCROLL means; nothing when it means none, such as the end of a movement.
  [[nodiscard]] std::optional<int> PositionOf(HWND window, WPARAM first) const;
  [[nodiscard]] const ScrollBarState& shown() const { return shown_; }

 private:
  void SetFlat(HWND window, bool flat);

  ScrollBarState shown_;
};

}  // namespace kestrun
