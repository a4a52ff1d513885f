// The menu bar of one form's window, and its menus that pop up. In a form with a background of its own they are drawn
// in its colours.
#pragma once

#include <optional>
#include <vector>

#include "desktop/win32/system/handles.h"
#include "desktop/win32/window/menu_painting.h"
#include "forms/form.h"
#include "forms/menu_item.h"

namespace kestrun {

class FormMenu {
 public:
  explicit FormMenu(Form& form) : form_(form) {}

  // Makes the bar anew from the model's items and gives it to the window.
  void Build(HWND window);
  // The item that a command of the menu means; null for a number that is none.
  [[nodiscard]] Ref<MenuItem> ItemOf(int command) const;
  // Opens an item's submenu at a place of the screen and waits for the user. Null when nothing was chosen.
  [[nodiscard]] Ref<MenuItem> PopUp(MenuItem& item, HWND window, POINT place);

  // Items in the form's colours, and pictures of items where the system draws none with soft edges.
  void Measure(MEASUREITEMSTRUCT& item) const;
  void Draw(const DRAWITEMSTRUCT& item) const;
  // The colours of the menus; nothing while the system draws them.
  [[nodiscard]] const std::optional<MenuColors>& colors() const { return colors_; }

 private:
  void Fill(HMENU menu, const std::vector<MenuItem*>& items);
  void AddItems(HMENU menu, const std::vector<MenuItem*>& items);
  void AddItem(HMENU menu, MenuItem& item, bool has_picture_column);
  [[nodiscard]] UINT_PTR CommandOf(MenuItem& item);
  void AddPicture(HMENU menu, const Picture& picture);
  void DrawByProgram(HMENU menu, UINT_PTR command) const;

  Form& form_;
  std::optional<MenuColors> colors_;
  BrushHandle background_;
  COLORREF background_color_ = 0;
  MenuHandle menu_;
  std::vector<Ref<MenuItem>> commands_;  // by command number, from the first; null for items that are gone
  std::vector<BitmapHandle> bitmaps_;
};

}  // namespace kestrun
