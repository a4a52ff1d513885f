// A control that paints itself, in a real window and driven by real messages.
#include "desktop/win32/window/user_control_peer.h"

#include "desktop/win32/live_handles.h"
#include "desktop/win32/user_control_fixture.h"

namespace kestrun {
namespace {

using testing::Contains;
using testing::ElementsAre;

class UserControlPeerTest : public UserControlWindowTest {};

// ---- size and frame ------------------------------------------------------------------------------------------------

TEST_F(UserControlPeerTest, KnowsItsPixelsAtEachScale) {
  for (const int dpi : {96, 144}) {
    CloseAllWindows();
    Pump();
    _wputenv_s(L"KESTRUN_DPI", std::to_wstring(dpi).c_str());
    form().Show();
    Pump();
    EXPECT_EQ(sample().dpi(), dpi);
    EXPECT_EQ(sample().client(), (PixelSize{MulDiv(3000, dpi, 1440), MulDiv(1500, dpi, 1440)}));
  }
}

TEST_F(UserControlPeerTest, GrowsWhenItMovesToAFinerScreen) {
  RECT place{0, 0, 700, 600};
  SendMessageW(window().window(), 0x02E0 /* WM_DPICHANGED */, MAKEWPARAM(144, 144), reinterpret_cast<LPARAM>(&place));
  Pump();
  EXPECT_EQ(sample().dpi(), 144);
  EXPECT_EQ(sample().client(), (PixelSize{300, 150}));
  EXPECT_EQ(PixelAt(Handle(), 149, 74), Rgb(255, 255, 255));
}

TEST_F(UserControlPeerTest, AFrameTakesItsRoomAndMayChange) {
  const auto client_with = [this](int frame) {
    sample().frame = frame;
    sample().Invalidate();
    Pump();
    EXPECT_EQ(sample().client().width, ClientSize(Handle()).cx);
    return sample().client().width;
  };
  EXPECT_EQ(client_with(0), 200);
  EXPECT_EQ(client_with(1), 198);
  EXPECT_EQ(client_with(2), 196);
  EXPECT_EQ(client_with(0), 200);
}

// ---- mouse ---------------------------------------------------------------------------------------------------------

TEST_F(UserControlPeerTest, APressKeepsTheMouseUntilItsRelease) {
  std::string events;
  sample().MouseDown = [&](int button, int, int x, int y) {
    events += "down " + std::to_string(button) + " " + std::to_string(x) + " " + std::to_string(y) + " ";
  };
  sample().MouseUp = [&](int, int, int, int) { events += "up"; };
  Send(WM_LBUTTONDOWN, MK_LBUTTON, MAKELPARAM(5, 6));
  EXPECT_EQ(GetCapture(), Handle());
  EXPECT_EQ(GetFocus(), Handle());
  Send(WM_MOUSEMOVE, MK_LBUTTON, MAKELPARAM(-10, 300));
  Send(WM_LBUTTONUP, 0, MAKELPARAM(-10, 300));
  EXPECT_EQ(GetCapture(), nullptr);
  EXPECT_THAT(Log(), ElementsAre("focus 1", "down 1 0 5 6", "move 1 0 -10 300", "up 1 0 -10 300"));
  EXPECT_EQ(events, "down 1 75 90 up");
}

TEST_F(UserControlPeerTest, AReleaseWithoutAPressIsNotItsOwn) {
  Send(WM_LBUTTONUP, 0, MAKELPARAM(5, 5));
  EXPECT_THAT(Log(), ElementsAre());
}

TEST_F(UserControlPeerTest, ADragEndsOutsideWhenAnotherWindowTakesTheMouse) {
  Send(WM_RBUTTONDOWN, MK_RBUTTON, MAKELPARAM(5, 5));
  SetCapture(window().window());
  Pump();
  ReleaseCapture();
  EXPECT_THAT(Log(), ElementsAre("focus 1", "down 2 0 5 5", "up 2 0 -1 -1"));
}

TEST_F(UserControlPeerTest, ADoubleClickComesInPlaceOfTheSecondPress) {
  Send(WM_LBUTTONDOWN, MK_LBUTTON, MAKELPARAM(5, 5));
  Send(WM_LBUTTONUP, 0, MAKELPARAM(5, 5));
  Send(WM_LBUTTONDBLCLK, MK_LBUTTON, MAKELPARAM(5, 5));
  Send(WM_LBUTTONUP, 0, MAKELPARAM(5, 5));
  EXPECT_THAT(Log(), ElementsAre("focus 1", "down 1 0 5 5", "up 1 0 5 5", "double 5 5", "up 1 0 5 5"));
}

TEST_F(UserControlPeerTest, AControlThatTakesNoFocusLeavesItWhereItWas) {
  SetFocus(HandleOf(form().txtName));
  sample().takes_focus = false;
  Send(WM_LBUTTONDOWN, MK_LBUTTON, MAKELPARAM(5, 5));
  Send(WM_LBUTTONUP, 0, MAKELPARAM(5, 5));
  EXPECT_EQ(GetFocus(), HandleOf(form().txtName));
}

TEST_F(UserControlPeerTest, TheMouseTakesThePointerThatTheControlNames) {
  POINT place{5, 5};
  ClientToScreen(Handle(), &place);
  SetCursorPos(place.x, place.y);
  const auto pointer = [&] {
    SetCursor(nullptr);
    SendMessageW(Handle(), WM_SETCURSOR, reinterpret_cast<WPARAM>(Handle()), MAKELPARAM(HTCLIENT, WM_MOUSEMOVE));
    return GetCursor();
  };
  EXPECT_EQ(pointer(), LoadCursorW(nullptr, IDC_ARROW));
  sample().MousePointer = 2;
  EXPECT_EQ(pointer(), LoadCursorW(nullptr, IDC_CROSS));
  SetCursor(nullptr);
  sample().MousePointer = 11;
  EXPECT_EQ(GetCursor(), LoadCursorW(nullptr, IDC_WAIT)) << "at once, for the work that comes next";
  sample().MousePointer = 12345;
  EXPECT_EQ(pointer(), LoadCursorW(nullptr, IDC_ARROW));
}

TEST_F(UserControlPeerTest, HearsWhenTheMouseLeaves) {
  Send(WM_MOUSEMOVE, 0, MAKELPARAM(5, 5));
  Send(WM_MOUSELEAVE, 0, 0);
  EXPECT_THAT(sample().log, Contains("leave"));
}

TEST_F(UserControlPeerTest, PartsOfANotchAddUp) {
  const auto turn = [this](int delta) {
    RECT place{};
    GetWindowRect(Handle(), &place);
    Send(WM_MOUSEWHEEL, MAKEWPARAM(0, static_cast<WORD>(delta)), MAKELPARAM(place.left + 5, place.top + 5));
    return Log();
  };
  EXPECT_THAT(turn(60), ElementsAre());
  EXPECT_THAT(turn(60), ElementsAre("wheel 1 0"));
  EXPECT_THAT(turn(90), ElementsAre());
  EXPECT_THAT(turn(-120), ElementsAre("wheel -1 0"));
  EXPECT_THAT(turn(300), ElementsAre("wheel 2 0"));
}

TEST_F(UserControlPeerTest, TheWheelGoesToTheControlUnderTheMouse) {
  RECT place{};
  GetWindowRect(HandleOf(form().other), &place);
  const LPARAM over_other = MAKELPARAM(place.left + 5, place.top + 5);
  const WPARAM notch = MAKEWPARAM(0, WHEEL_DELTA);
  Send(WM_MOUSEWHEEL, notch, over_other);
  EXPECT_THAT(Log(), ElementsAre());
  EXPECT_THAT(form().other.log, Contains("wheel 1 0"));
  form().other.log.clear();
  PostMessageW(HandleOf(form().txtName), WM_MOUSEWHEEL, notch, over_other);
  Pump();
  EXPECT_THAT(form().other.log, Contains("wheel 1 0"));
}

// ---- keys and focus ------------------------------------------------------------------------------------------------

TEST_F(UserControlPeerTest, GetsTheKeysThatAFormWouldUse) {
  bool pressed = false;
  form().cmdOK.Click = [&] { pressed = true; };
  sample().taken_key = VK_RETURN;
  PressKey(VK_RETURN);
  EXPECT_THAT(Log(), ElementsAre("key 13 0"));
  EXPECT_FALSE(pressed);
  sample().taken_key = 0;
  PressKey(VK_RETURN);
  EXPECT_TRUE(pressed) << "a key that the control does not take is the form's";
}

TEST_F(UserControlPeerTest, AHandlerSeesAKeyFirstAndMaySwallowIt) {
  int seen = 0;
  sample().KeyDown = [&](int& code, int) { seen = std::exchange(code, 0); };
  PressKey(VK_DOWN);
  EXPECT_EQ(seen, VK_DOWN);
  EXPECT_THAT(Log(), ElementsAre());
}

TEST_F(UserControlPeerTest, ArrowsReachItOnce) {
  PressKey(VK_DOWN);
  EXPECT_THAT(Log(), ElementsAre("key 40 0"));
}

TEST_F(UserControlPeerTest, TheKeysOfPopUpMenusReachIt) {
  sample().taken_key = VK_F10;
  SetFocus(Handle());
  Pump();
  sample().log.clear();
  Send(WM_KEYDOWN, VK_APPS, 1);
  BYTE keys[256] = {};
  GetKeyboardState(keys);
  keys[VK_SHIFT] = 0x80;
  SetKeyboardState(keys);
  Send(WM_SYSKEYDOWN, VK_F10, 1);
  keys[VK_SHIFT] = 0;
  SetKeyboardState(keys);
  EXPECT_THAT(Log(), ElementsAre("key 93 0", "key 121 1"));
}

TEST_F(UserControlPeerTest, CharactersArriveWhole) {
  SetFocus(Handle());
  Pump();
  sample().log.clear();
  Send(WM_CHAR, L'Ж', 1);
  Send(WM_CHAR, 0xD83D, 1);
  Send(WM_CHAR, 0xDE00, 1);
  Send(WM_CHAR, 0xDE00, 1);  // half a character is none
  EXPECT_THAT(Log(), ElementsAre("char 1046", "char 128512"));
}

TEST_F(UserControlPeerTest, TabComesAndGoes) {
  SetFocus(HandleOf(form().txtName));
  PostMessageW(GetFocus(), WM_KEYDOWN, VK_TAB, 1);
  Pump();
  EXPECT_EQ(GetFocus(), Handle());
  EXPECT_EQ(form().ActiveControl(), &sample());
  PostMessageW(GetFocus(), WM_KEYDOWN, VK_TAB, 1);
  Pump();
  EXPECT_EQ(GetFocus(), HandleOf(form().other));
  EXPECT_THAT(Log(), ElementsAre("focus 1", "focus 0"));
}

TEST_F(UserControlPeerTest, AsksDialoguesForArrowsAndCharactersButNotForTab) {
  EXPECT_EQ(SendMessageW(Handle(), WM_GETDLGCODE, 0, 0), DLGC_WANTARROWS | DLGC_WANTCHARS);
}

// ---- scroll bar ----------------------------------------------------------------------------------------------------

TEST_F(UserControlPeerTest, TheBarShowsTheStateAndTakesItsRoom) {
  EXPECT_FALSE(HasBar());
  ShowBar({true, false, 7, 90, 10});
  EXPECT_TRUE(HasBar());
  const SCROLLINFO info = BarInfo();
  EXPECT_EQ(info.nPos, 7);
  EXPECT_EQ(info.nMin, 0);
  EXPECT_EQ(info.nMax, 99);
  EXPECT_EQ(info.nPage, 10U);
  EXPECT_LT(sample().client().width, 200);
  EXPECT_EQ(sample().client().width, ClientSize(Handle()).cx);
  ShowBar({});
  EXPECT_FALSE(HasBar());
  EXPECT_EQ(sample().client().width, 200);
}

TEST_F(UserControlPeerTest, ABarWithNothingToScrollIsDisabled) {
  const auto is_disabled = [] {
    SCROLLBARINFO info{};
    info.cbSize = sizeof info;
    GetScrollBarInfo(Handle(), OBJID_VSCROLL, &info);
    return (info.rgstate[0] & STATE_SYSTEM_UNAVAILABLE) != 0;
  };
  ShowBar({true, false, 0, 0, 10});
  EXPECT_TRUE(HasBar());
  EXPECT_TRUE(is_disabled());
  ShowBar({true, false, 0, 5, 10});
  EXPECT_FALSE(is_disabled());
}

TEST_F(UserControlPeerTest, AFlatBarScrollsLikeAnyOther) {
  ShowBar({true, true, 3, 90, 10});
  EXPECT_TRUE(HasBar());
  EXPECT_EQ(BarInfo().nPos, 3);
  ShowBar({true, false, 4, 90, 10});
  EXPECT_EQ(BarInfo().nPos, 4);
}

TEST_F(UserControlPeerTest, TheBarMovesByLinesPagesAndThumb) {
  ShowBar({true, false, 50, 90, 10});
  const auto scroll = [this](int code, int track = 0) {
    Send(WM_VSCROLL, MAKEWPARAM(code, track), 0);
    return sample().bar.position;
  };
  EXPECT_EQ(scroll(SB_LINEDOWN), 51);
  EXPECT_EQ(scroll(SB_LINEUP), 50);
  EXPECT_EQ(scroll(SB_PAGEDOWN), 60);
  EXPECT_EQ(scroll(SB_PAGEUP), 50);
  EXPECT_EQ(scroll(SB_THUMBTRACK, 33), 33);
  // The bar itself follows a moment later.
  for (int wait = 0; wait < 200 && BarInfo().nPos != 33; ++wait) {
    Sleep(10);
    Pump();
  }
  EXPECT_EQ(BarInfo().nPos, 33);
  EXPECT_EQ(scroll(SB_BOTTOM), 90);
  EXPECT_EQ(scroll(SB_PAGEDOWN), 90);
  EXPECT_EQ(scroll(SB_TOP), 0);
  EXPECT_EQ(scroll(SB_LINEUP), 0);
  sample().log.clear();
  EXPECT_EQ(scroll(SB_ENDSCROLL), 0);
  EXPECT_THAT(Log(), ElementsAre());
}

// ---- the surface in front of all windows ---------------------------------------------------------------------------

TEST_F(UserControlPeerTest, TheSurfaceAppearsAtItsPlaceAndTakesNoFocus) {
  SetFocus(Handle());
  const HWND active = GetActiveWindow();
  const PixelPoint corner = sample().ScreenPosition();
  sample().ShowPopup({corner.x + 10, corner.y + 10, corner.x + 110, corner.y + 40}, [](Canvas& canvas) {
    canvas.Fill({0, 0, 98, 28}, Rgb(50, 60, 70));
  });
  Pump();
  const HWND popup = PopupWindow();
  ASSERT_NE(popup, nullptr);
  EXPECT_TRUE(IsWindowVisible(popup));
  RECT place{};
  GetWindowRect(popup, &place);
  EXPECT_EQ(place.left, corner.x + 10);
  EXPECT_EQ(place.top, corner.y + 10);
  EXPECT_EQ(place.right, corner.x + 110);
  EXPECT_EQ(place.bottom, corner.y + 40);
  EXPECT_EQ(PixelAt(popup, 5, 5), Rgb(50, 60, 70));
  EXPECT_EQ(GetFocus(), Handle());
  EXPECT_EQ(GetActiveWindow(), active);
  EXPECT_NE(GetWindowLongPtrW(popup, GWL_EXSTYLE) & WS_EX_NOACTIVATE, 0);
  EXPECT_EQ(SendMessageW(popup, WM_NCHITTEST, 0, MAKELPARAM(place.left + 5, place.top + 5)), HTTRANSPARENT);
  EXPECT_EQ(SendMessageW(popup, WM_MOUSEACTIVATE, 0, 0), MA_NOACTIVATE);
  sample().HidePopup();
  EXPECT_FALSE(IsWindowVisible(popup));
}

TEST_F(UserControlPeerTest, TheSurfaceGoesWithItsControl) {
  const auto show = [] { sample().ShowPopup({10, 10, 60, 30}, [](Canvas&) {}); };
  show();
  EXPECT_TRUE(IsWindowVisible(PopupWindow()));
  sample().Visible = false;
  EXPECT_FALSE(IsWindowVisible(PopupWindow()));
  sample().Visible = true;
  show();
  CloseAllWindows();
  Pump();
  EXPECT_EQ(PopupWindow(), nullptr);
}

TEST_F(UserControlPeerTest, WhatTheSurfaceIsNotPaintedOnHasTheColourOfTips) {
  sample().ShowPopup({10, 10, 60, 30}, [](Canvas& canvas) { canvas.Fill({0, 0, 5, 5}, Rgb(1, 1, 1)); });
  EXPECT_EQ(PixelAt(PopupWindow(), 2, 2), Rgb(1, 1, 1));
  EXPECT_EQ(PixelAt(PopupWindow(), 20, 10), GetSysColor(COLOR_INFOBK));
}

TEST_F(UserControlPeerTest, TheDesktopIsKnown) {
  POINT corner{};
  ClientToScreen(Handle(), &corner);
  EXPECT_EQ(sample().ScreenPosition(), (PixelPoint{corner.x, corner.y}));
  EXPECT_GE(sample().ScreenSize().width, 640);
  EXPECT_GE(sample().ScreenSize().height, 480);
}

// ---- what is left over ---------------------------------------------------------------------------------------------

TEST_F(UserControlPeerTest, NothingIsLeftOverWhenControlsComeAndGo) {
  const auto open_and_close = [this] {
    form().Show();
    ShowBar({true, true, 1, 10, 2});
    sample().text = "text";
    sample().ShowPopup({10, 10, 60, 30}, [](Canvas& canvas) {
      canvas.Text("tip", {0, 0, 40, 20}, {}, color::kInfoText, TextPlacement::kLeft);
    });
    SendMessageW(Handle(), WM_GETOBJECT, 0, OBJID_CLIENT);
    Pump();
    CloseAllWindows();
    Pump();
  };
  // The system keeps some objects for windows to come; only what grows after that is lost.
  for (int round = 0; round < 25; ++round) open_and_close();
  const int graphics = LiveGraphicsObjects();
  const int windows = LiveWindows();
  ASSERT_GT(graphics, 0);
  ASSERT_GT(windows, 0);
  for (int round = 0; round < 50; ++round) open_and_close();
  EXPECT_LE(LiveGraphicsObjects(), graphics + 20);
  EXPECT_LE(LiveWindows(), windows + 2);
}

}  // namespace
}  // namespace kestrun
