#include <gtest/gtest.h>

#include "formats/pff/cls_pff.h"
#include "forms/window_registry.h"
#include "program/game_paths.h"
#include "program/settings.h"
#include "support/error_number.h"
#include "support/headless_fixture.h"
#include "support/registered_window.h"

namespace kestrun {
namespace {

constexpr const char* kAppPaths = "SOFTWARE\\Microsoft\\Windows\\CurrentVersion\\App Paths\\dflwdem.exe";
constexpr const char* kPrompt =
    "Kestrun was unable to find your dflw game folder. Please select your game folder (directory where you installed "
    "the dflw game).";
constexpr const char* kBrowse =
    "Select your game folder (game installation directory 'C:\\program files\\novalogic\\delta force land "
    "warrior...').";
constexpr const char* kMissing =
    "Game file 'dflwdem.exe' not found!!!!! Please select your game folder in the options window!!!";

class GamePathsTest : public HeadlessTest {
 protected:
  GamePathsTest() { native_files.MakeFolder(Path("game")); }
  // A sound one: a damaged archive would be told.
  void MakeGameArchive() {
    ClsPFF archive;
    archive.NewPffFile(Path("game\\dflw.pff"));
    archive.PackFile(AsBytes("a mission"), "A.BMS");
    archive.SavePffFile();
  }
  void TellRegistry(const std::string& folder) {
    desktop.registry().Write(RegistryRoot::kLocalMachine, kAppPaths, "Path", folder);
  }
  void WriteIni(std::string_view content) { WriteFile(ini_, content); }
  [[nodiscard]] static std::string Doubt(const std::string& folder) {
    return "The game is not in the folder " + folder +
           ": there is neither DFLWDEM.EXE nor dflw.pff in it.\r\nDo you want to choose another folder?";
  }
  [[nodiscard]] bool IniIsThere() { return FileIsThere(ini_); }
  std::string ini_ = ProgramPath("packit.ini");
};

TEST_F(GamePathsTest, AStoredGameFolderWinsOverTheRegistryAndIsNotTested) {
  TellRegistry("C:\\registry");
  WriteIni("[FOLDERS]\r\nDFLW=C:\\stored\r\n");
  EXPECT_EQ(GameFolder(), "C:\\stored");
}

TEST_F(GamePathsTest, TheRegistryCountsWhileNoFolderWasEverStored) {
  TellRegistry(Path("game"));
  EXPECT_EQ(GamePathFromRegistry(), Path("game"));
  EXPECT_EQ(GameFolder(), Path("game"));
  EXPECT_FALSE(IniIsThere());
}

TEST_F(GamePathsTest, AnAbsentRegistryKeyGivesTheEmptyText) { EXPECT_EQ(GamePathFromRegistry(), ""); }

TEST_F(GamePathsTest, AStoredButEmptyFolderActsAsNoneAndTheProgramFolderIsTriedNext) {
  TellRegistry("C:\\registry");
  WriteIni("[FOLDERS]\r\nDFLW=\r\n");
  WriteFile(ProgramPath("dflwdem.exe"), "");
  EXPECT_EQ(GameFolder(), Path("program"));
  EXPECT_EQ(ReadFile(ini_), "[FOLDERS]\r\nDFLW=\r\n");
}

TEST_F(GamePathsTest, TheUserIsAskedAndThePickIsStoredWithoutItsBackslash) {
  WriteFile(Path("game\\DFLWDEM.EXE"), "");
  desktop.dialogs().ExpectBox(kPrompt).WithTitle("");
  desktop.dialogs().ExpectFolder(kBrowse, Path("game\\")).StartingAt("C:\\");
  EXPECT_EQ(GameFolder(), Path("game"));
  EXPECT_EQ(GetIniValue(ini_, "FOLDERS", "DFLW", ""), Path("game"));
  EXPECT_EQ(GameFolder(), Path("game"));
}

TEST_F(GamePathsTest, AFolderWithTheArchiveAloneIsTheGames) {
  MakeGameArchive();
  desktop.dialogs().ExpectBox(kPrompt);
  desktop.dialogs().ExpectFolder(kBrowse, Path("game\\"));
  EXPECT_EQ(GameFolder(), Path("game"));
}

TEST_F(GamePathsTest, AFolderWithoutTheGameIsDoubtedAndAnotherOneCanBePicked) {
  MakeGameArchive();
  desktop.dialogs().ExpectBox(kPrompt);
  desktop.dialogs().ExpectFolder(kBrowse, Path("temp\\"));
  desktop.dialogs().ExpectBox(Doubt(Path("temp")), BoxAnswer::kYes).WithButtons(BoxButtons::kYesNo);
  desktop.dialogs().ExpectFolder(kBrowse, Path("game\\"));
  EXPECT_EQ(GameFolder(), Path("game"));
}

TEST_F(GamePathsTest, AFolderWithoutTheGameCanBeKept) {
  desktop.dialogs().ExpectBox(kPrompt);
  desktop.dialogs().ExpectFolder(kBrowse, "C:\\games\\dflw\\");
  desktop.dialogs().ExpectBox(Doubt("C:\\games\\dflw"), BoxAnswer::kNo);
  EXPECT_EQ(GameFolder(), "C:\\games\\dflw");
  EXPECT_EQ(ReadFile(ini_), "[FOLDERS]\r\nDFLW=C:\\games\\dflw\r\n");
  EXPECT_EQ(GameFolder(), "C:\\games\\dflw");
}

TEST_F(GamePathsTest, ACancelBehindADoubtStoresNothing) {
  desktop.dialogs().ExpectBox(kPrompt);
  desktop.dialogs().ExpectFolder(kBrowse, Path("temp\\"));
  desktop.dialogs().ExpectBox(Doubt(Path("temp")), BoxAnswer::kYes);
  desktop.dialogs().ExpectFolder(kBrowse, std::nullopt);
  EXPECT_EQ(ErrorNumberOf([] { return GameFolder(); }), 5);
  EXPECT_FALSE(IniIsThere());
}

TEST_F(GamePathsTest, AFolderThatTheSettingsCannotHoldIsRefusedWithItsLengthAndAWayOut) {
  const std::string folder = "C:\\" + std::string(300, 'x');
  desktop.dialogs().ExpectBox(kPrompt);
  for (const BoxAnswer answer : {BoxAnswer::kYes, BoxAnswer::kNo}) {
    desktop.dialogs().ExpectFolder(kBrowse, folder + "\\");
    desktop.dialogs().ExpectBox(
        "The path of this folder is too long to be kept in the settings: it has 303 characters, and 254 are possible. "
        "Move the game to a folder with a shorter path, or choose a shorter path that leads to it, such as a link or a "
        "drive letter.\r\n"
        "Do you want to choose another folder?",
        answer);
  }
  EXPECT_EQ(ErrorNumberOf([] { return GameFolder(); }), 5);
  EXPECT_FALSE(IniIsThere());
}

TEST_F(GamePathsTest, WhileNobodyIsToBeAskedAnUnknownFolderIsEmpty) {
  {
    const GameFolderUnasked unasked;
    EXPECT_EQ(GameFolder(), "");
    EXPECT_EQ(MapFolder(), "");
  }
  desktop.dialogs().ExpectBox(kPrompt);
  desktop.dialogs().ExpectFolder(kBrowse, std::nullopt);
  EXPECT_EQ(ErrorNumberOf([] { return GameFolder(); }), 5);
}

TEST_F(GamePathsTest, ACancelledQuestionFailsStoresNothingAndComesAgainAtTheNextUse) {
  for (int use = 0; use < 2; ++use) {
    desktop.dialogs().ExpectBox(kPrompt);
    desktop.dialogs().ExpectFolder(kBrowse, std::nullopt);
    EXPECT_EQ(ErrorNumberOf([] { return GameFolder(); }), 5);
  }
  EXPECT_FALSE(IniIsThere());
}

TEST_F(GamePathsTest, MapsLiveInTheGameFolderUntilTheUserSaysOtherwise) {
  TellRegistry("C:\\game");
  EXPECT_EQ(MapFolder(), "C:\\game");
  WriteSetting(setting::kMapFolder, "D:\\maps");
  EXPECT_EQ(MapFolder(), "D:\\maps");
}

TEST_F(GamePathsTest, TheGameIsOpenedInItsFolderWithTheTextZeroForParameters) {
  TellRegistry(Path("game"));
  WriteIni("[launcher]\r\nDFLWPAR=/windowed\r\n");
  WriteFile(Path("game\\DFLWDEM.EXE"), "");
  EXPECT_FALSE(launchDFLW());
  const std::vector<ShellOpening> expected{{"open", Path("game\\DFLWDEM.EXE"), "0", Path("game"), 1}};
  EXPECT_EQ(desktop.shell().openings, expected);
}

TEST_F(GamePathsTest, AFailedOpenOfTheGameIsSilent) {
  TellRegistry(Path("game"));
  WriteFile(Path("game\\DFLWDEM.EXE"), "");
  desktop.shell().open_result = 2;
  EXPECT_FALSE(launchDFLW());
}

TEST_F(GamePathsTest, AMissingGameIsToldByItsUsualNameAndTheOptionsOpen) {
  TellRegistry(Path("game"));
  WriteIni("[launcher]\r\nDFLWDEM.EXE=other.exe\r\n");
  desktop.dialogs().ExpectBox(kMissing).WithIcon(BoxIcon::kCritical).WithButtons(BoxButtons::kOk);
  const StandInWindow<Form> options("frmoptions");
  bool shown = false;
  desktop.windowing().ExpectModal("frmoptions", [&](Form& form) { shown = true, form.Unload(); });
  EXPECT_FALSE(launchDFLW());
  EXPECT_TRUE(shown);
  EXPECT_TRUE(desktop.shell().openings.empty());
}

TEST_F(GamePathsTest, AFailureOfTheLaunchIsShownWithItsContext) {
  desktop.dialogs().ExpectBox(kPrompt);
  desktop.dialogs().ExpectFolder(kBrowse, std::nullopt);
  desktop.dialogs().ExpectBox("Error: launchDFLW5\r\nInvalid procedure call or argument");
  EXPECT_FALSE(launchDFLW());
}

TEST_F(GamePathsTest, AProcessOfTheGamesNameInAnyCaseMeansThatItRuns) {
  desktop.processes().names = {"explorer.exe", "dflwdem.exe.bak"};
  EXPECT_FALSE(IsGameRunning());
  desktop.processes().names.push_back("DFLWDEM.exe");
  EXPECT_TRUE(IsGameRunning());
}

TEST_F(GamePathsTest, AProcessNameEndsAtItsFirstNul) {
  desktop.processes().names = {std::string("dflwdem.exe\0junk", 16)};
  EXPECT_TRUE(IsGameRunning());
}

TEST_F(GamePathsTest, TheGamesNameIsThatOfTheSettings) {
  WriteIni("[launcher]\r\nDFLWDEM.EXE=Dflw.exe\r\n");
  desktop.processes().names = {"dflwdem.exe"};
  EXPECT_FALSE(IsGameRunning());
  desktop.processes().names = {"DFLW.EXE"};
  EXPECT_TRUE(IsGameRunning());
}

TEST_F(GamePathsTest, ShellOpenPassesItsArgumentsInOrderAsTexts) {
  ShellOpen("open", "http://site/", int32_t{0}, int32_t{0}, 3);
  const std::vector<ShellOpening> expected{{"open", "http://site/", "0", "0", 3}};
  EXPECT_EQ(desktop.shell().openings, expected);
}

}  // namespace
}  // namespace kestrun
