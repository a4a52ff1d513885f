// Buttons that the program draws itself: those in colours of their own, which the system's drawing ignores, and those
// with pictures.
#pragma once

#include "desktop/win32/window/form_window.h"
#include "forms/button.h"

namespace kestrun {

struct ButtonState {
  bool is_down = false;
  bool has_focus = false;
  bool is_default = false;
};

// True when the button has other colours than the system's buttons.
[[nodiscard]] bool HasOwnColors(const Control& control);
// A push button's face with picture and caption.
void DrawButtonFace(FormWindow& form, const Button& button, HDC target, const RECT& area, ButtonState state);
// A check box or an option button; the mark is one of DFCS_BUTTONCHECK, DFCS_BUTTONRADIO and DFCS_BUTTON3STATE with the
// states that DrawFrameControl knows.
void DrawMarkedButton(FormWindow& form, const Button& button, HDC target, const RECT& area, UINT mark, bool mark_right,
                      bool has_focus);

}  // namespace kestrun
