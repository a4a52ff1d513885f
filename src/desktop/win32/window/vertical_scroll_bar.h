// The vertical scroll bar of a window as a control's state asks for it: away, shown, or shown and disabled because
// there is nothing to scroll; flat where the system still has flat ones.
#pragma once

#include <optional>

#include "desktop/win32/system/windows_api.h"
#include "forms/user_control.h"

namespace kestrun {

class VerticalScrollBar {
 public:
  // Does nothing when the bar is so already. A new position alone shows a moment later, by the timer below: the system
  // takes far longer to paint a bar than a control takes for its rows, and rows that move follow each other quickly.
  void Show(HWND window, const ScrollBarState& state);
  static constexpr UINT_PTR kTimer = 0x5342;
  // The timer's message has come.
  void ShowPosition(HWND window);
  // The position that a WM_VSCROLL means; nothing when it means none, such as the end of a movement.
  [[nodiscard]] std::optional<int> PositionOf(HWND window, WPARAM first) const;
  [[nodiscard]] const ScrollBarState& shown() const { return shown_; }

 private:
  void SetFlat(HWND window, bool flat);

  ScrollBarState shown_;
};

}  // namespace kestrun
