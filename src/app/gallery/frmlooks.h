// One dark window with the kinds of control that a style's script colours: what is looked at for light patches.
#pragma once

#include "forms/form.h"
#include "forms/menu_item.h"

namespace kestrun {

class frmlooks final : public Form {
 public:
  static constexpr const char* kName = "frmlooks";
  frmlooks();

 private:
  void AddMenus();
  void AddButtons();
  void AddTexts();
  void AddShapes();
  // In the window's colours, in one of the three columns, below the control before it.
  void Place(Control& control, int column, int height);

  int tops_[3] = {0, 0, 0};
};

}  // namespace kestrun
