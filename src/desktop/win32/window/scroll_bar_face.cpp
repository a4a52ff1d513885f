#include "desktop/win32/window/scroll_bar_face.h"

#include <algorithm>
#include <utility>

#include "desktop/win32/drawing/control_parts.h"
#include "desktop/win32/drawing/graphics.h"

namespace kestrun {
namespace {

using Part = ScrollBarFace::Part;

constexpr UINT kDrawBars = WM_APP + 0x5B;
constexpr UINT_PTR kRepeatTimer = 0x5250;
constexpr UINT kFirstRepeatMs = 400;
constexpr UINT kRepeatMs = 50;
constexpr int kLeastThumb = 8;   // pixels
constexpr int kArrowWidth = 9;   // at 96 dots per inch
constexpr int kThumbInset = 2;   // from the bar's sides, at 96 dots per inch
constexpr int kThumbBlend = 35;  // percent of the way from the background to the text
constexpr int kHeldThumbBlend = 55;
constexpr int kTrackBlend = 7;

bool HasBars(HWND window) { return (GetWindowLongPtrW(window, GWL_STYLE) & (WS_VSCROLL | WS_HSCROLL)) != 0; }

int AlongOf(const ShownScrollBar& bar, POINT place) {
  return bar.kind == SB_VERT ? place.y - bar.area.top : place.x - bar.area.left;
}

// A stretch of the bar, in its window's pixels.
RECT StretchOf(const ShownScrollBar& bar, int from, int to, int inset) {
  const RECT& area = bar.area;
  if (bar.kind == SB_VERT) return {area.left + inset, area.top + from, area.right - inset, area.top + to};
  return {area.left + from, area.top + inset, area.left + to, area.bottom - inset};
}

void PlaceThumb(ShownScrollBar& bar, int page) {
  const int track = bar.length - 2 * bar.button;
  if (bar.last <= bar.first || track <= kLeastThumb) return;
  const int steps = bar.last - bar.first;
  bar.thumb_length =
      page > 0 ? std::max(kLeastThumb, static_cast<int>(int64_t{track} * page / (int64_t{steps} + page))) : bar.button;
  bar.thumb_length = std::min(bar.thumb_length, track);
  bar.thumb_start =
      bar.button + static_cast<int>(int64_t{track - bar.thumb_length} * (bar.position - bar.first) / steps);
}

Part PartAt(const ShownScrollBar& bar, POINT place) {
  const int along = AlongOf(bar, place);
  if (!PtInRect(&bar.area, place)) return Part::kNone;
  if (along < bar.button) return Part::kLineBack;
  if (along >= bar.length - bar.button) return Part::kLineOn;
  if (bar.thumb_length == 0) return Part::kNone;
  if (along < bar.thumb_start) return Part::kPageBack;
  return along < bar.thumb_start + bar.thumb_length ? Part::kThumb : Part::kPageOn;
}

WORD CodeOf(Part part) {
  switch (part) {
    case Part::kLineBack: return SB_LINEUP;
    case Part::kLineOn: return SB_LINEDOWN;
    case Part::kPageBack: return SB_PAGEUP;
    case Part::kPageOn: return SB_PAGEDOWN;
    default: return SB_ENDSCROLL;
  }
}

void TellWindow(HWND window, int kind, WORD code, int position = 0) {
  SendMessageW(window, kind == SB_VERT ? WM_VSCROLL : WM_HSCROLL, MAKEWPARAM(code, position & 0xFFFF), 0);
}

// Windows that scroll while the thumb is held ask for its place themselves: the message has room for 16 bits only.
void TellPosition(HWND window, int kind, WORD code, int position) {
  SCROLLINFO info{};
  info.cbSize = sizeof info;
  info.fMask = SIF_POS;
  info.nPos = position;
  SetScrollInfo(window, kind, &info, FALSE);
  TellWindow(window, kind, code, position);
}

void DrawBar(HDC target, const ShownScrollBar& bar, Part pressed, Color background, Color text, ScreenScale scale) {
  const auto mixed = [&](int percent) { return BlendColors(background, text, percent); };
  FillColor(target, bar.area, mixed(kTrackBlend));
  const bool can_scroll = bar.thumb_length > 0;
  const auto draw_arrow = [&](int from, Part part, ArrowDirection direction) {
    const RECT place = StretchOf(bar, from, from + bar.button, 0);
    if (pressed == part && can_scroll) FillColor(target, place, mixed(kThumbBlend));
    DrawArrow(target, place, MulDiv(kArrowWidth, scale.dpi(), 96), mixed(can_scroll ? 80 : kThumbBlend), direction);
  };
  const bool is_vertical = bar.kind == SB_VERT;
  draw_arrow(0, Part::kLineBack, is_vertical ? ArrowDirection::kUp : ArrowDirection::kLeft);
  draw_arrow(bar.length - bar.button, Part::kLineOn, is_vertical ? ArrowDirection::kDown : ArrowDirection::kRight);
  if (!can_scroll) return;
  FillColor(target,
            StretchOf(bar, bar.thumb_start, bar.thumb_start + bar.thumb_length, MulDiv(kThumbInset, scale.dpi(), 96)),
            mixed(pressed == Part::kThumb ? kHeldThumbBlend : kThumbBlend));
}

// Messages after which a bar has surely been painted.
bool PaintsBars(UINT message) {
  return message == WM_NCPAINT || message == WM_VSCROLL || message == WM_HSCROLL || message == WM_MOUSEWHEEL ||
         message == WM_KEYDOWN;
}

// Messages that come in great numbers and never touch a bar.
bool LeavesBars(UINT message) {
  return message == WM_NCHITTEST || message == WM_SETCURSOR || message == WM_GETDLGCODE || message == WM_GETTEXT ||
         message == WM_GETTEXTLENGTH || message == WM_MOUSEMOVE || message == WM_GETOBJECT;
}

}  // namespace

std::optional<ShownScrollBar> FindScrollBar(HWND window, int kind) {
  const bool is_vertical = kind == SB_VERT;
  if ((GetWindowLongPtrW(window, GWL_STYLE) & (is_vertical ? WS_VSCROLL : WS_HSCROLL)) == 0) return std::nullopt;
  SCROLLBARINFO place{};
  place.cbSize = sizeof place;
  if (!GetScrollBarInfo(window, is_vertical ? OBJID_VSCROLL : OBJID_HSCROLL, &place)) return std::nullopt;
  if ((place.rgstate[0] & (STATE_SYSTEM_INVISIBLE | STATE_SYSTEM_OFFSCREEN)) != 0) return std::nullopt;
  SCROLLINFO info{};
  info.cbSize = sizeof info;
  info.fMask = SIF_ALL;
  GetScrollInfo(window, kind, &info);
  ShownScrollBar bar{.kind = kind, .area = place.rcScrollBar};
  bar.length = is_vertical ? bar.area.bottom - bar.area.top : bar.area.right - bar.area.left;
  bar.button = std::min(GetSystemMetrics(is_vertical ? SM_CYVSCROLL : SM_CXHSCROLL), bar.length / 2);
  bar.first = info.nMin;
  bar.last = info.nMax - std::max(static_cast<int>(info.nPage) - 1, 0);
  bar.position = std::clamp(info.nPos, bar.first, std::max(bar.first, bar.last));
  if (IsWindowEnabled(window)) PlaceThumb(bar, static_cast<int>(info.nPage));
  return bar;
}

bool ScrollBarFace::TakeMessage(HWND window, UINT message, WPARAM first, LPARAM second) {
  const bool is_on_bar = first == HTVSCROLL || first == HTHSCROLL;
  switch (message) {
    // Without these the system does not paint a bar under the mouse as one that is to be pressed.
    case WM_NCMOUSEMOVE: return is_on_bar;
    case WM_NCLBUTTONDOWN:
    case WM_NCLBUTTONDBLCLK:
      return is_on_bar && BeginPress(window, first == HTVSCROLL ? SB_VERT : SB_HORZ,
                                     {static_cast<short>(LOWORD(second)), static_cast<short>(HIWORD(second))});
    default: return press_ && GoOn(window, message, first, second);
  }
}

bool ScrollBarFace::BeginPress(HWND window, int kind, POINT place) {
  const std::optional<ShownScrollBar> bar = FindScrollBar(window, kind);
  if (!bar || bar->thumb_length == 0) return true;
  const Part part = PartAt(*bar, place);
  press_ = Press{kind, part, AlongOf(*bar, place) - bar->thumb_start, GetCapture() == window};
  SetCapture(window);
  SetTimer(window, kRepeatTimer, kFirstRepeatMs, nullptr);
  PostMessageW(window, kDrawBars, 0, 0);
  if (part != Part::kThumb && part != Part::kNone) TellWindow(window, kind, CodeOf(part));
  return true;
}

bool ScrollBarFace::GoOn(HWND window, UINT message, WPARAM first, LPARAM second) {
  switch (message) {
    case WM_MOUSEMOVE: {
      POINT place{static_cast<short>(LOWORD(second)), static_cast<short>(HIWORD(second))};
      ClientToScreen(window, &place);
      Drag(window, place);
      return true;
    }
    case WM_LBUTTONUP: EndPress(window); return true;
    case WM_TIMER:
      if (first != kRepeatTimer) return false;
      SetTimer(window, kRepeatTimer, kRepeatMs, nullptr);
      Repeat(window);
      return true;
    case WM_CAPTURECHANGED:
      if (reinterpret_cast<HWND>(second) == window) return false;
      EndPress(window);
      return false;
    default: return false;
  }
}

void ScrollBarFace::Drag(HWND window, POINT place) {
  const std::optional<ShownScrollBar> bar = FindScrollBar(window, press_->kind);
  if (press_->part != Part::kThumb || !bar || bar->thumb_length == 0) return;
  const int free_length = std::max(1, bar->length - 2 * bar->button - bar->thumb_length);
  const int along = std::clamp(AlongOf(*bar, place) - press_->grip - bar->button, 0, free_length);
  const int64_t steps = bar->last - bar->first;
  const int position = bar->first + static_cast<int>((steps * along + free_length / 2) / free_length);
  if (position != bar->position) TellPosition(window, press_->kind, SB_THUMBTRACK, position);
}

// Goes on as long as the mouse is over what it pressed: paging ends where the thumb arrives.
void ScrollBarFace::Repeat(HWND window) {
  POINT place{};
  GetCursorPos(&place);
  const std::optional<ShownScrollBar> bar = FindScrollBar(window, press_->kind);
  const Part part = press_->part;
  if (!bar || part == Part::kThumb || part == Part::kNone || PartAt(*bar, place) != part) return;
  TellWindow(window, press_->kind, CodeOf(part));
}

void ScrollBarFace::EndPress(HWND window) {
  const Press press = *std::exchange(press_, std::nullopt);
  KillTimer(window, kRepeatTimer);
  if (!press.had_capture && GetCapture() == window) ReleaseCapture();
  PostMessageW(window, kDrawBars, 0, 0);
  const std::optional<ShownScrollBar> bar = FindScrollBar(window, press.kind);
  if (press.part == Part::kThumb && bar) TellPosition(window, press.kind, SB_THUMBPOSITION, bar->position);
  if (IsWindow(window)) TellWindow(window, press.kind, SB_ENDSCROLL);
}

void ScrollBarFace::AfterMessage(HWND window, UINT message, Color background, Color text, ScreenScale scale) {
  if (!HasBars(window) || LeavesBars(message)) return;
  if (message == kDrawBars) is_drawing_posted_ = false;
  if (message == kDrawBars || PaintsBars(message)) {
    Draw(window, background, text, scale);
  } else if (!is_drawing_posted_) {
    is_drawing_posted_ = PostMessageW(window, kDrawBars, 0, 0);
  }
}

void ScrollBarFace::Draw(HWND window, Color background, Color text, ScreenScale scale) {
  RECT outside{};
  GetWindowRect(window, &outside);
  const HDC target = GetWindowDC(window);
  std::optional<ShownScrollBar> bars[] = {FindScrollBar(window, SB_VERT), FindScrollBar(window, SB_HORZ)};
  for (std::optional<ShownScrollBar>& bar : bars) {
    if (!bar) continue;
    OffsetRect(&bar->area, -outside.left, -outside.top);
    const Part pressed = press_ && press_->kind == bar->kind ? press_->part : Part::kNone;
    DrawBar(target, *bar, pressed, background, text, scale);
  }
  // The corner between them.
  if (bars[0] && bars[1]) {
    FillColor(target, {bars[0]->area.left, bars[1]->area.top, bars[0]->area.right, bars[1]->area.bottom},
              BlendColors(background, text, kTrackBlend));
  }
  ReleaseDC(window, target);
}

}  // namespace kestrun
