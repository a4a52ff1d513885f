// Scroll bars in dark colours: drawn by the program, and worked by it as the system works its own.
#include "desktop/win32/window/scroll_bar_face.h"
#include "desktop/win32/drawing/control_parts.h"
#include "desktop/win32/window_fixture.h"
#include "desktop/win32/window_shot.h"
#include "forms/combo_box.h"
#include "forms/list_box.h"
#include "forms/text_box.h"

namespace kestrun {
namespace {

constexpr Color kDark = Rgb(0x10, 0x20, 0x30);
constexpr Color kInk = Rgb(0xA0, 0xA8, 0xB0);
constexpr int kRows = 100;

class frmscrolled final : public Form {
 public:
  static constexpr const char* kName = "frmscrolled";
  frmscrolled() : Form(kName) {
    StartUpPosition = static_cast<int>(StartPosition::kManual);
    BorderStyle = static_cast<int>(FormBorder::kNone);
    ShowInTaskbar = false;
    SetClientSize(6000, 5400);
    List1.Move(150, 150, 2400, 2400);
    Combo1.Move(2700, 150, 2400, 315);
    Text1.Move(150, 2700, 2400, 2400);
    Text1.MultiLine = true;
    Text1.ScrollBars = 3;
    std::string lines;
    for (int row = 0; row < kRows; ++row) {
      const std::string name = "Map " + std::to_string(row);
      List1.AddItem(name);
      Combo1.AddItem(name);
      lines += name + " with a line that is longer than the box is wide\r\n";
    }
    Text1.Text = lines;
  }
  void MakeDark() {
    BackColor = kDark;
    for (const Ref<Control>& control : controls()) {
      control->BackColor = kDark;
      control->ForeColor = kInk;
    }
  }
  ListBox& List1 = Add<ListBox>("List1");
  ComboBox& Combo1 = Add<ComboBox>("Combo1");
  TextBox& Text1 = Add<TextBox>("Text1");
};

const WindowRegistration registration(frmscrolled::kName, [] { return MakeRef<frmscrolled>(); });

class ScrollBarFaceTest : public RealWindowTest, public testing::WithParamInterface<int> {
 protected:
  void SetUp() override {
    _wputenv_s(L"KESTRUN_DPI", std::to_wstring(GetParam()).c_str());
    form().Show();
    Pump();
    ::SetFocus(nullptr);  // the dots around the current row invert what is below them
    form().MakeDark();
    PumpAndPaint();
  }
  void PumpAndPaint() {
    Pump();
    RedrawWindow(HandleOf(static_cast<Form&>(form())), nullptr, nullptr, RDW_UPDATENOW | RDW_ALLCHILDREN);
    Pump();
  }
  static frmscrolled& form() { return Window<frmscrolled>(); }
  static HWND List() { return HandleOf(form().List1); }
  static HWND TextWindow() { return HandleOf(form().Text1); }
  static int TopRow() { return static_cast<int>(SendMessageW(List(), LB_GETTOPINDEX, 0, 0)); }
  static int FirstLine() { return static_cast<int>(SendMessageW(TextWindow(), EM_GETFIRSTVISIBLELINE, 0, 0)); }

