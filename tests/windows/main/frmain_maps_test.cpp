// The folder, the two lists of its maps, the selection and the preview.
#include <algorithm>

#include "base/code_page.h"
#include "desktop/headless/raster_canvas.h"
#include "support/forwarding_files.h"
#include "windows/main/frmain_fixture.h"
#include "windows/open_map/frmopenmap.h"

namespace kestrun {
namespace {

// Counts what is asked of the folders.
class CountingFiles final : public ForwardingFiles {
 public:
  using ForwardingFiles::ForwardingFiles;
  int lists = 0;

  std::vector<FolderEntry> List(std::string_view folder) override {
    ++lists;
    return files().List(folder);
  }
};

// ---- the lists -----------------------------------------------------------------------------------------------------

TEST_F(MainWindowTest, TheVisibleListMirrorsTheFileList) {
  MainOnMaps();
  EXPECT_EQ(Rows(), "Desert.bms|Oasis.bms|");
  EXPECT_FALSE(Main().FileMaps.Visible);
  EXPECT_EQ(Main().FileMaps.ListCount(), 2);
  EXPECT_EQ(Main().ListBox.SelCount(), 0);
}

TEST_F(MainWindowTest, AFolderWithAMapAndAZipListsBothInTheFileListsOrder) {
  WriteFile(MapPath("Arena.zip"), "zip");
  WriteFile(MapPath("zulu.BMS"), "map");
  MainOnMaps();
  EXPECT_EQ(Rows(), "Arena.zip|Desert.bms|Oasis.bms|zulu.BMS|");
}

TEST_F(MainWindowTest, RowsHaveNoIconsAndTheImageListIsBoundForThoseWhoWantThem) {
  MainOnMaps();
  EXPECT_EQ(Main().ListBox.ListIcon(0), -1);
  EXPECT_EQ(Main().ListBox.ListIcon(1), -1);
  EXPECT_TRUE(Main().ImageList.ListImages(0));
}

TEST_F(MainWindowTest, AnEmptyFolderSaysSoInTheListsPlace) {
  native_files.MakeFolder(Path("empty"));
  MainOnMaps();
  const auto says_so = [this] {
    RasterCanvas canvas({200, 200});
    Main().ListBox.Paint(canvas);
    return std::any_of(canvas.calls().begin(), canvas.calls().end(), [](const std::string& call) {
      return call.find("No maps in this folder.") != std::string::npos;
    });
  };
  EXPECT_FALSE(says_so());
  Main().Text1.Text = Path("empty");
  EXPECT_EQ(Main().ListBox.ListCount(), 0);
  EXPECT_TRUE(says_so());
  desktop.dialogs().ExpectBox("Select map!");
  Main().Command2.Press();
}

TEST_F(MainWindowTest, OnlyAListWithTheFocusShowsARowWithIt) {
  MainOnMaps();
  Main().Text1.SetFocus();
  EXPECT_FALSE(Main().ListBox.FocusRectangle);
  Main().ListBox.GotFocus();
  EXPECT_TRUE(Main().ListBox.FocusRectangle);
  EXPECT_EQ(Main().ListBox.SelCount(), 0);
  Main().ListBox.LostFocus();
  EXPECT_FALSE(Main().ListBox.FocusRectangle);
}

TEST_F(MainWindowTest, RefreshKeepsTheSelectedMapThoughItsRowMoves) {
  MainOnMaps();
  ClickRow(1);
  WriteFile(MapPath("Camp.bms"), "BMS camp");
  Main().Command6.Press();
  EXPECT_EQ(Main().FileMaps.FileName(), "Oasis.bms");
  ASSERT_EQ(Main().ListBox.SelCount(), 1);
  EXPECT_EQ(Main().ListBox.List(Main().ListBox.SelItem(0)), "Oasis.bms");
}

TEST_F(MainWindowTest, RefreshSelectsNothingWhereNothingWasSelected) {
  MainOnMaps();
  Main().Command6.Press();
  EXPECT_EQ(Main().FileMaps.ListIndex.get(), -1);
  EXPECT_EQ(Main().ListBox.SelCount(), 0);
}

TEST_F(MainWindowTest, ARenamedMapStaysTheOneThatCommandsWorkOnAndRefreshShowsIt) {
  MainOnMaps();
  ClickRow(0);
  desktop.dialogs().ExpectInput("Enter a new name for the map. Don't forget the .bms / .zip !", "Zulu.bms");
  Main().mnu_renamemap.Choose();
  EXPECT_EQ(Main().FileMaps.FileName(), "Zulu.bms");
  Main().Command6.Press();
  EXPECT_EQ(Main().ListBox.List(Main().ListBox.SelItem(0)), "Zulu.bms");
}

TEST_F(MainWindowTest, ACopiedMapStaysSelectedThoughItsRowMoves) {
  MainOnMaps();
  ClickRow(0);
  desktop.dialogs().ExpectFile(MapPath("Camp.bms"));
  Main().mnu_copymapto.Choose();
  EXPECT_EQ(Main().FileMaps.FileName(), "Desert.bms");
  EXPECT_EQ(Main().FileMaps.ListIndex.get(), 1);
}

// A stick that was not plugged in once was forgotten for good.
TEST_F(MainWindowTest, AFolderThatIsNotThereAtAStartStaysStored) {
  WriteIni("[launcher]\r\nPATH=E:\\maps\r\nSHOWQUICKLINKS=1\r\n");
  Main().Show();
  EXPECT_EQ(Main().Text1.Text.get(), Path("program"));
  EXPECT_EQ(Ini("launcher", "PATH"), "E:\\maps");
  Main().Text1.Text = std::string("C:\\other");
  EXPECT_EQ(Ini("launcher", "PATH"), "C:\\other");
}

TEST_F(MainWindowTest, TheShellIsAskedForItsIconOnceAndNotBeforeTheWindowIsShown) {
  WriteFile(MapPath("Arena.zip"), "zip");
  Main().EnsureLoaded();
  Main().Text1.Text = Path("maps");
  const auto& requests = desktop.pictures().icon_requests;
  const Ref<Picture> drawn = Main().ImageList.ListImages(0);
  EXPECT_TRUE(drawn);
  EXPECT_TRUE(requests.empty());
  Main().Show();
  EXPECT_TRUE(requests.empty());
  RunPendingEvents();
  ASSERT_EQ(requests.size(), 1U);
  EXPECT_TRUE(requests[0].path.ends_with("tmp1304930549302.zip")) << requests[0].path;
  EXPECT_NE(Main().ImageList.ListImages(0), drawn);
  Main().Hide();
  Main().Show();
  RunPendingEvents();
  EXPECT_EQ(requests.size(), 1U);
}

TEST_F(MainWindowTest, AMainWindowThatIsClosedAtOnceAsksTheShellForNoIcon) {
  Main().Show();
  Main().Unload();
  RunPendingEvents();
  EXPECT_TRUE(desktop.pictures().icon_requests.empty());
}

TEST_F(MainWindowTest, EveryKeystrokeInTheFolderBoxIsStored) {
  MainOnMaps().Text1.Text = std::string("C:\\ma");
  EXPECT_EQ(Ini("launcher", "PATH"), "C:\\ma");
  Main().Text1.Text = std::string("C:\\map");
  EXPECT_EQ(Ini("launcher", "PATH"), "C:\\map");
  EXPECT_EQ(Rows(), "Desert.bms|Oasis.bms|");
}

TEST_F(MainWindowTest, EnterInTheFolderBoxReadsTheFolderAndPutsNoMapIn) {
  MainOnMaps();
  ClickRow(0);
  WriteFile(MapPath("New.bms"), "BMS new");
  int enter = 13;
  Main().Text1.KeyDown(enter, 0);
  EXPECT_EQ(enter, 0);  // it does not reach the default button
  EXPECT_EQ(Rows(), "Desert.bms|New.bms|Oasis.bms|");
  int letter = 65;
  Main().Text1.KeyDown(letter, 0);
  EXPECT_EQ(letter, 65);
}

TEST_F(MainWindowTest, EnterAfterAFolderThatDoesNotExistSaysSo) {
  MainOnMaps();
  Main().Text1.Text = Path("nowhere");
  desktop.dialogs().ExpectFileFailure("Error: 76\r\nPath not found", Path("nowhere"));
  int enter = 13;
  Main().Text1.KeyDown(enter, 0);
  EXPECT_EQ(Rows(), "Desert.bms|Oasis.bms|");
}

TEST_F(MainWindowTest, AFolderChangePaintsTheListOnceAfterHalfASecond) {
  Main().Show();
  Main().Text1.Text = Path("maps");
  EXPECT_TRUE(Main().Timer1.Enabled);
  desktop.clock().AdvanceMs(499);
  EXPECT_TRUE(Main().Timer1.Enabled);
  desktop.clock().AdvanceMs(1);
  EXPECT_FALSE(Main().Timer1.Enabled);
}

TEST_F(MainWindowTest, RefreshSeesNewMapsInBothLists) {
  MainOnMaps();
  WriteFile(MapPath("New.bms"), "BMS new");
  for (const auto& refresh : {&Main().Command6.Click, &Main().mnu_refresh.Click, &Main().mnu_refreshmaplist.Click}) {
    (*refresh)();
    EXPECT_EQ(Rows(), "Desert.bms|New.bms|Oasis.bms|");
    EXPECT_EQ(Main().FileMaps.ListCount(), 3);
  }
  native_files.Delete(MapPath("New.bms"));
  Main().Command6.Press();
  EXPECT_EQ(Rows(), "Desert.bms|Oasis.bms|");
}

TEST_F(MainWindowTest, AFolderThatVanishesWhileItIsShownGivesAnEmptyListAtTheNextRefresh) {
  native_files.MakeFolder(Path("gone"));
  WriteFile(Path("gone\\Short.bms"), "map");
  Main().Show();
  Main().Text1.Text = Path("gone");
  desktop.clock().AdvanceMs(500);
  ClickRow(0);
  native_files.Delete(Path("gone\\Short.bms"));
  native_files.RemoveFolder(Path("gone"));
  desktop.dialogs().ExpectBox("The file: " + Path("gone\\Short.bms") + " does not exists.\r\nContinue?",
                              BoxAnswer::kNo);
  desktop.dialogs().ExpectBox("Failed to pack map");
  Main().Command2.Press();
  Main().Command6.Press();
  EXPECT_EQ(Rows(), "");
  desktop.dialogs().ExpectBox("Select map!");
  Main().Command2.Press();
}

TEST_F(MainWindowTest, MapsWithNamesOfAnyScriptAreListedAndGoIn) {
  WriteFile(MapPath("Карта 地図 😀.bms"), "BMS anywhere");
  MainOnMaps();
  EXPECT_EQ(Rows(), "Desert.bms|Oasis.bms|Карта 地図 😀.bms|");
  ClickRow(2);
  desktop.dialogs().ExpectBox("Successfully packed map");
  Main().Command2.Press();
  EXPECT_EQ(EntryOf(GamePath("dflw.pff"), "D08M03.BMS"), "BMS anywhere");
}

TEST_F(MainWindowTest, TenThousandMapsAreListedWithOneLookAtTheFolderAndFewPaintings) {
  native_files.MakeFolder(Path("many"));
  for (int number = 0; number < 10000; ++number) {
    std::string name = std::to_string(number);
    name.insert(0, 5 - name.size(), '0');
    WriteFile(Path("many\\" + name + ".bms"), "m");
  }
  Main().Show();
  desktop.clock().AdvanceMs(500);
  CountingFiles counting(native_files);
  desktop.UseFiles(counting);
  desktop.windowing().record_calls = true;
  Main().Text1.Text = Path("many");
  desktop.clock().AdvanceMs(500);
  desktop.windowing().record_calls = false;
  desktop.UseFiles(native_files);
  EXPECT_EQ(Main().ListBox.ListCount(), 10000);
  EXPECT_EQ(Main().ListBox.List(9999), "09999.bms");
  EXPECT_EQ(counting.lists, 1);
  EXPECT_LT(desktop.windowing().calls.size(), 40U);
  Main().ListBox.SetListIndex(9999);
  EXPECT_EQ(Main().FileMaps.FileName(), "09999.bms");
}

// ---- the selection -------------------------------------------------------------------------------------------------

TEST_F(MainWindowTest, AClickOnARowSelectsTheSameMapInTheFileList) {
  MainOnMaps();
  ClickRow(1);
  EXPECT_EQ(Main().FileMaps.FileName(), "Oasis.bms");
  ClickRow(0);
  EXPECT_EQ(Main().FileMaps.FileName(), "Desert.bms");
}

// The click meant the first row, and no row looked selected.
TEST_F(MainWindowTest, AClickBelowTheRowsShowsTheRowThatItMeans) {
  MainOnMaps();
  EXPECT_EQ(Main().ListBox.SelCount(), 0);
  Main().ListBox.OnMouseDown(mouse::kLeft, 0, 30, 5 * 22);
  Main().ListBox.OnMouseUp(mouse::kLeft, 0, 30, 5 * 22);
  EXPECT_EQ(Main().FileMaps.FileName(), "Desert.bms");
  ASSERT_EQ(Main().ListBox.SelCount(), 1);
  EXPECT_EQ(Main().ListBox.SelItem(0), 0);
}

TEST_F(MainWindowTest, ADoubleClickOnARowPutsTheMapIn) {
  MainOnMaps();
  ClickRow(1);
  desktop.dialogs().ExpectBox("Successfully packed map");
  Main().ListBox.OnDoubleClick(30, 33);
  EXPECT_EQ(EntryOf(GamePath("dflw.pff"), "D08M03.BMS"), "BMS oasis");
}

TEST_F(MainWindowTest, EnterPutsTheRowInThatHasTheFocus) {
  MainOnMaps();
  desktop.dialogs().ExpectBox("Successfully packed map");
  Main().ListBox.OnKeyDown(13, 0);
  EXPECT_EQ(EntryOf(GamePath("dflw.pff"), "D08M03.BMS"), "BMS desert");
}

TEST_F(MainWindowTest, TheFirstArrowKeySelectsTheFirstMap) {
  MainOnMaps();
  int down = 40;
  Main().ListBox.KeyDown(down, 0);
  EXPECT_EQ(down, 0);
  EXPECT_EQ(Main().FileMaps.FileName(), "Desert.bms");
  down = 40;
  Main().ListBox.KeyDown(down, 0);
  EXPECT_EQ(down, 40);  // from now on the list moves by itself
  Main().ListBox.OnKeyDown(down, 0);
  EXPECT_EQ(Main().FileMaps.FileName(), "Oasis.bms");
}

TEST_F(MainWindowTest, DeleteAndF2InTheListWorkOnTheSelectedMap) {
  MainOnMaps();
  ClickRow(0);
  desktop.dialogs().ExpectBox("Are you sure you want to delete Desert.bms?", BoxAnswer::kNo);
  int key = 46;
  Main().ListBox.KeyDown(key, 0);
  desktop.dialogs().ExpectInput("Enter a new name for the map. Don't forget the .bms / .zip !", "Dunes.bms");
  key = 113;
  Main().ListBox.KeyDown(key, 0);
  EXPECT_TRUE(FileIsThere(MapPath("Dunes.bms")));
}

TEST_F(MainWindowTest, AfterARenameTheVisibleListIsOldAndTheFileListIsNew) {
  MainOnMaps();
  ClickRow(0);
  desktop.dialogs().ExpectInput("Enter a new name for the map. Don't forget the .bms / .zip !", "Zulu.bms");
  Main().mnu_renamemap.Choose();
  EXPECT_EQ(Rows(), "Desert.bms|Oasis.bms|");
  EXPECT_EQ(Main().FileMaps.List(0), "Oasis.bms");
  ClickRow(0);
  EXPECT_EQ(Main().FileMaps.FileName(), "Oasis.bms");
  Main().Command6.Press();
  EXPECT_EQ(Rows(), "Oasis.bms|Zulu.bms|");
}

TEST_F(MainWindowTest, ARowThatTheFileListNoLongerHasSelectsNothing) {
  MainOnMaps();
  ClickRow(0);
  native_files.Delete(MapPath("Oasis.bms"));
  desktop.dialogs().ExpectFile(Path("copy.bms"));
  Main().mnu_copymapto.Choose();
  EXPECT_EQ(ReadFile(Path("copy.bms")), "BMS desert");
  EXPECT_EQ(Main().FileMaps.ListCount(), 1);
  ClickRow(1);
  desktop.dialogs().ExpectBox("Select map!");
  Main().Command2.Press();
}

TEST_F(MainWindowTest, APictureFromTheWebIsShownComing) {
  GiveMapPicture("Desert.bms", 40, 30);
  MainOnMaps();
  std::vector<std::string> words;
  bool had_bar = false;
  Main().txtstatusbar.Change = [&] {
    words.push_back(Main().txtstatusbar.Text);
    had_bar = had_bar || Main().prgfetch.Visible;
  };
  ClickRow(0);
  ASSERT_FALSE(words.empty());
  EXPECT_EQ(words.front(), "Fetching Desert.bms.jpg from maps.example: waiting for the server. Esc cancels.");
  EXPECT_EQ(words.back(), "Select a map and click 'Put map in DFLW'.");
  EXPECT_TRUE(had_bar);
  EXPECT_FALSE(Main().prgfetch.Visible);
  EXPECT_TRUE(Main().ImgPreview.Picture.get());
}

TEST_F(MainWindowTest, EscEndsTheFetchOfAPictureAndTheMapStaysSelected) {
  GiveMapPicture("Desert.bms", 40, 30);
  MainOnMaps();
  desktop.internet().leave_after_bytes = 0;
  ClickRow(0);
  EXPECT_FALSE(Main().ImgPreview.Picture.get());
  EXPECT_EQ(Main().FileMaps.FileName(), "Desert.bms");
  EXPECT_EQ(Main().txtstatusbar.Text.get(), "Select a map and click 'Put map in DFLW'.");
}

TEST_F(MainWindowTest, DeletingTheLastMapLeavesAnEmptyListAndThePictureStays) {
  native_files.Delete(MapPath("Oasis.bms"));
  GiveMapPicture("Desert.bms", 40, 30);
  MainOnMaps();
  ClickRow(0);
  ASSERT_TRUE(Main().ImgPreview.Picture.get());
  desktop.dialogs().ExpectBox("Are you sure you want to delete Desert.bms?", BoxAnswer::kYes);
  Main().mnu_deletemap.Choose();
  EXPECT_EQ(Rows(), "");
  EXPECT_EQ(Main().FileMaps.ListCount(), 0);
  EXPECT_TRUE(Main().ImgPreview.Picture.get());
}

// ---- the preview ---------------------------------------------------------------------------------------------------

TEST_F(MainWindowTest, TheSelectedMapsPictureIsShownInItsProportions) {
  GiveMapPicture("Desert.bms", 400, 100);
  MainOnMaps();
  const int width = Main().ImgPreview.Width;
  const int middle = Main().ImgPreview.Top + Main().ImgPreview.Height / 2;
  ClickRow(0);
  ASSERT_TRUE(Main().ImgPreview.Picture.get());
  EXPECT_EQ(Main().ImgPreview.Width.get(), width);
  EXPECT_EQ(Main().ImgPreview.Height.get(), width / 4);
  EXPECT_NEAR(Main().ImgPreview.Top + Main().ImgPreview.Height / 2, middle, 2);
  EXPECT_FALSE(Main().lblnopreview.Visible);
  ClickRow(1);
  EXPECT_FALSE(Main().ImgPreview.Picture.get());
  EXPECT_TRUE(Main().lblnopreview.Visible);
  EXPECT_EQ(Main().ImgPreview.Width.get(), width);
}

TEST_F(MainWindowTest, APictureThatCannotBeReadIsNoPicture) {
  WriteNumberedSetting(setting::kPreviewPicture, "Desert.bms", "http://maps.example/broken.jpg");
  desktop.internet().Reply("http://maps.example/broken.jpg", "no picture at all");
  MainOnMaps();
  ClickRow(0);
  EXPECT_FALSE(Main().ImgPreview.Picture.get());
}

TEST_F(MainWindowTest, AFolderChangeClearsThePreview) {
  GiveMapPicture("Desert.bms", 40, 30);
  MainOnMaps();
  ClickRow(0);
  ASSERT_TRUE(Main().ImgPreview.Picture.get());
  Main().Text1.Text = Path("game");
  EXPECT_FALSE(Main().ImgPreview.Picture.get());
}

// ---- from Explorer -------------------------------------------------------------------------------------------------

TEST_F(MainWindowTest, ADroppedFolderBecomesTheFolder) {
  Main().Show();
  Main().FilesDropped({Path("maps")});
  EXPECT_EQ(Main().Text1.Text.get(), Path("maps"));
  EXPECT_EQ(Rows(), "Desert.bms|Oasis.bms|");
  Main().FilesDropped({});
  EXPECT_EQ(Main().Text1.Text.get(), Path("maps"));
}

TEST_F(MainWindowTest, ADroppedMapOpensTheLoadMapWindow) {
  MainOnMaps();
  Main().FilesDropped({MapPath("Oasis.bms"), MapPath("Desert.bms")});
  ASSERT_NE(LoadedWindow("frmopenmap"), nullptr);
  EXPECT_TRUE(LoadedWindow("frmopenmap")->IsShown());
  EXPECT_EQ(Window<frmopenmap>().TxtFile.Text.get(), MapPath("Oasis.bms"));
  EXPECT_EQ(Main().Text1.Text.get(), Path("maps"));
}

TEST_F(MainWindowTest, AnotherFileThatIsDroppedIsAskedAboutAsAtAStart) {
  MainOnMaps();
  desktop.dialogs().ExpectBox(
      "Warning a BMS mission file or a zip file is necessary! If you try to use other files that aren't BMS files your "
      "game can be damaged!!!\r\ncontinue?",
      BoxAnswer::kNo);
  Main().FilesDropped({MapPath("notes.txt")});
  EXPECT_EQ(LoadedWindow("frmopenmap"), nullptr);
}

// ---- long paths ----------------------------------------------------------------------------------------------------

class LongFolderTest : public MainWindowTest {
 protected:
  LongFolderTest() {
    while (EncodeText(folder).size() < 300) {
      folder += "\\a folder inside a folder inside a folder";
      native_files.MakeFolder(folder);
    }
    WriteFile(folder + "\\Far.bms", "BMS far");
    Main().Show();
    Main().Text1.Text = folder;
    desktop.clock().AdvanceMs(500);
  }

