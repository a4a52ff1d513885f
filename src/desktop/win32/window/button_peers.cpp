// Push buttons, check boxes and option buttons on the system's own control.
#include <algorithm>
#include <array>

#include "desktop/win32/system/wide_text.h"
#include "desktop/win32/window/button_face.h"
#include "desktop/win32/window/control_peer.h"
#include "desktop/win32/window/hover.h"
#include "desktop/win32/window/peer_kinds.h"
#include "forms/check_box.h"
#include "forms/command_button.h"
#include "forms/option_button.h"

namespace kestrun {
namespace {

// A caption, and a press that the model carries out.
class ButtonPeer : public WindowedPeer {
 public:
  using WindowedPeer::WindowedPeer;

  void Create() override {
    CreateWindowOf(L"BUTTON", ToWide(Model().Caption.get()), WS_TABSTOP | KindStyle());
    ShowValue();
  }

  void Update(PropertyId property) override {
    WindowedPeer::Update(property);
    switch (property) {
      case PropertyId::kCaption: SetWindowTextW(window(), ToWide(Model().Caption.get()).c_str()); break;
      case PropertyId::kValue:
        ShowValue();
        if (IsOwnDrawn()) Repaint();
        break;
      case PropertyId::kDefault:
      case PropertyId::kStyle:
      case PropertyId::kAlignment:
      case PropertyId::kBackColor:
      case PropertyId::kForeColor:
        SendMessageW(window(), BM_SETSTYLE, KindStyle(), TRUE);
        ShowValue();
        break;
      case PropertyId::kPicture:
      case PropertyId::kAppearance: Repaint(); break;
      default: break;
    }
  }

  void Notify(int code) override {
    // The second press of a double click comes under its own name where the system does not draw the button.
    if (code != BN_CLICKED && !(code == BN_DBLCLK && IsOwnDrawn())) return;
    const auto keep = form().shared_from_this();
    static_cast<void>(Model().Press());
  }

  bool DrawItem(const DRAWITEMSTRUCT& item) override {
    ButtonState state;
    state.is_down = (item.itemState & ODS_SELECTED) != 0 || Model().StaysDown();
    state.has_focus = (item.itemState & ODS_FOCUS) != 0;
    state.is_default = IsDefault();
    DrawButtonFace(form(), Model(), item.hDC, item.rcItem, state);
    return true;
  }

 protected:
  [[nodiscard]] Button& Model() const { return static_cast<Button&>(control()); }
  [[nodiscard]] bool IsGraphical() const { return Model().Style == 1; }
  [[nodiscard]] virtual bool IsOwnDrawn() const { return IsGraphical(); }
  [[nodiscard]] virtual bool IsDefault() const { return false; }
  [[nodiscard]] virtual DWORD SystemStyle() const = 0;
  [[nodiscard]] DWORD KindStyle() const { return IsOwnDrawn() ? BS_OWNERDRAW : SystemStyle(); }
  virtual void ShowValue() {}
};

class CommandButtonPeer final : public ButtonPeer {
 public:
  using ButtonPeer::ButtonPeer;

 protected:
  // The system gives push buttons its own colours, whatever they ask for.
  [[nodiscard]] bool IsOwnDrawn() const override { return IsGraphical() || HasOwnColors(control()); }
  [[nodiscard]] bool IsDefault() const override { return static_cast<CommandButton&>(control()).Default; }
  [[nodiscard]] DWORD SystemStyle() const override {
    return (IsDefault() ? BS_DEFPUSHBUTTON : BS_PUSHBUTTON) | BS_MULTILINE;
  }
};

// A mark beside the caption.
class MarkedButtonPeer : public ButtonPeer {
 public:
  using ButtonPeer::ButtonPeer;

  void DrawBackground(HDC target, const RECT& area) override {
    const auto state = static_cast<DWORD>(SendMessageW(window(), BM_GETSTATE, 0, 0));
    const auto interface_state = static_cast<DWORD>(SendMessageW(window(), WM_QUERYUISTATE, 0, 0));
    const MarkedButtonFace face{
        .button = Model(),
        .draw_mark = MarkDrawing(),
        .is_mark_right = IsMarkRight(),
        .state = {Model().Enabled, hover_.is_hot(), (state & BST_PUSHED) != 0},
        .has_focus = GetFocus() == window(),
        .shows_access_keys = (interface_state & UISF_HIDEACCEL) == 0,
    };
    DrawMarkedButton(form(), face, target, area);
  }

