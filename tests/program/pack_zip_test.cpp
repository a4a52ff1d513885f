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
  [[nodiscard]] static std::string CannotGoIn(int number, const std::string& member, const std::string& why) {
    return "Error: packfile " + std::to_string(number) + "\r\nThe zip's member '" + member +
           "' cannot go into the archive: " + why;
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
  desktop.dialogs().ExpectBox(CannotGoIn(1033, "OASIS.BMS", "File not found."));
  Pack({{"A.BMS", "BMS new"}, imploded});
  EXPECT_EQ(ReadFile(archive), before);
}

TEST_F(PackZipTest, WhatAnEarlierZipLeftBehindIsNotPackedInstead) {
  Pack({{"OASIS.BMS", "BMS oasis"}});
  const std::string before = ReadFile(archive);
  ZipMember imploded{"OASIS.BMS", "data"};
  imploded.method = 6;
  desktop.dialogs().ExpectBox(CannotGoIn(1033, "OASIS.BMS", "File not found."));
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

TEST_F(PackZipTest, AnEmptyFileInTheZipIsSkippedAndNamedInTheLog) {
  WriteFile(Path("temp\\maps.zip"), BuildZip({{"deep/readme.txt", ""}, {"A.BMS", "BMS new"}}));
  PackCommand("-pack \"%GAMEDIR%\\dflw.pff\" \"MAPS\" \"%TEMPDIR%\\maps.zip\"/z");
  EXPECT_EQ(EntryOf(archive, "A.BMS"), "BMS new");
  EXPECT_EQ(EntryOf(archive, "readme.txt"), "(none)");
  const std::string log = ReadFile(ProgramPath("kestrun.log"));
  EXPECT_NE(log.find("maps.zip: the member 'deep/readme.txt' is empty and was skipped.\r\n"), std::string::npos);
  EXPECT_TRUE(log.ends_with("%TEMPDIR%\\maps.zip --> %GAMEDIR%\\dflw.pff:MAPS ~>OK\r\n"));
}

// The zip held a longer copy of the archive's last entry and behind it a new file: both were destroyed.
TEST_F(PackZipTest, AGrowingLastEntryAndANewOneBehindItLieAsIfPackedOneByOne) {
  const std::string longer(300, 'l');
  for (const auto& [name, data] :
       std::vector<std::pair<std::string, std::string>>{{"A.BMS", longer}, {"NEW.BMS", "n"}}) {
    WriteFile(MapPath("one.bms"), data);
    PackCommand("-pack \"" + archive + "\" \"" + name + "\" \"" + MapPath("one.bms") + "\"");
  }
  const std::string one_by_one = ReadFile(archive);
  native_files.Delete(archive);
  MakeArchive(archive, {"A.BMS"});
  Pack({{"A.BMS", longer}, {"NEW.BMS", "n"}});
  EXPECT_EQ(EntryOf(archive, "A.BMS"), longer);
  EXPECT_EQ(EntryOf(archive, "NEW.BMS"), "n");
  EXPECT_EQ(ReadFile(archive), one_by_one);
}

// The longer one of the two was written over the next entry.
TEST_F(PackZipTest, OfTwoMembersWithOneNameTheSecondCounts) {
  MakeArchive(archive, {"A.BMS", "B.BMS"});
  Pack({{"one/A.BMS", "short"}, {"two/A.BMS", std::string(250, 'l')}});
  EXPECT_EQ(EntryOf(archive, "A.BMS"), std::string(250, 'l'));
  EXPECT_EQ(EntryOf(archive, "B.BMS"), std::string(100, 'o'));
}

TEST_F(PackZipTest, AMemberThatAnnouncesMoreThanItHoldsIsToldAndPackedAllTheSame) {
  ZipMember large{"HUGE.BMS", "BMS"};
  large.uncompressed_size = 0xFFFFFFF0;
  desktop.dialogs().ExpectBox("Error in decompressed size");
  Pack({large});
  EXPECT_EQ(EntryOf(archive, "HUGE.BMS"), "BMS");
}

TEST_F(PackZipTest, WhileAnotherProcessUsesTheUnpackedFilesNothingIsUnpackedOverThem) {
  const std::string folder = Path("temp\\unzipped_NEW.BMS");
  NativeFileSystem other;
  const auto turn = other.TryLock(other.TruePath(folder) + ".lock", "another kestrun");
  const std::string process = std::to_string(other.ReadLockHolder(other.TruePath(folder) + ".lock").process);
  const std::string before = ReadFile(archive);
  desktop.dialogs().ExpectBox("Error: packfile 70\r\n'" + folder + "' is in use by another kestrun (process " +
                              process + "). Try again when it has finished.");
  Pack({{"A.BMS", "BMS new"}});
  EXPECT_EQ(ReadFile(archive), before);
  EXPECT_FALSE(FileIsThere(folder));
}

TEST_F(PackZipTest, APasswordThatIsNotGivenIsReportedAndTheArchiveKept) {
  ZipMember secret{"OASIS.BMS", std::string(20, 's')};
  secret.flags = 1;
  const std::string before = ReadFile(archive);
  desktop.dialogs().ExpectInput("Give Password", std::nullopt).WithTitle("Password requered");
  desktop.dialogs().ExpectBox("Password is incorrect");
  desktop.dialogs().ExpectBox(CannotGoIn(1033, "OASIS.BMS", "File not found."));
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

// The member's data is a hole in the file: it takes no room on the disk.
TEST_F(PackZipTest, AMemberOverTwoGigabytesIsRefusedWithItsLengthBeforeAnythingIsUnpacked) {
  constexpr uint32_t kBytes = 0x80000000;
  ZipMember huge{"HUGE.BMS", ""};
  huge.compressed_size = kBytes;
  huge.uncompressed_size = kBytes;
  const std::string local = BuildZip({huge}).substr(0, 30 + huge.name.size());
  const std::string rest = BuildZip({huge}, {.directory_offset = static_cast<uint32_t>(local.size()) + kBytes});
  const std::string path = MapPath("maps.zip");
  {
    const auto file = native_files.Open(path, OpenMode::kCreate);
    file->WriteAt(0, AsBytes(local));
    file->WriteAt(local.size() + uint64_t{kBytes}, AsBytes(std::string_view(rest).substr(local.size())));
  }
  const std::string before = ReadFile(archive);
  desktop.dialogs().ExpectBox(
      "Error: packfile 6\r\nThe zip's member 'HUGE.BMS' has 2147483648 bytes. Files over 2 GB are refused.");
  PackCommand("-pack \"" + archive + "\" \"NEW.BMS\" \"" + path + "\"/z");
  EXPECT_EQ(ReadFile(archive), before);
  EXPECT_FALSE(FileIsThere(Path("temp\\unzipped_NEW.BMS\\HUGE.BMS")));
  native_files.Delete(path);
}

TEST_F(PackZipTest, AZipWithoutMembersLeavesTheArchiveReadable) {
  Pack({});
  EXPECT_EQ(EntryOf(archive, "A.BMS"), std::string(100, 'o'));
}

TEST_F(PackZipTest, ANameOfSeventeenCharactersIsRefusedAndTheArchiveKept) {
  const std::string before = ReadFile(archive);
  desktop.dialogs().ExpectBox(CannotGoIn(1032, "deep/SEVENTEEN_LET.BMS", "Max file name size: 16 characters."));
  Pack({{"A.BMS", "BMS new"}, {"deep/SEVENTEEN_LET.BMS", "BMS"}});
  EXPECT_EQ(ReadFile(archive), before);
}

}  // namespace
}  // namespace kestrun
