#include "formats/pff_fixture.h"
#include "support/failing_files.h"

namespace kestrun {
namespace {

class PffBadInputTest : public PffTest {
 protected:
  // The archive's bytes with one header field changed.
  [[nodiscard]] std::string WithHeaderField(size_t offset, uint32_t value) const {
    const std::string whole = BuildArchive({{"A.BMS", "aaaa"}, {"B.BMS", "bbbb"}});
    Bytes bytes(whole.begin(), whole.end());
    StoreU32(bytes, offset, value);
    return std::string(AsChars(bytes));
  }

  void ExpectRefused(const std::string& bytes, const std::string& event) {
    WriteFile(archive_path, bytes);
    EXPECT_FALSE(archive.LoadPff(archive_path));
    EXPECT_EQ(events, std::vector<std::string>{event});
    EXPECT_EQ(progress.back(), 0);
  }

  [[nodiscard]] std::string Sentence(const std::string& rest) const {
    return "The archive '" + archive_path + "' " + rest;
  }
};

TEST_F(PffBadInputTest, AMissingArchiveFailsWithTheEventOnly) {
  EXPECT_FALSE(archive.LoadPff(archive_path));
  EXPECT_EQ(events, std::vector<std::string>{"53 File not found"});
  EXPECT_EQ(progress, (std::vector<int>{1, 0}));
}

TEST_F(PffBadInputTest, ACountOfTwoThousandMillionInAHundredBytesFailsAtOnce) {
  ExpectRefused(WithHeaderField(8, 0x7FFFFFFF),
                "321 " + Sentence("is too short for the 2147483647 entries that its header claims."));
}

TEST_F(PffBadInputTest, ACountOfNothingOrLessIsNoArchive) {
  ExpectRefused(WithHeaderField(8, 0), "9 " + Sentence("holds no entries."));
  events.clear();
  ExpectRefused(WithHeaderField(8, 0x80000000), "9 " + Sentence("holds no entries."));
}

TEST_F(PffBadInputTest, ATableBehindTheEndIsRefused) {
  ExpectRefused(WithHeaderField(16, 0xFFFFFF00), "321 " + Sentence("says that its table lies behind its end."));
}

TEST_F(PffBadInputTest, AFileThatEndsInItsHeaderIsRefused) {
  ExpectRefused("PFF", "62 " + Sentence("ends inside its header."));
}

TEST_F(PffBadInputTest, ATruncatedTableIsRefused) {
  const std::string whole = BuildArchive({{"A.BMS", "aaaa"}, {"B.BMS", "bbbb"}});
  ExpectRefused(whole.substr(0, whole.size() - 20),
                "321 " + Sentence("is too short for the 2 entries that its header claims."));
}

TEST_F(PffBadInputTest, RecordsFurtherApartAreReadInTheirSteps) {
  WriteFile(archive_path, BuildArchive({{"A.BMS", "aaaa"}, {"B.BMS", "bbbb"}}, 48));
  Load();
  EXPECT_EQ(archive.PFFItemSize(), 48);
  EXPECT_EQ(archive.FileName(1), "B.BMS");
  EXPECT_EQ(Extract(1), "bbbb");
}

TEST_F(PffBadInputTest, AStepOfNothingReadsTheSameRecordForEachEntry) {
  WriteFile(archive_path, WithHeaderField(12, 0));
  Load();
  EXPECT_EQ(archive.FileName(0), "A.BMS");
  EXPECT_EQ(archive.FileName(1), "A.BMS");
}

TEST_F(PffBadInputTest, AnEntryThatClaimsMoreThanTheFileHoldsTakesNoMemory) {
  std::string bytes = BuildArchive({{"A.BMS", "aaaa"}});
  bytes.replace(20 + 4 + 8, 4, "\xFF\xFF\xFF\x7F");  // the length lies
  WriteFile(archive_path, bytes);
  Load();
  Bytes buffer;
  EXPECT_EQ(ErrorNumberOf([&] { archive.ExtractFile(0, buffer, ""); }), error::kInputPastEnd);
  EXPECT_TRUE(buffer.empty());
}

TEST_F(PffBadInputTest, AnArchiveThatCouldNotBeReadIsNotWrittenOver) {
  const std::string lying = WithHeaderField(8, 3000);
  WriteFile(archive_path, lying);
  EXPECT_FALSE(archive.LoadPff(archive_path));
  EXPECT_EQ(ErrorNumberOf([&] { Pack("A.BMS", "x"); }), error::kInvalidFileFormat);
  EXPECT_EQ(events.back(), "321 " + Sentence("could not be read, so it is left as it is."));
  EXPECT_EQ(ErrorNumberOf([&] { archive.SavePffFile(); }), error::kInvalidFileFormat);
  EXPECT_EQ(FileBytes(), lying);
}

// The disk fills up, or the file is taken away, at each call in turn.
class PffFailureTest : public PffBadInputTest, public testing::WithParamInterface<int> {};

TEST_P(PffFailureTest, AFailureAtAnyCallReachesTheCallerAndNoOtherFile) {
  WriteArchive({{"A.BMS", "aaaa"}, {"B.BMS", "bbbb"}});
  WriteFile(Path("map.bms"), "a longer map");
  const std::string before = FileBytes();
  FailingFiles files(native_files, GetParam());
  desktop.UseFiles(files);
  const bool loaded = archive.LoadPff(archive_path);
  Bytes map;
  archive.FileBuffer(Path("map.bms"), map);
  int raised = 0;
  if (loaded && !map.empty()) {
    raised = ErrorNumberOf([&] {
      archive.PackFile(map, "A.BMS");
      archive.SavePffFile();
    });
  }
  desktop.UseFiles(native_files);
  const bool told = !events.empty() && events.back() == "61 Disk full";
  EXPECT_EQ(files.HasFailed(), told || raised == error::kDiskFull);
  EXPECT_EQ(ReadFile(Path("map.bms")), "a longer map");
  if (files.HasFailed()) {
    EXPECT_EQ(FileBytes(), before);
  } else {
    EXPECT_EQ(Stored("A.BMS"), "a longer map");
  }
}

INSTANTIATE_TEST_SUITE_P(AtEachCall, PffFailureTest, testing::Range(0, 36));

TEST_F(PffBadInputTest, AReadOnlyFolderFailsTheSaveAndKeepsTheArchive) {
  WriteArchive({{"A.BMS", "aaaa"}});
  Load();
  Pack("A.BMS", "AAAA");
  const std::string before = FileBytes();
  FailingFiles files(native_files, 0, error::kPermissionDenied);
  desktop.UseFiles(files);
  EXPECT_EQ(ErrorNumberOf([&] { archive.SavePffFile(); }), error::kPermissionDenied);
  desktop.UseFiles(native_files);
  EXPECT_EQ(FileBytes(), before);
  EXPECT_TRUE(archive.Edited());
}

}  // namespace
}  // namespace kestrun