 protected:
  [[nodiscard]] virtual std::function<void(HDC, const RECT&, int, const PartColors&)> MarkDrawing() const = 0;
  [[nodiscard]] virtual bool IsMarkRight() const = 0;
  [[nodiscard]] DWORD MarkPlace() const { return IsMarkRight() ? BS_LEFTTEXT : 0; }

  // The system's drawing, with a theme or without, gives the mark the system's colours.
  bool HandleMessage(UINT message, WPARAM first, LPARAM second, LRESULT& result) override {
    if (DrawsItself()) {
      if (hover_.Note(window(), message)) Repaint();
      if (form().HandlePainting(*this, message, first, result)) return true;
    }
    return ButtonPeer::HandleMessage(message, first, second, result);
  }

  void AfterMessage(UINT message) override {
    static constexpr std::array<UINT, 7> kDrawnAtOnce{BM_SETSTATE,  BM_SETCHECK, WM_SETTEXT,      WM_SETFOCUS,
                                                      WM_KILLFOCUS, WM_ENABLE,   WM_UPDATEUISTATE};
    ButtonPeer::AfterMessage(message);
    if (!DrawsItself() || std::ranges::find(kDrawnAtOnce, message) == kDrawnAtOnce.end()) return;
    Repaint();
    UpdateWindow(window());
  }

 private:
  [[nodiscard]] bool DrawsItself() const { return !IsGraphical() && HasOwnColors(control()); }

  Hover hover_;
};

class CheckBoxPeer final : public MarkedButtonPeer {
 public:
  using MarkedButtonPeer::MarkedButtonPeer;

 protected:
  [[nodiscard]] std::function<void(HDC, const RECT&, int, const PartColors&)> MarkDrawing() const override {
    // By the value.
    static constexpr std::array<CheckMark, 3> kMarks{CheckMark::kNone, CheckMark::kTick, CheckMark::kSquare};
    const CheckMark mark = kMarks[static_cast<size_t>(std::clamp(Box().Value.get(), 0, 2))];
    return [mark](HDC target, const RECT& area, int thickness, const PartColors& colors) {
      DrawCheckMark(target, area, thickness, mark, colors);
    };
  }
  [[nodiscard]] bool IsMarkRight() const override { return Box().Alignment == 1; }
  [[nodiscard]] DWORD SystemStyle() const override { return BS_3STATE | MarkPlace(); }
  void ShowValue() override { SendMessageW(window(), BM_SETCHECK, static_cast<WPARAM>(Box().Value.get()), 0); }

 private:
  [[nodiscard]] CheckBox& Box() const { return static_cast<CheckBox&>(control()); }
};

class OptionButtonPeer final : public MarkedButtonPeer {
 public:
  using MarkedButtonPeer::MarkedButtonPeer;

 protected:
  [[nodiscard]] std::function<void(HDC, const RECT&, int, const PartColors&)> MarkDrawing() const override {
    return [is_chosen = Option().Value.get()](HDC target, const RECT& area, int thickness, const PartColors& colors) {
      DrawOptionMark(target, area, thickness, is_chosen, colors);
    };
  }
  [[nodiscard]] bool IsMarkRight() const override { return Option().Alignment == 1; }
  [[nodiscard]] DWORD SystemStyle() const override { return BS_RADIOBUTTON | MarkPlace(); }
  void ShowValue() override { SendMessageW(window(), BM_SETCHECK, Option().Value ? BST_CHECKED : BST_UNCHECKED, 0); }

 private:
  [[nodiscard]] OptionButton& Option() const { return static_cast<OptionButton&>(control()); }
};

}  // namespace

std::unique_ptr<ControlPeer> MakeCommandButtonPeer(FormWindow& form, Control& control) {
  return MakePeerOfKind<CommandButtonPeer>(form, control);
}

std::unique_ptr<ControlPeer> MakeCheckBoxPeer(FormWindow& form, Control& control) {
  return MakePeerOfKind<CheckBoxPeer>(form, control);
}

std::unique_ptr<ControlPeer> MakeOptionButtonPeer(FormWindow& form, Control& control) {
  return MakePeerOfKind<OptionButtonPeer>(form, control);
}

}  // namespace kestrun
