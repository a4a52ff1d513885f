// Menus in the colours of their form: what the system draws in its own colours is drawn by the program when a form has
// a background of its own, so that a dark form has no light bar.
#pragma once

#include <optional>

#include "desktop/win32/system/windows_api.h"
#include "forms/form.h"
#include "forms/menu_item.h"

namespace kestrun {

struct MenuColors {
  COLORREF background = 0;
  COLORREF text = 0;
  COLORREF disabled = 0;
  COLORREF selected = 0;  // behind the item that the mouse or the keys are at
};

// Nothing for a form in the system's colours.
[[nodiscard]] std::optional<MenuColors> MenuColorsOf(const Form& form);
// Whether white text is read better on the colour than black text.
[[nodiscard]] bool IsDark(COLORREF color);

// Room for an item; null for a line.
void MeasureMenuItem(const MenuItem* item, MEASUREITEMSTRUCT& room);
void DrawMenuItem(const MenuItem* item, bool is_in_bar, const MenuColors& colors, const DRAWITEMSTRUCT& draw);
// What the system draws in its own colour around the items of a window's menu bar: the rest of the bar, and the line
// between it and the client area.
void PaintAroundMenu(HWND window, COLORREF color);
// Lets the title bar follow a dark form, where the system can.
void ShowDarkTitle(HWND window, bool is_dark);

}  // namespace kestrun
