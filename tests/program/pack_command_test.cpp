#include "program/pack_command.h"

#include <gtest/gtest.h>

#include "program/frame_fixture.h"

namespace kestrun {
namespace {

// Logged text is single-byte: the tests that read it stay in the temporary folder's names by macro.
constexpr const char* kNotThere =
    "\r\nIt is not there any more, or its name is misspelled. Check the name and the folder.";

class PackCommandTest : public FrameTest {
 protected:
  PackCommandTest() {
    TellGameFolder();
    MakeArchive(GamePath("dflw.pff"), {"A.BMS"});
    WriteFile(MapPath("Oasis.bms"), "BMS oasis");
    WriteFile(ProgramPath("extra.bin"), "beside the program");
    WriteFile(Path("temp\\temporary.bin"), "in the temporary folder");
  }

  void Pack(const std::string& archive, const std::string& name, const std::string& source,
            const std::string& end = "") {
    PackCommand("-pack \"" + archive + "\" \"" + name + "\" \"" + source + "\"" + end);
  }
  [[nodiscard]] std::string Log() { return ReadFile(ProgramPath("kestrun.log")); }
};

TEST_F(PackCommandTest, PacksAFileUnderANameAndNothingElse) {
  Pack(GamePath("dflw.pff"), "NEW.BMS", MapPath("Oasis.bms"));
  EXPECT_EQ(EntryOf(GamePath("dflw.pff"), "NEW.BMS"), "BMS oasis");
  EXPECT_EQ(EntryOf(GamePath("dflw.pff"), "A.BMS"), std::string(100, 'o'));
  EXPECT_FALSE(FileIsThere(GamePath("NEW.BMS")));
}

TEST_F(PackCommandTest, ReplacesAnEntryWithoutAQuestion) {
  Pack("%GAMEDIR%\\dflw.pff", "A.BMS", MapPath("Oasis.bms"));
  EXPECT_EQ(EntryOf(GamePath("dflw.pff"), "A.BMS"), "BMS oasis");
}

TEST_F(PackCommandTest, FillsTheThreeMacrosAndLogsThemAsTyped) {
  Pack("%GAMEDIR%\\dflw.pff", "ONE.BIN", "%APPDIR%\\extra.bin");
  Pack("%GAMEDIR%\\dflw.pff", "TWO.BIN", "%TEMPDIR%\\temporary.bin");
  EXPECT_EQ(EntryOf(GamePath("dflw.pff"), "ONE.BIN"), "beside the program");
  EXPECT_EQ(EntryOf(GamePath("dflw.pff"), "TWO.BIN"), "in the temporary folder");
  EXPECT_EQ(Log(),
            "%APPDIR%\\extra.bin --> %GAMEDIR%\\dflw.pff:ONE.BIN ~>OK\r\n"
            "%TEMPDIR%\\temporary.bin --> %GAMEDIR%\\dflw.pff:TWO.BIN ~>OK\r\n");
}

TEST_F(PackCommandTest, MacrosInAnotherCaseAreNoMacros) {
  desktop.dialogs().ExpectBox(std::string("Error: packfile 1033\r\nFile not found: ") + "%appdir%\\extra.bin" +
                              kNotThere);
  Pack("%GAMEDIR%\\dflw.pff", "ONE.BIN", "%appdir%\\extra.bin");
}

TEST_F(PackCommandTest, AMissingSourceIsReportedAndStillLogged) {
  const std::string before = ReadFile(GamePath("dflw.pff"));
  desktop.dialogs().ExpectBox(std::string("Error: packfile 1033\r\nFile not found: ") + "C:\\nowhere.bms" + kNotThere);
  Pack("%GAMEDIR%\\dflw.pff", "A.BMS", "C:\\nowhere.bms");
  EXPECT_EQ(ReadFile(GamePath("dflw.pff")), before);
  EXPECT_EQ(Log(), "C:\\nowhere.bms --> %GAMEDIR%\\dflw.pff:A.BMS ~>OK\r\n");
}

TEST_F(PackCommandTest, AMissingArchiveIsStillLogged) {
  Pack("%GAMEDIR%\\none.pff", "A.BMS", "%APPDIR%\\extra.bin");
  EXPECT_EQ(Log(), "%APPDIR%\\extra.bin --> %GAMEDIR%\\none.pff:A.BMS ~>OK\r\n");
}

TEST_F(PackCommandTest, APackWhereNoArchiveIsMakesOneThatCanBeLoaded) {
  Pack("%GAMEDIR%\\none.pff", "A.BMS", "%APPDIR%\\extra.bin");
  Pack("%GAMEDIR%\\none.pff", "B.BMS", "%APPDIR%\\extra.bin");
  const std::string extra = ReadFile(ProgramPath("extra.bin"));
  EXPECT_EQ(EntryOf(GamePath("none.pff"), "A.BMS"), extra);
  EXPECT_EQ(EntryOf(GamePath("none.pff"), "B.BMS"), extra);
}

TEST_F(PackCommandTest, AnArchiveThatIsNoneIsReportedAndStillLogged) {
  WriteFile(GamePath("none.pff"), "no archive");
  desktop.dialogs().ExpectBox("Error: packfile 321\r\nThe archive '" + GamePath("none.pff") +
                              "' could not be read, so it is left as it is.");
  Pack("%GAMEDIR%\\none.pff", "A.BMS", "%APPDIR%\\extra.bin");
  EXPECT_EQ(ReadFile(GamePath("none.pff")), "no archive");
  EXPECT_EQ(Log(), "%APPDIR%\\extra.bin --> %GAMEDIR%\\none.pff:A.BMS ~>OK\r\n");
}

// A file of that length takes no room on the disk: nothing of it was written.
TEST_F(PackCommandTest, ASourceOverTwoGigabytesIsRefusedWithItsLengthBeforeAnyWork) {
  constexpr uint64_t kBytes = 0x80000000;
  native_files.Open(MapPath("Huge.bms"), OpenMode::kCreate)->Truncate(kBytes);
  const std::string before = ReadFile(GamePath("dflw.pff"));
  const std::string sentence =
      "The file '" + MapPath("Huge.bms") + "' has 2147483648 bytes. Files over 2 GB are refused.";
  desktop.dialogs().ExpectBox("Error: packfile 6\r\n" + sentence);
  Pack("%GAMEDIR%\\dflw.pff", "A.BMS", MapPath("Huge.bms"));
  EXPECT_EQ(ReadFile(GamePath("dflw.pff")), before);
  native_files.Delete(MapPath("Huge.bms"));
}

TEST_F(PackCommandTest, AnEmptySourceIsReportedAndTheEntryKept) {
  WriteFile(MapPath("Empty.bms"), "");
  const std::string before = ReadFile(GamePath("dflw.pff"));
  desktop.dialogs().ExpectBox("Error: packfile 9\r\nThe file is empty: " + MapPath("Empty.bms") +
                              "\r\nChoose another file, or get this one again.");
  Pack("%GAMEDIR%\\dflw.pff", "A.BMS", MapPath("Empty.bms"));
  EXPECT_EQ(ReadFile(GamePath("dflw.pff")), before);
}

TEST_F(PackCommandTest, ANameOfSeventeenCharactersIsRefused) {
  desktop.dialogs().ExpectBox("Error: packfile 1032\r\nMax file name size: 16 characters.");
  Pack("%GAMEDIR%\\dflw.pff", "SEVENTEEN_LET.BMS", MapPath("Oasis.bms"));
}

TEST_F(PackCommandTest, WhileAnotherProcessChangesTheArchiveItIsNamedAfterFiveSeconds) {
  const std::string archive = GamePath("dflw.pff");
  const std::string before = ReadFile(archive);
  NativeFileSystem other;
  const auto turn = other.TryLock(other.TruePath(archive) + ".lock", "another kestrun");
  const std::string process = std::to_string(other.ReadLockHolder(other.TruePath(archive) + ".lock").process);
  desktop.dialogs().ExpectBox("Error: packfile 70\r\n'" + archive + "' is in use by another kestrun (process " +
                              process + "). Try again when it has finished.");
  Pack(archive, "A.BMS", MapPath("Oasis.bms"));
  EXPECT_EQ(ReadFile(archive), before);
  EXPECT_EQ(desktop.clock().NowMs(), 5000U);
}

TEST_F(PackCommandTest, AnEarlierChangeThatWasCutShortIsALineOfTheLog) {
  WriteFile(GamePath("dflw.pff.journal"), "");
  Pack("%GAMEDIR%\\dflw.pff", "A.BMS", MapPath("Oasis.bms"));
  EXPECT_EQ(EntryOf(GamePath("dflw.pff"), "A.BMS"), "BMS oasis");
  EXPECT_NE(Log().find("was cut short before it began; the archive is as it was.\r\n"), std::string::npos);
}

TEST_F(PackCommandTest, AWebAddressIsFetchedAndThenReadAsAPathWhichFails) {
  desktop.internet().Reply("http://localhost/Oasis.bms", "BMS fetched");
  desktop.dialogs().ExpectBox(std::string("Error: packfile 1033\r\nFile not found: ") + "http://localhost/Oasis.bms" +
                              kNotThere);
  Pack("%GAMEDIR%\\dflw.pff", "A.BMS", "http://localhost/Oasis.bms");
  EXPECT_EQ(ReadFile(Path("temp\\A.BMS")), "BMS fetched");
  EXPECT_EQ(Log(), "http://localhost/Oasis.bms --> %GAMEDIR%\\dflw.pff:A.BMS ~>OK\r\n");
}

TEST_F(PackCommandTest, AnAddressThatCannotBeFetchedIsSaid) {
  desktop.dialogs().ExpectBox("Unable to download http://localhost/none.bms");
  Pack("%GAMEDIR%\\dflw.pff", "A.BMS", "http://localhost/none.bms");
}

// A link on a web page can hold the command: its name must not choose where the download goes.
TEST_F(PackCommandTest, ADownloadUnderANameThatLeadsOutOfTheTemporaryFolderIsRefused) {
  desktop.internet().Reply("http://localhost/Oasis.bms", "BMS oasis");
  desktop.dialogs().ExpectBox("Error: packfile 76\r\nThe name '..\\start.bat' leads outside the temporary folder.");
  Pack("%GAMEDIR%\\dflw.pff", "..\\start.bat", "http://localhost/Oasis.bms");
  EXPECT_FALSE(FileIsThere(Path("start.bat")));
}

TEST_F(PackCommandTest, FewerThanSixQuotesPackNothingAndLogNothing) {
  PackCommand("-pack \"" + GamePath("dflw.pff") + "\" \"NEW.BMS\" " + MapPath("Oasis.bms"));
  EXPECT_EQ(EntryOf(GamePath("dflw.pff"), "NEW.BMS"), "(none)");
  EXPECT_FALSE(FileIsThere(ProgramPath("kestrun.log")));
}

TEST_F(PackCommandTest, TheZipFlagBehindABlankIsNone) {
  Pack("%GAMEDIR%\\dflw.pff", "NEW.BMS", MapPath("Oasis.bms"), " /z");
  EXPECT_EQ(EntryOf(GamePath("dflw.pff"), "NEW.BMS"), "BMS oasis");
}

TEST_F(PackCommandTest, WordsFromAShellBecomeTheTextThatThePersonMeans) {
  EXPECT_EQ(JoinCommandWords({"-pack \"a.pff\" \"N.BMS\" \"m.bms\"/z"}), "-pack \"a.pff\" \"N.BMS\" \"m.bms\"/z");
  EXPECT_EQ(JoinCommandWords({"-checklist", "my night.lst"}), "-checklist \"my night.lst\"");
  EXPECT_EQ(JoinCommandWords({"-pack", "a.pff", "N.BMS", "my map.bms"}), "-pack \"a.pff\" \"N.BMS\" \"my map.bms\"");
  EXPECT_EQ(JoinCommandWords({"-pack", "a.pff", "N.BMS", "m.zip", "/z"}), "-pack \"a.pff\" \"N.BMS\" \"m.zip\" /z");
  EXPECT_EQ(JoinCommandWords({"-pack", "a.pff", "N.BMS", "my maps.ZIP/Z"}),
            "-pack \"a.pff\" \"N.BMS\" \"my maps.ZIP\"/z");  // typed as "my maps.ZIP"/Z
  EXPECT_EQ(JoinCommandWords({"-pack", "a.pff", "N.BMS", "/tmp/z"}), "-pack \"a.pff\" \"N.BMS\" \"/tmp/z\"");
  EXPECT_EQ(JoinCommandWords({"-style", "my", "style.stl"}), "-style my style.stl");
  EXPECT_EQ(JoinCommandWords({}), "");
}

}  // namespace
}  // namespace kestrun
