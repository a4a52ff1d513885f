#include <gtest/gtest.h>

#include "program/frame_fixture.h"
#include "program/pack_command.h"
#include "support/zip_builder.h"

namespace kestrun {
namespace {

class PackZipTest : public FrameTest {
 protected:
  PackZipTest() {
    TellGameFolder();
    MakeArchive(archive, {"A.BMS"});
  }
  void Pack(const std::vector<ZipMember>& members, const std::string& name = "NEW.BMS") {
    WriteFile(MapPath("maps.zip"), BuildZip(members));
    PackCommand("-pack \"" + archive + "\" \"" + name + "\" \"" + MapPath("maps.zip") + "\"/z");
  }
  [[nodiscard]] std::string Unpacked(const std::string& path) {
    return ReadFile(Path("temp\\unzipped_NEW.BMS\\" + path));
  }

  const std::string archive = GamePath("dflw.pff");
};

TEST_F(PackZipTest, EveryFileOfTheZipGoesInUnderItsOwnBaseNameTheReadmeToo) {
  Pack({{"maps/", ""}, {"maps/deep/OASIS.BMS", "BMS oasis"}, {"A.BMS", "BMS new"}, {"readme.txt", "Read me"}});
  EXPECT_EQ(EntryOf(archive, "OASIS.BMS"), "BMS oasis");
  EXPECT_EQ(EntryOf(archive, "A.BMS"), "BMS new");
  EXPECT_EQ(EntryOf(archive, "readme.txt"), "Read me");
  EXPECT_EQ(EntryOf(archive, "NEW.BMS"), "(none)");
}

TEST_F(PackZipTest, TheFolderOfTheUnpackedFilesIsLeftBehind) {
  Pack({{"maps/deep/OASIS.BMS", "BMS oasis"}});
  EXPECT_EQ(Unpacked("maps\\deep\\OASIS.BMS"), "BMS oasis");
}

TEST_F(PackZipTest, AMissingZipIsReportedAndTheArchiveKept) {
  const std::string before = ReadFile(archive);
  desktop.dialogs().ExpectFileFailure("Error: packfile 53\r\nFile not found", MapPath("none.zip"));
  PackCommand("-pack \"" + archive + "\" \"NEW.BMS\" \"" + MapPath("none.zip") + "\"/z");
  EXPECT_EQ(ReadFile(archive), before);
}

TEST_F(PackZipTest, AMemberThatCannotBeUnpackedIsReportedAndTheArchiveKept) {
  ZipMember imploded{"OASIS.BMS", "data"};
  imploded.method = 6;
  const std::string before = ReadFile(archive);
  desktop.dialogs().ExpectFileFailure("Error: packfile 1033\r\nFile not found",
                                      Path("temp\\unzipped_NEW.BMS\\OASIS.BMS"));
  Pack({{"A.BMS", "BMS new"}, imploded});
  EXPECT_EQ(ReadFile(archive), before);
}

TEST_F(PackZipTest, WhatAnEarlierZipLeftBehindIsNotPackedInstead) {
  Pack({{"OASIS.BMS", "BMS oasis"}});
  const std::string before = ReadFile(archive);
  ZipMember imploded{"OASIS.BMS", "data"};
  imploded.method = 6;
  desktop.dialogs().ExpectFileFailure("Error: packfile 1033\r\nFile not found",
                                      Path("temp\\unzipped_NEW.BMS\\OASIS.BMS"));
  Pack({imploded});
  EXPECT_EQ(ReadFile(archive), before);
}

TEST_F(PackZipTest, AMemberThatLeadsOutsidePacksNothingAndTouchesNothing) {
  WriteFile(Path("temp\\outside.bms"), "not from the zip");
  const std::string before = ReadFile(archive);
  desktop.dialogs().ExpectBox("error writing file");
  desktop.dialogs().ExpectBox("Error: packfile 76\r\nThe zip's member '../outside.bms' leads outside its folder.");
  Pack({{"A.BMS", "BMS new"}, {"../outside.bms", "BMS"}, {"OASIS.BMS", "BMS oasis"}});
  EXPECT_EQ(Unpacked("OASIS.BMS"), "BMS oasis");
  EXPECT_EQ(ReadFile(archive), before);
  EXPECT_EQ(ReadFile(Path("temp\\outside.bms")), "not from the zip");
}

// A link on a web page can hold the command: its name must not choose where the zip is unpacked.
TEST_F(PackZipTest, ANameThatLeadsOutOfTheTemporaryFolderUnpacksNothing) {
  const std::string before = ReadFile(archive);
  for (const std::string name : {"x\\..\\..\\elsewhere", "..\\elsewhere", "x:y", "x/../../elsewhere"}) {
    desktop.dialogs().ExpectBox("Error: packfile 76\r\nThe name 'unzipped_" + name +
                                "' leads outside the temporary folder.");
    Pack({{"OASIS.BMS", "BMS oasis"}}, name);
  }
  EXPECT_EQ(ReadFile(archive), before);
  EXPECT_FALSE(native_files.Exists(Path("elsewhere")));
  EXPECT_FALSE(native_files.Exists(Path("temp\\elsewhere")));
}

TEST_F(PackZipTest, TheLogLineIsWrittenWhateverBecameOfTheZip) {
  desktop.dialogs().ExpectFileFailure("Error: packfile 53\r\nFile not found", Path("temp\\none.zip"));
  PackCommand("-pack \"%GAMEDIR%\\dflw.pff\" \"MAPS\" \"%TEMPDIR%\\none.zip\"/Z");
  EXPECT_EQ(ReadFile(ProgramPath("kestrun.log")), "%TEMPDIR%\\none.zip --> %GAMEDIR%\\dflw.pff:MAPS ~>OK\r\n");
}

TEST_F(PackZipTest, AnEmptyFileInTheZipIsReportedAndTheArchiveKept) {
  const std::string before = ReadFile(archive);
  desktop.dialogs().ExpectFileFailure("Error: packfile 9\r\nThe file is empty",
                                      Path("temp\\unzipped_NEW.BMS\\readme.txt"));
  Pack({{"A.BMS", "BMS new"}, {"readme.txt", ""}});
  EXPECT_EQ(ReadFile(archive), before);
}

TEST_F(PackZipTest, APasswordThatIsNotGivenIsReportedAndTheArchiveKept) {
  ZipMember secret{"OASIS.BMS", std::string(20, 's')};
  secret.flags = 1;
  const std::string before = ReadFile(archive);
  desktop.dialogs().ExpectInput("Give Password", std::nullopt).WithTitle("Password requered");
  desktop.dialogs().ExpectBox("Password is incorrect");
  desktop.dialogs().ExpectFileFailure("Error: packfile 1033\r\nFile not found",
                                      Path("temp\\unzipped_NEW.BMS\\OASIS.BMS"));
  Pack({{"A.BMS", "BMS new"}, secret});
  EXPECT_EQ(ReadFile(archive), before);
}

TEST_F(PackZipTest, AMemberWithAWrongChecksumIsToldAndPackedAllTheSame) {
  ZipMember damaged{"OASIS.BMS", "BMS oasis"};
  damaged.crc = 1;
  desktop.dialogs().ExpectBox("CRC calculation failed");
  Pack({damaged});
  EXPECT_EQ(EntryOf(archive, "OASIS.BMS"), "BMS oasis");
}

TEST_F(PackZipTest, AZipWithoutMembersLeavesTheArchiveReadable) {
  Pack({});
  EXPECT_EQ(EntryOf(archive, "A.BMS"), std::string(100, 'o'));
}

TEST_F(PackZipTest, ANameOfSeventeenCharactersIsRefusedAndTheArchiveKept) {
  const std::string before = ReadFile(archive);
  desktop.dialogs().ExpectBox("Error: packfile 1032\r\nMax file name size: 16 characters.");
  Pack({{"A.BMS", "BMS new"}, {"SEVENTEEN_LET.BMS", "BMS"}});
  EXPECT_EQ(ReadFile(archive), before);
}

}  // namespace
}  // namespace kestrun
