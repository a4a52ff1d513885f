// Text boxes on the system's own control.
#include "base/flag_scope.h"
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
      case PropertyId::kText: ShowText(); break;
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
    if (code == EN_CHANGE && !is_typing_) TakeText();
  }

 protected:
  [[nodiscard]] bool HasOwnName() const override { return false; }
  bool HandleMessage(UINT message, WPARAM first, LPARAM second, LRESULT& result) override {
    if (message == WM_KILLFOCUS || message == WM_KEYUP || message == WM_LBUTTONUP) TakeSelection();
    return WindowedPeer::HandleMessage(message, first, second, result);
  }
  // A handler of the next key may ask where the last one has led.
  void AfterMessage(UINT message) override {
    if (message == WM_KEYDOWN) TakeSelection();
    WindowedPeer::AfterMessage(message);
  }
  [[nodiscard]] EdgeKind Edge() const override { return EdgeOf(Box().BorderStyle, Box().Appearance); }

 private:
  [[nodiscard]] TextBox& Box() const { return static_cast<TextBox&>(control()); }

  // The system's own replacement of a selection keeps what the user did before, and can be taken back itself.
  void ShowText() {
    if (taken_ && *taken_ == Box().Text.get()) return;
    if (const std::string* replacement = Box().Replacement()) {
      const FlagScope typing(is_typing_);
      SendMessageW(window(), EM_REPLACESEL, TRUE, reinterpret_cast<LPARAM>(ToWideLines(*replacement).c_str()));
    }
    const std::wstring text = ToWideLines(Box().Text.get());
    if (ReadWindowText(window()) != text) SetWindowTextW(window(), text.c_str());
  }

  void TakeText() {
    TakeSelection();
    const std::string text = FromWide(ReadWindowText(window()));
    Dispatch([&] {
      taken_ = &text;
      OnFailure([&] { Box().Text = text; }, [this](const RuntimeError&) { taken_ = nullptr; });
      taken_ = nullptr;
    });
  }

  void TakeSelection() {
    DWORD from = 0;
    DWORD to = 0;
    SendMessageW(window(), EM_GETSEL, reinterpret_cast<WPARAM>(&from), reinterpret_cast<LPARAM>(&to));
    Box().SelStart.StoreQuietly(static_cast<int>(from));
    Box().SelLength.StoreQuietly(static_cast<int>(to - from));
  }

  const std::string* taken_ = nullptr;  // what the user typed, while the model takes it
  bool is_typing_ = false;              // the peer changes the text itself
};

}  // namespace

std::unique_ptr<ControlPeer> MakeTextBoxPeer(FormWindow& form, Control& control) {
  return MakePeerOfKind<TextBoxPeer>(form, control);
}

}  // namespace kestrun
