#include "desktop/win32/window/form_window.h"

#include <algorithm>
#include <array>
#include <iterator>
#include <utility>

#include "base/text.h"
#include "desktop/win32/system/late_call.h"
#include "desktop/win32/system/shell_link.h"
#include "desktop/win32/system/wide_text.h"
#include "desktop/win32/window/control_peer.h"
#include "desktop/win32/window/keyboard.h"
#include "desktop/win32/window/window_class.h"
#include "forms/composite_control.h"
#include "forms/label.h"
#include "platform/platform.h"

namespace kestrun {
namespace {

constexpr const wchar_t* kFormClass = L"KestrunForm";
constexpr int kFirstMenuCommand = 1000;
constexpr UINT_PTR kPointerTimer = 1;
constexpr UINT kPointerIntervalMs = 200;
constexpr UINT kDpiChanged = 0x02E0;  // WM_DPICHANGED, newer than the headers that the program is built for
constexpr int kTipWidthTwips = 6000;

std::vector<FormWindow*>& Windows() {
  static std::vector<FormWindow*> windows;
  return windows;
}

std::string FontKey(const FontDescription& font) {
  return font.name + "|" + std::to_string(font.size_points) + (font.bold ? "b" : "") + (font.italic ? "i" : "") +
         (font.underline ? "u" : "") + (font.strikethrough ? "s" : "");
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

// The system's pointer for a value of MousePointer; null for 0 and other values that leave the usual one.
HCURSOR SystemPointer(int value) {
  // By the value: 4 means an icon and 12 no drop.
  static const std::array<LPCWSTR, 16> names{
      nullptr,      IDC_ARROW,  IDC_CROSS,   IDC_IBEAM, IDC_ICON, IDC_SIZEALL,     IDC_SIZENESW, IDC_SIZENS,
      IDC_SIZENWSE, IDC_SIZEWE, IDC_UPARROW, IDC_WAIT,  IDC_NO,   IDC_APPSTARTING, IDC_HELP,     IDC_SIZEALL};
  if (value <= 0 || value >= static_cast<int>(names.size())) return nullptr;
  return LoadCursorW(nullptr, names[static_cast<size_t>(value)]);
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

FormWindow::FormWindow(Form& form) : form_(&form) {}

FormWindow::~FormWindow() { Close(); }

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

void FormWindow::Open(HWND owner) {
  RegisterWindowClass(kFormClass, &FormWindow::HandleFormMessage);
  scale_ = ScaleOf(owner);
  window_.Reset(CreateWindowExW(ExtendedStyle(), kFormClass, ToWide(form_->Caption.get()).c_str(), Style(),
                                CW_USEDEFAULT, CW_USEDEFAULT, 100, 100, owner, nullptr, GetModuleHandleW(nullptr),
                                nullptr));
  Windows().push_back(this);
  GetCursorPos(&pointer_at_opening_);
  // Access keys and the focus are shown from the start, not only after the first key.
  SendMessageW(window(), WM_CHANGEUISTATE, MAKEWPARAM(UIS_CLEAR, UISF_HIDEACCEL | UISF_HIDEFOCUS), 0);
  SetIcons();
  BuildMenu();
  SetWindowLongPtrW(window(), GWLP_USERDATA, reinterpret_cast<LONG_PTR>(this));
  MakeControls();
  PlaceWindow(owner);
  ShowFirst();
  FocusFirst();
  UpdateWindow(window());
}

// The controls erase their backgrounds when they are painted, a moment later, and not once before for themselves.
void FormWindow::ShowFirst() {
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

void FormWindow::PlaceWindow(HWND owner) {
  const SIZE client{scale_.Pixels(form_->ScaleWidth()), scale_.Pixels(form_->ScaleHeight())};
  const bool no_frame = form_->BorderStyle == static_cast<int>(FormBorder::kNone);
  SIZE outer = OuterSize(client, Style(), ExtendedStyle(), form_->HasMenu(), scale_);
  if (no_frame) outer = {scale_.Pixels(form_->Width), scale_.Pixels(form_->Height)};
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
  if (start == StartPosition::kManual) place = {scale_.Pixels(form_->Left), scale_.Pixels(form_->Top)};
  // The whole window stays on the screen, its top left corner first of all.
  place.x = std::max(work.left, std::min(place.x, work.right - outer.cx));
  place.y = std::max(work.top, std::min(place.y, work.bottom - outer.cy));
  SetWindowPos(window(), nullptr, place.x, place.y, outer.cx, outer.cy, SWP_NOZORDER | SWP_NOACTIVATE);
}

void FormWindow::FocusFirst() {
  const Control* active = form_->ActiveControl();
  // One that was hidden with its container would take the keys unseen.
  if (ControlPeer* peer = active && active->IsUsable() ? PeerOf(*active) : nullptr; peer && peer->window()) {
    SetFocus(peer->window());
    return;
  }
  const std::vector<Control*> order = form_->TabOrder();
  if (!order.empty()) FocusControl(*order.front());
}

void FormWindow::LeaveHiddenFocus() {
  const HWND focused = GetFocus();
  if (!IsChild(window(), focused) || IsWindowVisible(focused)) return;
  platform().clock().Post([keep = weak_from_this(), focused] {
    const auto form = keep.lock();
    if (form && form->is_open() && GetFocus() == focused && !IsWindowVisible(focused)) form->FocusFirst();
  });
}

// ---- what the model tells ------------------------------------------------------------------------------------------

void FormWindow::Update(Control& control, PropertyId property) {
  if (&control != form_.get()) {
    if (ControlPeer* peer = PeerOf(control)) peer->Update(property);
    const bool may_be_seen_now = property == PropertyId::kHeight || property == PropertyId::kVisible;
    if (may_be_seen_now && !control.Constituents().empty()) MakeControls();
    if (property == PropertyId::kEnabled) ReplaceLostFocus();
    return;
  }
  switch (property) {
    case PropertyId::kCaption: SetWindowTextW(window(), ToWide(form_->Caption.get()).c_str()); break;
    case PropertyId::kWidth:
    case PropertyId::kHeight:
    case PropertyId::kLeft:
    case PropertyId::kTop: FitToModel(); break;
    case PropertyId::kEnabled: EnableWindow(window(), form_->Enabled); break;
    case PropertyId::kIcon: SetIcons(); break;
    case PropertyId::kWindowState:
      ShowWindow(window(), form_->WindowState == 1 ? SW_MINIMIZE : form_->WindowState == 2 ? SW_MAXIMIZE : SW_RESTORE);
      break;
    default: InvalidateRect(window(), nullptr, FALSE);
  }
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

void FormWindow::FitToModel() {
  const SIZE client{scale_.Pixels(form_->ScaleWidth()), scale_.Pixels(form_->ScaleHeight())};
  const SIZE outer = OuterSize(client, Style(), ExtendedStyle(), form_->HasMenu(), scale_);
  RECT place{};
  GetWindowRect(window(), &place);
  // A window that grows beyond the screen's edge moves back from it; otherwise it stays where the user put it.
  const RECT work = WorkArea(window());
  if (outer.cx > place.right - place.left)
    place.left = std::max(work.left, std::min(place.left, work.right - outer.cx));
  if (outer.cy > place.bottom - place.top) place.top = std::max(work.top, std::min(place.top, work.bottom - outer.cy));
  SetWindowPos(window(), nullptr, place.left, place.top, outer.cx, outer.cy, SWP_NOZORDER | SWP_NOACTIVATE);
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
    if (dead->window()) ShowWindow(dead->window(), SW_HIDE);
    platform().clock().Post([keep = shared_from_this(), dead = std::move(dead)] {});
  }
  MakeControls();
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

void FormWindow::FocusControl(Control& control) {
  if (ControlPeer* peer = PeerOf(control); peer && peer->window()) SetFocus(peer->window());
}

ControlPeer* FormWindow::PeerOf(const Control& control) const {
  const auto found =
      std::find_if(peers_.begin(), peers_.end(), [&control](const auto& peer) { return &peer->control() == &control; });
  return found == peers_.end() ? nullptr : found->get();
}

ControlPeer* FormWindow::PeerOf(HWND child) const {
  const auto found =
      std::find_if(peers_.begin(), peers_.end(), [child](const auto& peer) { return peer->window() == child; });
  return child == nullptr || found == peers_.end() ? nullptr : found->get();
}

HWND FormWindow::ContainerWindow(const Control& control) const {
  const Control* container = control.Container();
  const ControlPeer* peer = container && container != form_.get() ? PeerOf(*container) : nullptr;
  return peer && peer->window() ? peer->window() : window();
}

PixelPoint FormWindow::ScreenPosition(const Control& control) const {
  const ControlPeer* peer = PeerOf(control);
  POINT place{};
  if (peer && !peer->window()) place = {peer->Area().left, peer->Area().top};
  ClientToScreen(peer && peer->window() ? peer->window() : ContainerWindow(control), &place);
  return {place.x, place.y};
}

PixelRect FormWindow::ScreenArea() const {
  const RECT work = WorkArea(window());
  return {work.left, work.top, work.right, work.bottom};
}

HFONT FormWindow::FontFor(const FontDescription& font) {
  FontHandle& made = fonts_[FontKey(font)];
  if (!made.IsValid()) made = MakeFont(font, scale_);
  return made.get();
}

HBRUSH FormWindow::BrushFor(Color color) {
  BrushHandle& made = brushes_[color];
  if (!made.IsValid()) made.Reset(CreateSolidBrush(ToColorRef(color)));
  return made.get();
}

// Most windows are used without a tip being read, and a tip window costs as much as ten buttons.
void FormWindow::MakeToolTips() {
  if (tool_tips_) return;
  const auto has_tip = [](const auto& peer) { return !peer->control().ToolTipText.get().empty(); };
  POINT pointer{};
  GetCursorPos(&pointer);
  // A window that opened under a resting mouse was not pointed at.
  if (pointer.x == pointer_at_opening_.x && pointer.y == pointer_at_opening_.y) return;
  if (std::none_of(peers_.begin(), peers_.end(), has_tip)) return;
  tool_tips_ = CreateWindowExW(WS_EX_TOPMOST, TOOLTIPS_CLASSW, nullptr, WS_POPUP | TTS_NOPREFIX | TTS_ALWAYSTIP, 0, 0,
                               0, 0, window(), nullptr, GetModuleHandleW(nullptr), nullptr);
  SendMessageW(tool_tips_, TTM_SETMAXTIPWIDTH, 0, scale_.Pixels(kTipWidthTwips));
  for (const auto& peer : peers_) peer->ShowToolTip();
}

void FormWindow::SetToolTip(Control& control, HWND tool_window, const RECT* area) {
  if (!tool_tips_) return;
  std::wstring text = ToWide(control.ToolTipText.get());
  TOOLINFOW tool{};
  tool.cbSize = TTTOOLINFOW_V2_SIZE;
  tool.uFlags = TTF_SUBCLASS | (area ? 0 : TTF_IDISHWND);
  tool.hwnd = area ? tool_window : window();
  tool.uId = area ? reinterpret_cast<UINT_PTR>(&control) : reinterpret_cast<UINT_PTR>(tool_window);
  if (area) tool.rect = *area;
  SendMessageW(tool_tips_, TTM_DELTOOLW, 0, reinterpret_cast<LPARAM>(&tool));
  if (text.empty() || (area && !control.Visible)) return;
  tool.lpszText = text.data();
  SendMessageW(tool_tips_, TTM_ADDTOOLW, 0, reinterpret_cast<LPARAM>(&tool));
}

// ---- menus ---------------------------------------------------------------------------------------------------------

void FormWindow::BuildMenu() {
  menu_stale_ = false;
  menu_commands_.clear();
  menu_bitmaps_.clear();
  if (!form_->HasMenu()) {
    if (menu_.IsValid()) SetMenu(window(), nullptr);
    menu_.Reset();
    return;
  }
  MenuHandle built(CreateMenu());
  AddMenuItems(built.get(), form_->TopMenus());
  SetMenu(window(), built.get());
  menu_ = std::move(built);
  if (IsWindowVisible(window())) DrawMenuBar(window());
}

void FormWindow::AddMenuItems(HMENU menu, const std::vector<MenuItem*>& items) {
  const bool has_pictures =
      std::any_of(items.begin(), items.end(), [](const MenuItem* item) { return item->Picture.get() != nullptr; });
  for (MenuItem* item : items) {
    if (!item->Visible) continue;
    if (item->Caption.get() == "-") {
      AppendMenuW(menu, MF_SEPARATOR, 0, nullptr);
      continue;
    }
    std::wstring text = ToWide(item->Caption.get());
    // Wine forgets the column of the others' pictures in the width of an item that has none.
    if (IsWine() && has_pictures && !item->Picture.get()) text += L"      ";
    const std::string& key = item->Shortcut->empty() ? item->KeyHint.get() : item->Shortcut.get();
    if (!key.empty()) text += L"\t" + ToWide(key);
    const std::vector<MenuItem*> children = item->Items();
    const UINT state = (item->Enabled ? MF_ENABLED : MF_GRAYED) | (item->Checked ? MF_CHECKED : MF_UNCHECKED);
    const UINT_PTR command = kFirstMenuCommand + menu_commands_.size();
    menu_commands_.emplace_back(item);
    if (children.empty()) {
      AppendMenuW(menu, MF_STRING | state, command, text.c_str());
    } else {
      const HMENU submenu = CreatePopupMenu();  // destroyed with the menu that holds it
      AddMenuItems(submenu, children);
      AppendMenuW(menu, MF_POPUP | state, reinterpret_cast<UINT_PTR>(submenu), text.c_str());
    }
    if (const Picture* picture = item->Picture.get().get()) {
      MENUITEMINFOW info{};
      info.cbSize = sizeof info;
      info.fMask = MIIM_BITMAP;
      info.hbmpItem = HBMMENU_CALLBACK;
      if (!IsWine()) {
        menu_bitmaps_.push_back(MakeMenuBitmap(*picture, GetSystemMetrics(SM_CXMENUCHECK)));
        info.hbmpItem = menu_bitmaps_.back().get();
      }
      SetMenuItemInfoW(menu, static_cast<UINT>(GetMenuItemCount(menu) - 1), TRUE, &info);
    }
  }
}

// Wine lays a menu's bitmaps over its rows as they are, edges and all, and asks for the pictures of these items
// instead.
void FormWindow::MeasureMenuPicture(MEASUREITEMSTRUCT& item) const {
  const int size = GetSystemMetrics(SM_CXMENUCHECK);
  item.itemWidth = static_cast<UINT>(size + size / 3);
  item.itemHeight = static_cast<UINT>(size);
}

void FormWindow::DrawMenuPicture(const DRAWITEMSTRUCT& item) const {
  const auto at = static_cast<size_t>(item.itemID) - kFirstMenuCommand;
  const Picture* picture = at < menu_commands_.size() ? menu_commands_[at]->Picture.get().get() : nullptr;
  if (!picture) return;
  const int size = GetSystemMetrics(SM_CXMENUCHECK);
  const int top = (item.rcItem.top + item.rcItem.bottom - size) / 2;
  DrawPictureTo(item.hDC, *picture, {item.rcItem.left, top, item.rcItem.left + size, top + size});
}

// Items often change several at a time: the menu is built once, in the next pass of the message loop.
void FormWindow::MenuChanged() {
  if (menu_stale_) return;
  menu_stale_ = true;
  platform().clock().Post([keep = weak_from_this()] {
    const auto form = keep.lock();
    if (form && form->is_open()) form->BuildMenu();
  });
}

bool FormWindow::ChooseMenuCommand(int command) {
  const int at = command - kFirstMenuCommand;
  if (at < 0 || at >= static_cast<int>(menu_commands_.size())) return false;
  return Ref<MenuItem>(menu_commands_[static_cast<size_t>(at)])->Choose();
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
  BuildMenu();
  const MenuHandle popup(CreatePopupMenu());
  AddMenuItems(popup.get(), item.Items());
  const std::vector<Ref<MenuItem>> commands = menu_commands_;  // the menu may be built anew while this one is open
  const POINT place = MenuPlace();
  const int command =
      TrackPopupMenu(popup.get(), TPM_RETURNCMD | TPM_RIGHTBUTTON, place.x, place.y, 0, window(), nullptr);
  const auto at = static_cast<size_t>(command - kFirstMenuCommand);
  if (command >= kFirstMenuCommand && at < commands.size()) static_cast<void>(commands[at]->Choose());
  if (is_open()) BuildMenu();
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
    case WM_SIZE:
      if (first != SIZE_MINIMIZED) NoteSize();
      return false;
    case WM_GETMINMAXINFO: LimitSize(*reinterpret_cast<MINMAXINFO*>(second)); return true;
    case WM_TIMER:
      if (first != kPointerTimer) return false;
      LookForPointer();
      return true;
    case WM_MEASUREITEM: MeasureMenuPicture(*reinterpret_cast<MEASUREITEMSTRUCT*>(second)); return true;
    case WM_DRAWITEM: DrawMenuPicture(*reinterpret_cast<const DRAWITEMSTRUCT*>(second)); return true;
    case WM_ACTIVATE:
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
    case WM_DROPFILES:
      DispatchEvent(form_.get(), [&] {
        const std::vector<std::string> paths = TakeDroppedPaths(reinterpret_cast<HDROP>(first));
        SetForegroundWindow(window());
        form_->FilesDropped(paths);
      });
      return true;
    case WM_SYSCOLORCHANGE:
      brushes_.clear();
      InvalidateRect(window(), nullptr, TRUE);
      for (const auto& peer : peers_) peer->Repaint();
      return false;
    default: return false;
  }
}

void FormWindow::NoteSize() {
  RECT client{};
  GetClientRect(window(), &client);
  const bool no_frame = form_->BorderStyle == static_cast<int>(FormBorder::kNone);
  const int width = scale_.Twips(client.right) + (no_frame ? 0 : kFrameWidth);
  const int height = scale_.Twips(client.bottom) + (no_frame ? 0 : form_->Height - form_->ScaleHeight());
  // Rounding to pixels and back is no change of size.
  const int pixel = scale_.Twips(1) + 1;
  if (std::abs(width - form_->Width) <= pixel && std::abs(height - form_->Height) <= pixel) return;
  form_->Width.StoreQuietly(width);
  form_->Height.StoreQuietly(height);
  DispatchEvent(form_.get(), [this] { form_->Resize(); });
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
  fonts_.clear();
  cursor_picture_.Reset();
  SetIcons();
  for (const auto& peer : peers_) {
    peer->Update(PropertyId::kFont);
    peer->Update(PropertyId::kLeft);
  }
  InvalidateRect(window(), nullptr, TRUE);
}

bool FormWindow::HandleContainerMessage(HWND container_window, Control& container, UINT message, WPARAM first,
                                        LPARAM second, LRESULT& result) {
  result = 0;
  switch (message) {
    case WM_ERASEBKGND: result = 1; return true;
    case WM_PAINT: Paint(container_window, container); return true;
    case WM_SETCURSOR:
      MakeToolTips();
      WatchPointer();
      result = TRUE;
      return reinterpret_cast<HWND>(first) == container_window && LOWORD(second) == HTCLIENT &&
             ShowContainerPointer(container_window, container);
    case WM_COMMAND: return HandleCommand(first, second);
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
      return message >= WM_MOUSEFIRST && message <= WM_MBUTTONDBLCLK &&
             HandleMouse(container_window, container, message, first, second);
  }
}

bool FormWindow::HandleCommand(WPARAM first, LPARAM second) {
  if (second == 0) return ChooseMenuCommand(LOWORD(first));
  ControlPeer* peer = PeerOf(reinterpret_cast<HWND>(second));
  if (peer) peer->Notify(HIWORD(first));
  return peer != nullptr;
}

bool FormWindow::PassWheel(WPARAM first, LPARAM second) {
  ControlPeer* peer = PeerOf(WindowFromPoint(MessagePlace(second)));
  return peer && peer->TakeWheel(first);
}

Control* FormWindow::DrawnControlAt(Control& container, POINT place) const {
  Control* found = nullptr;
  for (Control* control : form_->StackingOrder()) {
    const ControlPeer* peer = control->Container() == &container && control->Visible ? PeerOf(*control) : nullptr;
    if (!peer || peer->window()) continue;
    const RECT area = peer->Area();
    if (PtInRect(&area, place)) found = control;
  }
  return found;
}

bool FormWindow::HandleMouse(HWND, Control& container, UINT message, WPARAM first, LPARAM second) {
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

bool FormWindow::ShowMousePointer(const Control& control) {
  const auto* label = dynamic_cast<const Label*>(&control);
  if (!label || !label->MouseIcon.get()) {
    const HCURSOR named = SystemPointer(control.MousePointer);
    if (named) SetCursor(named);
    return named != nullptr;
  }
  if (cursor_picture_ != label->MouseIcon.get()) {
    IconHandle made = MakeCursor(*label->MouseIcon.get(), scale_.dpi());
    SetCursor(made.get());
    cursor_ = std::move(made);
    cursor_picture_ = label->MouseIcon;
  }
  SetCursor(cursor_.get());
  return true;
}

// ---- painting ------------------------------------------------------------------------------------------------------

void FormWindow::Paint(HWND container_window, Control& container) {
  PAINTSTRUCT paint{};
  const HDC screen = BeginPaint(container_window, &paint);
  RECT client{};
  GetClientRect(container_window, &client);
  if (client.right > 0 && client.bottom > 0) {
    const MemoryDevice buffer(CreateCompatibleDC(screen));
    const BitmapHandle bitmap(CreateCompatibleBitmap(screen, client.right, client.bottom));
    const HGDIOBJ previous = SelectObject(buffer.get(), bitmap.get());
    PaintContent(buffer.get(), container, client);
    BitBlt(screen, 0, 0, client.right, client.bottom, buffer.get(), 0, 0, SRCCOPY);
    SelectObject(buffer.get(), previous);
  }
  EndPaint(container_window, &paint);
}

void FormWindow::PaintContent(HDC target, Control& container, const RECT& client) {
  if (ControlPeer* panel = &container == form_.get() ? nullptr : PeerOf(container)) {
    panel->DrawBackground(target, client);
  } else {
    FillColor(target, client, form_->BackColor);
    if (const Picture* picture = form_->Picture.get().get()) DrawPictureTo(target, *picture, client);
  }
  for (Control* control : form_->StackingOrder()) {
    if (control->Container() != &container || !control->Visible) continue;
    ControlPeer* peer = PeerOf(*control);
    if (peer && !peer->window()) peer->Draw(target, peer->Area());
  }
}

void FormWindow::PaintBehind(HDC target, const ControlPeer& peer) {
  const HWND container_window = ContainerWindow(peer.control());
  POINT place{};
  MapWindowPoints(peer.window(), container_window, &place, 1);
  RECT client{};
  GetClientRect(container_window, &client);
  POINT before{};
  OffsetViewportOrgEx(target, -place.x, -place.y, &before);
  PaintContent(target, *peer.control().Container(), client);
  SetViewportOrgEx(target, before.x, before.y, nullptr);
}

}  // namespace kestrun
