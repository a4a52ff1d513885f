// The map updater between two real folders: what it copies, asks, logs and says.
#include "windows/map_updater/frmmapupd.h"

#ifndef _WIN32
#include <sys/stat.h>
#endif

#include "base/calendar.h"
#include "base/text.h"
#include "program/frame_fixture.h"
#include "support/forwarding_files.h"
#include "support/registered_window.h"
#include "support/without_rights.h"

namespace kestrun {
namespace {

constexpr uint64_t kHour = uint64_t{36'000'000'000};
constexpr uint64_t kNoon = uint64_t{132'223'104'000'000'000};  // 2020-01-01 12:00 UTC

class MapUpdaterTest : public FrameTest {
 protected:
  MapUpdaterTest() {
    TellGameFolder();
    native_files.MakeFolder(Path("pc"));
    native_files.MakeFolder(Path("remote"));
  }
  ~MapUpdaterTest() override {
    CloseAllWindows();
    desktop.UseFiles(native_files);
  }

  [[nodiscard]] std::string Pc(const std::string& name) const { return Path("pc\\" + name); }
  [[nodiscard]] std::string Remote(const std::string& name) const { return Path("remote\\" + name); }
  void Put(const std::string& path, const std::string& content, uint64_t time = kNoon) {
    WriteFile(path, content);
    native_files.SetWriteTime(path, time);
  }
  // Compares sizes alone and asks nothing, unless a test says otherwise.
  frmmapupd& Open() {
    frmmapupd& window = Window<frmmapupd>();
    if (window.IsShown()) return window;
    window.Show();
    window.TxtPC.Text = Path("pc");
    window.TxtRem.Text = Path("remote");
    window.ChCRC.Value = 0;
    window.Check1.Value = 0;
    return window;
  }
  void Run(int count) {
    desktop.dialogs().ExpectBox("All " + std::to_string(count) + " done.");
    Open().Command1.Press();
  }
  static std::string LogText() { return Window<frmmapupd>().txtlog.Text; }
  // What stands between the start line and the end line.
  static std::string LogOfFiles() {
    const std::string log = LogText();
    const size_t begin = log.find("PM\r\n") + 4;
    return log.substr(begin, log.find("\r\n\r\nAll ") - begin);
  }
  [[nodiscard]] static std::string TimeText(uint64_t time) { return DateToText(LocalDateOfFileTime(time)); }
};

TEST_F(MapUpdaterTest, ANewMapIsCopiedWithItsDateAndEachStepIsLogged) {
  Put(Remote("Oasis.bms"), "map");
  Run(1);
  EXPECT_EQ(ReadFile(Pc("Oasis.bms")), "map");
  EXPECT_EQ(native_files.WriteTime(Pc("Oasis.bms")), kNoon);
  EXPECT_FALSE(FileIsThere(Pc("Oasis.bms.new")));
  EXPECT_EQ(LogText(),
            "Ready\r\n USE AT OWN RISK!\r\nStarting updating maps 1 at 1/1/2001 12:00:00 PM\r\n"
            "\r\nChecking file 1: Oasis.bms"
            "\r\nCopying new map from " +
                Remote("Oasis.bms") +
                " to localmap..."
                "\r\nFile 1 done.\r\n"
                "\r\n\r\nAll 1 done. 1/1/2001 12:00:00 PM");
  EXPECT_EQ(Open().lstmapsPC.ListCount(), 1);
  EXPECT_EQ(Open().txtlog.SelStart, static_cast<int>(ToUtf16(LogText()).size()));
}

TEST_F(MapUpdaterTest, AnEmptyRemoteFolderIsToldAndNothingLogged) {
  desktop.dialogs().ExpectBox("There are no maps on host.");
  Open().Command1.Press();
  EXPECT_EQ(LogText(), "Ready");
}

TEST_F(MapUpdaterTest, AnEmptyPathIsTold) {
  Put(Remote("Oasis.bms"), "map");
  Open().TxtPC.Text = "";
  desktop.dialogs().ExpectBox("Local path is wrong!");
  Open().mnu_startupdating.Choose();
  Open().TxtPC.Text = Path("pc");
  Open().TxtRem.Text = "";
  desktop.dialogs().ExpectBox("Remote path is wrong!");
  Open().Command1.Press();
}

TEST_F(MapUpdaterTest, EqualMapsLeaveOnlyTheCheckingAndTheDoneLine) {
  Put(Remote("Oasis.bms"), "map");
  Put(Pc("Oasis.bms"), "map");
  Open().ChCRC.Value = 1;
  Run(1);
  EXPECT_EQ(LogOfFiles(), "\r\nChecking file 1: Oasis.bms\r\nFile 1 done.\r\n");
}

TEST_F(MapUpdaterTest, ByDateAnOlderRemoteMapIsSkipped) {
  Put(Remote("Oasis.bms"), "remote map", kNoon);
  Put(Pc("Oasis.bms"), "map", kNoon + kHour);
  Open().Option1.Value = true;
  Open().Option2.Value = false;
  Run(1);
  EXPECT_EQ(ReadFile(Pc("Oasis.bms")), "map");
}

TEST_F(MapUpdaterTest, ByDateANewerRemoteMapIsCopied) {
  Put(Remote("Oasis.bms"), "new", kNoon + kHour);
  Put(Pc("Oasis.bms"), "map", kNoon);
  Open().Option1.Value = true;
  Open().Option2.Value = false;
  Run(1);
  EXPECT_EQ(ReadFile(Pc("Oasis.bms")), "new");
}

TEST_F(MapUpdaterTest, BySizeASmallerRemoteMapOverwritesTheLocalOne) {
  Put(Remote("Oasis.bms"), "new", kNoon);
  Put(Pc("Oasis.bms"), "longer", kNoon + kHour);
  Run(1);
  EXPECT_EQ(ReadFile(Pc("Oasis.bms")), "new");
  EXPECT_EQ(LogOfFiles(), "\r\nChecking file 1: Oasis.bms\r\nOverwriting map " + Pc("Oasis.bms") + " edited: " +
                              TimeText(kNoon + kHour) + " Size: 6 CRC: 0 with map from " + Remote("Oasis.bms") +
                              " edited: " + TimeText(kNoon) + " Size: 3 CRC: 0\r\nFile 1 done.\r\n");
}

TEST_F(MapUpdaterTest, ByCrcAChangedMapOfTheSameSizeIsCopied) {
  Put(Remote("Oasis.bms"), "new");
  Put(Pc("Oasis.bms"), "map");
  Open().ChCRC.Value = 1;
  Run(1);
  EXPECT_EQ(ReadFile(Pc("Oasis.bms")), "new");
}

TEST_F(MapUpdaterTest, TheQuestionShowsBothFilesAndNoKeepsTheMap) {
  Put(Remote("Oasis.bms"), "new", kNoon);
  Put(Pc("Oasis.bms"), "longer", kNoon + kHour);
  const std::string question = "Do you want to overwrite the file:\r\n" + Pc("Oasis.bms") +
                               "\r\nEdited: " + TimeText(kNoon + kHour) + "\r\nFile Size: 6\r\nCRC: 0\r\n\r\n" +
                               "With the file: \r\n" + Remote("Oasis.bms") + "\r\nEdited: " + TimeText(kNoon) +
                               "\r\nFile size: 3\r\nCRC: 0";
  Open().Check1.Value = 1;
  desktop.dialogs().ExpectBox(question, BoxAnswer::kNo).WithButtons(BoxButtons::kYesNo);
  Run(1);
  EXPECT_EQ(ReadFile(Pc("Oasis.bms")), "longer");
  EXPECT_EQ(LogOfFiles(), "\r\nChecking file 1: Oasis.bms\r\nMap not updated user canceled.\r\nFile 1 done.\r\n");
  desktop.dialogs().ExpectBox(question, BoxAnswer::kYes);
  Run(1);
  EXPECT_EQ(ReadFile(Pc("Oasis.bms")), "new");
  EXPECT_NE(LogText().find("\r\nOverwriting map after asking " + Pc("Oasis.bms") + " edited: "), std::string::npos);
}

TEST_F(MapUpdaterTest, APathThatEndsInABackslashLosesItAtTheFirstFile) {
  Put(Remote("Oasis.bms"), "map");
  Open().TxtPC.Text = Path("pc") + "\\";
  Open().TxtRem.Text = Path("remote") + "\\";
  Run(1);
  EXPECT_EQ(Open().TxtPC.Text.get(), Path("pc"));
  EXPECT_EQ(Open().TxtRem.Text.get(), Path("remote"));
  EXPECT_EQ(ReadFile(Pc("Oasis.bms")), "map");
}

TEST_F(MapUpdaterTest, OneFolderForBothComparesEveryFileWithItselfAndCopiesNothing) {
  Put(Pc("Oasis.bms"), "map");
  Put(Pc("Arena.bms"), "other");
  Open().TxtRem.Text = Path("pc");
  Open().ChCRC.Value = 1;
  Run(2);
  EXPECT_EQ(LogOfFiles(),
            "\r\nChecking file 1: Arena.bms\r\nFile 1 done.\r\n\r\nChecking file 2: Oasis.bms\r\nFile 2 done.\r\n");
}

TEST_F(MapUpdaterTest, NamesInOtherScriptsAndInAnotherCaseAreFound) {
  Put(Remote("Пустыня 砂漠 é.bms"), "map");
  Put(Remote("OASIS.BMS"), "map");
  Put(Pc("oasis.bms"), "map");
  Run(2);
  EXPECT_EQ(ReadFile(Pc("Пустыня 砂漠 é.bms")), "map");
  EXPECT_EQ(native_files.List(Path("pc")).size(), 2U);
}

TEST_F(MapUpdaterTest, ZipsStayWhereTheyAre) {
  Put(Remote("Oasis.bms"), "map");
  Put(Remote("pack.zip"), "zip");
  Run(1);
  EXPECT_FALSE(FileIsThere(Pc("pack.zip")));
}

TEST_F(MapUpdaterTest, TenThousandMapsAreLoggedWithoutTheLogSlowingThemDown) {
  for (int map = 0; map < 10000; ++map) Put(Remote("map" + std::to_string(map) + ".bms"), "");
  Open().TxtPC.Text = Path("remote");
  int shown = 0;
  Open().txtlog.Change = [&shown] { ++shown; };
  Run(10000);
  EXPECT_NE(LogText().find("\r\nChecking file 10000: map9999.bms"), std::string::npos);
  EXPECT_LE(shown, 5) << "the time stands still here: a log that grows is shown from time to time";
}

// ---- failures ------------------------------------------------------------------------------------------------------

// A file, by the end of its path, that cannot be opened from some moment on.
class VanishingFiles final : public ForwardingFiles {
 public:
  VanishingFiles(FileSystem& files, std::string path, int error_number)
      : ForwardingFiles(files), path_(std::move(path)), error_number_(error_number) {}
  std::unique_ptr<File> Open(std::string_view path, OpenMode mode) override {
    if (path.ends_with(path_)) Raise(error_number_);
    return files().Open(path, mode);
  }

 private:
  std::string path_;
  int error_number_;
};

TEST_F(MapUpdaterTest, AShareThatVanishesInTheMiddleEndsTheRunAndWhatWasCopiedStays) {
  Put(Remote("Arena.bms"), "arena");
  Put(Remote("Oasis.bms"), "oasis");
  Put(Remote("Zoo.bms"), "zoo");
  Open();
  VanishingFiles files(native_files, Remote("Oasis.bms"), error::kPathNotFound);
  desktop.UseFiles(files);
  desktop.dialogs()
      .ExpectFileFailure("Error update failed: 76\r\nPath not found", Remote("Oasis.bms"))
      .WithIcon(BoxIcon::kCritical);
  Open().Command1.Press();
  EXPECT_EQ(ReadFile(Pc("Arena.bms")), "arena");
  EXPECT_FALSE(FileIsThere(Pc("Oasis.bms")));
  EXPECT_FALSE(FileIsThere(Pc("Zoo.bms")));
  EXPECT_TRUE(LogText().ends_with("\r\n\r\n\r\n---------------- ERROR: 76 Path not found----------------"))
      << LogText();
  EXPECT_TRUE(Open().Command1.Enabled);
}

TEST_F(MapUpdaterTest, AMapThatCannotBeWrittenKeepsItsOldContent) {
  Put(Remote("Oasis.bms"), "new");
  Put(Pc("Oasis.bms"), "longer");
  Open();
  VanishingFiles files(native_files, "Oasis.bms.new", error::kPermissionDenied);
  desktop.UseFiles(files);
  desktop.dialogs().ExpectFileFailure("Error update failed: 70\r\nPermission denied", Pc("Oasis.bms"));
  Open().Command1.Press();
  EXPECT_EQ(ReadFile(Pc("Oasis.bms")), "longer");
}

#ifndef _WIN32
TEST_F(MapUpdaterTest, AReadOnlyFolderKeepsItsMapsAndEndsTheRun) {
  Put(Remote("Oasis.bms"), "new");
  Put(Pc("Oasis.bms"), "longer");
  Open();
  constexpr mode_t kReadOnly = 0555;
  const std::string folder = native_files.TruePath(Path("pc"));
  ASSERT_EQ(chmod(folder.c_str(), kReadOnly), 0);
  desktop.dialogs().ExpectFileFailure("Error update failed: 70\r\nPermission denied", Pc("Oasis.bms"));
  {
    const WithoutRights nobody;
    Open().Command1.Press();
  }
  EXPECT_EQ(ReadFile(Pc("Oasis.bms")), "longer");
  EXPECT_EQ(native_files.List(Path("pc")).size(), 1U);
  EXPECT_TRUE(LogText().ends_with("---------------- ERROR: 70 Permission denied----------------")) << LogText();
  ASSERT_EQ(chmod(folder.c_str(), 0755), 0);
}
#endif

TEST_F(MapUpdaterTest, APathThatIsNoFolderIsToldWhileItIsTyped) {
  Open();
  desktop.dialogs().ExpectFileFailure("Error: 76\r\nPath not found", Path("nowhere"));
  Open().TxtRem.Text = Path("nowhere");
}

TEST_F(MapUpdaterTest, TheWindowStaysUsableAndStopEndsTheRunBehindTheFile) {
  for (const char* name : {"a.bms", "b.bms", "c.bms"}) Put(Remote(name), "map");
  Open();
  desktop.clock().Post([this] {
    EXPECT_TRUE(Open().Command1.Enabled);
    EXPECT_TRUE(Open().CmdStop.Enabled);
    Open().Command1.Press();  // a second start does nothing
    Open().CmdStop.Press();
  });
  Open().Command1.Press();
  EXPECT_TRUE(FileIsThere(Pc("a.bms")));
  EXPECT_FALSE(FileIsThere(Pc("b.bms")));
  EXPECT_TRUE(LogText().ends_with("\r\n\r\nStopped after file 1."));
  EXPECT_FALSE(Open().CmdStop.Enabled);
}

TEST_F(MapUpdaterTest, ClosingTheWindowEndsTheRun) {
  for (const char* name : {"a.bms", "b.bms"}) Put(Remote(name), "map");
  Open();
  desktop.clock().Post([] { Window<frmmapupd>().Unload(); });
  Open().Command1.Press();
  EXPECT_TRUE(FileIsThere(Pc("a.bms")));
  EXPECT_FALSE(FileIsThere(Pc("b.bms")));
  EXPECT_FALSE(LoadedWindow(frmmapupd::kName));
}

// ---- settings and menus --------------------------------------------------------------------------------------------

TEST_F(MapUpdaterTest, SettingsAreReadWhenItLoadsAndWrittenWhenItCloses) {
  frmmapupd& window = Window<frmmapupd>();
  EXPECT_EQ(window.TxtPC.Text.get(), Path("program"));
  EXPECT_EQ(window.TxtRem.Text.get(), Path("program"));
  EXPECT_FALSE(window.Option1.Value);
  EXPECT_TRUE(window.Option2.Value);
  EXPECT_EQ(window.Check1.Value, 1);
  EXPECT_EQ(window.ChCRC.Value, 1);
  window.TxtRem.Text = Path("remote");
  window.Option1.Value = true;
  window.Option2.Value = false;
  window.Check1.Value = 0;
  window.Unload();
  EXPECT_EQ(Ini("launcher", "TXTREM"), Path("remote"));
  EXPECT_EQ(Ini("launcher", "UPOP1") + Ini("launcher", "UPOP2"), "TrueFalse");
  EXPECT_EQ(Ini("launcher", "UPCH1") + Ini("launcher", "CHECKCRC"), "01");
  EXPECT_TRUE(Window<frmmapupd>().Option1.Value);
}

TEST_F(MapUpdaterTest, BrowsingTakesTheFolderAndRemembersIt) {
  Open();
  desktop.dialogs().ExpectFolder("Select folder", Path("maps"));
  Open().CmdloadPC.Press();
  EXPECT_EQ(Open().TxtPC.Text.get(), Path("maps") + "\\");
  EXPECT_EQ(Ini("launcher", "PCPATH"), Path("maps") + "\\");
  desktop.dialogs().ExpectFolder("Select shared folder or network drive", std::nullopt);
  Open().CmdloadRem.Press();
  EXPECT_EQ(Open().TxtRem.Text.get(), "");
  EXPECT_EQ(Ini("launcher", "REMPATH"), "");
}

TEST_F(MapUpdaterTest, DeletingAsksAndTakesTheFileAway) {
  Put(Pc("Oasis.bms"), "map");
  Put(Remote("Arena.bms"), "map");
  desktop.dialogs().ExpectBox("Select map!");
  Open().mnu_pcdelete.Click();
  Open().lstmapsPC.ListIndex = 0;
  const std::string question = "Are you sure you want to delete " + Pc("Oasis.bms") + " ?";
  desktop.dialogs().ExpectBox(question, BoxAnswer::kNo).WithButtons(BoxButtons::kYesNo);
  Open().mnu_pcdelete.Click();
  EXPECT_TRUE(FileIsThere(Pc("Oasis.bms")));
  desktop.dialogs().ExpectBox(question, BoxAnswer::kYes);
  Open().mnu_pcdelete.Click();
  EXPECT_FALSE(FileIsThere(Pc("Oasis.bms")));
  EXPECT_EQ(Open().lstmapsPC.ListCount(), 0);
  Open().LstmapsRem.ListIndex = 0;
  desktop.dialogs().ExpectBox("Are you sure you want to delete " + Remote("Arena.bms") + " ?", BoxAnswer::kYes);
  Open().mnu_delRem.Click();
  EXPECT_FALSE(FileIsThere(Remote("Arena.bms")));
}

TEST_F(MapUpdaterTest, WithAnEmptyFolderBoxNothingIsDeleted) {
  Put(Pc("Oasis.bms"), "map");
  Open().lstmapsPC.ListIndex = 0;
  Open().TxtPC.Text = "";
  EXPECT_EQ(Open().lstmapsPC.ListCount(), 1);  // the list stays at its folder
  desktop.dialogs().ExpectBox("Local path is wrong!");
  Open().mnu_pcdelete.Click();
  EXPECT_TRUE(FileIsThere(Pc("Oasis.bms")));
}

TEST_F(MapUpdaterTest, CopyingAMapAsksForTheTargetFirst) {
  Put(Pc("Oasis.bms"), "map");
  desktop.dialogs()
      .ExpectFile(Path("pc\\copy.bms"))
      .WithTitle("Copy map to ...")
      .WithFilter("BMS files (*.bms)|*.bms|all files (*.*)|*.*|");
  desktop.dialogs().ExpectBox("Select map!");
  Open().mnu_PCcopyto.Click();
  Open().lstmapsPC.ListIndex = 0;
  desktop.dialogs().ExpectFile(std::nullopt);
  Open().mnu_PCcopyto.Click();
  desktop.dialogs().ExpectFile(Path("pc\\copy.bms"));
  Open().mnu_PCcopyto.Click();
  EXPECT_EQ(ReadFile(Pc("copy.bms")), "map");
  EXPECT_EQ(Open().lstmapsPC.ListCount(), 2);
}

TEST_F(MapUpdaterTest, CopyingARemoteMapLooksAtTheLocalRowAndJoinsPathAndNameAsTheyAre) {
  Put(Pc("Oasis.bms"), "map");
  Put(Remote("Arena.bms"), "arena");
  Put(Path("remoteArena.bms"), "joined");
  Open().LstmapsRem.ListIndex = 0;
  desktop.dialogs().ExpectFile(Pc("copy.bms"));
  desktop.dialogs().ExpectBox("Select map!");
  Open().mnu_CopRem.Click();
  Open().lstmapsPC.ListIndex = 0;
  desktop.dialogs().ExpectFile(Pc("copy.bms"));
  Open().mnu_CopRem.Click();
  EXPECT_EQ(ReadFile(Pc("copy.bms")), "joined");
}

TEST_F(MapUpdaterTest, RenamingIsACopyUnderTheNewName) {
  Put(Pc("Oasis.bms"), "map");
  Put(Remote("Arena.bms"), "arena");
  const std::string prompt = "Enter new file name. Don't forget the .bms!";
  desktop.dialogs().ExpectInput(prompt, "New.bms");
  desktop.dialogs().ExpectBox("Select map!");
  Open().mnu_PCrename.Click();
  Open().lstmapsPC.ListIndex = 0;
  desktop.dialogs().ExpectInput(prompt, std::nullopt);
  Open().mnu_PCrename.Click();
  desktop.dialogs().ExpectInput(prompt, "New.bms");
  Open().mnu_PCrename.Click();
  EXPECT_EQ(ReadFile(Pc("New.bms")), "map");
  EXPECT_TRUE(FileIsThere(Pc("Oasis.bms")));
  Open().lstmapsPC.ListIndex = 0;
  Open().LstmapsRem.ListIndex = 0;
  desktop.dialogs().ExpectInput(prompt, "Arena2.bms");
  Open().mnu_renameRem.Click();
  EXPECT_EQ(ReadFile(Remote("Arena2.bms")), "arena");
}

TEST_F(MapUpdaterTest, TheLogIsSavedAndReplacesTheFile) {
  WriteFile(Path("log.txt"), "what was there before");
  Put(Remote("Пустыня.bms"), "map");
  Open();
  desktop.dialogs()
      .ExpectFile(Path("log.txt"))
      .WithTitle("Select LOG or text file.")
      .WithFilter("Log files (*.log)|*.log|Text files (*.txt)|*.txt|All files (*.*)|*.*|");
  Open().mnu_savelog.Choose();
  EXPECT_EQ(ReadFile(Path("log.txt")), "Ready");
  Run(1);
  desktop.dialogs().ExpectFile(Path("log.txt"));
  Open().mnu_savelog.Choose();
  EXPECT_EQ(ReadFile(Path("log.txt")), "\xEF\xBB\xBF" + LogText());
}

TEST_F(MapUpdaterTest, TheHelpTellsWhatItIsForAndOpensTheDownloadOfTheHelp) {
  Open();
  desktop.dialogs().ExpectBox(
      "This tool can keep your maps up to date. This is usefull is you have more then 1 PC and a LAN network where you "
      "can share files. If you edit a map on another PC and you save it there when you want to host it on another PC "
      "you always need to copy and search which files are new. This tools search for map files on a remote computer "
      "that aren't in your map folder or have a bigger file size on the remote computer. Then it copies those maps to "
      "your PC.");
  Open().mnu_whatsthis.Choose();
  Open().Unload();
  const StandInWindow<Form> help("frmdwnlhelp");
  Open();
  desktop.windowing().ExpectModal("frmdwnlhelp", [](Form& form) { form.Unload(); });
  Open().mnu_internethelp.Choose();
}

TEST_F(MapUpdaterTest, TheKeyboardReachesEverythingInReadingOrder) {
  Put(Remote("Oasis.bms"), "map");
  std::string order;
  for (const Control* control : Open().TabOrder()) order += control->Name() + "|";
  EXPECT_EQ(order,
            "TxtPC|CmdloadPC|lstmapsPC|TxtRem|CmdloadRem|LstmapsRem|Option1|Option2|Check1|ChCRC|Command1|txtlog|");
  desktop.windowing().ExpectPopUp("mnu_REMMAP", [](MenuItem&) {});
  int key = 93;  // the menu key
  Open().LstmapsRem.KeyDown(key, 0);
  EXPECT_EQ(key, 0);
  desktop.windowing().ExpectPopUp("mnu_PCMAP", [](MenuItem&) {});
  Open().lstmapsPC.MouseUp(mouse::kRight, 0, 0, 0);
}

TEST_F(MapUpdaterTest, CaptionsAndTipsAreTheProgramsOwn) {
  frmmapupd& window = Open();
  EXPECT_EQ(window.Caption.get(), "Kestrun - Map Updater");
  EXPECT_EQ(window.Frame1.Caption.get() + window.Frame2.Caption.get() + window.Frame3.Caption.get(),
            "This PC:Remote PC:Small Log:");
  EXPECT_EQ(window.LblPC.Caption.get() + window.LblRem.Caption.get(), "Folder:Network drive:");
  EXPECT_EQ(window.Option1.Caption.get() + window.Option2.Caption.get(),
            "Use file date to update.Use file size to update.");
  EXPECT_EQ(window.Check1.Caption.get() + window.ChCRC.Caption.get() + window.ChCRC.ToolTipText.get(),
            "Ask me before overwriting maps.Compare map with CRC checkChecks all maps CRC's");
  EXPECT_EQ(window.Command1.Caption.get(), "Start updating");
  EXPECT_EQ(window.txtlog.ToolTipText.get(), "Log file click File => save log to save it to a text file.");
  std::string menus;
  for (const MenuItem* item :
       {&window.mnu_file, &window.mnu_savelog, &window.mnu_fileexit, &window.mnu_actions, &window.mnu_startupdating,
        &window.mnu_help, &window.mnu_whatsthis, &window.mnu_internethelp, &window.mnu_pcdelete, &window.mnu_PCcopyto,
        &window.mnu_PCrename, &window.mnu_delRem, &window.mnu_CopRem, &window.mnu_renameRem}) {
    menus += item->Caption.get() + "|";
  }
  EXPECT_EQ(menus,
            "&File|Save log|Exit|&Actions|Start Updating!|&Help|What's this?|Internet help|Delete|Copy to ...|Rename|"
            "Delete|Copy to ...|Rename|");
}

}  // namespace
}  // namespace kestrun
