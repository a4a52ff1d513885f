// A check of a style names each fault with its place, and leaves nothing behind.
#include "styles/check/style_check.h"

#include <gmock/gmock.h>

#include <chrono>
#include <memory>

#include "forms/check_box.h"
#include "forms/command_button.h"
#include "forms/frame.h"
#include "forms/text_box.h"
#include "platform/foreign_scripts.h"
#include "program/style_hook.h"
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
    const StyleCheckResult result = CheckStyle(file, limits);
    for (const StyleFault& fault : result.faults) lines.push_back(LineOf(fault));
    if (!result.rest.empty()) lines.push_back(result.rest);
    return lines;
  }
  HeadlessDialogs& dialogs() { return desktop.dialogs(); }
  // What the check says of a style whose Form_Load, from line 2 on, is that.
  std::vector<std::string> LinesOfScript(const std::string& form_load) {
    return LinesOf(MakeScriptStyle("Sub Form_Load(Form)\r\n" + form_load +
                                   "\r\nEnd Sub\r\nSub Control_Load(Control, Form)\r\nEnd Sub\r\n"));
  }

  std::chrono::steady_clock::time_point now_;  // for checks whose time the test turns
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

TEST_F(StyleCheckTest, ATextThatNobodySeesIsNotMeasured) {
  const std::string pale = "Form.Check1.ForeColor = vbWhite\r\nForm.Check1.BackColor = vbWhite\r\n";
  EXPECT_THAT(LinesOfScript(pale), testing::SizeIs(1));
  EXPECT_THAT(LinesOfScript(pale + "Form.Check1.Visible = False"),
              ElementsAre("main.vbs(4): frmchecked.Check1: No key reaches the control: it is hidden."));
  EXPECT_THAT(LinesOfScript(pale + "Form.Frame1.Visible = False"),
              ElementsAre("main.vbs(4): frmchecked.Check1: No key reaches the control: what it stands in is hidden or "
                          "disabled."));
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

// ---- languages of the machine --------------------------------------------------------------------------------------

// A language whose engine tells the place of a failure only. What its Form_Load does stands here, a row for each line.
using PlayedLine = std::function<void(CheckedForm& form, ClsSystem& system)>;
std::vector<PlayedLine>& PlayedLines() {
  static std::vector<PlayedLine> lines;
  return lines;
}

class PlayedLanguage final : public ForeignScript {
 public:
  bool CanBeStopped() const override { return true; }
  void SetTimeout(int64_t) override {}
  void CheckTime() override {}
  void AddObject(std::string_view name, const Ref<Object>& object) override {
    if (name == "System") system_ = object;
  }
  std::optional<ForeignScriptFault> AddCode(std::string_view text) override {
    const int module = modules_++;
    if (!text.starts_with("broken")) return std::nullopt;
    return ForeignScriptFault{.number = 1002, .module = module, .line = 1, .column = 1, .description = "Syntax error"};
  }
  std::optional<ForeignScriptFault> Run(std::string_view name, const std::vector<Variant>& arguments,
                                        Variant&) override {
    std::optional<ForeignScriptFault> fault;
    if (name != "Form_Load") return fault;
    auto& form = dynamic_cast<CheckedForm&>(*arguments.front().object());
    int number = 0;
    for (const PlayedLine& line : PlayedLines()) {
      ++number;
      Attempt([&] { line(form, dynamic_cast<ClsSystem&>(*system_)); },
              [&](const RuntimeError& failure) {
                fault = ForeignScriptFault{.number = failure.number(),
                                           .module = modules_ - 1,
                                           .line = number,
                                           .column = 1,
                                           .description = failure.description()};
              });
      if (fault) break;
    }
    return fault;
  }

 private:
  Ref<Object> system_;
  int modules_ = 0;
};

class OtherLanguageCheckTest : public StyleCheckTest {
 protected:
  OtherLanguageCheckTest() {
    InstallForeignScripts(
        [](std::string_view) -> std::unique_ptr<ForeignScript> { return std::make_unique<PlayedLanguage>(); });
  }
  ~OtherLanguageCheckTest() override {
    InstallForeignScripts(nullptr);
    PlayedLines().clear();
  }
  std::vector<std::string> LinesOfPlayed(std::vector<PlayedLine> lines) {
    return LinesOf(MakePlayedStyle(std::move(lines)));
  }
  std::string MakePlayedStyle(std::vector<PlayedLine> lines) {
    PlayedLines() = std::move(lines);
    return MakeStyle({{"assembly.txt", "language PlayScript\r\ninclude one.js\r\ninclude main.js"},
                      {"one.js", "first"},
                      {"main.js", "one\r\ntwo\r\nthree"}});
  }

  // A check of two windows that has looked at the first one, and found two faults there whose places it does not know.
  std::unique_ptr<StyleCheck> CheckThatSearches() {
    StyleCheckLimits limits;
    limits.windows = {CheckedForm::kName, "frmhelp"};
    limits.now = [this] { return now_; };
    auto check =
        std::make_unique<StyleCheck>(MakePlayedStyle({[](CheckedForm& form, ClsSystem&) { form.Command1.Left = 5000; },
                                                      [](CheckedForm& form, ClsSystem&) { form.Command2.Top = 9000; }}),
                                     limits);
    check->Step();
    check->Step();
    return check;
  }
  static std::vector<std::string> LinesOfFaults(const StyleCheck& check) {
    std::vector<std::string> lines;
    for (const StyleFault& fault : check.faults()) lines.push_back(LineOf(fault));
    return lines;
  }
};

TEST_F(OtherLanguageCheckTest, AFaultHasTheLineThatMadeIt) {
  EXPECT_THAT(LinesOfPlayed({[](CheckedForm& form, ClsSystem&) { form.Command1.Left = 5000; },
                             [](CheckedForm& form, ClsSystem&) { form.Command1.Caption = "&Set"; },
                             [](CheckedForm& form, ClsSystem&) { form.Command2.Top = 9000; }}),
              ElementsAre("main.js(1): frmchecked.Command1: The control reaches out of the window.",
                          "main.js(3): frmchecked.Command2: The control has left the window."));
}

TEST_F(OtherLanguageCheckTest, OfTwoLinesThatMoveAControlTheLastIsToBlame) {
  EXPECT_THAT(LinesOfPlayed({[](CheckedForm& form, ClsSystem&) { form.Command1.Left = 5000; },
                             [](CheckedForm& form, ClsSystem&) { form.Command1.Left = 5400; }}),
              ElementsAre("main.js(2): frmchecked.Command1: The control reaches out of the window."));
}

TEST_F(OtherLanguageCheckTest, APictureThatIsMissingHasItsLine) {
  EXPECT_THAT(
      LinesOfPlayed({[](CheckedForm& form, ClsSystem&) { form.Tag = "seen"; },
                     [](CheckedForm&, ClsSystem& system) { static_cast<void>(system.LoadPFFPicture("lost.bmp")); }}),
      ElementsAre("main.js(2): frmchecked: Style Error: picture 'lost.bmp' not found in style file."));
}

TEST_F(OtherLanguageCheckTest, AnErrorOfTheScriptIsToldOnceAndTheFaultBeforeItKeepsItsLine) {
  EXPECT_THAT(LinesOfPlayed({[](CheckedForm& form, ClsSystem&) { form.Command1.Left = 5000; },
                             [](CheckedForm&, ClsSystem&) { Raise(1001, "Something else"); }}),
              ElementsAre("main.js(2): frmchecked: Script error 1001: Something else.",
                          "main.js(1): frmchecked.Command1: The control reaches out of the window."));
}

// As with "try" in a script: the engine never hears of the failure.
TEST_F(OtherLanguageCheckTest, AScriptThatCatchesFailuresKeepsItsPlacesToItself) {
  EXPECT_THAT(LinesOfPlayed({[](CheckedForm& form, ClsSystem&) { Attempt([&] { form.Command1.Left = 5000; }); }}),
              ElementsAre("frmchecked.Command1: The control reaches out of the window."));
}

// It runs once more when the place is searched for, and what it does then has the numbers of other things.
TEST_F(OtherLanguageCheckTest, AScriptThatDoesAnotherThingTheSecondTimeHasNoInnocentLineBlamed) {
  int runs = 0;
  EXPECT_THAT(LinesOfPlayed({[&runs](CheckedForm& form, ClsSystem&) {
                               if (++runs == 1) form.Command1.Left = 5000;
                             },
                             [](CheckedForm& form, ClsSystem&) { form.Command1.Caption = "&Set"; },
                             [](CheckedForm& form, ClsSystem&) { form.Command2.Left = 1900; }}),
              ElementsAre("frmchecked.Command1: The control reaches out of the window."));
  EXPECT_EQ(runs, 2);
}

TEST_F(OtherLanguageCheckTest, AnotherBoxTheSecondTimeIsNotTheOneThatWasHeard) {
  int runs = 0;
  EXPECT_THAT(LinesOfPlayed({[&runs](CheckedForm&, ClsSystem& system) {
                static_cast<void>(system.LoadPFFPicture(++runs == 1 ? "lost.bmp" : "gone.bmp"));
              }}),
              ElementsAre("frmchecked: Style Error: picture 'lost.bmp' not found in style file."));
  EXPECT_EQ(runs, 2);
}

TEST_F(OtherLanguageCheckTest, EachSearchForAPlaceIsAStepOfItsOwn) {
  const std::unique_ptr<StyleCheck> check = CheckThatSearches();
  for (int search = 0; search < 2; ++search) {
    EXPECT_EQ(check->done(), 0U);
    EXPECT_THAT(LinesOfFaults(*check), IsEmpty());
    EXPECT_EQ(&platform(), static_cast<Platform*>(&desktop));
    check->Step();
  }
  EXPECT_EQ(check->done(), 1U);
  EXPECT_FALSE(check->IsOver());
  EXPECT_THAT(LinesOfFaults(*check),
              ElementsAre("main.js(1): frmchecked.Command1: The control reaches out of the window.",
                          "main.js(2): frmchecked.Command2: The control has left the window."));
}

TEST_F(OtherLanguageCheckTest, ACheckThatIsLeftWhileItSearchesKeepsWhatItHasFound) {
  const std::unique_ptr<StyleCheck> check = CheckThatSearches();
  check->Step();
  check->Leave();
  EXPECT_TRUE(check->IsOver());
  EXPECT_EQ(check->done(), 1U);
  EXPECT_THAT(LinesOfFaults(*check),
              ElementsAre("main.js(1): frmchecked.Command1: The control reaches out of the window.",
                          "frmchecked.Command2: The control has left the window."));
  EXPECT_EQ(check->Rest(), "The check was cancelled: frmhelp was not looked at.");
}

TEST_F(OtherLanguageCheckTest, WhenTheTimeIsUpNoPlaceIsSearchedForAnyMore) {
  const std::unique_ptr<StyleCheck> check = CheckThatSearches();
  now_ += std::chrono::seconds(61);
  check->Step();
  check->Step();
  EXPECT_TRUE(check->IsOver());
  EXPECT_THAT(LinesOfFaults(*check), ElementsAre("frmchecked.Command1: The control reaches out of the window.",
                                                 "frmchecked.Command2: The control has left the window."));
  EXPECT_EQ(check->Rest(), "The check ended early, because its time was up: frmhelp was not looked at.");
}

TEST_F(OtherLanguageCheckTest, AManifestWithTwoLanguagesNamesTheModuleThatIsWrong) {
  EXPECT_THAT(LinesOf(MakeStyle({{"assembly.txt",
                                  "language VBScript\r\ninclude main.vbs\r\nlanguage PlayScript\r\n"
                                  "include wrong.js\r\nlanguage VBScript\r\ninclude more.vbs"},
                                 {"main.vbs", "Sub Form_Load(Form)\r\nEnd Sub"},
                                 {"wrong.js", "broken here"},
                                 {"more.vbs", "Sub Control_Load(Control, Form)\r\nEnd Sub\r\nSub Broken("}})),
              testing::IsSupersetOf({"wrong.js(1): Script error 1002: Syntax error.",
                                     "more.vbs(3): Script error 1010: Expected identifier."}));
}

// ---- the file ------------------------------------------------------------------------------------------------------

TEST_F(StyleCheckTest, AFileThatIsNoStyleIsToldAsTheProgramTellsIt) {
  WriteFile(Path("no.stl"), "This is no archive.");
  EXPECT_THAT(LinesOf(Path("no.stl")), ElementsAre("Unable to open " + Path("no.stl")));
  EXPECT_THAT(LinesOf(MakeStyle({{"readme.txt", "hello"}})), testing::Contains("Warning assembly.txt file not found"));
}

TEST_F(StyleCheckTest, AManifestWhoseLinesEndInLineFeedsAloneIsNamed) {
  const std::string module = "Sub Form_Load(Form)\r\nEnd Sub\r\nSub Control_Load(Control, Form)\r\nEnd Sub";
  constexpr const char* kEnd =
      "The line does not end in carriage return and line feed: what stands behind it is read as a part of it.";
  EXPECT_THAT(LinesOf(MakeStyle({{"assembly.txt", "language VBScript\ninclude main.vbs\n"}, {"main.vbs", module}})),
              testing::Contains("assembly.txt(1): " + std::string(kEnd)));
  EXPECT_THAT(LinesOf(MakeStyle({{"assembly.txt", "language VBScript\r\ninclude main.vbs\r\n//one\n//two\r//three"},
                                 {"main.vbs", module}})),
              ElementsAre("assembly.txt(3): " + std::string(kEnd)));
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
                          "The check ended early, because a script had to be stopped: frmhelp was not looked at."));
}

