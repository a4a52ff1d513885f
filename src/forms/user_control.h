// A control that paints itself and handles its own mouse and keys. The platform gives it one window of its own; the
// model works as well without one.
#pragma once

#include <functional>
#include <string>
#include <string_view>

#include "forms/accessible.h"
#include "forms/canvas.h"
#include "forms/control.h"
#include "forms/property_bag.h"

namespace kestrun {

// One scroll bar of a user control, in units of the control's own.
struct ScrollBarState {
  bool visible = false;
  bool flat = false;
  int position = 0;
  int maximum = 0;  // greatest position
  int page = 1;
  friend bool operator==(const ScrollBarState&, const ScrollBarState&) = default;
};

class UserControl : public Control, public Accessible {
 public:
  using Control::Control;

  // What the platform calls. Places are device pixels inside the control's client area. The platform has fired the
  // events of mouse buttons, keys and the focus before; Click and DblClick are for the control to fire.
  virtual void Paint(Canvas& canvas) = 0;
  // The client area's size and the screen's scale; called before the first Paint and whenever either changes.
  virtual void Resized(PixelSize client, int dpi);
  virtual void OnMouseDown(int button, int shift_state, int x, int y);
  virtual void OnMouseMove(int button, int shift_state, int x, int y);
  // At (-1, -1) when another window took the mouse in the middle of a drag.
  virtual void OnMouseUp(int button, int shift_state, int x, int y);
  // In place of the second OnMouseDown of the left button; an OnMouseUp follows.
  virtual void OnDoubleClick(int x, int y);
  virtual void OnMouseLeave() {}
  // Notches of the wheel, positive away from the user. True when the control took it.
  virtual bool OnWheel(int notches, int shift_state);
  // Virtual key code, of any key but Tab. True when the control took the key: then it types no character either, and
  // Enter presses no default button.
  virtual bool OnKeyDown(int key_code, int shift_state);
  virtual void OnKeyPress(char32_t character);
  virtual void OnFocus(bool has_focus);
  // The user moved the scroll bar; from 0 to its maximum.
  virtual void OnScroll(int position);

  // Both are read again whenever the control is painted anew or one of its properties changes.
  [[nodiscard]] virtual ScrollBarState VerticalScrollBar() const { return {}; }
  // What stands around the client area: 0 nothing, 1 a line, 2 a sunken edge.
  [[nodiscard]] virtual int FrameKind() const { return 0; }

  [[nodiscard]] Role AccessibleRole() const override { return Role::kPanel; }
  // Its tip, otherwise the caption of the label in front of it in the tab order, without the access key and the colon.
  [[nodiscard]] std::string AccessibleName() const override;

  // Stored properties, under the names of the control's own tables.
  virtual void WriteProperties(PropertyBag& bag) const { static_cast<void>(bag); }
  virtual void ReadProperties(const PropertyBag& bag) { static_cast<void>(bag); }

 protected:
  [[nodiscard]] PixelSize client() const { return client_; }
  [[nodiscard]] int dpi() const { return dpi_; }
  // Paints again soon; several calls paint once.
  void Invalidate() { Refresh(); }

  // Extent of one line, also outside of Paint.
  [[nodiscard]] PixelSize MeasureText(std::string_view text, const FontDescription& font) const;

  // A small bordered surface in front of all windows, such as a tip over a row that is too long. It takes neither the
  // focus nor the mouse. The area, its border included, is in pixels of the desktop. Shown again it moves and is
  // painted anew. It goes with the control.
  void ShowPopup(const PixelRect& screen_area, std::function<void(Canvas&)> paint);
  void HidePopup();
  // Where the client area's top left corner is on the desktop.
  [[nodiscard]] PixelPoint ScreenPosition() const;
  // The part of the desktop that the control's screen shows. Another screen than the main one may start left of 0.
  [[nodiscard]] PixelRect ScreenArea() const;
  [[nodiscard]] PixelSize ScreenSize() const { return {ScreenArea().width(), ScreenArea().height()}; }

  // Tells screen readers; the child is a row, -1 for the control itself.
  void TellAccessibility(AccessibleEvent event, int child = -1);

 private:
  PixelSize client_;
  int dpi_ = 96;
};

}  // namespace kestrun
