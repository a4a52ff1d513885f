// The peers of the control kinds, and the table that finds the one for a control.
#include <algorithm>
#include <array>
#include <string_view>

#include "base/text.h"
#include "desktop/win32/system/wide_text.h"
#include "desktop/win32/window/control_peer.h"
#include "desktop/win32/window/panel_peer.h"
#include "desktop/win32/window/user_control_peer.h"
#include "forms/check_box.h"
#include "forms/command_button.h"
#include "forms/composite_control.h"
#include "forms/file_list_box.h"
#include "forms/frame.h"
#include "forms/image.h"
#include "forms/label.h"
#include "forms/list_box.h"
#include "forms/option_button.h"
#include "forms/picture_box.h"
#include "forms/text_box.h"
#include "forms/user_control.h"
#include "platform/platform.h"

namespace kestrun {
namespace {

// The system control's own text, read whole.
std::wstring ReadWindowText(HWND window) {
  std::wstring text(static_cast<size_t>(GetWindowTextLengthW(window)) + 1, L'\0');
  text.resize(static_cast<size_t>(GetWindowTextW(window, text.data(), static_cast<int>(text.size()))));
  return text;
}

class TextBoxPeer final : public WindowedPeer {
 public:
  using WindowedPeer::WindowedPeer;

  void Create() override {
    const TextBox& box = Box();
    DWORD style = WS_TABSTOP;
    style |= box.MultiLine ? ES_MULTILINE | ES_WANTRETURN : 0;
    style |= (!box.MultiLine || (box.ScrollBars & 1) != 0) ? ES_AUTOHSCROLL : 0;
    style |= box.MultiLine ? ES_AUTOVSCROLL : 0;
    style |= (box.ScrollBars & 1) != 0 ? WS_HSCROLL : 0;
    style |= (box.ScrollBars & 2) != 0 ? WS_VSCROLL : 0;
    style |= box.Alignment == 1 ? ES_RIGHT : box.Alignment == 2 ? ES_CENTER : 0;
    style |= box.Locked ? ES_READONLY : 0;
    style |= box.PasswordChar->empty() ? 0 : ES_PASSWORD;
    CreateWindowOf(L"EDIT", ToWideLines(box.Text.get()), style, box.BorderStyle == 0 ? 0 : WS_EX_CLIENTEDGE);
    SendMessageW(window(), EM_LIMITTEXT, static_cast<WPARAM>(box.MaxLength.get()), 0);
    if (!box.PasswordChar->empty()) {
      SendMessageW(window(), EM_SETPASSWORDCHAR, static_cast<WPARAM>(ToWide(box.PasswordChar.get())[0]), 0);
    }
  }

  void Update(PropertyId property) override {
    switch (property) {
      case PropertyId::kText:
        if (ReadWindowText(window()) != ToWideLines(Box().Text.get())) {
          SetWindowTextW(window(), ToWideLines(Box().Text.get()).c_str());
        }
        break;
      case PropertyId::kLocked: SendMessageW(window(), EM_SETREADONLY, Box().Locked, 0); break;
      case PropertyId::kMaxLength:
        SendMessageW(window(), EM_LIMITTEXT, static_cast<WPARAM>(Box().MaxLength.get()), 0);
        break;
      case PropertyId::kSelection:
        SendMessageW(window(), EM_SETSEL, static_cast<WPARAM>(Box().SelStart.get()), Box().SelStart + Box().SelLength);
        break;
      default: WindowedPeer::Update(property);
    }
  }

  void Notify(int code) override {
    if (code == EN_CHANGE) TakeText();
  }

 protected:
  bool HandleMessage(UINT message, WPARAM first, LPARAM second, LRESULT& result) override {
    if (message == WM_KILLFOCUS || message == WM_KEYUP || message == WM_LBUTTONUP) TakeSelection();
    return WindowedPeer::HandleMessage(message, first, second, result);
  }

 private:
  [[nodiscard]] TextBox& Box() const { return static_cast<TextBox&>(control()); }

  void TakeText() {
    TakeSelection();
    std::string text = FromWide(ReadWindowText(window()));
    Dispatch([&] { Box().Text = std::move(text); });
  }

  void TakeSelection() {
    DWORD from = 0;
    DWORD to = 0;
    SendMessageW(window(), EM_GETSEL, reinterpret_cast<WPARAM>(&from), reinterpret_cast<LPARAM>(&to));
    Box().SelStart.StoreQuietly(static_cast<int>(from));
    Box().SelLength.StoreQuietly(static_cast<int>(to - from));
  }
};

// Buttons of all kinds: a caption, and a press that the model carries out.
template <class Button>
class ButtonPeer : public WindowedPeer {
 public:
  using WindowedPeer::WindowedPeer;

