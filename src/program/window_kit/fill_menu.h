// A window's menus as lists of rows: an item with its caption each.
#pragma once

#include <initializer_list>

#include "forms/menu_item.h"

namespace kestrun {

struct MenuRow {
  MenuItem& item;
  const char* caption;
};
inline constexpr const char* kMenuLine = "-";

// Gives the menu its caption and its rows theirs. Items stand in a menu in the order in which the window declares them.
inline void FillMenu(MenuItem& menu, const char* caption, std::initializer_list<MenuRow> rows) {
  menu.Caption = caption;
  for (const MenuRow& row : rows) {
    row.item.Caption = row.caption;
    row.item.SetParent(menu);
  }
}

}  // namespace kestrun
