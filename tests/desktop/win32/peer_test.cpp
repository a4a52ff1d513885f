// Real windows driven by real messages.
#include <gtest/gtest.h>

#include "desktop/win32/live_handles.h"
#include "desktop/win32/message_queue.h"
#include "desktop/win32/system/wide_text.h"
#include "desktop/win32/win32_platform.h"
#include "desktop/win32/window/control_peer.h"
#include "desktop/win32/window/keyboard.h"
#include "forms/check_box.h"
#include "forms/command_button.h"
#include "forms/file_list_box.h"
#include "forms/form.h"
#include "forms/frame.h"
#include "forms/image.h"
#include "forms/label.h"
#include "forms/list_box.h"
#include "forms/menu_item.h"
#include "forms/option_button.h"
#include "forms/picture_box.h"
#include "forms/text_box.h"
#include "forms/window_registry.h"

namespace kestrun {
namespace {

class frmpeers final : public Form {
 public:
  static constexpr const char* kName = "frmpeers";
  frmpeers() : Form(kName) {
    Caption = "Peers";
    SetClientSize(6000, 4500);
    lblName.Caption = "&Name:";
    lblName.Move(150, 150, 1500, 240);
    txtName.Move(150, 420, 2400, 315);
    txtName.ToolTipText = "A tip";
    Frame1.Caption = "Choice";
    Frame1.Move(150, 900, 2400, 1200);
    first.SetContainer(Frame1);
    first.Caption = "&First";
    first.Move(150, 300, 1800, 270);
    second.SetContainer(Frame1);
    second.Caption = "&Second";
    second.Move(150, 660, 1800, 270);
    Check1.Caption = "&Ticked";
    Check1.Move(150, 2250, 2400, 270);
    List1.Move(3000, 150, 2400, 1800);
    cmdOK.Caption = "&OK";
    cmdOK.Default = true;
    cmdOK.Move(3000, 3900, 1200, 375);
    cmdCancel.Caption = "Cancel";
    cmdCancel.Cancel = true;
    cmdCancel.Move(4350, 3900, 1200, 375);
    image.Move(3000, 2400, 480, 480);
    for (const char* row : {"one", "two", "three"}) List1.AddItem(row);
  }

  Label& lblName = Add<Label>("lblName");
  TextBox& txtName = Add<TextBox>("txtName");
  Frame& Frame1 = Add<Frame>("Frame1");
  OptionButton& first = Add<OptionButton>("options", 0);
  OptionButton& second = Add<OptionButton>("options", 1);
  CheckBox& Check1 = Add<CheckBox>("Check1");
  ListBox& List1 = Add<ListBox>("List1");
  CommandButton& cmdOK = Add<CommandButton>("cmdOK");
  CommandButton& cmdCancel = Add<CommandButton>("cmdCancel");
  Image& image = Add<Image>("image");
};

const WindowRegistration registration(frmpeers::kName, [] { return MakeRef<frmpeers>(); });

class PeerTest : public testing::Test {
 protected:
  void SetUp() override {
    ASSERT_NE(GetDesktopWindow(), nullptr);
    form().Show();
    ASSERT_FALSE(FormWindow::OpenWindows().empty()) << "no window came up: is there a display?";
    Pump();
  }
  void TearDown() override {
    CloseAllWindows();
    EmptyMessageQueue();
    _wputenv_s(L"KESTRUN_DPI", L"");
  }

  frmpeers& form() { return Window<frmpeers>(); }
  FormWindow& window() { return *FormWindow::OpenWindows().back(); }
  HWND HandleOf(Control& control) { return window().PeerOf(control)->window(); }
  void Pump() { platform.clock().RunPendingEvents(); }