  void Create() override {
    CreateWindowOf(L"BUTTON", ToWide(Model().Caption.get()), WS_TABSTOP | KindStyle(), 0);
    ShowValue();
  }

  void Update(PropertyId property) override {
    switch (property) {
      case PropertyId::kCaption: SetWindowTextW(window(), ToWide(Model().Caption.get()).c_str()); break;
      case PropertyId::kValue: ShowValue(); break;
      case PropertyId::kDefault: SendMessageW(window(), BM_SETSTYLE, KindStyle(), TRUE); break;
      default: WindowedPeer::Update(property);
    }
  }

  void Notify(int code) override {
    if (code != BN_CLICKED) return;
    const auto keep = form().shared_from_this();
    static_cast<void>(Model().Press());
  }

 protected:
  [[nodiscard]] Button& Model() const { return static_cast<Button&>(control()); }
  [[nodiscard]] virtual DWORD KindStyle() const = 0;
  virtual void ShowValue() {}
};

class CommandButtonPeer final : public ButtonPeer<CommandButton> {
 public:
  using ButtonPeer::ButtonPeer;

 protected:
  [[nodiscard]] DWORD KindStyle() const override {
    return (Model().Default ? BS_DEFPUSHBUTTON : BS_PUSHBUTTON) | BS_MULTILINE;
  }
};

class CheckBoxPeer final : public ButtonPeer<CheckBox> {
 public:
  using ButtonPeer::ButtonPeer;

 protected:
  [[nodiscard]] DWORD KindStyle() const override { return BS_3STATE | (Model().Alignment == 1 ? BS_LEFTTEXT : 0); }
  void ShowValue() override { SendMessageW(window(), BM_SETCHECK, static_cast<WPARAM>(Model().Value.get()), 0); }
};

class OptionButtonPeer final : public ButtonPeer<OptionButton> {
 public:
  using ButtonPeer::ButtonPeer;

 protected:
  [[nodiscard]] DWORD KindStyle() const override { return BS_RADIOBUTTON | (Model().Alignment == 1 ? BS_LEFTTEXT : 0); }
  void ShowValue() override { SendMessageW(window(), BM_SETCHECK, Model().Value ? BST_CHECKED : BST_UNCHECKED, 0); }
};

// Both list kinds: rows, a current row, and for one of them several chosen rows.
template <class List>
class ListPeer : public WindowedPeer {
 public:
  using WindowedPeer::WindowedPeer;

  void Create() override {
    CreateWindowOf(L"LISTBOX", L"", WS_TABSTOP | WS_VSCROLL | LBS_NOTIFY | LBS_NOINTEGRALHEIGHT | ChoiceStyle(),
                   WS_EX_CLIENTEDGE);
    Fill();
  }

  void Update(PropertyId property) override {
    switch (property) {
      case PropertyId::kListIndex:
      case PropertyId::kSelection: ShowChoice(); break;
      case PropertyId::kPattern: ListChanged(); break;
      case PropertyId::kVisible:
        if (stale_) Fill();
        WindowedPeer::Update(property);
        break;
      default: WindowedPeer::Update(property);
    }
  }

  // Rows often change many at a time: the system's list is filled once, in the next pass of the message loop. A list
  // that nobody sees is filled when it is shown.
  void ListChanged() override {
    if (stale_) return;
    stale_ = true;
    platform().clock().Post(
        [keep = std::weak_ptr<FormWindow>(form().shared_from_this()), control = Ref<Control>(&control())] {
          const auto form = keep.lock();
          ControlPeer* peer = form && form->is_open() ? form->PeerOf(*control) : nullptr;
          if (peer) static_cast<ListPeer*>(peer)->Fill();
        });
  }

  void Notify(int code) override {
    if (code == LBN_DBLCLK) Dispatch([&] { control().DblClick(); });
    if (code == LBN_SELCHANGE) TakeChoice();
  }

  [[nodiscard]] POINT MenuPlace() const override {
    RECT row{};
    const auto at = static_cast<WPARAM>(SendMessageW(window(), LB_GETCURSEL, 0, 0));
    const bool has_row = SendMessageW(window(), LB_GETITEMRECT, at, reinterpret_cast<LPARAM>(&row)) != LB_ERR;
    return has_row ? OnScreen({row.left, row.bottom}) : WindowedPeer::MenuPlace();
  }

