// A small bordered surface in front of all windows, such as the tip over a row that is too long. It is never
// activated, and the mouse goes through it.
#pragma once

#include <functional>

#include "desktop/win32/drawing/gdi_canvas.h"

namespace kestrun {

class PopupSurface {
 public:
  // Shows it, or moves it and paints it anew. The paint runs before this returns. The owner takes it along when it is
  // minimised or closed.
  void Show(HWND owner, const PixelRect& area, int dpi, const std::function<void(Canvas&)>& paint);
  void Hide();
  // Null before the first showing.
  [[nodiscard]] HWND window() const { return window_.get(); }

 private:
  static LRESULT CALLBACK Handle(HWND window, UINT message, WPARAM first, LPARAM second);
  void Create(HWND owner);
  void Copy(HDC target) const;

  FontCache fonts_;
  BackBuffer buffer_;
  WindowHandle window_;
};

}  // namespace kestrun