TEST_F(StyleCheckTest, ACheckThatTakesTooLongLeavesTheRestOut) {
  StyleCheckLimits limits;
  limits.whole_ms = -1;
  EXPECT_THAT(
      LinesOf(MakeScriptStyle("Sub Form_Load(Form)\r\nEnd Sub\r\nSub Control_Load(Control, Form)\r\nEnd Sub"), limits),
      ElementsAre("The check ended early, because its time was up: frmchecked was not looked at."));
}

TEST_F(StyleCheckTest, WhatWasNotLookedAtIsNoFaultOfTheStyle) {
  StyleCheckLimits limits;
  limits.whole_ms = -1;
  limits.windows = {"frmhelp", CheckedForm::kName, "frmzip"};
  const StyleCheckResult result = CheckStyle(MakeScriptStyle(""), limits);
  EXPECT_THAT(result.faults, IsEmpty());
  EXPECT_EQ(result.rest,
            "The check ended early, because its time was up: frmhelp and the 2 windows behind it were not looked at.");
}

// Each call is quick enough, all of them together are not: the window is not looked at to its end.
TEST_F(StyleCheckTest, AWindowWhoseManyControlsTakeTooLongIsLeft) {
  StyleCheckLimits limits;
  limits.script_ms = 5000;
  limits.whole_ms = 1'000'000;
  limits.windows = {CheckedForm::kName, "frmhelp"};
  limits.now = [this] {
    now_ += std::chrono::seconds(1);  // each time it is asked, once and more for a control
    return now_;
  };
  const StyleCheckResult result = CheckStyle(
      MakeScriptStyle("Sub Form_Load(Form)\r\nEnd Sub\r\nSub Control_Load(Control, Form)\r\nEnd Sub"), limits);
  EXPECT_THAT(result.faults, IsEmpty());
  EXPECT_EQ(result.rest,
            "The check ended early, because its time was up: frmchecked and the window behind it were not looked at.");
}

