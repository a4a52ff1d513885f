// Colours, pictures, drawings, lines and combo boxes on real windows.
#include "desktop/win32/window_fixture.h"
#include "forms/check_box.h"
#include "forms/combo_box.h"
#include "forms/command_button.h"
#include "forms/frame.h"
#include "forms/line_control.h"
#include "forms/option_button.h"
#include "forms/picture_box.h"
#include "forms/shape_control.h"

namespace kestrun {
namespace {

constexpr Color kDark = 0x302010;
constexpr Color kInk = 0x00FFFF;

class frmlooks final : public Form {
 public:
  static constexpr const char* kName = "frmlooks";
  frmlooks() : Form(kName) {
    StartUpPosition = static_cast<int>(StartPosition::kManual);
    BorderStyle = static_cast<int>(FormBorder::kNone);
    ShowInTaskbar = false;
    SetClientSize(6000, 4500);
    Command1.Move(150, 150, 1500, 600);
    Command1.Caption = "Button";
    Check1.Move(150, 900, 1500, 300);
    Check1.Caption = "Check";
    Option1.Move(150, 1350, 1500, 300);
    Option1.Caption = "Option";
    Combo1.Move(150, 1800, 1500, 315);
    Picture1.Move(3000, 150, 1500, 900);
    Line1.X1 = 3000;
    Line1.Y1 = 1500;
    Line1.X2 = 4500;
    Line1.Y2 = 1500;
    Line1.BorderColor = 0x0000FF;
    Shape1.Move(3000, 1800, 1500, 900);
    Shape1.FillStyle = 0;
    Shape1.FillColor = 0x00FF00;
    for (const char* row : {"Desert", "Harbour", "Oasis"}) Combo1.AddItem(row);
  }
  CommandButton& Command1 = Add<CommandButton>("Command1");
  CheckBox& Check1 = Add<CheckBox>("Check1");
  OptionButton& Option1 = Add<OptionButton>("Option1");
  ComboBox& Combo1 = Add<ComboBox>("Combo1");
  PictureBox& Picture1 = Add<PictureBox>("Picture1");
  LineControl& Line1 = Add<LineControl>("Line1");
  ShapeControl& Shape1 = Add<ShapeControl>("Shape1");
};

const WindowRegistration registration(frmlooks::kName, [] { return MakeRef<frmlooks>(); });

class LooksTest : public RealWindowTest {
 protected:
  void SetUp() override {
    form().Show();
    Pump();
  }
  static frmlooks& form() { return Window<frmlooks>(); }
  static HWND Handle() { return HandleOf(static_cast<Form&>(form())); }
  // Whether the control shows both colours now.
  bool Shows(Control& control, Color back, Color ink) {
    Pump();
    const SIZE client = ClientOf(HandleOf(control));
    const RECT all{0, 0, client.cx, client.cy};
    return CountPixels(HandleOf(control), all, back) > 50 && CountPixels(HandleOf(control), all, ink) > 0;
  }
};

TEST_F(LooksTest, ButtonsOfAllKindsShowTheirColours) {
  for (Control* control : std::initializer_list<Control*>{&form().Command1, &form().Check1, &form().Option1}) {
    control->BackColor = kDark;
    control->ForeColor = kInk;
    EXPECT_TRUE(Shows(*control, kDark, kInk)) << control->Name();
  }
}

TEST_F(LooksTest, AButtonInColoursIsPressedByMouseAndKeys) {
  int clicks = 0;
  form().Command1.Click = [&] { ++clicks; };
  form().Command1.BackColor = kDark;
  PostMessageW(HandleOf(form().Command1), WM_LBUTTONDOWN, MK_LBUTTON, MAKELPARAM(5, 5));
  PostMessageW(HandleOf(form().Command1), WM_LBUTTONUP, 0, MAKELPARAM(5, 5));
  Pump();
  EXPECT_EQ(clicks, 1);
  ::SetFocus(HandleOf(form().Command1));
  PostMessageW(HandleOf(form().Command1), WM_KEYDOWN, VK_SPACE, 1);
  PostMessageW(HandleOf(form().Command1), WM_KEYUP, VK_SPACE, 1);
  Pump();
  EXPECT_EQ(clicks, 2);
}

TEST_F(LooksTest, AGraphicalButtonShowsItsPicture) {
  form().Command1.Style = 1;
  form().Command1.Picture = MakeRef<Picture>(16, 16, std::vector<uint32_t>(256, 0xFF0000FF));
  Pump();
  EXPECT_EQ(CountPixels(HandleOf(form().Command1), {0, 0, 100, 40}, 0xFF0000), 256);
}

TEST_F(LooksTest, AGraphicalCheckBoxIsPressedDownWhileItIsTicked) {
  form().Check1.Style = 1;
  form().Check1.Caption = "";  // there is no room for both in it
  form().Check1.Picture = MakeRef<Picture>(4, 4, std::vector<uint32_t>(16, 0xFF0000FF));
  form().Check1.DownPicture = MakeRef<Picture>(4, 4, std::vector<uint32_t>(16, 0xFF00FF00));
  PostMessageW(HandleOf(form().Check1), WM_LBUTTONDOWN, MK_LBUTTON, MAKELPARAM(5, 5));
  PostMessageW(HandleOf(form().Check1), WM_LBUTTONUP, 0, MAKELPARAM(5, 5));
  Pump();
  EXPECT_EQ(form().Check1.Value, 1);
  EXPECT_EQ(CountPixels(HandleOf(form().Check1), {0, 0, 100, 20}, 0x00FF00), 16);
}

TEST_F(LooksTest, WhatIsDrawnOnAFormIsStillThereWhenItIsUncovered) {
  CallMember(form(), "Line", {0, 3000, 1500, 4500, 0xFF0000, "BF"});
  Pump();
  EXPECT_EQ(PixelAt(Handle(), 50, 250), 0xFF0000U);
  InvalidateRect(Handle(), nullptr, TRUE);
  Pump();
  EXPECT_EQ(PixelAt(Handle(), 50, 250), 0xFF0000U);
  CallMember(form(), "Cls");
  Pump();
  EXPECT_EQ(PixelAt(Handle(), 50, 250), GetSysColor(COLOR_BTNFACE));
}

// A style's gradient goes to the device whose number hDC gives.
TEST_F(LooksTest, WhatTheSystemDrawsOnTheNumberOfABoxStays) {
  const auto device = reinterpret_cast<HDC>(static_cast<intptr_t>(form().Picture1.DrawingContext()));
  const RECT area{10, 10, 30, 30};
  FillRect(device, &area, static_cast<HBRUSH>(GetStockObject(BLACK_BRUSH)));
  Pump();
  EXPECT_EQ(PixelAt(HandleOf(form().Picture1), 20, 20), 0U);
  EXPECT_EQ(PixelAt(HandleOf(form().Picture1), 40, 40), GetSysColor(COLOR_BTNFACE));
}

TEST_F(LooksTest, LinesAndShapesAreDrawnAndLetTheMouseThrough) {
  EXPECT_EQ(PixelAt(Handle(), 250, 100), 0x0000FFU);
  EXPECT_EQ(PixelAt(Handle(), 250, 150), 0x00FF00U);
  int clicks = 0;
  static_cast<Control&>(form()).Click = [&] { ++clicks; };
  PostMessageW(Handle(), WM_LBUTTONDOWN, MK_LBUTTON, MAKELPARAM(250, 150));
  PostMessageW(Handle(), WM_LBUTTONUP, 0, MAKELPARAM(250, 150));
  Pump();
  EXPECT_EQ(clicks, 1);
  form().Shape1.Shape = static_cast<int>(ShapeKind::kOval);
  Pump();
  EXPECT_EQ(PixelAt(Handle(), 202, 122), GetSysColor(COLOR_BTNFACE));
  EXPECT_EQ(PixelAt(Handle(), 250, 150), 0x00FF00U);
}

TEST_F(LooksTest, AComboBoxShowsAndTakesItsRowsAndItsText) {
  const HWND combo = HandleOf(form().Combo1);
  EXPECT_EQ(SendMessageW(combo, CB_GETCOUNT, 0, 0), 3);
  form().Combo1.ListIndex = 1;
  EXPECT_EQ(TextOf(combo), L"Harbour");
  SendMessageW(combo, CB_SETCURSEL, 2, 0);
  SendMessageW(Handle(), WM_COMMAND, MAKEWPARAM(0, CBN_SELCHANGE), reinterpret_cast<LPARAM>(combo));
  EXPECT_EQ(form().Combo1.Text.get(), "Oasis");
  const HWND edit = GetWindow(combo, GW_CHILD);
  SendMessageW(edit, EM_SETSEL, 0, -1);
  for (const wchar_t letter : std::wstring(L"Ж")) SendMessageW(edit, WM_CHAR, letter, 1);
  EXPECT_EQ(form().Combo1.Text.get(), "Ж");
  EXPECT_EQ(form().Combo1.ListIndex, -1);
}

TEST_F(LooksTest, AComboBoxIsMadeAgainForAnotherStyleAndKeepsItsRow) {
  form().Combo1.ListIndex = 1;
  form().Combo1.Style = static_cast<int>(ComboStyle::kList);
  Pump();
  const HWND combo = HandleOf(form().Combo1);
  EXPECT_EQ(SendMessageW(combo, CB_GETCURSEL, 0, 0), 1);
  EXPECT_EQ(GetWindowLongPtrW(combo, GWL_STYLE) & 3, CBS_DROPDOWNLIST);
}

TEST_F(LooksTest, EscClosesAnOpenListAndNotTheForm) {
  int cancels = 0;
  form().Command1.Cancel = true;
  form().Command1.Click = [&] { ++cancels; };
  const HWND combo = HandleOf(form().Combo1);
  ::SetFocus(combo);
  SendMessageW(combo, CB_SHOWDROPDOWN, TRUE, 0);
  ASSERT_TRUE(SendMessageW(combo, CB_GETDROPPEDSTATE, 0, 0));
  PostMessageW(GetFocus(), WM_KEYDOWN, VK_ESCAPE, 1);
  Pump();
  EXPECT_FALSE(SendMessageW(combo, CB_GETDROPPEDSTATE, 0, 0));
  EXPECT_EQ(cancels, 0);
}

}  // namespace
}  // namespace kestrun
