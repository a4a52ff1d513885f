// The editor's list of what is wrong with the style.
#include "windows/style_editor/frmeditcheck.h"

#include <memory>

#include "base/runtime_error.h"
#include "forms/keys.h"
#include "styles/mod_style.h"
#include "support/registered_window.h"
#include "windows/style_editor/editor_fixture.h"

namespace kestrun {
namespace {

using testing::ElementsAre;
using testing::IsEmpty;

// The one window that the style is checked against.
class SmallWindow final : public Form {
 public:
  SmallWindow() : Form("frmsmall") {
    SetClientSize(3000, 2000);
    Command1.Move(120, 120, 1500, 375);
    Command1.Caption = "&Put";
  }
  CommandButton& Command1 = Add<CommandButton>("Command1");
};

class FrmEditCheckTest : public EditorTest {
 protected:
  FrmEditCheckTest() {
    for (const std::string& name : RegisteredWindows()) {
      if (!name.starts_with("FrmEdit")) others_.push_back(std::make_unique<WithoutWindow>(name));
    }
    small_ = std::make_unique<StandInWindow<SmallWindow>>("frmsmall");
  }
  ~FrmEditCheckTest() override { CloseAllWindows(); }

  // Lets the check run to its end.
  void RunCheck() { desktop.clock().AdvanceMs(100); }
  void Check() {
    editor().mnu_checkstyle.Click();
    RunCheck();
  }
  static FrmEditCheck& list() { return Window<FrmEditCheck>(); }
  static std::vector<std::string> Rows() {
    std::vector<std::string> rows;
    for (int row = 0; row < list().LstFaults.ListCount(); ++row) rows.push_back(list().LstFaults.List(row));
    return rows;
  }
  // A style whose module puts a button outside of its window in line 3, open in the editor.
  std::string OpenFaulty() {
    const std::string path =
        MakeStyle("far.stl", {{"assembly.txt", "language VBScript\r\ninclude main.vbs"}, {"main.vbs", kModule}});
    editor().LoadStyle(path);
    return path;
  }
  static constexpr const char* kModule =
      "Sub Form_Load(Form)\r\n"
      "  'far away\r\n"
      "  Form.Command1.Left = 5000\r\n"
      "End Sub\r\n"
      "Sub Control_Load(Control, Form)\r\n"
      "End Sub";
  static constexpr const char* kRow = "main.vbs(3): frmsmall.Command1: The control has left the window.";

