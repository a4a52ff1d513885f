// The window that edits the user's own programs, and the menu that starts them.
#include "windows/programs/frmaddprogram.h"

#include "base/text.h"
#include "program/frame_fixture.h"
#include "program/style_hook.h"
#include "windows/main/frmain.h"

namespace kestrun {
namespace {

constexpr const char* kNamePrompt = "Enter a name for the program. This name will be in the actions menu.";
constexpr const char* kRestart =
    "You made changes to the list. You need to restart this program to refresh the actions list.\r\n"
    "Do you want to restart it now?";
constexpr const char* kFilter =
    "All supported programs|*.exe;*.bat;*.cmd|Windows Programs (*.exe)|*.exe|MS-DOS batch files "
    "(*.bat;*.cmd)|*.bat;*.cmd|All files (*.*)|*.*|";

class ProgramManagerTest : public FrameTest {
 protected:
  ProgramManagerTest() { TellGameFolder(); }
  ~ProgramManagerTest() override {
    CloseAllWindows();
    InstallStyleRuntime({});
  }

  frmaddprogram& Open() {
    frmaddprogram& window = Window<frmaddprogram>();
    if (!window.IsShown()) window.Show();
    return window;
  }
  [[nodiscard]] std::string Rows() {
    std::string rows;
    for (int row = 0; row < Open().Lstprograms.ListCount(); ++row) rows += Open().Lstprograms.List(row) + "|";
    return rows;
  }
  void Add(const std::string& name, const std::string& path) {
    desktop.dialogs().ExpectInput(kNamePrompt, name);
    desktop.dialogs().ExpectFile(path).WithTitle("Select program on HD ...").WithFilter(kFilter);
    Open().Command1.Press();
  }
  ExpectedDialog& ExpectRestartQuestion(BoxAnswer answer) {
    return desktop.dialogs().ExpectBox(kRestart, answer).WithButtons(BoxButtons::kYesNo).WithIcon(BoxIcon::kQuestion);
  }
  void Save() {
    ExpectRestartQuestion(BoxAnswer::kNo);
    Open().Command3.Press();
  }
  // "number:name=path|" for the numbers that are stored.
  [[nodiscard]] std::string Stored() {
    std::string stored = "TOT=" + Ini("PROGRAMS", "TOT") + "|";
    for (int number = 0; number < 5; ++number) {
      const std::string section = "PROGRAM" + std::to_string(number);
      if (Ini(section, "NAME") == "(none)") continue;
      stored += std::to_string(number) + ":" + Ini(section, "NAME") + "=" + Ini(section, "PATH") + "|";
    }
    return stored;
  }
  [[nodiscard]] static std::string MenuPrograms() {
    std::string items;
    for (int item = 1; item < 6; ++item) {
      const Control* const found = WindowByName("frmain").FindControl("mnu_launchprogram", item);
      if (found) items += std::to_string(item) + ":" + static_cast<const MenuItem*>(found)->Caption.get() + "|";
    }
    return items;
  }
  static MenuItem& MenuProgram(int item) {
    return static_cast<MenuItem&>(*WindowByName("frmain").FindControl("mnu_launchprogram", item));
  }
};

TEST_F(ProgramManagerTest, WithoutASectionThereIsNoEntry) {
  EXPECT_EQ(Rows(), "");
  EXPECT_EQ(Open().Caption.get(), "Program Manager");
  EXPECT_EQ(MenuPrograms(), "");
}

TEST_F(ProgramManagerTest, AddedProgramsAreStoredInTheirOrder) {
  Add("Server tool", "C:\\tools\\server.exe");
  Add("Editor", "C:\\tools\\editor.bat");
  EXPECT_EQ(Rows(), "Server tool|Editor|");
  Save();
  EXPECT_EQ(Stored(), "TOT=1|0:Server tool=C:\\tools\\server.exe|1:Editor=C:\\tools\\editor.bat|");
  EXPECT_FALSE(LoadedWindow(frmaddprogram::kName));
  EXPECT_EQ(MenuPrograms(), "1:Server tool|2:Editor|");
}

TEST_F(ProgramManagerTest, OneProgramAloneHasTheNumberNothing) {
  Add("Only", "C:\\only.exe");
  Save();
  EXPECT_EQ(Stored(), "TOT=0|0:Only=C:\\only.exe|");
  EXPECT_EQ(Rows(), "Only|");
}

TEST_F(ProgramManagerTest, AnEmptyNameOrACancelAddsNothing) {
  desktop.dialogs().ExpectInput(kNamePrompt, "");
  Open().Command1.Press();
  desktop.dialogs().ExpectInput(kNamePrompt, std::nullopt);
  Open().Command1.Press();
  desktop.dialogs().ExpectInput(kNamePrompt, "Tool");
  desktop.dialogs().ExpectFile(std::nullopt);
  Open().Command1.Press();
  EXPECT_EQ(Rows(), "");
}

TEST_F(ProgramManagerTest, RemovingClosesTheGapAndLowersTheHighestNumber) {
  Add("a", "C:\\a.exe");
  Add("b", "C:\\b.exe");
  Add("c", "C:\\c.exe");
  Open().Lstprograms.ListIndex = 1;
  Open().Command2.Press();
  Save();
  EXPECT_EQ(Stored(), "TOT=1|0:a=C:\\a.exe|1:c=C:\\c.exe|");
}

TEST_F(ProgramManagerTest, RemovingTheOnlyProgramLeavesAnEntryWithoutTextThatIsNotFound) {
  WriteIni("[launcher]\r\nSHOWQUICKLINKS=1\r\n");
  Add("Only", "C:\\only.exe");
  Save();
  Open().Lstprograms.ListIndex = 0;
  Open().Command2.Press();
  Save();
  EXPECT_EQ(Stored(), "TOT=0|0:=|");
  EXPECT_EQ(MenuPrograms(), "1:|");
  WindowByName("frmain").Show();
  desktop.dialogs().ExpectBox("File not found please change the program path.");
  MenuProgram(1).Choose();
}

TEST_F(ProgramManagerTest, RemovingWithoutASelectedProgramSaysSo) {
  desktop.dialogs().ExpectBox("Select program!");
  Open().Command2.Press();
}

TEST_F(ProgramManagerTest, PropertiesShowNameAndPathOfTheSelectedProgram) {
  Add("Server tool", "C:\\tools\\server.exe");
  Open().Command5.Press();  // none is selected: nothing is shown
  Open().Lstprograms.ListIndex = 0;
  desktop.dialogs().ExpectBox("Program properties:\r\nName:\r\nServer tool\r\nPath:\r\nC:\\tools\\server.exe");
  Open().Command5.Press();
}

TEST_F(ProgramManagerTest, CancelStoresNothing) {
  Add("a", "C:\\a.exe");
  Open().Command4.Press();
  EXPECT_FALSE(LoadedWindow(frmaddprogram::kName));
  EXPECT_EQ(Stored(), "TOT=(none)|");
  EXPECT_EQ(Rows(), "");
}

TEST_F(ProgramManagerTest, YesStartsTheProgramAnewAndEndsThisOne) {
  WriteFile(ProgramPath("kestrun.exe"), "program");
  Add("a", "C:\\a.exe");
  ExpectRestartQuestion(BoxAnswer::kYes);
  Open().Command3.Press();
  ASSERT_EQ(desktop.shell().openings.size(), 1U);
  EXPECT_EQ(desktop.shell().openings[0].file, ProgramPath("kestrun.exe"));
  EXPECT_EQ(desktop.shell().openings[0].operation, "open");
  EXPECT_EQ(desktop.shell().openings[0].show_command, 1);
  EXPECT_EQ(desktop.processes().end_count, 1);
}

TEST_F(ProgramManagerTest, AProgramThatCannotBeStartedAnewGoesOn) {
  Add("a", "C:\\a.exe");
  desktop.shell().open_result = 2;
  ExpectRestartQuestion(BoxAnswer::kYes);
  desktop.dialogs().ExpectFileFailure("Error: 53\r\nFile not found", ProgramPath("kestrun.exe"));
  Open().Command3.Press();
  EXPECT_EQ(desktop.processes().end_count, 0);
  EXPECT_TRUE(LoadedWindow(frmaddprogram::kName));
}

TEST_F(ProgramManagerTest, NumbersWithAGapShowBothInTheMenuAndSavingThenMixesThePairs) {
  WriteIni(
      "[PROGRAMS]\r\nTOT=2\r\n[PROGRAM0]\r\nNAME=zero\r\nPATH=C:\\0.exe\r\n"
      "[PROGRAM2]\r\nNAME=two\r\nPATH=C:\\2.exe\r\n");
  EXPECT_EQ(MenuPrograms(), "1:zero|3:two|");
  EXPECT_EQ(Rows(), "zero|two|");
  Save();
  EXPECT_EQ(Stored(), "TOT=2|0:zero=C:\\0.exe|1:two=|2:=C:\\2.exe|");
}

TEST_F(ProgramManagerTest, AProgramThatWasDeletedKeepsItsEntryAndIsNotFound) {
  WriteIni("[launcher]\r\nSHOWQUICKLINKS=1\r\n[PROGRAM0]\r\nNAME=gone\r\nPATH=Z:\\gone.exe\r\n");
  EXPECT_EQ(MenuPrograms(), "1:gone|");
  WindowByName("frmain").Show();
  desktop.dialogs().ExpectBox("File not found please change the program path.");
  MenuProgram(1).Choose();
}

TEST_F(ProgramManagerTest, AnEntryStartsItsProgramInItsOwnFolder) {
  WriteFile(Path("game\\tool.exe"), "tool");
  Add("Tool", GamePath("tool.exe"));
  Save();
  WriteFile(ProgramPath("packit.ini"), ReadFile(ProgramPath("packit.ini")) + "\r\n[launcher]\r\nSHOWQUICKLINKS=1\r\n");
  WindowByName("frmain").Show();
  MenuProgram(1).Choose();
  EXPECT_EQ(desktop.shell().openings,
            (std::vector<ShellOpening>{{"open", GamePath("tool.exe"), "0", Path("game"), 1}}));
}

TEST_F(ProgramManagerTest, TheMenusFirstEntryOpensTheManager) {
  WriteIni("[launcher]\r\nSHOWQUICKLINKS=1\r\n");
  WindowByName("frmain").Show();
  desktop.windowing().ExpectModal("frmaddprogram", [](Form& form) { form.Unload(); });
  MenuProgram(0).Choose();
}

TEST_F(ProgramManagerTest, ACountThatIsNoNumberIsTold) {
  WriteIni("[PROGRAMS]\r\nTOT=many\r\n");
  desktop.dialogs().ExpectBox("Error: 13\r\nType mismatch");
  EXPECT_EQ(Rows(), "");
}

TEST_F(ProgramManagerTest, AListThatCannotBeStoredSaysSoAndStays) {
  Add("a", "C:\\a.exe");
  native_files.MakeFolder(ProgramPath("packit.ini"));
  desktop.dialogs().ExpectFileFailure("Error: 75\r\nPath/File access error", ProgramPath("packit.ini"));
  Open().Command3.Press();
  EXPECT_EQ(Rows(), "a|");
}

TEST_F(ProgramManagerTest, DroppedProgramsTakeTheNamesOfTheirFiles) {
  DropFiles(Open(), {"C:\\tools\\Map Maker.exe", Path("game")});
  EXPECT_EQ(Rows(), "Map Maker|");
  Save();
  EXPECT_EQ(Stored(), "TOT=0|0:Map Maker=C:\\tools\\Map Maker.exe|");
}

TEST_F(ProgramManagerTest, TheKeyboardReachesEverythingInReadingOrder) {
  Add("a", "C:\\a.exe");
  std::string order;
  for (const Control* control : Open().TabOrder()) order += control->Name() + "|";
  EXPECT_EQ(order, "Lstprograms|Command1|Command2|Command5|Command3|Command4|");
  EXPECT_EQ(Open().Frame1.Caption.get() + Open().Command1.Caption.get() + Open().Command2.Caption.get() +
                Open().Command5.Caption.get() + Open().Command3.Caption.get() + Open().Command4.Caption.get(),
            "Programs:AddRemovePropertiesSaveCancel");
  Open().Lstprograms.ListIndex = 0;
  int key = 46;  // Del
  Open().Lstprograms.KeyDown(key, 0);
  EXPECT_EQ(Rows(), "");
}

}  // namespace
}  // namespace kestrun
