// A check of a style names each fault with its place, and leaves nothing behind.
#include "styles/check/style_check.h"

#include <gmock/gmock.h>

#include "forms/check_box.h"
#include "forms/command_button.h"
#include "forms/frame.h"
#include "forms/text_box.h"
#include "styles/style_fixture.h"
#include "support/recorded_effects.h"

namespace kestrun {
namespace {

using testing::ElementsAre;
using testing::IsEmpty;

// A window with nothing wrong in it.
class CheckedForm final : public Form {
 public:
  static constexpr const char* kName = "frmchecked";
  CheckedForm() : Form(kName) {
    SetClientSize(6000, 3000);
    Label1.Move(120, 120, 1800, 240);
    Label1.Caption = "Map folder:";
    Text1.Move(120, 480, 3000, 300);
    Command1.Move(120, 960, 1500, 375);
    Command1.Caption = "&Put";
    Command2.Move(1800, 960, 1500, 375);
    Command2.Caption = "&Close";
    Frame1.Move(120, 1500, 3000, 900);
    Frame1.Caption = "Options";
    Check1.SetContainer(Frame1);
    Check1.Move(120, 300, 2000, 285);
    Check1.Caption = "Warn me";
  }
  Label& Label1 = Add<Label>("Label1");
  TextBox& Text1 = Add<TextBox>("Text1");
  CommandButton& Command1 = Add<CommandButton>("Command1");
  CommandButton& Command2 = Add<CommandButton>("Command2");
  Frame& Frame1 = Add<Frame>("Frame1");
  CheckBox& Check1 = Add<CheckBox>("Check1");
};

class StyleCheckTest : public StyleTest {
 protected:
  StyleCheckTest() {
    const WindowRegistration registration(CheckedForm::kName, [] { return MakeRef<CheckedForm>(); });
  }
  ~StyleCheckTest() override { UnregisterWindow(CheckedForm::kName); }

