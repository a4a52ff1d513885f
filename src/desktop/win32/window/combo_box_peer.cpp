// Combo boxes on the system's own control.
#include <algorithm>
#include <array>

#include "desktop/win32/system/wide_text.h"
#include "desktop/win32/window/button_face.h"
#include "desktop/win32/window/combo_face.h"
#include "desktop/win32/window/control_peer.h"
#include "desktop/win32/window/hover.h"
#include "desktop/win32/window/peer_kinds.h"
#include "forms/combo_box.h"

namespace kestrun {
namespace {

constexpr int kShownRows = 8;  // of a list that dropped down

class ComboBoxPeer final : public WindowedPeer {
 public:
  using WindowedPeer::WindowedPeer;

  void Create() override {
    // By the style's number.
    static constexpr DWORD kStyles[]{CBS_DROPDOWN, CBS_SIMPLE, CBS_DROPDOWNLIST};
    const int style = Model().Style;
    CreateWindowOf(L"COMBOBOX", L"",
                   WS_TABSTOP | WS_VSCROLL | CBS_AUTOHSCROLL | CBS_NOINTEGRALHEIGHT |
                       kStyles[style >= 0 && style <= 2 ? style : 0]);
    WatchComboList(window());
    KeepPartsClear();
    ShowHeight();
    Fill();
  }

  void Update(PropertyId property) override {
    switch (property) {
      case PropertyId::kStyle: CreateAgain(); break;
      case PropertyId::kListIndex:
      case PropertyId::kText: ShowText(); break;
      case PropertyId::kLocked: ShowLock(); break;
      case PropertyId::kSelection: ShowSelection(); break;
      case PropertyId::kVisible:
        WindowedPeer::Update(property);
        if (stale_) Fill();
        break;
      case PropertyId::kFont:
      case PropertyId::kHeight:
        WindowedPeer::Update(property);
        ShowHeight();
        break;
      case PropertyId::kBackColor:
      case PropertyId::kForeColor:
        KeepPartsClear();
        RedrawWindow(window(), nullptr, nullptr, RDW_INVALIDATE | RDW_ERASE | RDW_FRAME | RDW_ALLCHILDREN);
        break;
      default: WindowedPeer::Update(property);
    }
  }

  void DrawBackground(HDC target, const RECT&) override {
    const HWND focus = GetFocus();
    const bool is_open = SendMessageW(window(), CB_GETDROPPEDSTATE, 0, 0) != 0;
    const bool is_simple = Model().Style == static_cast<int>(ComboStyle::kSimple);
    DrawComboFace(form(), Model(), window(), target,
                  {hover_.is_hot(), focus == window() || IsChild(window(), focus), is_open && !is_simple});
  }

  // Rows often change many at a time: they are filled in once, in the next pass of the message loop.
  void ListChanged() override {
    if (stale_) return;
    stale_ = true;
    RunLater([](ControlPeer& peer) { static_cast<ComboBoxPeer&>(peer).Fill(); });
  }

  void Notify(int code) override {
    switch (code) {
      case CBN_SELCHANGE: TakeChoice(); break;
      case CBN_EDITCHANGE: TakeText(); break;
      case CBN_DROPDOWN: Dispatch([this] { Model().DropDown(); }); break;
      case CBN_DBLCLK: Dispatch([this] { control().DblClick(); }); break;
      // The focus is in a window that belongs to the system's control.
      case CBN_SETFOCUS:
        form().form().SetActiveControl(&control());
        Dispatch([this] { control().GotFocus(); });
        break;
      case CBN_KILLFOCUS:
        TakeSelection();
        Dispatch([this] { control().LostFocus(); });
        break;
      default: break;
    }
  }

  // An open list closes on Enter and Esc; the form's buttons are not pressed then.
  [[nodiscard]] bool KeepsKey(int key) const override {
    return (key == VK_RETURN || key == VK_ESCAPE) && SendMessageW(window(), CB_GETDROPPEDSTATE, 0, 0) != 0;
  }

 protected:
  [[nodiscard]] bool HasOwnName() const override { return false; }
  bool HandleMessage(UINT message, WPARAM first, LPARAM second, LRESULT& result) override {
    if (DrawsItself()) {
      if (hover_.Note(window(), message)) Repaint();
      if (form().HandlePainting(*this, message, first, result)) return true;
    }
    switch (message) {
      case WM_SETFOCUS:
      case WM_KILLFOCUS: return false;
      case WM_CTLCOLOREDIT:
      case WM_CTLCOLORLISTBOX:
      case WM_CTLCOLORSTATIC:
        result = reinterpret_cast<LRESULT>(PrepareColors(reinterpret_cast<HDC>(first)));
        return true;
      default: return WindowedPeer::HandleMessage(message, first, second, result);
    }
  }
  void AfterMessage(UINT message) override {
    // What the system draws at once, by the control's own messages and by its edit box's and its list's.
    static constexpr std::array<UINT, 10> kDrawnAtOnce{WM_SETFOCUS,  WM_KILLFOCUS,   WM_ENABLE,    CB_SHOWDROPDOWN,
                                                       CB_SETCURSEL, WM_LBUTTONDOWN, WM_LBUTTONUP, WM_CAPTURECHANGED,
                                                       WM_KEYDOWN,   WM_COMMAND};
    WindowedPeer::AfterMessage(message);
    if (!DrawsItself() || std::ranges::find(kDrawnAtOnce, message) == kDrawnAtOnce.end()) return;
    InvalidateRect(window(), nullptr, FALSE);
    UpdateWindow(window());
  }

