// The uploader's window: what it shows of a folder, keeps, opens and saves, and its operations by name.
#include "base/text.h"
#include "forms/keys.h"
#include "program/style_hook.h"
#include "windows/main/frmain.h"
#include "windows/upload/upload_fixture.h"

namespace kestrun {
namespace {

using testing::ElementsAre;

TEST_F(UploadTest, TheListShowsBesideEachMapWhatThereIsBeforeAnythingIsSent) {
  PutMap("Arena");
  PutZip("Desert");
  PutMap("Large");
  WriteFile(MapPath("Large.zip"), std::string(51201, 'z'));
  WriteFile(MapPath("Large.jpg"), std::string(102401, 'j'));
  PutZip("Linked");
  WriteFile(Path("shot.gif"), "GIF89a");
  PutZip("Web");
  WriteNumberedSetting(setting::kPreviewPicture, "Linked.bms", Path("shot.gif"));
  WriteNumberedSetting(setting::kPreviewPicture, "Web.bms", "http://maps.example/web.jpg");
  FrmCenter& window = Open();
  const auto columns = [&](const std::string& name) { return window.FileMaps.ColumnTexts(name); };
  EXPECT_THAT(columns("Arena.zip"), ElementsAre("1 KB", "picture", "comments"));
  EXPECT_THAT(columns("Desert.zip"), ElementsAre("1 KB", "no picture", "no comments"));
  EXPECT_THAT(columns("Large.zip"), ElementsAre("51 KB, large", "large picture", "comments"));
  EXPECT_THAT(columns("Linked.zip"), ElementsAre("1 KB", "linked picture", "no comments"));
  EXPECT_THAT(columns("Web.zip"), ElementsAre("1 KB", "web picture", "no comments"));
  EXPECT_THAT(center.PostsTo("/upload.php"), testing::IsEmpty());
  EXPECT_EQ(window.txtstatus.Text.get(), "5 maps in this folder.");
}

TEST_F(UploadTest, RefreshLooksAnewAtWhatThereIs) {
  PutZip("Arena");
  FrmCenter& window = Open();
  WriteFile(MapPath("Arena.jpg"), kPicture);
  PutMap("Oasis");
  window.mnu_refresh.Choose();
  EXPECT_EQ(window.FileMaps.ListCount(), 2);
  EXPECT_EQ(window.FileMaps.ColumnTexts("Arena.zip")[1], "picture");
  EXPECT_EQ(window.txtstatus.Text.get(), "2 maps in this folder.");
}

TEST_F(UploadTest, AFolderWithoutMapsSaysSo) {
  EXPECT_EQ(Open().FileMaps.ListCount(), 0);
  EXPECT_EQ(Open().txtstatus.Text.get(), "There are no zip files in this folder.");
}

TEST_F(UploadTest, APathThatIsNoFolderKeepsTheListAndSaysSo) {
  PutMap("Oasis");
  FrmCenter& window = Open();
  window.TxtDir.Text = Path("map");
  EXPECT_EQ(window.FileMaps.ListCount(), 1);
  EXPECT_EQ(window.txtstatus.Text.get(), "There is no folder of this name. The list shows " + Path("maps"));
}

TEST_F(UploadTest, TheSettingsAreReadAtLoadAndWrittenAtUnload) {
  WriteIni("[launcher]\r\nCOMMENTS=0\r\nautorename=0\r\nsave pass=1\r\nUSERNAME=neo\r\nPASSWORD=sesame\r\n");
  WriteSetting(setting::kUploadFolder, Path("maps"));
  FrmCenter& window = Window<FrmCenter>();
  EXPECT_EQ(window.Chcomments.Value, 0);
  EXPECT_EQ(window.ChAutoRename.Value, 0);
  EXPECT_EQ(window.ChPassword.Value, 1);
  EXPECT_EQ(window.TxtDir.Text.get(), Path("maps"));
  EXPECT_EQ(window.TxtUsername.Text.get(), "neo");
  EXPECT_EQ(window.TxtPassword.Text.get(), "sesame");
  window.Chcomments.Value = 1;
  window.ChAutoRename.Value = 1;
  window.TxtDir.Text = Path("game");
  window.TxtUsername.Text = "Trinity";
  window.TxtPassword.Text = "rabbit";
  window.Unload();
  EXPECT_EQ(Ini("launcher", "COMMENTS"), "1");
  EXPECT_EQ(Ini("launcher", "autorename"), "1");
  EXPECT_EQ(Ini("launcher", "save pass"), "1");
  EXPECT_EQ(Ini("launcher", "UPLOADDIR"), Path("game"));
  EXPECT_EQ(Ini("launcher", "USERNAME"), "Trinity");
  EXPECT_EQ(Ini("launcher", "PASSWORD"), "rabbit");
}

TEST_F(UploadTest, WithoutSettingsAllOptionsAreOnAndTheFolderIsTheGames) {
  WriteIni("");
  FrmCenter& window = Window<FrmCenter>();
  EXPECT_EQ(window.Chcomments.Value, 1);
  EXPECT_EQ(window.ChAutoRename.Value, 1);
  EXPECT_EQ(window.ChPassword.Value, 1);
  EXPECT_EQ(window.TxtDir.Text.get(), Path("game"));
}

TEST_F(UploadTest, WithoutSavePassThePasswordIsNeitherReadNorWrittenNorRemoved) {
  WriteIni("[launcher]\r\nsave pass=0\r\nPASSWORD=sesame\r\n");
  FrmCenter& window = Window<FrmCenter>();
  EXPECT_EQ(window.TxtPassword.Text.get(), "");
  window.TxtPassword.Text = "rabbit";
  window.Unload();
  EXPECT_EQ(Ini("launcher", "PASSWORD"), "sesame");
}

TEST_F(UploadTest, ThePasswordsTipsSayThatItIsPlainText) {
  EXPECT_THAT(Open().TxtPassword.ToolTipText.get(), testing::HasSubstr("plain text"));
  EXPECT_THAT(Open().ChPassword.ToolTipText.get(), testing::HasSubstr("plain text"));
  EXPECT_EQ(Open().TxtPassword.PasswordChar.get(), "*");
}

TEST_F(UploadTest, BrowsingPutsTheFolderIntoTheBox) {
  Open();
  desktop.dialogs().ExpectFolder("Select new maps folder.", Path("game"));
  Window<FrmCenter>().CmdBrowse.Press();
  EXPECT_EQ(Window<FrmCenter>().TxtDir.Text.get(), Path("game"));
  EXPECT_EQ(Window<FrmCenter>().FileMaps.Path(), Path("game"));
  desktop.dialogs().ExpectFolder("Select new maps folder.", std::nullopt);
  Window<FrmCenter>().CmdBrowse.Press();
  EXPECT_EQ(Window<FrmCenter>().TxtDir.Text.get(), Path("game"));
}

TEST_F(UploadTest, TheLogIsSavedAfterAQuestionWhereTheFileExists) {
  Open().AddMessage("a line");
  desktop.dialogs()
      .ExpectFile(Path("log.txt"))
      .WithTitle("select file")
      .WithFilter("Text files (*.txt)|*.txt|All files (*.*)|*.*");
  Open().mnu_savelog.Choose();
  EXPECT_EQ(ReadFile(Path("log.txt")), "a line\r\n");
  Open().AddMessage("другая");
  for (const BoxAnswer answer : {BoxAnswer::kNo, BoxAnswer::kYes}) {
    desktop.dialogs().ExpectFile(Path("log.txt"));
    desktop.dialogs().ExpectBox("File already exists overwrite it?", answer).WithButtons(BoxButtons::kYesNo);
    Open().mnu_savelog.Choose();
    EXPECT_EQ(ReadFile(Path("log.txt")), answer == BoxAnswer::kNo ? "a line\r\n"
                                                                  : "\xEF\xBB\xBF"
                                                                    "a line\r\nдругая\r\n");
  }
}

TEST_F(UploadTest, ADoubleClickOrEnterLoadsTheMapInTheMainWindow) {
  PutMap("Arena");
  PutMap("Oasis");
  Open().FileMaps.ListIndex = 1;
  Open().FileMaps.DblClick();
  frmain& main = Window<frmain>();
  EXPECT_EQ(main.Text1.Text.get(), Path("maps"));
  EXPECT_EQ(main.FileMaps.FileName(), "Oasis.zip");
  EXPECT_EQ(main.ListBox.ListIndex(), main.FileMaps.ListIndex);
  Open().FileMaps.ListIndex = 0;
  int key = key::kEnter;
  Open().FileMaps.KeyDown(key, 0);
  EXPECT_EQ(main.FileMaps.FileName(), "Arena.zip");
}

TEST_F(UploadTest, AllMapsAreSelectedWithCtrlAAndListedAnewWithF5) {
  PutMap("Arena");
  PutMap("Oasis");
  Open();
  int key = 'A';
  Open().FileMaps.KeyDown(key, shift::kCtrl);
  EXPECT_EQ(Open().FileMaps.SelCount(), 2);
  PutMap("Zoo");
  key = key::kF5;
  Open().FileMaps.KeyDown(key, 0);
  EXPECT_EQ(Open().FileMaps.ListCount(), 3);
}

TEST_F(UploadTest, DroppedZipsAreSelectedInTheirFolder) {
  PutMap("Arena");
  PutMap("Oasis");
  Open().TxtDir.Text = Path("game");
  DropFiles(Open(), {});
  DropFiles(Window<FrmCenter>(), {MapPath("Oasis.zip")});
  FrmCenter& window = Window<FrmCenter>();
  EXPECT_EQ(window.TxtDir.Text.get(), Path("maps"));
  EXPECT_FALSE(window.FileMaps.Selected(0));
  EXPECT_TRUE(window.FileMaps.Selected(1));
  EXPECT_EQ(window.ChSelected.Value, 1);
  DropFiles(window, {Path("game")});
  EXPECT_EQ(window.TxtDir.Text.get(), Path("game"));
}

TEST_F(UploadTest, TheLoadMapWindowHandsItsZipOver) {
  PutMap("Arena");
  PutMap("Oasis");
  OpenUploader(MapPath("Oasis.zip"));
  FrmCenter& window = Window<FrmCenter>();
  EXPECT_EQ(window.TxtDir.Text.get(), Path("maps"));
  EXPECT_EQ(window.ChAutoRename.Value, 0);
  EXPECT_EQ(window.ChSelected.Value, 1);
  EXPECT_EQ(window.FileMaps.FileName(), "Oasis.zip");
  EXPECT_TRUE(window.FileMaps.Selected(1));
  window.Command1.Press();
  EXPECT_THAT(TakenNames(), ElementsAre("Oasis"));
}

TEST_F(UploadTest, TheHelpIsOpened) {
  Open().mnu_index.Choose();
  ASSERT_FALSE(desktop.shell().openings.empty());
  EXPECT_EQ(desktop.shell().openings.back().file, ProgramPath("kestrun.chm"));
}

TEST_F(UploadTest, AStyleIsAppliedOnceTheSiteHasAnswered) {
  std::vector<std::string> styled;
  InstallStyleRuntime({[] { return true; }, [](const std::string&) {},
                       [&](Form& form) { styled.push_back(form.Name() + (form.IsShown() ? " shown" : "")); }});
  Open();
  InstallStyleRuntime({});
  EXPECT_THAT(styled, ElementsAre("FrmCenter shown"));
}

// ---- by name -------------------------------------------------------------------------------------------------------

TEST_F(UploadTest, TheOperationsAreThereByNameAndGiveBackByReference) {
  PutMap("Oasis");
  FrmCenter& window = Open();
  native_files.MakeFolder(Path("temp\\unpack"));
  Variant name("");
  Variant designer("");
  Variant game_type(0);
  std::vector<Variant> arguments{Variant(MapPath("Oasis.zip")), Variant(Path("temp\\unpack")), name, designer,
                                 game_type};
  const auto call = [&](std::string_view member) { return window.Call(window.FindMember(member), arguments); };
  EXPECT_TRUE(ToBoolean(call("GetInfo")));
  EXPECT_EQ(ToText(arguments[2]), "Oasis");
  EXPECT_EQ(ToText(arguments[3]), "Trinity");
  EXPECT_EQ(ToLong(arguments[4]), 0x1000);
  arguments = {Variant(Path("temp\\unpack\\Oasis.bms")), name, designer, game_type};
  EXPECT_TRUE(ToBoolean(call("GetBMSInfo")));
  EXPECT_EQ(ToText(arguments[1]), "Oasis");
  arguments = {Variant(MapPath("Oasis.txt")), name, designer};
  EXPECT_TRUE(ToBoolean(call("LoadCommentsFile")));
  EXPECT_EQ(ToText(arguments[1]), "A map.\r\n");
  EXPECT_EQ(ToText(arguments[2]), "None.\r\n");
  arguments = {Variant(MapPath("Oasis.jpg"))};
  EXPECT_TRUE(ToText(call("LoadFile")).starts_with("ÿØÿ picture "));
  arguments = {Variant(MapPath("Oasis.zip")), Variant(Path("temp\\unpack"))};
  EXPECT_TRUE(ToBoolean(call("UploadFile")));
  EXPECT_EQ(center.Taken().size(), 1U);
}

TEST_F(UploadTest, FailuresOfTheOperationsAreToldUnderTheirNames) {
  FrmCenter& window = Open();
  const std::string missing = MapPath("missing.zip");
  desktop.dialogs().ExpectFileFailure("Error: loadfile53\r\nFile not found", missing);
  EXPECT_EQ(window.LoadFile(missing), "");
  UploadInfo info;
  desktop.dialogs().ExpectFileFailure("Error: getbmsinfo53\r\nFile not found", missing);
  EXPECT_FALSE(window.GetBMSInfo(missing, info));
  desktop.dialogs().ExpectFileFailure("Error: Getinfo53\r\nFile not found", missing);
  EXPECT_FALSE(window.GetInfo(missing, Path("temp"), info));
}

}  // namespace
}  // namespace kestrun
