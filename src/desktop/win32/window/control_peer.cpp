#include "desktop/win32/window/control_peer.h"

#include <algorithm>

#include "desktop/win32/drawing/control_parts.h"
#include "desktop/win32/system/wide_text.h"
#include "desktop/win32/window/reader_name.h"
#include "forms/accessible.h"
#include "platform/platform.h"

namespace kestrun {
namespace {

struct MouseMessage {
  int button;
  enum Kind { kNone, kDown, kMove, kUp, kDouble } kind;
};

MouseMessage KindOf(UINT message) {
  switch (message) {
    case WM_LBUTTONDOWN: return {mouse::kLeft, MouseMessage::kDown};
    case WM_RBUTTONDOWN: return {mouse::kRight, MouseMessage::kDown};
    case WM_MBUTTONDOWN: return {mouse::kMiddle, MouseMessage::kDown};
    case WM_LBUTTONUP: return {mouse::kLeft, MouseMessage::kUp};
    case WM_RBUTTONUP: return {mouse::kRight, MouseMessage::kUp};
    case WM_MBUTTONUP: return {mouse::kMiddle, MouseMessage::kUp};
    case WM_LBUTTONDBLCLK: return {mouse::kLeft, MouseMessage::kDouble};
    case WM_MOUSEMOVE: return {0, MouseMessage::kMove};
    default: return {0, MouseMessage::kNone};
  }
}

DWORD SystemEvent(AccessibleEvent event) {
  switch (event) {
    case AccessibleEvent::kFocus: return EVENT_OBJECT_FOCUS;
    case AccessibleEvent::kSelection: return EVENT_OBJECT_SELECTION;
    case AccessibleEvent::kName: return EVENT_OBJECT_NAMECHANGE;
    case AccessibleEvent::kValue: return EVENT_OBJECT_VALUECHANGE;
    case AccessibleEvent::kChildren: break;
  }
  return EVENT_OBJECT_REORDER;
}

DWORD EdgeStyle(EdgeKind edge) { return edge == EdgeKind::kLine ? WS_BORDER : 0; }
DWORD EdgeExtendedStyle(EdgeKind edge) { return edge == EdgeKind::kSunken ? WS_EX_CLIENTEDGE : 0; }

}  // namespace

std::wstring ReadWindowText(HWND window) {
  std::wstring text(static_cast<size_t>(GetWindowTextLengthW(window)) + 1, L'\0');
  text.resize(static_cast<size_t>(GetWindowTextW(window, text.data(), static_cast<int>(text.size()))));
  return text;
}

int HeldButtons(WPARAM keys) {
  return ((keys & MK_LBUTTON) ? mouse::kLeft : 0) | ((keys & MK_RBUTTON) ? mouse::kRight : 0) |
         ((keys & MK_MBUTTON) ? mouse::kMiddle : 0);
}

int ShiftState() {
  const auto down = [](int key) { return GetKeyState(key) < 0; };
  return (down(VK_SHIFT) ? shift::kShift : 0) | (down(VK_CONTROL) ? shift::kCtrl : 0) |
         (down(VK_MENU) ? shift::kAlt : 0);
}

void FireMouseEvent(Control& control, UINT message, WPARAM keys, POINT place, ScreenScale scale) {
  const MouseMessage kind = KindOf(message);
  const int x = scale.Twips(place.x);
  const int y = scale.Twips(place.y);
  DispatchEvent(control.form(), [&] {
    switch (kind.kind) {
      case MouseMessage::kDown: control.MouseDown(kind.button, ShiftState(), x, y); break;
      case MouseMessage::kUp: control.MouseUp(kind.button, ShiftState(), x, y); break;
      case MouseMessage::kMove: control.MouseMove(HeldButtons(keys), ShiftState(), x, y); break;
      case MouseMessage::kDouble:
      case MouseMessage::kNone: break;
    }
  });
}

RECT ControlPeer::Area() const {
  const ScreenScale scale = form_.scale();
  // Each edge is rounded by itself, so that controls that touch in twips touch in pixels.
  return {scale.Pixels(control_->Left), scale.Pixels(control_->Top), scale.Pixels(control_->Left + control_->Width),
          scale.Pixels(control_->Top + control_->Height)};
}

bool HasOwnBackground(const Control& control) {
  const Color background = control.BackColor;
  return !IsSystemColor(background) && background != ToColorRef(color::kWindowBackground);
}

// The line at the outside, and the background between it and what the control shows.
void DrawWindowEdge(HWND window, const Control& control, ScreenScale scale) {
  RECT area{};
  GetWindowRect(window, &area);
  POINT client{};
  ClientToScreen(window, &client);
  const int width = client.y - area.top;
  OffsetRect(&area, -area.left, -area.top);
  const HDC target = GetWindowDC(window);
  const PartColors colors = PartColorsOf(control.BackColor, control.ForeColor, {control.Enabled});
  DrawLineEdge(target, area, width, colors.face);
  DrawLineEdge(target, area, std::min(width, scale.LineWidth()), colors.line);
  ReleaseDC(window, target);
}

void RepaintWithChildren(HWND window) {
  RedrawWindow(window, nullptr, nullptr, RDW_INVALIDATE | RDW_ERASE | RDW_ALLCHILDREN);
}

// ---- controls with a window ----------------------------------------------------------------------------------------

// What a watched window holds as its user data, from its making to its last message. The common controls' own
// subclassing asks the window for its properties twice a message, and under Wine each answer comes from another
// process.
struct WindowedPeer::Watched {
  WindowedPeer* peer;  // null once the peer has gone
  WNDPROC procedure;   // the window's own
};

WindowedPeer::~WindowedPeer() {
  if (!window_.IsValid()) return;
  auto* watched = reinterpret_cast<Watched*>(GetWindowLongPtrW(window_.get(), GWLP_USERDATA));
  if (watched) watched->peer = nullptr;
}

void WindowedPeer::CreateWindowOf(const wchar_t* window_class, const std::wstring& text, DWORD style,
                                  DWORD extended_style) {
  const RECT area = WindowArea();
  shown_edge_ = Edge();
  style |= WS_CHILD | WS_CLIPSIBLINGS | EdgeStyle(shown_edge_);
  extended_style |= EdgeExtendedStyle(shown_edge_);
  if (control().Visible) style |= WS_VISIBLE;
  if (!control().Enabled) style |= WS_DISABLED;
  window_.Reset(CreateWindowExW(extended_style, window_class, text.c_str(), style, area.left, area.top,
                                area.right - area.left, area.bottom - area.top, form().ContainerWindow(control()),
                                nullptr, GetModuleHandleW(nullptr), nullptr));
  SendMessageW(window_.get(), WM_SETFONT, reinterpret_cast<WPARAM>(form().FontFor(control().Font)), FALSE);
  auto* watched = new Watched{this, reinterpret_cast<WNDPROC>(GetWindowLongPtrW(window_.get(), GWLP_WNDPROC))};
  SetWindowLongPtrW(window_.get(), GWLP_USERDATA, reinterpret_cast<LONG_PTR>(watched));
  SetWindowLongPtrW(window_.get(), GWLP_WNDPROC, reinterpret_cast<LONG_PTR>(&WindowedPeer::Watch));
  ShowToolTip();
}

void WindowedPeer::CreateAgain() {
  const bool had_focus = GetFocus() == window();
  if (auto* watched = reinterpret_cast<Watched*>(GetWindowLongPtrW(window(), GWLP_USERDATA))) watched->peer = nullptr;
  const HWND in_front = GetWindow(window(), GW_HWNDPREV);
  window_.Reset();
  Create();
  if (in_front) SetWindowPos(window(), in_front, 0, 0, 0, 0, SWP_NOMOVE | SWP_NOSIZE | SWP_NOACTIVATE);
  if (had_focus) ::SetFocus(window());
}

void WindowedPeer::ShowEdge() {
  const EdgeKind edge = Edge();
  if (edge == shown_edge_) return;
  shown_edge_ = edge;
  const auto change = [this](int which, DWORD bit, DWORD present) {
    const auto style = static_cast<DWORD>(GetWindowLongPtrW(window(), which));
    SetWindowLongPtrW(window(), which, static_cast<LONG_PTR>((style & ~bit) | present));
  };
  change(GWL_STYLE, WS_BORDER, EdgeStyle(edge));
  change(GWL_EXSTYLE, WS_EX_CLIENTEDGE, EdgeExtendedStyle(edge));
  SetWindowPos(window(), nullptr, 0, 0, 0, 0,
               SWP_FRAMECHANGED | SWP_NOMOVE | SWP_NOSIZE | SWP_NOZORDER | SWP_NOACTIVATE);
}

void WindowedPeer::FollowContainer() {
  const HWND container = form().ContainerWindow(control());
  if (GetAncestor(window(), GA_PARENT) == container) return;
  SetParent(window(), container);
  Update(PropertyId::kLeft);
}

void WindowedPeer::ShowToolTip() { form().tips().Show(control(), form().window(), window(), nullptr); }

void WindowedPeer::Update(PropertyId property) {
  switch (property) {
    case PropertyId::kLeft:
    case PropertyId::kTop:
    case PropertyId::kWidth:
    case PropertyId::kHeight: {
      const RECT area = WindowArea();
      SetWindowPos(window(), nullptr, area.left, area.top, area.right - area.left, area.bottom - area.top,
                   SWP_NOZORDER | SWP_NOACTIVATE);
      break;
    }
    case PropertyId::kVisible:
      ShowWindow(window(), control().Visible ? SW_SHOWNA : SW_HIDE);
      if (!control().Visible) form().LeaveHiddenFocus();
      break;
    case PropertyId::kEnabled: EnableWindow(window(), control().Enabled); break;
    case PropertyId::kFont:
      SendMessageW(window(), WM_SETFONT, reinterpret_cast<WPARAM>(form().FontFor(control().Font)), TRUE);
      break;
    case PropertyId::kToolTipText: ShowToolTip(); break;
    case PropertyId::kMousePointer: ShowPointerNow(); break;
    case PropertyId::kBorderStyle:
    case PropertyId::kAppearance: ShowEdge(); break;
    case PropertyId::kForeColor:
    case PropertyId::kBackColor:
      RedrawWindow(window(), nullptr, nullptr, RDW_INVALIDATE | RDW_FRAME);
      Repaint();
      break;
    default: break;
  }
}

// The mouse may rest on the control, and long work may come next.
void WindowedPeer::ShowPointerNow() {
  POINT place{};
  GetCursorPos(&place);
  if (WindowFromPoint(place) != window()) return;
  SendMessageW(window(), WM_SETCURSOR, reinterpret_cast<WPARAM>(window()), MAKELPARAM(HTCLIENT, WM_MOUSEMOVE));
}

void WindowedPeer::Repaint() { InvalidateRect(window(), nullptr, TRUE); }

void WindowedPeer::TellAccessibility(AccessibleEvent event, int child) {
  NotifyWinEvent(SystemEvent(event), window(), OBJID_CLIENT, child < 0 ? CHILDID_SELF : child + 1);
}

HBRUSH WindowedPeer::PrepareColors(HDC target) {
  SetTextColor(target, ToColorRef(control().ForeColor));
  SetBkColor(target, ToColorRef(control().BackColor));
  return form().BrushFor(control().BackColor);
}

POINT WindowedPeer::MenuPlace() const {
  RECT client{};
  GetClientRect(window(), &client);
  return OnScreen({client.left, client.bottom});
}

POINT WindowedPeer::OnScreen(POINT place) const {
  ClientToScreen(window(), &place);
  return place;
}

void WindowedPeer::Dispatch(const std::function<void()>& action) {
  const auto keep = form().shared_from_this();
  DispatchEvent(&form().form(), action);
}

void WindowedPeer::RunLater(void (*action)(ControlPeer& peer)) {
  platform().clock().Post(
      [keep = std::weak_ptr<FormWindow>(form().shared_from_this()), control = Ref<Control>(&control()), action] {
        const auto form = keep.lock();
        ControlPeer* peer = form && form->is_open() ? form->PeerOf(*control) : nullptr;
        if (peer) action(*peer);
      });
}

void WindowedPeer::PassMouse(UINT message, WPARAM first, LPARAM second) {
  const auto keep = form().shared_from_this();
  const POINT place{static_cast<short>(LOWORD(second)), static_cast<short>(HIWORD(second))};
  FireMouseEvent(control(), message, first, place, form().scale());
}

bool WindowedPeer::HandleMessage(UINT message, WPARAM first, LPARAM second, LRESULT& result) {
  if (message == WM_SETCURSOR) {
    form().MakeToolTips();
    result = TRUE;
    return LOWORD(second) == HTCLIENT && form().ShowMousePointer(control());
  }
  if (message >= WM_MOUSEFIRST && message <= WM_MBUTTONDBLCLK) PassMouse(message, first, second);
  // The system answers for its control; labels have no windows in which it could find the name.
  if (message == WM_GETOBJECT && static_cast<LONG>(second) == OBJID_CLIENT && !HasOwnName()) {
    TellReadersName(window(), ReadersName(control()));
  }
  if (message == WM_SETFOCUS || message == WM_KILLFOCUS) {
    const bool gained = message == WM_SETFOCUS;
    if (gained) form().form().SetActiveControl(&control());
    Dispatch([&] { (gained ? control().GotFocus : control().LostFocus)(); });
  }
  return false;
}

void WindowedPeer::AfterMessage(UINT message) {
  const bool is_edge = message == WM_NCPAINT && shown_edge_ == EdgeKind::kSunken;
  if (is_edge && HasOwnBackground(control())) DrawWindowEdge(window(), control(), form().scale());
}

LRESULT CALLBACK WindowedPeer::Watch(HWND window, UINT message, WPARAM first, LPARAM second) {
  auto* watched = reinterpret_cast<Watched*>(GetWindowLongPtrW(window, GWLP_USERDATA));
  if (!watched) return DefWindowProcW(window, message, first, second);
  // A handler may close the form, and the window with it.
  const WNDPROC procedure = watched->procedure;
  if (message == WM_NCDESTROY) {
    SetWindowLongPtrW(window, GWLP_USERDATA, 0);
    delete watched;
  } else if (WindowedPeer* peer = watched->peer) {
    const auto keep = peer->form().shared_from_this();
    LRESULT result = 0;
    const bool is_bars = HasOwnBackground(peer->control()) && peer->bars_.TakeMessage(window, message, first, second);
    if (is_bars || peer->HandleMessage(message, first, second, result)) {
      FollowBars(window, message);
      return result;
    }
  }
  const LRESULT result = CallWindowProcW(procedure, window, message, first, second);
  // The message may have taken the peer with it, and the window.
  watched = reinterpret_cast<Watched*>(GetWindowLongPtrW(window, GWLP_USERDATA));
  if (watched && watched->peer) watched->peer->AfterMessage(message);
  FollowBars(window, message);
  return result;
}

void WindowedPeer::FollowBars(HWND window, UINT message) {
  const auto* watched = reinterpret_cast<Watched*>(GetWindowLongPtrW(window, GWLP_USERDATA));
  if (!watched || !watched->peer) return;
  WindowedPeer& peer = *watched->peer;
  const Control& control = peer.control();
  if (!HasOwnBackground(control)) return;
  peer.bars_.AfterMessage(window, message, control.BackColor, control.ForeColor, peer.form().scale());
}

// ---- controls that their container draws ---------------------------------------------------------------------------

void DrawnPeer::Create() {
  NotePlace();
  ShowToolTip();
}

void DrawnPeer::NotePlace() {
  container_ = form().ContainerWindow(control());
  shown_ = DrawnArea();
}

void DrawnPeer::ShowToolTip() { form().tips().Show(control(), form().window(), container_, &shown_); }

void DrawnPeer::Update(PropertyId) {
  Repaint();
  NotePlace();
  Repaint();
  ShowToolTip();
}

void DrawnPeer::FollowContainer() {
  if (form().ContainerWindow(control()) != container_) Update(PropertyId::kLeft);
}

// With the windows that it lies behind: links and panels may show it.
void DrawnPeer::Repaint() { RedrawWindow(container_, &shown_, nullptr, RDW_INVALIDATE | RDW_ALLCHILDREN); }

}  // namespace kestrun
