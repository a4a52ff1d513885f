// Combo boxes in colours of their own: the program draws edge, arrow and the text of a choice, which the system draws
// in its colours.
#pragma once

#include "desktop/win32/window/form_window.h"
#include "forms/combo_box.h"

namespace kestrun {

struct ComboState {
  bool is_hot = false;
  bool has_focus = false;
  bool is_open = false;
};

// The whole of a combo box but the windows inside it.
void DrawComboFace(FormWindow& form, const ComboBox& box, HWND window, HDC target, ComboState state);
// Gives the list of a combo box its edge and scroll bar in the box's colours for as long as they are its own. Once for
// each window.
void WatchComboList(HWND combo);

}  // namespace kestrun
