// The main window as a whole: loading, safe mode, putting maps in, closing.
#include "maps/fetch/frmzip.h"
#include "windows/main/frmain_fixture.h"

namespace kestrun {
namespace {

TEST_F(MainWindowTest, InSafeModeTheFolderIsEmptyAndCommandsWorkAsSoonAsOneIsTyped) {
  SetSafeMode(true);
  Main().Show();
  EXPECT_EQ(Main().Text1.Text.get(), "");
  EXPECT_TRUE(Main().FileMaps.Visible);
  Main().Text1.Text = Path("maps");
  ASSERT_EQ(Main().FileMaps.ListCount(), 2);
  EXPECT_EQ(Main().FileMaps.List(0), "Desert.bms");
  EXPECT_FALSE(Main().ListBox.Visible);
  EXPECT_FALSE(Main().QuickLinks.Visible);
  EXPECT_EQ(Main().FileMaps.Height.get(), Main().ListBox.Height + 100);
  EXPECT_EQ(Main().FileMaps.Width.get(), Main().ListBox.Width.get());
  Main().FileMaps.ListIndex = 1;
  desktop.dialogs().ExpectBox("Successfully packed map");
  Main().FileMaps.DblClick();
  EXPECT_EQ(EntryOf(GamePath("dflw.pff"), "D08M03.BMS"), "BMS oasis");
}

TEST_F(MainWindowTest, SafeModeReadsNoSettings) {
  WriteIni("[launcher]\r\nTXTSTATUS=False\r\ntxtoutputtext=OLD.BMS\r\n");
  SetSafeMode(true);
  Main().Show();
  EXPECT_TRUE(Main().txtstatusbar.Visible);
  EXPECT_EQ(Main().txtoutput.Text.get(), "");
  EXPECT_EQ(Ini("launcher", "APP"), "(none)");
  EXPECT_EQ(Main().QuickLinks.LinkCount(), 0);
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

TEST_F(MainWindowTest, WithNoOptionOnTheNameIsEmptyWhateverIsTyped) {
  MainOnMaps();
  ClickRow(0);
  for (OptionButton* option : {&Main().opcapflag, &Main().opdeath, &Main().oprename}) option->Value = false;
  Main().txtoutput.Text = std::string("MINE.BMS");
  desktop.dialogs().ExpectFileFailure("Error: 75\r\nPath/File access error", GamePath(""));
  desktop.dialogs().ExpectBox("Failed to pack map: Desert.bms");
  Main().Command7.Press();
  EXPECT_EQ(Main().txtoutput.Text.get(), "MINE.BMS");
  EXPECT_FALSE(FileIsThere(GamePath("MINE.BMS")));
}

TEST_F(MainWindowTest, TheNameBoxShowsHowMuchOfTheArchivesNameFieldIsUsed) {
  Main().Show();
  Main().txtoutput.Text = std::string("SEVENTEEN_LET.BMS");
  EXPECT_EQ(Main().lblnamelength.Caption.get(), "17 / 16");
  Main().txtoutput.Text = std::string("");
  EXPECT_EQ(Main().lblnamelength.Caption.get(), "0 / 16");
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
  desktop.dialogs().ExpectFileFailure("Error: 53\r\nFile not found", MapPath("Oasis.bms"));
  desktop.dialogs().ExpectBox("Failed to pack map");
  Main().Command2.Press();
}

TEST_F(MainWindowTest, ADoubleClickPutsTheMapIn) {
  MainOnMaps().FileMaps.ListIndex = 1;
  desktop.dialogs().ExpectBox("Successfully packed map");
  Main().FileMaps.DblClick();
  EXPECT_EQ(EntryOf(GamePath("dflw.pff"), "D08M03.BMS"), "BMS oasis");
}

TEST_F(MainWindowTest, GivingUpOnAZipEndsTheCommandSilently) {
  WriteFile(MapPath("Pack.zip"), "PK\x03\x04 members");
  const std::string before = ReadFile(GamePath("dflw.pff"));
  MainOnMaps().FileMaps.ListIndex = 2;
  desktop.dialogs().ExpectBox("Kestrun detected a zip file. Do you want to load maps that are inside the zip file?",
                              BoxAnswer::kCancel);
  Main().Command2.Press();
  EXPECT_EQ(ReadFile(GamePath("dflw.pff")), before);
}

TEST_F(MainWindowTest, AnsweringNoPutsTheZipsOwnBytesIn) {
  WriteFile(MapPath("Pack.ZIP"), "PK\x03\x04 members");
  MainOnMaps().FileMaps.ListIndex = 2;
  desktop.dialogs().ExpectBox("Kestrun detected a zip file. Do you want to load maps that are inside the zip file?",
                              BoxAnswer::kNo);
  desktop.dialogs().ExpectBox("Successfully packed map: Pack.ZIP");
  Main().Command7.Press();
  EXPECT_EQ(ReadFile(GamePath("D08M03.BMS")), "PK\x03\x04 members");
}

TEST_F(MainWindowTest, AFolderThatDoesNotExistIsStoredAndAStartFallsBackToTheProgramFolder) {
  MainOnMaps().Text1.Text = std::string("C:\\nowhere");
  EXPECT_EQ(Ini("launcher", "PATH"), "C:\\nowhere");
  EXPECT_EQ(Main().FileMaps.Path(), Path("maps"));
  CloseAllWindows();
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

TEST_F(MainWindowTest, LoadingReadsTheSettings) {
  WriteIni("[launcher]\r\ntxtoutputtext=MINE.BMS\r\nTXTSTATUS=False\r\nSHOWQUICKLINKS=1\r\n");
  Main().Show();
  EXPECT_EQ(Ini("launcher", "APP"), "kestrun.exe");
  EXPECT_EQ(Main().txtoutput.Text.get(), "MINE.BMS");
  EXPECT_FALSE(Main().txtstatusbar.Visible);
  EXPECT_FALSE(Main().mnu_status.Checked);
  EXPECT_EQ(Main().ListBox.ListCount(), 0);
}

TEST_F(MainWindowTest, AStepOfLoadingThatFailsIsToldAndTheNextRuns) {
  WriteIni("[launcher]\r\nTXTSTATUS=perhaps\r\nSHOWQUICKLINKS=0\r\n");
  desktop.dialogs().ExpectBox("Error: Loading Kestrun 13\r\nType mismatch");
  Main().Show();
  EXPECT_EQ(Main().QuickLinks.LinkCount(), 6);
}

TEST_F(MainWindowTest, WithoutABannerTheWindowIsLower) {
  WriteIni("[BANNERS]\r\nSHOW=False\r\n[launcher]\r\nSHOWQUICKLINKS=1\r\n");
  EXPECT_EQ(Main().Height.get(), 7665);
}

TEST_F(MainWindowTest, TheBannerServiceIsAskedWhenTheUserWantsABannerAndIsOnline) {
  std::vector<std::string> asked;
  InstallBannerService({[&](frmain&, const std::string& url, bool force) { asked.push_back(url + (force ? "!" : "")); },
                        [&](frmain&) { asked.push_back("refresh"); }, [&](frmain&) { asked.push_back("news"); }});
  EXPECT_EQ(Main().Height.get(), 8490);
  Main().Show();
  EXPECT_TRUE(asked.empty());  // the window is painted first
  desktop.clock().AdvanceMs(1000);
  ASSERT_EQ(asked.size(), 1U);
  EXPECT_TRUE(asked[0].ends_with("/MAPS.INI"));
  Main().mnu_refreshbanner.Choose();
  Main().mnu_checkformaps.Choose();
  EXPECT_EQ(asked.back(), "news");
  CloseAllWindows();
  desktop.internet().connected = false;
  EXPECT_EQ(Main().Height.get(), 7665);
  EXPECT_EQ(asked.size(), 3U);
  CloseAllWindows();
  InstallBannerService({});
  desktop.internet().connected = true;
  EXPECT_EQ(Main().Height.get(), 7665);
  EXPECT_FALSE(Main().mnu_refreshbanner.Enabled);
  Main().GetNewBanner("http://maps.example/MAPS.INI");
  EXPECT_EQ(asked.size(), 3U);
}

TEST_F(MainWindowTest, ClosingStopsTheLinksAndKeepsTheStatusLinesState) {
  MainOnMaps();
  Main().mnu_status.Choose();
  Main().mnu_exit.Choose();
  EXPECT_EQ(Ini("launcher", "TXTSTATUS"), "False");
  EXPECT_EQ(LoadedWindow("frmain"), nullptr);
}

TEST_F(MainWindowTest, AReadOnlyGameFolderIsToldAndTheArchiveStays) {
  const std::string before = ReadFile(GamePath("dflw.pff"));
  MainOnMaps();
  ClickRow(0);
  WriteFile(GamePath("kept.bms"), "kept");
  native_files.MakeFolder(GamePath("D08M03.BMS"));  // a folder in the loose file's place refuses the copy
  desktop.dialogs().ExpectFileFailure("Error: 75\r\nPath/File access error", GamePath("D08M03.BMS"));
  desktop.dialogs().ExpectBox("Failed to pack map: Desert.bms");
  Main().Command7.Press();
  EXPECT_EQ(ReadFile(GamePath("dflw.pff")), before);
}

TEST_F(MainWindowTest, ALargerWindowGivesItsRoomToTheListAndThePreview) {
  Main().Show();
  const int width = Main().ListBox.Width;
  const int height = Main().ListBox.Height;
  const int button = Main().Command5.Top;
  Main().Width = Main().Width + 1500;
  Main().Height = Main().Height + 900;
  Main().Resize();
  EXPECT_EQ(Main().ListBox.Width.get(), width + 1500);
  EXPECT_EQ(Main().ListBox.Height.get(), height + 900);
  EXPECT_EQ(Main().Command5.Top.get(), button + 900);
  Main().Width = 3000;
  Main().Height = 3000;
  Main().Resize();
  EXPECT_EQ(Main().ListBox.Width.get(), width);
  EXPECT_LT(Main().Command5.Top.get(), button);
}

TEST_F(MainWindowTest, AtTheLeastSizeNothingIsCutOff) {
  Main().Show();
  Main().SetClientSize(Main().LeastScaleWidth(), Main().LeastScaleHeight());
  Main().Resize();
  EXPECT_LE(Main().Command1.Left + Main().Command1.Width, Main().ScaleWidth());
  EXPECT_LE(Main().Frame1.Left + Main().Frame1.Width, Main().ScaleWidth());
  EXPECT_LE(Main().Command5.Top + Main().Command5.Height, Main().Picture2.Top.get());
  EXPECT_LE(Main().ListBox.Top + Main().ListBox.Height, Main().Command6.Top.get());
}

TEST_F(MainWindowTest, AScreenTooLowForTheWindowCutsNoButtonOff) {
  Main().Show();
  const int list = Main().ListBox.Height;
  const int preview = Main().ImgPreview.Height;
  Main().Height = Main().Height - 1200;
  Main().Resize();
  EXPECT_EQ(Main().ListBox.Height.get(), list - 1200);
  EXPECT_EQ(Main().ImgPreview.Height.get(), preview - 1200);
  EXPECT_LT(Main().Command5.Top + Main().Command5.Height, Main().Picture2.Top.get());
  EXPECT_LT(Main().Command6.Top + Main().Command6.Height, Main().Picture2.Top.get());
  EXPECT_LE(Main().ImgPreview.Top + Main().ImgPreview.Height, Main().Frame1.Top.get());
}

TEST_F(MainWindowTest, EveryButtonOptionAndLabelLiesInsideTheWindow) {
  Main().Show();
  for (const Ref<Control>& control : Main().controls()) {
    if (!control->HasBody() || control->Container() != &Main() || !control->Visible) continue;
    EXPECT_GE(control->Left.get(), 0) << control->Name();
    EXPECT_LE(control->Left + control->Width, Main().ScaleWidth()) << control->Name();
    EXPECT_LE(control->Top + control->Height, Main().ScaleHeight()) << control->Name();
  }
}

}  // namespace
}  // namespace kestrun