  std::string folder = Path("maps");
};

TEST_F(LongFolderTest, ItsMapsAreListedShownAndPutIn) {
  EXPECT_EQ(Rows(), "Far.bms|");
  GiveMapPicture("Far.bms", 40, 30);
  ClickRow(0);
  EXPECT_TRUE(Main().ImgPreview.Picture.get());
  desktop.dialogs().ExpectBox("Successfully packed map");
  Main().Command2.Press();
  EXPECT_EQ(EntryOf(GamePath("dflw.pff"), "D08M03.BMS"), "BMS far");
  EXPECT_EQ(ReadFile(GamePath("D08M03.BMS")), "BMS far");
}

TEST_F(LongFolderTest, ItsMapsAreDescribedCopiedRenamedAndDeleted) {
  ClickRow(0);
  std::string caption;
  desktop.windowing().ExpectModal("frmmapinfo", [&](Form& form) {
    caption = form.Caption;
    form.Unload();
  });
  Main().mnu_showmapinfo.Choose();
  EXPECT_EQ(caption, "Map info Far.bms");
  desktop.dialogs().ExpectFile(folder + "\\Copy.bms");
  Main().mnu_copymapto.Choose();
  EXPECT_EQ(ReadFile(folder + "\\Copy.bms"), "BMS far");
  desktop.dialogs().ExpectInput("Enter a new name for the map. Don't forget the .bms / .zip !", "Near.bms");
  Main().mnu_renamemap.Choose();
  EXPECT_EQ(ReadFile(folder + "\\Near.bms"), "BMS far");
  desktop.dialogs().ExpectBox("Are you sure you want to delete Near.bms?", BoxAnswer::kYes);
  Main().mnu_deletemap.Choose();
  EXPECT_EQ(Rows(), "Copy.bms|");
}

// Reading a setting cuts it: neither the part of the path nor the folder that is shown instead may replace it.
TEST_F(LongFolderTest, AStoredOneThatIsTooLongToBeReadStaysStored) {
  CloseAllWindows();
  WriteIni("[launcher]\r\nPATH=C:\\" + std::string(300, 'x') + "\r\nSHOWQUICKLINKS=1\r\n");
  Main().Show();
  EXPECT_EQ(Main().Text1.Text.get(), Path("program"));
  EXPECT_NE(ReadFile(Path("program\\packit.ini")).find("PATH=C:\\" + std::string(300, 'x') + "\r\n"),
            std::string::npos);
}

TEST_F(LongFolderTest, ChoosingItSaysThatItIsNotRemembered) {
  Main().Text1.Text = Path("maps");
  desktop.dialogs().ExpectFolder("Select the folder where you want to load maps from.", folder);
  desktop.dialogs().ExpectBox(
      "Kestrun works with this folder now but cannot remember it for the next start: its path has more than 254 "
      "characters. Move your maps to a folder with a shorter path, or type a shorter path that leads to it, such as a "
      "link or a drive letter.\r\n" +
      folder);
  Main().Command1.Press();
  EXPECT_EQ(Rows(), "Far.bms|");
}

// ---- the right button ----------------------------------------------------------------------------------------------

TEST_F(MainWindowTest, TheRightButtonSelectsTheRowAndPopsTheFileMenuUp) {
  MainOnMaps();
  bool popped = false;
  desktop.windowing().ExpectPopUp("mnu_file", [&](MenuItem&) { popped = true; });
  Main().ListBox.OnMouseDown(mouse::kRight, 0, 30, 33);
  Main().ListBox.OnMouseUp(mouse::kRight, 0, 30, 33);
  EXPECT_TRUE(popped);
  EXPECT_EQ(Main().FileMaps.FileName(), "Oasis.bms");
}

TEST_F(MainWindowTest, TheMenuKeyPopsTheFileMenuUp) {
  MainOnMaps();
  desktop.windowing().ExpectPopUp("mnu_file", [](MenuItem&) {});
  int key = 93;
  Main().ListBox.KeyDown(key, 0);
  EXPECT_TRUE(desktop.windowing().Unused().empty());
}

TEST_F(MainWindowTest, TheOtherListAndThePreviewHaveMenusOfTheirOwn) {
  MainOnMaps();
  desktop.windowing().ExpectPopUp("mnu_file", [](MenuItem&) {});
  Main().FileMaps.MouseUp(mouse::kRight, 0, 30, 30);
  desktop.windowing().ExpectPopUp("mnu_rightclick", [](MenuItem& menu) {
    ASSERT_EQ(menu.Items().size(), 3U);
    EXPECT_EQ(menu.Items()[0]->Caption.get(), "&Large preview");
    EXPECT_EQ(menu.Items()[1]->Caption.get(), "L&oad preview");
    EXPECT_EQ(menu.Items()[2]->Caption.get(), "&Search preview");
  });
  Main().ImgPreview.MouseUp(mouse::kRight, 0, 30, 30);
  EXPECT_TRUE(desktop.windowing().Unused().empty());
}

}  // namespace
}  // namespace kestrun
