#include "windows/open_map/frmopenmap.h"

#include <algorithm>

#include "base/code_page.h"
#include "maps/fetch/frmzip.h"
#include "program/commands.h"
#include "program/start_up.h"
#include "program/style_hook.h"
#include "support/access_keys.h"
#include "support/zip_builder.h"
#include "windows/open_map/open_map_fixture.h"
#include "windows/splash/frmsplash.h"

namespace kestrun {
namespace {

constexpr const char* kOtherFile =
    "Warning a BMS mission file or a zip file is necessary! If you try to use other files that aren't BMS files your "
    "game can be damaged!!!\r\ncontinue?";

class LoadMapWindowTest : public OpenMapTest {
 protected:
  ~LoadMapWindowTest() override { InstallStyleRuntime({}); }

  // A small bitmap that is stored as the map's picture, under the map's bare name.
  void GivePicture(const std::string& map) {
    std::string bitmap("BM\x3E\0\0\0\0\0\0\0\x36\0\0\0\x28\0\0\0\2\0\0\0\1\0\0\0\1\0\x18\0", 30);
    bitmap += std::string(24, '\0') + std::string("\1\2\3\4\5\6\0\0", 8);
    desktop.shell().temporary_folder = Path("temp");
    desktop.internet().Reply("http://pictures.example/oasis.bmp", bitmap);
    WriteIni("[IMAGE]\r\n" + map + "=http://pictures.example/oasis.bmp\r\n");
  }
};

// ---- loading -------------------------------------------------------------------------------------------------------

TEST_F(LoadMapWindowTest, OpenedByItsOptionTheAddressIsEmptyWithoutAWarningOrAPicture) {
  EXPECT_EQ(ProcessCommand("-open"), kCommandCarriedOut);
  EXPECT_TRUE(Open().IsShown());
  EXPECT_EQ(Open().TxtFile.Text.get(), "");
  EXPECT_FALSE(Open().ImgPreview.Picture.get());
  EXPECT_EQ(Open().ActiveControl(), &Open().TxtFile);
}

TEST_F(LoadMapWindowTest, TheOptionUrlOpensItAsWell) {
  EXPECT_EQ(ProcessCommand("-url"), kCommandCarriedOut);
  EXPECT_TRUE(Open().IsShown());
}

TEST_F(LoadMapWindowTest, AMapOpensWithoutAQuestion) {
  EXPECT_TRUE(OpenWith(MapPath("Oasis.bms")).IsShown());
  EXPECT_EQ(Open().TxtFile.Text.get(), MapPath("Oasis.bms"));
}

TEST_F(LoadMapWindowTest, AnotherFileIsAskedAboutAndYesOpensIt) {
  ExpectQuestion(kOtherFile, BoxAnswer::kYes, BoxIcon::kWarning);
  EXPECT_TRUE(OpenWith("C:\\notes.txt").IsShown());
}

TEST_F(LoadMapWindowTest, NoClosesTheWindowAtOnceAndKeepsTheStoredChoices) {
  WriteIni("[launcher]\r\nOPTIONS0=True\r\nOPTIONS1=False\r\ntxtoutputtext=MINE.BMS\r\n");
  static_cast<frmopenmap&>(WindowBeforeLoad("frmopenmap")).TxtFile.Text = std::string("C:\\notes.txt");
  ExpectQuestion(kOtherFile, BoxAnswer::kNo, BoxIcon::kWarning);
  static_cast<void>(ShowWindow("frmopenmap"));
  EXPECT_EQ(LoadedWindow("frmopenmap"), nullptr);
  EXPECT_EQ(Ini("launcher", "OPTIONS0"), "True");
  EXPECT_EQ(Ini("launcher", "txtoutputtext"), "MINE.BMS");
}

TEST_F(LoadMapWindowTest, AnEndingInAFolderNamePassesTheTest) {
  EXPECT_TRUE(OpenWith("C:\\my.bms.files\\notes.txt").IsShown());
}

TEST_F(LoadMapWindowTest, TheTestKnowsTheEndingsInSmallAndInCapitalLettersOnly) {
  EXPECT_TRUE(OpenWith("C:\\A.ZIP").IsShown());
  Open().Unload();
  EXPECT_TRUE(OpenWith("C:\\A.BMS").IsShown());
  Open().Unload();
  ExpectQuestion(kOtherFile, BoxAnswer::kYes, BoxIcon::kWarning);
  EXPECT_TRUE(OpenWith("C:\\A.Bms").IsShown());
}

TEST_F(LoadMapWindowTest, AStartWithAMapOpensThisWindowAlone) {
  WriteIni("[launcher]\r\nFIRSTRUN=False\r\n");
  desktop.program().command_line = "\"" + MapPath("Oasis.bms") + "\"";
  static_cast<void>(WindowByName("frmsplash"));
  EXPECT_EQ(Open().TxtFile.Text.get(), MapPath("Oasis.bms"));
  EXPECT_TRUE(Open().IsShown());
  EXPECT_EQ(LoadedWindow("frmain"), nullptr);
  EXPECT_EQ(LoadedWindow("frmsplash"), nullptr);
}

TEST_F(LoadMapWindowTest, AStartWithAnotherFileAsksBeforeTheWindowIsSeen) {
  WriteIni("[launcher]\r\nFIRSTRUN=False\r\n");
  desktop.program().command_line = "C:\\notes.txt";
  desktop.dialogs().ExpectBox(kOtherFile, BoxAnswer::kNo);
  static_cast<void>(WindowByName("frmsplash"));
  EXPECT_TRUE(LoadedWindows().empty());
  EXPECT_EQ(desktop.windowing().shown_forms, std::vector<std::string>{"frmsplash"});
}

TEST_F(LoadMapWindowTest, ALinkOfTheProgramsProtocolBringsItsAddress) {
  WriteIni("[launcher]\r\nFIRSTRUN=False\r\n");
  desktop.program().command_line = std::string("kestrun://") + kUrl;
  static_cast<void>(WindowByName("frmsplash"));
  EXPECT_EQ(Open().TxtFile.Text.get(), kUrl);
}

TEST_F(LoadMapWindowTest, TheStoredChoicesComeBack) {
  WriteIni("[launcher]\r\nOPTIONS0=False\r\nOPTIONS1=False\r\nOPTIONS3=True\r\ntxtoutputtext=MINE.BMS\r\n");
  Open().Show();
  EXPECT_FALSE(Open().options0.Value);
  EXPECT_FALSE(Open().options1.Value);
  EXPECT_TRUE(Open().options3.Value);
  EXPECT_EQ(Open().txtrename.Text.get(), "MINE.BMS");
}

TEST_F(LoadMapWindowTest, CaptureTheFlagIsChosenAtFirstAndClosingStoresTheChoices) {
  Open().Show();
  EXPECT_TRUE(Open().options1.Value);
  Open().options0.Press();
  Open().txtrename.Text = std::string("X.BMS");
  Open().Unload();
  EXPECT_EQ(Ini("launcher", "OPTIONS0"), "True");
  EXPECT_EQ(Ini("launcher", "OPTIONS1"), "False");
  EXPECT_EQ(Ini("launcher", "OPTIONS3"), "False");
  EXPECT_EQ(Ini("launcher", "txtoutputtext"), "X.BMS");
}

TEST_F(LoadMapWindowTest, AChoiceThatIsNoTruthValueIsReportedAndTheWindowOpens) {
  WriteIni("[launcher]\r\nOPTIONS0=perhaps\r\n");
  desktop.dialogs().ExpectBox("Error: 13\r\nType mismatch");
  Open().Show();
  EXPECT_TRUE(Open().IsShown());
}

// The other choices were lost with the broken one, and the box came again each time, since nothing was stored either.
TEST_F(LoadMapWindowTest, ABrokenChoiceTakesNoOtherWithItAndClosingMendsIt) {
  WriteIni("[launcher]\r\nOPTIONS0=perhaps\r\nOPTIONS1=False\r\nOPTIONS3=True\r\ntxtoutputtext=MINE.BMS\r\n");
  desktop.dialogs().ExpectBox("Error: 13\r\nType mismatch");
  Open().Show();
  EXPECT_TRUE(Open().options3.Value);
  EXPECT_EQ(Open().txtrename.Text.get(), "MINE.BMS");
  Open().Unload();
  EXPECT_EQ(Ini("launcher", "OPTIONS0"), "False");
  EXPECT_EQ(Ini("launcher", "OPTIONS3"), "True");
  EXPECT_EQ(Ini("launcher", "txtoutputtext"), "MINE.BMS");
}

TEST_F(LoadMapWindowTest, AStyleIsAppliedOnceAfterLoading) {
  int applied = 0;
  InstallStyleRuntime({[] { return true; }, {}, [&](Form&) { ++applied; }});
  Open().Show();
  EXPECT_EQ(applied, 0);
  desktop.clock().AdvanceMs(55);
  EXPECT_EQ(applied, 1);
  desktop.clock().AdvanceMs(1000);
  EXPECT_EQ(applied, 1);
}

TEST_F(LoadMapWindowTest, AStyleThatFailsIsReportedUnderItsContext) {
  InstallStyleRuntime({[] { return true; }, {}, [](Form&) { Raise(error::kTypeMismatch); }});
  Open().Show();
  desktop.dialogs().ExpectBox("Error: Apply style 13\r\nType mismatch");
  desktop.clock().AdvanceMs(55);
}

TEST_F(LoadMapWindowTest, WithoutAStyleTheTimerStaysOff) {
  Open().Show();
  EXPECT_FALSE(Open().Timer1.Enabled);
  EXPECT_EQ(Open().Timer1.Interval, 55);
}

// ---- words and keys ------------------------------------------------------------------------------------------------

TEST_F(LoadMapWindowTest, CaptionsAndTipsAreThoseThatPlayersKnow) {
  EXPECT_EQ(Open().Caption.get(), "Kestrun - Open Map");
  EXPECT_EQ(Open().Label1.Caption.get(), "Please enter a &file name or url (http://)");
  EXPECT_EQ(Open().TxtFile.ToolTipText.get(), "Enter the file location on your computer or internet here.");
  EXPECT_EQ(Open().CmdBrowse.ToolTipText.get(), "Browse for other file.");
  EXPECT_EQ(Open().options0.Caption.get(), "&Deathmatch (Death valley)");
  EXPECT_EQ(Open().options0.ToolTipText.get(), "Insert as deathmatch");
  EXPECT_EQ(Open().options1.Caption.get(), "&Capture the flag (Desert Prison)");
  EXPECT_EQ(Open().options1.ToolTipText.get(), "Insert as capture the flag.");
  EXPECT_EQ(Open().options3.Caption.get(), "&Rename:");
  EXPECT_EQ(Open().options3.ToolTipText.get(), "Insert using other name.");
  EXPECT_EQ(Open().cmdputin.Caption.get(), "Put &map in DFLW");
  EXPECT_EQ(Open().cmdputin.ToolTipText.get(), "Insert map in DFLW");
  EXPECT_EQ(Open().cmdplaying.Caption.get(), "I'm already &playing");
  EXPECT_EQ(Open().cmdplaying.ToolTipText.get(), "Insert map in DFLW while you are playing.");
  EXPECT_EQ(Open().Command1.Caption.get(), "&Launch DFLW");
  EXPECT_EQ(Open().Command1.ToolTipText.get(), "Open DFLW.");
  EXPECT_EQ(Open().ImgPreview.ToolTipText.get(), "Map preview");
  EXPECT_EQ(Open().Label3.Caption.get(), "Pre&view");
  EXPECT_EQ(Open().Label2.Caption.get(), "&Tasks");
}

TEST_F(LoadMapWindowTest, EachAccessKeyOfTheWindowIsThereOnce) { EXPECT_EQ(AccessKeys(Open()), "fbidcrmpltv"); }

TEST_F(LoadMapWindowTest, WithoutAPictureThePlaceOfThePreviewSaysSo) {
  GivePicture("Oasis.bms");
  OpenWith(MapPath("Desert.bms"));
  EXPECT_TRUE(Open().lblnopreview.Visible);
  EXPECT_EQ(Open().lblnopreview.Caption.get(), "No preview");
  Open().TxtFile.Text = MapPath("Oasis.bms");
  ASSERT_TRUE(Open().ImgPreview.Picture.get());
  EXPECT_FALSE(Open().lblnopreview.Visible);
}

TEST_F(LoadMapWindowTest, AZipShowsThePictureOfTheMapOfItsName) {
  GivePicture("Oasis.bms");
  OpenWith(MapPath("Oasis.zip"));
  EXPECT_TRUE(Open().ImgPreview.Picture.get());
}

TEST_F(LoadMapWindowTest, APictureFromTheWebIsShownComingAndEscLeavesTheWindowWithoutIt) {
  GivePicture("Oasis.bms");
  desktop.internet().leave_after_bytes = 0;
  std::vector<std::string> words;
  Open().txtstatus.Change = [&] { words.push_back(Open().txtstatus.Text); };
  OpenWith(MapPath("Oasis.bms"));
  ASSERT_FALSE(words.empty());
  EXPECT_EQ(words.front(), "Fetching oasis.bmp from pictures.example: waiting for the server. Esc cancels.");
  EXPECT_FALSE(Open().ImgPreview.Picture.get());
  EXPECT_FALSE(Open().prgfetch.Visible);
}

TEST_F(LoadMapWindowTest, AMapOutOfAZipBringsItsPictureAlong) {
  GivePicture("Oasis.bms");
  WriteFile(MapPath("Pack.zip"), BuildZip({{"Oasis.bms", "BMS oasis"}}));
  OpenWith(MapPath("Pack.zip"));
  EXPECT_FALSE(Open().ImgPreview.Picture.get());
  ExpectZipQuestion(BoxAnswer::kYes);
  desktop.windowing().ExpectModal("frmzip", [](Form& form) {
    auto& choice = static_cast<frmzip&>(form);
    choice.LstZip.SetListIndex(0);
    choice.Command1.Press();
  });
  desktop.dialogs().ExpectBox("Successfully packed map");
  Open().cmdplaying.Press();
  EXPECT_TRUE(Open().ImgPreview.Picture.get());
}

TEST_F(LoadMapWindowTest, TheNameBoxShowsHowMuchOfTheArchivesNameFieldIsUsed) {
  OpenWith(MapPath("Oasis.bms")).txtrename.Text = std::string("MINE.BMS");
  EXPECT_EQ(Open().lblnamelength.Caption.get(), "8 / 16");
  Open().txtrename.Text = std::string("SEVENTEEN_LET.BMS");
  EXPECT_EQ(Open().lblnamelength.Caption.get(), "17 / 16");
}

TEST_F(LoadMapWindowTest, TheTasksAreOneControlArray) {
  const std::vector<std::string> expected{"View map info",     "Add to auto host list", "Play this map",
                                          "Download this map", "Upload this map",       "Open Kestrun"};
  std::vector<std::string> captions;
  for (int32_t task = 0; task < 6; ++task) {
    captions.push_back(ToText(GetMember(*GetMember(Open(), "LblTask", {task}).object(), "Caption")));
  }
  EXPECT_EQ(captions, expected);
}

TEST_F(LoadMapWindowTest, TheOptionsHaveNoIndexTwo) {
  EXPECT_NO_THROW(static_cast<void>(GetMember(Open(), "options", {int32_t{3}})));
  EXPECT_THROW(static_cast<void>(GetMember(Open(), "options", {int32_t{2}})), RuntimeError);
}

TEST_F(LoadMapWindowTest, TheTaskUnderTheMouseStandsOut) {
  Open().Show();
  Open().LblTask[3]->MouseMove(0, 0, 10, 10);
  for (size_t task = 0; task < 6; ++task) {
    EXPECT_EQ(Open().LblTask[task]->Font->bold, task == 3);
    EXPECT_EQ(Open().LblTask[task]->Font->underline, task == 3);
  }
  Open().PctTasks.MouseMove(0, 0, 10, 10);
  EXPECT_FALSE(Open().LblTask[3]->Font->bold);
  EXPECT_FALSE(Open().LblTask[3]->Font->underline);
}

TEST_F(LoadMapWindowTest, TheKeyboardReachesEveryControlInReadingOrder) {
  RegisterOthers();
  Open().Show();
  std::vector<std::string> names;
  for (const Control* control : Open().TabOrder()) names.push_back(control->Name());
  const std::vector<std::string> expected{"TxtFile",  "CmdBrowse",  "options",  "options", "options", "txtrename",
                                          "cmdputin", "cmdplaying", "Command1", "LblTask", "LblTask", "LblTask",
                                          "LblTask",  "LblTask",    "LblTask",  "Label3"};
  EXPECT_EQ(names, expected);
  Open().LblTask[2]->SetFocus();
  EXPECT_TRUE(Open().LblTask[2]->Font->bold);
  Open().TxtFile.SetFocus();
  EXPECT_FALSE(Open().LblTask[2]->Font->bold);
}

TEST_F(LoadMapWindowTest, TheKeyboardDoesNotStopAtAPreviewThatNothingCanShow) {
  Open().Show();
  const std::vector<Control*> stops = Open().TabOrder();
  EXPECT_EQ(std::find(stops.begin(), stops.end(), &Open().Label3), stops.end());
  EXPECT_TRUE(Open().Label3.Enabled);
}

TEST_F(LoadMapWindowTest, EscClosesTheWindow) {
  Open().Show();
  int key = 27;
  Open().KeyDown(key, 0);
  EXPECT_EQ(LoadedWindow("frmopenmap"), nullptr);
}

// ---- address and picture -------------------------------------------------------------------------------------------

TEST_F(LoadMapWindowTest, ADroppedFileBecomesTheAddress) {
  Open().Show();
  DropFiles(Open(), {MapPath("Oasis.bms"), MapPath("Other.bms")});
  EXPECT_EQ(Open().TxtFile.Text.get(), MapPath("Oasis.bms"));
}

TEST_F(LoadMapWindowTest, BrowsingTakesTheChosenFileAndCancellingChangesNothing) {
  Open().Show();
  desktop.dialogs()
      .ExpectFile(MapPath("Oasis.bms"))
      .WithTitle("Select file on your PC")
      .WithFilter(
          "All supported files (*.bms, *.zip)|*.bms;*.zip|Binary mission files (*.bms)|*.bms|Zip files "
          "(*.zip)|*.zip|All files (*.*)|*.*|");
  Open().CmdBrowse.Press();
  EXPECT_EQ(Open().TxtFile.Text.get(), MapPath("Oasis.bms"));
  desktop.dialogs().ExpectFile(std::nullopt);
  Open().CmdBrowse.Press();
  EXPECT_EQ(Open().TxtFile.Text.get(), MapPath("Oasis.bms"));
}

TEST_F(LoadMapWindowTest, ANewAddressBringsItsPictureAndOneWithoutAPictureTakesItAway) {
  GivePicture("Oasis.bms");
  Open().Show();
  Open().TxtFile.Text = MapPath("Oasis.bms");
  ASSERT_TRUE(Open().ImgPreview.Picture.get());
  EXPECT_EQ(Open().ImgPreview.Picture.get()->width_pixels(), 2);
  Open().TxtFile.Text = MapPath("Other.bms");
  EXPECT_FALSE(Open().ImgPreview.Picture.get());
}

TEST_F(LoadMapWindowTest, AClickOnThePictureShowsItLarge) {
  RegisterOthers();
  GivePicture("Oasis.bms");
  OpenWith(MapPath("Oasis.bms"));
  desktop.windowing().ExpectModal("frmLargeprev", [this](Form& form) {
    auto& window = static_cast<FakeLargePreview&>(form);
    EXPECT_EQ(window.Picture1.Picture.get(), Open().ImgPreview.Picture.get());
    EXPECT_EQ(window.Width, 60 + 3000 + 250);
    EXPECT_EQ(window.Height, 60 + 2000 + 500);
    window.Unload();
  });
  Open().ImgPreview.Click();
}

TEST_F(LoadMapWindowTest, WithoutAPictureAClickLetsTheUserAttachOne) {
  RegisterOthers();
  OpenWith(MapPath("Oasis.bms"));
  Open().Label3.Click();
  ASSERT_NE(LoadedWindow("frmpicture"), nullptr);
  EXPECT_TRUE(LoadedWindow("frmpicture")->IsShown());
  EXPECT_EQ(static_cast<FakePreviewManager*>(LoadedWindow("frmpicture"))->lblmap.Caption.get(), MapPath("Oasis.bms"));
}

TEST_F(LoadMapWindowTest, APictureCanBeAttachedToAnAddressOnTheWeb) {
  RegisterOthers();
  OpenWith(kUrl);
  Open().ImgPreview.Click();
  ASSERT_NE(LoadedWindow("frmpicture"), nullptr);
}

TEST_F(LoadMapWindowTest, WithoutAPictureAndWithoutAFileAClickDoesNothing) {
  RegisterOthers();
  OpenWith("C:\\nowhere.bms");
  Open().ImgPreview.Click();
  Open().TxtFile.Text = std::string();
  Open().ImgPreview.Click();
  EXPECT_EQ(LoadedWindow("frmpicture"), nullptr);
}

// ---- long paths ----------------------------------------------------------------------------------------------------

class LongAddressTest : public LoadMapWindowTest {
 protected:
  LongAddressTest() {
    while (EncodeText(folder).size() < 300) {
      folder += "\\a folder inside a folder inside a folder";
      native_files.MakeFolder(folder);
    }
    WriteFile(folder + "\\Far.bms", "BMS far");
    WriteFile(folder + "\\Far.zip", BuildZip({{"Far.bms", "BMS far"}}));
  }

