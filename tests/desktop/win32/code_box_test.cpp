// A text box of many lines as an editor of code: what is typed by the program can be taken back like what the user
// types.
#include "desktop/win32/window_fixture.h"
#include "forms/text_box.h"

namespace kestrun {
namespace {

class frmcode final : public Form {
 public:
  frmcode() : Form("frmcode") {
    SetClientSize(4500, 3000);
    code.MultiLine = true;
    code.ScrollBars = 3;
    code.Move(0, 0, 4500, 3000);
    code.Text = "first line\r\nsecond line";
  }
  TextBox& code = Add<TextBox>("code");
};
const WindowRegistration registration("frmcode", [] { return MakeRef<frmcode>(); });

class CodeBoxTest : public RealWindowTest {
 protected:
  CodeBoxTest() : code(static_cast<frmcode&>(WindowByName("frmcode")).code) {
    code.form()->Show();
    Pump();
    ::SetFocus(Handle());
  }
  [[nodiscard]] HWND Handle() const { return HandleOf(code); }
  void PressKey(WPARAM key) {
    PostMessageW(Handle(), WM_KEYDOWN, key, 1);
    Pump();
  }
  void Type(const wchar_t* letters) {
    for (; *letters; ++letters) SendMessageW(Handle(), WM_CHAR, static_cast<WPARAM>(*letters), 1);
  }

  TextBox& code;
};

TEST_F(CodeBoxTest, TextThatReplacesTheSelectionCanBeTakenBack) {
  code.SelStart = 12;
  code.SetSelText("    ");
  EXPECT_EQ(TextOf(Handle()), L"first line\r\n    second line");
  EXPECT_EQ(code.SelStart, 16);
  SendMessageW(Handle(), EM_UNDO, 0, 0);
  EXPECT_EQ(TextOf(Handle()), L"first line\r\nsecond line");
  EXPECT_EQ(code.Text.get(), "first line\r\nsecond line");
}

TEST_F(CodeBoxTest, AHandlerOfAKeyKnowsWhereTheKeyBeforeHasLed) {
  code.KeyDown = [this](int& key_code, int) {
    if (key_code != VK_TAB) return;
    code.SetSelText("    ");
    key_code = 0;
  };
  PressKey(VK_DOWN);
  PressKey(VK_TAB);
  Type(L"x");
  EXPECT_EQ(code.Text.get(), "first line\r\n    xsecond line");
}

TEST_F(CodeBoxTest, AnotherTextCannotBeTakenBackIntoIt) {
  SendMessageW(Handle(), EM_SETSEL, 0, 0);
  Type(L"typed ");
  code.Text = "another entry";
  SendMessageW(Handle(), EM_UNDO, 0, 0);
  EXPECT_EQ(code.Text.get(), "another entry");
}

TEST_F(CodeBoxTest, AMegabyteIsTypedIntoAtItsEnd) {
  std::string text;
  while (text.size() < 1 << 20) text += "a line of a large module\r\n";
  code.Text = text;
  const auto end = static_cast<WPARAM>(text.size());
  SendMessageW(Handle(), EM_SETSEL, end, static_cast<LPARAM>(end));
  Type(L"x");
  EXPECT_EQ(code.Text.get(), text + "x");
}

}  // namespace
}  // namespace kestrun
