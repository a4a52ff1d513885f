// A control that paints itself, in a real window and driven by real messages.
#include "platform/win32/user_control_peer.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include "forms/command_button.h"
#include "forms/form.h"
#include "forms/text_box.h"
#include "forms/window_registry.h"
#include "platform/win32/late_call.h"
#include "platform/win32/win32_platform.h"
#include "support/sample_user_control.h"
#include "win32/live_handles.h"

namespace kestrun {
namespace {

using testing::Contains;
using testing::ElementsAre;

class frmsamples final : public Form {
 public:
  static constexpr const char* kName = "frmsamples";
  frmsamples() : Form(kName) {
    StartUpPosition = static_cast<int>(StartPosition::kManual);
    // Without a caption no window manager moves it about.
    BorderStyle = static_cast<int>(FormBorder::kNone);
    ShowInTaskbar = false;
    SetClientSize(6000, 4500);
    txtName.Move(150, 150, 1500, 315);
    sample.Move(1800, 150, 3000, 1500);
    other.Move(1800, 1800, 3000, 1500);
    cmdOK.Move(150, 3900, 1200, 375);
    cmdOK.Default = true;
  }
  TextBox& txtName = Add<TextBox>("txtName");
  SampleControl& sample = Add<SampleControl>("sample");
  SampleControl& other = Add<SampleControl>("other");
  CommandButton& cmdOK = Add<CommandButton>("cmdOK");
};

const WindowRegistration registration(frmsamples::kName, [] { return MakeRef<frmsamples>(); });

class Win32UserControlTest : public testing::Test {
 protected:
  void SetUp() override {
    // A test whose form closed itself ended the program as far as the queue knows.
    MSG quit{};
    PeekMessageW(&quit, nullptr, WM_QUIT, WM_QUIT, PM_REMOVE);
    form().Show();
    ASSERT_FALSE(FormWindow::OpenWindows().empty()) << "no window came up: is there a display?";
    Pump();
    sample().log.clear();
  }
  void TearDown() override {
    CloseAllWindows();
    Pump();
    _wputenv_s(L"KESTRUN_DPI", L"");
  }

  static frmsamples& form() { return Window<frmsamples>(); }
  static SampleControl& sample() { return form().sample; }
  static FormWindow& window() { return *FormWindow::OpenWindows().back(); }
  static HWND HandleOf(Control& control) { return window().PeerOf(control)->window(); }
  static HWND Handle() { return HandleOf(sample()); }
  void Pump() { platform.clock().RunPendingEvents(); }

  void Send(UINT message, WPARAM first, LPARAM second) {
    PostMessageW(Handle(), message, first, second);
    Pump();
  }
  void PressKey(WPARAM key) {
    SetFocus(Handle());
    Pump();
    sample().log.clear();
    Send(WM_KEYDOWN, key, 1);
  }
  // What the sample wrote down but the leaving of the mouse, which on an empty desktop comes at any time.
  static std::vector<std::string> Log() {
    std::vector<std::string> lines = std::exchange(sample().log, {});
    std::erase(lines, "leave");
    return lines;
  }
  static Color PixelAt(HWND shown, int x, int y) {
    const HDC screen = GetDC(shown);
    const Color pixel = GetPixel(screen, x, y);
    ReleaseDC(shown, screen);
    return pixel;
  }
  void ShowBar(const ScrollBarState& state) {
    sample().bar = state;
    sample().Invalidate();
    Pump();
  }
  static bool HasBar() { return (GetWindowLongPtrW(Handle(), GWL_STYLE) & WS_VSCROLL) != 0; }
  static SCROLLINFO BarInfo() {
    SCROLLINFO info{};
    info.cbSize = sizeof info;
    info.fMask = SIF_ALL;
    GetScrollInfo(Handle(), SB_VERT, &info);
    return info;
  }
  static SIZE ClientSize(HWND shown) {
    RECT client{};
    GetClientRect(shown, &client);
    return {client.right, client.bottom};
  }
  static HWND PopupWindow() { return FindWindowW(L"KestrunPopup", nullptr); }

