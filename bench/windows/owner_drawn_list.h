// The peer of the list benchmarks: the system's own list box, drawn by its owner in the plain way.
#pragma once

#include <windows.h>

namespace kestrun {

inline constexpr int kOwnerDrawnRowHeight = 22;

inline void DrawOwnersRow(const DRAWITEMSTRUCT& item) {
  const bool is_selected = (item.itemState & ODS_SELECTED) != 0;
  FillRect(item.hDC, &item.rcItem, GetSysColorBrush(is_selected ? COLOR_HIGHLIGHT : COLOR_WINDOW));
  SetBkMode(item.hDC, TRANSPARENT);
  SetTextColor(item.hDC, GetSysColor(is_selected ? COLOR_HIGHLIGHTTEXT : COLOR_WINDOWTEXT));
  wchar_t text[MAX_PATH]{};
  SendMessageW(item.hwndItem, LB_GETTEXT, item.itemID, reinterpret_cast<LPARAM>(text));
  RECT place = item.rcItem;
  place.left += 5;
  DrawTextW(item.hDC, text, -1, &place, DT_SINGLELINE | DT_VCENTER | DT_NOPREFIX);
}

inline LRESULT CALLBACK OwnerProcedure(HWND window, UINT message, WPARAM first, LPARAM second) {
  if (message == WM_MEASUREITEM) {
    reinterpret_cast<MEASUREITEMSTRUCT*>(second)->itemHeight = kOwnerDrawnRowHeight;
    return TRUE;
  }
  if (message == WM_DRAWITEM) {
    DrawOwnersRow(*reinterpret_cast<DRAWITEMSTRUCT*>(second));
    return TRUE;
  }
  return DefWindowProcW(window, message, first, second);
}

// An empty list of that size in pixels, in a window of its own.
inline HWND MakeOwnerDrawnList(int width, int height) {
  WNDCLASSW owner_class{};
  owner_class.lpfnWndProc = OwnerProcedure;
  owner_class.hInstance = GetModuleHandleW(nullptr);
  owner_class.lpszClassName = L"Owner";
  RegisterClassW(&owner_class);
  const HWND owner = CreateWindowW(L"Owner", L"Owner", WS_OVERLAPPEDWINDOW | WS_VISIBLE, 0, 0, width + 30, height + 40,
                                   nullptr, nullptr, owner_class.hInstance, nullptr);
  return CreateWindowExW(WS_EX_CLIENTEDGE, L"LISTBOX", L"",
                         WS_CHILD | WS_VISIBLE | WS_VSCROLL | LBS_OWNERDRAWFIXED | LBS_HASSTRINGS, 0, 0, width, height,
                         owner, nullptr, owner_class.hInstance, nullptr);
}

}  // namespace kestrun