 private:
  std::vector<std::unique_ptr<WithoutWindow>> others_;
  std::unique_ptr<StandInWindow<SmallWindow>> small_;
};

TEST_F(FrmEditCheckTest, EachFaultHasARow) {
  OpenFaulty();
  Check();
  EXPECT_TRUE(list().IsShown());
  EXPECT_THAT(Rows(), ElementsAre(kRow));
  EXPECT_EQ(list().LblResult.Caption.get(), "One fault was found in far.stl. Enter shows its line.");
  EXPECT_TRUE(list().CmdOpen.Enabled);
}

TEST_F(FrmEditCheckTest, ADoubleClickShowsTheLineInTheEditor) {
  OpenFaulty();
  Check();
  list().LstFaults.DblClick();
  EXPECT_EQ(editor().TxtCode.Text.get(), kModule);
  EXPECT_EQ(editor().TxtCode.SelText(), "  Form.Command1.Left = 5000");
  EXPECT_EQ(editor().Label3.Caption.get(), "Code Window main.vbs");
}

// Enter presses the default button.
TEST_F(FrmEditCheckTest, EnterShowsTheLineInTheEditor) {
  OpenFaulty();
  Check();
  EXPECT_TRUE(list().CmdOpen.Default);
  EXPECT_TRUE(list().CmdOpen.Press());
  EXPECT_EQ(editor().TxtCode.SelText(), "  Form.Command1.Left = 5000");
}

TEST_F(FrmEditCheckTest, WhatIsTypedIsCheckedAndTheListIsMadeAnew) {
  const std::string path = OpenFaulty();
  Check();
  list().LstFaults.DblClick();
  Type(ReplaceAll(kModule, "5000", "200"));
  list().CmdAgain.Click();
  RunCheck();
  EXPECT_THAT(Rows(), IsEmpty());
  EXPECT_EQ(list().LblResult.Caption.get(), "No faults were found in far.stl.");
  EXPECT_FALSE(list().CmdOpen.Enabled);
  EXPECT_THAT(ContentOf(path), testing::Contains(testing::Pair("main.vbs", kModule)));
}

TEST_F(FrmEditCheckTest, AFaultWithoutALineOpensNothing) {
  const std::string path = MakeStyle("lone.stl", {{"assembly.txt", "language VBScript\r\ninclude main.vbs"},
                                                  {"main.vbs", "Sub Form_Load(F)\r\nEnd Sub"}});
  editor().LoadStyle(path);
  Check();
  EXPECT_THAT(Rows(), ElementsAre("frmsmall: Script error 13: Type mismatch: 'Control_Load'."));
  EXPECT_FALSE(list().CmdOpen.Enabled);
  list().LstFaults.DblClick();
  EXPECT_EQ(editor().TxtCode.Text.get(), "");
}

TEST_F(FrmEditCheckTest, AMissingIncludeOpensTheManifest) {
  editor().LoadStyle(MakeStyle("lost.stl", {{"assembly.txt", "language VBScript\r\ninclude lost.vbs"}}));
  Check();
  list().LstFaults.DblClick();
  EXPECT_EQ(editor().TxtCode.SelText(), "include lost.vbs");
}

// ---- while the check runs ------------------------------------------------------------------------------------------

TEST_F(FrmEditCheckTest, ItsWindowShowsHowFarItIs) {
  OpenFaulty();
  editor().mnu_checkstyle.Click();
  EXPECT_TRUE(list().IsShown());
  EXPECT_EQ(list().LblResult.Caption.get(), "Checking far.stl: window 1 of 1 (frmsmall). Esc ends the check.");
  EXPECT_TRUE(list().prgcheck.Visible);
  EXPECT_EQ(list().CmdClose.Caption.get(), "&Cancel");
  EXPECT_FALSE(list().CmdAgain.Enabled);
  RunCheck();
  EXPECT_FALSE(list().prgcheck.Visible);
  EXPECT_EQ(list().CmdClose.Caption.get(), "&Close");
  EXPECT_TRUE(list().CmdAgain.Enabled);
}

// Esc presses the button that cancels.
TEST_F(FrmEditCheckTest, EscEndsItAndKeepsWhatItHasFound) {
  const StandInWindow<SmallWindow> second("frmsmall2");
  OpenFaulty();
  editor().mnu_checkstyle.Click();
  desktop.clock().AdvanceMs(2);  // the modules, and the first of two windows
  EXPECT_TRUE(list().CmdClose.Cancel);
  EXPECT_TRUE(list().CmdClose.Press());
  EXPECT_TRUE(list().IsShown());
  EXPECT_THAT(Rows(), ElementsAre(kRow));
  EXPECT_EQ(list().LblResult.Caption.get(),
            "The check was cancelled: frmsmall2 was not looked at. The list is incomplete: one fault was found in "
            "far.stl until then.");
  EXPECT_FALSE(list().prgcheck.Visible);
  RunCheck();
  EXPECT_THAT(Rows(), ElementsAre(kRow));
  EXPECT_TRUE(list().CmdClose.Press());
  EXPECT_EQ(LoadedWindow(FrmEditCheck::kName), nullptr);
}

TEST_F(FrmEditCheckTest, AScriptThatHadToBeStoppedEndsItWithAWord) {
  const StandInWindow<SmallWindow> second("frmsmall2");
  const std::string path =
      MakeStyle("ends.stl", {{"assembly.txt", "language VBScript\r\ninclude main.vbs"},
                             {"main.vbs", "Sub Form_Load(Form)\r\nErr.Raise -2147467260\r\nEnd Sub"}});
  editor().LoadStyle(path);
  Check();
  EXPECT_THAT(list().LblResult.Caption.get(),
              testing::StartsWith("The check ended early, because a script had to be stopped: frmsmall2 was not looked "
                                  "at. The list is incomplete: one fault was found in ends.stl until then."));
}

// A machine that has nothing left for the desktop on which windows are looked at.
class PlatformWithoutRoom final : public Platform {
 public:
  explicit PlatformWithoutRoom(Platform& real) : real_(real) {}
  FileSystem& files() override { return real_.files(); }
  Program& program() override { return real_.program(); }
  UserSettings& user_settings() override { return real_.user_settings(); }
  Registry& registry() override { return real_.registry(); }
  Shell& shell() override { return real_.shell(); }
  Processes& processes() override { return real_.processes(); }
  Internet& internet() override { Raise(error::kOutOfMemory); }
  Dialogs& dialogs() override { return real_.dialogs(); }
  Clipboard& clipboard() override { return real_.clipboard(); }
  Pictures& pictures() override { return real_.pictures(); }
  Clock& clock() override { return real_.clock(); }
  Windowing& windowing() override { return real_.windowing(); }
  RunningGames& running_games() override { return real_.running_games(); }

 private:
  Platform& real_;
};

TEST_F(FrmEditCheckTest, AStepThatFailsIsToldOnceAndEndsIt) {
  OpenFaulty();
  editor().mnu_checkstyle.Click();
  PlatformWithoutRoom crowded(desktop);
  {
    const PlatformInstallation installation(crowded);
    dialogs().ExpectBox("Error: 7\r\nOut of memory").WithIcon(BoxIcon::kCritical);
    RunCheck();
  }
  EXPECT_EQ(list().LblResult.Caption.get(),
            "The check was cancelled: frmsmall was not looked at. The list is incomplete: no faults were found in "
            "far.stl until then.");
  EXPECT_FALSE(list().TmrCheck.Enabled);
  EXPECT_TRUE(list().CmdAgain.Enabled);
  list().CmdAgain.Click();
  RunCheck();
  EXPECT_THAT(Rows(), ElementsAre(kRow));
}

TEST_F(FrmEditCheckTest, WhileItRunsTheEditorCanBeUsedAndClosed) {
  OpenFaulty();
  editor().mnu_checkstyle.Click();
  OpenEntry("main.vbs");
  EXPECT_EQ(editor().TxtCode.Text.get(), kModule);
  dialogs().ExpectBox("Do you want to save the changes to '" + Path("far.stl") + "'", BoxAnswer::kNo);
  editor().Unload();
  RunCheck();
  EXPECT_EQ(LoadedWindow(FrmEditCheck::kName), nullptr);
}

TEST_F(FrmEditCheckTest, TheListGoesWithTheEditor) {
  editor().LoadStyle("");
  Check();
  EXPECT_NE(LoadedWindow(FrmEditCheck::kName), nullptr);
  editor().Unload();
  EXPECT_EQ(LoadedWindow(FrmEditCheck::kName), nullptr);
}

TEST_F(FrmEditCheckTest, TheProjectTheSettingsAndTheStyleInUseStay) {
  const std::string path = OpenFaulty();
  const std::string before = ReadFile(path);
  Check();
  EXPECT_EQ(ReadFile(path), before);
  EXPECT_FALSE(FileIsThere(ProgramPath("packit.ini")));
  EXPECT_EQ(ModStyle::CurrentStyle(), nullptr);
}

}  // namespace
}  // namespace kestrun