 protected:
  [[nodiscard]] List& Model() const { return static_cast<List&>(control()); }
  [[nodiscard]] virtual DWORD ChoiceStyle() const { return 0; }
  virtual void ShowChoice() { SendMessageW(window(), LB_SETCURSEL, static_cast<WPARAM>(Model().ListIndex.get()), 0); }
  virtual void TakeMarks() {}

 private:
  void Fill() {
    stale_ = !Model().Visible;
    if (stale_) return;
    const auto top = SendMessageW(window(), LB_GETTOPINDEX, 0, 0);
    SendMessageW(window(), WM_SETREDRAW, FALSE, 0);
    SendMessageW(window(), LB_RESETCONTENT, 0, 0);
    const int count = Model().ListCount();
    for (int row = 0; row < count; ++row) {
      SendMessageW(window(), LB_ADDSTRING, 0, reinterpret_cast<LPARAM>(ToWide(Model().List(row)).c_str()));
    }
    SendMessageW(window(), LB_SETTOPINDEX, static_cast<WPARAM>(top), 0);
    ShowChoice();
    SendMessageW(window(), WM_SETREDRAW, TRUE, 0);
    Repaint();
  }

  void TakeChoice() {
    const int row = static_cast<int>(SendMessageW(window(), LB_GETCURSEL, 0, 0));
    Dispatch([&] {
      TakeMarks();
      if (Model().ListIndex == row) {
        control().Click();
      } else {
        Model().ListIndex = row;
      }
    });
  }

  bool stale_ = false;
};

class PlainListPeer final : public ListPeer<ListBox> {
 public:
  using ListPeer::ListPeer;

  void Create() override {
    ListPeer::Create();
    ShowExtent();
  }

  void Update(PropertyId property) override {
    if (property == PropertyId::kScrollBars) {
      ShowExtent();
    } else {
      ListPeer::Update(property);
    }
  }

 protected:
  // The scroll bar below shows only while the extent is wider than the list.
  [[nodiscard]] DWORD ChoiceStyle() const override {
    return WS_HSCROLL | (Model().MultiSelect == 1 ? LBS_MULTIPLESEL : Model().MultiSelect == 2 ? LBS_EXTENDEDSEL : 0);
  }
  void ShowChoice() override {
    if (Model().MultiSelect == 0) {
      ListPeer::ShowChoice();
      return;
    }
    for (int row = 0; row < Model().ListCount(); ++row) SendMessageW(window(), LB_SETSEL, Model().Selected(row), row);
  }
  void ShowExtent() {
    SendMessageW(window(), LB_SETHORIZONTALEXTENT, static_cast<WPARAM>(Model().HorizontalExtent.get()), 0);
  }
  void TakeMarks() override {
    if (Model().MultiSelect == 0) return;
    for (int row = 0; row < Model().ListCount(); ++row) {
      const bool marked = SendMessageW(window(), LB_GETSEL, static_cast<WPARAM>(row), 0) > 0;
      if (marked != Model().Selected(row)) Model().SetSelected(row, marked);
    }
  }
};

class FileListPeer final : public ListPeer<FileListBox> {
 public:
  using ListPeer::ListPeer;
};

void DrawLabel(FormWindow& form, const Label& label, HDC target, const RECT& area) {
  if (label.BackStyle == 1) FillColor(target, area, label.BackColor);
  RECT text = area;
  if (label.BorderStyle == 1) DrawEdge(target, &text, EDGE_SUNKEN, BF_RECT | BF_ADJUST);
  const HGDIOBJ previous = SelectObject(target, form.FontFor(label.Font));
  SetBkMode(target, TRANSPARENT);
  SetTextColor(target, label.Enabled ? ToColorRef(label.ForeColor) : GetSysColor(COLOR_GRAYTEXT));
  const UINT aligned = label.Alignment == 1 ? DT_RIGHT : label.Alignment == 2 ? DT_CENTER : DT_LEFT;
  const UINT lines = label.AutoSize && !label.WordWrap ? 0 : DT_WORDBREAK;
  const UINT signs = label.UseMnemonic ? 0 : DT_NOPREFIX;
  DrawTextW(target, ToWide(label.Caption.get()).c_str(), -1, &text, aligned | lines | signs);
  SelectObject(target, previous);
}

class LabelPeer final : public DrawnPeer {
 public:
  using DrawnPeer::DrawnPeer;

