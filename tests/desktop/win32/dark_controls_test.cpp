// Controls in dark colours: what the system would draw in its own light ones, at two scales, with a theme and without.
#include <functional>

#include "desktop/win32/drawing/control_parts.h"
#include "desktop/win32/system/late_call.h"
#include "desktop/win32/window_fixture.h"
#include "desktop/win32/window_shot.h"
#include "forms/check_box.h"
#include "forms/combo_box.h"
#include "forms/frame.h"
#include "forms/label.h"
#include "forms/list_box.h"
#include "forms/option_button.h"
#include "forms/picture_box.h"
#include "forms/text_box.h"
#include "forms/tree_view.h"

// Needs the system's types.
#include <uxtheme.h>

namespace kestrun {
namespace {

constexpr Color kDark = Rgb(0x10, 0x20, 0x30);
constexpr Color kInk = Rgb(0xA0, 0xA8, 0xB0);

class frmcontrols final : public Form {
 public:
  static constexpr const char* kName = "frmcontrols";
  frmcontrols() : Form(kName) {
    StartUpPosition = static_cast<int>(StartPosition::kManual);
    BorderStyle = static_cast<int>(FormBorder::kNone);
    ShowInTaskbar = false;
    SetClientSize(6000, 5400);
    int top = 150;
    for (ButtonKind* button : std::initializer_list<ButtonKind*>{&Check1, &Check2, &Check3, &Option1, &Option2}) {
      button->Move(150, top, 1500, 300);
      button->Caption = "Caption";
      top += 450;
    }
    Check2.Value = 1;
    Check3.Value = 2;
    Option2.Value = true;
    Combo0.Move(2250, 150, 1500, 315);
    Combo1.Move(2250, 600, 1500, 900);
    Combo2.Move(2250, 1650, 1500, 315);
    Combo1.Style = static_cast<int>(ComboStyle::kSimple);
    Combo2.Style = static_cast<int>(ComboStyle::kList);
    for (ComboBox* combo : {&Combo0, &Combo1, &Combo2}) {
      combo->AddItem("Desert");
      combo->AddItem("Oasis");
    }
    Combo0.ListIndex = 0;
    Combo2.ListIndex = 0;
    Text1.Move(4200, 150, 1500, 315);
    List1.Move(4200, 600, 1500, 900);
    Frame1.Move(4200, 1650, 1500, 900);
    Frame1.Caption = "Frame";
    Picture1.Move(4200, 2700, 1500, 900);
    Picture1.BorderStyle = 1;
    Label1.Move(4200, 3750, 1500, 315);
    Label1.BorderStyle = 1;
    Tree1.Move(2250, 2700, 1500, 2400);
    for (int branch = 0; branch < 3; ++branch) {
      TreeNode& node = Tree1.AddChild(nullptr, "", "Branch");
      node.SetExpanded(branch == 1);
      for (int leaf = 0; leaf < 12; ++leaf) Tree1.AddChild(&node, "", "Leaf with a long name");
    }
  }
  void MakeDark() {
    BackColor = kDark;
    ForeColor = kInk;
    for (const Ref<Control>& control : controls()) {
      control->BackColor = kDark;
      control->ForeColor = kInk;
    }
  }
  using ButtonKind = Button;
  CheckBox& Check1 = Add<CheckBox>("Check1");
  CheckBox& Check2 = Add<CheckBox>("Check2");
  CheckBox& Check3 = Add<CheckBox>("Check3");
  OptionButton& Option1 = Add<OptionButton>("Option1");
  OptionButton& Option2 = Add<OptionButton>("Option2");
  ComboBox& Combo0 = Add<ComboBox>("Combo0");
  ComboBox& Combo1 = Add<ComboBox>("Combo1");
  ComboBox& Combo2 = Add<ComboBox>("Combo2");
  TextBox& Text1 = Add<TextBox>("Text1");
  ListBox& List1 = Add<ListBox>("List1");
  Frame& Frame1 = Add<Frame>("Frame1");
  PictureBox& Picture1 = Add<PictureBox>("Picture1");
  Label& Label1 = Add<Label>("Label1");
  TreeView& Tree1 = Add<TreeView>("Tree1");
};

const WindowRegistration registration(frmcontrols::kName, [] { return MakeRef<frmcontrols>(); });

// A scale, and whether the controls have the system's theme.
struct Surroundings {
  int dpi;
  bool is_themed;
};

class DarkControlsTest : public RealWindowTest, public testing::WithParamInterface<Surroundings> {
 protected:
  void SetUp() override {
    _wputenv_s(L"KESTRUN_DPI", std::to_wstring(GetParam().dpi).c_str());
    form().Show();
    Pump();
    if (!GetParam().is_themed) EnumChildWindows(Handle(), &DropTheme, 0);
    ::SetFocus(nullptr);
    form().MakeDark();
    PumpAndPaint();
  }
  void PumpAndPaint() {
    Pump();
    RedrawWindow(Handle(), nullptr, nullptr, RDW_UPDATENOW | RDW_ALLCHILDREN);
  }
  static BOOL CALLBACK DropTheme(HWND window, LPARAM) {
    KESTRUN_LATE(L"uxtheme.dll", SetWindowTheme)(window, L"", L"");
    return TRUE;
  }
  static frmcontrols& form() { return Window<frmcontrols>(); }
  static HWND Handle() { return HandleOf(static_cast<Form&>(form())); }
  static int Scaled(int pixels) { return MulDiv(pixels, GetParam().dpi, 96); }
  // The square of the mark, which stands at the left in the middle.
  static Shot MarkOf(Control& control) {
    const Shot all = ShotOf(HandleOf(control));
    const int side = Scaled(13);
    const int top = (all.height - side) / 2;
    Shot mark{side, side, {}};
    for (int y = 0; y < side; ++y) {
      for (int x = 0; x < side; ++x) mark.pixels.push_back(all.At(x, top + y));
    }
    return mark;
  }
  static Color Mixed(int percent) { return BlendColors(kDark, kInk, percent); }
  static HWND ListOf(ComboBox& combo) {
    COMBOBOXINFO parts{};
    parts.cbSize = sizeof parts;
    GetComboBoxInfo(HandleOf(combo), &parts);
    return parts.hwndList;
  }
};

TEST_P(DarkControlsTest, NothingOfAnyControlIsLight) {
  for (const Ref<Control>& control : form().controls()) {
    ControlPeer* peer = WindowOf(form()).PeerOf(*control);
    if (!peer->window()) continue;
    EXPECT_EQ(LightPixels(ShotOf(peer->window())), 0) << control->Name();
  }
  EXPECT_EQ(LightPixels(ShotOf(Handle())), 0);
}

TEST_P(DarkControlsTest, NothingOfADisabledControlIsLight) {
  for (const Ref<Control>& control : form().controls()) control->Enabled = false;
  PumpAndPaint();
  EXPECT_EQ(LightPixels(ShotOf(Handle())), 0);
}

TEST_P(DarkControlsTest, TheMarkOfACheckBoxShowsItsValue) {
  const Shot empty = MarkOf(form().Check1);
  const Shot ticked = MarkOf(form().Check2);
  const Shot neither = MarkOf(form().Check3);
  EXPECT_EQ(empty.At(0, 0), Mixed(45));
  EXPECT_EQ(empty.At(empty.width - 1, empty.height - 1), Mixed(45));
  EXPECT_EQ(empty.At(empty.width / 2, empty.height / 2), kDark);
  EXPECT_EQ(CountOf(empty, kInk), 0);
  EXPECT_GT(CountOf(ticked, kInk), 3);
  EXPECT_EQ(neither.At(neither.width / 2, neither.height / 2), kInk);
  EXPECT_NE(ticked, neither);
}

TEST_P(DarkControlsTest, TheMarkFollowsTheValueAtOnce) {
  form().Check1.Value = 1;
  EXPECT_EQ(MarkOf(form().Check1), MarkOf(form().Check2));
  form().Check1.Value = 2;
  EXPECT_EQ(MarkOf(form().Check1), MarkOf(form().Check3));
}

TEST_P(DarkControlsTest, TheMarkOfAnOptionButtonIsRoundAndShowsItsValue) {
  const Shot off = MarkOf(form().Option1);
  const Shot on = MarkOf(form().Option2);
  const int middle = off.width / 2;
  EXPECT_EQ(off.At(0, 0), kDark);
  EXPECT_EQ(off.At(middle, 0), Mixed(45));
  EXPECT_EQ(off.At(middle, middle), kDark);
  EXPECT_EQ(on.At(middle, middle), kInk);
}

TEST_P(DarkControlsTest, MarksOfDisabledButtonsArePale) {
  form().Check2.Enabled = false;
  form().Option2.Enabled = false;
  PumpAndPaint();
  EXPECT_EQ(CountOf(MarkOf(form().Check2), kInk), 0);
  EXPECT_GT(CountOf(MarkOf(form().Check2), Mixed(50)), 3);
  EXPECT_EQ(MarkOf(form().Check2).At(0, 0), Mixed(25));
  EXPECT_EQ(MarkOf(form().Option2).At(Scaled(13) / 2, Scaled(13) / 2), Mixed(50));
}

TEST_P(DarkControlsTest, AMarkIsBrighterWhileTheMouseIsOverItsButton) {
  const HWND check = HandleOf(form().Check1);
  SendMessageW(check, WM_MOUSEMOVE, 0, MAKELPARAM(5, 5));
  UpdateWindow(check);
  EXPECT_EQ(MarkOf(form().Check1).At(0, 0), Mixed(75));
  EXPECT_EQ(MarkOf(form().Check1).At(Scaled(6), Scaled(6)), Mixed(12));
  SendMessageW(check, WM_MOUSELEAVE, 0, 0);
  UpdateWindow(check);
  EXPECT_EQ(MarkOf(form().Check1).At(0, 0), Mixed(45));
}

TEST_P(DarkControlsTest, AMarkShowsThatItsButtonIsPressed) {
  for (Control* control : std::initializer_list<Control*>{&form().Check1, &form().Option1}) {
    SendMessageW(HandleOf(*control), BM_SETSTATE, TRUE, 0);
    EXPECT_EQ(MarkOf(*control).At(Scaled(6), Scaled(6)), Mixed(25)) << control->Name();
    SendMessageW(HandleOf(*control), BM_SETSTATE, FALSE, 0);
    EXPECT_EQ(MarkOf(*control).At(Scaled(6), Scaled(6)), kDark) << control->Name();
  }
}

TEST_P(DarkControlsTest, TheFocusStandsAroundTheCaption) {
  const HWND check = HandleOf(form().Check1);
  const Shot before = ShotOf(check);
  ::SetFocus(check);
  const Shot with_focus = ShotOf(check);
  EXPECT_NE(with_focus, before);
  EXPECT_EQ(MarkOf(form().Check1).At(0, 0), Mixed(45));
  ::SetFocus(HandleOf(form().Check2));
  EXPECT_EQ(ShotOf(check), before);
}

TEST_P(DarkControlsTest, AComboBoxHasEdgeAndArrowInItsColours) {
  for (ComboBox* combo : {&form().Combo0, &form().Combo2}) {
    const Shot shot = ShotOf(HandleOf(*combo));
    EXPECT_EQ(shot.At(0, 0), Mixed(45)) << combo->Name();
    EXPECT_EQ(shot.At(shot.width - 1, shot.height / 2), Mixed(45)) << combo->Name();
    int arrow = 0;
    for (int y = 3; y < shot.height - 3; ++y) {
      for (int x = shot.width - Scaled(14); x < shot.width - 2; ++x) arrow += shot.At(x, y) == kInk ? 1 : 0;
    }
    EXPECT_GT(arrow, 3) << combo->Name();
  }
  const Shot simple = ShotOf(HandleOf(form().Combo1));
  EXPECT_EQ(simple.At(0, 0), Mixed(45));
  EXPECT_EQ(ShotOf(ListOf(form().Combo1)).At(0, 5), Mixed(45));
}

TEST_P(DarkControlsTest, TheArrowIsBrighterUnderTheMouseAndPaleWhenDisabled) {
  const HWND combo = HandleOf(form().Combo2);
  const Shot before = ShotOf(combo);
  const int x = before.width - Scaled(4);
  SendMessageW(combo, WM_MOUSEMOVE, 0, MAKELPARAM(5, 5));
  UpdateWindow(combo);
  EXPECT_EQ(ShotOf(combo).At(x, 4), Mixed(12));
  SendMessageW(combo, WM_MOUSELEAVE, 0, 0);
  UpdateWindow(combo);
  EXPECT_EQ(ShotOf(combo), before);
  form().Combo2.Enabled = false;
  PumpAndPaint();
  EXPECT_EQ(ShotOf(combo).At(0, 0), Mixed(25));
  EXPECT_EQ(CountOf(ShotOf(combo), kInk), 0);
}

TEST_P(DarkControlsTest, TheChosenRowIsMarkedWhileTheKeysGoToIt) {
  const HWND combo = HandleOf(form().Combo2);
  const Color marked = GetSysColor(COLOR_HIGHLIGHT);
  EXPECT_EQ(CountOf(ShotOf(combo), marked), 0);
  EXPECT_GT(CountOf(ShotOf(combo), kInk), 20);  // the text and the arrow
  ::SetFocus(combo);
  EXPECT_GT(CountOf(ShotOf(combo), marked), 100);
}

TEST_P(DarkControlsTest, AnOpenListAndItsArrowShowIt) {
  const HWND combo = HandleOf(form().Combo0);
  SendMessageW(combo, CB_SHOWDROPDOWN, TRUE, 0);
  Pump();
  const Shot shot = ShotOf(combo);
  EXPECT_EQ(shot.At(shot.width - Scaled(4), 4), Mixed(25));
  EXPECT_EQ(ShotOf(ListOf(form().Combo0)).At(0, 0), Mixed(45));
  EXPECT_EQ(LightPixels(shot), 0);
  SendMessageW(combo, CB_SHOWDROPDOWN, FALSE, 0);
}

TEST_P(DarkControlsTest, ATreeShowsItsTextsAndBranchesInItsColours) {
  const Shot shot = ShotOf(HandleOf(form().Tree1));
  EXPECT_GT(CountOf(shot, kInk), 50);
  EXPECT_GT(CountOf(shot, Mixed(45)), 20) << "the lines between the branches";
}

TEST_P(DarkControlsTest, TheSelectedNodeOfATreeWithoutTheFocusIsReadable) {
  form().Tree1.Select(form().Tree1.roots().front());
  PumpAndPaint();
  const Shot shot = ShotOf(HandleOf(form().Tree1));
  EXPECT_GT(CountOf(shot, Mixed(25)), 50);
  EXPECT_EQ(LightPixels(shot), 0);
}

TEST_P(DarkControlsTest, TypedTextStaysInItsBox) {
  const HWND edit = GetWindow(HandleOf(form().Combo0), GW_CHILD);
  SendMessageW(edit, EM_SETSEL, 0, -1);
  for (const wchar_t letter : std::wstring(L"Harbour")) SendMessageW(edit, WM_CHAR, letter, 1);
  PumpAndPaint();
  EXPECT_EQ(form().Combo0.Text.get(), "Harbour");
  EXPECT_GT(CountOf(ShotOf(edit), kInk), 20);
}

// Given back, the system's colours give the system's drawing back, to the pixel.
TEST_P(DarkControlsTest, TheSystemDrawsAgainInItsOwnColours) {
  for (const Ref<Control>& control : form().controls()) {
    const bool is_field = dynamic_cast<ComboBox*>(control.get()) || dynamic_cast<TextBox*>(control.get()) ||
                          dynamic_cast<ListBox*>(control.get());
    control->BackColor = is_field ? color::kWindowBackground : color::kButtonFace;
    control->ForeColor = is_field ? color::kWindowText : color::kButtonText;
  }
  form().BackColor = color::kButtonFace;
  PumpAndPaint();
  const auto plain = [](Control& control, const wchar_t* kind, DWORD style, const std::function<void(HWND)>& fill) {
    const RECT place = PlaceOf(HandleOf(control));
    const HWND made =
        CreateWindowExW(0, kind, L"Caption", WS_CHILD | WS_VISIBLE | style, 10, 10, place.right - place.left,
                        place.bottom - place.top, Handle(), nullptr, GetModuleHandleW(nullptr), nullptr);
    SendMessageW(made, WM_SETFONT, SendMessageW(HandleOf(control), WM_GETFONT, 0, 0), FALSE);
    if (!GetParam().is_themed) DropTheme(made, 0);
    BringWindowToTop(made);
    fill(made);
    UpdateWindow(made);
    const Shot shot = ShotOf(made);
    DestroyWindow(made);
    return shot;
  };
  EXPECT_EQ(plain(form().Check2, L"BUTTON", BS_3STATE, [](HWND made) { SendMessageW(made, BM_SETCHECK, 1, 0); }),
            ShotOf(HandleOf(form().Check2)));
  EXPECT_EQ(plain(form().Option2, L"BUTTON", BS_RADIOBUTTON, [](HWND made) { SendMessageW(made, BM_SETCHECK, 1, 0); }),
            ShotOf(HandleOf(form().Option2)));
  const HWND combo = HandleOf(form().Combo2);
  EXPECT_EQ(plain(form().Combo2, L"COMBOBOX", CBS_DROPDOWNLIST | WS_VSCROLL,
                  [combo](HWND made) {
                    // The edges add six pixels.
                    const LONG height = PlaceOf(combo).bottom - PlaceOf(combo).top - 6;
                    SendMessageW(made, CB_SETITEMHEIGHT, static_cast<WPARAM>(-1), height);
                    SendMessageW(made, CB_ADDSTRING, 0, reinterpret_cast<LPARAM>(L"Desert"));
                    SendMessageW(made, CB_SETCURSEL, 0, 0);
                  }),
            ShotOf(combo));
}

INSTANTIATE_TEST_SUITE_P(ScalesAndThemes, DarkControlsTest,
                         testing::Values(Surroundings{96, true}, Surroundings{144, true}, Surroundings{96, false},
                                         Surroundings{144, false}),
                         [](const auto& row) {
                           return std::to_string(row.param.dpi) + (row.param.is_themed ? "Themed" : "Classic");
                         });

}  // namespace
}  // namespace kestrun
