// A control that paints itself and handles its own mouse and keys. The platform gives it one window of its own; the
// model works as well without one.
#pragma once

#include <string>

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

class UserControl : public Control {
 public:
  using Control::Control;

  // What the platform calls. Places are device pixels inside the control's client area.
  virtual void Paint(Canvas& canvas) = 0;
  // The client area's size and the screen's scale; called before the first Paint and whenever either changes.
  virtual void Resized(PixelSize client, int dpi);
  virtual void OnMouseDown(int button, int shift_state, int x, int y);
  virtual void OnMouseMove(int button, int shift_state, int x, int y);
  virtual void OnMouseUp(int button, int shift_state, int x, int y);
  virtual void OnDoubleClick(int x, int y);
  virtual void OnMouseLeave() {}
  // Notches of the wheel, positive away from the user. True when the control took it.
  virtual bool OnWheel(int notches, int shift_state);
  // Virtual key code. True when the control took the key.
  virtual bool OnKeyDown(int key_code, int shift_state);
  virtual void OnKeyPress(char32_t character);
  virtual void OnFocus(bool has_focus);
  virtual void OnScroll(int position);

  [[nodiscard]] virtual ScrollBarState VerticalScrollBar() const { return {}; }

  // What a screen reader asks for.
  enum class Role { kPanel, kList, kProgressBar, kLink };
  [[nodiscard]] virtual Role AccessibleRole() const { return Role::kPanel; }
  [[nodiscard]] virtual std::string AccessibleName() const { return ToolTipText; }
  // Rows of a list with their text and selection; the value of a progress bar is its name's business.
  [[nodiscard]] virtual int AccessibleChildCount() const { return 0; }
  [[nodiscard]] virtual std::string AccessibleChildName(int child) const;
  [[nodiscard]] virtual bool IsAccessibleChildSelected(int child) const;

  // Stored properties, under the names of the control's own tables.
  virtual void WriteProperties(PropertyBag& bag) const { static_cast<void>(bag); }
  virtual void ReadProperties(const PropertyBag& bag) { static_cast<void>(bag); }

 protected:
  [[nodiscard]] PixelSize client() const { return client_; }
  [[nodiscard]] int dpi() const { return dpi_; }
  // Paints again soon; several calls paint once.
  void Invalidate() { Refresh(); }

 private:
  PixelSize client_;
  int dpi_ = 96;
};

}  // namespace kestrun