  void Draw(HDC target, const RECT& area) override { DrawLabel(form(), static_cast<Label&>(control()), target, area); }
};

// A label that answers a click: a system button underneath, for the keyboard and for screen readers, that looks like
// the label, with the focus rectangle around it while it has the focus.
class LinkPeer final : public WindowedPeer {
 public:
  using WindowedPeer::WindowedPeer;

  void Create() override {
    CreateWindowOf(L"BUTTON", ToWide(Model().Caption.get()), WS_TABSTOP | BS_OWNERDRAW | BS_NOTIFY, 0);
  }

  void Update(PropertyId property) override {
    WindowedPeer::Update(property);
    if (property == PropertyId::kCaption) SetWindowTextW(window(), ToWide(Model().Caption.get()).c_str());
    Repaint();
  }

  void Notify(int code) override {
    if (code == BN_CLICKED) Dispatch([&] { control().Click(); });
    if (code == BN_DBLCLK) Dispatch([&] { control().DblClick(); });
  }

  void DrawBackground(HDC target, const RECT& area) override {
    if (Model().BackStyle == 0) form().PaintBehind(target, *this);
    DrawLabel(form(), Model(), target, area);
    if (GetFocus() == window()) DrawFocusRect(target, &area);
  }

 protected:
  bool HandleMessage(UINT message, WPARAM first, LPARAM second, LRESULT& result) override {
    const bool done = WindowedPeer::HandleMessage(message, first, second, result);
    if (message == WM_SETFOCUS || message == WM_KILLFOCUS || message == WM_ENABLE) Repaint();
    if (message != WM_PAINT && message != WM_ERASEBKGND) return done;
    return form().HandleContainerMessage(window(), control(), message, first, second, result);
  }

 private:
  [[nodiscard]] Label& Model() const { return static_cast<Label&>(control()); }
};

class ImagePeer final : public DrawnPeer {
 public:
  using DrawnPeer::DrawnPeer;

  void Draw(HDC target, const RECT& area) override {
    const auto& image = static_cast<Image&>(control());
    RECT inner = area;
    if (image.BorderStyle == 1) DrawEdge(target, &inner, EDGE_SUNKEN, BF_RECT | BF_ADJUST);
    const Picture* picture = image.Picture.get().get();
    if (!picture) return;
    if (!image.Stretch) {
      inner.right = inner.left + MulDiv(picture->width_pixels(), form().scale().dpi(), 96);
      inner.bottom = inner.top + MulDiv(picture->height_pixels(), form().scale().dpi(), 96);
    }
    DrawPictureTo(target, *picture, inner);
  }
};

using PeerMaker = std::unique_ptr<ControlPeer> (*)(FormWindow& form, Control& control);

template <class Peer>
std::unique_ptr<ControlPeer> Make(FormWindow& form, Control& control) {
  return std::make_unique<Peer>(form, control);
}

std::unique_ptr<ControlPeer> MakeLabelPeer(FormWindow& form, Control& control) {
  return control.TakesFocus() ? Make<LinkPeer>(form, control) : Make<LabelPeer>(form, control);
}

struct PeerRow {
  std::string_view type_name;
  PeerMaker make;
};

constexpr std::array kPeers{
    PeerRow{"TextBox", &Make<TextBoxPeer>},   PeerRow{"CommandButton", &Make<CommandButtonPeer>},
    PeerRow{"CheckBox", &Make<CheckBoxPeer>}, PeerRow{"OptionButton", &Make<OptionButtonPeer>},
    PeerRow{"ListBox", &Make<PlainListPeer>}, PeerRow{"FileListBox", &Make<FileListPeer>},
    PeerRow{"Label", &MakeLabelPeer},         PeerRow{"Image", &Make<ImagePeer>},
    PeerRow{"Frame", &Make<FramePeer>},       PeerRow{"PictureBox", &Make<PictureBoxPeer>},
};

}  // namespace

std::unique_ptr<ControlPeer> MakeControlPeer(FormWindow& form, Control& control) {
  if (!control.HasBody()) return nullptr;
  const std::string type = control.TypeName();
  const auto* row = std::find_if(kPeers.begin(), kPeers.end(),
                                 [&type](const PeerRow& candidate) { return candidate.type_name == type; });
  if (row != kPeers.end()) return row->make(form, control);
  if (dynamic_cast<UserControl*>(&control)) return std::make_unique<UserControlPeer>(form, control);
  if (dynamic_cast<CompositeControl*>(&control)) return std::make_unique<CompositePeer>(form, control);
  return nullptr;
}

}  // namespace kestrun