  static ShownScrollBar Bar(HWND window, int kind = SB_VERT) {
    const std::optional<ShownScrollBar> bar = FindScrollBar(window, kind);
    EXPECT_TRUE(bar);
    return bar.value_or(ShownScrollBar{});
  }
  // A place on the bar, on the screen.
  static POINT PlaceOn(const ShownScrollBar& bar, int along) {
    const POINT middle{(bar.area.left + bar.area.right) / 2, (bar.area.top + bar.area.bottom) / 2};
    return bar.kind == SB_VERT ? POINT{middle.x, bar.area.top + along} : POINT{bar.area.left + along, middle.y};
  }
  static void Press(HWND window, const ShownScrollBar& bar, int along) {
    const POINT place = PlaceOn(bar, along);
    SendMessageW(window, WM_NCLBUTTONDOWN, bar.kind == SB_VERT ? HTVSCROLL : HTHSCROLL, MAKELPARAM(place.x, place.y));
  }
  static void DragTo(HWND window, const ShownScrollBar& bar, int along) {
    POINT place = PlaceOn(bar, along);
    ScreenToClient(window, &place);
    SendMessageW(window, WM_MOUSEMOVE, MK_LBUTTON, MAKELPARAM(place.x, place.y));
  }
  static void Release(HWND window) { SendMessageW(window, WM_LBUTTONUP, 0, 0); }
  static void Click(HWND window, const ShownScrollBar& bar, int along) {
    Press(window, bar, along);
    Release(window);
  }
  // The bar's pixel at a place along it, a little off its middle, where no arrow stands.
  static Color PixelOn(HWND window, const ShownScrollBar& bar, int along) {
    const RECT outside = PlaceOf(window);
    const POINT place = PlaceOn(bar, along);
    return ShotOf(window).At(place.x - outside.left, place.y - outside.top);
  }
  static Color Mixed(int percent) { return BlendColors(kDark, kInk, percent); }
};

TEST_P(ScrollBarFaceTest, NothingOfABarIsLight) {
  EXPECT_EQ(LightPixels(ShotOf(List())), 0);
  EXPECT_EQ(LightPixels(ShotOf(TextWindow())), 0);
  form().List1.Enabled = false;
  form().Text1.Enabled = false;
  PumpAndPaint();
  EXPECT_EQ(LightPixels(ShotOf(List())), 0);
  EXPECT_EQ(LightPixels(ShotOf(TextWindow())), 0);
}

TEST_P(ScrollBarFaceTest, TheThumbStandsOutFromItsTrackAndMovesWithTheRows) {
  const ShownScrollBar before = Bar(List());
  EXPECT_EQ(before.thumb_start, before.button);
  EXPECT_EQ(PixelOn(List(), before, before.thumb_start + 2), Mixed(35));
  EXPECT_EQ(PixelOn(List(), before, before.length - before.button - 2), Mixed(7));
  SendMessageW(List(), LB_SETTOPINDEX, kRows - 1, 0);
  PumpAndPaint();
  const ShownScrollBar after = Bar(List());
  EXPECT_EQ(after.thumb_start + after.thumb_length, after.length - after.button);
  EXPECT_EQ(PixelOn(List(), after, after.thumb_start + 2), Mixed(35));
  EXPECT_EQ(PixelOn(List(), after, after.button + 2), Mixed(7));
  EXPECT_EQ(LightPixels(ShotOf(List())), 0);
}

TEST_P(ScrollBarFaceTest, ArrowsGoALineAndTheTrackAPage) {
  const ShownScrollBar bar = Bar(List());
  Click(List(), bar, bar.length - 2);
  EXPECT_EQ(TopRow(), 1);
  Click(List(), bar, 2);
  EXPECT_EQ(TopRow(), 0);
  Click(List(), bar, bar.length - bar.button - 2);
  const int page = TopRow();
  EXPECT_GT(page, 3);
  Click(List(), Bar(List()), bar.button + 1);
  EXPECT_EQ(TopRow(), 0);
}

TEST_P(ScrollBarFaceTest, ARestingPressGoesOnUntilItIsReleased) {
  const ShownScrollBar bar = Bar(List());
  const POINT place = PlaceOn(bar, bar.length - 2);
  SetCursorPos(place.x, place.y);
  Press(List(), bar, bar.length - 2);
  for (int turn = 0; turn < 3; ++turn) SendMessageW(List(), WM_TIMER, 0x5250, 0);
  EXPECT_EQ(TopRow(), 4);
  Release(List());
  SendMessageW(List(), WM_TIMER, 0x5250, 0);
  EXPECT_EQ(TopRow(), 4);
  ParkMouse();
}

TEST_P(ScrollBarFaceTest, PagingEndsWhereTheThumbArrives) {
  const ShownScrollBar bar = Bar(List());
  const int along = bar.thumb_start + bar.thumb_length + 3;
  const POINT place = PlaceOn(bar, along);
  SetCursorPos(place.x, place.y);
  Press(List(), bar, along);
  for (int turn = 0; turn < 10; ++turn) SendMessageW(List(), WM_TIMER, 0x5250, 0);
  const ShownScrollBar arrived = Bar(List());
  EXPECT_LE(arrived.thumb_start, along);
  EXPECT_GT(arrived.thumb_start + arrived.thumb_length, along);
  Release(List());
  ParkMouse();
}

TEST_P(ScrollBarFaceTest, TheThumbTakesTheRowsWithIt) {
  const ShownScrollBar bar = Bar(List());
  Press(List(), bar, bar.thumb_start + 2);
  DragTo(List(), bar, bar.length);
  EXPECT_EQ(TopRow(), bar.last);
  Pump();
  EXPECT_EQ(PixelOn(List(), bar, bar.length - bar.button - 2), Mixed(55)) << "the thumb that is held";
  DragTo(List(), bar, 0);
  EXPECT_EQ(TopRow(), 0);
  DragTo(List(), bar, bar.length / 2);
  const int middle = TopRow();
  EXPECT_GT(middle, bar.last / 4);
  EXPECT_LT(middle, bar.last * 3 / 4);
  Release(List());
  EXPECT_EQ(TopRow(), middle);
  EXPECT_NE(GetCapture(), List());
  DragTo(List(), bar, 0);
  EXPECT_EQ(TopRow(), middle) << "the thumb is held no longer";
  EXPECT_EQ(LightPixels(ShotOf(List())), 0);
}

TEST_P(ScrollBarFaceTest, ATextBoxScrollsBothWays) {
  const ShownScrollBar down = Bar(TextWindow());
  Click(TextWindow(), down, down.length - 2);
  EXPECT_EQ(FirstLine(), 1);
  Press(TextWindow(), Bar(TextWindow()), Bar(TextWindow()).thumb_start + 2);
  DragTo(TextWindow(), down, down.length);
  Release(TextWindow());
  EXPECT_GT(FirstLine(), kRows / 2);
  EXPECT_EQ(Bar(TextWindow()).position, Bar(TextWindow()).last);
  const ShownScrollBar across = Bar(TextWindow(), SB_HORZ);
  EXPECT_EQ(across.position, 0);
  Click(TextWindow(), across, across.length - across.button - 2);
  PumpAndPaint();
  EXPECT_GT(Bar(TextWindow(), SB_HORZ).position, 0);
  EXPECT_EQ(LightPixels(ShotOf(TextWindow())), 0);
}

TEST_P(ScrollBarFaceTest, AnotherWindowThatTakesTheMouseEndsThePress) {
  const ShownScrollBar bar = Bar(List());
  Press(List(), bar, bar.thumb_start + 2);
  SetCapture(TextWindow());
  DragTo(List(), bar, bar.length);
  EXPECT_EQ(TopRow(), 0);
  ReleaseCapture();
}

TEST_P(ScrollBarFaceTest, ABarWithoutAnythingToScrollHasNoThumbAndDoesNothing) {
  form().Text1.Text = "short";
  PumpAndPaint();
  const ShownScrollBar bar = Bar(TextWindow());
  EXPECT_EQ(bar.thumb_length, 0);
  Click(TextWindow(), bar, bar.length - 2);
  EXPECT_EQ(FirstLine(), 0);
  EXPECT_EQ(LightPixels(ShotOf(TextWindow())), 0);
}

TEST_P(ScrollBarFaceTest, TheListOfAComboBoxHasADarkBarToo) {
  const HWND combo = HandleOf(form().Combo1);
  COMBOBOXINFO parts{};
  parts.cbSize = sizeof parts;
  GetComboBoxInfo(combo, &parts);
  SendMessageW(combo, CB_SHOWDROPDOWN, TRUE, 0);
  PumpAndPaint();
  const ShownScrollBar bar = Bar(parts.hwndList);
  EXPECT_EQ(LightPixels(ShotOf(parts.hwndList)), 0);
  Click(parts.hwndList, bar, bar.length - 2);
  EXPECT_EQ(SendMessageW(parts.hwndList, LB_GETTOPINDEX, 0, 0), 1);
  EXPECT_TRUE(SendMessageW(combo, CB_GETDROPPEDSTATE, 0, 0)) << "a press on the bar closes no list";
  SendMessageW(combo, CB_SHOWDROPDOWN, FALSE, 0);
}

TEST_P(ScrollBarFaceTest, InTheSystemsColoursTheBarIsTheSystems) {
  const Shot dark = ShotOf(List());
  form().List1.BackColor = color::kWindowBackground;
  form().List1.ForeColor = color::kWindowText;
  PumpAndPaint();
  const Shot light = ShotOf(List());
  EXPECT_EQ(CountOf(light, Mixed(35)), 0);
  EXPECT_NE(light, dark);
}

INSTANTIATE_TEST_SUITE_P(Scales, ScrollBarFaceTest, testing::Values(96, 144));

}  // namespace
}  // namespace kestrun