  void ClickWindow(HWND target, int x = 5, int y = 5) {
    PostMessageW(target, WM_LBUTTONDOWN, MK_LBUTTON, MAKELPARAM(x, y));
    PostMessageW(target, WM_LBUTTONUP, 0, MAKELPARAM(x, y));
    Pump();
  }
  // A key pressed while the control has the focus.
  void PressKey(Control& control, WPARAM key) {
    SetFocus(HandleOf(control));
    PostMessageW(HandleOf(control), WM_KEYDOWN, key, 1);
    PostMessageW(HandleOf(control), WM_KEYUP, key, 1);
    Pump();
  }
  void PressAccessKey(wchar_t letter) {
    PostMessageW(GetFocus() ? GetFocus() : window().window(), WM_SYSCHAR, static_cast<WPARAM>(letter), 1 << 29);
    Pump();
  }
  static std::wstring TextOf(HWND target) {
    wchar_t text[200] = {};
    GetWindowTextW(target, text, 200);
    return text;
  }

  Win32Platform platform;
  PlatformInstallation installation{platform};
};

TEST_F(PeerTest, AClickOnAButtonRunsItsHandler) {
  int clicks = 0;
  form().cmdOK.Click = [&] { ++clicks; };
  ClickWindow(HandleOf(form().cmdOK));
  EXPECT_EQ(clicks, 1);
}

TEST_F(PeerTest, TypingChangesTheModelAndTheModelChangesTheBox) {
  std::string seen;
  form().txtName.Change = [&] { seen = form().txtName.Text; };
  for (const wchar_t letter : std::wstring(L"Ж地")) SendMessageW(HandleOf(form().txtName), WM_CHAR, letter, 1);
  EXPECT_EQ(form().txtName.Text.get(), "Ж地");
  EXPECT_EQ(seen, "Ж地");
  form().txtName.Text = std::string("from the model");
  EXPECT_EQ(TextOf(HandleOf(form().txtName)), L"from the model");
}

TEST_F(PeerTest, OptionsOfAFrameExcludeEachOther) {
  ClickWindow(HandleOf(form().first));
  EXPECT_TRUE(form().first.Value);
  ClickWindow(HandleOf(form().second));
  EXPECT_FALSE(form().first.Value);
  EXPECT_TRUE(form().second.Value);
  EXPECT_EQ(SendMessageW(HandleOf(form().second), BM_GETCHECK, 0, 0), BST_CHECKED);
  EXPECT_EQ(SendMessageW(HandleOf(form().first), BM_GETCHECK, 0, 0), BST_UNCHECKED);
}

TEST_F(PeerTest, ACheckBoxTicksAndClears) {
  ClickWindow(HandleOf(form().Check1));
  EXPECT_EQ(form().Check1.Value, 1);
  ClickWindow(HandleOf(form().Check1));
  EXPECT_EQ(form().Check1.Value, 0);
}

TEST_F(PeerTest, AListRowIsChosenByMouseAndShownFromTheModel) {
  int clicks = 0;
  form().List1.Click = [&] { ++clicks; };
  const auto height = static_cast<int>(SendMessageW(HandleOf(form().List1), LB_GETITEMHEIGHT, 0, 0));
  ClickWindow(HandleOf(form().List1), 10, height + height / 2);
  EXPECT_EQ(form().List1.ListIndex, 1);
  EXPECT_EQ(clicks, 1);
  form().List1.ListIndex = 2;
  EXPECT_EQ(SendMessageW(HandleOf(form().List1), LB_GETCURSEL, 0, 0), 2);
}

TEST_F(PeerTest, RowsThatTheModelAddsAreShown) {
  form().List1.AddItem("four");
  Pump();
  EXPECT_EQ(SendMessageW(HandleOf(form().List1), LB_GETCOUNT, 0, 0), 4);
  form().List1.Clear();
  Pump();
  EXPECT_EQ(SendMessageW(HandleOf(form().List1), LB_GETCOUNT, 0, 0), 0);
}

TEST_F(PeerTest, AHiddenListTakesItsRowsWhenItIsShown) {
  form().List1.Visible = false;
  form().List1.AddItem("four");
  Pump();
  EXPECT_EQ(SendMessageW(HandleOf(form().List1), LB_GETCOUNT, 0, 0), 3);
  form().List1.AddItem("five");
  form().List1.Visible = true;
  EXPECT_EQ(SendMessageW(HandleOf(form().List1), LB_GETCOUNT, 0, 0), 5);
}

TEST_F(PeerTest, TabGoesThroughTheStopsInOrder) {
  SetFocus(HandleOf(form().txtName));
  PostMessageW(GetFocus(), WM_KEYDOWN, VK_TAB, 1);
  Pump();
  EXPECT_EQ(GetFocus(), HandleOf(form().first));  // stands for its group
  PostMessageW(GetFocus(), WM_KEYDOWN, VK_TAB, 1);
  Pump();
  EXPECT_EQ(GetFocus(), HandleOf(form().Check1));
}

TEST_F(PeerTest, ArrowsMoveInsideAnOptionGroup) {
  form().first.Value = true;
  PressKey(form().first, VK_DOWN);
  EXPECT_TRUE(form().second.Value);
  EXPECT_EQ(GetFocus(), HandleOf(form().second));
}

TEST_F(PeerTest, EnterPressesTheDefaultButtonAndEscTheCancelButton) {
  std::string pressed;
  form().cmdOK.Click = [&] { pressed += "OK "; };
  form().cmdCancel.Click = [&] { pressed += "Cancel "; };
  PressKey(form().txtName, VK_RETURN);
  PressKey(form().txtName, VK_ESCAPE);
  EXPECT_EQ(pressed, "OK Cancel ");
}

TEST_F(PeerTest, EnterOnAnotherButtonPressesThatOne) {
  std::string pressed;
  form().cmdOK.Click = [&] { pressed += "OK "; };
  form().cmdCancel.Click = [&] { pressed += "Cancel "; };
  PressKey(form().cmdCancel, VK_RETURN);
  EXPECT_EQ(pressed, "Cancel ");
}

TEST_F(PeerTest, AccessKeysPressButtonsAndALabelsKeyGoesToItsBox) {
  bool pressed = false;
  form().cmdOK.Click = [&] { pressed = true; };
  PressAccessKey(L'o');
  EXPECT_TRUE(pressed);
  PressAccessKey(L'n');
  EXPECT_EQ(GetFocus(), HandleOf(form().txtName));
  PressAccessKey(L's');
  EXPECT_TRUE(form().second.Value);
}

TEST_F(PeerTest, AKeyHandlerMaySwallowAKey) {
  bool pressed = false;
  form().cmdOK.Click = [&] { pressed = true; };
  form().txtName.KeyDown = [](int& code, int) { code = 0; };
  PressKey(form().txtName, VK_RETURN);
  EXPECT_FALSE(pressed);
}

TEST_F(PeerTest, MouseMovesOverADrawnPictureAreItsOwn) {
  int x = -1;
  form().image.MouseMove = [&](int, int, int at_x, int) { x = at_x; };
  bool clicked = false;
  form().image.Click = [&] { clicked = true; };
  const ScreenScale scale = window().scale();
  const int left = scale.Pixels(3000) + 10;
  const int top = scale.Pixels(2400) + 10;
  PostMessageW(window().window(), WM_MOUSEMOVE, 0, MAKELPARAM(left, top));
  ClickWindow(window().window(), left, top);
  EXPECT_EQ(x, scale.Twips(10));
  EXPECT_TRUE(clicked);
}

TEST_F(PeerTest, AMenuCommandRunsItsHandlerAndADisabledOneDoesNot) {
  MenuItem& file = form().Add<MenuItem>("mnu_file");
  file.Caption = "&File";
  MenuItem& exit = form().Add<MenuItem>("mnu_exit");
  exit.SetParent(file);
  exit.Caption = "E&xit";
  int chosen = 0;
  exit.Click = [&] { ++chosen; };
  Pump();
  const HMENU menu = GetMenu(window().window());
  ASSERT_NE(menu, nullptr);
  const UINT command = GetMenuItemID(GetSubMenu(menu, 0), 0);
  SendMessageW(window().window(), WM_COMMAND, command, 0);
  EXPECT_EQ(chosen, 1);
  exit.Enabled = false;
  Pump();
  SendMessageW(window().window(), WM_COMMAND, GetMenuItemID(GetSubMenu(GetMenu(window().window()), 0), 0), 0);
  EXPECT_EQ(chosen, 1);
}

TEST_F(PeerTest, AMenuShortcutWorksFromAnyControl) {
  MenuItem& refresh = form().Add<MenuItem>("mnu_refresh");
  refresh.Caption = "&Refresh";
  refresh.Shortcut = std::string("F5");
  int chosen = 0;
  refresh.Click = [&] { ++chosen; };
  PressKey(form().txtName, VK_F5);
  EXPECT_EQ(chosen, 1);
}

TEST_F(PeerTest, ADisabledControlIsDisabledOnTheScreen) {
  form().cmdOK.Enabled = false;
  EXPECT_FALSE(IsWindowEnabled(HandleOf(form().cmdOK)));
  form().cmdOK.Visible = false;
  EXPECT_FALSE(IsWindowVisible(HandleOf(form().cmdOK)));
}

// A later control stands in front of an earlier one from the start, not only after the next change. A strip over the
// status line of the main window was never seen.
TEST_F(PeerTest, ALaterControlStandsInFrontFromTheStart) {
  CloseAllWindows();
  Pump();
  PictureBox& over = form().Add<PictureBox>("over");
  over.Move(150, 900, 2400, 1200);  // where Frame1 is
  form().Show();
  const ScreenScale scale = window().scale();
  const POINT place{scale.Pixels(300), scale.Pixels(1200)};
  EXPECT_EQ(ChildWindowFromPoint(window().window(), place), HandleOf(over));
  form().Frame1.ZOrder(0);
  EXPECT_EQ(ChildWindowFromPoint(window().window(), place), HandleOf(form().Frame1));
}

TEST_F(PeerTest, TheFocusLeavesAControlThatIsDisabled) {
  SetFocus(HandleOf(form().cmdOK));
  form().cmdOK.Enabled = false;
  Pump();
  EXPECT_EQ(GetFocus(), HandleOf(form().txtName));
}

// The words of the tip that stands on the screen after the mouse has rested there for a while.
std::wstring TipOver(Clock& clock, HWND under, POINT place) {
  SetCursorPos(0, 0);
  clock.RunPendingEvents();
  ClientToScreen(under, &place);
  SetCursorPos(place.x, place.y);
  for (int wait = 0; wait < 40; ++wait) {
    clock.RunPendingEvents();
    clock.SleepMs(50);
    const HWND tip = FindWindowW(TOOLTIPS_CLASSW, nullptr);
    if (!tip || !IsWindowVisible(tip)) continue;
    wchar_t text[100] = {};
    GetWindowTextW(tip, text, 100);
    return text;
  }
  return L"";
}

TEST_F(PeerTest, TheTipOfABoxAppearsUnderTheRestingMouse) {
  EXPECT_EQ(TipOver(platform.clock(), HandleOf(form().txtName), {20, 8}), L"A tip");
}

TEST_F(PeerTest, TheTipOfADrawnPictureAppearsUnderTheRestingMouse) {
  form().image.ToolTipText = std::string("Of a picture");
  const RECT area = window().PeerOf(form().image)->Area();
  const POINT place{area.left + 3, area.top + 3};
  EXPECT_EQ(TipOver(platform.clock(), window().window(), place), L"Of a picture");
}

TEST_F(PeerTest, ATipThatChangesAfterItWasReadIsTheNewOne) {
  EXPECT_EQ(TipOver(platform.clock(), HandleOf(form().txtName), {20, 8}), L"A tip");
  form().txtName.ToolTipText = std::string("Another");
  EXPECT_EQ(TipOver(platform.clock(), HandleOf(form().txtName), {20, 8}), L"Another");
}

// Keeps pop-up menus from waiting for a user: a timer runs in their message loop.
class PopUpTest : public PeerTest {
 protected:
  void SetUp() override {
    PeerTest::SetUp();
    item.SetParent(menu);
    item.Caption = "&Item";
    menu.Visible = false;
    Pump();
    shown = {};
  }
  void TearDown() override {
    SetKey(VK_APPS, 0);
    PeerTest::TearDown();
  }
  static void SetKey(int key, BYTE state) {
    BYTE keys[256] = {};
    GetKeyboardState(keys);
    keys[key] = state;
    SetKeyboardState(keys);
  }
  static void CALLBACK Look(HWND, UINT, UINT_PTR timer, DWORD) {
    const HWND popup = FindWindowW(L"#32768", nullptr);
    if (!popup || !IsWindowVisible(popup)) return;
    GetWindowRect(popup, &shown);
    KillTimer(nullptr, timer);
    EndMenu();
  }

