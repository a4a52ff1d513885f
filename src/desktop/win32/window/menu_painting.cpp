#include "desktop/win32/window/menu_painting.h"

#include <algorithm>
#include <array>

#include "base/runtime_error.h"
#include "desktop/win32/drawing/control_parts.h"
#include "desktop/win32/drawing/graphics.h"
#include "desktop/win32/system/handles.h"
#include "desktop/win32/system/late_call.h"
#include "desktop/win32/system/wide_text.h"

namespace kestrun {
namespace {

// Between the parts of an item, and above and below its text.
constexpr int kGap = 6;
constexpr int kAbove = 3;
constexpr int kLineHeight = 7;

int Brightness(COLORREF color) {
  return (GetRValue(color) * 299 + GetGValue(color) * 587 + GetBValue(color) * 114) / 1000;
}

FontHandle MenuFont() {
  NONCLIENTMETRICSW metrics{};
  metrics.cbSize = sizeof metrics;
  SystemParametersInfoW(SPI_GETNONCLIENTMETRICS, sizeof metrics, &metrics, 0);
  return FontHandle(CreateFontIndirectW(&metrics.lfMenuFont));
}

// The column of check marks and pictures.
int PictureColumn() { return GetSystemMetrics(SM_CXMENUCHECK) + 2 * kGap; }

std::wstring ShortcutOf(const MenuItem& item) {
  return ToWide(item.Shortcut->empty() ? item.KeyHint.get() : item.Shortcut.get());
}

SIZE ExtentOf(HDC target, const std::wstring& text) {
  RECT area{};
  DrawTextW(target, text.c_str(), -1, &area, DT_SINGLELINE | DT_CALCRECT);
  return {area.right, area.bottom};
}

void DrawLineItem(const MenuColors& colors, const DRAWITEMSTRUCT& draw) {
  const int middle = (draw.rcItem.top + draw.rcItem.bottom) / 2;
  FillColor(draw.hDC, {draw.rcItem.left + PictureColumn(), middle, draw.rcItem.right, middle + 1},
            BlendColors(colors.background, colors.text, 30));
}

// The corners are parts of the area in percent.
void DrawFigure(HDC target, const RECT& area, const std::array<POINT, 3>& corners, COLORREF color, bool is_filled) {
  std::array<POINT, 3> places{};
  for (size_t at = 0; at < corners.size(); ++at) {
    places[at] = {area.left + (area.right - area.left) * corners[at].x / 100,
                  area.top + (area.bottom - area.top) * corners[at].y / 100};
  }
  const PenHandle pen(CreatePen(PS_SOLID, is_filled ? 1 : 2, color));
  const BrushHandle brush(CreateSolidBrush(color));
  const HGDIOBJ old_pen = SelectObject(target, pen.get());
  const HGDIOBJ old_brush = SelectObject(target, brush.get());
  if (is_filled) {
    Polygon(target, places.data(), static_cast<int>(places.size()));
  } else {
    Polyline(target, places.data(), static_cast<int>(places.size()));
  }
  SelectObject(target, old_brush);
  SelectObject(target, old_pen);
}

// A square of the menu's mark size in the middle of a column.
RECT MarkArea(const RECT& item, int left) {
  const int size = GetSystemMetrics(SM_CXMENUCHECK);
  const int top = (item.top + item.bottom - size) / 2;
  return {left, top, left + size, top + size};
}

void DrawMark(const MenuItem& item, const DRAWITEMSTRUCT& draw, COLORREF color) {
  const RECT area = MarkArea(draw.rcItem, draw.rcItem.left + kGap);
  if (const Picture* picture = item.Picture.get().get()) {
    DrawPictureTo(draw.hDC, *picture, area);
  } else if (item.Checked) {
    DrawFigure(draw.hDC, area, {{{15, 50}, {40, 75}, {85, 25}}}, color, false);
  }
}

// Afterwards nothing of the item is drawn by the system, whose own arrow is black.
void DrawArrow(const DRAWITEMSTRUCT& draw, COLORREF color) {
  const RECT area = MarkArea(draw.rcItem, draw.rcItem.right - GetSystemMetrics(SM_CXMENUCHECK));
  DrawFigure(draw.hDC, area, {{{35, 25}, {60, 50}, {35, 75}}}, color, true);
  ExcludeClipRect(draw.hDC, draw.rcItem.left, draw.rcItem.top, draw.rcItem.right, draw.rcItem.bottom);
}

void DrawText(const DRAWITEMSTRUCT& draw, RECT area, const std::wstring& text, UINT format) {
  if ((draw.itemState & ODS_NOACCEL) != 0) format |= DT_HIDEPREFIX;
  DrawTextW(draw.hDC, text.c_str(), -1, &area, DT_SINGLELINE | DT_VCENTER | format);
}

}  // namespace

bool IsDark(COLORREF color) { return Brightness(color) < 128; }

std::optional<MenuColors> MenuColorsOf(const Form& form) {
  if (IsSystemColor(form.BackColor)) return std::nullopt;
  constexpr int kLeastContrast = 70;
  MenuColors colors;
  colors.background = ToColorRef(form.BackColor);
  colors.text = ToColorRef(form.ForeColor);
  if (std::abs(Brightness(colors.text) - Brightness(colors.background)) < kLeastContrast) {
    colors.text = IsDark(colors.background) ? color::kWhite : color::kBlack;
  }
  colors.disabled = BlendColors(colors.background, colors.text, 50);
  colors.selected = BlendColors(colors.background, colors.text, 25);
  return colors;
}

void MeasureMenuItem(const MenuItem* item, MEASUREITEMSTRUCT& room) {
  if (!item) {
    room.itemHeight = kLineHeight;
    return;
  }
  const HDC screen = GetDC(nullptr);
  const FontHandle font = MenuFont();
  const HGDIOBJ old_font = SelectObject(screen, font.get());
  const SIZE caption = ExtentOf(screen, ToWide(item->Caption.get()));
  const std::wstring shortcut = ShortcutOf(*item);
  int width = caption.cx;
  int height = caption.cy + 2 * kAbove;
  if (item->Parent()) {
    width += PictureColumn() + 2 * kGap + GetSystemMetrics(SM_CXMENUCHECK);
    if (!shortcut.empty()) width += 3 * kGap + ExtentOf(screen, shortcut).cx;
    height = std::max(height, GetSystemMetrics(SM_CYMENUCHECK) + kAbove);
  }
  SelectObject(screen, old_font);
  ReleaseDC(nullptr, screen);
  room.itemWidth = static_cast<UINT>(width);
  room.itemHeight = static_cast<UINT>(height);
}

void DrawMenuItem(const MenuItem* item, bool is_in_bar, const MenuColors& colors, const DRAWITEMSTRUCT& draw) {
  const bool is_selected = (draw.itemState & (ODS_SELECTED | ODS_HOTLIGHT)) != 0 && item && item->Enabled;
  FillColor(draw.hDC, draw.rcItem, is_selected ? colors.selected : colors.background);
  if (!item) return DrawLineItem(colors, draw);
  const COLORREF color = item->Enabled ? colors.text : colors.disabled;
  const FontHandle font = MenuFont();
  const HGDIOBJ old_font = SelectObject(draw.hDC, font.get());
  SetBkMode(draw.hDC, TRANSPARENT);
  SetTextColor(draw.hDC, color);
  if (is_in_bar) {
    DrawText(draw, draw.rcItem, ToWide(item->Caption.get()), DT_CENTER);
  } else {
    DrawMark(*item, draw, color);
    RECT area = draw.rcItem;
    area.left += PictureColumn();
    DrawText(draw, area, ToWide(item->Caption.get()), DT_LEFT);
    area.right -= GetSystemMetrics(SM_CXMENUCHECK);
    DrawText(draw, area, ShortcutOf(*item), DT_RIGHT | DT_NOPREFIX);
  }
  SelectObject(draw.hDC, old_font);
  if (!is_in_bar && !item->Items().empty()) DrawArrow(draw, color);
}

void PaintAroundMenu(HWND window, COLORREF color) {
  RECT client{};
  RECT outer{};
  GetClientRect(window, &client);
  MapWindowPoints(window, nullptr, reinterpret_cast<POINT*>(&client), 2);
  GetWindowRect(window, &outer);
  const HDC target = GetWindowDC(window);
  const int top = client.top - outer.top;
  FillColor(target, {client.left - outer.left, top - 1, client.right - outer.left, top}, color);
  const HMENU menu = GetMenu(window);
  RECT last{};
  if (GetMenuItemRect(window, menu, static_cast<UINT>(GetMenuItemCount(menu) - 1), &last)) {
    FillColor(target, {last.right - outer.left, last.top - outer.top, client.right - outer.left, top}, color);
  }
  // Wine keeps a light line of the title bar that the window manager draws in its place.
  MENUBARINFO bar{};
  bar.cbSize = sizeof bar;
  if (IsWine() && GetMenuBarInfo(window, OBJID_MENU, 0, &bar)) {
    const int above = bar.rcBar.top - outer.top;
    FillColor(target, {client.left - outer.left, above - 1, client.right - outer.left, above}, color);
  }
  ReleaseDC(window, target);
}

void ShowDarkTitle(HWND window, bool is_dark) {
  // The attribute's number, and the one it had in the first versions that knew it.
  constexpr std::array<DWORD, 2> kUseDarkMode{20, 19};
  using SetAttribute = HRESULT(WINAPI*)(HWND, DWORD, LPCVOID, DWORD);
  static const auto set = reinterpret_cast<SetAttribute>(
      reinterpret_cast<void*>(GetProcAddress(LoadLibraryW(L"dwmapi.dll"), "DwmSetWindowAttribute")));
  if (!set) return;
  const BOOL value = is_dark;
  for (const DWORD attribute : kUseDarkMode) {
    if (SUCCEEDED(set(window, attribute, &value, sizeof value))) return;
  }
}

}  // namespace kestrun