TEST_F(StyleCheckTest, TheCommandTellsInALastLineThatNotEverythingWasLookedAt) {
  const std::vector<std::string> lines = CheckStyleFile(
      MakeScriptStyle("Sub Form_Load(Form)\r\nErr.Raise " + std::to_string(kScriptTimedOut) + "\r\nEnd Sub"));
  ASSERT_EQ(lines.size(), 2U);
  EXPECT_THAT(lines.back(), testing::StartsWith("The check ended early, because a script had to be stopped: "));
}

// ---- step by step --------------------------------------------------------------------------------------------------

TEST_F(StyleCheckTest, BetweenTwoStepsTheProgramIsAsEver) {
  StyleCheckLimits limits;
  limits.windows = {CheckedForm::kName, "frmhelp"};
  StyleCheck check(MakeScriptStyle("Sub Form_Load(Form)\r\nForm.Caption = \"checked\"\r\nEnd Sub\r\n"
                                   "Sub Control_Load(Control, Form)\r\nEnd Sub"),
                   limits);
  EXPECT_THAT(check.windows(), ElementsAre(CheckedForm::kName, "frmhelp"));
  check.Step();
  EXPECT_EQ(check.done(), 0U);
  check.Step();
  EXPECT_EQ(check.done(), 1U);
  EXPECT_FALSE(check.IsOver());
  EXPECT_EQ(&platform(), static_cast<Platform*>(&desktop));
  EXPECT_FALSE(StyleActive());
  EXPECT_EQ(LoadedWindow(CheckedForm::kName), nullptr);
  Form& mine = WindowByName(CheckedForm::kName);
  mine.Show();
  EXPECT_EQ(mine.Caption.get(), "");
  check.Step();
  EXPECT_TRUE(check.IsOver());
  EXPECT_EQ(check.Rest(), "");
  EXPECT_EQ(LoadedWindow(CheckedForm::kName), &mine);
}

TEST_F(StyleCheckTest, ACheckThatIsLeftKeepsWhatItHasFoundAndNamesTheRest) {
  StyleCheckLimits limits;
  limits.windows = {CheckedForm::kName, "frmhelp", "frmzip"};
  StyleCheck check(MakeScriptStyle("Sub Form_Load(Form)\r\nForm.Command1.Left = 9000\r\nEnd Sub\r\n"
                                   "Sub Control_Load(Control, Form)\r\nEnd Sub"),
                   limits);
  check.Step();
  check.Step();
  check.Leave();
  EXPECT_TRUE(check.IsOver());
  check.Step();
  EXPECT_EQ(check.done(), 1U);
  EXPECT_EQ(check.faults().size(), 1U);
  EXPECT_EQ(check.Rest(), "The check was cancelled: frmhelp and the window behind it were not looked at.");
}

TEST_F(StyleCheckTest, AScriptThatAsksWithoutAnEndIsBrokenOff) {
  EXPECT_THAT(LinesOfScript("Do\r\nMsgBox \"again\"\r\nLoop"),
              ElementsAre("main.vbs(3): frmchecked: Script error 70: Permission denied."));
}

}  // namespace
}  // namespace kestrun
