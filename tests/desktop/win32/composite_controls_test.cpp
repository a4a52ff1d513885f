// Controls that are made of other controls, on a real form with real messages.
#include <gtest/gtest.h>

#include "controls/progress_bar/progress_bar.h"
#include "controls/quick_link/help_picture.h"
#include "controls/quick_link/quick_link.h"
#include "desktop/win32/message_queue.h"
#include "desktop/win32/system/com_owner.h"
#include "desktop/win32/system/late_call.h"
#include "desktop/win32/win32_platform.h"
#include "desktop/win32/window/accessible_control.h"
#include "desktop/win32/window/control_peer.h"
#include "forms/command_button.h"
#include "forms/form.h"
#include "forms/window_registry.h"

namespace kestrun {
namespace {

class frmcomposite final : public Form {
 public:
  static constexpr const char* kName = "frmcomposite";
  frmcomposite() : Form(kName) {
    // In the screen's corner, away from where the pointer rests; without a caption no window manager moves it.
    StartUpPosition = static_cast<int>(StartPosition::kManual);
    BorderStyle = static_cast<int>(FormBorder::kNone);
    BackColor = 0x00C0C0;
    SetClientSize(6000, 4500);
    ProgressBar1.Move(150, 150, 4500, 450);
    QuickLinks.Move(150, 900, 4500, 3000);
    QuickLinks.BackColor = color::kWhite;
    QuickLinks.AddLink("pack1", "Play a new map");
    QuickLinks.AddLink("pack2", "Change map when hosting");
  }

  ProgressBar& ProgressBar1 = Add<ProgressBar>("ProgressBar1");
  QuickLink& QuickLinks = Add<QuickLink>("QuickLinks");
};

const WindowRegistration registration(frmcomposite::kName, [] { return MakeRef<frmcomposite>(); });

class CompositeControlsTest : public testing::Test {
 protected:
  void SetUp() override {
    form().Show();
    ASSERT_FALSE(FormWindow::OpenWindows().empty()) << "no window came up: is there a display?";
    Pump();
  }
  void TearDown() override {
    CloseAllWindows();
    EmptyMessageQueue();
    _wputenv_s(L"KESTRUN_DPI", L"");
  }

  frmcomposite& form() { return Window<frmcomposite>(); }
  ProgressBar& bar() { return form().ProgressBar1; }
  QuickLink& links() { return form().QuickLinks; }
  FormWindow& window() { return *FormWindow::OpenWindows().back(); }
  HWND HandleOf(Control& control) { return window().PeerOf(control)->window(); }
  void Pump() { platform.clock().RunPendingEvents(); }

  // A pixel of what is on the screen, 0x00BBGGRR; place in twips inside the control's client area.
  COLORREF PixelOf(Control& control, int x, int y) {
    UpdateWindow(HandleOf(control));
    const HDC screen = GetDC(HandleOf(control));
    const COLORREF pixel = GetPixel(screen, window().scale().Pixels(x), window().scale().Pixels(y));
    ReleaseDC(HandleOf(control), screen);
    return pixel;
  }
  // How many pixels of the label's own area are not the panel's white.
  int InkOf(Label& label) {
    int ink = 0;
    for (int y = 0; y < label.Height; y += 15) {
      for (int x = 0; x < label.Width; x += 15) ink += PixelOf(label, x, y) != 0xFFFFFF;
    }
    return ink;
  }
  void MoveOver(Control& control) {
    PostMessageW(HandleOf(control), WM_MOUSEMOVE, 0, kCorner);
    Pump();
  }
  void ClickOn(Control& control) {
    PostMessageW(HandleOf(control), WM_LBUTTONDOWN, MK_LBUTTON, kCorner);
    PostMessageW(HandleOf(control), WM_LBUTTONUP, 0, kCorner);
    Pump();
  }
  void PressKey(WPARAM key) {
    PostMessageW(GetFocus(), WM_KEYDOWN, key, 1);
    PostMessageW(GetFocus(), WM_KEYUP, key, 1);
    Pump();
  }
  static constexpr LPARAM kCorner = MAKELPARAM(3, 3);

