#include "desktop/win32/window/form_window.h"

#include <algorithm>
#include <iterator>
#include <utility>

#include "desktop/win32/system/wide_text.h"
#include "desktop/win32/window/control_peer.h"
#include "desktop/win32/window/window_class.h"
#include "forms/composite_control.h"
#include "platform/platform.h"

namespace kestrun {
namespace {

constexpr const wchar_t* kFormClass = L"KestrunForm";

std::vector<FormWindow*>& Windows() {
  static std::vector<FormWindow*> windows;
  return windows;
}

}  // namespace

const std::vector<FormWindow*>& FormWindow::OpenWindows() { return Windows(); }

FormWindow* FormWindow::Find(HWND window) {
  const HWND root = GetAncestor(window, GA_ROOT);
  const auto found =
      std::find_if(Windows().begin(), Windows().end(), [root](const FormWindow* one) { return one->window() == root; });
  return found == Windows().end() ? nullptr : *found;
}

FormWindow::FormWindow(Form& form) : form_(&form), menu_(form), placement_(*this), painting_(*this) {}

FormWindow::~FormWindow() { FormWindow::Close(); }

// ---- opening and closing -------------------------------------------------------------------------------------------

HWND FormWindow::Owner() const {
  if (!form_->IsModal() || Windows().empty()) return nullptr;
  const FormWindow* active = Find(GetActiveWindow());
  return (active ? active : Windows().back())->window();
}

void FormWindow::Create() {
  RegisterWindowClass(kFormClass, &FormWindow::HandleFormMessage);
  const HWND owner = Owner();
  scale_ = ScaleOf(owner);
  window_.Reset(CreateWindowExW(placement_.ExtendedStyle(), kFormClass, ToWide(form_->Caption.get()).c_str(),
                                placement_.Style(), CW_USEDEFAULT, CW_USEDEFAULT, 100, 100, owner, nullptr,
                                GetModuleHandleW(nullptr), nullptr));
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
  placement_.Place(owner);
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

// A handler may remove controls.
void FormWindow::DropPopups() {
  for (size_t at = 0; at < peers_.size(); ++at) peers_[at]->FormDeactivated();
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
    case PropertyId::kHeight: placement_.SizeToModel(); break;
    case PropertyId::kLeft:
    case PropertyId::kTop: placement_.MoveToModel(); break;
    case PropertyId::kBorderStyle:
    case PropertyId::kBoxes:
      placement_.ShowBorder();
      SetIcons();
      break;
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
  PostBuildMenu();
}

// A new bar would take the menu away that the user has open: it waits for the end of the choice.
void FormWindow::PostBuildMenu() {
  platform().clock().Post([keep = weak_from_this()] {
    const auto form = keep.lock();
    if (!form || !form->is_open() || !form->menu_stale_ || form->is_menu_open_) return;
    form->menu_stale_ = false;
    form->menu_.Build(form->window());
  });
}

void FormWindow::NoteMenuLoop(bool is_open) {
  is_menu_open_ = is_open;
  if (!is_open && menu_stale_) PostBuildMenu();
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
  const RECT work = placement_.WorkArea();
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

}  // namespace kestrun