  Win32Platform platform;
  PlatformInstallation installation{platform};
};

// ---- painting ------------------------------------------------------------------------------------------------------

TEST_F(Win32UserControlTest, PaintsOnceForSeveralRequests) {
  const int before = sample().paints;
  for (int request = 0; request < 5; ++request) sample().Invalidate();
  Pump();
  EXPECT_EQ(sample().paints, before + 1);
}

TEST_F(Win32UserControlTest, IsNotAskedAgainForWhatWasCoveredOnly) {
  const int before = sample().paints;
  InvalidateRect(Handle(), nullptr, TRUE);
  Pump();
  EXPECT_EQ(sample().paints, before);
  EXPECT_EQ(PixelAt(Handle(), 150, 10), kSampleBackground);
}

TEST_F(Win32UserControlTest, ARequestDuringAPaintIsNotLost) {
  int left = 1;
  sample().on_paint = [&](Canvas&) {
    if (left-- > 0) sample().Invalidate();
  };
  const int before = sample().paints;
  sample().Invalidate();
  Pump();
  EXPECT_EQ(sample().paints, before + 2);
}

TEST_F(Win32UserControlTest, FillsAndStretchesPixelsWithoutSmoothing) {
  ASSERT_EQ(sample().client(), (PixelSize{200, 100}));
  EXPECT_EQ(PixelAt(Handle(), 150, 10), kSampleBackground);
  EXPECT_EQ(PixelAt(Handle(), 0, 0), Rgb(255, 0, 0));
  EXPECT_EQ(PixelAt(Handle(), 49, 24), Rgb(255, 0, 0));
  EXPECT_EQ(PixelAt(Handle(), 51, 24), Rgb(0, 255, 0));
  EXPECT_EQ(PixelAt(Handle(), 10, 40), Rgb(0, 0, 255));
  EXPECT_EQ(PixelAt(Handle(), 99, 49), Rgb(255, 255, 255));
}

TEST_F(Win32UserControlTest, TextIsSeen) {
  const auto lit = [this] {
    sample().Invalidate();
    Pump();
    int count = 0;
    for (int x = 0; x < 200; x += 1) {
      for (int y = 60; y < 90; ++y) count += PixelAt(Handle(), x, y) != kSampleBackground ? 1 : 0;
    }
    return count;
  };
  EXPECT_EQ(lit(), 0);
  sample().text = "Ж & text";
  const int some = lit();
  EXPECT_GT(some, 20);
  sample().text = std::string(100000, 'm');
  EXPECT_GT(lit(), some);
}

TEST_F(Win32UserControlTest, OfAVeryLongTextTheSidePaintsThatItIsAlignedTo) {
  const std::string filler(100000, 'i');
  std::string two_bytes;
  for (int letter = 0; letter < 50001; ++letter) two_bytes += "Ж";
  const auto paint = [this](const std::string& text, TextPlacement placement) {
    sample().on_paint = [&](Canvas& canvas) { canvas.Text(text, {0, 50, 200, 100}, {}, color::kWhite, placement); };
    sample().Invalidate();
    Pump();
    sample().on_paint = nullptr;
  };
  const auto pixels = [](int from, int to) {
    std::vector<Color> row;
    for (int x = from; x < to; ++x) {
      for (int y = 60; y < 90; ++y) row.push_back(PixelAt(Handle(), x, y));
    }
    return row;
  };
  paint("WAVE", TextPlacement::kLeft);
  const auto at_left = pixels(0, 20);
  paint("WAVE" + filler, TextPlacement::kLeft);
  EXPECT_EQ(pixels(0, 20), at_left);
  paint("WAVE", TextPlacement::kRight);
  const auto at_right = pixels(180, 200);
  paint(filler + "WAVE", TextPlacement::kRight);
  EXPECT_EQ(pixels(180, 200), at_right);
  paint("I", TextPlacement::kCenter);
  EXPECT_NE(pixels(95, 105), std::vector<Color>(300, kSampleBackground));
  EXPECT_EQ(pixels(0, 90), std::vector<Color>(2700, kSampleBackground));
  // Cut at any byte: no half of a letter is shown as a mark of its own.
  paint("Ж", TextPlacement::kLeft);
  const int step = sample().MeasureText("ЖЖ", {}).width / 2;
  const auto letter = pixels(0, step);
  paint(two_bytes, TextPlacement::kLeft);
  EXPECT_EQ(pixels(0, step), letter);
  paint(two_bytes, TextPlacement::kRight);
  const auto last = pixels(200 - step, 200);
  paint("x" + two_bytes, TextPlacement::kRight);
  EXPECT_EQ(pixels(200 - step, 200), last);
  paint("x" + two_bytes, TextPlacement::kCenter);
  EXPECT_NE(pixels(95, 105), std::vector<Color>(300, kSampleBackground));
}

TEST_F(Win32UserControlTest, AlignsFramesClipsAndMarksTheFocus) {
  const auto count = [](int from, int to) {
    int lit = 0;
    for (int x = from; x < to; ++x) {
      for (int y = 60; y < 90; ++y) lit += PixelAt(Handle(), x, y) != kSampleBackground ? 1 : 0;
    }
    return lit;
  };
  sample().on_paint = [&](Canvas& canvas) {
    canvas.Text("right", {0, 50, 190, 100}, {}, color::kWhite, TextPlacement::kRight);
    canvas.Frame({110, 5, 130, 25}, Rgb(1, 2, 3));
    canvas.HorizontalLine(110, 120, 30, Rgb(4, 5, 6));
    canvas.FocusRectangle({140, 5, 180, 25});
    canvas.PushClip({110, 35, 150, 45});
    canvas.PushClip({120, 0, 200, 100});
    canvas.Fill({0, 0, 200, 100}, Rgb(7, 8, 9));
    canvas.PopClip();
    canvas.Fill({110, 35, 111, 100}, Rgb(7, 8, 9));
    canvas.PopClip();
    canvas.Fill({199, 99, 200, 100}, Rgb(9, 9, 9));
  };
  sample().Invalidate();
  Pump();
  EXPECT_EQ(count(0, 100), 0);
  EXPECT_GT(count(150, 190), 10);
  EXPECT_EQ(PixelAt(Handle(), 110, 5), Rgb(1, 2, 3));
  EXPECT_EQ(PixelAt(Handle(), 129, 24), Rgb(1, 2, 3));
  EXPECT_EQ(PixelAt(Handle(), 111, 6), kSampleBackground);
  EXPECT_EQ(PixelAt(Handle(), 119, 30), Rgb(4, 5, 6));
  EXPECT_EQ(PixelAt(Handle(), 120, 30), kSampleBackground);
  EXPECT_NE(PixelAt(Handle(), 140, 5) == kSampleBackground, PixelAt(Handle(), 141, 5) == kSampleBackground);
  EXPECT_EQ(PixelAt(Handle(), 125, 40), Rgb(7, 8, 9));
  EXPECT_EQ(PixelAt(Handle(), 110, 40), Rgb(7, 8, 9));
  EXPECT_EQ(PixelAt(Handle(), 115, 40), kSampleBackground);
  EXPECT_EQ(PixelAt(Handle(), 155, 40), kSampleBackground);
  EXPECT_EQ(PixelAt(Handle(), 199, 99), Rgb(9, 9, 9));
}

TEST_F(Win32UserControlTest, PicturesKeepTheirTransparency) {
  // Opaque red beside nothing at all.
  const auto picture = MakeRef<Picture>(2, 1, std::vector<uint32_t>{0xFFFF0000, 0x00FFFFFF});
  sample().on_paint = [&](Canvas& canvas) { canvas.DrawPicture(*picture, {120, 0, 160, 20}); };
  sample().Invalidate();
  Pump();
  EXPECT_EQ(PixelAt(Handle(), 125, 10), Rgb(255, 0, 0));
  EXPECT_EQ(PixelAt(Handle(), 155, 10), kSampleBackground);
}

TEST_F(Win32UserControlTest, TextIsMeasuredTheSameInAndOutsideOfPaint) {
  const FontDescription font{"Tahoma", 12, true};
  PixelSize inside;
  sample().on_paint = [&](Canvas& canvas) { inside = canvas.MeasureText("Wide Ж", font); };
  sample().Invalidate();
  Pump();
  EXPECT_GT(inside.width, 20);
  EXPECT_EQ(sample().MeasureText("Wide Ж", font), inside);
  EXPECT_EQ(sample().MeasureText("", font), (PixelSize{0, inside.height}));
  EXPECT_EQ(sample().MeasureText("a\r\tb", font), sample().MeasureText("a  b", font));
}

TEST_F(Win32UserControlTest, APaintMayCloseItsOwnForm) {
  sample().on_paint = [](Canvas& canvas) {
    form().Unload();
    canvas.Fill({0, 0, 10, 10}, color::kWhite);
  };
  sample().Invalidate();
  Pump();
  EXPECT_EQ(LoadedWindow(frmsamples::kName), nullptr);
}

TEST_F(Win32UserControlTest, AFailingPaintIsReportedOnce) {
  int boxes = 0;
  const TimerId timer = platform.clock().StartTimer(10, [&boxes] {
    const HWND box = FindWindowW(L"#32770", nullptr);
    if (!box || !IsWindowVisible(box)) return;
    ++boxes;
    SendMessageW(box, WM_COMMAND, IDOK, 0);
  });
  sample().on_paint = [](Canvas&) { Raise(error::kTypeMismatch); };
  sample().Invalidate();
  Pump();
  Pump();
  platform.clock().StopTimer(timer);
  EXPECT_EQ(boxes, 1);
  EXPECT_EQ(PixelAt(Handle(), 150, 10), kSampleBackground);
}

TEST_F(Win32UserControlTest, PaintsAnewWhenTheSystemsColoursChange) {
  const int before = sample().paints;
  SendMessageW(window().window(), WM_SYSCOLORCHANGE, 0, 0);
  Pump();
  EXPECT_EQ(sample().paints, before + 1);
}

// ---- size and frame ------------------------------------------------------------------------------------------------

TEST_F(Win32UserControlTest, KnowsItsPixelsAtEachScale) {
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

TEST_F(Win32UserControlTest, GrowsWhenItMovesToAFinerScreen) {
  RECT place{0, 0, 700, 600};
  SendMessageW(window().window(), 0x02E0 /* WM_DPICHANGED */, MAKEWPARAM(144, 144), reinterpret_cast<LPARAM>(&place));
  Pump();
  EXPECT_EQ(sample().dpi(), 144);
  EXPECT_EQ(sample().client(), (PixelSize{300, 150}));
  EXPECT_EQ(PixelAt(Handle(), 149, 74), Rgb(255, 255, 255));
}

TEST_F(Win32UserControlTest, AFrameTakesItsRoomAndMayChange) {
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

TEST_F(Win32UserControlTest, APressKeepsTheMouseUntilItsRelease) {
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

TEST_F(Win32UserControlTest, AReleaseWithoutAPressIsNotItsOwn) {
  Send(WM_LBUTTONUP, 0, MAKELPARAM(5, 5));
  EXPECT_THAT(Log(), ElementsAre());
}

TEST_F(Win32UserControlTest, ADragEndsOutsideWhenAnotherWindowTakesTheMouse) {
  Send(WM_RBUTTONDOWN, MK_RBUTTON, MAKELPARAM(5, 5));
  SetCapture(window().window());
  Pump();
  ReleaseCapture();
  EXPECT_THAT(Log(), ElementsAre("focus 1", "down 2 0 5 5", "up 2 0 -1 -1"));
}

TEST_F(Win32UserControlTest, ADoubleClickComesInPlaceOfTheSecondPress) {
  Send(WM_LBUTTONDOWN, MK_LBUTTON, MAKELPARAM(5, 5));
  Send(WM_LBUTTONUP, 0, MAKELPARAM(5, 5));
  Send(WM_LBUTTONDBLCLK, MK_LBUTTON, MAKELPARAM(5, 5));
  Send(WM_LBUTTONUP, 0, MAKELPARAM(5, 5));
  EXPECT_THAT(Log(), ElementsAre("focus 1", "down 1 0 5 5", "up 1 0 5 5", "double 5 5", "up 1 0 5 5"));
}

TEST_F(Win32UserControlTest, AControlThatTakesNoFocusLeavesItWhereItWas) {
  SetFocus(HandleOf(form().txtName));
  sample().takes_focus = false;
  Send(WM_LBUTTONDOWN, MK_LBUTTON, MAKELPARAM(5, 5));
  Send(WM_LBUTTONUP, 0, MAKELPARAM(5, 5));
  EXPECT_EQ(GetFocus(), HandleOf(form().txtName));
}

TEST_F(Win32UserControlTest, HearsWhenTheMouseLeaves) {
  Send(WM_MOUSEMOVE, 0, MAKELPARAM(5, 5));
  Send(WM_MOUSELEAVE, 0, 0);
  EXPECT_THAT(sample().log, Contains("leave"));
}

TEST_F(Win32UserControlTest, PartsOfANotchAddUp) {
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

TEST_F(Win32UserControlTest, TheWheelGoesToTheControlUnderTheMouse) {
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

TEST_F(Win32UserControlTest, GetsTheKeysThatAFormWouldUse) {
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

TEST_F(Win32UserControlTest, AHandlerSeesAKeyFirstAndMaySwallowIt) {
  int seen = 0;
  sample().KeyDown = [&](int& code, int) { seen = std::exchange(code, 0); };
  PressKey(VK_DOWN);
  EXPECT_EQ(seen, VK_DOWN);
  EXPECT_THAT(Log(), ElementsAre());
}

TEST_F(Win32UserControlTest, ArrowsReachItOnce) {
  PressKey(VK_DOWN);
  EXPECT_THAT(Log(), ElementsAre("key 40 0"));
}

TEST_F(Win32UserControlTest, TheKeysOfPopUpMenusReachIt) {
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

TEST_F(Win32UserControlTest, CharactersArriveWhole) {
  SetFocus(Handle());
  Pump();
  sample().log.clear();
  Send(WM_CHAR, L'Ж', 1);
  Send(WM_CHAR, 0xD83D, 1);
  Send(WM_CHAR, 0xDE00, 1);
  Send(WM_CHAR, 0xDE00, 1);  // half a character is none
  EXPECT_THAT(Log(), ElementsAre("char 1046", "char 128512"));
}

TEST_F(Win32UserControlTest, TabComesAndGoes) {
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

TEST_F(Win32UserControlTest, AsksDialoguesForArrowsAndCharactersButNotForTab) {
  EXPECT_EQ(SendMessageW(Handle(), WM_GETDLGCODE, 0, 0), DLGC_WANTARROWS | DLGC_WANTCHARS);
}

// ---- scroll bar ----------------------------------------------------------------------------------------------------

TEST_F(Win32UserControlTest, TheBarShowsTheStateAndTakesItsRoom) {
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

TEST_F(Win32UserControlTest, ABarWithNothingToScrollIsDisabled) {
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

TEST_F(Win32UserControlTest, AFlatBarScrollsLikeAnyOther) {
  ShowBar({true, true, 3, 90, 10});
  EXPECT_TRUE(HasBar());
  EXPECT_EQ(BarInfo().nPos, 3);
  ShowBar({true, false, 4, 90, 10});
  EXPECT_EQ(BarInfo().nPos, 4);
}

TEST_F(Win32UserControlTest, TheBarMovesByLinesPagesAndThumb) {
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
  EXPECT_EQ(BarInfo().nPos, 33);
  EXPECT_EQ(scroll(SB_BOTTOM), 90);
  EXPECT_EQ(scroll(SB_PAGEDOWN), 90);
  EXPECT_EQ(scroll(SB_TOP), 0);
  EXPECT_EQ(scroll(SB_LINEUP), 0);
  sample().log.clear();
  EXPECT_EQ(scroll(SB_ENDSCROLL), 0);
  EXPECT_THAT(Log(), ElementsAre());
}

// ---- screen readers ------------------------------------------------------------------------------------------------

VARIANT ChildNumber(long number) {
  VARIANT child{};
  child.vt = VT_I4;
  child.lVal = number;
  return child;
}

std::wstring NameOf(IAccessible& object, long child) {
  BSTR name = nullptr;
  object.get_accName(ChildNumber(child), &name);
  const std::wstring text = name ? name : L"";
  SysFreeString(name);
  return text;
}

class Win32AccessibleTest : public Win32UserControlTest {
 protected:
  void SetUp() override {
    Win32UserControlTest::SetUp();
    CoInitialize(nullptr);
    sample().rows = {"first", "zweite Ж", "third"};
    sample().selected = 1;
    const HRESULT found = KESTRUN_LATE(L"oleacc.dll", AccessibleObjectFromWindow)(
        Handle(), static_cast<DWORD>(OBJID_CLIENT), __uuidof(IAccessible), reinterpret_cast<void**>(&object));
    ASSERT_EQ(found, S_OK);
  }
  void TearDown() override {
    if (object) object->Release();
    Win32UserControlTest::TearDown();
    CoUninitialize();
  }
  long StateOf(long child) {
    VARIANT state{};
    EXPECT_EQ(object->get_accState(ChildNumber(child), &state), S_OK);
    return state.lVal;
  }

  IAccessible* object = nullptr;
};

TEST_F(Win32AccessibleTest, AReaderGetsNameRoleAndRows) {
  EXPECT_EQ(NameOf(*object, CHILDID_SELF), L"Sample");
  VARIANT role{};
  EXPECT_EQ(object->get_accRole(ChildNumber(CHILDID_SELF), &role), S_OK);
  EXPECT_EQ(role.lVal, ROLE_SYSTEM_LIST);
  EXPECT_EQ(object->get_accRole(ChildNumber(1), &role), S_OK);
  EXPECT_EQ(role.lVal, ROLE_SYSTEM_LISTITEM);
  long count = 0;
  EXPECT_EQ(object->get_accChildCount(&count), S_OK);
  EXPECT_EQ(count, 3);
  EXPECT_EQ(NameOf(*object, 2), L"zweite Ж");
  BSTR none = nullptr;
  EXPECT_EQ(object->get_accName(ChildNumber(4), &none), E_INVALIDARG);
  EXPECT_EQ(object->get_accName(ChildNumber(-1), &none), E_INVALIDARG);
}

TEST_F(Win32AccessibleTest, AReaderHearsWhichRowIsSelectedAndHasTheFocus) {
  SetFocus(Handle());
  constexpr long kBoth = STATE_SYSTEM_SELECTED | STATE_SYSTEM_FOCUSED;
  EXPECT_EQ(StateOf(2) & kBoth, kBoth);
  EXPECT_EQ(StateOf(1) & kBoth, 0);
  EXPECT_EQ(StateOf(1) & STATE_SYSTEM_OFFSCREEN, 0);
  EXPECT_NE(StateOf(3) & STATE_SYSTEM_OFFSCREEN, 0);
  EXPECT_NE(StateOf(CHILDID_SELF) & STATE_SYSTEM_FOCUSED, 0);
  VARIANT child{};
  EXPECT_EQ(object->get_accFocus(&child), S_OK);
  EXPECT_EQ(child.lVal, 2);
  EXPECT_EQ(object->get_accSelection(&child), S_OK);
  EXPECT_EQ(child.lVal, 2);
  SetFocus(HandleOf(form().txtName));
  EXPECT_EQ(StateOf(2) & kBoth, STATE_SYSTEM_SELECTED);
}

TEST_F(Win32AccessibleTest, RowsHaveTheirPlaceOnTheScreen) {
  POINT corner{};
  ClientToScreen(Handle(), &corner);
  long left = 0;
  long top = 0;
  long width = 0;
  long height = 0;
  EXPECT_EQ(object->accLocation(&left, &top, &width, &height, ChildNumber(2)), S_OK);
  EXPECT_EQ(left, corner.x);
  EXPECT_EQ(top, corner.y + 10);
  EXPECT_EQ(width, 50);
  EXPECT_EQ(height, 10);
  VARIANT child{};
  EXPECT_EQ(object->accHitTest(left + 5, top + 5, &child), S_OK);
  EXPECT_EQ(child.lVal, 2);
  EXPECT_EQ(object->accHitTest(left + 100, top + 5, &child), S_OK);
  EXPECT_EQ(child.lVal, CHILDID_SELF);
}

TEST_F(Win32AccessibleTest, AReaderThatHoldsOnAfterTheFormHasGoneGetsAnError) {
  CloseAllWindows();
  Pump();
  long count = 0;
  EXPECT_EQ(object->get_accChildCount(&count), CO_E_OBJNOTCONNECTED);
}

std::vector<std::pair<DWORD, LONG>> heard;
void CALLBACK Hear(HWINEVENTHOOK, DWORD event, HWND window, LONG object, LONG child, DWORD, DWORD) {
  if (object == OBJID_CLIENT && GetClassNameW(window, nullptr, 0) >= 0) heard.emplace_back(event, child);
}

TEST_F(Win32UserControlTest, ReadersAreToldOfAnotherRow) {
  heard.clear();
  const HWINEVENTHOOK hook = SetWinEventHook(EVENT_OBJECT_REORDER, EVENT_OBJECT_NAMECHANGE, nullptr, &Hear,
                                             GetCurrentProcessId(), 0, WINEVENT_OUTOFCONTEXT);
  ASSERT_NE(hook, nullptr);
  sample().TellAccessibility(AccessibleEvent::kFocus, 2);
  sample().TellAccessibility(AccessibleEvent::kSelection, 0);
  sample().TellAccessibility(AccessibleEvent::kName);
  Pump();
  UnhookWinEvent(hook);
  EXPECT_THAT(heard, ElementsAre(std::pair<DWORD, LONG>(EVENT_OBJECT_FOCUS, 3), std::pair(EVENT_OBJECT_SELECTION, 1),
                                 std::pair(EVENT_OBJECT_NAMECHANGE, CHILDID_SELF)));
}

// ---- the surface in front of all windows ---------------------------------------------------------------------------

TEST_F(Win32UserControlTest, TheSurfaceAppearsAtItsPlaceAndTakesNoFocus) {
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

TEST_F(Win32UserControlTest, TheSurfaceGoesWithItsControl) {
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

TEST_F(Win32UserControlTest, WhatTheSurfaceIsNotPaintedOnHasTheColourOfTips) {
  sample().ShowPopup({10, 10, 60, 30}, [](Canvas& canvas) { canvas.Fill({0, 0, 5, 5}, Rgb(1, 1, 1)); });
  EXPECT_EQ(PixelAt(PopupWindow(), 2, 2), Rgb(1, 1, 1));
  EXPECT_EQ(PixelAt(PopupWindow(), 20, 10), GetSysColor(COLOR_INFOBK));
}

TEST_F(Win32UserControlTest, TheDesktopIsKnown) {
  POINT corner{};
  ClientToScreen(Handle(), &corner);
  EXPECT_EQ(sample().ScreenPosition(), (PixelPoint{corner.x, corner.y}));
  EXPECT_GE(sample().ScreenSize().width, 640);
  EXPECT_GE(sample().ScreenSize().height, 480);
}

// ---- what is left over ---------------------------------------------------------------------------------------------

TEST_F(Win32UserControlTest, NothingIsLeftOverWhenControlsComeAndGo) {
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
  EXPECT_LE(LiveGraphicsObjects(), graphics + 2);
  EXPECT_LE(LiveWindows(), windows + 2);
}

}  // namespace
}  // namespace kestrun
