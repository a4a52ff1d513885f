#include "base/convert.h"
#include "formats/pff_fixture.h"

namespace kestrun {
namespace {

class PffEntriesTest : public PffTest {
 protected:
  PffEntriesTest() {
    WriteArchive({{"ABC.BMS", "0123456789"}, {"42", "digits"}, {"EMPTY.BMS", ""}});
    EXPECT_TRUE(archive.LoadPff(archive_path));
  }
};

TEST_F(PffEntriesTest, NamesAreFoundWhateverTheirCaseAndPadding) {
  std::string bytes = BuildArchive({{"ABC.BMS         ", "padded with blanks"}, {"xyz.bms", "padded with NUL"}});
  WriteFile(archive_path, bytes);
  Load();
  int32_t index = -1;
  EXPECT_TRUE(archive.PFFFileExists("abc.bms", index));
  EXPECT_EQ(index, 0);
  EXPECT_TRUE(archive.PFFFileExists("  XYZ.BMS ", index));
  EXPECT_EQ(index, 1);
  EXPECT_FALSE(archive.PFFFileExists("none", index));
  EXPECT_EQ(index, -1);
}

TEST_F(PffEntriesTest, ANumericTextIsANumberNotAName) {
  EXPECT_EQ(archive.FileName("1"), "42");
  EXPECT_EQ(ErrorNumberOf([&] { static_cast<void>(archive.FileName("42")); }), error::kSubscriptOutOfRange);
  EXPECT_EQ(ErrorNumberOf([&] { static_cast<void>(archive.FileName(-1)); }), error::kSubscriptOutOfRange);
  EXPECT_EQ(ErrorNumberOf([&] { static_cast<void>(archive.FileLength("none")); }), 1033);
  EXPECT_EQ(events.back(), "1033 File not found.");
}

TEST_F(PffEntriesTest, RenamingPadsWithBlanksAndCutsAtSixteen) {
  archive.SetFileName("ABC.BMS", "  A_VERY_LONG_NAME.BMS ");
  EXPECT_EQ(archive.FileName(0), "A_VERY_LONG_NAME");
  archive.SetFileName(0, "B");
  int32_t pack_date = 0;
  std::string name;
  int32_t length = 0;
  int32_t offset = 0;
  std::string info;
  bool deleted = true;
  EXPECT_EQ(archive.GetPFFInfo(0, pack_date, name, length, offset, info, deleted), 0);
  EXPECT_EQ(name, "B               ");
  EXPECT_EQ(length, 10);
  EXPECT_EQ(offset, 20);
  EXPECT_EQ(info, "0");
  EXPECT_FALSE(deleted);
  EXPECT_TRUE(archive.Edited());
}

TEST_F(PffEntriesTest, RenamingFollowsAStagedFileOnlyWhenItsNameFillsTheField) {
  Pack("SIXTEEN_LETT.BMS", "staged");
  archive.SetFileName("SIXTEEN_LETT.BMS", "SHORT.BMS");
  EXPECT_EQ(archive.FileWaiting("SHORT.BMS"), 1);
  EXPECT_EQ(archive.FileWaiting("SIXTEEN_LETT.BMS"), 0);
  Pack("LITTLE.BMS", "staged");
  archive.SetFileName("LITTLE.BMS", "OTHER.BMS");
  EXPECT_EQ(archive.FileWaiting("OTHER.BMS"), 0);
  EXPECT_EQ(archive.FileWaiting("LITTLE.BMS"), 2);
}

TEST_F(PffEntriesTest, DeletingTwiceShortensTheNameByOneMoreCharacter) {
  EXPECT_FALSE(archive.FileDeleted(0));
  archive.SetFileDeleted("ABC.BMS", false);
  EXPECT_TRUE(archive.FileDeleted(0));
  EXPECT_EQ(archive.FileName(0), "ABC.BM");
  archive.SetFileDeleted(0, true);
  EXPECT_EQ(archive.FileName(0), "ABC.B");
  int32_t index = -1;
  EXPECT_TRUE(archive.PFFFileExists("abc.b", index));
  archive.SavePffFile();
  ClsPFF fresh;
  ASSERT_TRUE(fresh.LoadPff(archive_path));
  EXPECT_TRUE(fresh.FileDeleted(0));
}

TEST_F(PffEntriesTest, AdditionalInformationGoesInByNumberOnALoadedArchiveAndByNameOnANewOne) {
  EXPECT_EQ(ErrorNumberOf([&] { archive.SetFileInfo("ABC.BMS", 7); }), 1034);
  EXPECT_EQ(events.back(), "1034 This additional information is too big for this kind of PFF file.");
  archive.SetFileInfo(0, 7);
  EXPECT_EQ(archive.FileInfo("ABC.BMS"), 7);
  archive.NewPffFile(Path("new.pff"));
  Pack("N.BMS", "n");
  archive.SetFileInfo("N.BMS", 8);
  EXPECT_EQ(archive.FileInfo(0), 8);
}

TEST_F(PffEntriesTest, TheChecksumLeavesTheFirstByteOut) {
  // CRC-32 of "123456789" is the algorithm's published check value.
  EXPECT_EQ(static_cast<uint32_t>(archive.FileCRC32(0)), 0xCBF43926U);
  EXPECT_EQ(ErrorNumberOf([&] { static_cast<void>(archive.FileCRC32("ABC.BMS")); }), error::kTypeMismatch);
  EXPECT_EQ(ErrorNumberOf([&] { static_cast<void>(archive.FileCRC32("none")); }), 1033);
}

TEST_F(PffEntriesTest, AnEntryOfLengthZeroCannotBeExtracted) {
  Bytes bytes;
  EXPECT_EQ(ErrorNumberOf([&] { archive.ExtractFile(2, bytes, ""); }), error::kSubscriptOutOfRange);
}

TEST_F(PffEntriesTest, ExtractingToAFileReplacesIt) {
  WriteFile(Path("out.bms"), "an older and longer content");
  Bytes bytes;
  EXPECT_TRUE(archive.ExtractFile(0, bytes, Path("out.bms")));
  EXPECT_EQ(ReadFile(Path("out.bms")), "0123456789");
}

TEST_F(PffEntriesTest, FieldsWrittenDirectlyAreNoEdit) {
  EXPECT_EQ(archive.WritePFFInfo(0, 5, "NEW.BMS", "77", true), 0);
  EXPECT_FALSE(archive.Edited());
  EXPECT_EQ(archive.FilePackDate(0), 5);
  EXPECT_EQ(archive.FileInfo(0), 77);
  EXPECT_TRUE(archive.FileDeleted(0));
  EXPECT_EQ(archive.WritePFFInfo(9, 5, "NEW.BMS", "77", true), error::kSubscriptOutOfRange);
  EXPECT_EQ(archive.WritePFFInfo(0, 5, "NEW.BMS", "no number", true), error::kTypeMismatch);
}

TEST_F(PffEntriesTest, AMissingOutsideFileIsToldTwiceAndRaisesNothing) {
  Bytes bytes{1, 2, 3};
  EXPECT_TRUE(archive.FileBuffer(Path("none.bms"), bytes).empty());
  EXPECT_EQ(events, (std::vector<std::string>{"1033 File not found.", "1033 File not found."}));
}

TEST_F(PffEntriesTest, AnEmptyOutsideFileIsToldOnce) {
  WriteFile(Path("empty.bms"), "");
  Bytes bytes;
  EXPECT_TRUE(archive.FileBuffer(Path("empty.bms"), bytes).empty());
  EXPECT_EQ(events, std::vector<std::string>{"9 Subscript out of range"});
}

TEST_F(PffEntriesTest, ExtensionIsWhatStandsBehindTheLastDot) {
  EXPECT_EQ(ClsPFF::GetFileExt("a.b.BMS"), "BMS");
  EXPECT_EQ(ClsPFF::GetFileExt("none"), "");
}

TEST_F(PffEntriesTest, TrimmingTakesNulAndMarkAwayWhereverTheyStand) {
  EXPECT_EQ(ClsPFF::ZTrim(std::string("  A\0B\x7F C \0", 10)), "AB C");
}

TEST_F(PffEntriesTest, ScriptsReachEveryOperationByName) {
  const Ref<ClsPFF> object = MakeRef<ClsPFF>();
  EXPECT_TRUE(ToBoolean(CallMember(*object, "loadpff", {archive_path})));
  EXPECT_EQ(ToLong(GetMember(*object, "PFFTotalFiles")), 3);
  EXPECT_EQ(ToText(GetMember(*object, "FileName", {0})), "ABC.BMS");
  PutMember(*object, "FileName", "X.BMS", {0});
  EXPECT_EQ(ToText(GetMember(*object, "FileName", {"X.BMS"})), "X.BMS");
  std::vector<Variant> arguments{0, Variant(), ""};
  EXPECT_TRUE(ToBoolean(object->Call(object->FindMember("ExtractFile"), arguments)));
  EXPECT_EQ(arguments[1].array().elements.size(), 10U);
  EXPECT_EQ(ToLong(arguments[1].array().elements[3]), '3');
  EXPECT_TRUE(ToBoolean(CallMember(*object, "PackFile", {arguments[1], "COPY.BMS"})));
  CallMember(*object, "SavePffFile");
  EXPECT_EQ(Stored("COPY.BMS"), "0123456789");
  std::vector<std::string> names;
  for (const MemberInfo& member : object->ListMembers()) names.push_back(member.name);
  const std::vector<std::string> slots{
      "IsNewPFF",    "OpenFileName",  "Edited",       "PFFTotalFiles", "PFFTableOffset", "PFFItemInfoSize",
      "PFFItemSize", "PFFVersion",    "FilePackDate", "FileName",      "FileLength",     "FileOffset",
      "FileDeleted", "FileInfo",      "FileCRC32",    "GetPFFInfo",    "WritePFFInfo",   "ExtractFile",
      "NewPffFile",  "LoadPff",       "SavePffFile",  "FileBuffer",    "PackFile",       "GetFileExt",
      "FileWaiting", "PFFFileExists", "ZTrim"};
  EXPECT_EQ(names, slots);
}

}  // namespace
}  // namespace kestrun
