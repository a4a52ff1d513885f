#include "desktop/win32/window/combo_face.h"

#include <algorithm>

#include "desktop/win32/drawing/control_parts.h"
#include "desktop/win32/system/wide_text.h"
#include "desktop/win32/window/button_face.h"
#include "desktop/win32/window/control_peer.h"
#include "desktop/win32/window/scroll_bar_face.h"

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

// What a watched list holds as its user data, from its watching to its last message.
struct WatchedList {
  HWND combo;
  WNDPROC procedure;  // the window's own
  ScrollBarFace bars = {};
};

WatchedList* WatchedOf(HWND list) { return reinterpret_cast<WatchedList*>(GetWindowLongPtrW(list, GWLP_USERDATA)); }

// The peer of the list's combo box, when that has colours of its own; null otherwise.
const ControlPeer* ColoredPeerOf(HWND combo) {
  const FormWindow* form = FormWindow::Find(combo);
  const ControlPeer* peer = form ? form->PeerOf(combo) : nullptr;
  return peer && HasOwnColors(peer->control(), kFieldColors) ? peer : nullptr;
}

LRESULT CALLBACK WatchList(HWND window, UINT message, WPARAM first, LPARAM second) {
  WatchedList* watched = WatchedOf(window);
  if (!watched) return DefWindowProcW(window, message, first, second);
  const WNDPROC procedure = watched->procedure;
  if (message == WM_NCDESTROY) {
    SetWindowLongPtrW(window, GWLP_USERDATA, 0);
    delete watched;
    return CallWindowProcW(procedure, window, message, first, second);
  }
  const bool is_taken = ColoredPeerOf(watched->combo) && watched->bars.TakeMessage(window, message, first, second);
  const LRESULT result = is_taken ? 0 : CallWindowProcW(procedure, window, message, first, second);
  watched = WatchedOf(window);
  const ControlPeer* peer = watched ? ColoredPeerOf(watched->combo) : nullptr;
  if (!peer) return result;
  const Control& control = peer->control();
  if (message == WM_NCPAINT) DrawWindowEdge(window, control, peer->form().scale());
  watched->bars.AfterMessage(window, message, control.BackColor, control.ForeColor, peer->form().scale());
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
  DrawArrow(target, place, MulDiv(kArrowWidth, form.scale().dpi(), 96), button.mark, ArrowDirection::kDown);
  if (!box.CanBeTyped()) DrawChoice(form, box, target, parts.rcItem, state.has_focus && !state.is_open);
}

void WatchComboList(HWND combo) {
  const HWND list = PartsOf(combo).hwndList;
  if (!list || WatchedOf(list)) return;
  auto* watched = new WatchedList{combo, reinterpret_cast<WNDPROC>(GetWindowLongPtrW(list, GWLP_WNDPROC))};
  SetWindowLongPtrW(list, GWLP_USERDATA, reinterpret_cast<LONG_PTR>(watched));
  SetWindowLongPtrW(list, GWLP_WNDPROC, reinterpret_cast<LONG_PTR>(&WatchList));
}

}  // namespace kestrun
