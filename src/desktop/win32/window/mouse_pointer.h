// The mouse's pointer over a form and its controls.
#pragma once

#include "desktop/win32/system/handles.h"
#include "forms/control.h"

namespace kestrun {

class MousePointerShape {
 public:
  // Shows the pointer that the control's MousePointer or MouseIcon asks for; false when it asks for none.
  bool Show(const Control& control, int dpi);
  // The next pointer is made anew: the scale has changed.
  void Forget() { picture_.Reset(); }

 private:
  Ref<Picture> picture_;  // what cursor_ was made of
  IconHandle cursor_;
};

}  // namespace kestrun
