#include <gtest/gtest.h>

#include "forms/text_box.h"
#include "program/frame_fixture.h"
#include "program/game_paths.h"
#include "program/shell_integration.h"
#include "program/style_hook.h"
#include "support/registered_window.h"
#include "windows/splash/frmsplash.h"

namespace kestrun {
namespace {

class LoadMapWindow final : public Form {
 public:
  LoadMapWindow() : Form("frmopenmap") {}
  TextBox& TxtFile = Add<TextBox>("TxtFile");
};

constexpr const char* kFirstRunQuestion =
    "Kestrun can set itself as default editor for *.bms files (maps). Do you want to set Kestrun as default editor?\r\n"
    "If you click 'YES' Kestrun will start when you open dflw maps (double click the map in Windows Explorer).CLICK "
    "'YES'!";
constexpr const char* kGamePrompt =
    "Kestrun was unable to find your dflw game folder. Please select your game folder (directory where you installed "
    "the dflw game).";
constexpr const char* kGameBrowse =
    "Select your game folder (game installation directory 'C:\\program files\\novalogic\\delta force land "
    "warrior...').";
constexpr const char* kStartBrowse =
    "Select the folder where you installed your game. By default this is C:\\program files\\novalogic\\delta force "
    "land warrior demo";

class StartUpTest : public FrameTest {
 protected:
  StartUpTest() {
    WriteIni("[launcher]\r\nFIRSTRUN=False\r\n");
    TellGameFolder();
  }
  ~StartUpTest() override {
    CloseAllWindows();
    InstallShellIntegration({});
    InstallStyleRuntime({});
  }

