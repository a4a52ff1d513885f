#include "desktop/win32/window/user_control_peer.h"

#include <utility>

#include "desktop/win32/system/waiting.h"
#include "desktop/win32/window/window_class.h"

namespace kestrun {
namespace {

constexpr const wchar_t* kControlClass = L"KestrunControl";
constexpr UINT_PTR kLeaveTimer = 0x4C54;
constexpr UINT kLeaveTimerMs = 50;

}  // namespace

UserControlPeer::~UserControlPeer() {
  if (accessible_) accessible_->Disconnect();
}

void UserControlPeer::Create() {
  RegisterWindowClass(kControlClass, DefWindowProcW);
  CreateWindowOf(kControlClass, L"", Model().TakesFocus() ? WS_TABSTOP : 0);
  NoteClient();
  // Before anything is on the screen: shown later the bar would be painted twice.
  bar_.Show(window(), Model().VerticalScrollBar());
}

bool UserControlPeer::Run(const std::function<void()>& action) {
  const auto keep = form().shared_from_this();
  const Ref<Control> model(&control());
  Dispatch(action);
  return keep->is_open() && keep->PeerOf(*model) == this;
}

// ---- what the model tells ------------------------------------------------------------------------------------------

void UserControlPeer::Update(PropertyId property) {
  if (property == PropertyId::kVisible && !control().Visible) HidePopup();
  WindowedPeer::Update(property);
  if (property == PropertyId::kFont) NoteClient();
  if (property != PropertyId::kLeft && property != PropertyId::kTop) Repaint();
}

// What changes in one event is painted once, at the next message. The system's own way of painting costs ten times
// the painting under Wine: it serves what is uncovered, and a window that is not yet shown.
void UserControlPeer::Repaint() {
  is_stale_ = true;
  if (is_paint_posted_) return;
  is_paint_posted_ = IsWindowVisible(window()) && PostMessageW(window(), kPaintSoon, 0, 0);
  if (!is_paint_posted_) InvalidateRect(window(), nullptr, FALSE);
}

void UserControlPeer::ShowPopup(const PixelRect& screen_area, std::function<void(Canvas&)> paint) {
  const auto popup = popup_;
  const Ref<Form> owner(&form().form());
  popup->Show(form().window(), screen_area, form().scale().dpi(),
              [&](Canvas& canvas) { DispatchEvent(owner.get(), [&] { paint(canvas); }); });
}

void UserControlPeer::HidePopup() { popup_->Hide(); }

// It would stay in front of the window that is active now, as long as the mouse rests on it.
void UserControlPeer::FormDeactivated() {
  if (popup_->window() && IsWindowVisible(popup_->window())) Dispatch([&] { Model().OnMouseLeave(); });
}

void UserControlPeer::NoteClient() {
  RECT client{};
  GetClientRect(window(), &client);
  const PixelSize size{client.right, client.bottom};
  const int dpi = form().scale().dpi();
  if (size == told_client_ && dpi == told_dpi_) return;
  told_client_ = size;
  told_dpi_ = dpi;
  if (Run([&] { Model().Resized(size, dpi); })) Repaint();
}

// ---- painting ------------------------------------------------------------------------------------------------------

bool UserControlPeer::HasContent() const { return told_client_.width > 0 && told_client_.height > 0; }

bool UserControlPeer::PaintContent(HDC screen) {
  const auto surface = surface_;
  if (!surface->buffer.Resize(screen, told_client_)) return false;
  is_stale_ = false;
  return Run([&] {
    GdiCanvas canvas(surface->buffer.device(), surface->buffer.size(), told_dpi_, surface->fonts);
    Model().Paint(canvas);
  });
}

// Frame, bar and bitmap as the control wants them now. False when the control has gone with its form meanwhile.
bool UserControlPeer::PaintChanges() {
  if (is_stale_) {
    ShowEdge();
    bar_.Show(window(), Model().VerticalScrollBar());
  }
  if (!HasContent() || (!is_stale_ && surface_->buffer.size() == told_client_)) return true;
  const HWND painted = window();
  const HDC screen = GetDC(painted);
  const bool is_alive = PaintContent(screen);
  ReleaseDC(painted, screen);
  return is_alive;
}

void UserControlPeer::CopyToScreen(HDC screen) {
  if (!HasContent()) return;
  const PixelSize size = surface_->buffer.size();
  BitBlt(screen, 0, 0, size.width, size.height, surface_->buffer.device(), 0, 0, SRCCOPY);
}

// A control that asks to be painted while it paints gets its turn when all else is done.
void UserControlPeer::PaintLeftovers() {
  if (HasContent() && is_stale_) InvalidateRect(window(), nullptr, FALSE);
}

void UserControlPeer::PaintSoon() {
  if (is_stale_) {
    if (!PaintChanges()) return;
    const HDC screen = GetDC(window());
    CopyToScreen(screen);
    ReleaseDC(window(), screen);
  }
  is_paint_posted_ = false;
  PaintLeftovers();
}

// The control paints before the system is told that painting begins, so that what it asks for meanwhile is not lost.
void UserControlPeer::Paint() {
  const HWND painted = window();
  if (!PaintChanges()) {
    ValidateRect(painted, nullptr);
    return;
  }
  PAINTSTRUCT paint{};
  CopyToScreen(BeginPaint(painted, &paint));
  EndPaint(painted, &paint);
  PaintLeftovers();
}

// ---- mouse ---------------------------------------------------------------------------------------------------------

void UserControlPeer::Press(int button, POINT place, bool is_double) {
  held_buttons_ |= button;
  SetCapture(window());
  if (Model().TakesFocus() && GetFocus() != window()) {
    if (!Run([this] { ::SetFocus(window()); })) return;
    if ((held_buttons_ & button) == 0) return;  // a handler showed a box, and the press is over
  }
  const int shift_state = ShiftState();
  Dispatch([&] {
    if (is_double && button == mouse::kLeft) {
      Model().OnDoubleClick(place.x, place.y);
    } else {
      Model().OnMouseDown(button, shift_state, place.x, place.y);
    }
  });
}

void UserControlPeer::ReleaseButton(int button, POINT place) {
  // A button that went down elsewhere, such as on a box that has just closed, is not this control's.
  if ((held_buttons_ & button) == 0) return;
  held_buttons_ &= ~button;
  if (held_buttons_ == 0) ReleaseCapture();
  const int shift_state = ShiftState();
  Dispatch([&] { Model().OnMouseUp(button, shift_state, place.x, place.y); });
}

void UserControlPeer::MoveTo(int buttons, POINT place) {
  if (!is_mouse_inside_) {
    TRACKMOUSEEVENT track{sizeof track, TME_LEAVE, window(), 0};
    is_mouse_inside_ = TrackMouseEvent(&track);
  }
  const int shift_state = ShiftState();
  Dispatch([&] { Model().OnMouseMove(buttons, shift_state, place.x, place.y); });
}

bool UserControlPeer::IsUnderPopup(POINT cursor) const {
  const HWND popup = popup_->window();
  RECT area{};
  return popup && IsWindowVisible(popup) && GetWindowRect(popup, &area) && PtInRect(&area, cursor);
}

// Some systems take the pop-up for the window below the mouse, though the mouse goes through it, and tell a leave as
// soon as it shows: it would go at once. As long as the mouse stays over the control and the pop-up, it has not left.
void UserControlPeer::LeaveUnlessUnderPopup() {
  POINT cursor{};
  RECT area{};
  GetCursorPos(&cursor);
  GetWindowRect(window(), &area);
  if (PtInRect(&area, cursor) && IsUnderPopup(cursor)) {
    SetTimer(window(), kLeaveTimer, kLeaveTimerMs, nullptr);  // the leave is told once only: look again
    return;
  }
  KillTimer(window(), kLeaveTimer);
  Dispatch([&] { Model().OnMouseLeave(); });
}

bool UserControlPeer::TakeTimer(WPARAM timer) {
  if (timer == VerticalScrollBar::kTimer) {
    bar_.ShowPosition(window());
    return true;
  }
  if (timer != kLeaveTimer) return false;
  KillTimer(window(), kLeaveTimer);
  if (!is_mouse_inside_) LeaveUnlessUnderPopup();  // else it has moved since, and the next leave is told
  return true;
}

// Another window took the mouse in the middle of a drag: the buttons count as released outside of the control.
void UserControlPeer::LoseCapture() {
  const int held = std::exchange(held_buttons_, 0);
  for (const int button : {mouse::kLeft, mouse::kRight, mouse::kMiddle}) {
    if ((held & button) != 0 && !Run([&] { Model().OnMouseUp(button, ShiftState(), -1, -1); })) return;
  }
}

bool UserControlPeer::HandleMouse(UINT message, WPARAM first, LPARAM second) {
  const POINT place{static_cast<short>(LOWORD(second)), static_cast<short>(HIWORD(second))};
  switch (message) {
    case WM_LBUTTONDOWN: Press(mouse::kLeft, place, false); return true;
    case WM_LBUTTONDBLCLK: Press(mouse::kLeft, place, true); return true;
    case WM_RBUTTONDOWN:
    case WM_RBUTTONDBLCLK: Press(mouse::kRight, place, false); return true;
    case WM_MBUTTONDOWN:
    case WM_MBUTTONDBLCLK: Press(mouse::kMiddle, place, false); return true;
    case WM_LBUTTONUP: ReleaseButton(mouse::kLeft, place); return true;
    case WM_RBUTTONUP: ReleaseButton(mouse::kRight, place); return true;
    case WM_MBUTTONUP: ReleaseButton(mouse::kMiddle, place); return true;
    case WM_MOUSEMOVE: MoveTo(HeldButtons(first), place); return true;
    default: return false;
  }
}

bool UserControlPeer::TakeWheel(WPARAM first) {
  const int turned = static_cast<short>(HIWORD(first));
  // Turning back starts anew.
  if ((turned < 0) != (wheel_rest_ < 0)) wheel_rest_ = 0;
  wheel_rest_ += turned;
  const int notches = wheel_rest_ / WHEEL_DELTA;
  wheel_rest_ -= notches * WHEEL_DELTA;
  const int shift_state = ShiftState();
  if (notches != 0) Dispatch([&] { static_cast<void>(Model().OnWheel(notches, shift_state)); });
  return true;
}

// ---- keys, focus and the scroll bar --------------------------------------------------------------------------------

bool UserControlPeer::TakeKey(int key, int shift_state) {
  bool taken = false;
  const bool is_alive = Run([&] { taken = Model().OnKeyDown(key, shift_state); });
  return taken || !is_alive;
}

POINT UserControlPeer::MenuPlace() const {
  const PixelRect row = Model().AccessibleChildArea(Model().AccessibleFocusedChild());
  return row.height() > 0 ? OnScreen({row.left, row.bottom}) : WindowedPeer::MenuPlace();
}

void UserControlPeer::TypeCharacter(wchar_t unit) {
  if (IS_HIGH_SURROGATE(unit)) {
    high_surrogate_ = unit;
    return;
  }
  char32_t character = unit;
  const wchar_t high = std::exchange(high_surrogate_, L'\0');
  if (IS_LOW_SURROGATE(unit)) {
    if (!high) return;
    character = 0x10000 + ((high & 0x3FFU) << 10) + (unit & 0x3FFU);
  }
  Dispatch([&] { Model().OnKeyPress(character); });
}

void UserControlPeer::ChangeFocus(bool gained) {
  if (!Run([&] { Model().OnFocus(gained); })) return;
  const int child = gained ? Model().AccessibleFocusedChild() : -1;
  if (child >= 0) TellAccessibility(AccessibleEvent::kFocus, child);
}

void UserControlPeer::Scroll(WPARAM first) {
  bar_.Show(window(), Model().VerticalScrollBar());
  const auto position = bar_.PositionOf(window(), first);
  if (!position || *position == bar_.shown().position) return;
  if (Run([&] { Model().OnScroll(*position); })) bar_.Show(window(), Model().VerticalScrollBar());
}

bool UserControlPeer::HandleMessage(UINT message, WPARAM first, LPARAM second, LRESULT& result) {
  const auto keep = form().shared_from_this();
  const Ref<Control> model(&control());
  // Events first, as with all controls: a handler sees a click before the control acts on it.
  if (WindowedPeer::HandleMessage(message, first, second, result)) return true;
  if (!keep->is_open() || keep->PeerOf(*model) != this) return true;
  switch (message) {
    case WM_PAINT: Paint(); return true;
    case kPaintSoon: PaintSoon(); return true;
    case WM_ERASEBKGND: result = 1; return true;
    case WM_SIZE: NoteClient(); return true;
    case WM_GETDLGCODE: result = DLGC_WANTARROWS | DLGC_WANTCHARS; return true;
    case WM_SETFOCUS:
    case WM_KILLFOCUS: ChangeFocus(message == WM_SETFOCUS); return true;
    case WM_CHAR: TypeCharacter(static_cast<wchar_t>(first)); return true;
    case WM_VSCROLL: Scroll(first); return true;
    case WM_TIMER: return TakeTimer(first);
    case WM_MOUSEWHEEL: return form().PassWheel(first, second) || TakeWheel(first);
    case WM_CAPTURECHANGED:
      if (reinterpret_cast<HWND>(second) != window()) LoseCapture();
      return true;
    case WM_MOUSELEAVE:
      is_mouse_inside_ = false;
      LeaveUnlessUnderPopup();
      return true;
    case WM_GETOBJECT:
      if (static_cast<LONG>(second) != OBJID_CLIENT) return false;
      if (!accessible_) accessible_ = MakeRef<AccessibleControl>(window(), Model(), Model());
      return accessible_->Answer(first, result);
    default: return HandleMouse(message, first, second);
  }
}

}  // namespace kestrun
