// Buttons that the program draws itself: those in colours of their own, which the system's drawing ignores, and those
// with pictures.
#pragma once

#include <functional>

#include "desktop/win32/drawing/control_parts.h"
#include "desktop/win32/window/form_window.h"
#include "forms/button.h"

namespace kestrun {

struct ButtonState {
  bool is_down = false;
  bool has_focus = false;
  bool is_default = false;
};

// The colours of a kind of control that nobody gave others.
struct SystemColors {
  Color background;
  Color text;
};
inline constexpr SystemColors kButtonColors{color::kButtonFace, color::kButtonText};
inline constexpr SystemColors kFieldColors{color::kWindowBackground, color::kWindowText};
// True when the control has other colours than its kind.
[[nodiscard]] bool HasOwnColors(const Control& control, SystemColors usual = kButtonColors);

// A push button's face with picture and caption.
void DrawButtonFace(FormWindow& form, const Button& button, HDC target, const RECT& area, ButtonState state);

// A check box or an option button.
struct MarkedButtonFace {
  const Button& button;
  // Draws the mark into a square.
  std::function<void(HDC target, const RECT& area, int thickness, const PartColors& colors)> draw_mark;
  bool is_mark_right = false;
  PartState state;
  bool has_focus = false;
  bool shows_access_keys = true;
};
void DrawMarkedButton(FormWindow& form, const MarkedButtonFace& face, HDC target, const RECT& area);

}  // namespace kestrun
