// How the windows' lists show where the keyboard is.
#pragma once

#include "controls/list_box/mc_list_box.h"

namespace kestrun {

// The rectangle around the current row is there only while the list has the focus.
inline void ShowFocusOnlyWhileFocused(McListBox& list) {
  list.FocusRectangle = false;
  list.GotFocus = [&list] { list.FocusRectangle = true; };
  list.LostFocus = [&list] { list.FocusRectangle = false; };
}

}  // namespace kestrun
