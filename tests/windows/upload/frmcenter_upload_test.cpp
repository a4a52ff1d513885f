// What the uploader sends, asks and logs, against a real server that reads as strictly as the site.
#include "base/text.h"
#include "forms/keys.h"
#include "windows/upload/upload_fixture.h"

namespace kestrun {
namespace {

using testing::ElementsAre;
using testing::IsEmpty;

std::string Part(const std::string& name, const std::string& value) {
  return "--Xu02=$\r\nContent-Disposition: form-data; name=\"" + name +
         "\"\r\nContent-type: file\r\nContent-Length: " + std::to_string(value.size()) + "\r\n\r\n" + value +
         "\r\n--Xu02=$--\r\n";
}

TEST_F(UploadTest, TheGamesAreAskedForByteForByteAndTheFirstIsChosen) {
  FrmCenter& window = Open();
  const std::vector<ServedRequest> posts = center.PostsTo("/script.php");
  ASSERT_EQ(posts.size(), 1U);
  EXPECT_EQ(posts[0].body, Part("action", "enumgames") + Part("output", "2"));
  EXPECT_EQ(posts[0].Header("Content-Type"), "multipart/form-data; boundary=Xu02=$");
  ASSERT_EQ(window.CmbGames.ListCount(), 2);
  EXPECT_EQ(window.CmbGames.Text.get(), "Delta Force Land Warrior");
  EXPECT_EQ(window.CmbGames.List(1), "Delta Force 2");
  EXPECT_THAT(center.Faults(), IsEmpty());
}

TEST_F(UploadTest, AMapIsSentByteForByte) {
  PutMap("Oasis");
  const std::string zip = ReadFile(MapPath("Oasis.zip"));
  Start();
  const std::vector<ServedRequest> posts = center.PostsTo("/upload.php");
  ASSERT_EQ(posts.size(), 1U);
  // The texts in base64 are worked out by other means than the program's own.
  const std::string expected = Part("action", "upload") + Part("kestrun", "1") + Part("user", "bmVv") +
                               Part("pwd", "c2VzYW1l") + Part("mapname", "Oasis") + Part("designer", "Trinity") +
                               Part("gametype", "4096") + Part("comments", "A map.\r\n") + Part("addons", "None.\r\n");
  EXPECT_EQ(posts[0].body.substr(0, expected.size()), expected);
  const std::string image = Part("image", "/9j/IHBpY3R1cmUggIGNoA");
  const std::string end =
      Part("game", "Delta Force Land Warrior") + Part("autorename", "true") + Part("scrshotisurl", "false");
  EXPECT_TRUE(posts[0].body.ends_with(image + end)) << posts[0].body.substr(posts[0].body.size() - 400);
  EXPECT_THAT(center.Faults(), IsEmpty());
  ASSERT_EQ(center.Taken().size(), 1U);
  EXPECT_EQ(center.Taken()[0]["map"], zip);
  EXPECT_EQ(center.Taken()[0]["image"], kPicture);
}

TEST_F(UploadTest, ARunIsLoggedStepByStepInTheBoxAndInTheFile) {
  PutMap("Oasis");
  Start();
  EXPECT_EQ(LogText(),
            ">> Start uploading 1/1/2001 12:00:00 PM\r\n"
            "Checking files ...\r\n"
            "1 files checked no missing screen shots.\r\n"
            "OK\r\n"
            "Uploading files ...\r\n"
            "UPLOADING Oasis.zip\r\n"
            "SERVER RESPONS:\r\n"
            "[UPLOAD SUCCESS] Thank you.\r\n");
  EXPECT_EQ(ReadFile(MapPath("upload.log")), LogText());
  EXPECT_FALSE(FileIsThere(Path("temp\\kestrun")));
  EXPECT_EQ(Open().txtstatus.Text.get(), "1 of 1 maps uploaded.");
  EXPECT_EQ(Open().txtLog.SelStart, static_cast<int>(LogText().size()));
}

TEST_F(UploadTest, AnOlderLogThatWasLongerKeepsItsEndBehindTheNewOne) {
  PutMap("Oasis");
  WriteFile(MapPath("upload.log"), std::string(1000, 'x'));
  Start();
  const std::string log = ReadFile(MapPath("upload.log"));
  EXPECT_EQ(log.size(), 1000U);
  EXPECT_EQ(log, LogText() + std::string(1000 - LogText().size(), 'x'));
}

TEST_F(UploadTest, WithSelectedOnlyAndNothingSelectedNothingIsUploaded) {
  PutMap("Oasis");
  Open().ChSelected.Value = 1;
  Start();
  EXPECT_EQ(LogBehindStart(),
            "Checking files ...\r\n0 files checked no missing screen shots.\r\nOK\r\nUploading files ...\r\n");
  EXPECT_THAT(center.PostsTo("/upload.php"), IsEmpty());
}

TEST_F(UploadTest, WithSelectedOnlyTheSelectedMapsAreUploaded) {
  for (const char* map : {"Arena", "Desert", "Oasis"}) PutMap(map);
  FrmCenter& window = Open();
  window.ChSelected.Value = 1;
  window.FileMaps.SetSelected(0, true);
  window.FileMaps.SetSelected(2, true);
  Start();
  EXPECT_THAT(TakenNames(), ElementsAre("Arena", "Oasis"));
}

TEST_F(UploadTest, AMapWithoutACommentsFileIsSentWithEmptyTextsWhereThatIsAllowed) {
  PutMap("Oasis");
  native_files.Delete(MapPath("Oasis.txt"));
  Open().Chcomments.Value = 1;
  Start();
  ASSERT_EQ(center.Taken().size(), 1U);
  EXPECT_EQ(center.Taken()[0]["comments"], "");
  EXPECT_EQ(center.Taken()[0]["addons"], "");
  EXPECT_THAT(LogText(), testing::HasSubstr("Warning comments file 'Oasis.txt' not found.\r\n"
                                            "Warning 1 comments file(s) not found.\r\n"
                                            "1 files checked no missing screen shots.\r\nOK\r\n"));
}

TEST_F(UploadTest, AMapWithoutACommentsFileIsHeldBackWhereThatIsNotAllowed) {
  PutMap("Oasis");
  native_files.Delete(MapPath("Oasis.txt"));
  Open().Chcomments.Value = 0;
  Start();
  EXPECT_EQ(LogBehindStart(),
            "Checking files ...\r\n"
            "Warning comments file 'Oasis.txt' not found.\r\n"
            "Warning 1 comments file(s) not found.\r\n"
            "Check the 'allow missing comments files' checkbox to upload maps without comments.\r\n");
  EXPECT_THAT(center.PostsTo("/upload.php"), IsEmpty());
  // The log is left open, and later lines go there.
  Open().AddMessage("later");
  EXPECT_TRUE(ReadFile(MapPath("upload.log")).ends_with("later\r\n"));
}

TEST_F(UploadTest, AMapWithoutAPictureEndsTheRunBeforeAnythingIsSent) {
  PutMap("Arena");
  PutMap("Oasis");
  native_files.Delete(MapPath("Oasis.jpg"));
  Start();
  EXPECT_EQ(LogBehindStart(),
            "Checking files ...\r\n"
            "Warning screenshot 'Oasis.jpg' not found. JPG file required.\r\n"
            "Unable to continue 1 screen shot(s) not found!\r\n");
  EXPECT_THAT(center.PostsTo("/upload.php"), IsEmpty());
}

TEST_F(UploadTest, APictureOver102400BytesEndsTheRun) {
  PutMap("Oasis");
  WriteFile(MapPath("Oasis.jpg"), kPicture + std::string(102400, 'x'));
  Start();
  EXPECT_EQ(LogBehindStart(),
            "Checking files ...\r\n"
            "Warning screenshot 'Oasis.jpg' is larger than 100 KB.\r\n"
            "Unable to continue 1 screen shot(s) not found!\r\n");
}

TEST_F(UploadTest, ALinkedGifPassesForThePictureAndIsSent) {
  PutMap("Oasis");
  native_files.Delete(MapPath("Oasis.jpg"));
  WriteFile(Path("shot.gif"), "GIF89a shot");
  WriteNumberedSetting(setting::kPreviewPicture, "Oasis.bms", Path("shot.gif"));
  Start();
  ASSERT_EQ(center.Taken().size(), 1U);
  EXPECT_EQ(center.Taken()[0]["image"], "GIF89a shot");
}

TEST_F(UploadTest, ALinkedBitmapIsNoPictureForTheSite) {
  PutMap("Oasis");
  native_files.Delete(MapPath("Oasis.jpg"));
  WriteFile(Path("shot.bmp"), "BM shot");
  WriteNumberedSetting(setting::kPreviewPicture, "Oasis.bms", Path("shot.bmp"));
  Start();
  EXPECT_THAT(LogText(), testing::HasSubstr("Warning screenshot 'Oasis.jpg' not found. JPG file required.\r\n"));
}

TEST_F(UploadTest, AZipOf51200BytesGoesWithoutAWarning) {
  PutMap("Oasis");
  WriteFile(MapPath("Oasis.zip"), BuildZip({{"Oasis.bms", "BMS" + std::string(51200 - 3 - 30 - 46 - 22 - 18, '\0')}}));
  ASSERT_EQ(ReadFile(MapPath("Oasis.zip")).size(), 51200U);
  desktop.dialogs().ExpectInput(
      "Map name Error:\r\nmap: oasis.bms\r\nHas not the same mission name: \r\nPlease enter a valid name for this map",
      "Oasis");
  Start();
  EXPECT_THAT(LogText(), testing::Not(testing::HasSubstr("larger")));
}

TEST_F(UploadTest, AZipOver51200BytesGetsAWarningAndIsUploadedAllTheSame) {
  PutMap("Oasis");
  WriteFile(MapPath("Oasis.zip"), MissionZip("Oasis") + std::string(51201, ' '));
  Start();
  EXPECT_THAT(LogText(), testing::HasSubstr("Warning map 'Oasis.zip' is larger than 51 KB.\r\n"
                                            "1 files checked no missing screen shots.\r\nOK\r\n"));
  EXPECT_THAT(TakenNames(), ElementsAre("Oasis"));
}

// ---- the map's name ------------------------------------------------------------------------------------------------

TEST_F(UploadTest, AFileNameWithTheMissionNameInAnyCaseNeedsNoQuestion) {
  PutMap("my OASIS final");
  WriteFile(MapPath("my OASIS final.zip"), MissionZip("Oasis", "my OASIS final.bms"));
  Start();
  EXPECT_THAT(TakenNames(), ElementsAre("Oasis"));
}

TEST_F(UploadTest, AMissionNameWithSquareBracketsIsSentWithoutThem) {
  PutMap("[CTF] Oasis");
  Start();
  EXPECT_THAT(TakenNames(), ElementsAre("CTF Oasis"));
}

TEST_F(UploadTest, AnotherMissionNameIsAskedAboutUntilThereIsAnAnswer) {
  PutMap("Oasis");
  WriteFile(MapPath("Oasis.zip"), MissionZip("Desert"));
  const std::string question =
      "Map name Error:\r\nmap: oasis.bms\r\nHas not the same mission name: Desert\r\n"
      "Please enter a valid name for this map";
  desktop.dialogs().ExpectInput(question, std::nullopt).WithPreset("Desert");
  desktop.dialogs().ExpectInput(question, "");
  desktop.dialogs().ExpectInput(question, "What's \"this\"? */\\ a name of more than 32 characters");
  Start();
  EXPECT_THAT(TakenNames(), ElementsAre("Whats this  a name of more than "));
}

TEST_F(UploadTest, AMissionWithoutANameIsAskedAbout) {
  PutMap("Oasis");
  WriteFile(MapPath("Oasis.zip"), MissionZip(""));
  desktop.dialogs().ExpectInput(
      "Map name Error:\r\nmap: oasis.bms\r\nHas not the same mission name: \r\nPlease enter a valid name for this map",
      "Oasis 2");
  Start();
  EXPECT_THAT(TakenNames(), ElementsAre("Oasis 2"));
}

// ---- what is in the zip --------------------------------------------------------------------------------------------

TEST_F(UploadTest, TheFirstMissionThatCanBeReadIsTaken) {
  PutMap("Oasis");
  MissionFields fields;
  fields.mission_name = "Oasis";
  WriteFile(MapPath("Oasis.zip"),
            BuildZip({{"broken.bms", "no mission"}, {"maps/Oasis.BMS", std::string(AsChars(WriteMission(fields)))}}));
  desktop.dialogs().ExpectBox("This map is not a BMS file");
  Start();
  EXPECT_THAT(LogText(), testing::HasSubstr("Could not extract mission info broken.bms\r\nUPLOADING Oasis.zip\r\n"));
  EXPECT_THAT(TakenNames(), ElementsAre("Oasis"));
}

TEST_F(UploadTest, AZipWithoutAMissionIsLeftOutAndTheNextMapFollows) {
  PutMap("Arena");
  PutMap("Oasis");
  WriteFile(MapPath("Arena.zip"), BuildZip({{"readme.txt", "no map"}}));
  Start();
  EXPECT_THAT(LogText(), testing::HasSubstr("Errors zip file " + MapPath("Arena.zip") + "\r\nUPLOADING Oasis.zip\r\n"));
  EXPECT_THAT(TakenNames(), ElementsAre("Oasis"));
  EXPECT_EQ(Open().txtstatus.Text.get(), "1 of 2 maps uploaded.");
}

TEST_F(UploadTest, AMemberThatLeadsOutOfTheFolderIsNotUnpackedThere) {
  PutMap("Oasis");
  WriteFile(Path("temp\\evil.bms"), "mine");
  WriteFile(MapPath("Oasis.zip"), BuildZip({{"../evil.bms", "BMS evil"}}));
  desktop.dialogs().ExpectBox("error writing file");
  Start();
  EXPECT_EQ(ReadFile(Path("temp\\evil.bms")), "mine");
  EXPECT_THAT(LogText(), testing::HasSubstr("Could not extract mission info ../evil.bms\r\nErrors zip file "));
}

// ---- comments ------------------------------------------------------------------------------------------------------

TEST_F(UploadTest, CommentsOf513CharactersGetAWarningAndGoAllTheSame) {
  PutMap("Oasis");
  const std::string comments = std::string(510, 'c') + "\r\n";
  WriteFile(MapPath("Oasis.txt"), comments + "x\r\n[ADDONS]\r\n" + std::string(511, 'a') + "\r\n");
  Start();
  EXPECT_THAT(LogText(), testing::HasSubstr("Warning comments too long " + MapPath("Oasis.txt") +
                                            "\r\nWarning addons too long " + MapPath("Oasis.txt") + "\r\nUPLOADING"));
  ASSERT_EQ(center.Taken().size(), 1U);
  EXPECT_EQ(center.Taken()[0]["comments"], comments + "x\r\n");
}

TEST_F(UploadTest, CommentsOf512CharactersGetNoWarning) {
  PutMap("Oasis");
  WriteFile(MapPath("Oasis.txt"), std::string(510, 'c') + "\r\n[ADDONS]\r\n" + std::string(510, 'a') + "\r\n");
  Start();
  EXPECT_THAT(LogText(), testing::Not(testing::HasSubstr("too long")));
}

// ---- the site's answers --------------------------------------------------------------------------------------------

TEST_F(UploadTest, AReplyWithoutTheSuccessMarkStandsInTheLogAndTheNextMapFollows) {
  PutMap("Arena");
  PutMap("Oasis");
  center.answer = [](const TakenMap& map) {
    return map["mapname"] == "Arena" ? std::string("[UPLOAD FAILED]\nthe map exists") : MappingCenter::kTaken;
  };
  Start();
  EXPECT_THAT(LogText(),
              testing::HasSubstr("UPLOADING Arena.zip\r\nSERVER RESPONS:\r\n[UPLOAD FAILED]\r\nthe map exists\r\n"
                                 "UPLOADING Oasis.zip\r\nSERVER RESPONS:\r\n[UPLOAD SUCCESS] Thank you.\r\n"));
  EXPECT_EQ(Open().txtstatus.Text.get(), "1 of 2 maps uploaded.");
}

TEST_F(UploadTest, AServerThatDiesInTheMiddleIsLoggedForEachMapThatItDidNotTake) {
  for (const char* map : {"Arena", "Desert", "Oasis"}) PutMap(map);
  center.uploads_until_death = 1;
  Start();
  EXPECT_THAT(TakenNames(), ElementsAre("Arena"));
  EXPECT_THAT(LogText(), testing::HasSubstr("UPLOADING Desert.zip\r\nSERVER RESPONS:\r\n\r\nuploading map " +
                                            MapPath("Desert.zip") +
                                            " failed!\r\nUPLOADING Oasis.zip\r\nSERVER RESPONS:\r\n\r\n"
                                            "uploading map " +
                                            MapPath("Oasis.zip") + " failed!\r\n"));
  EXPECT_EQ(Open().txtstatus.Text.get(), "1 of 3 maps uploaded.");
}

TEST_F(UploadTest, AHundredMapsArriveInTheOrderOfTheList) {
  std::vector<std::string> names;
  for (int map = 100; map < 200; ++map) names.push_back("map " + std::to_string(map));
  for (const std::string& name : names) PutMap(name);
  Start();
  EXPECT_EQ(TakenNames(), names);
  EXPECT_THAT(center.Faults(), IsEmpty());
  EXPECT_EQ(Open().txtstatus.Text.get(), "100 of 100 maps uploaded.");
}

TEST_F(UploadTest, ThePasswordGoesIntoNoLogEvenWhereTheSiteSendsItBack) {
  PutMap("Oasis");
  center.answer = [](const TakenMap&) { return std::string("no user neo with sesame (c2VzYW1l)"); };
  Start();
  EXPECT_THAT(LogText(), testing::HasSubstr("no user neo with **** (****)\r\n"));
  EXPECT_THAT(ReadFile(MapPath("upload.log")), testing::Not(testing::HasSubstr("sesame")));
}

TEST_F(UploadTest, AnotherFirstLineThanOkLeavesTheGamesEmptyAndShowsNothing) {
  center.games = "OKAY\nDelta Force\n";
  EXPECT_EQ(Open().CmbGames.ListCount(), 0);
}

TEST_F(UploadTest, AnEmptyAnswerForTheGamesIsTold) {
  center.games = "";
  desktop.dialogs().ExpectBox("Connect error: cannot connect to the mapping center. Please wait and try again later.");
  Open();
}

TEST_F(UploadTest, ASiteThatCannotBeReachedIsToldAndNothingIsSent) {
  desktop.internet().transport = nullptr;
  PutMap("Oasis");
  for (int time = 0; time < 2; ++time) {
    desktop.dialogs().ExpectBox(
        "Unable to load map center location. Make sure you are connected to the internet and kestrun can access it.");
  }
  Start();  // asks once more for the place to send the maps to
  EXPECT_TRUE(LogText().ends_with("\r\nOK\r\n")) << LogText();
}

// ---- the way out ---------------------------------------------------------------------------------------------------

TEST_F(UploadTest, CancelTakesEffectBetweenTwoMaps) {
  for (const char* map : {"Arena", "Desert", "Oasis"}) PutMap(map);
  Open().txtLog.Change = [this] {
    if (LogText().ends_with("UPLOADING Desert.zip\r\n")) Open().CmdCancel.Press();
  };
  Start();
  EXPECT_THAT(TakenNames(), ElementsAre("Arena", "Desert"));
  EXPECT_TRUE(LogText().ends_with("UPLOADING Desert.zip\r\nSERVER RESPONS:\r\n[UPLOAD SUCCESS] Thank you.\r\n"));
  Open().txtLog.Change = nullptr;
  Start();
  EXPECT_EQ(center.Taken().size(), 5U) << "the next start begins anew";
}

TEST_F(UploadTest, TheButtonsFollowTheRun) {
  PutMap("Oasis");
  Open();
  EXPECT_TRUE(Open().Command1.Enabled);
  EXPECT_FALSE(Open().CmdCancel.Enabled);
  bool has_looked = false;
  Open().txtLog.Change = [&] {
    has_looked = true;
    EXPECT_FALSE(Open().Command1.Enabled);
    EXPECT_TRUE(Open().CmdCancel.Enabled);
  };
  Start();
  EXPECT_TRUE(has_looked);
  EXPECT_TRUE(Open().Command1.Enabled);
  EXPECT_FALSE(Open().CmdCancel.Enabled);
}

TEST_F(UploadTest, ASecondStartDuringARunDoesNothing) {
  PutMap("Oasis");
  Open().txtLog.Change = [this] { Open().UploadAll(); };
  Start();
  EXPECT_EQ(center.Taken().size(), 1U);
}

TEST_F(UploadTest, ALogOver65000CharactersRestartsInTheBoxWhileTheFileKeepsEverything) {
  PutMap("Arena");
  PutMap("Oasis");
  const std::string page(64900, 'x');
  center.answer = [&](const TakenMap&) { return page; };
  Start();
  const std::string reply = "SERVER RESPONS:\r\n" + page;
  EXPECT_TRUE(LogText() == "Log cleared." + reply + "\r\n") << LogText().size();
  const std::string file = ReadFile(MapPath("upload.log"));
  EXPECT_TRUE(file.starts_with(">> Start uploading ")) << file.substr(0, 100);
  const bool has_all =
      file.ends_with("UPLOADING Arena.zip\r\n" + reply + "\r\nUPLOADING Oasis.zip\r\n" + reply + "\r\n");
  EXPECT_TRUE(has_all) << file.size();
}

// ---- a server that never answers -----------------------------------------------------------------------------------

class SilentSiteTest : public UploadTest {
 protected:
  SilentSiteTest() {
    desktop.internet().transport = nullptr;
    PutSite();
    desktop.internet().silent.insert("http://center.example/upload.php");
    PutMap("Arena");
    PutMap("Oasis");
  }
};

TEST_F(SilentSiteTest, EscLeavesTheMapThatIsBeingSentAndEndsTheRun) {
  static_cast<void>(desktop.clock().StartTimer(500, [this] {
    if (!Open().CmdCancel.Enabled) return;
    int key = key::kEscape;
    Open().KeyDown(key, 0);
  }));
  Start();
  EXPECT_EQ(desktop.internet().requests.back().url, "http://center.example/upload.php");
  EXPECT_TRUE(LogText().ends_with("UPLOADING Arena.zip\r\nSERVER RESPONS:\r\n\r\nuploading map " +
                                  MapPath("Arena.zip") + " failed!\r\n"))
      << LogText();
  EXPECT_EQ(Open().txtstatus.Text.get(), "0 of 2 maps uploaded.");
}

TEST_F(SilentSiteTest, ClosingTheWindowEndsTheRun) {
  Open();
  static_cast<void>(desktop.clock().StartTimer(500, [] {
    if (Form* window = LoadedWindow(FrmCenter::kName)) window->Unload();
  }));
  Start();
  EXPECT_EQ(LoadedWindow(FrmCenter::kName), nullptr);
  EXPECT_FALSE(FileIsThere(Path("temp\\kestrun")));
}

TEST_F(SilentSiteTest, TheWindowStaysUsableWhileAMapIsBeingSent) {
  int times = 0;
  static_cast<void>(desktop.clock().StartTimer(100, [&] {
    if (!Open().CmdCancel.Enabled) return;
    EXPECT_EQ(Open().txtstatus.Text.get(), "Uploading map 1 of 2: Arena.zip. Esc stops at once.");
    int key = key::kEscape;
    if (++times == 20) Open().KeyDown(key, 0);
  }));
  Start();
  EXPECT_EQ(times, 20);
}

}  // namespace
}  // namespace kestrun