  MenuItem& menu = form().Add<MenuItem>("mnu_popup");
  MenuItem& item = form().Add<MenuItem>("mnu_item");
  static inline RECT shown{};
};

TEST_F(PopUpTest, AMenuThatAKeyCallsUpOpensBelowTheCurrentRow) {
  form().List1.ListIndex = 1;
  form().List1.KeyDown = [this](int& code, int) {
    if (code != VK_APPS) return;
    code = 0;
    form().PopupMenu(menu);
  };
  SetCursorPos(5, 5);
  SetFocus(HandleOf(form().List1));
  RECT row{};
  SendMessageW(HandleOf(form().List1), LB_GETITEMRECT, 1, reinterpret_cast<LPARAM>(&row));
  POINT place{row.left, row.bottom};
  ClientToScreen(HandleOf(form().List1), &place);
  SetTimer(nullptr, 0, 20, &PopUpTest::Look);
  SetKey(VK_APPS, 0x80);
  PressKey(form().List1, VK_APPS);
  EXPECT_NEAR(shown.left, place.x, 8);
  EXPECT_NEAR(shown.top, place.y, 8);
}

RECT WorkAreaOf(HWND window) {
  MONITORINFO screen{};
  screen.cbSize = sizeof screen;
  GetMonitorInfoW(MonitorFromWindow(window, MONITOR_DEFAULTTOPRIMARY), &screen);
  return screen.rcWork;
}

TEST_F(PeerTest, AWindowLargerThanTheScreenIsMadeToFitIt) {
  CloseAllWindows();
  Pump();
  form().SetClientSize(60000, 60000);
  form().Show();
  const RECT work = WorkAreaOf(window().window());
  RECT outer{};
  GetWindowRect(window().window(), &outer);
  EXPECT_GE(outer.left, work.left);
  EXPECT_GE(outer.top, work.top);
  EXPECT_LE(outer.right, work.right);
  EXPECT_LE(outer.bottom, work.bottom);
  EXPECT_LT(form().Height, 60000);
}

TEST_F(PeerTest, AWindowWhosePlaceIsOffTheScreenComesBackOnIt) {
  CloseAllWindows();
  Pump();
  form().StartUpPosition = static_cast<int>(StartPosition::kManual);
  form().Left = 500000;
  form().Top = -500000;
  form().Show();
  const RECT work = WorkAreaOf(window().window());
  RECT outer{};
  GetWindowRect(window().window(), &outer);
  EXPECT_EQ(outer.right, work.right);
  EXPECT_EQ(outer.top, work.top);
}

TEST_F(PeerTest, AModalFormDisablesTheOthersAndGivesTheFocusBack) {
  class Question final : public Form {
   public:
    Question() : Form("frmquestion") { BorderStyle = static_cast<int>(FormBorder::kFixedDialog); }
  };
  const Ref<Question> question = MakeRef<Question>();
  const HWND main_window = window().window();
  bool was_disabled = false;
  platform.clock().Post([&] {
    was_disabled = !IsWindowEnabled(main_window);
    question->Unload();
  });
  question->ShowModal();
  EXPECT_TRUE(was_disabled);
  EXPECT_TRUE(IsWindowEnabled(main_window));
}

// After the question about an overwrite the window that was opened last came forward, not the one that had asked.
TEST_F(PeerTest, AModalFormGivesTheFocusBackToTheFormThatOpenedIt) {
  const HWND asking = window().window();
  const Ref<Form> other = MakeRef<Form>("frmother");
  other->Show();
  Pump();
  SetActiveWindow(asking);
  ASSERT_EQ(GetActiveWindow(), asking);
  const Ref<Form> question = MakeRef<Form>("frmquestion");
  platform.clock().Post([&] { question->Unload(); });
  question->ShowModal();
  EXPECT_EQ(GetActiveWindow(), asking);
  other->Unload();
}

TEST_F(PeerTest, ALabelThatNamesAFileHasNoAccessKey) {
  form().lblName.Caption = std::string("D&N.BMS");
  SetFocus(HandleOf(form().cmdCancel));
  form().lblName.UseMnemonic = false;
  PressAccessKey(L'n');
  EXPECT_EQ(GetFocus(), HandleOf(form().cmdCancel));
  form().lblName.UseMnemonic = true;
  PressAccessKey(L'n');
  EXPECT_EQ(GetFocus(), HandleOf(form().txtName));
}

TEST_F(PeerTest, ShowingAMinimizedFormAgainBringsItBack) {
  ShowWindow(window().window(), SW_MINIMIZE);
  ASSERT_TRUE(IsIconic(window().window()));
  form().Show();
  EXPECT_FALSE(IsIconic(window().window()));
}

TEST_F(PeerTest, AHandlerMayCloseItsOwnFormAndShowABoxAfterwards) {
  form().cmdOK.Click = [this] {
    form().Unload();
    platform.clock().RunPendingEvents();  // what a box's own message loop would do
  };
  ClickWindow(HandleOf(form().cmdOK));
  EXPECT_EQ(LoadedWindow(frmpeers::kName), nullptr);
}

TEST_F(PeerTest, GeometryFollowsTheScreensScale) {
  for (const int dpi : {96, 144, 192}) {
    CloseAllWindows();
    Pump();
    _wputenv_s(L"KESTRUN_DPI", std::to_wstring(dpi).c_str());
    form().Show();
    RECT client{};
    GetClientRect(window().window(), &client);
    EXPECT_EQ(client.right, MulDiv(6000, dpi, 1440)) << dpi;
    RECT box{};
    GetWindowRect(HandleOf(form().txtName), &box);
    EXPECT_EQ(box.right - box.left, MulDiv(150 + 2400, dpi, 1440) - MulDiv(150, dpi, 1440)) << dpi;
  }
}

int access_faults = 0;
LONG CALLBACK CountFault(EXCEPTION_POINTERS* fault) {
  if (fault->ExceptionRecord->ExceptionCode == EXCEPTION_ACCESS_VIOLATION) ++access_faults;
  return EXCEPTION_CONTINUE_SEARCH;
}

// The focus wandered to a control that had gone already; the system swallows such a fault inside a window procedure,
// and after some dozen of them it delivers no nested message any more.
TEST_F(PeerTest, ClosingAFormTouchesNoControlThatHasGone) {
  SetFocus(HandleOf(form().txtName));
  access_faults = 0;
  void* const watch = AddVectoredExceptionHandler(1, &CountFault);
  CloseAllWindows();
  Pump();
  RemoveVectoredExceptionHandler(watch);
  EXPECT_EQ(access_faults, 0);
}

TEST_F(PeerTest, NothingIsLeftOverWhenWindowsComeAndGo) {
  const auto open_and_close = [this] {
    form().Show();
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

TEST(AccessKey, IsTheLetterBehindTheMark) {
  EXPECT_EQ(AccessKeyOf(L"Put &map"), L'm');
  EXPECT_EQ(AccessKeyOf(L"&Ж"), L'ж');
  EXPECT_EQ(AccessKeyOf(L"Save && close"), L'\0');
  EXPECT_EQ(AccessKeyOf(L"ends in &"), L'\0');
}

}  // namespace
}  // namespace kestrun
