#include "desktop/win32/window/form_window.h"

#include <algorithm>
#include <iterator>
#include <utility>

#include "desktop/win32/system/late_call.h"
#include "desktop/win32/system/shell_link.h"
#include "desktop/win32/system/wide_text.h"
#include "desktop/win32/window/control_peer.h"
#include "desktop/win32/window/keyboard.h"
#include "desktop/win32/window/window_class.h"
#include "forms/active_form.h"
#include "forms/composite_control.h"
#include "platform/platform.h"

namespace kestrun {
namespace {

constexpr const wchar_t* kFormClass = L"KestrunForm";
constexpr UINT_PTR kPointerTimer = 1;
constexpr UINT kPointerIntervalMs = 200;
constexpr UINT kDpiChanged = 0x02E0;  // WM_DPICHANGED, newer than the headers that the program is built for

std::vector<FormWindow*>& Windows() {
  static std::vector<FormWindow*> windows;
  return windows;
}

RECT WorkArea(HWND near_window) {
  MONITORINFO info{};
  info.cbSize = sizeof info;
  GetMonitorInfoW(MonitorFromWindow(near_window, MONITOR_DEFAULTTOPRIMARY), &info);
  return info.rcWork;
}

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

POINT MessagePlace(LPARAM second) { return {static_cast<short>(LOWORD(second)), static_cast<short>(HIWORD(second))}; }

}  // namespace

const std::vector<FormWindow*>& FormWindow::OpenWindows() { return Windows(); }

FormWindow* FormWindow::Find(HWND window) {
  const HWND root = GetAncestor(window, GA_ROOT);
  const auto found =
      std::find_if(Windows().begin(), Windows().end(), [root](const FormWindow* one) { return one->window() == root; });
  return found == Windows().end() ? nullptr : *found;
}

FormWindow::FormWindow(Form& form) : form_(&form), menu_(form), painting_(*this) {}

FormWindow::~FormWindow() { FormWindow::Close(); }

// ---- opening and closing -------------------------------------------------------------------------------------------

DWORD FormWindow::Style() const {
  DWORD style = WS_CLIPCHILDREN;
  switch (static_cast<FormBorder>(form_->BorderStyle.get())) {
    case FormBorder::kNone: return style | WS_POPUP;
    case FormBorder::kFixedDialog: style |= WS_POPUP | WS_CAPTION | DS_MODALFRAME; break;
    case FormBorder::kFixedSingle: style |= WS_CAPTION; break;
    case FormBorder::kSizable: style |= WS_CAPTION | WS_THICKFRAME; break;
  }
  if (form_->ControlBox) style |= WS_SYSMENU;
  if (form_->MinButton) style |= WS_MINIMIZEBOX;
  if (form_->MaxButton) style |= WS_MAXIMIZEBOX;
  return style;
}

DWORD FormWindow::ExtendedStyle() const {
  DWORD style = WS_EX_CONTROLPARENT;
  if (form_->BorderStyle == static_cast<int>(FormBorder::kFixedDialog)) style |= WS_EX_DLGMODALFRAME;
  style |= form_->ShowInTaskbar ? WS_EX_APPWINDOW : 0;
  style |= form_->FilesDropped ? WS_EX_ACCEPTFILES : 0;
  return style;
}

HWND FormWindow::Owner() const {
  if (!form_->IsModal() || Windows().empty()) return nullptr;
  const FormWindow* active = Find(GetActiveWindow());
  return (active ? active : Windows().back())->window();
}

void FormWindow::Create() {
  RegisterWindowClass(kFormClass, &FormWindow::HandleFormMessage);
  const HWND owner = Owner();
  scale_ = ScaleOf(owner);
  window_.Reset(CreateWindowExW(ExtendedStyle(), kFormClass, ToWide(form_->Caption.get()).c_str(), Style(),
                                CW_USEDEFAULT, CW_USEDEFAULT, 100, 100, owner, nullptr, GetModuleHandleW(nullptr),
                                nullptr));
  // Access keys and the focus are shown from the start, not only after the first key.
  SendMessageW(window(), WM_CHANGEUISTATE, MAKEWPARAM(UIS_CLEAR, UISF_HIDEACCEL | UISF_HIDEFOCUS), 0);
  SetIcons();
  menu_.Build(window());
  if (const std::optional<MenuColors> colors = MenuColorsOf(*form_))
    ShowDarkTitle(window(), IsDark(colors->background));
  SetWindowLongPtrW(window(), GWLP_USERDATA, reinterpret_cast<LONG_PTR>(this));
  MakeControls();
}

void FormWindow::Show() {
  const HWND owner = Owner();
  // A window that a script made ahead of time does not know its owner.
  if (owner != GetWindow(window(), GW_OWNER)) {
    SetWindowLongPtrW(window(), GWLP_HWNDPARENT, reinterpret_cast<LONG_PTR>(owner));
  }
  Windows().push_back(this);
  tips_.NotePointer();
  PlaceWindow(owner);
  PutOnScreen();
  FocusFirst();
  UpdateWindow(window());
}

// The controls erase their backgrounds when they are painted, a moment later, and not once before for themselves.
void FormWindow::PutOnScreen() {
  if (form_->WindowState != 0) {
    ShowWindow(window(), form_->WindowState == 1 ? SW_SHOWMINIMIZED : SW_SHOWMAXIMIZED);
    return;
  }
  SetWindowPos(window(), HWND_TOP, 0, 0, 0, 0, SWP_SHOWWINDOW | SWP_NOMOVE | SWP_NOSIZE | SWP_DEFERERASE);
}

void FormWindow::Close() {
  if (!window_.IsValid()) return;
  std::erase(Windows(), this);
  const HWND owner = GetWindow(window(), GW_OWNER);
  // The owner comes back before this window goes: otherwise the system activates some other program.
  if (owner && GetActiveWindow() == window()) SetActiveWindow(owner);
  SetWindowLongPtrW(window(), GWLP_USERDATA, 0);
  // The focus wanders while controls go one by one: none of them is to be found any more by then.
  std::vector<std::unique_ptr<ControlPeer>> closing = std::exchange(peers_, {});
  closing.clear();
  window_.Reset();
}

void FormWindow::BringToFront() {
  if (IsIconic(window())) ShowWindow(window(), SW_RESTORE);
  SetForegroundWindow(window());
}

void FormWindow::SetIcons() {
  const Picture* icon = form_->Icon.get().get();
  const bool has_caption = form_->BorderStyle != static_cast<int>(FormBorder::kNone);
  if (!icon || (!has_caption && !form_->ShowInTaskbar)) return;  // nothing shows it
  small_icon_ = MakeIcon(*icon, MulDiv(16, scale_.dpi(), 96));
  large_icon_ = MakeIcon(*icon, MulDiv(32, scale_.dpi(), 96));
  SendMessageW(window(), WM_SETICON, ICON_SMALL, reinterpret_cast<LPARAM>(small_icon_.get()));
  SendMessageW(window(), WM_SETICON, ICON_BIG, reinterpret_cast<LPARAM>(large_icon_.get()));
}

// What stands in a container is made as its child, and therefore after it; what a composite control holds, when the
// control is first seen.
bool FormWindow::IsWaiting(const Control& control) const {
  const Control* container = control.Container();
  if (!container || container == form_.get()) return false;
  const bool is_part = dynamic_cast<const CompositeControl*>(container) != nullptr;
  return !PeerOf(*container) || (is_part && (!container->Visible || container->Height == 0));
}

// The system puts each new window behind those that are there: the front one comes first.
void FormWindow::MakeControls() {
  std::vector<Control*> order = form_->StackingOrder();
  std::reverse(order.begin(), order.end());
  for (bool is_more = true; is_more;) {
    is_more = false;
    for (Control* control : order) {
      if (PeerOf(*control) || IsWaiting(*control)) continue;
      auto peer = MakeControlPeer(*this, *control);
      if (!peer) continue;
      peers_.push_back(std::move(peer));
      peers_.back()->Create();
      is_more = is_more || control->IsContainer();
    }
  }
}

void FormWindow::StackControls() {
  for (const Control* control : form_->StackingOrder()) {
    const ControlPeer* peer = PeerOf(*control);
    if (peer && peer->window())
      SetWindowPos(peer->window(), HWND_TOP, 0, 0, 0, 0, SWP_NOMOVE | SWP_NOSIZE | SWP_NOACTIVATE);
  }
}

// ---- place, size and border ----------------------------------------------------------------------------------------

SIZE FormWindow::OuterSizeOfModel() const {
  const SIZE client{scale_.Pixels(form_->ScaleWidth()), scale_.Pixels(form_->ScaleHeight())};
  return OuterSize(client, Style(), ExtendedStyle(), form_->HasMenu(), scale_);
}

void FormWindow::PlaceWindow(HWND owner) {
  SIZE outer = OuterSizeOfModel();
  const RECT work = WorkArea(owner ? owner : window());
  if (form_->BorderStyle == static_cast<int>(FormBorder::kSizable)) {
    // The form sees to it that a window smaller than its layout still serves.
    outer.cx = std::min(outer.cx, work.right - work.left);
    outer.cy = std::min(outer.cy, work.bottom - work.top);
  }
  RECT frame = work;
  const auto start = static_cast<StartPosition>(form_->StartUpPosition.get());
  if (start == StartPosition::kCenterOwner && owner) GetWindowRect(owner, &frame);
  POINT place{frame.left + (frame.right - frame.left - outer.cx) / 2,
              frame.top + (frame.bottom - frame.top - outer.cy) / 2};
  if (start == StartPosition::kManual || form_->IsPlaced()) {
    place = {scale_.Pixels(form_->Left), scale_.Pixels(form_->Top)};
  }
  // The whole window stays on the screen, its top left corner first of all.
  place.x = std::max(work.left, std::min(place.x, work.right - outer.cx));
  place.y = std::max(work.top, std::min(place.y, work.bottom - outer.cy));
  SetWindowPos(window(), nullptr, place.x, place.y, outer.cx, outer.cy, SWP_NOZORDER | SWP_NOACTIVATE);
  NotePlace();
}

// A window that fills the screen or is minimized has no place of its own.
void FormWindow::MoveToModel() {
  if (!form_->IsShown() || IsIconic(window()) || IsZoomed(window())) return;
  SetWindowPos(window(), nullptr, scale_.Pixels(form_->Left), scale_.Pixels(form_->Top), 0, 0,
               SWP_NOSIZE | SWP_NOZORDER | SWP_NOACTIVATE);
}

void FormWindow::SizeToModel() {
  const SIZE outer = OuterSizeOfModel();
  RECT place{};
  GetWindowRect(window(), &place);
  // A window that grows beyond the screen's edge moves back from it; otherwise it stays where the user put it.
  const RECT work = WorkArea(window());
  if (outer.cx > place.right - place.left)
    place.left = std::max(work.left, std::min(place.left, work.right - outer.cx));
  if (outer.cy > place.bottom - place.top) place.top = std::max(work.top, std::min(place.top, work.bottom - outer.cy));
  SetWindowPos(window(), nullptr, place.left, place.top, outer.cx, outer.cy, SWP_NOZORDER | SWP_NOACTIVATE);
}

// Another border leaves Width and Height as they are: the client area gives or takes what the border needs.
void FormWindow::ShowBorder() {
  constexpr DWORD kStates = WS_VISIBLE | WS_DISABLED | WS_MINIMIZE | WS_MAXIMIZE;
  const auto states = static_cast<DWORD>(GetWindowLongPtrW(window(), GWL_STYLE)) & kStates;
  SetWindowLongPtrW(window(), GWL_STYLE, static_cast<LONG_PTR>(Style() | states));
  SetWindowLongPtrW(window(), GWL_EXSTYLE, static_cast<LONG_PTR>(ExtendedStyle()));
  const SIZE outer = OuterSizeOfModel();
  const UINT size = form_->IsShown() && !IsIconic(window()) && !IsZoomed(window()) ? 0 : SWP_NOSIZE;
  SetWindowPos(window(), nullptr, 0, 0, outer.cx, outer.cy,
               SWP_FRAMECHANGED | SWP_NOMOVE | SWP_NOZORDER | SWP_NOACTIVATE | size);
  SetIcons();
}

void FormWindow::NotePlace() {
  if (IsIconic(window())) return;
  RECT place{};
  GetWindowRect(window(), &place);
  // Rounding to pixels and back is no move.
  const auto note = [this](Property<int>& stored, LONG pixels) {
    if (scale_.Pixels(stored) != pixels) stored.StoreQuietly(scale_.Twips(pixels));
  };
  note(form_->Left, place.left);
  note(form_->Top, place.top);
}

void FormWindow::NoteSize() {
  RECT client{};
  GetClientRect(window(), &client);
  const int width = scale_.Twips(client.right) + (form_->Width - form_->ScaleWidth());
  const int height = scale_.Twips(client.bottom) + (form_->Height - form_->ScaleHeight());
  // Rounding to pixels and back is no change of size.
  const int pixel = scale_.Twips(1) + 1;
  if (std::abs(width - form_->Width) <= pixel && std::abs(height - form_->Height) <= pixel) return;
  form_->Width.StoreQuietly(width);
  form_->Height.StoreQuietly(height);
  DispatchEvent(form_.get(), [this] { form_->Resize(); });
}

void FormWindow::NoteState(WPARAM state) {
  if (!form_->IsShown()) return;
  form_->WindowState.StoreQuietly(state == SIZE_MINIMIZED ? 1 : state == SIZE_MAXIMIZED ? 2 : 0);
  if (state != SIZE_MINIMIZED) NoteSize();
}

// A border that cannot be dragged holds the form's own size. A window manager that redraws the frame a moment after the
// border has changed asks for the size before, and the form would drift.
void FormWindow::KeepSize(WINDOWPOS& place) const {
  if (form_->BorderStyle == static_cast<int>(FormBorder::kSizable) || !form_->IsShown()) return;
  if ((place.flags & SWP_NOSIZE) != 0 || IsIconic(window()) || IsZoomed(window())) return;
  const SIZE outer = OuterSizeOfModel();
  place.cx = outer.cx;
  place.cy = outer.cy;
}

// Never more than the screen: there the form has to do with less.
void FormWindow::LimitSize(MINMAXINFO& limits) const {
  if (form_->LeastScaleWidth() == 0 || form_->BorderStyle != static_cast<int>(FormBorder::kSizable)) return;
  const SIZE client{scale_.Pixels(form_->LeastScaleWidth()), scale_.Pixels(form_->LeastScaleHeight())};
  const SIZE least = OuterSize(client, Style(), ExtendedStyle(), form_->HasMenu(), scale_);
  const RECT work = WorkArea(window());
  limits.ptMinTrackSize = {std::min(least.cx, work.right - work.left), std::min(least.cy, work.bottom - work.top)};
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

void FormWindow::Rescale(ScreenScale scale) {
  scale_ = scale;
  painting_.ForgetFonts();
  pointer_.Forget();
  SetIcons();
  for (const auto& peer : peers_) {
    peer->Update(PropertyId::kFont);
    peer->Update(PropertyId::kLeft);
  }
  InvalidateRect(window(), nullptr, TRUE);
}

// ---- the focus -----------------------------------------------------------------------------------------------------

void FormWindow::FocusFirst() {
  const Control* active = form_->ActiveControl();
  // One that was hidden with its container would take the keys unseen.
  if (ControlPeer* peer = active && active->IsUsable() ? PeerOf(*active) : nullptr; peer && peer->window()) {
    ::SetFocus(peer->window());
    return;
  }
  const std::vector<Control*> order = form_->TabOrder();
  if (!order.empty()) SetFocus(*order.front());
}

void FormWindow::SetFocus(Control& control) {
  if (ControlPeer* peer = PeerOf(control); peer && peer->window()) ::SetFocus(peer->window());
}

void FormWindow::LeaveHiddenFocus() {
  const HWND focused = GetFocus();
  if (!IsChild(window(), focused) || IsWindowVisible(focused)) return;
  platform().clock().Post([keep = weak_from_this(), focused] {
    const auto form = keep.lock();
    if (form && form->is_open() && GetFocus() == focused && !IsWindowVisible(focused)) form->FocusFirst();
  });
}

// The system takes the focus from a control that is disabled and gives it to none: keys would go nowhere.
void FormWindow::ReplaceLostFocus() {
  if (GetFocus() || GetActiveWindow() != window()) return;
  // When the event at hand is over: the control may be enabled again by then.
  platform().clock().Post([keep = weak_from_this()] {
    const auto form = keep.lock();
    if (form && form->is_open() && !GetFocus() && GetActiveWindow() == form->window()) form->FocusFirst();
  });
}

// ---- what the model tells ------------------------------------------------------------------------------------------

void FormWindow::Update(Control& control, PropertyId property) {
  if (&control == form_.get()) return UpdateForm(property);
  if (ControlPeer* peer = PeerOf(control)) peer->Update(property);
  const bool may_be_seen_now = property == PropertyId::kHeight || property == PropertyId::kVisible;
  if (may_be_seen_now && !control.Constituents().empty()) MakeControls();
  if (property == PropertyId::kEnabled) ReplaceLostFocus();
}

void FormWindow::UpdateForm(PropertyId property) {
  switch (property) {
    case PropertyId::kCaption: SetWindowTextW(window(), ToWide(form_->Caption.get()).c_str()); break;
    case PropertyId::kWidth:
    case PropertyId::kHeight: SizeToModel(); break;
    case PropertyId::kLeft:
    case PropertyId::kTop: MoveToModel(); break;
    case PropertyId::kBorderStyle:
    case PropertyId::kBoxes: ShowBorder(); break;
    case PropertyId::kEnabled: EnableWindow(window(), form_->Enabled); break;
    case PropertyId::kIcon: SetIcons(); break;
    case PropertyId::kWindowState:
      if (!form_->IsShown()) break;
      ShowWindow(window(), form_->WindowState == 1 ? SW_MINIMIZE : form_->WindowState == 2 ? SW_MAXIMIZE : SW_RESTORE);
      break;
    case PropertyId::kBackColor: ShowFrameColors(); [[fallthrough]];
    case PropertyId::kPicture:
    case PropertyId::kDrawing: RepaintWithChildren(window()); break;
    case PropertyId::kForeColor:
      ShowFrameColors();
      InvalidateRect(window(), nullptr, FALSE);
      break;
    default: InvalidateRect(window(), nullptr, FALSE);
  }
}

// Menus and title bar follow the form's colours.
void FormWindow::ShowFrameColors() {
  const std::optional<MenuColors> colors = MenuColorsOf(*form_);
  ShowDarkTitle(window(), colors && IsDark(colors->background));
  if (form_->HasMenu()) MenuChanged();
}

bool FormWindow::ShowOwnFrame(UINT message, WPARAM first, LPARAM second, LRESULT& result) {
  if (!menu_.colors() || !form_->HasMenu()) return false;
  result = DefWindowProcW(window(), message, first, second);
  PaintAroundMenu(window(), menu_.colors()->background);
  return true;
}

void FormWindow::ControlsChanged() {
  const std::vector<Control*> present = form_->StackingOrder();
  const auto is_gone = [&present](const std::unique_ptr<ControlPeer>& peer) {
    return std::find(present.begin(), present.end(), &peer->control()) == present.end();
  };
  const auto gone =
      std::stable_partition(peers_.begin(), peers_.end(), [&](const auto& peer) { return !is_gone(peer); });
  std::vector<std::shared_ptr<ControlPeer>> removed(std::make_move_iterator(gone),
                                                    std::make_move_iterator(peers_.end()));
  peers_.erase(gone, peers_.end());
  // A removed control may be the one whose event is under way: its peer goes in a later pass.
  for (std::shared_ptr<ControlPeer>& dead : removed) {
    tips_.Forget(dead->control());
    if (dead->window()) ShowWindow(dead->window(), SW_HIDE);
    platform().clock().Post([keep = shared_from_this(), dead = std::move(dead)] {});
  }
  MakeControls();
  for (const auto& peer : peers_) peer->FollowContainer();
  StackControls();
  MenuChanged();
  InvalidateRect(window(), nullptr, FALSE);
}

void FormWindow::ListChanged(Control& control) {
  if (ControlPeer* peer = PeerOf(control)) peer->ListChanged();
}

void FormWindow::Repaint(Control& control) {
  if (&control == form_.get()) {
    InvalidateRect(window(), nullptr, FALSE);
  } else if (ControlPeer* peer = PeerOf(control)) {
    peer->Repaint();
  }
}

// Items often change several at a time: the menu is built once, in the next pass of the message loop.
void FormWindow::MenuChanged() {
  if (menu_stale_) return;
  menu_stale_ = true;
  platform().clock().Post([keep = weak_from_this()] {
    const auto form = keep.lock();
    if (!form || !form->is_open()) return;
    form->menu_stale_ = false;
    form->menu_.Build(form->window());
  });
}

// A key's menu opens at the control that has the focus, the mouse's at the mouse.
POINT FormWindow::MenuPlace() const {
  const bool by_key = GetKeyState(VK_APPS) < 0 || GetKeyState(VK_F10) < 0;
  if (const ControlPeer* peer = by_key ? PeerOf(GetFocus()) : nullptr) return peer->MenuPlace();
  POINT place{};
  GetCursorPos(&place);
  return place;
}

void FormWindow::PopUpMenu(MenuItem& item) {
  const Ref<MenuItem> chosen = menu_.PopUp(item, window(), MenuPlace());
  if (chosen) static_cast<void>(chosen->Choose());
  if (is_open()) menu_.Build(window());
}

int32_t FormWindow::WindowNumber(const Control& control) {
  const ControlPeer* peer = PeerOf(control);
  const HWND wanted = &control == form_.get() ? window() : peer ? peer->window() : nullptr;
  // The system's numbers of windows have 32 bits that count, also where handles are wider.
  return static_cast<int32_t>(reinterpret_cast<intptr_t>(wanted));
}

void FormWindow::ShowPopup(Control& control, const PixelRect& screen_area, std::function<void(Canvas&)> paint) {
  if (ControlPeer* peer = PeerOf(control)) peer->ShowPopup(screen_area, std::move(paint));
}

void FormWindow::HidePopup(Control& control) {
  if (ControlPeer* peer = PeerOf(control)) peer->HidePopup();
}

PixelPoint FormWindow::ScreenPosition(const Control& control) {
  const ControlPeer* peer = PeerOf(control);
  POINT place{};
  if (peer && !peer->window()) place = {peer->Area().left, peer->Area().top};
  ClientToScreen(peer && peer->window() ? peer->window() : ContainerWindow(control), &place);
  return {place.x, place.y};
}

PixelRect FormWindow::ScreenArea(const Control&) {
  const RECT work = WorkArea(window());
  return {work.left, work.top, work.right, work.bottom};
}

void FormWindow::TellAccessibility(Control& control, AccessibleEvent event, int child) {
  if (ControlPeer* peer = PeerOf(control)) peer->TellAccessibility(event, child);
}

ControlPeer* FormWindow::PeerOf(const Control& control) const {
  const auto found =
      std::find_if(peers_.begin(), peers_.end(), [&control](const auto& peer) { return &peer->control() == &control; });
  return found == peers_.end() ? nullptr : found->get();
}

// A window inside of a system's control, such as a combo box's text, stands for that control.
ControlPeer* FormWindow::PeerOf(HWND child) const {
  for (HWND one = child; one && one != window(); one = GetAncestor(one, GA_PARENT)) {
    const auto found =
        std::find_if(peers_.begin(), peers_.end(), [one](const auto& peer) { return peer->window() == one; });
    if (found != peers_.end()) return found->get();
  }
  return nullptr;
}

HWND FormWindow::ContainerWindow(const Control& control) const {
  const Control* container = control.Container();
  const ControlPeer* peer = container && container != form_.get() ? PeerOf(*container) : nullptr;
  return peer && peer->window() ? peer->window() : window();
}

void FormWindow::MakeToolTips() {
  const auto has_tip = [](const auto& peer) { return !peer->control().ToolTipText.get().empty(); };
  if (std::none_of(peers_.begin(), peers_.end(), has_tip)) return;
  if (!tips_.MakeWindow(window(), scale_)) return;
  for (const auto& peer : peers_) peer->ShowToolTip();
}

// ---- messages ------------------------------------------------------------------------------------------------------

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
    case WM_SIZE: NoteState(first); return false;
    case WM_WINDOWPOSCHANGING: KeepSize(*reinterpret_cast<WINDOWPOS*>(second)); return false;
    case WM_GETMINMAXINFO: LimitSize(*reinterpret_cast<MINMAXINFO*>(second)); return true;
    case WM_TIMER:
      if (first != kPointerTimer) return false;
      LookForPointer();
      return true;
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
      if (form_->IsShown()) NotePlace();
      return false;
    case WM_ACTIVATE:
      if (LOWORD(first) != WA_INACTIVE) NoteActivated(*form_);
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
    const std::vector<std::string> paths = TakeDroppedPaths(reinterpret_cast<HDROP>(first));
    SetForegroundWindow(window());
    form_->FilesDropped(paths);
  });
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

}  // namespace kestrun
