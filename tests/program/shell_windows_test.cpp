// Start-up and the options window over the registry: what they find there, change there, and say when it refuses.
#include <gtest/gtest.h>

#include "program/frame_fixture.h"
#include "program/shell_registration.h"
#include "windows/options/frmoptions.h"

namespace kestrun {
namespace {

constexpr RegistryRoot kClasses = RegistryRoot::kClassesRoot;
constexpr RegistryRoot kMachine = RegistryRoot::kLocalMachine;
constexpr const char* kAppPath = "SOFTWARE\\Microsoft\\Windows\\CurrentVersion\\App Paths\\dflwkestrun.exe";
constexpr const char* kProtocol = "Kestrun\\Shell\\Open\\Command";
constexpr const char* kFirstRunQuestion =
    "Kestrun can set itself as default editor for *.bms files (maps). Do you want to set Kestrun as default editor?\r\n"
    "If you click 'YES' Kestrun will start when you open dflw maps (double click the map in Windows Explorer).CLICK "
    "'YES'!";

class ShellWindowsTest : public FrameTest {
 protected:
  ShellWindowsTest() {
    InstallShellIntegration(RegistryShellIntegration());
    registry().MergeClasses();
    TellGameFolder();
    WriteFile(GamePath("DFLWMEDFC2.EXE"), "editor");
    WriteIni("[launcher]\r\nFIRSTRUN=False\r\n");
  }
  ~ShellWindowsTest() override {
    CloseAllWindows();
    InstallShellIntegration({});
  }

  [[nodiscard]] HeadlessRegistry& registry() { return desktop.registry(); }
  [[nodiscard]] std::string Self() { return ProgramPath("kestrun.exe"); }
  [[nodiscard]] std::string Class(const std::string& key) {
    return registry().Read(kClasses, key, "").value_or("(none)");
  }
  [[nodiscard]] std::string AppPath() { return registry().Read(kMachine, kAppPath, "").value_or("(none)"); }
  void GiveMapsTo(const std::string& command) {
    registry().Write(kClasses, ".bms", "", "Other Map");
    registry().Write(kClasses, "Other Map\\shell\\open\\command", "", command);
  }
  void ExpectTakeOverQuestion(const std::string& command) {
    desktop.dialogs().ExpectBox("The program \r\n" + command +
                                    "\r\nis the default program for .bms files do you want to change it to \r\n" +
                                    Self(),
                                BoxAnswer::kYes);
  }