  // The system counts the list that drops down as a part of the window.
  [[nodiscard]] RECT WindowArea() const override {
    RECT area = Area();
    if (Model().Style != static_cast<int>(ComboStyle::kSimple)) area.bottom += kShownRows * (area.bottom - area.top);
    return area;
  }

 private:
  [[nodiscard]] ComboBox& Model() const { return static_cast<ComboBox&>(control()); }
  [[nodiscard]] bool DrawsItself() const { return HasOwnColors(control(), kFieldColors); }

  // What the program draws leaves the edit box and the list alone.
  void KeepPartsClear() {
    const LONG_PTR style = GetWindowLongPtrW(window(), GWL_STYLE);
    constexpr LONG_PTR kClear = WS_CLIPCHILDREN;
    SetWindowLongPtrW(window(), GWL_STYLE, DrawsItself() ? style | kClear : style & ~kClear);
  }

  // The closed box is as high as the model says.
  void ShowHeight() {
    constexpr int kEdges = 6;
    if (Model().Style == static_cast<int>(ComboStyle::kSimple)) return;
    const RECT area = Area();
    const auto height = static_cast<LPARAM>(area.bottom - area.top - kEdges);
    if (height > 0) SendMessageW(window(), CB_SETITEMHEIGHT, static_cast<WPARAM>(-1), height);
  }

  void Fill() {
    stale_ = !Model().Visible;
    if (stale_) return;
    SendMessageW(window(), WM_SETREDRAW, FALSE, 0);
    SendMessageW(window(), CB_RESETCONTENT, 0, 0);
    for (int row = 0; row < Model().ListCount(); ++row) {
      SendMessageW(window(), CB_ADDSTRING, 0, reinterpret_cast<LPARAM>(ToWide(Model().List(row)).c_str()));
    }
    SendMessageW(window(), WM_SETREDRAW, TRUE, 0);
    ShowText();
    Repaint();
  }

  // The system empties the text when no row is the current one: what was typed gets its text and its insertion point
  // back.
  void ShowText() {
    const std::wstring text = ToWide(Model().Text.get());
    const bool is_shown = ReadWindowText(window()) == text;
    const auto selection = static_cast<LPARAM>(SendMessageW(window(), CB_GETEDITSEL, 0, 0));
    SendMessageW(window(), CB_SETCURSEL, static_cast<WPARAM>(Model().ListIndex.get()), 0);
    if (Model().CanBeTyped() && ReadWindowText(window()) != text) SetWindowTextW(window(), text.c_str());
    if (Model().CanBeTyped() && is_shown) SendMessageW(window(), CB_SETEDITSEL, 0, selection);
    ShowLock();
  }

  void ShowLock() {
    const HWND edit = GetWindow(window(), GW_CHILD);
    if (Model().CanBeTyped() && edit) SendMessageW(edit, EM_SETREADONLY, Model().Locked, 0);
  }

  void ShowSelection() {
    const int from = Model().SelStart;
    SendMessageW(window(), CB_SETEDITSEL, 0, MAKELPARAM(from, from + Model().SelLength));
  }

  void TakeSelection() {
    if (!Model().CanBeTyped()) return;
    DWORD from = 0;
    DWORD to = 0;
    SendMessageW(window(), CB_GETEDITSEL, reinterpret_cast<WPARAM>(&from), reinterpret_cast<LPARAM>(&to));
    Model().SelStart.StoreQuietly(static_cast<int>(from));
    Model().SelLength.StoreQuietly(static_cast<int>(to - from));
  }

  void TakeChoice() {
    const int row = static_cast<int>(SendMessageW(window(), CB_GETCURSEL, 0, 0));
    Dispatch([&] {
      if (Model().ListIndex == row) {
        control().Click();
      } else {
        Model().ListIndex = row;
      }
    });
  }

  void TakeText() {
    TakeSelection();
    std::string text = FromWide(ReadWindowText(window()));
    Dispatch([&] { Model().Text = std::move(text); });
  }

  Hover hover_;
  bool stale_ = false;
};

}  // namespace

std::unique_ptr<ControlPeer> MakeComboBoxPeer(FormWindow& form, Control& control) {
  return MakePeerOfKind<ComboBoxPeer>(form, control);
}

}  // namespace kestrun
