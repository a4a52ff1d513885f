// Twips of the model to the device pixels of one window's screen, and back.
#pragma once

#include <algorithm>

#include "desktop/win32/system/windows_api.h"

namespace kestrun {

class ScreenScale {
 public:
  explicit ScreenScale(int dpi = 96) : dpi_(dpi) {}
  [[nodiscard]] int dpi() const { return dpi_; }
  [[nodiscard]] int Pixels(int twips) const { return MulDiv(twips, dpi_, 1440); }
  // Of a thin line: a pixel of a screen of 96 dots an inch, and never less than one.
  [[nodiscard]] int LineWidth() const { return std::max(1, MulDiv(1, dpi_, 96)); }
  [[nodiscard]] int Twips(int pixels) const { return MulDiv(pixels, 1440, dpi_); }

 private:
  int dpi_;
};

// The scale of the window's screen, of the main screen without a window. The environment variable KESTRUN_DPI sets
// another for trying the program out.
[[nodiscard]] ScreenScale ScaleOf(HWND window);

// The outer size of a window with that client size, for the scale where the system knows it.
[[nodiscard]] SIZE OuterSize(SIZE client, DWORD style, DWORD extended_style, bool has_menu, ScreenScale scale);

}  // namespace kestrun
