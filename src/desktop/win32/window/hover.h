// Whether the mouse is over a system control that the program draws.
#pragma once

#include "desktop/win32/system/windows_api.h"

namespace kestrun {

class Hover {
 public:
  [[nodiscard]] bool is_hot() const { return is_hot_; }
  // Sees each message of the window; true when the mouse came or went.
  bool Note(HWND window, UINT message) {
    if (message == WM_MOUSEMOVE && !is_hot_) {
      TRACKMOUSEEVENT track{sizeof track, TME_LEAVE, window, 0};
      is_hot_ = TrackMouseEvent(&track) != FALSE;
      return is_hot_;
    }
    if (message != WM_MOUSELEAVE || !is_hot_) return false;
    is_hot_ = false;
    return true;
  }

 private:
  bool is_hot_ = false;
};

}  // namespace kestrun
