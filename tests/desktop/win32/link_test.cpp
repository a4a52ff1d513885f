// Labels that answer clicks, reached by keys.
#include <gtest/gtest.h>

#include "desktop/win32/system/wide_text.h"
#include "desktop/win32/win32_platform.h"
#include "desktop/win32/window/control_peer.h"
#include "forms/command_button.h"
#include "forms/form.h"
#include "forms/label.h"

namespace kestrun {
namespace {

class LinkTest : public testing::Test {
 protected:
  LinkTest() {
    form->SetClientSize(3000, 1500);
    link.Caption = "View map info";
    link.Move(150, 150, 1500, 240);
    link.Click = [this] { ++clicks; };
    text.Caption = "Tasks";
    text.Move(150, 600, 1500, 240);
    cmdOK.Default = true;
    cmdOK.Move(150, 900, 900, 375);
    cmdOK.Click = [this] { ++presses; };
    form->Show();
    Pump();
  }
  ~LinkTest() override {
    form->Hide();
    Pump();
  }

  FormWindow& window() { return *FormWindow::OpenWindows().back(); }
  HWND HandleOf(Control& control) { return window().PeerOf(control)->window(); }
  void Pump() { desktop.clock().RunPendingEvents(); }
  void PressKey(WPARAM key) {
    PostMessageW(GetFocus(), WM_KEYDOWN, key, 1);
    PostMessageW(GetFocus(), WM_KEYUP, key, 1);
    Pump();
  }

  Win32Platform desktop;
  PlatformInstallation installation{desktop};
  const Ref<Form> form = MakeRef<Form>("links");
  Label& text = form->Add<Label>("text");
  Label& link = form->Add<Label>("link");
  CommandButton& cmdOK = form->Add<CommandButton>("cmdOK");
  int clicks = 0;
  int presses = 0;
};

TEST_F(LinkTest, OnlyALabelThatAnswersClicksHasAWindowForTheKeyboard) {
  EXPECT_EQ(HandleOf(text), nullptr);
  ASSERT_NE(HandleOf(link), nullptr);
  wchar_t name[50] = {};
  GetWindowTextW(HandleOf(link), name, 50);
  EXPECT_EQ(std::wstring(name), L"View map info");
}

TEST_F(LinkTest, TabReachesItAndEnterAndTheSpaceBarClickItAndNotTheDefaultButton) {
  SetFocus(HandleOf(cmdOK));
  PressKey(VK_TAB);
  ASSERT_EQ(GetFocus(), HandleOf(link));
  EXPECT_EQ(form->ActiveControl(), &link);
  PressKey(VK_RETURN);
  EXPECT_EQ(clicks, 1);
  PressKey(VK_SPACE);
  EXPECT_EQ(clicks, 2);
  EXPECT_EQ(presses, 0);
}

TEST_F(LinkTest, TheMouseClicksItAndMovesOverIt) {
  int moves = 0;
  link.MouseMove = [&](int, int, int, int) { ++moves; };
  PostMessageW(HandleOf(link), WM_MOUSEMOVE, 0, MAKELPARAM(5, 5));
  PostMessageW(HandleOf(link), WM_LBUTTONDOWN, MK_LBUTTON, MAKELPARAM(5, 5));
  PostMessageW(HandleOf(link), WM_LBUTTONUP, 0, MAKELPARAM(5, 5));
  Pump();
  EXPECT_GE(moves, 1);
  EXPECT_EQ(clicks, 1);
}

TEST_F(LinkTest, ADisabledLinkIsNoTabStop) {
  link.Enabled = false;
  SetFocus(HandleOf(cmdOK));
  PressKey(VK_TAB);
  EXPECT_EQ(GetFocus(), HandleOf(cmdOK));
  EXPECT_FALSE(IsWindowEnabled(HandleOf(link)));
}

}  // namespace
}  // namespace kestrun
