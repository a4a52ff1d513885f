// A real McListBox in a real window: mouse, keys, wheel, bar and the pop-up by the system's own messages.
#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <chrono>

#include "controls/list_box/mc_list_box.h"
#include "desktop/win32/message_queue.h"
#include "desktop/win32/win32_platform.h"
#include "desktop/win32/window/control_peer.h"
#include "forms/form.h"
#include "forms/window_registry.h"

namespace kestrun {
namespace {

using testing::ElementsAre;

class frmlistwindow final : public Form {
 public:
  static constexpr const char* kName = "frmlistwindow";
  frmlistwindow() : Form(kName) {
    StartUpPosition = static_cast<int>(StartPosition::kManual);
    BorderStyle = static_cast<int>(FormBorder::kNone);
    ShowInTaskbar = false;
    SetClientSize(6000, 4500);
    list.Move(300, 300, 3000, 1710);
    list.AutoHideScrollBars = true;
  }
  McListBox& list = Add<McListBox>("ListBox1");
};

const WindowRegistration registration(frmlistwindow::kName, [] { return MakeRef<frmlistwindow>(); });

class ListBoxWindowTest : public testing::Test {
 protected:
  void SetUp() override {
    form().Show();
    ASSERT_FALSE(FormWindow::OpenWindows().empty()) << "no window came up: is there a display?";
    for (int row = 0; row < 20; ++row) list().AddItem("row " + std::to_string(row));
    list().AddItem("a row with a name that is much too long for the width of this list, and more");
    list().Refresh();
    list().SelChange = [this] { ++changes; };
    list().DbClick = [this] { ++double_clicks; };
    Pump();
  }
  void TearDown() override {
    CloseAllWindows();
    EmptyMessageQueue();
  }

  static frmlistwindow& form() { return Window<frmlistwindow>(); }
  static McListBox& list() { return form().list; }
  static HWND Handle() { return FormWindow::OpenWindows().back()->PeerOf(list())->window(); }
  void Pump() { platform.clock().RunPendingEvents(); }
  // Until a condition holds, for a few seconds at most.
  template <class Condition>
  bool PumpUntil(Condition&& condition) {
    const auto end = std::chrono::steady_clock::now() + std::chrono::seconds(5);
    while (!condition()) {
      if (std::chrono::steady_clock::now() > end) return false;
      Pump();
      ::Sleep(5);
    }
    return true;
  }
  void Post(UINT message, WPARAM first, LPARAM second) {
    PostMessageW(Handle(), message, first, second);
    Pump();
  }
  [[nodiscard]] static LPARAM PlaceOf(int row) {
    const PixelRect area = list().AccessibleChildArea(row);
    return MAKELPARAM(40, (area.top + area.bottom) / 2);
  }
  // The real mouse, so that the system does not tell at once that it is elsewhere.
  void MoveMouseTo(int row) {
    const LPARAM inside = PlaceOf(row);
    POINT place{LOWORD(inside), HIWORD(inside)};
    ClientToScreen(Handle(), &place);
    SetCursorPos(place.x, place.y);
    Post(WM_MOUSEMOVE, 0, inside);
  }
  void Click(int row, WPARAM keys = 0) {
    Post(WM_LBUTTONDOWN, MK_LBUTTON | keys, PlaceOf(row));
    Post(WM_LBUTTONUP, keys, PlaceOf(row));
  }
  [[nodiscard]] static int BarPosition() { return GetScrollPos(Handle(), SB_VERT); }
  [[nodiscard]] static bool HasBar() { return (GetWindowLongPtrW(Handle(), GWL_STYLE) & WS_VSCROLL) != 0; }
  [[nodiscard]] static Color PixelAt(int x, int y) {
    const HDC screen = GetDC(Handle());
    const Color pixel = GetPixel(screen, x, y);
    ReleaseDC(Handle(), screen);
    return pixel;
  }

