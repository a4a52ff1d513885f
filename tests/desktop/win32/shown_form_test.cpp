// Properties that change while their form is on the screen.
#include "desktop/win32/window_fixture.h"
#include "forms/command_button.h"
#include "forms/frame.h"
#include "forms/label.h"
#include "forms/list_box.h"
#include "forms/picture_box.h"
#include "forms/text_box.h"

namespace kestrun {
namespace {

class frmreal final : public Form {
 public:
  static constexpr const char* kName = "frmreal";
  frmreal() : Form(kName) {
    StartUpPosition = static_cast<int>(StartPosition::kManual);
    // Without a caption no window manager moves it about.
    BorderStyle = static_cast<int>(FormBorder::kNone);
    ShowInTaskbar = false;
    SetClientSize(6000, 4500);
    Frame1.Move(150, 1500, 2400, 1500);
    Text1.Move(150, 150, 1500, 315);
    List1.Move(3000, 150, 1500, 900);
    Picture1.Move(3000, 1500, 1500, 900);
    link.Move(150, 600, 1500, 600);
    link.BackStyle = 0;
    link.Click = [] {};
    cmdOK.Move(150, 3900, 1200, 375);
  }
  Frame& Frame1 = Add<Frame>("Frame1");
  TextBox& Text1 = Add<TextBox>("Text1");
  ListBox& List1 = Add<ListBox>("List1");
  PictureBox& Picture1 = Add<PictureBox>("Picture1");
  Label& link = Add<Label>("link");
  CommandButton& cmdOK = Add<CommandButton>("cmdOK");
};

const WindowRegistration registration(frmreal::kName, [] { return MakeRef<frmreal>(); });

class ShownFormWindowTest : public RealWindowTest {
 protected:
  void SetUp() override {
    form().Show();
    Pump();
  }
  static frmreal& form() { return Window<frmreal>(); }
  static HWND Handle() { return HandleOf(static_cast<Form&>(form())); }
};

TEST_F(ShownFormWindowTest, AssigningItsPlaceMovesTheWindowAndKeepsItsSize) {
  const SIZE client = ClientOf(Handle());
  form().Left = 1500;
  form().Top = 900;
  const RECT place = PlaceOf(Handle());
  EXPECT_EQ(place.left, 100);
  EXPECT_EQ(place.top, 60);
  EXPECT_EQ(ClientOf(Handle()).cx, client.cx);
  EXPECT_EQ(ClientOf(Handle()).cy, client.cy);
  form().Move(3000, 1800, 4500, 3000);
  EXPECT_EQ(PlaceOf(Handle()).left, 200);
  EXPECT_EQ(ClientOf(Handle()).cx, 300);
  EXPECT_EQ(ClientOf(Handle()).cy, 200);
}

TEST_F(ShownFormWindowTest, AMoveByTheUserIsSeenInTheModel) {
  SetWindowPos(Handle(), nullptr, 120, 80, 0, 0, SWP_NOSIZE | SWP_NOZORDER | SWP_NOACTIVATE);
  Pump();
  EXPECT_EQ(form().Left, 1800);
  EXPECT_EQ(form().Top, 1200);
}

TEST_F(ShownFormWindowTest, VisibleFalseTakesItOffTheScreen) {
  form().Visible = false;
  EXPECT_TRUE(FormWindow::OpenWindows().empty());
  form().Visible = true;
  EXPECT_TRUE(IsWindowVisible(Handle()));
}

TEST_F(ShownFormWindowTest, AnotherBorderActsAndTheSizeComesBackWithTheFirst) {
  const SIZE client = ClientOf(Handle());
  for (int round = 0; round < 3; ++round) {
    form().BorderStyle = static_cast<int>(FormBorder::kFixedSingle);
    Pump();
    EXPECT_NE(GetWindowLongPtrW(Handle(), GWL_STYLE) & WS_CAPTION, 0);
    EXPECT_EQ(form().Width, 6000);
    EXPECT_EQ(ClientOf(Handle()).cx, (6000 - kFrameWidth) / 15);
    form().BorderStyle = static_cast<int>(FormBorder::kNone);
    Pump();
    EXPECT_EQ(GetWindowLongPtrW(Handle(), GWL_STYLE) & WS_CAPTION, 0);
    EXPECT_EQ(ClientOf(Handle()).cx, client.cx);
    EXPECT_EQ(ClientOf(Handle()).cy, client.cy);
  }
  EXPECT_TRUE(IsWindowVisible(Handle()));
}

TEST_F(ShownFormWindowTest, NobodyMakesItSmallerThanItsLeastSize) {
  form().BorderStyle = static_cast<int>(FormBorder::kSizable);
  form().SetLeastClientSize(5400, 3900);
  Pump();
  SetWindowPos(Handle(), nullptr, 0, 0, 60, 60, SWP_NOMOVE | SWP_NOZORDER | SWP_NOACTIVATE);
  Pump();
  EXPECT_EQ(ClientOf(Handle()).cx, 360);
  EXPECT_EQ(ClientOf(Handle()).cy, 260);
  EXPECT_EQ(form().ScaleWidth(), 5400);
}

TEST_F(ShownFormWindowTest, ANewBackgroundIsSeenThroughATransparentLink) {
  const HWND link = HandleOf(form().link);
  form().BackColor = 0x00C080;
  Pump();
  EXPECT_EQ(PixelAt(link, 60, 30), 0x00C080U);
  form().Picture = MakeRef<Picture>(300, 300, std::vector<uint32_t>(300 * 300, 0xFF2040FF));
  Pump();
  EXPECT_EQ(PixelAt(link, 60, 30), 0xFF4020U);
}

TEST_F(ShownFormWindowTest, AnotherContainerTakesTheControlsWindow) {
  form().cmdOK.SetContainer(form().Frame1);
  form().cmdOK.Move(150, 300, 1200, 375);
  Pump();
  EXPECT_EQ(GetParent(HandleOf(form().cmdOK)), HandleOf(form().Frame1));
  POINT corner{};
  MapWindowPoints(HandleOf(form().cmdOK), HandleOf(form().Frame1), &corner, 1);
  EXPECT_EQ(corner.x, 10);
  EXPECT_EQ(corner.y, 20);
  form().cmdOK.SetContainer(form());
  EXPECT_EQ(GetParent(HandleOf(form().cmdOK)), Handle());
}

TEST_F(ShownFormWindowTest, BordersOfBoxesComeAndGo) {
  const auto edge = [](Control& control) {
    return GetWindowLongPtrW(HandleOf(control), GWL_EXSTYLE) & WS_EX_CLIENTEDGE;
  };
  EXPECT_NE(edge(form().Text1), 0);
  form().Text1.BorderStyle = 0;
  form().Picture1.BorderStyle = 0;
  EXPECT_EQ(edge(form().Text1), 0);
  EXPECT_EQ(edge(form().Picture1), 0);
  EXPECT_EQ(ClientOf(HandleOf(form().Picture1)).cx, 100);
  form().Picture1.BorderStyle = 1;
  EXPECT_EQ(ClientOf(HandleOf(form().Picture1)).cx, 96);
  form().Picture1.Appearance = 0;
  EXPECT_EQ(ClientOf(HandleOf(form().Picture1)).cx, 98);
}

TEST_F(ShownFormWindowTest, AFrameWithoutABorderHasNoLine) {
  form().Frame1.BackColor = 0x00C080;
  Pump();
  const RECT edge{0, 0, 1, ClientOf(HandleOf(form().Frame1)).cy};
  EXPECT_LT(CountPixels(HandleOf(form().Frame1), edge, 0x00C080), edge.bottom);
  form().Frame1.BorderStyle = 0;
  Pump();
  EXPECT_EQ(CountPixels(HandleOf(form().Frame1), edge, 0x00C080), edge.bottom);
}

TEST_F(ShownFormWindowTest, TextBoxesAndListsAreInTheColourOfWindows) {
  EXPECT_EQ(PixelAt(HandleOf(form().Text1), 80, 8), GetSysColor(COLOR_WINDOW));
  EXPECT_EQ(PixelAt(HandleOf(form().List1), 50, 30), GetSysColor(COLOR_WINDOW));
}

// The mouse makes a link bold; "Change map when hosting" was then too long for its line, and the tops of the letters of
// the next line stood below it as dots.
TEST_F(ShownFormWindowTest, ALinkThatIsTooLongShowsNoPartOfASecondLine) {
  Label& link = form().link;
  link.BackStyle = 1;
  link.BackColor = color::kWhite;
  link.ForeColor = 0x0000FF;
  link.Move(150, 600, 1500, 240);
  link.Caption = "Change map when hosting a game";
  Pump();
  const HWND shown = HandleOf(link);
  const PixelSize line = platform.windowing().MeasureText("M", link.Font, 96);
  ASSERT_LT(line.height, 16);
  EXPECT_EQ(CountPixels(shown, {0, line.height, 100, 16}, color::kWhite), 100 * (16 - line.height));
  // All that has room on the first line is there, up to the right edge.
  EXPECT_LT(CountPixels(shown, {80, 0, 100, line.height}, color::kWhite), 20 * line.height);
}

TEST_F(ShownFormWindowTest, ALabelOfSeveralLinesShowsWholeLinesOnly) {
  Label& link = form().link;
  link.BackStyle = 1;
  link.BackColor = color::kWhite;
  const PixelSize line = platform.windowing().MeasureText("M", link.Font, 96);
  link.Move(150, 600, 1500, (2 * line.height + 4) * 15);
  link.Caption = "several words that need more lines than two here";
  Pump();
  const int below = CountPixels(HandleOf(link), {0, 2 * line.height, 100, 2 * line.height + 4}, color::kWhite);
  EXPECT_EQ(below, 100 * 4);
  EXPECT_LT(CountPixels(HandleOf(link), {0, line.height, 100, 2 * line.height}, color::kWhite), 100 * line.height);
}

TEST_F(ShownFormWindowTest, ATextBoxMadeAgainForAnotherAlignmentKeepsTextAndFocus) {
  form().Text1.Text = std::string("kept");
  form().Text1.SetFocus();
  form().Text1.Alignment = 1;
  EXPECT_EQ(TextOf(HandleOf(form().Text1)), L"kept");
  EXPECT_EQ(GetFocus(), HandleOf(form().Text1));
  EXPECT_NE(GetWindowLongPtrW(HandleOf(form().Text1), GWL_STYLE) & ES_RIGHT, 0);
}

TEST_F(ShownFormWindowTest, WindowNumbersAreTheSystems) {
  EXPECT_EQ(reinterpret_cast<HWND>(static_cast<intptr_t>(form().WindowNumber())), Handle());
  EXPECT_EQ(reinterpret_cast<HWND>(static_cast<intptr_t>(form().cmdOK.WindowNumber())), HandleOf(form().cmdOK));
}

TEST_F(ShownFormWindowTest, AWindowMadeForItsNumberIsHiddenUntilItsFormIsShown) {
  CloseAllWindows();
  Pump();
  const auto window = reinterpret_cast<HWND>(static_cast<intptr_t>(form().WindowNumber()));
  EXPECT_TRUE(IsWindow(window));
  EXPECT_FALSE(IsWindowVisible(window));
  EXPECT_TRUE(FormWindow::OpenWindows().empty());
  form().Show();
  EXPECT_EQ(Handle(), window);
  EXPECT_TRUE(IsWindowVisible(window));
}

}  // namespace
}  // namespace kestrun