  void Start() {
    static_cast<void>(WindowByName("frmsplash"));
    CloseAllWindows();
  }
  frmoptions& Options() {
    frmoptions& window = Window<frmoptions>();
    if (!window.IsShown()) window.Show();
    return window;
  }
  void SaveOptions() { Options().Command1.Press(); }
};

// ---- start-up ------------------------------------------------------------------------------------------------------

TEST_F(ShellWindowsTest, AStartRegistersProtocolAndPathWhereThereAreNone) {
  Start();
  EXPECT_EQ(Class(kProtocol), Self() + " \"%1\"");
  EXPECT_EQ(AppPath(), Self());
  EXPECT_EQ(registry().Read(kMachine, kAppPath, "Path"), desktop.program().folder);
  EXPECT_EQ(Class(".bms"), "(none)");
}

TEST_F(ShellWindowsTest, AStartLeavesTheProtocolOfAnotherCopyAlone) {
  registry().Write(kClasses, kProtocol, "", "C:\\other\\kestrun.exe \"%1\"");
  Start();
  EXPECT_EQ(Class(kProtocol), "C:\\other\\kestrun.exe \"%1\"");
}

TEST_F(ShellWindowsTest, AStartRepairsADeadPathAndRespectsALiveOne) {
  WriteFile(Path("other.exe"), "other copy");
  registry().Write(kMachine, kAppPath, "", Path("other.exe"));
  Start();
  EXPECT_EQ(AppPath(), Path("other.exe"));
  native_files.Delete(Path("other.exe"));
  Start();
  EXPECT_EQ(AppPath(), Self());
}

TEST_F(ShellWindowsTest, AStartOfAMovedFolderTakesThePathAndLeavesTheRest) {
  Start();
  const std::string before = Class(kProtocol);
  native_files.MakeFolder(Path("moved"));
  native_files.Copy(ProgramPath("packit.ini"), Path("moved\\packit.ini"));
  desktop.program().folder = Path("moved");
  Start();
  EXPECT_EQ(AppPath(), Path("moved\\kestrun.exe"));
  EXPECT_EQ(Class(kProtocol), before);
}

TEST_F(ShellWindowsTest, AStartWithoutRightsSaysNothing) {
  registry().CloseForWriting(kMachine);
  Start();
  EXPECT_EQ(AppPath(), "(none)");
  EXPECT_EQ(Class(kProtocol), Self() + " \"%1\"");
}

TEST_F(ShellWindowsTest, AStartWhoseRegistryRefusesInTheMiddleSaysNothingAndIsMadeUpForByTheNext) {
  registry().RefuseAfter(3);
  Start();
  EXPECT_EQ(Class("Kestrun"), "URL:kestrun Protocol");
  EXPECT_EQ(Class(kProtocol), "(none)");
  EXPECT_EQ(AppPath(), "(none)");
  registry().RefuseAfter(100);
  Start();
  EXPECT_EQ(Class(kProtocol), Self() + " \"%1\"");
  EXPECT_EQ(AppPath(), Self());
}

TEST_F(ShellWindowsTest, YesAtTheFirstStartTakesTheMapsAfterTheQuestionAboutAnotherProgram) {
  WriteIni("");
  GiveMapsTo("C:\\other.exe %1");
  desktop.dialogs().ExpectBox(kFirstRunQuestion, BoxAnswer::kYes);
  ExpectTakeOverQuestion("C:\\other.exe %1");
  Start();
  EXPECT_EQ(Class(".bms"), "Kestrun Map");
  EXPECT_EQ(Class("Kestrun Map\\shell\\open\\command"), Self() + " %1");
}

// ---- the options window --------------------------------------------------------------------------------------------

TEST_F(ShellWindowsTest, TheOptionsShowWhatIsThisCopys) {
  ASSERT_TRUE(AssociateLst());
  ASSERT_TRUE(RegisterProtocol());
  frmoptions& window = Options();
  EXPECT_EQ(window.Check1.Value, 0);
  EXPECT_EQ(window.Check2.Value, 1);
  EXPECT_EQ(window.Check3.Value, 0);
  EXPECT_EQ(window.ChProtocol.Value, 1);
  window.Unload();
  desktop.program().folder = Path("moved");
  EXPECT_EQ(Options().Check2.Value, 0);
  EXPECT_EQ(Options().ChProtocol.Value, 0);
}

TEST_F(ShellWindowsTest, SavingTakesWhatIsTickedAndGivesBackWhatIsNot) {
  ASSERT_TRUE(AssociateStl());
  Options().Check1.Value = 1;
  Options().Check3.Value = 0;
  desktop.dialogs().ExpectBox("Are you sure you want to remove this program as default editor for .STL files?",
                              BoxAnswer::kYes);
  SaveOptions();
  EXPECT_TRUE(IsBmsAssociated());
  EXPECT_FALSE(IsLstAssociated());
  EXPECT_FALSE(IsStlAssociated());
}

TEST_F(ShellWindowsTest, ARefusalInTheMiddleOfTakingOverIsToldAndTheFilesStayWithTheOtherProgram) {
  GiveMapsTo("C:\\other.exe %1");
  Options().Check1.Value = 1;
  registry().RefuseAfter(2);
  ExpectTakeOverQuestion("C:\\other.exe %1");
  desktop.dialogs().ExpectBox("Failed to associate *.bms files to this program.");
  SaveOptions();
  EXPECT_EQ(Class(".bms"), "Other Map");
  EXPECT_EQ(Class("Other Map\\shell\\open\\command"), "C:\\other.exe %1");
  EXPECT_EQ(Options().Check1.Value, 0);
}

TEST_F(ShellWindowsTest, ARefusalOfEachKindOfFilesIsToldInItsOwnWords) {
  registry().RefuseAfter(0);
  for (CheckBox* box : {&Options().Check1, &Options().Check2, &Options().Check3}) box->Value = 1;
  desktop.dialogs().ExpectBox("Failed to associate *.bms files to this program.");
  desktop.dialogs().ExpectBox("Failed to associate *.lst files to this program.");
  desktop.dialogs().ExpectBox("Failed to associate  *.stl files to this program.");
  SaveOptions();
}

TEST_F(ShellWindowsTest, AnEntryThatCannotBeRemovedIsToldAndStays) {
  ASSERT_TRUE(AssociateBms());
  Options().Check1.Value = 0;
  registry().RefuseAfter(0);
  desktop.dialogs().ExpectBox("Are you sure you want to remove this program as default editor for .BMS files?",
                              BoxAnswer::kYes);
  desktop.dialogs().ExpectBox("Failed to remove *.bms files association with this program.");
  SaveOptions();
  EXPECT_TRUE(IsBmsAssociated());
}

TEST_F(ShellWindowsTest, AnUntickedProtocolHoldsUntilTheNextStart) {
  Start();
  Options().ChProtocol.Value = 0;
  SaveOptions();
  EXPECT_EQ(Class(kProtocol), "");
  EXPECT_EQ(Options().ChProtocol.Value, 0);
  CloseAllWindows();
  Start();
  EXPECT_EQ(Class(kProtocol), Self() + " \"%1\"");
}

}  // namespace
}  // namespace kestrun
