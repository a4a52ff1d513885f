// What the load-map window does with its address: put, launch, and the tasks.
#include "program/game_paths.h"
#include "support/zip_builder.h"
#include "windows/map_info/frmmapinfo.h"
#include "windows/open_map/frmopenmap.h"
#include "windows/open_map/open_map_fixture.h"

namespace kestrun {
namespace {

constexpr const char* kSaveQuestion = "This will download or copy the map to the default map folder continue?";
constexpr const char* kNotZipped =
    "You need to zip your map first before you can upload it.\r\nDownload Winzip or use the Windows XP utility to zip "
    "it.";

class LoadMapTasksTest : public OpenMapTest {
 protected:
  enum Task { kInfo, kAutoHost, kPlay, kDownload, kUpload, kMain };

  [[nodiscard]] std::string Archived(const std::string& name) { return EntryOf(GamePath("dflw.pff"), name); }
  FakeMapList* MapList() { return static_cast<FakeMapList*>(LoadedWindow("frmputlist")); }
  FakeUploader* Uploader() { return static_cast<FakeUploader*>(LoadedWindow("FrmCenter")); }
  void RunGame() { desktop.processes().names = {"explorer.exe", "dflwdem.exe"}; }
  void FailDownload() { desktop.internet().ReplyWithFailure(kUrl, HeadlessInternet::kObjectNotFound); }
  void ExpectDownloadFailure() { desktop.dialogs().ExpectBox("Can't download: " + std::string(kUrl)); }
};

// ---- put and play --------------------------------------------------------------------------------------------------

TEST_F(LoadMapTasksTest, PutsALocalMapInTheArchiveAsCaptureTheFlag) {
  OpenWith(MapPath("Oasis.bms"));
  desktop.dialogs().ExpectBox("Successfully packed map").WithButtons(BoxButtons::kOk).WithIcon(BoxIcon::kNone);
  Open().cmdputin.Press();
  EXPECT_EQ(Archived("D08M03.BMS"), "BMS oasis");
  EXPECT_EQ(Open().txtrename.Text.get(), "D08M03.BMS");
}

TEST_F(LoadMapTasksTest, DeathmatchTakesTheOtherMission) {
  OpenWith(MapPath("Oasis.bms")).options0.Press();
  desktop.dialogs().ExpectBox("Successfully packed map");
  Open().cmdputin.Press();
  EXPECT_EQ(Archived("D08M04.BMS"), "BMS oasis");
  EXPECT_EQ(Open().txtrename.Text.get(), "D08M04.BMS");
}

TEST_F(LoadMapTasksTest, RenameStoresTheTypedName) {
  OpenWith(MapPath("Oasis.bms")).options3.Press();
  Open().txtrename.Text = std::string("MINE.BMS");
  desktop.dialogs().ExpectBox("Successfully packed map");
  Open().cmdputin.Press();
  EXPECT_EQ(Archived("MINE.BMS"), "BMS oasis");
}

// Runs what it is given and then cannot reach its server.
class NotingSession final : public HttpSession {
 public:
  explicit NotingSession(std::function<void()> note) : note_(std::move(note)) {}
  void Exchange(const HttpRequest&, HttpReceiver&) override {
    note_();
    Raise(error::kAutomationError);
  }
  std::unique_ptr<HttpExchange> Start(const HttpRequest&) override { Raise(error::kAutomationError); }

