#include "desktop/win32/window/vertical_scroll_bar.h"

#include <algorithm>

namespace kestrun {
namespace {

// Flat bars are gone from newer systems: there the calls are missing, or they refuse.
template <auto kFunction>
decltype(kFunction) FindFlatCall(const char* name) {
  return reinterpret_cast<decltype(kFunction)>(
      reinterpret_cast<void*>(GetProcAddress(GetModuleHandleW(L"comctl32.dll"), name)));
}

// The flat calls do what the plain ones do for a window whose bar is not flat.
template <class Flat, class Plain>
auto FlatOrPlain(Flat flat, Plain plain) {
  return [flat, plain](auto... arguments) { return flat ? flat(arguments...) : plain(arguments...); };
}

constexpr UINT kPositionDelayMs = 30;

SCROLLINFO InfoOf(const ScrollBarState& state) {
  const int page = std::max(state.page, 1);
  SCROLLINFO info{};
  info.cbSize = sizeof info;
  info.fMask = SIF_RANGE | SIF_PAGE | SIF_POS | SIF_DISABLENOSCROLL;
  info.nMax = std::max(state.maximum, 0) + page - 1;
  info.nPage = static_cast<UINT>(page);
  info.nPos = state.position;
  return info;
}

}  // namespace

void VerticalScrollBar::SetFlat(HWND window, bool flat) {
  static const auto begin = FindFlatCall<&InitializeFlatSB>("InitializeFlatSB");
  static const auto end = FindFlatCall<&UninitializeFlatSB>("UninitializeFlatSB");
  static const auto set_style = FindFlatCall<&FlatSB_SetScrollProp>("FlatSB_SetScrollProp");
  if (!begin || !end || !set_style) return;
  if (!flat) {
    end(window);
  } else if (begin(window)) {
    set_style(window, WSB_PROP_VSTYLE, FSB_FLAT_MODE, TRUE);
  }
}

void VerticalScrollBar::Show(HWND window, const ScrollBarState& state) {
  if (state == shown_) return;
  const ScrollBarState before = shown_;
  shown_ = state;
  ScrollBarState moved = before;
  moved.position = state.position;
  if (state.visible && moved == state) {
    SetTimer(window, kTimer, kPositionDelayMs, nullptr);
    return;
  }
  if (state.flat != before.flat) SetFlat(window, state.flat);
  static const auto set_info = FlatOrPlain(FindFlatCall<&FlatSB_SetScrollInfo>("FlatSB_SetScrollInfo"), &SetScrollInfo);
  static const auto show = FlatOrPlain(FindFlatCall<&FlatSB_ShowScrollBar>("FlatSB_ShowScrollBar"), &ShowScrollBar);
  SCROLLINFO info = InfoOf(state);
  if (state.visible) set_info(window, SB_VERT, &info, TRUE);
  if (state.visible != before.visible) show(window, SB_VERT, state.visible);
}

void VerticalScrollBar::ShowPosition(HWND window) {
  KillTimer(window, kTimer);
  static const auto set_info = FlatOrPlain(FindFlatCall<&FlatSB_SetScrollInfo>("FlatSB_SetScrollInfo"), &SetScrollInfo);
  SCROLLINFO info = InfoOf(shown_);
  info.fMask = SIF_POS;
  set_info(window, SB_VERT, &info, TRUE);
}

std::optional<int> VerticalScrollBar::PositionOf(HWND window, WPARAM first) const {
  SCROLLINFO info{};
  info.cbSize = sizeof info;
  info.fMask = SIF_TRACKPOS;
  static const auto get_info = FlatOrPlain(FindFlatCall<&FlatSB_GetScrollInfo>("FlatSB_GetScrollInfo"), &GetScrollInfo);
  get_info(window, SB_VERT, &info);
  const int page = std::max(shown_.page, 1);
  int position = shown_.position;
  switch (LOWORD(first)) {
    case SB_LINEUP: position -= 1; break;
    case SB_LINEDOWN: position += 1; break;
    case SB_PAGEUP: position -= page; break;
    case SB_PAGEDOWN: position += page; break;
    case SB_TOP: position = 0; break;
    case SB_BOTTOM: position = shown_.maximum; break;
    case SB_THUMBTRACK:
    case SB_THUMBPOSITION:
      // The message holds the low 16 bits only. A program that sends it without dragging means just these.
      position = LOWORD(info.nTrackPos) == HIWORD(first) ? info.nTrackPos : HIWORD(first);
      break;
    default: return std::nullopt;
  }
  return std::clamp(position, 0, std::max(shown_.maximum, 0));
}

}  // namespace kestrun
