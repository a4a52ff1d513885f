#include <chrono>
#include <filesystem>

#include "base/calendar.h"
#include "formats/zip/mod_disk_io.h"
#include "formats/zip_fixture.h"
#include "support/failing_files.h"

namespace kestrun {
namespace {

using testing::ElementsAre;
using testing::IsEmpty;

class ZipUnpackTest : public ZipTest {
 protected:
  // The members of a selection that is not theirs stay where they are.
  void ExpectRefused(const Cls_Zip::Selection& selection) {
    EXPECT_EQ(zip->UnPack(selection, out), -10);
    EXPECT_FALSE(FileIsThere(out));
  }
  // Last write or last access of an extracted file, as the clock on the wall shows it.
  [[nodiscard]] std::string WrittenAt(std::string_view name) {
    const std::string path = ReplaceAll(Out(name), "\\", "/");
    const auto time = std::filesystem::last_write_time(std::filesystem::path(std::u8string(path.begin(), path.end())));
    const auto system = std::chrono::file_clock::to_sys(time);
    const time_t seconds =
        std::chrono::system_clock::to_time_t(std::chrono::time_point_cast<std::chrono::system_clock::duration>(system));
    const tm* local = std::localtime(&seconds);
    return DateToText(JoinDate(DayNumber(1900 + local->tm_year, 1 + local->tm_mon, local->tm_mday),
                               local->tm_hour * 3600 + local->tm_min * 60 + local->tm_sec));
  }
};

TEST_F(ZipUnpackTest, StoredMembersAreWrittenBelowTheDestination) {
  LoadZip({{"alpha.bms", "BMS alpha"}, {"maps/deep/beta.bms", "BMS beta"}});
  EXPECT_EQ(UnPackAll(), 0);
  EXPECT_EQ(Extracted("alpha.bms"), "BMS alpha");
  EXPECT_EQ(Extracted("maps\\deep\\beta.bms"), "BMS beta");
}

TEST_F(ZipUnpackTest, OnlyChosenMembersAreWritten) {
  LoadZip({{"alpha.bms", "BMS"}, {"beta.bms", "BMS"}, {"gamma.bms", "BMS"}});
  EXPECT_EQ(UnPackOnly(2), 0);
  EXPECT_THAT(OutEntries(), ElementsAre("beta.bms"));
}

TEST_F(ZipUnpackTest, ADestinationMayEndInEitherSeparator) {
  LoadZip({{"alpha.bms", "BMS"}, {"maps/", ""}});
  EXPECT_EQ(zip->UnPack(All(), Path("one\\")), 0);
  EXPECT_EQ(zip->UnPack(All(), Path("two/")), 0);
  EXPECT_EQ(ReadFile(Path("one\\alpha.bms")), "BMS");
  EXPECT_EQ(ReadFile(Path("two\\alpha.bms")), "BMS");
  EXPECT_TRUE(native_files.IsFolder(Path("one\\maps")));
  EXPECT_TRUE(native_files.IsFolder(Path("two\\maps")));
}

TEST_F(ZipUnpackTest, AnExistingFileIsReplaced) {
  native_files.MakeFolder(out);
  WriteFile(Out("alpha.bms"), "an older and longer map");
  LoadZip({{"alpha.bms", "BMS"}});
  EXPECT_EQ(UnPackAll(), 0);
  EXPECT_EQ(Extracted("alpha.bms"), "BMS");
}

TEST_F(ZipUnpackTest, ADirectoryEntryOnlyMakesTheFolder) {
  ZipMember folder{"maps/deep/", ""};
  folder.local_offset = 0xFFFFFFF0;  // not looked at
  folder.crc = 1;
  LoadZip({folder});
  EXPECT_EQ(UnPackAll(), 0);
  EXPECT_TRUE(native_files.IsFolder(Out("maps\\deep")));
  EXPECT_THAT(native_files.List(Out("maps\\deep")), IsEmpty());
}

TEST_F(ZipUnpackTest, ASelectionOfAnotherSizeWritesNothing) {
  LoadZip({{"alpha.bms", "BMS"}, {"beta.bms", "BMS"}});
  ExpectRefused({});
  ExpectRefused(Cls_Zip::Selection(2, true));
  ExpectRefused(Cls_Zip::Selection(4, true));
}

TEST_F(ZipUnpackTest, AnArchiveWithoutMembersHasNothingToUnpack) {
  LoadZip({});
  ExpectRefused(Cls_Zip::Selection(1, true));
}

TEST_F(ZipUnpackTest, AStoredMemberOfZeroLengthIsAnEmptyFileWithoutAWord) {
  LoadZip({{"empty.txt", ""}});
  EXPECT_EQ(UnPackAll(), 0);
  EXPECT_EQ(Extracted("empty.txt"), "");
}

TEST_F(ZipUnpackTest, AnEmptyMemberWithAChecksumIsToldAndWritten) {
  ZipMember member{"empty.txt", ""};
  member.crc = 1;
  LoadZip({member});
  ExpectBox("CRC error");
  EXPECT_EQ(UnPackAll(), 0);
  EXPECT_EQ(Extracted("empty.txt"), "");
}

TEST_F(ZipUnpackTest, AWrongChecksumIsToldAndTheFileWritten) {
  ZipMember member{"alpha.bms", "BMS"};
  member.crc = 1;
  LoadZip({member});
  ExpectBox("CRC calculation failed");
  EXPECT_EQ(UnPackAll(), 0);
  EXPECT_EQ(Extracted("alpha.bms"), "BMS");
}

TEST_F(ZipUnpackTest, AWrongSizeIsToldAndTheFileWritten) {
  ZipMember member{"alpha.bms", "BMS"};
  member.uncompressed_size = 4;
  LoadZip({member});
  ExpectBox("Error in decompressed size");
  EXPECT_EQ(UnPackAll(), 0);
  EXPECT_EQ(Extracted("alpha.bms"), "BMS");
}

TEST_F(ZipUnpackTest, EachWarningOfAMemberComesInItsTurn) {
  ZipMember first{"empty.txt", ""};
  first.crc = 1;
  first.uncompressed_size = 1;
  ZipMember second{"alpha.bms", "BMS"};
  second.crc = 1;
  second.uncompressed_size = 1;
  LoadZip({first, second});
  ExpectBox("CRC error");
  ExpectBox("Error in decompressed size");
  ExpectBox("CRC calculation failed");
  ExpectBox("Error in decompressed size");
  EXPECT_EQ(UnPackAll(), 0);
  EXPECT_THAT(OutEntries(), ElementsAre("alpha.bms", "empty.txt"));
}

TEST_F(ZipUnpackTest, TheLocalHeaderSaysWhereTheDataStarts) {
  ZipMember member{"alpha.bms", "BMS"};
  member.extra = "central extra";
  member.local_name = "a longer local name.bms";
  member.local_extra = std::string(1000, 'x');
  LoadZip({member});
  EXPECT_EQ(UnPackAll(), 0);
  EXPECT_EQ(Extracted("alpha.bms"), "BMS");
}

TEST_F(ZipUnpackTest, AnOffsetWithoutALocalHeaderIsToldAndTheNextMemberWritten) {
  ZipMember nowhere{"nowhere.bms", "BMS"};
  nowhere.local_offset = 0xFFFFFFFF;
  ZipMember wrong{"wrong.bms", "BMS"};
  wrong.local_signature = 0x04034B51;
  ZipMember cut{"cut.bms", ""};
  LoadZip({nowhere, wrong, {"beta.bms", "BMS"}});
  ExpectBox("Error in zipfile");
  ExpectBox("Error in zipfile");
  EXPECT_EQ(UnPackAll(), 0);
  EXPECT_THAT(OutEntries(), ElementsAre("beta.bms"));
}

TEST_F(ZipUnpackTest, ALocalHeaderThatEndsWithTheFileIsNone) {
  ZipMember member{"alpha.bms", "BMS"};
  const std::string plain = BuildZip({member}, {"PK\x03\x04 and no more"});
  member.local_offset = static_cast<uint32_t>(plain.find("PK\x03\x04 and"));
  LoadZip({member}, {"PK\x03\x04 and no more"});
  ExpectBox("Error in zipfile");
  EXPECT_EQ(UnPackAll(), 0);
  EXPECT_FALSE(IsThere("alpha.bms"));
}

TEST_F(ZipUnpackTest, ASizeOfFourGigabytesTakesNoMoreThanTheFileHas) {
  ZipMember member{"alpha.bms", "BMS"};
  member.compressed_size = 0xFFFFFFFF;
  LoadZip({member});
  ExpectBox("CRC calculation failed");
  ExpectBox("Error in decompressed size");
  EXPECT_EQ(UnPackAll(), 0);
  EXPECT_EQ(Extracted("alpha.bms").substr(0, 5), "BMSPK");  // the data, and what follows it
}

TEST_F(ZipUnpackTest, UnsupportedMethodsGiveTheirStatusAndLaterMembersAreWritten) {
  std::vector<ZipMember> members;
  for (const uint16_t method : {1, 6, 7, 10}) {
    members.push_back({"method" + std::to_string(method), "data"});
    members.back().method = method;
  }
  members.push_back({"beta.bms", "BMS"});
  LoadZip(members);
  EXPECT_EQ(UnPackAll(), -10);
  EXPECT_THAT(OutEntries(), ElementsAre("beta.bms"));
  EXPECT_EQ(UnPackOnly(1), -10);
  EXPECT_EQ(UnPackOnly(2), -10);
  EXPECT_EQ(UnPackOnly(3), -10);
  EXPECT_EQ(UnPackOnly(4), -10);
  EXPECT_EQ(UnPackOnly(5), 0);
}

TEST_F(ZipUnpackTest, AnyOtherMethodIsPassedOverInSilence) {
  std::vector<ZipMember> members;
  for (const uint16_t method : {11, 12, 13, 14, 93, 99, 0x8008, 0xFFFF}) {
    members.push_back({"method" + std::to_string(method), "data"});
    members.back().method = method;
  }
  LoadZip(members);
  EXPECT_EQ(UnPackAll(), 0);
  EXPECT_FALSE(FileIsThere(out));
}

TEST_F(ZipUnpackTest, AFileIsDatedByItsMember) {
  ZipMember member{"alpha.bms", "BMS"};
  member.date = (26 << 9) | (3 << 5) | 14;
  member.time = (15 << 11) | (9 << 5) | (26 / 2);
  LoadZip({member});
  EXPECT_EQ(UnPackAll(), 0);
  EXPECT_EQ(WrittenAt("alpha.bms"), "3/14/2006 3:09:26 PM");
}

TEST_F(ZipUnpackTest, ADateWithoutATimeCounts) {
  ZipMember member{"alpha.bms", "BMS"};
  member.date = (26 << 9) | (3 << 5) | 14;
  LoadZip({member});
  EXPECT_EQ(UnPackAll(), 0);
  EXPECT_EQ(WrittenAt("alpha.bms"), "3/14/2006");
}

TEST_F(ZipUnpackTest, AMemberWithoutDateOrWithAnImpossibleOneKeepsTheTimeOfItsWriting) {
  ZipMember impossible{"beta.bms", "BMS"};
  impossible.date = (26 << 9) | (13 << 5) | 14;
  LoadZip({{"alpha.bms", "BMS"}, impossible});
  EXPECT_EQ(UnPackAll(), 0);
  const std::string year = WrittenAt("alpha.bms").substr(0, 9);
  EXPECT_EQ(year.find("1980"), std::string::npos);
  EXPECT_EQ(WrittenAt("beta.bms").find("2006"), std::string::npos);
}

TEST_F(ZipUnpackTest, AFullDiskIsToldForEachMember) {
  LoadZip({{"alpha.bms", "BMS"}, {"beta.bms", "BMS"}});
  native_files.MakeFolder(out);
  // Opening the archive, reading twice, its size; then opening the file to write.
  FailingFiles full(native_files, 4);
  desktop.UseFiles(full);
  ExpectBox("error writing file");
  EXPECT_EQ(UnPackAll(), 0);
  EXPECT_TRUE(full.HasFailed());
  EXPECT_THAT(OutEntries(), ElementsAre("beta.bms"));
}

TEST_F(ZipUnpackTest, AFolderInThePlaceOfAFileIsTold) {
  native_files.MakeFolder(out);
  native_files.MakeFolder(Out("alpha.bms"));
  LoadZip({{"alpha.bms", "BMS"}, {"odd/", "data"}});
  ExpectBox("error writing file");
  ExpectBox("error writing file");
  EXPECT_EQ(UnPackAll(), 0);
  EXPECT_TRUE(native_files.IsFolder(Out("alpha.bms")));
}

// The date of a member was given to what stood in its way.
TEST_F(ZipUnpackTest, WhatCouldNotBeReplacedKeepsItsDate) {
  native_files.MakeFolder(out);
  native_files.MakeFolder(Out("alpha.bms"));
  ZipMember member{"alpha.bms", "BMS"};
  member.date = (26 << 9) | (3 << 5) | 14;
  LoadZip({member});
  ExpectBox("error writing file");
  EXPECT_EQ(UnPackAll(), 0);
  EXPECT_EQ(WrittenAt("alpha.bms").find("2006"), std::string::npos);
}

TEST_F(ZipUnpackTest, AMissingArchiveReachesTheCaller) {
  LoadZip({{"alpha.bms", "BMS"}});
  native_files.Delete(zip_path);
  EXPECT_EQ(ErrorNumberOf([&] { return UnPackAll(); }), error::kFileNotFound);
}

TEST_F(ZipUnpackTest, AnObjectThatReadAnotherArchiveIsRefused) {
  LoadZip({{"alpha.bms", "BMS"}});
  const Ref<Cls_Zip> other = MakeRef<Cls_Zip>();
  WriteFile(Path("other.zip"), BuildZip({{"beta.bms", ""}, {"gamma.bms", ""}}));
  other->Get_Contents(Path("other.zip"));
  EXPECT_EQ(ErrorNumberOf([&] { return UnPackAll(); }), error::kSubscriptOutOfRange);
  EXPECT_EQ(ErrorNumberOf([&] { return MakeRef<Cls_Zip>()->UnPack(All(), out); }), error::kSubscriptOutOfRange);
}

TEST_F(ZipUnpackTest, AnotherListingWhileABoxStandsDoesNotDisturb) {
  ZipMember first{"alpha.bms", "BMS"};
  first.crc = 1;
  LoadZip({first, {"beta.bms", "BMS beta"}});
  WriteFile(Path("other.zip"), BuildZip({{"gamma.bms", "BMS gamma"}}));
  desktop.dialogs().ExpectBox("CRC calculation failed").WhileShown([&] { zip->Get_Contents(Path("other.zip")); });
  EXPECT_EQ(UnPackAll(), 0);
  EXPECT_EQ(Extracted("alpha.bms"), "BMS");
  EXPECT_EQ(Extracted("beta.bms"), "BMS beta");
}

// ---- folders -----------------------------------------------------------------------------------------------------

using ModDiskIoTest = ZipTest;

TEST_F(ModDiskIoTest, AllMissingFoldersOfAPathAreMade) {
  EXPECT_TRUE(zip::CreateFolders(Path("one/two\\three")));
  EXPECT_TRUE(native_files.IsFolder(Path("one\\two\\three")));
  EXPECT_TRUE(zip::CreateFolders(Path("one\\two\\three\\")));
}

TEST_F(ModDiskIoTest, AFolderThatCannotBeMadeIsTold) {
  WriteFile(Path("file"), "in the way");
  desktop.dialogs()
      .ExpectBox("Error While Attempting to Create Directories on Destination Drive.")
      .WithTitle("SETUP")
      .WithIcon(BoxIcon::kWarning)
      .WithButtons(BoxButtons::kOk);
  EXPECT_FALSE(zip::CreateFolders(Path("file\\below")));
}

TEST_F(ModDiskIoTest, ADriveThatIsNotThereEndsTheRoutineInSilence) { EXPECT_FALSE(zip::CreateFolders("Q:\\maps")); }

TEST_F(ModDiskIoTest, AMemberBelowAFileIsToldTwice) {
  WriteFile(out, "a file");
  LoadZip({{"alpha.bms", "BMS"}});
  desktop.dialogs().ExpectBox("Error While Attempting to Create Directories on Destination Drive.").WithTitle("SETUP");
  ExpectBox("error writing file");
  EXPECT_EQ(UnPackAll(), 0);
}

}  // namespace
}  // namespace kestrun