  Win32Platform platform;
  PlatformInstallation installation{platform};
  int changes = 0;
  int double_clicks = 0;
};

TEST_F(ListBoxWindowTest, AClickSelectsTheRowAndTakesTheFocus) {
  Click(2);
  EXPECT_EQ(list().ListIndex(), 2);
  EXPECT_EQ(changes, 1);
  EXPECT_EQ(GetFocus(), Handle());
}

TEST_F(ListBoxWindowTest, TheSelectedRowIsPainted) {
  Click(1);
  const PixelRect area = list().AccessibleChildArea(1);
  const PixelRect other = list().AccessibleChildArea(3);
  EXPECT_TRUE(PumpUntil([&] { return PixelAt(area.right - 6, area.top + 6) == 0xFFBB78; }))
      << std::hex << PixelAt(area.right - 6, area.top + 6);
  EXPECT_EQ(PixelAt(other.right - 6, other.top + 6), 0xFFFFFFU);
}

TEST_F(ListBoxWindowTest, ADragFollowsTheMouse) {
  Post(WM_LBUTTONDOWN, MK_LBUTTON, PlaceOf(0));
  EXPECT_EQ(GetCapture(), Handle());
  Post(WM_MOUSEMOVE, MK_LBUTTON, PlaceOf(3));
  EXPECT_EQ(list().ListIndex(), 3);
  Post(WM_MOUSEMOVE, MK_LBUTTON, MAKELPARAM(40, 500));
  EXPECT_EQ(list().VerticalScrollBar().position, 1);
  Post(WM_LBUTTONUP, 0, MAKELPARAM(40, 500));
  EXPECT_EQ(GetCapture(), nullptr);
}

TEST_F(ListBoxWindowTest, ArrowsPagesAndLettersMove) {
  SetFocus(Handle());
  Pump();
  Post(WM_KEYDOWN, VK_DOWN, 1);
  EXPECT_EQ(list().ListIndex(), 1);
  Post(WM_KEYDOWN, VK_NEXT, 1);
  EXPECT_EQ(list().ListIndex(), 6);
  Post(WM_KEYDOWN, VK_END, 1);
  EXPECT_EQ(list().ListIndex(), 20);
  Post(WM_CHAR, 'r', 1);
  EXPECT_EQ(list().ListIndex(), 0);
  Post(WM_CHAR, 'A', 1);
  EXPECT_EQ(list().ListIndex(), 20);
  Post(WM_KEYDOWN, VK_HOME, 1);
  EXPECT_EQ(list().ListIndex(), 0);
}

TEST_F(ListBoxWindowTest, EnterAndADoubleClickOpenTheRow) {
  SetFocus(Handle());
  Post(WM_KEYDOWN, VK_RETURN, 1);
  EXPECT_EQ(double_clicks, 1);
  Post(WM_LBUTTONDBLCLK, MK_LBUTTON, PlaceOf(0));
  Post(WM_LBUTTONUP, 0, PlaceOf(0));
  EXPECT_EQ(double_clicks, 2);
}

TEST_F(ListBoxWindowTest, WheelAndBarScrollTheRowsAndTheBarFollows) {
  SetFocus(Handle());
  Pump();
  Post(WM_MOUSEWHEEL, MAKEWPARAM(0, static_cast<WORD>(-3 * WHEEL_DELTA)), 0);
  EXPECT_EQ(list().VerticalScrollBar().position, 3);
  EXPECT_TRUE(PumpUntil([] { return BarPosition() == 3; }));
  Post(WM_VSCROLL, SB_LINEUP, 0);
  EXPECT_EQ(list().VerticalScrollBar().position, 2);
  Post(WM_VSCROLL, SB_PAGEDOWN, 0);
  EXPECT_EQ(list().VerticalScrollBar().position, 7);
  Post(WM_VSCROLL, SB_BOTTOM, 0);
  EXPECT_EQ(list().VerticalScrollBar().position, 16);
  Post(WM_VSCROLL, SB_TOP, 0);
  EXPECT_EQ(list().VerticalScrollBar().position, 0);
  Post(WM_VSCROLL, MAKEWPARAM(SB_THUMBTRACK, 9), 0);
  EXPECT_EQ(list().VerticalScrollBar().position, 9);
  EXPECT_TRUE(PumpUntil([] { return BarPosition() == 9; }));
}

TEST_F(ListBoxWindowTest, ABarThatHidesItselfGoesWithTheRows) {
  EXPECT_TRUE(HasBar());
  while (list().ListCount() > 3) list().Remove(3);
  EXPECT_TRUE(PumpUntil([] { return !HasBar(); }));
  for (int row = 0; row < 5; ++row) list().AddItem("more");
  list().Refresh();
  EXPECT_TRUE(PumpUntil([] { return HasBar(); }));
}

TEST_F(ListBoxWindowTest, ARowThatIsTooLongShowsItselfOverTheWindowUntilTheWheelTurns) {
  SetFocus(Handle());
  list().OnScroll(16);
  Pump();
  MoveMouseTo(20);
  const HWND popup = FindWindowW(L"KestrunPopup", nullptr);
  ASSERT_TRUE(popup);
  EXPECT_TRUE(IsWindowVisible(popup));
  EXPECT_EQ(GetFocus(), Handle()) << "the pop-up never takes the focus";
  RECT area{};
  RECT own{};
  GetWindowRect(popup, &area);
  GetWindowRect(Handle(), &own);
  EXPECT_GT(area.right - area.left, own.right - own.left);
  Post(WM_MOUSEWHEEL, MAKEWPARAM(0, static_cast<WORD>(WHEEL_DELTA)), 0);
  EXPECT_FALSE(IsWindowVisible(popup));
}

// Where the system took the pop-up for the window below the mouse, it told a leave, and the pop-up was gone before
// anyone saw it.
TEST_F(ListBoxWindowTest, ALeaveThatThePopUpItselfCausesKeepsIt) {
  list().OnScroll(16);
  Pump();
  MoveMouseTo(20);
  const HWND popup = FindWindowW(L"KestrunPopup", nullptr);
  ASSERT_TRUE(popup);
  Post(WM_MOUSELEAVE, 0, 0);
  EXPECT_TRUE(IsWindowVisible(popup));
  RECT own{};
  GetWindowRect(Handle(), &own);
  SetCursorPos(own.left + 5, own.bottom + 200);
  EXPECT_TRUE(PumpUntil([&] { return !IsWindowVisible(popup); })) << "the mouse went without a further leave";
}

// It stood in front of the other window as long as the mouse did not move.
TEST_F(ListBoxWindowTest, AnotherActiveWindowTakesThePopUpAway) {
  list().OnScroll(16);
  Pump();
  MoveMouseTo(20);
  const HWND popup = FindWindowW(L"KestrunPopup", nullptr);
  ASSERT_TRUE(popup);
  ASSERT_TRUE(IsWindowVisible(popup));
  SendMessageW(FormWindow::Find(Handle())->window(), WM_ACTIVATE, WA_INACTIVE, 0);
  EXPECT_FALSE(IsWindowVisible(popup));
}

// Under the pop-up a row with a long name could not be clicked.
TEST_F(ListBoxWindowTest, AClickOnTheRowUnderItsPopUpReachesTheRow) {
  SetActiveWindow(FormWindow::OpenWindows().back()->window());
  list().OnScroll(16);
  Pump();
  const LPARAM row = PlaceOf(20);
  POINT place{LOWORD(row), HIWORD(row)};
  ClientToScreen(Handle(), &place);
  SetCursorPos(place.x, place.y);
  ASSERT_TRUE(PumpUntil([] {
    const HWND popup = FindWindowW(L"KestrunPopup", nullptr);
    return popup && IsWindowVisible(popup);
  }));
  mouse_event(MOUSEEVENTF_LEFTDOWN, 0, 0, 0, 0);
  mouse_event(MOUSEEVENTF_LEFTUP, 0, 0, 0, 0);
  EXPECT_TRUE(PumpUntil([] { return list().ListIndex() == 20; }));
}

TEST_F(ListBoxWindowTest, TheFrameOfTheControlFollowsItsProperties) {
  EXPECT_TRUE((GetWindowLongPtrW(Handle(), GWL_EXSTYLE) & WS_EX_CLIENTEDGE) != 0);
  list().BorderStyle = int16_t{0};
  EXPECT_TRUE(PumpUntil([] { return (GetWindowLongPtrW(Handle(), GWL_EXSTYLE) & WS_EX_CLIENTEDGE) == 0; }));
}

}  // namespace
}  // namespace kestrun
