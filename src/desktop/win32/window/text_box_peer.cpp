// Text boxes on the system's own control.
#include "desktop/win32/system/wide_text.h"
#include "desktop/win32/window/control_peer.h"
#include "desktop/win32/window/peer_kinds.h"
#include "forms/text_box.h"

namespace kestrun {
namespace {

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
    CreateWindowOf(L"EDIT", ToWideLines(box.Text.get()), style);
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
      case PropertyId::kAlignment:
      case PropertyId::kMultiLine:
      case PropertyId::kScrollBars:
      case PropertyId::kPasswordChar: CreateAgain(); break;
      default: WindowedPeer::Update(property);
    }
  }

  void Notify(int code) override {
    if (code == EN_CHANGE) TakeText();
  }

 protected:
  [[nodiscard]] bool HasOwnName() const override { return false; }
  bool HandleMessage(UINT message, WPARAM first, LPARAM second, LRESULT& result) override {
    if (message == WM_KILLFOCUS || message == WM_KEYUP || message == WM_LBUTTONUP) TakeSelection();
    return WindowedPeer::HandleMessage(message, first, second, result);
  }
  [[nodiscard]] EdgeKind Edge() const override { return EdgeOf(Box().BorderStyle, Box().Appearance); }

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

}  // namespace

std::unique_ptr<ControlPeer> MakeTextBoxPeer(FormWindow& form, Control& control) {
  return MakePeerOfKind<TextBoxPeer>(form, control);
}

}  // namespace kestrun
