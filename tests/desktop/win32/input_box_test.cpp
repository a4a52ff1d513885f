// The box that asks for a line of text, as the system shows it.
#include "desktop/win32/system/wide_text.h"
#include "desktop/win32/window_fixture.h"

namespace kestrun {
namespace {

class InputBoxTest : public RealWindowTest {
 protected:
  // Opens the box, looks at its text box, which has the focus, and closes it.
  void Open(const std::string& preset, const std::function<void(HWND text)>& look) {
    platform.clock().Post([&] {
      const HWND focused = GetFocus();
      look(focused);
      SendMessageW(GetAncestor(focused, GA_ROOT), WM_CLOSE, 0, 0);
    });
    EXPECT_EQ(platform.dialogs().AskText("Enter a new name.", "", preset), std::nullopt);
  }
};

TEST_F(InputBoxTest, ThePresetIsSelectedSoThatTypingReplacesIt) {
  DWORD from = 1;
  DWORD to = 0;
  std::wstring text;
  Open("Oasis é.bms", [&](HWND box) {
    SendMessageW(box, EM_GETSEL, reinterpret_cast<WPARAM>(&from), reinterpret_cast<LPARAM>(&to));
    text = TextOf(box);
  });
  EXPECT_EQ(text, L"Oasis é.bms");
  EXPECT_EQ(from, 0U);
  EXPECT_EQ(to, text.size());
}

}  // namespace
}  // namespace kestrun
