// The commands of the play list.
#include "support/access_keys.h"
#include "windows/auto_host/auto_host_fixture.h"
#include "windows/map_info/frmmapinfo.h"

namespace kestrun {
namespace {

constexpr const char* kRemove =
    "Are you sure you want to remove the selected map(s) from the list? (not from your hard disk)";
constexpr const char* kRemoveAll = "Are you sure you want to remove all the maps from the list? (not from HD)";

std::string Captions(const MenuItem& menu) {
  std::string text;
  for (const MenuItem* item : menu.Items()) text += item->Caption.get() + "|";
  return text;
}

TEST_F(AutoHostTest, TheMenusReadAsHostsKnowThem) {
  EXPECT_EQ(Host().Caption.get(), "Kestrun - Auto Host");
  EXPECT_EQ(Captions(Host().mnu_file),
            "&Load Map List|&Save Map List|Save Map List &As|-|&Add map|-|&Load Kestrun|&Close|");
  EXPECT_EQ(Captions(Host().mnu_list),
            "&Refresh list|&Clear list|&Mix maps|-|&Search map|&Replace string|-|S&elect all maps|&Deselect all "
            "maps|Se&lect all files|D&eselect all files|");
  EXPECT_EQ(Captions(Host().mnu_tools), "Add new gametype|&Change DF version|");
  EXPECT_EQ(Captions(Host().mnu_addins), "Add-&In Manager|");
  EXPECT_EQ(Captions(Host().mnu_help), "&Index|&About|");
  EXPECT_EQ(Host().mnu_addins.Caption.get(), "A&dd-Ins");
}

TEST_F(AutoHostTest, TheMenuItemsHaveThePicturesOfTheHiddenImages) {
  EXPECT_TRUE(Host().mnu_loadlist.Picture.get());
  EXPECT_EQ(Host().mnu_loadlist.Picture.get(), Host().ImgOpen.Picture.get());
  EXPECT_EQ(Host().mnu_savelist.Picture.get(), Host().ImgSave.Picture.get());
  EXPECT_EQ(Host().mnu_addmap.Picture.get(), Host().ImgMap.Picture.get());
  EXPECT_EQ(Host().mnu_close.Picture.get(), Host().ImgClose.Picture.get());
  EXPECT_EQ(Host().mnu_refreshlist.Picture.get(), Host().ImgRefresh.Picture.get());
  EXPECT_EQ(Host().mnu_clearlist.Picture.get(), Host().ImgDel.Picture.get());
  EXPECT_EQ(Host().mnu_SearchMap.Picture.get(), Host().ImgSearch.Picture.get());
  EXPECT_EQ(Host().mnu_replacestring.Picture.get(), Host().ImgReplace.Picture.get());
  EXPECT_EQ(Host().mnu_quickhelp.Picture.get(), Host().ImgHelp.Picture.get());
  EXPECT_FALSE(Host().ImgOpen.Visible);
}

TEST_F(AutoHostTest, TheControlsReadAsHostsKnowThem) {
  EXPECT_EQ(Host().cmdadd.Caption.get(), ">");
  EXPECT_EQ(Host().cmdadd.ToolTipText.get(), "add selected file(s)");
  EXPECT_EQ(Host().cmdaddall.Caption.get(), ">>");
  EXPECT_EQ(Host().cmdaddall.ToolTipText.get(), "add all files in this folder");
  EXPECT_EQ(Host().Command6.Caption.get(), "url");
  EXPECT_EQ(Host().cmdremove.Caption.get(), "<");
  EXPECT_EQ(Host().cmdremove.ToolTipText.get(), "Remove selected map(s) from list.");
  EXPECT_EQ(Host().cmdremoveall.Caption.get(), "<<");
  EXPECT_EQ(Host().cmdremoveall.ToolTipText.get(), "Remove all maps in list");
  EXPECT_EQ(Host().cmdup.ToolTipText.get(), "Move this map 1 level up.");
  EXPECT_EQ(Host().cmddown.ToolTipText.get(), "Move this map 1 level down.");
  EXPECT_EQ(Host().Command1.Caption.get(), "...");
  EXPECT_EQ(Host().Command1.ToolTipText.get(), "browse for folder");
  EXPECT_EQ(Host().Command7.Caption.get(), "Info");
  EXPECT_EQ(Host().Command7.ToolTipText.get(), "Show map info.");
  EXPECT_EQ(Host().FileMaps.ToolTipText.get(), "This is the file list select the maps you want to play and click '>'");
  EXPECT_EQ(Host().lblfilemaps.ToolTipText.get(), "Number of files in this list");
  EXPECT_EQ(Host().lstmaps.ToolTipText.get(), "This is the play list all the maps in this list will be played.");
  EXPECT_EQ(Host().lbllistmaps.ToolTipText.get(), "Number of maps in this list");
  EXPECT_EQ(Host().lblpath.Caption.get(), "None!");
  EXPECT_EQ(Host().lblselected.Caption.get(), "Selected map:");
  EXPECT_EQ(Host().lblinsertcount.Caption.get(), "# inserts:");
  EXPECT_EQ(Host().Options0.Caption.get(), "Deathmatch (Death Valley)");
  EXPECT_EQ(Host().Options1.Caption.get(), "Capture the flag (Desert Prison)");
  EXPECT_EQ(Host().Options2.Caption.get(), "Rename:");
  EXPECT_EQ(Host().Options2.ToolTipText.get(), "Rename the map to");
  EXPECT_EQ(Host().Check1.Caption.get(), "Send \"resetgames\" command");
  EXPECT_EQ(Host().Check1.ToolTipText.get(),
            "When chcked it sends a resetgames command to host when new map is inserted!");
  EXPECT_EQ(Host().ChGameTimer.Caption.get(), "Use game timer.");
  EXPECT_EQ(Host().chrandom.Caption.get(), "Random insert maps from map list");
  EXPECT_EQ(Host().TxtTimeMin.ToolTipText.get(), "Max time between 2 maps");
  EXPECT_EQ(Host().TxtTimeSec.ToolTipText.get(), "Max time sec ");
  EXPECT_EQ(Host().Frame2.Caption.get(), "Automatically insert map after :");
  EXPECT_EQ(Host().lblmin.Caption.get(), "min.");
  EXPECT_EQ(Host().lblsec.Caption.get(), "Sec.");
  EXPECT_EQ(Host().lblwarning.Caption.get(), "WARNING ERROR:");
}

TEST_F(AutoHostTest, NoTwoAccessKeysOfTheWindowAreTheSame) {
  std::string keys = AccessKeys(Host());
  for (const MenuItem* menu : Host().TopMenus()) {
    keys += ToLower(menu->Caption.get().substr(menu->Caption.get().find('&') + 1, 1));
  }
  std::sort(keys.begin(), keys.end());
  EXPECT_EQ(std::adjacent_find(keys.begin(), keys.end()), keys.end()) << keys;
}

// ---- adding and removing -------------------------------------------------------------------------------------------

TEST_F(AutoHostTest, TheFileListShowsTheMissionsOfTheFolder) {
  EXPECT_EQ(Host().txtfolder.Text.get(), Path("maps"));
  EXPECT_EQ(Host().FileMaps.ListCount(), 3);
  EXPECT_EQ(Host().lblfilemaps.Caption.get(), "3");
  Host().txtfolder.Text = Path("program");
  EXPECT_EQ(Host().lblfilemaps.Caption.get(), "0");
  Host().txtfolder.Text = Path("progr");
  EXPECT_EQ(Host().FileMaps.Path(), Path("program"));
}

TEST_F(AutoHostTest, TheSelectedFilesAreAddedInTheirOrder) {
  Host().FileMaps.SetSelected(2, true);
  Host().FileMaps.SetSelected(0, true);
  Host().cmdadd.Press();
  EXPECT_EQ(Rows(), MapPath("Arena.bms") + "|" + MapPath("Oasis.bms") + "|");
  EXPECT_EQ(Host().lbllistmaps.Caption.get(), "2");
  EXPECT_TRUE(Host().Edited);
  EXPECT_GT(Host().lstmaps.HorizontalExtent, 0);
}

TEST_F(AutoHostTest, AllFilesAreAddedWhateverIsSelectedAndAnyNumberOfTimes) {
  Host().cmdaddall.Press();
  Host().cmdaddall.Press();
  EXPECT_EQ(Host().lstmaps.ListCount(), 6);
  EXPECT_EQ(Host().lbllistmaps.Caption.get(), "6");
}

TEST_F(AutoHostTest, AnEmptyFileListAddsNothingAndEditsNothing) {
  Host().txtfolder.Text = Path("program");
  Host().cmdaddall.Press();
  EXPECT_FALSE(Host().Edited);
}

TEST_F(AutoHostTest, AnAddressIsAddedAndAnythingElseRefused) {
  constexpr const char* kPrompt = "Please enter a URL. Use Ctrl + V to paste from clipboard.";
  desktop.dialogs().ExpectInput(kPrompt, "http://maps.example/a.bms");
  Host().Command6.Press();
  EXPECT_EQ(Rows(), "http://maps.example/a.bms|");
  Host().Edited = false;
  desktop.dialogs().ExpectInput(kPrompt, "a.bms");
  desktop.dialogs().ExpectBox("Cannot add! Is not a URL!");
  Host().Command6.Press();
  EXPECT_EQ(Rows(), "http://maps.example/a.bms|");
  EXPECT_TRUE(Host().Edited);
  Host().Edited = false;
  desktop.dialogs().ExpectInput(kPrompt, std::nullopt);
  Host().Command6.Press();
  EXPECT_FALSE(Host().Edited);
}

TEST_F(AutoHostTest, TheSelectedRowsAreRemovedAfterAQuestion) {
  AddRows({"a", "b", "c", "d"});
  Select({1, 3}, 1);
  ExpectQuestion(kRemove, BoxAnswer::kYes);
  Host().cmdremove.Press();
  EXPECT_EQ(Rows(), "a|c|");
  EXPECT_EQ(Host().lbllistmaps.Caption.get(), "2");
  EXPECT_TRUE(Host().Edited);
}

TEST_F(AutoHostTest, RemoveAnsweredNoStillMarksTheListAsEdited) {
  AddRows({"a"});
  Select({0}, 0);
  ExpectQuestion(kRemove, BoxAnswer::kNo);
  Host().cmdremove.Press();
  EXPECT_EQ(Rows(), "a|");
  EXPECT_TRUE(Host().Edited);
}

TEST_F(AutoHostTest, RemoveAllAnsweredNoStillMarksTheListAsEditedSoThatClosingAsks) {
  AddRows({"a"});
  ExpectQuestion(kRemoveAll, BoxAnswer::kNo);
  Host().cmdremoveall.Press();
  EXPECT_EQ(Rows(), "a|");
  desktop.dialogs()
      .ExpectBox("Do you want to save the changes to the map list?", BoxAnswer::kNo)
      .WithButtons(BoxButtons::kYesNoCancel);
  Host().mnu_close.Choose();
  EXPECT_FALSE(LoadedWindow("frmputlist"));
}

TEST_F(AutoHostTest, RemoveAllEmptiesTheList) {
  AddRows({"a", "b"});
  ExpectQuestion(kRemoveAll, BoxAnswer::kYes);
  Host().cmdremoveall.Press();
  EXPECT_EQ(Rows(), "");
  EXPECT_EQ(Host().lbllistmaps.Caption.get(), "0");
}

TEST_F(AutoHostTest, ClearListLeavesTheCountAndTheMarkOfEditingAsTheyWere) {
  Host().cmdaddall.Press();
  Host().Edited = false;
  ExpectQuestion("Are you sure you want to clear the map list?", BoxAnswer::kYes);
  Host().mnu_clearlist.Choose();
  EXPECT_EQ(Rows(), "");
  EXPECT_EQ(Host().lbllistmaps.Caption.get(), "3");
  EXPECT_FALSE(Host().Edited);
}

// ---- order ---------------------------------------------------------------------------------------------------------

TEST_F(AutoHostTest, ABlockOfSelectedRowsMovesUpAndCountsStayAtTheirRows) {
  AddRows({"a", "b", "c", "d"});
  Host().lstmaps.SetItemData(1, 7);
  Select({1, 2}, 2);
  Host().cmdup.Press();
  EXPECT_EQ(Rows(), "b|c|a|d|");
  EXPECT_EQ(Selected(), (std::vector<int>{0, 1}));
  EXPECT_EQ(Host().lstmaps.ItemData(1), 7);
  EXPECT_TRUE(Host().Edited);
}

TEST_F(AutoHostTest, WithRowZeroCurrentAndRowThreeSelectedUpDoesNothing) {
  AddRows({"a", "b", "c", "d"});
  Select({0, 3}, 0);
  Host().cmdup.Press();
  EXPECT_EQ(Rows(), "a|b|c|d|");
  EXPECT_EQ(Selected(), (std::vector<int>{0, 3}));
  EXPECT_FALSE(Host().Edited);
}

TEST_F(AutoHostTest, ABlockOfSelectedRowsMovesDown) {
  AddRows({"a", "b", "c", "d"});
  Select({1, 2}, 1);
  Host().cmddown.Press();
  EXPECT_EQ(Rows(), "a|d|b|c|");
  EXPECT_EQ(Selected(), (std::vector<int>{2, 3}));
  Host().lstmaps.ListIndex = 3;
  Host().cmddown.Press();
  EXPECT_EQ(Rows(), "a|d|b|c|");
}

TEST_F(AutoHostTest, MovesWithoutACurrentRowAskForOne) {
  AddRows({"a", "b"});
  desktop.dialogs().ExpectBox("Select map!");
  Host().cmdup.Press();
  desktop.dialogs().ExpectBox("Select map!");
  Host().cmddown.Press();
}

TEST_F(AutoHostTest, MixKeepsEveryRowAndTheCountsAtTheirRows) {
  AddRows({"a", "b", "c", "d", "e", "f", "g", "h"});
  Host().lstmaps.SetItemData(2, 5);
  ExpectQuestion("This will put all maps in random order do you want to continue?", BoxAnswer::kYes);
  Host().mnu_MixMaps.Choose();
  std::string rows = Rows();
  EXPECT_NE(rows, "a|b|c|d|e|f|g|h|");
  std::erase(rows, '|');
  std::sort(rows.begin(), rows.end());
  EXPECT_EQ(rows, "abcdefgh");
  EXPECT_EQ(Host().lstmaps.ItemData(2), 5);
  EXPECT_TRUE(Host().Edited);
}

TEST_F(AutoHostTest, MixAnsweredNoAndAnEmptyListChangeNothing) {
  ExpectQuestion("This will put all maps in random order do you want to continue?", BoxAnswer::kNo);
  Host().mnu_MixMaps.Choose();
  Host().MixTheMaps();
  EXPECT_FALSE(Host().Edited);
}

// ---- search and replace --------------------------------------------------------------------------------------------

class AutoHostSearchTest : public AutoHostTest {
 protected:
  AutoHostSearchTest() { AddRows({"C:\\maps\\Arena.bms", "C:\\maps\\Oasis.bms", "C:\\oasis\\x.bms"}); }
  // The search is remembered for the life of the program: each test ends with one that finds nothing.
  ~AutoHostSearchTest() override {
    if (asks_next) ExpectQuestion("Search next?", BoxAnswer::kNo);
    desktop.dialogs().ExpectInput(kPrompt, "nowhere");
    desktop.dialogs().ExpectBox("No maps found");
    Host().mnu_SearchMap.Choose();
  }
  static constexpr const char* kPrompt = "Please enter a map name you want to search for.";
  bool asks_next = false;
};

TEST_F(AutoHostSearchTest, TheNextHitIsFoundBehindTheLastAndTheEndBeginsAnew) {
  Select({0, 2}, 0);
  desktop.dialogs().ExpectInput(kPrompt, "OASIS");
  desktop.dialogs().ExpectBox("Found map.");
  Host().mnu_SearchMap.Choose();
  EXPECT_EQ(Selected(), std::vector<int>{1});
  EXPECT_EQ(Host().lstmaps.ListIndex, 1);
  ExpectQuestion("Search next?", BoxAnswer::kYes);
  desktop.dialogs().ExpectBox("Found map.");
  Host().mnu_SearchMap.Choose();
  EXPECT_EQ(Selected(), std::vector<int>{2});
  ExpectQuestion("Search next?", BoxAnswer::kYes);
  desktop.dialogs().ExpectBox("No maps found");
  Host().mnu_SearchMap.Choose();
}

TEST_F(AutoHostSearchTest, AnsweringNoAsksForATextWithTheLastAsItsBeginning) {
  desktop.dialogs().ExpectInput(kPrompt, "arena");
  desktop.dialogs().ExpectBox("Found map.");
  Host().mnu_SearchMap.Choose();
  ExpectQuestion("Search next?", BoxAnswer::kNo);
  desktop.dialogs().ExpectInput(kPrompt, "x.bms").WithPreset("arena");
  desktop.dialogs().ExpectBox("Found map.");
  Host().mnu_SearchMap.Choose();
  EXPECT_EQ(Selected(), std::vector<int>{2});
  asks_next = true;
}

TEST_F(AutoHostSearchTest, AnEmptyTextFindsRowZero) {
  desktop.dialogs().ExpectInput(kPrompt, "");
  desktop.dialogs().ExpectBox("Found map.");
  Host().mnu_SearchMap.Choose();
  EXPECT_EQ(Selected(), std::vector<int>{0});
  asks_next = true;
}

TEST_F(AutoHostTest, ReplaceChangesTheSelectedRowsAndDropsTheirSelectionAndCount) {
  AddRows({"C:\\old\\a.bms", "C:\\OLD\\old.bms", "C:\\old\\c.bms"});
  Host().lstmaps.SetItemData(1, 3);
  Host().lstmaps.SetItemData(2, 4);
  Select({0, 1}, 0);
  desktop.dialogs().ExpectInput("Enter the text you want to replace in the selected map(s).", "old");
  desktop.dialogs().ExpectInput("Enter the new text", "new");
  desktop.dialogs().ExpectBox("Done.");
  Host().mnu_replacestring.Choose();
  EXPECT_EQ(Rows(), "C:\\new\\a.bms|C:\\new\\new.bms|C:\\old\\c.bms|");
  EXPECT_TRUE(Selected().empty());
  EXPECT_EQ(Host().lstmaps.ItemData(1), 0);
  EXPECT_EQ(Host().lstmaps.ItemData(2), 4);
  EXPECT_TRUE(Host().Edited);
}

TEST_F(AutoHostTest, ACancelledReplaceChangesNothing) {
  AddRows({"old"});
  Select({0}, 0);
  desktop.dialogs().ExpectInput("Enter the text you want to replace in the selected map(s).", "old");
  desktop.dialogs().ExpectInput("Enter the new text", std::nullopt);
  Host().mnu_replacestring.Choose();
  EXPECT_EQ(Rows(), "old|");
  EXPECT_FALSE(Host().Edited);
}

TEST_F(AutoHostTest, AllMapsAndAllFilesAreSelectedAndDeselected) {
  AddRows({"a", "b"});
  Host().mnu_selectallmaps.Choose();
  EXPECT_EQ(Selected().size(), 2u);
  Host().mnu_deselectmaps.Choose();
  EXPECT_TRUE(Selected().empty());
  Host().mnu_selectallfiles.Choose();
  EXPECT_EQ(Host().FileMaps.SelCount(), 3);
  Host().mnu_deselectfiles.Choose();
  EXPECT_EQ(Host().FileMaps.SelCount(), 0);
}

// ---- what a row shows ----------------------------------------------------------------------------------------------

TEST_F(AutoHostTest, AClickOnARowShowsItsCountItsTextAndItsPicture) {
  AddRows({"a", "http://maps.example/Oasis.bms"});
  WriteFile(Path("oasis.jpg"), "picture");
  WriteNumberedSetting(setting::kPreviewPicture, "Oasis.bms", Path("oasis.jpg"));
  desktop.pictures().Answer("picture", {2, 2, std::vector<uint32_t>(4)});
  Host().lstmaps.SetItemData(1, 12);
  Host().lstmaps.ListIndex = 1;
  EXPECT_EQ(Host().lblinserts.Caption.get(), "12");
  EXPECT_EQ(Host().lblinserts.ToolTipText.get(), "Number of inserts ");
  EXPECT_EQ(Host().lblpath.Caption.get(), "http://maps.example/Oasis.bms");
  EXPECT_EQ(Host().lstmaps.ToolTipText.get(), "http://maps.example/Oasis.bms");
  EXPECT_TRUE(Host().ImgPreview.Picture.get());
  EXPECT_FALSE(Host().lblnopreview.Visible);
  Host().lstmaps.ListIndex = 0;
  EXPECT_FALSE(Host().ImgPreview.Picture.get());
  EXPECT_TRUE(Host().lblnopreview.Visible);
}

TEST_F(AutoHostTest, AClickOnAFileShowsItsNameAsTheTip) {
  Host().FileMaps.ListIndex = 1;
  EXPECT_EQ(Host().FileMaps.ToolTipText.get(), "Desert.bms");
}

TEST_F(AutoHostTest, InfoAsksForAMapOrShowsTheCurrentOne) {
  desktop.dialogs().ExpectBox("Please select a map!");
  Host().Command7.Press();
  Host().cmdaddall.Press();
  Host().lstmaps.ListIndex = 0;
  desktop.dialogs().ExpectBox("This map is not a BMS file");
  Host().Command7.Press();
  ASSERT_TRUE(LoadedWindow("frmmapinfo"));
  EXPECT_TRUE(LoadedWindow("frmmapinfo")->IsShown());
}

// ---- keys and drops ------------------------------------------------------------------------------------------------

TEST_F(AutoHostTest, TheKeysOfThePlayListDoWhatTheButtonsDo) {
  AddRows({"a", "b", "c"});
  Select({1}, 1);
  PressKey(Host().lstmaps, 38, shift::kCtrl);
  EXPECT_EQ(Rows(), "b|a|c|");
  PressKey(Host().lstmaps, 40, shift::kCtrl);
  EXPECT_EQ(Rows(), "a|b|c|");
  PressKey(Host().lstmaps, 'A', shift::kCtrl);
  EXPECT_EQ(Selected().size(), 3u);
  ExpectQuestion(kRemove, BoxAnswer::kYes);
  PressKey(Host().lstmaps, 46);
  EXPECT_EQ(Rows(), "");
  desktop.dialogs().ExpectBox("Please select a map!");
  PressKey(Host().lstmaps, 13);
}

TEST_F(AutoHostTest, FilesFoldersAndLinksThatAreDroppedAreAdded) {
  WriteFile(Path("link.url"), "[InternetShortcut]\r\nURL=http://maps.example/b.bms\r\n");
  WriteFile(Path("readme.txt"), "no map");
  DropFiles(Host(),
            {MapPath("Oasis.bms"), Path("maps"), Path("link.url"), "http://maps.example/c.bms", Path("readme.txt")});
  EXPECT_EQ(Rows(), MapPath("Oasis.bms") + "|" + MapPath("Arena.bms") + "|" + MapPath("Desert.bms") + "|" +
                        MapPath("Oasis.bms") + "|http://maps.example/b.bms|http://maps.example/c.bms|");
  EXPECT_EQ(Host().lbllistmaps.Caption.get(), "6");
  EXPECT_TRUE(Host().Edited);
}

}  // namespace
}  // namespace kestrun