  void Start(const std::string& command_line) {
    desktop.program().command_line = command_line;
    static_cast<void>(WindowByName("frmsplash"));
  }
  [[nodiscard]] bool IsOpen(const char* window) { return LoadedWindow(window) && LoadedWindow(window)->IsShown(); }
  void ForgetGame() {
    desktop.registry().DeleteKey(RegistryRoot::kLocalMachine,
                                 "SOFTWARE\\Microsoft\\Windows\\CurrentVersion\\App Paths\\dflwdem.exe");
  }
  // What a start without a game asks: the first folder dialogue is cancelled, the second answered so.
  void ExpectGameQuestions(std::optional<std::string> second_answer) {
    desktop.dialogs().ExpectBox(kGamePrompt);
    desktop.dialogs().ExpectFolder(kGameBrowse, std::nullopt);
    desktop.dialogs().ExpectBox("Kestrun was unable to find your dflw game folder!");
    desktop.dialogs().ExpectBox("Please select it yourself.");
    desktop.dialogs().ExpectFolder(kStartBrowse, std::move(second_answer));
  }
  const StandInWindow<LoadMapWindow> load_map{"frmopenmap"};
  [[nodiscard]] std::string Address() {
    return static_cast<TextBox*>(LoadedWindow("frmopenmap")->FindControl("TxtFile"))->Text;
  }
};

TEST_F(StartUpTest, WithoutACommandTheMainWindowOpensAndTheSplashCloses) {
  Start("");
  EXPECT_TRUE(IsOpen("frmain"));
  EXPECT_EQ(LoadedWindow("frmsplash"), nullptr);
}

TEST_F(StartUpTest, SafeOpensTheMainWindowAndRunsNoOtherStep) {
  WriteIni("");
  Start("-safe");
  EXPECT_TRUE(SafeMode());
  EXPECT_TRUE(IsOpen("frmain"));
  EXPECT_EQ(Ini("launcher", "FIRSTRUN"), "(none)");
  EXPECT_FALSE(desktop.user_settings().Get("Kes_Trun", "DEFAULT", "EXE"));
}

TEST_F(StartUpTest, SafeInCapitalsStartsNormallyAndGoesOnAsAFileName) {
  Start("-SAFE");
  EXPECT_FALSE(SafeMode());
  EXPECT_TRUE(IsOpen("frmopenmap"));
  EXPECT_EQ(Address(), "-SAFE");
  EXPECT_FALSE(IsOpen("frmain"));
}

TEST_F(StartUpTest, SafeBehindTheProtocolIsNoSafeMode) {
  Start("kestrun://-safe");
  EXPECT_FALSE(SafeMode());
  EXPECT_EQ(Address(), "-safe");
}

TEST_F(StartUpTest, TheProtocolPrefixIsTakenAwayAndAnOptionOpensItsWindowAlone) {
  Start("KESTRUN://-frmopenmap");
  EXPECT_TRUE(IsOpen("frmopenmap"));
  EXPECT_FALSE(IsOpen("frmain"));
  EXPECT_EQ(LoadedWindow("frmsplash"), nullptr);
}

TEST_F(StartUpTest, OnlyTheFirstProtocolPrefixIsTakenAwayWhereverItStands) {
  Start("a kestrun://b kestrun://c");
  EXPECT_EQ(Address(), "a b kestrun://c");
}

TEST_F(StartUpTest, AQuotedPathWithABlankLosesItsQuotes) {
  Start("\"C:\\my maps\\Oasis.bms\"");
  EXPECT_EQ(Address(), "C:\\my maps\\Oasis.bms");
}

TEST_F(StartUpTest, AWebAddressOpensTheLoadMapWindow) {
  Start("http://localhost/maps/Oasis.bms");
  EXPECT_EQ(Address(), "http://localhost/maps/Oasis.bms");
  EXPECT_TRUE(IsOpen("frmopenmap"));
}

TEST_F(StartUpTest, AStyleFileIsLoadedAndTheMainWindowOpens) {
  std::string loaded;
  InstallStyleRuntime({[] { return false; }, [&](const std::string& path) { loaded = path; }, [](Form&) {}});
  WriteIni("[launcher]\r\nFIRSTRUN=False\r\nSTYLE=c:\\dark.STL\r\n");
  Start("c:\\dark.STL");
  EXPECT_EQ(loaded, "c:\\dark.STL");
  EXPECT_TRUE(IsOpen("frmain"));
}

TEST_F(StartUpTest, TheDefaultStyleIsTriedOnlyWhenItExists) {
  std::string loaded = "(none)";
  InstallStyleRuntime({[] { return false; }, [&](const std::string& path) { loaded = path; }, [](Form&) {}});
  Start("");
  EXPECT_EQ(loaded, "(none)");
  CloseAllWindows();
  WriteFile(ProgramPath("default.stl"), "style");
  Start("");
  EXPECT_EQ(loaded, ProgramPath("default.stl"));
}

TEST_F(StartUpTest, PackLeavesNoWindow) {
  Start("-pack \"" + GamePath("a.pff") + "\" \"A.BMS\"");
  EXPECT_TRUE(LoadedWindows().empty());
}

TEST_F(StartUpTest, TheVersionStandsInTheSplashWindow) {
  desktop.program().version = {2, 10, 7};
  std::string shown;
  InstallStyleRuntime({[] { return true; }, [](const std::string&) {},
                       [&](Form& form) {
                         if (form.Name() == "frmsplash") shown = static_cast<frmsplash&>(form).lblversion.Caption;
                       }});
  Start("");
  EXPECT_EQ(shown, "V2.10.7");
}

TEST_F(StartUpTest, AStyleThatFailsOnTheSplashWindowIsReportedAndTheStartGoesOn) {
  InstallStyleRuntime({[] { return true; }, [](const std::string&) {},
                       [](Form& form) {
                         if (form.Name() == "frmsplash") Raise(error::kTypeMismatch);
                       }});
  desktop.dialogs().ExpectBox("Error: ApplyStyle()13\r\nType mismatch");
  Start("");
  EXPECT_TRUE(IsOpen("frmain"));
}

TEST_F(StartUpTest, AFirstRunAsksOnceAndNotesIt) {
  WriteIni("");
  desktop.dialogs().ExpectBox(kFirstRunQuestion, BoxAnswer::kNo).WithButtons(BoxButtons::kYesNo);
  Start("");
  EXPECT_EQ(Ini("launcher", "FIRSTRUN"), "False");
  CloseAllWindows();
  Start("");
}

TEST_F(StartUpTest, YesToTheFirstRunQuestionAssociatesMaps) {
  WriteIni("");
  int associations = 0;
  ShellIntegration shell;
  shell.associate_bms = [&] { return ++associations > 0; };
  InstallShellIntegration(shell);
  desktop.dialogs().ExpectBox(kFirstRunQuestion, BoxAnswer::kYes);
  Start("");
  EXPECT_EQ(associations, 1);
}

TEST_F(StartUpTest, AFirstRunWithNoGameAsksTwiceAndThenNeverAgain) {
  ForgetGame();
  WriteIni("[launcher]\r\nFIRSTRUN=False\r\nPATH=" + std::string("C:\\") + "\r\n");
  ExpectGameQuestions(std::nullopt);
  Start("-frmopenmap");
  EXPECT_EQ(Ini("launcher", "CHECKLWPATH"), "False");
  CloseAllWindows();
  Start("-frmopenmap");
}

// A third question came with the main window, whose maps lie in the game folder, and an error box behind it.
TEST_F(StartUpTest, AFirstStartWithoutAGameOpensTheMainWindowWithoutAThirdQuestion) {
  ForgetGame();
  ExpectGameQuestions(std::nullopt);
  Start("");
  EXPECT_TRUE(IsOpen("frmain"));
  // The next use asks again.
  desktop.dialogs().ExpectBox(kGamePrompt);
  desktop.dialogs().ExpectFolder(kGameBrowse, std::nullopt);
  EXPECT_FALSE(Attempt([] { static_cast<void>(GameFolder()); }));
}

// Each step notes itself where it reaches the machine.
TEST_F(StartUpTest, TheStepsRunInTheirOrder) {
  std::string steps;
  const auto note = [&steps](const std::string& step) { steps += steps.empty() ? step : ", " + step; };
  WriteFile(ProgramPath("default.stl"), "style");
  WriteFile(ProgramPath("other.stl"), "style");
  WriteIni("");
  ForgetGame();
  InstallStyleRuntime({[] { return true; },
                       [&](const std::string& path) { note("load " + path.substr(path.rfind('\\') + 1)); },
                       [&](Form& form) { note("style of " + form.Name()); }});
  ShellIntegration shell;
  shell.is_protocol_registered = [&](std::string&) {
    EXPECT_TRUE(LoadedWindow("frmsplash")->IsShown());
    EXPECT_EQ(Ini("launcher", "CHECKLWPATH"), "False");
    note("is protocol registered");
    return false;
  };
  shell.register_protocol = [&] { return note("register protocol"), true; };
  shell.is_app_path_registered = [&](std::string&) { return note("is path registered"), false; };
  shell.register_app_path = [&] {
    EXPECT_FALSE(desktop.user_settings().Get("Kes_Trun", "DEFAULT", "EXE"));
    return note("register path"), true;
  };
  shell.associate_bms = [&] {
    EXPECT_TRUE(desktop.user_settings().Get("Kes_Trun", "DEFAULT", "EXE"));
    EXPECT_EQ(Ini("launcher", "FIRSTRUN"), "(none)");
    return note("associate"), true;
  };
  InstallShellIntegration(shell);
  ExpectGameQuestions(std::nullopt);
  desktop.dialogs().ExpectBox(kFirstRunQuestion, BoxAnswer::kYes);
  desktop.dialogs().ExpectBox("Do you want to set this style file as default style?", BoxAnswer::kNo);
  Start("-style " + ProgramPath("other.stl"));
  EXPECT_EQ(
      steps,
      "load default.stl, style of frmsplash, is protocol registered, register protocol, is path registered, register "
      "path, associate, load other.stl, style of frmsplash, style of frmain");
  EXPECT_EQ(Ini("launcher", "FIRSTRUN"), "False");
  EXPECT_TRUE(IsOpen("frmain"));
}

TEST_F(StartUpTest, AGameFolderPickedAtTheStartIsStoredWithoutItsSeparator) {
  ForgetGame();
  ExpectGameQuestions("C:\\games\\dflw\\");
  desktop.dialogs().ExpectBox(
      "The game is not in the folder C:\\games\\dflw: there is neither DFLWDEM.EXE nor dflw.pff in it.\r\nDo you want "
      "to choose another folder?",
      BoxAnswer::kNo);
  Start("-frmopenmap");
  EXPECT_EQ(Ini("FOLDERS", "DFLW"), "C:\\games\\dflw");
}

TEST_F(StartUpTest, WhileTheGameIsFoundTheCheckStaysOn) {
  Start("");
  EXPECT_EQ(Ini("launcher", "CHECKLWPATH"), "(none)");
}

TEST_F(StartUpTest, TheDefaultCopyIsNotedUnderTwoApplicationNamesAtEachStart) {
  Start("");
  EXPECT_EQ(desktop.user_settings().Get("Kes_Trn", "DEFAULT", "APP"), Path("program"));
  EXPECT_EQ(desktop.user_settings().Get("Kes_Trun", "DEFAULT", "EXE"), "kestrun.exe");
  EXPECT_FALSE(desktop.user_settings().Get("Kes_Trun", "DEFAULT", "APP"));
}

TEST_F(StartUpTest, ADefaultCopyThatTheUserChoseIsKept) {
  desktop.user_settings().Save("Kes_Trun", "DEFAULT", "APP", "D:\\Kestrun");
  Start("");
  EXPECT_FALSE(desktop.user_settings().Get("Kes_Trn", "DEFAULT", "APP"));
}

TEST_F(StartUpTest, AnEmptyProtocolIsRegisteredAndAnotherCopysIsLeftAlone) {
  std::string current;
  int registrations = 0;
  ShellIntegration shell;
  shell.is_protocol_registered = [&](std::string& text) {
    text = current;
    return false;
  };
  shell.register_protocol = [&] { return ++registrations > 0; };
  InstallShellIntegration(shell);
  Start("");
  EXPECT_EQ(registrations, 1);
  CloseAllWindows();
  current = "D:\\other\\kestrun.exe \"%1\"";
  Start("");
  EXPECT_EQ(registrations, 1);
}

TEST_F(StartUpTest, ADeadAppPathIsRepairedAndALiveOneRespected) {
  std::string current = "C:\\gone\\kestrun.exe";
  int registrations = 0;
  ShellIntegration shell;
  shell.is_app_path_registered = [&](std::string& text) {
    text = current;
    return false;
  };
  shell.register_app_path = [&] { return ++registrations > 0; };
  InstallShellIntegration(shell);
  Start("");
  EXPECT_EQ(registrations, 1);
  CloseAllWindows();
  WriteFile(Path("other.exe"), "alive");
  current = Path("other.exe");
  Start("");
  EXPECT_EQ(registrations, 1);
}

TEST_F(StartUpTest, ABrokenSettingIsPassedOverSilently) {
  WriteIni("[launcher]\r\nFIRSTRUN=perhaps\r\nCHECKLWPATH=no idea\r\n");
  Start("");
  EXPECT_TRUE(IsOpen("frmain"));
  EXPECT_EQ(Ini("launcher", "FIRSTRUN"), "False");
}

TEST_F(StartUpTest, ALinkThatWouldDoMoreIsShownFirstAndNoEndsTheStart) {
  desktop.dialogs()
      .ExpectBox(
          "A link wants Kestrun to do this:\r\n\r\nC:\\a.bms\r\n\r\nIt would open a file. Anybody can write a "
          "link. Do you want to follow this one?",
          BoxAnswer::kNo)
      .WithDefaultButton(2);
  Start("\"kestrun://C:\\a.bms\"");
  EXPECT_TRUE(LoadedWindows().empty());
}

TEST_F(StartUpTest, ALinkThatIsFollowedReachesWhatItsTextReaches) {
  desktop.dialogs().ExpectBox(
      "A link wants Kestrun to do this:\r\n\r\nC:\\a.bms\r\n\r\nIt would open a file. Anybody can write a link. Do you "
      "want to follow this one?",
      BoxAnswer::kYes);
  Start("\"kestrun://C:\\a.bms\"");
  EXPECT_EQ(Address(), "C:\\a.bms");
}

TEST_F(StartUpTest, ALinkThatHidesASecondCommandEndsTheStart) {
  desktop.dialogs().ExpectBox(
      "This link was not followed:\r\n\r\n-options\" -pack \"a\" \"b\" \"c\r\n\r\nIt holds more than one command.");
  Start("\"kestrun://-options\" -pack \"a\" \"b\" \"c\"");
  EXPECT_TRUE(LoadedWindows().empty());
}

// Versions before the association existed put the question and could do nothing about a Yes.
TEST_F(StartUpTest, ACopyThatAnsweredBeforeTheAssociationExistedIsAskedOnce) {
  ShellIntegration shell;
  int associations = 0;
  shell.is_bms_associated = [&] { return associations > 0; };
  shell.associate_bms = [&] { return ++associations > 0; };
  InstallShellIntegration(shell);
  desktop.user_settings().Save("Kes_Trun", "DEFAULT", "EXE", "kestrun.exe");
  desktop.dialogs().ExpectBox(kFirstRunQuestion, BoxAnswer::kNo);
  Start("");
  CloseAllWindows();
  Start("");
  EXPECT_EQ(associations, 0);
}

TEST_F(StartUpTest, AUserWhoNeverHadAnEarlierVersionIsNotAskedAgain) {
  ShellIntegration shell;
  shell.is_bms_associated = [] { return false; };
  InstallShellIntegration(shell);
  Start("");
  CloseAllWindows();
  Start("");
}

// A failing association left the question unanswered, so that it came again at each start.
TEST_F(StartUpTest, TheFirstRunIsNotedThoughTheAssociationFails) {
  WriteIni("");
  ShellIntegration shell;
  shell.associate_bms = []() -> bool { Raise(error::kPermissionDenied); };
  InstallShellIntegration(shell);
  desktop.dialogs().ExpectBox(kFirstRunQuestion, BoxAnswer::kYes);
  Start("");
  EXPECT_EQ(Ini("launcher", "FIRSTRUN"), "False");
  EXPECT_TRUE(IsOpen("frmain"));
}

// ---- the end of a start that shows nothing -------------------------------------------------------------------------

// The main window was loaded for its command and never shown: the process went on without any window.
TEST_F(StartUpTest, ACommandThatShowsNoWindowEndsTheProcess) {
  const WithoutWindow update("FrmUpdate");
  Start("-update");
  EXPECT_TRUE(LoadedWindows().empty());
}

// It stayed in memory behind the window that took the text for a file, and kept the process when that one was closed.
TEST_F(StartUpTest, AWindowThatFailsWhileItLoadsDoesNotStayUnseen) {
  WriteIni("[launcher]\r\nFIRSTRUN=False\r\nWARNOVERWRITE=perhaps\r\n");
  desktop.dialogs().ExpectBox("Error: 13\r\nType mismatch");
  Start("-frmoverwrite");
  EXPECT_EQ(Address(), "-frmoverwrite");
  EXPECT_EQ(LoadedWindows().size(), 1U);
}

// The main window is loaded for the command alone, and stayed behind the one that the command showed.
TEST_F(StartUpTest, AnUpdateEndsTheProcessWithItsWindow) {
  const WindowRegistration update("FrmUpdate", [] { return MakeRef<Form>("FrmUpdate"); });
  Start("-update");
  ASSERT_TRUE(IsOpen("FrmUpdate"));
  ASSERT_NE(LoadedWindow("frmain"), nullptr);
  LoadedWindow("FrmUpdate")->Unload();
  desktop.clock().RunPendingEvents();
  EXPECT_TRUE(LoadedWindows().empty());
  UnregisterWindow("FrmUpdate");
}

TEST_F(StartUpTest, TheSplashWindowsExitEndsTheProcessAtOnce) {
  InstallStyleRuntime({[] { return true; }, [](const std::string&) {},
                       [&](Form& form) {
                         if (form.Name() == "frmsplash") static_cast<frmsplash&>(form).Label2.Click();
                       }});
  Start("");
  EXPECT_GE(desktop.processes().end_count, 1);
}

}  // namespace
}  // namespace kestrun
