// The tips of one form's controls. Most windows are used without a tip being read, and a tip window costs as much as
// ten buttons: there is none before the mouse has moved over the form.
#pragma once

#include <map>

#include "desktop/win32/system/windows_api.h"
#include "desktop/win32/window/screen_scale.h"
#include "forms/control.h"

namespace kestrun {

class FormTips {
 public:
  // The form is about to be shown: a mouse that rests from now on was not moved for it.
  void NotePointer() { GetCursorPos(&pointer_at_opening_); }
  // Makes the tip window when the mouse has moved since. True when it was made now: the controls then show their tips.
  [[nodiscard]] bool MakeWindow(HWND form_window, ScreenScale scale);
  // The tip of a control's window, or of the area of another window that draws the control. Nothing before the tip
  // window is there.
  void Show(const Control& control, HWND form_window, HWND tool_window, const RECT* area);
  void Forget(const Control& control);

 private:
  POINT pointer_at_opening_{};
  HWND tips_ = nullptr;                        // owned by the form's window
  std::map<const Control*, TOOLINFOW> tools_;  // as they were added
};

}  // namespace kestrun
