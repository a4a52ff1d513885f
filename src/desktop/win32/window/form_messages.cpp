// The messages of a form's window and of the panels in it.
#include <string>
#include <vector>

#include "desktop/win32/system/late_call.h"
#include "desktop/win32/system/shell_link.h"
#include "desktop/win32/system/wide_text.h"
#include "desktop/win32/window/control_peer.h"
#include "desktop/win32/window/form_window.h"
#include "forms/active_form.h"
#include "forms/drop_target.h"

namespace kestrun {
namespace {

constexpr UINT_PTR kPointerTimer = 1;
constexpr UINT kPointerIntervalMs = 200;
constexpr UINT_PTR kSizeTimer = 2;
constexpr UINT kSizeDelayMs = 200;
constexpr UINT kDpiChanged = 0x02E0;  // WM_DPICHANGED, newer than the headers that the program is built for

// The paths of a drop, which is given back to the system. A shortcut stands for what it leads to.
std::vector<std::string> TakeDroppedPaths(HDROP drop) {
  const auto query = KESTRUN_LATE(L"shell32.dll", DragQueryFileW);
  std::vector<std::string> paths;
  const UINT count = query(drop, 0xFFFFFFFF, nullptr, 0);
  for (UINT at = 0; at < count; ++at) {
    std::wstring path(query(drop, at, nullptr, 0) + size_t{1}, L'\0');
    path.resize(query(drop, at, path.data(), static_cast<UINT>(path.size())));
    paths.push_back(FollowLink(FromWide(path)));
  }
  KESTRUN_LATE(L"shell32.dll", DragFinish)(drop);
  return paths;
}

// The innermost window there; the form's own where no control stands.
HWND WindowUnderDrop(HWND form, HDROP drop) {
  POINT place{};
  KESTRUN_LATE(L"shell32.dll", DragQueryPoint)(drop, &place);
  HWND found = form;
  while (true) {
    const HWND inner = ChildWindowFromPointEx(found, place, CWP_SKIPINVISIBLE);
    if (!inner || inner == found) return found;
    MapWindowPoints(found, inner, &place, 1);
    found = inner;
  }
}

POINT MessagePlace(LPARAM second) { return {static_cast<short>(LOWORD(second)), static_cast<short>(HIWORD(second))}; }

}  // namespace

LRESULT CALLBACK FormWindow::HandleFormMessage(HWND window, UINT message, WPARAM first, LPARAM second) {
  auto* form_window = reinterpret_cast<FormWindow*>(GetWindowLongPtrW(window, GWLP_USERDATA));
  if (form_window) {
    const auto keep = form_window->shared_from_this();
    LRESULT result = 0;
    if (form_window->HandleFormOnlyMessage(message, first, second, result)) return result;
    if (form_window->HandleContainerMessage(window, *form_window->form_, message, first, second, result)) return result;
  }
  return DefWindowProcW(window, message, first, second);
}

bool FormWindow::HandleFormOnlyMessage(UINT message, WPARAM first, LPARAM second, LRESULT& result) {
  switch (message) {
    case WM_CLOSE: DispatchEvent(form_.get(), [this] { form_->Unload(); }); return true;
    case WM_SIZE: placement_.NoteState(first); return false;
    case WM_WINDOWPOSCHANGING:
      // Under Wine a window manager has made the window smaller already, and leaves it so unless it is told.
      if (placement_.KeepSize(*reinterpret_cast<WINDOWPOS*>(second))) {
        SetTimer(window(), kSizeTimer, kSizeDelayMs, nullptr);
      }
      return false;
    case WM_GETMINMAXINFO: placement_.LimitSize(*reinterpret_cast<MINMAXINFO*>(second)); return true;
    case WM_TIMER:
      if (first == kPointerTimer) LookForPointer();
      if (first == kSizeTimer) {
        KillTimer(window(), kSizeTimer);
        placement_.RepeatSize();
      }
      return first == kPointerTimer || first == kSizeTimer;
    case WM_ENTERMENULOOP:
    case WM_EXITMENULOOP: NoteMenuLoop(message == WM_ENTERMENULOOP); return false;
    case WM_MEASUREITEM: menu_.Measure(*reinterpret_cast<MEASUREITEMSTRUCT*>(second)); return true;
    case WM_DRAWITEM: {
      const auto& item = *reinterpret_cast<const DRAWITEMSTRUCT*>(second);
      if (item.CtlType != ODT_MENU) return false;
      menu_.Draw(item);
      return true;
    }
    case WM_NCPAINT:
    case WM_NCACTIVATE: return ShowOwnFrame(message, first, second, result);
    case WM_MOVE:
      if (form_->IsShown()) placement_.NotePlace();
      return false;
    case WM_ACTIVATE:
      if (LOWORD(first) != WA_INACTIVE) NoteActivated(*form_);
      if (LOWORD(first) == WA_INACTIVE) DropPopups();
      if (LOWORD(first) != WA_INACTIVE && HIWORD(first) == 0) {
        FocusFirst();
        return true;
      }
      return false;
    case WM_SETFOCUS: FocusFirst(); return true;
    case kDpiChanged: {
      Rescale(ScreenScale(HIWORD(first)));
      const auto* place = reinterpret_cast<const RECT*>(second);
      SetWindowPos(window(), nullptr, place->left, place->top, place->right - place->left, place->bottom - place->top,
                   SWP_NOZORDER | SWP_NOACTIVATE);
      result = 0;
      return true;
    }
    case WM_DROPFILES: TakeDrop(first); return true;
    case WM_SYSCOLORCHANGE:
      painting_.ForgetBrushes();
      InvalidateRect(window(), nullptr, TRUE);
      for (const auto& peer : peers_) peer->Repaint();
      return false;
    default: return false;
  }
}

void FormWindow::TakeDrop(WPARAM first) {
  DispatchEvent(form_.get(), [&] {
    const auto drop = reinterpret_cast<HDROP>(first);
    const ControlPeer* const under = PeerOf(WindowUnderDrop(window(), drop));
    const DropTargetScope target(under ? &under->control() : nullptr);
    const std::vector<std::string> paths = TakeDroppedPaths(drop);
    SetForegroundWindow(window());
    form_->FilesDropped(paths);
  });
}

bool FormWindow::HandlePainting(ControlPeer& peer, UINT message, WPARAM first, LRESULT& result) {
  switch (message) {
    case WM_ERASEBKGND: result = 1; return true;
    case WM_PAINT: painting_.Paint(peer.window(), peer.control()); return true;
    case WM_PRINTCLIENT: {
      RECT client{};
      GetClientRect(peer.window(), &client);
      peer.DrawBackground(reinterpret_cast<HDC>(first), client);
      return true;
    }
    default: return false;
  }
}

bool FormWindow::HandleContainerMessage(HWND container_window, Control& container, UINT message, WPARAM first,
                                        LPARAM second, LRESULT& result) {
  result = 0;
  switch (message) {
    case WM_ERASEBKGND: result = 1; return true;
    case WM_PAINT: painting_.Paint(container_window, container); return true;
    case WM_SETCURSOR:
      MakeToolTips();
      WatchPointer();
      result = TRUE;
      return reinterpret_cast<HWND>(first) == container_window && LOWORD(second) == HTCLIENT &&
             ShowContainerPointer(container_window, container);
    case WM_COMMAND: return HandleCommand(first, second);
    case WM_NOTIFY: return HandleNotification(second, result);
    case WM_DRAWITEM: result = TRUE; return DrawItem(second);
    case WM_CTLCOLOREDIT:
    case WM_CTLCOLORLISTBOX:
    case WM_CTLCOLORSTATIC:
    case WM_CTLCOLORBTN: {
      ControlPeer* peer = PeerOf(reinterpret_cast<HWND>(second));
      const HBRUSH brush = peer ? peer->PrepareColors(reinterpret_cast<HDC>(first)) : nullptr;
      result = reinterpret_cast<LRESULT>(brush);
      return brush != nullptr;
    }
    default:
      return message >= WM_MOUSEFIRST && message <= WM_MBUTTONDBLCLK && HandleMouse(container, message, first, second);
  }
}

bool FormWindow::HandleCommand(WPARAM first, LPARAM second) {
  if (second == 0) {
    const Ref<MenuItem> item = menu_.ItemOf(LOWORD(first));
    return item && item->Choose();
  }
  ControlPeer* peer = PeerOf(reinterpret_cast<HWND>(second));
  if (peer) peer->Notify(HIWORD(first));
  return peer != nullptr;
}

bool FormWindow::HandleNotification(LPARAM second, LRESULT& result) {
  auto* notice = reinterpret_cast<NMHDR*>(second);
  ControlPeer* peer = PeerOf(notice->hwndFrom);
  return peer && peer->HandleNotification(*notice, result);
}

bool FormWindow::DrawItem(LPARAM second) {
  const auto* item = reinterpret_cast<const DRAWITEMSTRUCT*>(second);
  ControlPeer* peer = PeerOf(item->hwndItem);
  return peer && peer->DrawItem(*item);
}

bool FormWindow::PassWheel(WPARAM first, LPARAM second) {
  ControlPeer* peer = PeerOf(WindowFromPoint(MessagePlace(second)));
  return peer && peer->TakeWheel(first);
}

Control* FormWindow::DrawnControlAt(Control& container, POINT place) const {
  Control* found = nullptr;
  for (Control* control : form_->StackingOrder()) {
    const ControlPeer* peer = control->Container() == &container && control->Visible ? PeerOf(*control) : nullptr;
    if (!peer || peer->window() || !peer->TakesMouse()) continue;
    const RECT area = peer->Area();
    if (PtInRect(&area, place)) found = control;
  }
  return found;
}

bool FormWindow::HandleMouse(Control& container, UINT message, WPARAM first, LPARAM second) {
  POINT place = MessagePlace(second);
  Control* drawn = DrawnControlAt(container, place);
  Control& target = drawn && drawn->Enabled ? *drawn : container;
  if (drawn && &target == drawn) {
    const RECT area = PeerOf(*drawn)->Area();
    place = {place.x - area.left, place.y - area.top};
  }
  const Ref<Control> keep(&target);
  FireMouseEvent(target, message, first, place, scale_);
  if (message == WM_LBUTTONDOWN) pressed_ = &target;
  if (message == WM_LBUTTONUP) {
    const bool clicked = pressed_ == &target;
    pressed_ = nullptr;
    if (clicked) DispatchEvent(form_.get(), [&] { target.Click(); });
  }
  if (message == WM_LBUTTONDBLCLK) DispatchEvent(form_.get(), [&] { target.DblClick(); });
  return false;
}

bool FormWindow::ShowContainerPointer(HWND container_window, Control& container) {
  POINT place{};
  GetCursorPos(&place);
  ScreenToClient(container_window, &place);
  const Control* drawn = DrawnControlAt(container, place);
  return (drawn && ShowMousePointer(*drawn)) || ShowMousePointer(container);
}

// No message tells that the mouse has left a window with children in it: while it is inside, it is looked after.
void FormWindow::WatchPointer() {
  if (is_pointer_watched_ || !form_->MouseLeave) return;
  is_pointer_watched_ = SetTimer(window(), kPointerTimer, kPointerIntervalMs, nullptr) != 0;
}

void FormWindow::LookForPointer() {
  POINT place{};
  GetCursorPos(&place);
  const HWND under = WindowFromPoint(place);
  if (under && GetAncestor(under, GA_ROOT) == window()) return;
  KillTimer(window(), kPointerTimer);
  is_pointer_watched_ = false;
  DispatchEvent(form_.get(), [this] { form_->MouseLeave(); });
}

}  // namespace kestrun
