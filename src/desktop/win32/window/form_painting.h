// Paints what stands behind the windows of one form: backgrounds, and the controls that have no window.
#pragma once

#include <map>
#include <utility>
#include <vector>

#include "desktop/win32/drawing/gdi_canvas.h"
#include "desktop/win32/system/handles.h"
#include "forms/drawable_control.h"

namespace kestrun {

class ControlPeer;
class FormWindow;

class FormPainting {
 public:
  explicit FormPainting(const FormWindow& form) : form_(form) {}

  // Answers WM_PAINT of the form's window or of a panel's.
  void Paint(HWND window, Control& container);
  // Paints what lies behind a panel: its container's background, and the controls that the container draws.
  void PaintBehind(HDC target, const ControlPeer& peer);
  // The background of a form or a picture box, or what was drawn on it.
  void PaintBackground(HDC target, DrawableControl& container, const RECT& client);

  // Valid until the scale changes.
  [[nodiscard]] HFONT FontFor(const FontDescription& font);
  void ForgetFonts() { fonts_of_controls_.clear(); }
  // Valid until the system's colours change.
  [[nodiscard]] HBRUSH BrushFor(Color color);
  void ForgetBrushes() { brushes_.clear(); }

 private:
  void PaintContent(HDC target, Control& container, const RECT& client);

  const FormWindow& form_;
  FontCache fonts_;  // of what is drawn
  std::vector<std::pair<FontDescription, FontHandle>> fonts_of_controls_;
  std::map<Color, BrushHandle> brushes_;
};

}  // namespace kestrun
