#include "desktop/win32/window/combo_face.h"

#include <algorithm>

#include "desktop/win32/drawing/control_parts.h"
#include "desktop/win32/system/wide_text.h"
#include "desktop/win32/window/button_face.h"
#include "desktop/win32/window/control_peer.h"

namespace kestrun {
namespace {

constexpr int kArrowWidth = 9;  // at 96 dots per inch

COMBOBOXINFO PartsOf(HWND combo) {
  COMBOBOXINFO parts{};
  parts.cbSize = sizeof parts;
  GetComboBoxInfo(combo, &parts);
  return parts;
}

// The row that is chosen, marked while the keys go to it.
void DrawChoice(FormWindow& form, const ComboBox& box, HDC target, RECT area, bool is_marked) {
  FillColor(target, area, is_marked ? color::kHighlight : box.BackColor.get());
  const Color usual = box.Enabled ? box.ForeColor.get() : BlendColors(box.BackColor, box.ForeColor, 50);
  const std::wstring text = ToWide(box.Text.get());
  const HGDIOBJ previous = SelectObject(target, form.FontFor(box.Font));
  SetBkMode(target, TRANSPARENT);
  SetTextColor(target, ToColorRef(is_marked ? color::kHighlightText : usual));
  InflateRect(&area, -1, 0);
  DrawTextW(target, text.c_str(), -1, &area, DT_SINGLELINE | DT_VCENTER | DT_NOPREFIX);
  SelectObject(target, previous);
}

// What the list's window ran before it was watched, kept with the window.
constexpr const wchar_t* kListProcedure = L"KestrunComboList";

LRESULT CALLBACK WatchList(HWND window, UINT message, WPARAM first, LPARAM second) {
  const auto procedure = reinterpret_cast<WNDPROC>(GetPropW(window, kListProcedure));
  if (message == WM_NCDESTROY) RemovePropW(window, kListProcedure);
  const LRESULT result = CallWindowProcW(procedure, window, message, first, second);
  if (message != WM_NCPAINT) return result;
  const auto combo = reinterpret_cast<HWND>(GetWindowLongPtrW(window, GWLP_USERDATA));
  const FormWindow* form = FormWindow::Find(combo);
  const ControlPeer* peer = form ? form->PeerOf(combo) : nullptr;
  if (peer && HasOwnColors(peer->control(), kFieldColors)) {
    DrawWindowEdge(window, peer->control(), form->scale());
  }
  return result;
}

}  // namespace

void DrawComboFace(FormWindow& form, const ComboBox& box, HWND window, HDC target, ComboState state) {
  RECT area{};
  GetClientRect(window, &area);
  const int thickness = form.scale().LineWidth();
  const COMBOBOXINFO parts = PartsOf(window);
  const PartState part{box.Enabled, state.is_hot || state.has_focus, false};
  const PartColors edge = PartColorsOf(box.BackColor, box.ForeColor, part);
  FillColor(target, area, box.BackColor);
  if (box.Style == static_cast<int>(ComboStyle::kSimple)) {
    // The list below has an edge of its own.
    area.bottom = std::min(area.bottom, parts.rcItem.bottom + parts.rcItem.top);
    DrawLineEdge(target, area, thickness, edge.line);
    return;
  }
  DrawLineEdge(target, area, thickness, edge.line);
  const bool is_pressed = state.is_open || (parts.stateButton & STATE_SYSTEM_PRESSED) != 0;
  const PartColors button =
      PartColorsOf(box.BackColor, box.ForeColor, {box.Enabled, state.is_hot, is_pressed && box.Enabled});
  RECT place{parts.rcButton.left, area.top + thickness, area.right - thickness, area.bottom - thickness};
  FillColor(target, place, button.face);
  DrawDownArrow(target, place, MulDiv(kArrowWidth, form.scale().dpi(), 96), button.mark);
  if (!box.CanBeTyped()) DrawChoice(form, box, target, parts.rcItem, state.has_focus && !state.is_open);
}

void WatchComboList(HWND combo) {
  const HWND list = PartsOf(combo).hwndList;
  if (!list || GetPropW(list, kListProcedure)) return;
  SetPropW(list, kListProcedure, reinterpret_cast<HANDLE>(GetWindowLongPtrW(list, GWLP_WNDPROC)));
  SetWindowLongPtrW(list, GWLP_USERDATA, reinterpret_cast<LONG_PTR>(combo));
  SetWindowLongPtrW(list, GWLP_WNDPROC, reinterpret_cast<LONG_PTR>(&WatchList));
}

}  // namespace kestrun