  Win32Platform platform;
  PlatformInstallation installation{platform};
};

TEST_F(CompositeControlsTest, TheFilledPartOfAProgressBarIsPaintedAndTheRestIsNot) {
  bar().BackColor = color::kWhite;
  bar().ShowPercent = false;
  bar().Value = 50;
  Pump();
  EXPECT_EQ(PixelOf(bar(), 15, 225), 0xFF0000U);
  EXPECT_EQ(PixelOf(bar(), 2220, 225), 0xFF0000U);
  EXPECT_EQ(PixelOf(bar(), 2280, 225), 0xFFFFFFU);
  bar().Value = 0;
  Pump();
  EXPECT_EQ(PixelOf(bar(), 15, 225), 0xFFFFFFU);
}

TEST_F(CompositeControlsTest, TheProgressBarFollowsItsSize) {
  bar().BackColor = color::kWhite;
  bar().ShowPercent = false;
  bar().Value = 100;
  bar().Width = 3000;
  Pump();
  RECT area{};
  GetClientRect(HandleOf(bar()), &area);
  EXPECT_EQ(area.right, 200);
  EXPECT_EQ(PixelOf(bar(), 2985, 435), 0xFF0000U);
}

TEST_F(CompositeControlsTest, AFrameThatIsSetLaterIsShown) {
  bar().BroderStyle = 1;
  Pump();
  RECT area{};
  GetClientRect(HandleOf(bar()), &area);
  EXPECT_LT(area.right, window().scale().Pixels(4500));
  bar().BroderStyle = 0;
  GetClientRect(HandleOf(bar()), &area);
  EXPECT_EQ(area.right, window().scale().Pixels(4500));
}

TEST_F(CompositeControlsTest, ATransparentPanelShowsWhatIsBehindIt) {
  links().BackStyle = 0;
  Pump();
  EXPECT_EQ(PixelOf(links(), 4400, 2900), 0x00C0C0U);
  links().BackStyle = 1;
  Pump();
  EXPECT_EQ(PixelOf(links(), 4400, 2900), 0xFFFFFFU);
}

TEST_F(CompositeControlsTest, TheMouseOverALinkMakesItBoldAndUnderlined) {
  const int plain_ink = InkOf(links().LblLink(1));
  ASSERT_GT(plain_ink, 0);
  MoveOver(links().LblLink(1));
  EXPECT_TRUE(links().LblLink(1).Font->bold);
  EXPECT_TRUE(links().LblLink(1).Font->underline);
  EXPECT_FALSE(links().LblLink(0).Font->bold);
  EXPECT_GT(InkOf(links().LblLink(1)), plain_ink);
  MoveOver(links());
  EXPECT_FALSE(links().LblLink(1).Font->bold);
  EXPECT_EQ(InkOf(links().LblLink(1)), plain_ink);
}

TEST_F(CompositeControlsTest, AClickOnALinkTellsItsKey) {
  std::string clicked;
  links().LinkClick = [&](const std::string& key, int index) { clicked += key + std::to_string(index); };
  bool closed = false;
  links().LblCloseClick = [&] { closed = true; };
  ClickOn(links().LblLink(1));
  ClickOn(links().LblClose);
  EXPECT_EQ(clicked, "pack21");
  EXPECT_TRUE(closed);
}

TEST_F(CompositeControlsTest, ALinkThatIsAddedToAShownPanelIsPaintedAndClicked) {
  links().AddLink("late", "A late one");
  Pump();
  std::string clicked;
  links().LinkClick = [&](const std::string& key, int) { clicked = key; };
  EXPECT_GT(InkOf(links().LblLink(2)), 0);
  ClickOn(links().LblLink(2));
  EXPECT_EQ(clicked, "late");
}

TEST_F(CompositeControlsTest, AHandlerMayTakeThePanelAway) {
  links().LinkClick = [this](const std::string&, int) { form().Remove(form().QuickLinks); };
  ClickOn(links().LblLink(0));
  EXPECT_EQ(form().FindControl("QuickLinks"), nullptr);
}

TEST_F(CompositeControlsTest, TheMouseTakesTheLinksPicture) {
  links().MouseLinkIcon = HelpPicture();
  const auto show_cursor_over = [&](Control& control) {
    const HWND shown = HandleOf(control);
    POINT place{3, 3};
    ClientToScreen(shown, &place);
    SetCursorPos(place.x, place.y);
    SetCursor(nullptr);
    SendMessageW(shown, WM_SETCURSOR, reinterpret_cast<WPARAM>(shown), MAKELPARAM(HTCLIENT, WM_MOUSEMOVE));
    return GetCursor();
  };
  const HCURSOR arrow = LoadCursorW(nullptr, IDC_ARROW);
  EXPECT_EQ(show_cursor_over(links()), arrow);
  const HCURSOR picture = show_cursor_over(links().LblLink(0));
  EXPECT_NE(picture, arrow);
  EXPECT_NE(picture, nullptr);
  EXPECT_EQ(show_cursor_over(links().LblLink(1)), picture);
}

TEST_F(CompositeControlsTest, TheTabKeyGoesThroughTheLinksAndEnterAndTheSpaceBarClickThem) {
  std::string clicked;
  links().LinkClick = [&](const std::string& key, int) { clicked += key + " "; };
  SetFocus(HandleOf(links().LblLink(0)));
  PressKey(VK_RETURN);
  PressKey(VK_TAB);
  EXPECT_EQ(form().ActiveControl(), &links().LblLink(1));
  PressKey(VK_SPACE);
  EXPECT_EQ(clicked, "pack1 pack2 ");
  PressKey(VK_TAB);
  EXPECT_EQ(form().ActiveControl(), &links().ChShow);
  PressKey(VK_TAB);
  EXPECT_EQ(form().ActiveControl(), &links().LblClose);
}

TEST_F(CompositeControlsTest, APanelThatIsHiddenByItsOwnLinkGivesTheFocusBack) {
  CommandButton& button = form().Add<CommandButton>("cmdOK");
  button.Move(4800, 150, 900, 375);
  links().LblCloseClick = [this] { links().Visible = false; };
  SetFocus(HandleOf(links().LblClose));
  PressKey(VK_RETURN);
  EXPECT_EQ(GetFocus(), HandleOf(button));
}

TEST_F(CompositeControlsTest, APanelThatGoesLeavesNoFocusBehind) {
  SetFocus(HandleOf(links().LblLink(1)));
  form().Remove(form().QuickLinks);
  EXPECT_EQ(form().ActiveControl(), nullptr);
  Pump();
}

TEST_F(CompositeControlsTest, LinksShowAnotherBackgroundOfTheirPanel) {
  links().BackColor = 0x00FF00;
  Pump();
  EXPECT_EQ(PixelOf(links().LblLink(0), links().LblLink(0).Width - 60, 60), 0x00FF00U);
}

int value_changes = 0;
void CALLBACK CountValueChanges(HWINEVENTHOOK, DWORD, HWND, LONG, LONG, DWORD, DWORD) { ++value_changes; }

TEST_F(CompositeControlsTest, AScreenReaderIsToldWhenABarMoves) {
  const HWINEVENTHOOK hook = SetWinEventHook(EVENT_OBJECT_VALUECHANGE, EVENT_OBJECT_VALUECHANGE, nullptr,
                                             &CountValueChanges, GetCurrentProcessId(), 0, WINEVENT_OUTOFCONTEXT);
  ASSERT_NE(hook, nullptr);
  value_changes = 0;
  bar().Value = 40;
  Pump();
  EXPECT_EQ(value_changes, 1);
  UnhookWinEvent(hook);
}

TEST_F(CompositeControlsTest, AScreenReaderHearsHowFarABarIs) {
  CoInitialize(nullptr);
  bar().ToolTipText = "Download";
  bar().Value = 40;
  {
    ComOwner<IAccessible> object;
    ASSERT_EQ(KESTRUN_LATE(L"oleacc.dll", AccessibleObjectFromWindow)(HandleOf(bar()), static_cast<DWORD>(OBJID_CLIENT),
                                                                      __uuidof(IAccessible), object.ReceiveAny()),
              S_OK);
    VARIANT self{};
    self.vt = VT_I4;
    VARIANT role{};
    EXPECT_EQ(object->get_accRole(self, &role), S_OK);
    EXPECT_EQ(role.lVal, ROLE_SYSTEM_PROGRESSBAR);
    BSTR text = nullptr;
    ASSERT_EQ(object->get_accName(self, &text), S_OK);
    EXPECT_STREQ(text, L"Download");
    SysFreeString(text);
    ASSERT_EQ(object->get_accValue(self, &text), S_OK);
    EXPECT_STREQ(text, L"40%");
    SysFreeString(text);
    CloseAllWindows();
    Pump();
    EXPECT_EQ(object->get_accValue(self, &text), CO_E_OBJNOTCONNECTED);
  }
  CoUninitialize();
}

TEST_F(CompositeControlsTest, AScreenReaderFindsALinkByItsText) {
  wchar_t name[50] = {};
  GetWindowTextW(HandleOf(links().LblLink(0)), name, 50);
  EXPECT_EQ(std::wstring(name), L"Play a new map");
}

TEST_F(CompositeControlsTest, TheHelpPictureIsPaintedAtEveryScale) {
  for (const int dpi : {96, 144, 192}) {
    CloseAllWindows();
    EmptyMessageQueue();
    _wputenv_s(L"KESTRUN_DPI", std::to_wstring(dpi).c_str());
    form().Show();
    Pump();
    const Image& image = links().Image1;
    EXPECT_EQ(PixelOf(links(), image.Left + 75, image.Top + 240), 0x8F6E2CU) << dpi;
  }
}

}  // namespace
}  // namespace kestrun