  std::string folder = Path("maps");
};

TEST_F(LongAddressTest, ItsMapIsPutInDownloadedAndDescribed) {
  OpenWith(folder + "\\Far.bms");
  desktop.dialogs().ExpectBox("Successfully packed map");
  Open().cmdputin.Press();
  EXPECT_EQ(EntryOf(GamePath("dflw.pff"), "D08M03.BMS"), "BMS far");
  desktop.dialogs().ExpectBox("This will download or copy the map to the default map folder continue?",
                              BoxAnswer::kYes);
  Open().SaveMapAs();
  EXPECT_EQ(ReadFile(DefaultMapPath("Far.bms")), "BMS far");
  Open().ShowMapInfo();
  EXPECT_EQ(LoadedWindow("frmmapinfo")->Caption.get(), "Map info Far.bms");
}

TEST_F(LongAddressTest, ItsZipIsOpened) {
  OpenWith(folder + "\\Far.zip");
  ExpectZipQuestion(BoxAnswer::kYes);
  desktop.windowing().ExpectModal("frmzip", [](Form& form) {
    auto& choice = static_cast<frmzip&>(form);
    choice.LstZip.SetListIndex(0);
    choice.Command1.Press();
  });
  desktop.dialogs().ExpectBox("Successfully packed map");
  Open().cmdputin.Press();
  EXPECT_EQ(EntryOf(GamePath("dflw.pff"), "D08M03.BMS"), "BMS far");
}

}  // namespace
}  // namespace kestrun
