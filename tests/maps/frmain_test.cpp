#include "maps/frmain.h"

#include <gtest/gtest.h>

#include "frame/frame_fixture.h"
#include "maps/frmoverwrite.h"

namespace kestrun {
namespace {

class MainWindowTest : public FrameTest {
 protected:
  MainWindowTest() {
    TellGameFolder();
    MakeArchive(GamePath("dflw.pff"), {"D08M03.BMS", "D08M04.BMS"});
    WriteFile(MapPath("Desert.bms"), "BMS desert");
    WriteFile(MapPath("Oasis.bms"), "BMS oasis");
    WriteFile(MapPath("notes.txt"), "no map");
    WriteIni("[launcher]\r\nWARNOVERWRITE=False\r\n");
  }

  frmain& Main() { return Window<frmain>(); }

  // The window in safe mode with the map folder typed in.
  frmain& MainOnMaps() {
    SetSafeMode(true);
    Main().Show();
    Main().Text1.Text = Path("maps");
    return Main();
  }
};

TEST_F(MainWindowTest, InSafeModeTheFolderIsEmptyAndCommandsWorkAsSoonAsOneIsTyped) {
  SetSafeMode(true);
  Main().Show();
  EXPECT_EQ(Main().Text1.Text.get(), "");
  EXPECT_TRUE(Main().FileMaps.Visible);
  Main().Text1.Text = Path("maps");
  ASSERT_EQ(Main().FileMaps.ListCount(), 2);
  EXPECT_EQ(Main().FileMaps.List(0), "Desert.bms");
}

TEST_F(MainWindowTest, NothingSelectedIsSaid) {
  MainOnMaps();
  desktop.dialogs().ExpectBox("Select map!");
  Main().Command2.Press();
  desktop.dialogs().ExpectBox("Select map!");
  Main().Command7.Press();
}

TEST_F(MainWindowTest, AnEmptyFolderGivesAnEmptyListAndSelectMap) {
  native_files.MakeFolder(Path("empty"));
  SetSafeMode(true);
  Main().Show();
  Main().Text1.Text = Path("empty");
  EXPECT_EQ(Main().FileMaps.ListCount(), 0);
  desktop.dialogs().ExpectBox("Select map!");
  Main().Command2.Press();
}

TEST_F(MainWindowTest, PutsTheSelectedMapInAsCaptureTheFlagAtFirst) {
  MainOnMaps().FileMaps.ListIndex = 1;
  desktop.dialogs().ExpectBox("Successfully packed map");
  Main().Command2.Press();
  EXPECT_EQ(EntryOf(GamePath("dflw.pff"), "D08M03.BMS"), "BMS oasis");
  EXPECT_EQ(Main().txtoutput.Text.get(), "D08M03.BMS");
}

TEST_F(MainWindowTest, DeathmatchTakesTheOtherMission) {
  MainOnMaps().FileMaps.ListIndex = 0;
  Main().opdeath.Press();
  desktop.dialogs().ExpectBox("Successfully packed map");
  Main().Command2.Press();
  EXPECT_EQ(EntryOf(GamePath("dflw.pff"), "D08M04.BMS"), "BMS desert");
  EXPECT_EQ(Main().txtoutput.Text.get(), "D08M04.BMS");
}

TEST_F(MainWindowTest, RenameStoresTheTypedName) {
  MainOnMaps().FileMaps.ListIndex = 0;
  Main().oprename.Press();
  Main().txtoutput.Text = std::string("MINE.BMS");
  desktop.dialogs().ExpectBox("Successfully packed map");
  Main().Command2.Press();
  EXPECT_EQ(EntryOf(GamePath("dflw.pff"), "MINE.BMS"), "BMS desert");
}

TEST_F(MainWindowTest, WhilePlayingTheMessageNamesTheMap) {
  MainOnMaps().FileMaps.ListIndex = 1;
  desktop.dialogs().ExpectBox("Successfully packed map: Oasis.bms");
  Main().Command7.Press();
  EXPECT_EQ(ReadFile(GamePath("D08M03.BMS")), "BMS oasis");
}

TEST_F(MainWindowTest, AFailureIsReportedAndThenSaid) {
  MainOnMaps().FileMaps.ListIndex = 1;
  native_files.Delete(MapPath("Oasis.bms"));
  desktop.dialogs().ExpectBox("The file: " + MapPath("Oasis.bms") + " does not exists.\r\nContinue?", BoxAnswer::kYes);
  desktop.dialogs().ExpectBox("Error: 53\r\nFile not found");
  desktop.dialogs().ExpectBox("Failed to pack map");
  Main().Command2.Press();
}

TEST_F(MainWindowTest, ADoubleClickPutsTheMapIn) {
  MainOnMaps().FileMaps.ListIndex = 1;
  desktop.dialogs().ExpectBox("Successfully packed map");
  Main().FileMaps.DblClick();
  EXPECT_EQ(EntryOf(GamePath("dflw.pff"), "D08M03.BMS"), "BMS oasis");
}

TEST_F(MainWindowTest, AZipIsNotPutInAsIfItWereAMap) {
  WriteFile(MapPath("Pack.zip"), "PK\x03\x04 members");
  const std::string before = ReadFile(GamePath("dflw.pff"));
  MainOnMaps().FileMaps.ListIndex = 2;
  desktop.dialogs().ExpectBox("The file 'Pack.zip' is a zip archive. Unpack it and select the map inside.");
  Main().Command2.Press();
  EXPECT_EQ(ReadFile(GamePath("dflw.pff")), before);
}

TEST_F(MainWindowTest, RefreshSeesNewMaps) {
  MainOnMaps();
  WriteFile(MapPath("New.bms"), "BMS new");
  EXPECT_EQ(Main().FileMaps.ListCount(), 2);
  Main().Command6.Press();
  EXPECT_EQ(Main().FileMaps.ListCount(), 3);
}

TEST_F(MainWindowTest, TheStatusLineShowsTheTipUnderTheMouse) {
  SetSafeMode(true);
  Main().Show();
  Main().Command7.MouseMove(0, 0, 10, 10);
  EXPECT_EQ(Main().txtstatusbar.Text.get(), "Click this button when you are playing DF and wants to put new map.");
  Main().Text1.MouseMove(0, 0, 10, 10);
  EXPECT_EQ(Main().txtstatusbar.Text.get(), "The current folder you are looking for *.bms (maps) files");
}

TEST_F(MainWindowTest, AFolderThatDoesNotExistIsStoredAndAStartFallsBackToTheProgramFolder) {
  MainOnMaps().Text1.Text = std::string("C:\\nowhere");
  EXPECT_EQ(Ini("launcher", "PATH"), "C:\\nowhere");
  CloseAllWindows();
  SetSafeMode(false);
  EXPECT_EQ(Main().Text1.Text.get(), Path("program"));
}

TEST_F(MainWindowTest, BrowsingTakesTheFolderWithoutItsLastSeparator) {
  MainOnMaps();
  native_files.MakeFolder(Path("other"));
  desktop.dialogs().ExpectFolder("Select the folder where you want to load maps from.", Path("other"));
  Main().Command1.Press();
  EXPECT_EQ(Main().Text1.Text.get(), Path("other"));
  desktop.dialogs().ExpectFolder("Select the folder where you want to load maps from.", std::nullopt);
  Main().Command1.Press();
  EXPECT_EQ(Main().Text1.Text.get(), Path("other"));
}

TEST_F(MainWindowTest, ClosingNotesWhereTheProgramIs) {
  SetSafeMode(true);
  Main().Show();
  Main().Unload();
  EXPECT_EQ(desktop.user_settings().Get("DFLWKESTRUN", "launcher", "PATH"), Path("program") + "\\kestrun.exe");
}

TEST_F(MainWindowTest, CaptionsAreThoseThatPlayersKnow) {
  SetSafeMode(true);
  EXPECT_EQ(Main().Caption.get(), "Kestrun");
  EXPECT_EQ(Main().Command2.Caption.get(), "Put &map in DFLW");
  EXPECT_EQ(Main().Command7.Caption.get(), "I'm already &playing");
  EXPECT_EQ(Main().Command3.Caption.get(), "&Launch DFLW");
  EXPECT_EQ(Main().opcapflag.Caption.get(), "Capture the flag     (Desert prison)");
  EXPECT_EQ(Main().opdeath.Caption.get(), "Deathmatch     (Death Valley)");
  EXPECT_EQ(Main().oprename.Caption.get(), "Rename:");
  EXPECT_TRUE(Main().opcapflag.Value);
}

}  // namespace
}  // namespace kestrun