 private:
  std::function<void()> note_;
};

TEST_F(LoadMapTasksTest, WhileAMapIsFetchedTheStatusLineSaysSoAndABarMoves) {
  OpenWith(kUrl);
  const std::string own_words = Open().txtstatus.Text;
  std::string words;
  bool has_bar = false;
  desktop.internet().transport = [&]() -> std::unique_ptr<HttpSession> {
    return std::make_unique<NotingSession>([&] {
      words = Open().txtstatus.Text;
      has_bar = Open().prgfetch.Visible;
    });
  };
  desktop.dialogs().ExpectBox(std::string("Can't download: ") + kUrl);
  Open().cmdputin.Press();
  EXPECT_TRUE(StartsWith(words, "Fetching ")) << words;
  EXPECT_TRUE(words.ends_with(": waiting for the server. Esc cancels.")) << words;
  EXPECT_TRUE(has_bar);
  EXPECT_EQ(Open().txtstatus.Text.get(), own_words);
  EXPECT_FALSE(Open().prgfetch.Visible);
}

TEST_F(LoadMapTasksTest, EscDuringAFetchEndsTheCommandWithoutAWord) {
  const std::string before = ReadFile(GamePath("dflw.pff"));
  desktop.internet().Reply(kUrl, "BMS desert");
  desktop.internet().leave_after_bytes = 0;
  OpenWith(kUrl);
  Open().cmdputin.Press();
  EXPECT_EQ(ReadFile(GamePath("dflw.pff")), before);
  EXPECT_FALSE(Open().prgfetch.Visible);
  EXPECT_EQ(Open().txtrename.Text.get(), "");
}

TEST_F(LoadMapTasksTest, WithNoOptionSelectedTheMapIsPutInUnderAnEmptyName) {
  WriteIni("[launcher]\r\nOPTIONS0=False\r\nOPTIONS1=False\r\nOPTIONS3=False\r\ntxtoutputtext=MINE.BMS\r\n");
  OpenWith(MapPath("Oasis.bms"));
  desktop.dialogs().ExpectFileFailure("Error: 75\r\nPath/File access error", GamePath(""));
  desktop.dialogs().ExpectBox("Failed to pack map");
  Open().cmdplaying.Press();
  EXPECT_EQ(Open().txtrename.Text.get(), "MINE.BMS");
}

TEST_F(LoadMapTasksTest, WhilePlayingOnlyTheLooseFileIsReplacedAndTheMessageIsTheSame) {
  const std::string before = ReadFile(GamePath("dflw.pff"));
  OpenWith(MapPath("Oasis.bms"));
  desktop.dialogs().ExpectBox("Successfully packed map");
  Open().cmdplaying.Press();
  EXPECT_EQ(ReadFile(GamePath("dflw.pff")), before);
  EXPECT_EQ(ReadFile(GamePath("D08M03.BMS")), "BMS oasis");
}

TEST_F(LoadMapTasksTest, AMapOnTheWebIsFetchedAndPutIn) {
  desktop.internet().Reply(kUrl, "BMS desert");
  OpenWith(kUrl);
  desktop.dialogs().ExpectBox("Successfully packed map");
  Open().cmdputin.Press();
  EXPECT_EQ(Archived("D08M03.BMS"), "BMS desert");
}

TEST_F(LoadMapTasksTest, AFailedDownloadEndsTheCommandAfterItsOwnMessage) {
  FailDownload();
  OpenWith(kUrl);
  ExpectDownloadFailure();
  Open().cmdputin.Press();
  EXPECT_EQ(Archived("D08M03.BMS"), std::string(100, 'o'));
}

TEST_F(LoadMapTasksTest, WithoutANetworkTheDownloadFailsInTheSameWords) {
  desktop.internet().connected = false;
  OpenWith(kUrl);
  ExpectDownloadFailure();
  Open().cmdplaying.Press();
  EXPECT_FALSE(FileIsThere(GamePath("D08M03.BMS")));
}

TEST_F(LoadMapTasksTest, GivingUpOnAZipEndsTheCommandSilently) {
  WriteFile(MapPath("Pack.zip"), BuildZip({{"Oasis.bms", "BMS oasis"}}));
  OpenWith(MapPath("Pack.zip"));
  ExpectZipQuestion(BoxAnswer::kCancel);
  Open().cmdputin.Press();
  EXPECT_EQ(Archived("D08M03.BMS"), std::string(100, 'o'));
}

TEST_F(LoadMapTasksTest, AFolderAsTheAddressFailsAndLeavesTheGameAsItWas) {
  const std::string before = ReadFile(GamePath("dflw.pff"));
  static_cast<frmopenmap&>(WindowBeforeLoad("frmopenmap")).TxtFile.Text = Path("maps");
  desktop.dialogs().ExpectBox(
      "Warning a BMS mission file or a zip file is necessary! If you try to use other files that aren't BMS files your "
      "game can be damaged!!!\r\ncontinue?",
      BoxAnswer::kYes);
  Open().Show();
  desktop.dialogs().ExpectFileFailure("Error: 75\r\nPath/File access error", Path("maps"));
  desktop.dialogs().ExpectBox("Failed to pack map");
  Open().cmdputin.Press();
  EXPECT_EQ(ReadFile(GamePath("dflw.pff")), before);
  desktop.dialogs().ExpectFileFailure("Error: 75\r\nPath/File access error", Path("maps"));
  desktop.dialogs().ExpectBox("Failed to pack map");
  Open().cmdplaying.Press();
}

TEST_F(LoadMapTasksTest, AnAddressWithBlanksAroundItIsTakenAsItStands) {
  OpenWith(" " + MapPath("Oasis.bms") + " ");
  desktop.dialogs().ExpectBox("The file:  " + MapPath("Oasis.bms") + "  does not exists.\r\nContinue?", BoxAnswer::kNo);
  desktop.dialogs().ExpectBox("Failed to pack map");
  Open().cmdputin.Press();
}

TEST_F(LoadMapTasksTest, AFailedInsertionIsSaid) {
  native_files.Delete(GamePath("dflw.pff"));
  OpenWith(MapPath("Oasis.bms"));
  desktop.dialogs().ExpectBox(
      "The pff file: " + GamePath("dflw.pff") +
          " does not exists.\r\nGo to options and select the right dflw game folder.\r\nContinue?",
      BoxAnswer::kNo);
  desktop.dialogs().ExpectBox("Failed to pack map");
  Open().cmdputin.Press();
}

TEST_F(LoadMapTasksTest, PlayThisMapPacksTheArchiveWhileTheGameIsClosed) {
  OpenWith(MapPath("Oasis.bms"));
  desktop.dialogs().ExpectBox("Successfully packed map");
  ClickTask(kPlay);
  EXPECT_EQ(Archived("D08M03.BMS"), "BMS oasis");
}

TEST_F(LoadMapTasksTest, PlayThisMapOnlyCopiesTheFileWhileTheGameRuns) {
  RunGame();
  OpenWith(MapPath("Oasis.bms"));
  desktop.dialogs().ExpectBox("Successfully packed map");
  ClickTask(kPlay);
  EXPECT_EQ(Archived("D08M03.BMS"), std::string(100, 'o'));
  EXPECT_EQ(ReadFile(GamePath("D08M03.BMS")), "BMS oasis");
}

// ---- launch --------------------------------------------------------------------------------------------------------

TEST_F(LoadMapTasksTest, LaunchStartsTheGameWithTheTextZeroForItsParameters) {
  WriteFile(GamePath("DFLWDEM.EXE"), "game");
  Open().Show();
  Open().Command1.Press();
  EXPECT_EQ(desktop.shell().openings,
            (std::vector<ShellOpening>{{"open", GamePath("DFLWDEM.EXE"), "0", Path("game"), 1}}));
}

TEST_F(LoadMapTasksTest, AMissingGameIsToldAndNoOtherWindowOpens) {
  desktop.dialogs()
      .ExpectBox("Game file 'dflwdem.exe' not found! Please select your game folder in the options window!")
      .WithButtons(BoxButtons::kOk)
      .WithIcon(BoxIcon::kCritical);
  Open().Show();
  Open().Command1.Press();
  EXPECT_EQ(LoadedWindows().size(), 1U);
}

// ---- download this map ---------------------------------------------------------------------------------------------

TEST_F(LoadMapTasksTest, SavingNeedsAnAddress) {
  Open().Show();
  Open().cmdputin.SetFocus();
  desktop.dialogs().ExpectBox("Enter path!");
  ClickTask(kDownload);
  EXPECT_EQ(Open().ActiveControl(), &Open().TxtFile);
}

TEST_F(LoadMapTasksTest, NoSavesNothing) {
  OpenWith(MapPath("Oasis.bms"));
  ExpectQuestion(kSaveQuestion, BoxAnswer::kNo);
  ClickTask(kDownload);
  EXPECT_FALSE(FileIsThere(DefaultMapPath("Oasis.bms")));
}

TEST_F(LoadMapTasksTest, ALocalMapIsCopiedUnderItsName) {
  OpenWith(MapPath("Oasis.bms"));
  ExpectQuestion(kSaveQuestion, BoxAnswer::kYes);
  ClickTask(kDownload);
  EXPECT_EQ(ReadFile(DefaultMapPath("Oasis.bms")), "BMS oasis");
}

TEST_F(LoadMapTasksTest, ADownloadedMapLandsUnderTheTemporaryNameAndReplacesTheOldOneWithNoQuestion) {
  WriteFile(DefaultMapPath("tempmap.bms"), "older");
  desktop.internet().Reply(kUrl, "BMS desert");
  OpenWith(kUrl);
  ExpectQuestion(kSaveQuestion, BoxAnswer::kYes);
  ClickTask(kDownload);
  EXPECT_EQ(ReadFile(DefaultMapPath("tempmap.bms")), "BMS desert");
  EXPECT_FALSE(FileIsThere(DefaultMapPath("Desert.bms")));
}

TEST_F(LoadMapTasksTest, AFailedDownloadSavesNothing) {
  FailDownload();
  OpenWith(kUrl);
  ExpectQuestion(kSaveQuestion, BoxAnswer::kYes);
  ExpectDownloadFailure();
  ClickTask(kDownload);
  EXPECT_FALSE(FileIsThere(DefaultMapPath("tempmap.bms")));
}

TEST_F(LoadMapTasksTest, AZipIsSavedWholeAfterANoToItsMaps) {
  const std::string zip = BuildZip({{"Oasis.bms", "BMS oasis"}});
  WriteFile(MapPath("Pack.zip"), zip);
  OpenWith(MapPath("Pack.zip"));
  ExpectQuestion(kSaveQuestion, BoxAnswer::kYes);
  ExpectZipQuestion(BoxAnswer::kNo);
  ClickTask(kDownload);
  EXPECT_EQ(ReadFile(DefaultMapPath("Pack.zip")), zip);
}

TEST_F(LoadMapTasksTest, AMapThatIsNotThereSavesNothing) {
  OpenWith(MapPath("Missing.bms"));
  ExpectQuestion(kSaveQuestion, BoxAnswer::kYes);
  ClickTask(kDownload);
  EXPECT_FALSE(FileIsThere(DefaultMapPath("Missing.bms")));
}

TEST_F(LoadMapTasksTest, AMapThatLiesInTheMapFolderAlreadyIsNotCopiedOntoItself) {
  WriteFile(DefaultMapPath("Oasis.bms"), "BMS oasis");
  OpenWith(DefaultMapPath("Oasis.bms"));
  ExpectQuestion(kSaveQuestion, BoxAnswer::kYes);
  ClickTask(kDownload);
  EXPECT_EQ(ReadFile(DefaultMapPath("Oasis.bms")), "BMS oasis");
}

TEST_F(LoadMapTasksTest, ACopyThatFailsIsReported) {
  native_files.MakeFolder(DefaultMapPath("Oasis.bms"));
  OpenWith(MapPath("Oasis.bms"));
  ExpectQuestion(kSaveQuestion, BoxAnswer::kYes);
  desktop.dialogs().ExpectFileFailure("Error: 75\r\nPath/File access error", DefaultMapPath("Oasis.bms"));
  ClickTask(kDownload);
}

// ---- add to auto host list -----------------------------------------------------------------------------------------

TEST_F(LoadMapTasksTest, HostingNeedsAnAddress) {
  RegisterOthers();
  Open().Show();
  desktop.dialogs().ExpectBox("Enter path!");
  ClickTask(kAutoHost);
  EXPECT_EQ(Open().ActiveControl(), &Open().TxtFile);
}

TEST_F(LoadMapTasksTest, ALocalMapIsHostedFromWhereItIs) {
  RegisterOthers();
  OpenWith(MapPath("Oasis.bms"));
  ClickTask(kAutoHost);
  ASSERT_NE(MapList(), nullptr);
  EXPECT_EQ(MapList()->lstmaps.List(0), MapPath("Oasis.bms"));
  EXPECT_EQ(MapList()->refreshes, 1);
  EXPECT_TRUE(MapList()->IsShown());
}

TEST_F(LoadMapTasksTest, AMapOnTheWebIsHostedFromTheMapFolder) {
  RegisterOthers();
  desktop.internet().Reply(kUrl, "BMS desert");
  OpenWith(kUrl);
  ClickTask(kAutoHost);
  ASSERT_NE(MapList(), nullptr);
  EXPECT_EQ(MapList()->lstmaps.List(0), DefaultMapPath("tempmap.bms"));
  EXPECT_EQ(ReadFile(DefaultMapPath("tempmap.bms")), "BMS desert");
}

TEST_F(LoadMapTasksTest, AnExistingTargetIsReplacedAfterAYes) {
  RegisterOthers();
  WriteFile(DefaultMapPath("tempmap.bms"), "older");
  desktop.internet().Reply(kUrl, "BMS desert");
  OpenWith(kUrl);
  ExpectQuestion("Warning: the file " + DefaultMapPath("tempmap.bms") + " already exists overwrite the file?",
                 BoxAnswer::kYes);
  ClickTask(kAutoHost);
  EXPECT_EQ(ReadFile(DefaultMapPath("tempmap.bms")), "BMS desert");
  ASSERT_NE(MapList(), nullptr);
}

TEST_F(LoadMapTasksTest, AnExistingTargetIsKeptAndNotHostedAfterANo) {
  RegisterOthers();
  WriteFile(DefaultMapPath("tempmap.bms"), "older");
  desktop.internet().Reply(kUrl, "BMS desert");
  OpenWith(kUrl);
  ExpectQuestion("Warning: the file " + DefaultMapPath("tempmap.bms") + " already exists overwrite the file?",
                 BoxAnswer::kNo);
  ClickTask(kAutoHost);
  EXPECT_EQ(ReadFile(DefaultMapPath("tempmap.bms")), "older");
  EXPECT_EQ(MapList(), nullptr);
}

TEST_F(LoadMapTasksTest, AZipThatLiesInTheMapFolderAlreadyIsHostedWithoutBeingCopiedOntoItself) {
  RegisterOthers();
  WriteFile(DefaultMapPath("Pack.zip"), BuildZip({{"Oasis.bms", "BMS oasis"}}));
  OpenWith(DefaultMapPath("Pack.zip"));
  ExpectZipQuestion(BoxAnswer::kNo);
  ClickTask(kAutoHost);
  ASSERT_NE(MapList(), nullptr);
  EXPECT_EQ(MapList()->lstmaps.List(0), DefaultMapPath("Pack.zip"));
}

TEST_F(LoadMapTasksTest, AFailedDownloadHostsNothing) {
  RegisterOthers();
  FailDownload();
  OpenWith(kUrl);
  ExpectDownloadFailure();
  ClickTask(kAutoHost);
  EXPECT_EQ(MapList(), nullptr);
}

TEST_F(LoadMapTasksTest, AMissingMapIsReportedAndNotHosted) {
  RegisterOthers();
  OpenWith(MapPath("Missing.bms"));
  desktop.dialogs().ExpectFileFailure("Error: 53\r\nFile not found", MapPath("Missing.bms"));
  ClickTask(kAutoHost);
  EXPECT_EQ(MapList(), nullptr);
}

// ---- view map info -------------------------------------------------------------------------------------------------

TEST_F(LoadMapTasksTest, ViewingNeedsAnAddressInItsOwnWords) {
  Open().Show();
  Open().cmdputin.SetFocus();
  desktop.dialogs().ExpectBox("Enter Path!");
  ClickTask(kInfo);
  EXPECT_EQ(Open().ActiveControl(), &Open().TxtFile);
}

TEST_F(LoadMapTasksTest, TheMapIsHandedToTheInfoWindow) {
  WriteFile(MapPath("Oasis.bms"), std::string("BMS\0", 4) + "Oasis" + std::string(500, '\0'));
  OpenWith(MapPath("Oasis.bms"));
  ClickTask(kInfo);
  ASSERT_NE(LoadedWindow("frmmapinfo"), nullptr);
  EXPECT_TRUE(LoadedWindow("frmmapinfo")->IsShown());
  EXPECT_EQ(LoadedWindow("frmmapinfo")->Caption.get(), "Map info Oasis.bms");
  EXPECT_EQ(Window<frmmapinfo>().TxtMissionName.Text.get(), "Oasis");
}

TEST_F(LoadMapTasksTest, AMapThatIsNotThereOpensNoInfoWindow) {
  OpenWith(MapPath("Missing.bms"));
  ClickTask(kInfo);
  EXPECT_EQ(LoadedWindow("frmmapinfo"), nullptr);
}

TEST_F(LoadMapTasksTest, AFailedDownloadOpensNoInfoWindow) {
  FailDownload();
  OpenWith(kUrl);
  ExpectDownloadFailure();
  ClickTask(kInfo);
  EXPECT_EQ(LoadedWindow("frmmapinfo"), nullptr);
}

// ---- upload this map -----------------------------------------------------------------------------------------------

TEST_F(LoadMapTasksTest, AMapOnTheWebIsNotUploaded) {
  RegisterOthers();
  OpenWith(kUrl);
  desktop.dialogs().ExpectBox("You can't upload a map that's already on the internet");
  ClickTask(kUpload);
  EXPECT_EQ(Uploader(), nullptr);
}

TEST_F(LoadMapTasksTest, OnlyZipsAreUploaded) {
  RegisterOthers();
  OpenWith(MapPath("Oasis.bms"));
  desktop.dialogs().ExpectBox(kNotZipped);
  ClickTask(kUpload);
  Open().TxtFile.Text = std::string();
  desktop.dialogs().ExpectBox(kNotZipped);
  ClickTask(kUpload);
  EXPECT_EQ(Uploader(), nullptr);
}

TEST_F(LoadMapTasksTest, TheUploadWindowOpensWithTheZipSelected) {
  RegisterOthers();
  WriteFile(MapPath("Another.zip"), "zip");
  WriteFile(MapPath("Pack.zip"), "zip");
  OpenWith(MapPath("Pack.zip"));
  ClickTask(kUpload);
  ASSERT_NE(Uploader(), nullptr);
  EXPECT_TRUE(Uploader()->IsShown());
  EXPECT_FALSE(Uploader()->IsModal());
  EXPECT_EQ(Uploader()->TxtDir.Text.get(), Path("maps"));
  EXPECT_EQ(Uploader()->ChAutoRename.Value, 0);
  EXPECT_EQ(Uploader()->ChSelected.Value, 1);
  EXPECT_EQ(Uploader()->FileMaps.FileName(), "Pack.zip");
}

TEST_F(LoadMapTasksTest, AZipThatIsNotListedLeavesNothingSelected) {
  RegisterOthers();
  OpenWith(MapPath("Missing.zip"));
  ClickTask(kUpload);
  ASSERT_NE(Uploader(), nullptr);
  EXPECT_EQ(Uploader()->FileMaps.ListIndex, -1);
}

TEST_F(LoadMapTasksTest, AZipWithoutAFolderIsReported) {
  RegisterOthers();
  OpenWith("Pack.zip");
  desktop.dialogs().ExpectBox("Error: 5\r\nInvalid procedure call or argument");
  ClickTask(kUpload);
}

// ---- the windows behind the tasks ----------------------------------------------------------------------------------

TEST_F(LoadMapTasksTest, OpenKestrunShowsTheMainWindow) {
  SetSafeMode(true);
  Open().Show();
  ClickTask(kMain);
  ASSERT_NE(LoadedWindow("frmain"), nullptr);
  EXPECT_TRUE(LoadedWindow("frmain")->IsShown());
}

TEST_F(LoadMapTasksTest, ATaskWhoseWindowIsNotThereIsDisabled) {
  Open().Show();
  EXPECT_TRUE(Open().LblTask[kInfo]->Enabled);
  EXPECT_FALSE(Open().LblTask[kAutoHost]->Enabled);
  EXPECT_TRUE(Open().LblTask[kPlay]->Enabled);
  EXPECT_TRUE(Open().LblTask[kDownload]->Enabled);
  EXPECT_FALSE(Open().LblTask[kUpload]->Enabled);
  EXPECT_TRUE(Open().LblTask[kMain]->Enabled);
  Open().Unload();
  RegisterOthers();
  Open().Show();
  EXPECT_TRUE(Open().LblTask[kAutoHost]->Enabled);
  EXPECT_TRUE(Open().LblTask[kUpload]->Enabled);
}

TEST_F(LoadMapTasksTest, ScriptsCanRunTheTasksByName) {
  RegisterOthers();
  OpenWith(MapPath("Oasis.bms"));
  CallMember(Open(), "AddAutoHost");
  ASSERT_NE(MapList(), nullptr);
  ExpectQuestion(kSaveQuestion, BoxAnswer::kNo);
  CallMember(Open(), "SaveMapAs");
  desktop.dialogs().ExpectBox(kNotZipped);
  CallMember(Open(), "UploadMap");
  CallMember(Open(), "ShowMapInfo");
}

}  // namespace
}  // namespace kestrun
