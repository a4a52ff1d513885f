// List files, maps from elsewhere, and the window's settings.
#include "base/convert.h"
#include "support/forwarding_files.h"
#include "support/map_rows.h"
#include "support/zip_builder.h"
#include "windows/auto_host/auto_host_fixture.h"

namespace kestrun {
namespace {

constexpr const char* kClear = "Do you want to clear the current map list?";
constexpr const char* kSaveChanges = "Do you want to save the changes to the map list?";

// ---- loading -------------------------------------------------------------------------------------------------------

class AutoHostFilesTest : public AutoHostTest {
 protected:
  std::string list_ = Path("night.lst");
};

TEST_F(AutoHostFilesTest, AListIsLoadedAndTheListIsNoLongerEdited) {
  EXPECT_TRUE(WriteMapList(list_, {"a", "b"}));
  desktop.dialogs()
      .ExpectFile(list_)
      .WithTitle("Load map list")
      .WithFilter("List files (*.lst)|*.lst|All files (*.*)|*.*|");
  Host().mnu_loadlist.Choose();
  EXPECT_EQ(Rows(), "a|b|");
  EXPECT_EQ(Host().lbllistmaps.Caption.get(), "2");
  EXPECT_FALSE(Host().Edited);
  // From now on the list has this file.
  ExpectQuestion("Are you sure you want to save map list '" + list_ + "' ?", BoxAnswer::kNo);
  Host().mnu_savelist.Choose();
}

TEST_F(AutoHostFilesTest, AnEditedListIsOfferedToBeSavedBeforeAnotherIsLoaded) {
  EXPECT_TRUE(WriteMapList(list_, {"b"}));
  AddRows({"a"});
  Host().Edited = true;
  ExpectQuestion("Save changed to this map list?", BoxAnswer::kYes);
  desktop.dialogs().ExpectFile(Path("mine.lst")).WithTitle("Save map list");
  desktop.dialogs().ExpectFile(list_).WithTitle("Load map list");
  ExpectQuestion(kClear, BoxAnswer::kYes);
  Host().mnu_loadlist.Choose();
  EXPECT_EQ(ReadMapList(Path("mine.lst")), std::vector<std::string>{"a"});
  EXPECT_EQ(Rows(), "b|");
}

TEST_F(AutoHostFilesTest, AnsweringNoToClearAppendsTheFile) {
  EXPECT_TRUE(WriteMapList(list_, {"b"}));
  AddRows({"a"});
  ExpectQuestion(kClear, BoxAnswer::kNo);
  Host().LoadList(list_);
  EXPECT_EQ(Rows(), "a|b|");
}

TEST_F(AutoHostFilesTest, AFileWithoutAListAddsNoRowAndStillBecomesTheFile) {
  WriteFile(list_, "[LIST]\r\nTOTAL=0\r\n");
  Host().LoadList(list_);
  EXPECT_EQ(Rows(), "");
  ExpectQuestion("Are you sure you want to save map list '" + list_ + "' ?", BoxAnswer::kNo);
  Host().mnu_savelist.Choose();
}

TEST_F(AutoHostFilesTest, ATotalThatIsNoNumberIsAFailureAndTheRowsStay) {
  WriteFile(list_, "[LIST]\r\nTOTAL=many\r\n");
  AddRows({"a"});
  ExpectQuestion(kClear, BoxAnswer::kNo);
  desktop.dialogs().ExpectBox("Error: 13\r\nType mismatch");
  Host().LoadList(list_);
  EXPECT_EQ(Rows(), "a|");
}

TEST_F(AutoHostFilesTest, ACancelledDialogueEndsSilently) {
  desktop.dialogs().ExpectFile(std::nullopt);
  Host().mnu_loadlist.Choose();
  desktop.dialogs().ExpectFile(std::nullopt);
  Host().mnu_saveas.Choose();
  desktop.dialogs().ExpectFile(std::nullopt);
  Host().mnu_addmap.Choose();
  EXPECT_FALSE(Host().Edited);
}

TEST_F(AutoHostFilesTest, OpeningAListFromTheShellShowsTheWindowWithItsRows) {
  EXPECT_TRUE(WriteMapList(list_, {"a"}));
  LoadMapList(list_);
  EXPECT_TRUE(Host().IsShown());
  EXPECT_EQ(Rows(), "a|");
}

TEST_F(AutoHostFilesTest, AMapThatTheLoadMapWindowAddsStandsInTheList) {
  AddToMapList("C:\\maps\\Oasis.bms");
  EXPECT_EQ(Rows(), "C:\\maps\\Oasis.bms|");
  EXPECT_TRUE(Host().IsShown());
}

// ---- saving --------------------------------------------------------------------------------------------------------

TEST_F(AutoHostFilesTest, AnOldFileIsOverwrittenOnlyAfterAQuestion) {
  WriteFile(list_, "old");
  AddRows({"a"});
  Host().Edited = true;
  desktop.dialogs().ExpectFile(list_).WithTitle("Save map list");
  ExpectQuestion("This file already exists do you want to overwrite it?", BoxAnswer::kNo);
  Host().mnu_savelist.Choose();
  EXPECT_EQ(ReadFile(list_), "old");
  EXPECT_TRUE(Host().Edited);
  desktop.dialogs().ExpectFile(list_);
  ExpectQuestion("This file already exists do you want to overwrite it?", BoxAnswer::kYes);
  Host().mnu_savelist.Choose();
  EXPECT_EQ(ReadMapList(list_), std::vector<std::string>{"a"});
  EXPECT_FALSE(Host().Edited);
}

TEST_F(AutoHostFilesTest, SavingAgainAsksForTheFileByItsName) {
  EXPECT_TRUE(WriteMapList(list_, {"a"}));
  Host().LoadList(list_);
  AddRows({"b"});
  ExpectQuestion("Are you sure you want to save map list '" + list_ + "' ?", BoxAnswer::kYes);
  Host().mnu_savelist.Choose();
  EXPECT_EQ(ReadMapList(list_), (std::vector<std::string>{"a", "b"}));
}

TEST_F(AutoHostFilesTest, SaveAsAlwaysAsksForAFile) {
  EXPECT_TRUE(WriteMapList(list_, {"a"}));
  Host().LoadList(list_);
  desktop.dialogs().ExpectFile(Path("other.lst"));
  Host().mnu_saveas.Choose();
  EXPECT_TRUE(FileIsThere(Path("other.lst")));
}

TEST_F(AutoHostFilesTest, AListThatCannotBeSavedSaysSoAndStaysEdited) {
  AddRows({"a"});
  Host().Edited = true;
  const std::string nowhere = Path("nowhere\\night.lst");
  desktop.dialogs().ExpectFile(nowhere);
  Host().mnu_savelist.Choose();
  EXPECT_EQ(Host().lblstatus.Caption.get(),
            "The list could not be saved to " + nowhere + ". Save it in a folder that you may write to.");
  EXPECT_TRUE(Host().Edited);
  Host().Edited = false;
}

// ---- a map from elsewhere ------------------------------------------------------------------------------------------

TEST_F(AutoHostFilesTest, AMissionFileIsAddedAsItIsAndTheCountStays) {
  desktop.dialogs()
      .ExpectFile(MapPath("Oasis.bms"))
      .WithTitle("Select a map.")
      .WithFilter("Binary Missions and zip (*.bms;*.zip)|*.bms;*.zip|");
  Host().mnu_addmap.Choose();
  EXPECT_EQ(Rows(), MapPath("Oasis.bms") + "|");
  EXPECT_EQ(Host().lbllistmaps.Caption.get(), "0");
  EXPECT_TRUE(Host().Edited);
}

TEST_F(AutoHostFilesTest, AMissionFileThatIsNotThereIsNotAdded) {
  desktop.dialogs().ExpectFile(MapPath("Missing.bms"));
  Host().mnu_addmap.Choose();
  EXPECT_EQ(Rows(), "");
  EXPECT_FALSE(Host().Edited);
}

// A zip is asked about, its map picked and unpacked, and a copy of that stands in the map folder afterwards.
class AddMapTest : public AutoHostFilesTest {
 protected:
  AddMapTest() {
    WriteIni("[launcher]\r\nGAMETIMER=0\r\nPATHLIST=" + Path("maps") + "\r\nPATH=" + Path("maps") + "\r\n");
    WriteFile(Path("all.zip"), BuildZip({{.name = "Night.bms", .stored = "BMS night"}}));
  }
  void ChooseFromZip() {
    desktop.dialogs().ExpectFile(Path("all.zip"));
    desktop.dialogs().ExpectBox("Kestrun detected a zip file. Do you want to load maps that are inside the zip file?",
                                BoxAnswer::kYes);
    desktop.windowing().ExpectModal("frmzip", [](Form& form) {
      PutMember(*form.FindControl("LstZip"), "ListIndex", int32_t{0});
      form.FindControl("Command1")->Click();
    });
  }
  void ExpectOverwriteQuestion(BoxAnswer answer) {
    ExpectQuestion("Warning: the file " + MapPath("Night.bms") + " already exists overwrite the file?", answer);
  }
};

TEST_F(AddMapTest, AMapInAZipIsCopiedIntoTheMapFolderAndAdded) {
  ChooseFromZip();
  Host().mnu_addmap.Choose();
  EXPECT_EQ(Rows(), MapPath("Night.bms") + "|");
  EXPECT_EQ(ReadFile(MapPath("Night.bms")), "BMS night");
  EXPECT_TRUE(Host().Edited);
}

TEST_F(AddMapTest, AMapOfThatNameIsOverwrittenOnlyAfterAQuestion) {
  WriteFile(MapPath("Night.bms"), "mine");
  ChooseFromZip();
  ExpectOverwriteQuestion(BoxAnswer::kNo);
  Host().mnu_addmap.Choose();
  EXPECT_EQ(Rows(), "");
  EXPECT_EQ(ReadFile(MapPath("Night.bms")), "mine");
  EXPECT_FALSE(Host().Edited);
  ChooseFromZip();
  ExpectOverwriteQuestion(BoxAnswer::kYes);
  Host().mnu_addmap.Choose();
  EXPECT_EQ(Rows(), MapPath("Night.bms") + "|");
  EXPECT_EQ(ReadFile(MapPath("Night.bms")), "BMS night");
}

TEST_F(AddMapTest, AMapOnTheWebIsFetchedAndACopyAdded) {
  const std::string url = "http://maps.example/Night.bms";
  desktop.internet().Reply(url, "BMS night");
  desktop.dialogs().ExpectFile(url);
  Host().mnu_addmap.Choose();
  EXPECT_EQ(Rows(), MapPath("tempmap.bms") + "|");
  EXPECT_EQ(ReadFile(MapPath("tempmap.bms")), "BMS night");
  EXPECT_TRUE(Host().Edited);
}

// ---- the picture of a map, as add-ins ask for it --------------------------------------------------------------------

TEST_F(AutoHostFilesTest, ThePicturePathOfAMapComesWithItsStoredAddress) {
  WriteFile(Path("arena.jpg"), "picture");
  WriteIni("[launcher]\r\nGAMETIMER=0\r\n[IMAGE]\r\nArena.bms=" + Path("arena.jpg") +
           "\r\nDesert.bms=" + Path("gone.jpg") + "\r\n");
  const auto ask = [this](const std::string& map) {
    std::vector<Variant> arguments{map, "before"};
    Object& window = Host();
    const Variant path = window.Call(window.FindMember("GetPicturePath"), arguments);
    return ToText(path) + "|" + ToText(arguments[1]);
  };
  EXPECT_EQ(ask(MapPath("Arena.bms")), Path("arena.jpg") + "|" + Path("arena.jpg"));
  EXPECT_EQ(ask(MapPath("Desert.bms")), "|" + Path("gone.jpg")) << "its file is not there";
  EXPECT_EQ(ask(MapPath("Oasis.bms")), "|");
}

// ---- settings ------------------------------------------------------------------------------------------------------

TEST_F(AutoHostTest, TheSettingsAreReadWhenTheWindowLoads) {
  WriteIni("[launcher]\r\nGAMETIMER=0\r\nPATHLIST=" + Path("maps") +
           "\r\nDFVERSION=1\r\nRESETGAMES=1\r\nrenameA=MINE.BMS\r\nTIMESEC=30\r\nTIMEMIN=7\r\n");
  EXPECT_TRUE(Host().IsShown());
  EXPECT_EQ(Host().run.fields.DfVersion, 1);
  EXPECT_EQ(Host().Check1.Value, 1);
  EXPECT_EQ(Host().txtrename.Text.get(), "MINE.BMS");
  EXPECT_EQ(Host().TxtTimeSec.Text.get(), "30");
  EXPECT_EQ(Host().TxtTimeMin.Text.get(), "7");
  EXPECT_FALSE(Host().Edited);
}

TEST_F(AutoHostTest, WithoutStoredSettingsTheDefaultsStandAndTheVersionIsAskedForAtOnce) {
  WriteIni("");
  desktop.windowing().ExpectModal("Frmdfversion", [](Form& form) { form.Unload(); });
  EXPECT_EQ(Host().ChGameTimer.Value, 1);
  EXPECT_EQ(Host().run.fields.DfVersion, -1);
  EXPECT_EQ(Host().TxtTimeMin.Text.get(), "15");
  EXPECT_EQ(Host().TxtTimeSec.Text.get(), "58");
  EXPECT_EQ(Host().txtfolder.Text.get(), Path("game"));
  EXPECT_FALSE(Host().TxtTimeMin.Enabled);
}

TEST_F(AutoHostTest, TheSettingsAreWrittenWhenTheWindowCloses) {
  Host().run.fields.DfVersion = 1;
  Host().Check1.Value = 1;
  Host().txtrename.Text = "MINE.BMS";
  Host().TxtTimeMin.Text = "5";
  Host().TxtTimeSec.Text = "6";
  Host().txtfolder.Text = "C:\\none";
  Host().mnu_close.Choose();
  EXPECT_EQ(Ini("launcher", "GAMETIMER"), "0");
  EXPECT_EQ(Ini("launcher", "PATHLIST"), "C:\\none");
  EXPECT_EQ(Ini("launcher", "DFVERSION"), "1");
  EXPECT_EQ(Ini("launcher", "RESETGAMES"), "1");
  EXPECT_EQ(Ini("launcher", "renameA"), "MINE.BMS");
  EXPECT_EQ(Ini("launcher", "TIMESEC"), "6");
  EXPECT_EQ(Ini("launcher", "TIMEMIN"), "5");
}

TEST_F(AutoHostTest, ACancelKeepsTheWindowOpenAndTheSettingsAreWrittenAllTheSame) {
  Host().Edited = true;
  Host().TxtTimeMin.Text = "5";
  desktop.dialogs().ExpectBox(kSaveChanges, BoxAnswer::kCancel).WithButtons(BoxButtons::kYesNoCancel);
  Host().mnu_close.Choose();
  EXPECT_TRUE(Host().IsShown());
  EXPECT_EQ(Ini("launcher", "TIMEMIN"), "5");
  Host().Edited = false;
}

TEST_F(AutoHostTest, YesSavesBeforeTheWindowCloses) {
  AddRows({"a"});
  Host().Edited = true;
  desktop.dialogs().ExpectBox(kSaveChanges, BoxAnswer::kYes);
  desktop.dialogs().ExpectFile(Path("mine.lst"));
  Host().mnu_close.Choose();
  EXPECT_FALSE(LoadedWindow("frmputlist"));
  EXPECT_EQ(ReadMapList(Path("mine.lst")), std::vector<std::string>{"a"});
}

TEST_F(AutoHostTest, YesWithoutAFileKeepsTheWindowAndTheList) {
  AddRows({"a"});
  Host().Edited = true;
  desktop.dialogs().ExpectBox(kSaveChanges, BoxAnswer::kYes);
  desktop.dialogs().ExpectFile(std::nullopt);
  Host().mnu_close.Choose();
  EXPECT_EQ(Rows(), "a|");
  Host().Edited = false;
}

TEST_F(AutoHostTest, TheChosenMissionIsTheNameUnderWhichMapsAreInserted) {
  EXPECT_EQ(Host().run.fields.Rename, "D08M03.BMS");
  Host().Options0.Press();
  EXPECT_EQ(Host().run.fields.Rename, "D08M04.BMS");
  Host().txtrename.Text = "X.BMS";
  EXPECT_EQ(Host().run.fields.Rename, "D08M04.BMS");
  Host().Options2.Press();
  EXPECT_EQ(Host().run.fields.Rename, "X.BMS");
  Host().txtrename.Text = "Y.BMS";
  EXPECT_EQ(Host().run.fields.Rename, "Y.BMS");
}

TEST_F(AutoHostTest, ATimeThatIsNoNumberBecomesTheStoredOneAndAnEmptyOneStays) {
  Host().TxtTimeMin.Text = "soon";
  EXPECT_EQ(Host().TxtTimeMin.Text.get(), "15");
  Host().TxtTimeSec.Text = "-";
  EXPECT_EQ(Host().TxtTimeSec.Text.get(), "58");
  Host().TxtTimeMin.Text = "";
  EXPECT_EQ(Host().TxtTimeMin.Text.get(), "");
}

}  // namespace
}  // namespace kestrun