  static std::vector<std::string> LinesOf(const std::string& file, StyleCheckLimits limits = {}) {
    if (limits.windows.empty()) limits.windows = {CheckedForm::kName};
    std::vector<std::string> lines;
    for (const StyleFault& fault : CheckStyle(file, limits)) lines.push_back(LineOf(fault));
    return lines;
  }
  HeadlessDialogs& dialogs() { return desktop.dialogs(); }
  // What the check says of a style whose Form_Load, from line 2 on, is that.
  std::vector<std::string> LinesOfScript(const std::string& form_load) {
    return LinesOf(MakeScriptStyle("Sub Form_Load(Form)\r\n" + form_load +
                                   "\r\nEnd Sub\r\nSub Control_Load(Control, Form)\r\nEnd Sub\r\n"));
  }
};

TEST_F(StyleCheckTest, AStyleThatChangesNothingPasses) { EXPECT_THAT(LinesOfScript(""), IsEmpty()); }

TEST_F(StyleCheckTest, EveryWindowButTheEditorsIsGivenTheStyle) {
  UnregisterWindow(CheckedForm::kName);
  std::vector<std::string> expected;
  for (const std::string& name : RegisteredWindows()) {
    if (!name.starts_with("FrmEdit")) expected.push_back("main.vbs(2): " + name + ": Script error 1001: " + name + ".");
  }
  const std::string file = MakeScriptStyle(
      "Sub Form_Load(Form)\r\nErr.Raise 1001, \"\", Form.Name\r\nEnd Sub\r\n"
      "Sub Control_Load(Control, Form)\r\nEnd Sub\r\n");
  StyleCheckLimits limits;
  limits.windows = RegisteredWindows();
  EXPECT_EQ(LinesOf(file, limits), expected);
}

// ---- each kind of fault, on the window that has none of its own ----------------------------------------------------

TEST_F(StyleCheckTest, AnErrorOfAModuleThatIsBeingAddedIsNamedWithItsLine) {
  EXPECT_THAT(
      LinesOf(MakeStyle({{"assembly.txt", "language VBScript\r\ninclude main.vbs\r\ninclude more.vbs"},
                         {"main.vbs", "Sub Form_Load(Form)\r\nEnd Sub\r\nSub Control_Load(Control, Form)\r\nEnd Sub"},
                         {"more.vbs", "Const One = 1\r\n\r\nSub Broken(\r\nEnd Sub"}})),
      ElementsAre("more.vbs(3): Script error 1010: Expected identifier."));
}

TEST_F(StyleCheckTest, AnErrorOfARunningScriptIsNamedOnceWithItsModule) {
  EXPECT_THAT(LinesOf(MakeStyle(
                  {{"assembly.txt", "language VBScript\r\ninclude main.vbs\r\ninclude more.vbs"},
                   {"main.vbs",
                    "Sub Form_Load(Form)\r\nEnd Sub\r\nSub Control_Load(Control, Form)\r\nPaint Control\r\nEnd Sub"},
                   {"more.vbs", "Sub Paint(Control)\r\n  Control.Colour = 1\r\nEnd Sub"}})),
              ElementsAre("more.vbs(2): frmchecked: Script error 438: Object doesn't support this property or method: "
                          "'Colour'."));
}

TEST_F(StyleCheckTest, AMissingIncludeIsNamedWithItsLineOfTheManifest) {
  EXPECT_THAT(LinesOf(MakeStyle(
                  {{"assembly.txt", "//options\r\nlanguage VBScript\r\ninclude lost.vbs\r\ninclude main.vbs"},
                   {"main.vbs", "Sub Form_Load(Form)\r\nEnd Sub\r\nSub Control_Load(Control, Form)\r\nEnd Sub"}})),
              ElementsAre("assembly.txt(3): Including the file lost.vbs failed!"));
}

TEST_F(StyleCheckTest, AMissingSubIsToldOnce) {
  EXPECT_THAT(LinesOf(MakeScriptStyle("Sub Form_Load(Form)\r\nEnd Sub")),
              ElementsAre("frmchecked: Script error 13: Type mismatch: 'Control_Load'."));
}

TEST_F(StyleCheckTest, APictureAndASoundThatAreMissingAreNamed) {
  EXPECT_THAT(
      LinesOfScript("Set Form.Picture = System.LoadPFFPicture(\"lost.bmp\")\r\nSystem.PlaySoundFile \"lost.wav\""),
      ElementsAre("main.vbs(2): frmchecked: Style Error: picture 'lost.bmp' not found in style file.",
                  "main.vbs(3): frmchecked: Sound file lost.wav not found!"));
}

TEST_F(StyleCheckTest, ATextThatCannotBeReadIsNamed) {
  EXPECT_THAT(LinesOfScript("Form.Text1.BackColor = RGB(200, 200, 200)\r\nForm.Text1.ForeColor = RGB(150, 150, 150)"),
              ElementsAre("main.vbs(3): frmchecked.Text1: The contrast of the text to its ground is 1.7 : 1; it needs "
                          "4.5 : 1."));
}

TEST_F(StyleCheckTest, AGroundThatIsMadeDarkUnderAClearLabelIsToBlame) {
  EXPECT_THAT(LinesOfScript("Form.Label1.BackStyle = 0\r\nForm.BackColor = RGB(30, 30, 40)"),
              ElementsAre("main.vbs(2): frmchecked.Label1: The contrast of the text to its ground is 1.2 : 1; it needs "
                          "4.5 : 1."));
}

TEST_F(StyleCheckTest, AClearLabelIsMeasuredOnTheGradientBehindIt) {
  const std::string gradient = "System.DrawGradientBackground Form.hDC, 400, 200, vbWhite, vbBlack\r\n";
  EXPECT_THAT(LinesOfScript(gradient + "Form.Label1.BackStyle = 0"), IsEmpty());
  EXPECT_THAT(LinesOfScript(gradient + "Form.Label1.BackStyle = 0\r\nForm.Label1.Top = 2600"),
              ElementsAre("main.vbs(3): frmchecked.Label1: The contrast of the text to its ground is 1.0 : 1; it needs "
                          "4.5 : 1."));
}

TEST_F(StyleCheckTest, ATextWithoutRoomIsNamed) {
  EXPECT_THAT(LinesOfScript("Form.Command1.FontSize = 24"),
              ElementsAre("main.vbs(2): frmchecked.Command1: The text is clipped at 100 % and 150 %."));
}

TEST_F(StyleCheckTest, AControlThatLeavesTheWindowIsNamed) {
  EXPECT_THAT(LinesOfScript("Form.Command1.Left = 5000\r\nForm.Command2.Top = 9000\r\nForm.Check1.Top = 800"),
              ElementsAre("main.vbs(2): frmchecked.Command1: The control reaches out of the window.",
                          "main.vbs(3): frmchecked.Command2: The control has left the window.",
                          "main.vbs(4): frmchecked.Check1: The control reaches out of Frame1."));
}

TEST_F(StyleCheckTest, AControlThatCoversAnotherIsNamed) {
  EXPECT_THAT(LinesOfScript("Form.Command2.Left = 600"),
              ElementsAre("main.vbs(2): frmchecked.Command2: The control covers Command1."));
}

TEST_F(StyleCheckTest, ALabelLiesBehindWhatHasAWindowWhateverTheOrder) {
  EXPECT_THAT(LinesOfScript("Form.Label1.ZOrder 0\r\nForm.Label1.Top = 480"),
              ElementsAre("frmchecked.Text1: The control covers Label1."));
}

TEST_F(StyleCheckTest, AControlThatNoKeyReachesIsNamedWithTheReason) {
  EXPECT_THAT(LinesOfScript("Form.Command1.TabStop = False\r\nForm.Text1.Visible = False\r\n"
                            "Form.Command2.Enabled = False\r\nForm.Frame1.Visible = False"),
              ElementsAre("main.vbs(3): frmchecked.Text1: No key reaches the control: it is hidden.",
                          "main.vbs(2): frmchecked.Command1: No key reaches the control: it is no tab stop any more.",
                          "main.vbs(4): frmchecked.Command2: No key reaches the control: it is disabled.",
                          "main.vbs(5): frmchecked.Check1: No key reaches the control: what it stands in is hidden or "
                          "disabled."));
}

TEST_F(StyleCheckTest, WhatIsWrongWithoutTheStyleIsNoFaultOfIt) {
  struct Crowded final : Form {
    Crowded() : Form("frmcrowded") {
      SetClientSize(3000, 3000);
      for (Control* one : {static_cast<Control*>(&Command1), static_cast<Control*>(&Command2)}) {
        one->Move(2000, 120, 1500, 375);
      }
      Command1.Caption = "A caption that is much too long for its button";
      Command1.Height = 200;
    }
    CommandButton& Command1 = Add<CommandButton>("Command1");
    CommandButton& Command2 = Add<CommandButton>("Command2");
  };
  const WindowRegistration crowded("frmcrowded", [] { return MakeRef<Crowded>(); });
  StyleCheckLimits limits;
  limits.windows = {"frmcrowded"};
  EXPECT_THAT(LinesOf(MakeScriptStyle("Sub Form_Load(Form)\r\nForm.BackColor = 255\r\nEnd Sub\r\n"
                                      "Sub Control_Load(Control, Form)\r\nEnd Sub"),
                      limits),
              IsEmpty());
  UnregisterWindow("frmcrowded");
}

// A style of two modules that does each of these things once.
TEST_F(StyleCheckTest, AStyleWithOneFaultOfEachKindGetsEachOfThemNamed) {
  const std::string file = MakeStyle({{"assembly.txt",
                                       "//options\r\nlanguage VBScript\r\ninclude main.vbs\r\ninclude lost.vbs\r\n"
                                       "include shapes.vbs"},
                                      {"main.vbs",
                                       "Sub Form_Load(Form)\r\n"
                                       "  Shape Form\r\n"
                                       "  Form.Text1.ForeColor = RGB(220, 220, 220)\r\n"
                                       "  Form.Check1.Colour = vbRed\r\n"
                                       "End Sub\r\n"
                                       "Sub Control_Load(Control, Form)\r\n"
                                       "End Sub\r\n"},
                                      {"shapes.vbs",
                                       "Sub Shape(Form)\r\n"
                                       "  Form.Label1.FontSize = 20\r\n"
                                       "  Form.Command1.Top = 2900\r\n"
                                       "  Form.Command2.Move 600, 400\r\n"
                                       "  Form.Check1.TabStop = False\r\n"
                                       "End Sub\r\n"}});
  EXPECT_THAT(LinesOf(file),
              ElementsAre("assembly.txt(4): Including the file lost.vbs failed!",
                          "main.vbs(4): frmchecked: Script error 438: Object doesn't support this property or method: "
                          "'Colour'.",
                          "shapes.vbs(2): frmchecked.Label1: The text is clipped at 100 % and 150 %.",
                          "main.vbs(3): frmchecked.Text1: The contrast of the text to its ground is 1.3 : 1; it needs "
                          "4.5 : 1.",
                          "shapes.vbs(3): frmchecked.Command1: The control reaches out of the window.",
                          "shapes.vbs(4): frmchecked.Command2: The control covers Text1.",
                          "shapes.vbs(5): frmchecked.Check1: No key reaches the control: it is no tab stop any more."));
}

// ---- the file ------------------------------------------------------------------------------------------------------

TEST_F(StyleCheckTest, AFileThatIsNoStyleIsToldAsTheProgramTellsIt) {
  WriteFile(Path("no.stl"), "This is no archive.");
  EXPECT_THAT(LinesOf(Path("no.stl")), ElementsAre("Unable to open " + Path("no.stl")));
  EXPECT_THAT(LinesOf(MakeStyle({{"readme.txt", "hello"}})), testing::Contains("Warning assembly.txt file not found"));
}

TEST_F(StyleCheckTest, AFileThatIsNotThereIsTheCallersMatter) {
  EXPECT_THROW(static_cast<void>(CheckStyle(Path("lost.stl"))), RuntimeError);
}

// ---- what a check must not do --------------------------------------------------------------------------------------

TEST_F(StyleCheckTest, AStyleThatAsksIsNotHeard) {
  EXPECT_THAT(LinesOfScript("MsgBox \"Hello\"\r\nIf InputBox(\"Who?\") <> \"\" Then Err.Raise 1000\r\nForm.Show 1"),
              IsEmpty());
  EXPECT_THAT(dialogs().shown_boxes, IsEmpty());
  EXPECT_THAT(desktop.windowing().shown_forms, IsEmpty());
}

TEST_F(StyleCheckTest, AStyleThatPlaysAndCutsAndWaitsDoesNothingOfIt) {
  RecordedEffects effects;
  const uint64_t before = desktop.clock().NowMs();
  EXPECT_THAT(LinesOfScript("System.CreateTransFormA Form.hWnd, 100\r\nSystem.TransControl Form, 0\r\n"
                            "System.Pause 9000\r\nClipboard.SetText \"taken\""),
              IsEmpty());
  EXPECT_THAT(effects.calls, IsEmpty());
  EXPECT_EQ(desktop.clock().NowMs(), before);
  EXPECT_EQ(desktop.clipboard().Text(), "");
  EXPECT_EQ(&window_effects(), &effects);
}

TEST_F(StyleCheckTest, AStyleThatWritesLeavesNothingBehind) {
  const std::string file = MakeScriptStyle(
      "Sub Form_Load(Form)\r\nPFF.PackFile \"x\", \"new.txt\"\r\nPFF.SavePffFile\r\nEnd Sub\r\n"
      "Sub Control_Load(Control, Form)\r\nEnd Sub");
  const std::string before = ReadFile(file);
  static_cast<void>(LinesOf(file));
  EXPECT_EQ(ReadFile(file), before);
  EXPECT_FALSE(FileIsThere(ProgramPath("packit.ini")));
}

TEST_F(StyleCheckTest, TheStyleInUseAndTheWindowsThatAreOpenStayAsTheyAre) {
  WearScript("Form.Caption = \"worn\"");
  const Ref<ClsStyle> worn = ModStyle::CurrentStyle();
  Form& open = WindowByName(CheckedForm::kName);
  open.Show();
  open.Caption = "mine";
  EXPECT_THAT(LinesOfScript("Form.Caption = \"checked\"\r\nScreen.Forms(0).Caption = \"reached\""), IsEmpty());
  EXPECT_EQ(open.Caption.get(), "mine");
  EXPECT_EQ(LoadedWindow(CheckedForm::kName), &open);
  EXPECT_TRUE(open.IsShown());
  EXPECT_EQ(ModStyle::CurrentStyle(), worn);
  EXPECT_TRUE(StyleActive());
  EXPECT_EQ(CaptionAfterStyle(), "worn");
}

TEST_F(StyleCheckTest, WithoutAStyleThereIsNoneBehindTheCheckEither) {
  EXPECT_THAT(LinesOfScript(""), IsEmpty());
  EXPECT_FALSE(StyleActive());
}

TEST_F(StyleCheckTest, AScriptWithoutAnEndIsStoppedAndEndsTheCheck) {
  StyleCheckLimits limits;
  limits.script_ms = 50;
  limits.windows = {CheckedForm::kName, "frmhelp"};
  EXPECT_THAT(LinesOf(MakeScriptStyle("Sub Form_Load(Form)\r\nDo\r\nLoop\r\nEnd Sub"), limits),
              ElementsAre("frmchecked: Script error -2147467260: The script ran longer than its time limit and was "
                          "stopped.",
                          "frmhelp: The check ended here: this window and those behind it were not looked at."));
}

TEST_F(StyleCheckTest, ACheckThatTakesTooLongLeavesTheRestOut) {
  StyleCheckLimits limits;
  limits.whole_ms = -1;
  EXPECT_THAT(
      LinesOf(MakeScriptStyle("Sub Form_Load(Form)\r\nEnd Sub\r\nSub Control_Load(Control, Form)\r\nEnd Sub"), limits),
      ElementsAre("frmchecked: The check ended here: this window and those behind it were not looked at."));
}

TEST_F(StyleCheckTest, AScriptThatAsksWithoutAnEndIsBrokenOff) {
  EXPECT_THAT(LinesOfScript("Do\r\nMsgBox \"again\"\r\nLoop"),
              ElementsAre("main.vbs(3): frmchecked: Script error 70: Permission denied."));
}

}  // namespace
}  // namespace kestrun
