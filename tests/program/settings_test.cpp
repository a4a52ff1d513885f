#include <gtest/gtest.h>

#include <set>

#include "program/settings.h"
#include "support/error_number.h"
#include "support/headless_fixture.h"

namespace kestrun {
namespace {

constexpr const char* kAppPaths = "SOFTWARE\\Microsoft\\Windows\\CurrentVersion\\App Paths\\dflwdem.exe";

class SettingsTest : public HeadlessTest {
 protected:
  [[nodiscard]] std::string Ini(const std::string& section, const std::string& key, const std::string& missing = "") {
    return GetIniValue(ini_, section, key, missing);
  }
  std::string ini_ = ProgramPath("packit.ini");
};

TEST_F(SettingsTest, EverySettingLivesInTheProgramsOwnFolder) {
  EXPECT_EQ(AppFile("packit.ini"), ini_);
  WriteSetting(setting::kFirstRun, "False");
  EXPECT_EQ(ReadFile(ini_), "[launcher]\r\nFIRSTRUN=False\r\n");
}

TEST_F(SettingsTest, AMissingPackitIniBehavesAsAFileWithNoKeysAndTheFirstWriteCreatesIt) {
  EXPECT_EQ(Ini("launcher", "STYLE", "default"), "default");
  EXPECT_EQ(ReadSetting(setting::kFirstRun), "True");
  std::string value = "dark";
  SetIniValue(ini_, "launcher", "STYLE", value);
  EXPECT_EQ(ReadFile(ini_), "[launcher]\r\nSTYLE=dark\r\n");
}

TEST_F(SettingsTest, AValueWithALineBreakReachesTheFileAndTheCallersStringIsBlanked) {
  std::string value = "one\r\ntwo\nthree";
  SetIniValue(ini_, "a", "k", value);
  EXPECT_EQ(ReadFile(ini_), "[a]\r\nk=one\r\ntwo\nthree\r\n");
  EXPECT_EQ(value, "one  two three");
}

TEST_F(SettingsTest, TheCallersStringIsBlankedEvenWhenTheWriteFails) {
  std::string value = "one\r\ntwo";
  SetIniValue(Path("nowhere\\x.ini"), "a", "k", value);
  EXPECT_EQ(value, "one  two");
}

TEST_F(SettingsTest, AnEmptyValueIsReturnedAsEmptyAndNotAsTheDefault) {
  WriteFile(ini_, "[a]\r\nk=\r\n");
  EXPECT_EQ(Ini("a", "k", "default"), "");
}

TEST_F(SettingsTest, StyleInSmallAndInCapitalLettersIsOneKey) {
  WriteFile(ini_, "[launcher]\r\nstyle=dark\r\n");
  EXPECT_EQ(Ini("launcher", "style"), "dark");
  EXPECT_EQ(Ini("LAUNCHER", "STYLE"), "dark");
  EXPECT_EQ(ReadSetting(setting::kStyle), "dark");
}

TEST_F(SettingsTest, AValueIsCutAtTwoHundredAndFiftyFourBytes) {
  std::string value(255, 'x');
  SetIniValue(ini_, "a", "k", value);
  EXPECT_EQ(Ini("a", "k"), std::string(254, 'x'));
  EXPECT_EQ(Ini("a", "missing", value), std::string(254, 'x'));
}

TEST_F(SettingsTest, EachReadGoesToTheFile) {
  WriteFile(ini_, "[launcher]\r\nSTYLE=one\r\n");
  EXPECT_EQ(ReadSetting(setting::kStyle), "one");
  WriteFile(ini_, "[launcher]\r\nSTYLE=two\r\n");
  EXPECT_EQ(ReadSetting(setting::kStyle), "two");
}

TEST_F(SettingsTest, DefaultsInTheProgramFolderFollowTheProgram) {
  EXPECT_EQ(ReadSetting(setting::kStyle), ProgramPath("default.stl"));
  EXPECT_EQ(ReadSetting(setting::kColorPicker), ProgramPath("ColorPicker.EXE"));
  EXPECT_EQ(ReadSetting(setting::kConverter), ProgramPath("DF3BMStoMIS.exe"));
  EXPECT_EQ(ReadSetting(setting::kUpdaterLocalText), Path("program"));
}

TEST_F(SettingsTest, FolderDefaultsComeFromTheGameFolderAndFromTheMapFolder) {
  desktop.registry().Write(RegistryRoot::kLocalMachine, kAppPaths, "Path", "C:\\game");
  EXPECT_EQ(ReadSetting(setting::kGameFolder), "C:\\game");
  EXPECT_EQ(ReadSetting(setting::kUploadFolder), "C:\\game");
  EXPECT_EQ(ReadSetting(setting::kNameEditorFolder), "C:\\game");
  EXPECT_EQ(ReadSetting(setting::kAutoHostFolder), "C:\\game");
  WriteSetting(setting::kMapFolder, "D:\\maps");
  EXPECT_EQ(ReadSetting(setting::kAutoHostFolder), "D:\\maps");
  EXPECT_EQ(ReadSetting(setting::kImageFolder), "D:\\maps");
}

TEST_F(SettingsTest, AStoredMapFolderAsksForNoGameFolder) {
  WriteSetting(setting::kMapFolder, "D:\\maps");
  EXPECT_EQ(ReadSetting(setting::kMapFolder), "D:\\maps");
}

TEST_F(SettingsTest, PlainDefaultsAreThoseOfTheTable) {
  EXPECT_EQ(ReadSetting(setting::kArchiveName), "dflw.pff");
  EXPECT_EQ(ReadSetting(setting::kGameProgram), "DFLWDEM.EXE");
  EXPECT_EQ(ReadSetting(setting::kEditorProgram), "DFLWMEDFC2.EXE");
  EXPECT_EQ(ReadSetting(setting::kPackProgram), "pack.exe");
  EXPECT_EQ(ReadSetting(setting::kPlayingProgram), "pack.exe");
  EXPECT_EQ(ReadSetting(setting::kWarnOverwrite), "True");
  EXPECT_EQ(ReadSetting(setting::kAutoHostVersion), "-1");
  EXPECT_EQ(ReadSetting(setting::kAutoHostSeconds), "58");
  EXPECT_EQ(ReadSetting(setting::kAutoHostMinutes), "15");
  EXPECT_EQ(ReadSetting(setting::kUpdaterLocalFolder), "C:\\");
  EXPECT_EQ(ReadSetting(setting::kChatSeconds), "60");
}

TEST_F(SettingsTest, NumberedSettingsCarryTheNumberInTheirKeyOrSection) {
  EXPECT_EQ(ReadSetting(setting::kChatMessage, "2"), "Typ your message here");
  EXPECT_EQ(ReadSetting(setting::kProgramName, "1"), "ERROR");
  WriteNumberedSetting(setting::kChatMessage, "2", "hello");
  WriteNumberedSetting(setting::kProgramName, "1", "Notepad");
  WriteNumberedSetting(setting::kPreviewPicture, "D:\\maps\\Oasis.bms", "oasis.jpg");
  EXPECT_EQ(ReadFile(ini_),
            "[Chat]\r\nMSG2=hello\r\n[PROGRAM1]\r\nNAME=Notepad\r\n[IMAGE]\r\nD:\\maps\\Oasis.bms=oasis.jpg\r\n");
  EXPECT_EQ(ReadSetting(setting::kChatMessage, "2"), "hello");
  EXPECT_EQ(ReadSetting(setting::kPreviewPicture, "d:\\MAPS\\oasis.BMS"), "oasis.jpg");
}

TEST_F(SettingsTest, NoTwoRowsOfTheTableShareASectionAndAKey) {
  std::set<std::string> names;
  for (const Setting* row : setting::kAll) names.insert(ToLower(row->section) + "\n" + ToLower(row->key));
  EXPECT_EQ(names.size(), setting::kAll.size());
}

TEST_F(SettingsTest, APackitIniThatIsBinaryOrHasOneHugeLineGivesDefaultsAndKeepsItsBytes) {
  const std::string junk = std::string(10'000'000, 'x') + std::string("\0\xFF[=;\x1A", 6);
  WriteFile(ini_, junk);
  EXPECT_EQ(ReadSetting(setting::kFirstRun), "True");
  WriteSetting(setting::kFirstRun, "False");
  EXPECT_EQ(ReadSetting(setting::kFirstRun), "False");
  EXPECT_TRUE(ReadFile(ini_) == junk + "\r\n[launcher]\r\nFIRSTRUN=False\r\n");
}

TEST_F(SettingsTest, ThePerUserStoreKeepsTheTwoApplicationNamesApart) {
  SaveSetting("Kes_Trn", "DEFAULT", "APP", "C:\\Kestrun");
  EXPECT_EQ(GetSetting("Kes_Trun", "DEFAULT", "APP", "none"), "none");
  EXPECT_EQ(GetSetting("Kes_Trn", "DEFAULT", "APP", "none"), "C:\\Kestrun");
}

TEST_F(SettingsTest, DeletingAPerUserSettingTwiceFails) {
  SaveSetting("Kes_Trun", "DEFAULT", "APP", "x");
  DeleteSetting("Kes_Trun", "DEFAULT", "APP");
  EXPECT_EQ(GetSetting("Kes_Trun", "DEFAULT", "APP", "none"), "none");
  EXPECT_EQ(ErrorNumberOf([] { return DeleteSetting("Kes_Trun", "DEFAULT", "APP"), 0; }), 5);
}

}  // namespace
}  // namespace kestrun
