// Archives whose tables lie about places and sizes, and handlers that change the archive in the middle of an operation.
#include <limits>

#include "formats/pff_fixture.h"
#include "support/failing_files.h"

namespace kestrun {
namespace {

// Places of fields in the archive that BuildArchive lays out.
constexpr size_t kCountField = 8;
constexpr size_t kStrideField = 12;
constexpr size_t kTableOffsetField = 16;
constexpr size_t kEntryOffsetField = 4;
constexpr size_t kEntryLengthField = 8;

class PffLyingArchiveTest : public PffTest {
 protected:
  // A.BMS at 20, B.BMS at 24, the table at 28.
  PffLyingArchiveTest() : bytes_(Lay()) {}

  void Lie(size_t at, uint32_t value) { StoreU32(bytes_, at, value); }
  void LieInEntry(size_t field, uint32_t value) { Lie(kTable + field, value); }
  void Write() { WriteFile(archive_path, bytes_); }
  void WriteAndLoad() {
    Write();
    Load();
  }

  // The put is refused, and saving afterwards leaves the file as it was.
  void ExpectPutRefused(const std::string& data, const std::string& sentence) {
    WriteAndLoad();
    EXPECT_EQ(ErrorOf([&] { return Pack("A.BMS", data); }), "321: " + sentence);
    EXPECT_EQ(events, std::vector<std::string>{"321 " + sentence});
    archive.SavePffFile();
    EXPECT_EQ(FileBytes(), std::string(AsChars(bytes_)));
  }

  [[nodiscard]] std::string Sentence(const std::string& rest) const {
    return "The archive '" + archive_path + "' " + rest;
  }

  static constexpr size_t kTable = 28;
  Bytes bytes_;

 private:
  static Bytes Lay() {
    const std::string whole = BuildArchive({{"A.BMS", "aaaa"}, {"B.BMS", "bbbb"}});
    return {whole.begin(), whole.end()};
  }
};

TEST_F(PffLyingArchiveTest, AnEntryOverTheHeaderIsNotWrittenInPlace) {
  LieInEntry(kEntryOffsetField, 8);
  ExpectPutRefused("AAAA", Sentence("says that 'A.BMS' lies over its header, so it is left as it is."));
}

TEST_F(PffLyingArchiveTest, TheLastEntryOverTheHeaderIsNotGrownInPlace) {
  LieInEntry(kEntryOffsetField, 0);
  LieInEntry(kEntryLengthField, kTable);  // ends where the table starts
  ExpectPutRefused(std::string(40, 'A'), Sentence("says that 'A.BMS' lies over its header, so it is left as it is."));
}

TEST_F(PffLyingArchiveTest, AnEntryOverTheTableIsNotWrittenInPlace) {
  LieInEntry(kEntryOffsetField, kTable - 1);
  ExpectPutRefused("AAAA", Sentence("says that 'A.BMS' lies over its table, so it is left as it is."));
}

TEST_F(PffLyingArchiveTest, AnEntryBehindTheEndDoesNotStretchTheFile) {
  LieInEntry(kEntryOffsetField, 0xFFFFF000);
  ExpectPutRefused("AAAA", Sentence("says that 'A.BMS' lies behind its end, so it is left as it is."));
}

TEST_F(PffLyingArchiveTest, TheLastEntryBehindTheEndIsNotGrownInPlace) {
  LieInEntry(kEntryOffsetField, 0xFFFFF000);
  LieInEntry(kEntryLengthField, kTable + 0x1000);  // in 32 bits, ends where the table starts
  ExpectPutRefused(std::string(kTable + 0x1001, 'A'),
                   Sentence("says that 'A.BMS' lies behind its end, so it is left as it is."));
}

TEST_F(PffLyingArchiveTest, AnEntryWhoseLengthRunsBackwardsGoesBehindTheData) {
  LieInEntry(kEntryOffsetField, 0x7FFFFFFF);
  LieInEntry(kEntryLengthField, static_cast<uint32_t>(kTable) - 0x7FFFFFFFU);  // ends where the table starts
  WriteAndLoad();
  EXPECT_TRUE(Pack("A.BMS", "AAAA"));
  archive.SavePffFile();
  EXPECT_EQ(FileBytes().substr(20, 12), "aaaabbbbAAAA");
  EXPECT_EQ(Stored("A.BMS"), "AAAA");
  EXPECT_EQ(Stored("B.BMS"), "bbbb");
}

TEST_F(PffLyingArchiveTest, ATableOverTheHeaderIsRefused) {
  Lie(kTableOffsetField, 19);
  Write();
  EXPECT_FALSE(archive.LoadPff(archive_path));
  EXPECT_EQ(events, std::vector<std::string>{"321 " + Sentence("says that its table lies over its header.")});
}

TEST_F(PffLyingArchiveTest, AnEmptyArchiveWhoseTableLiesBehindItsEndTakesNoFile) {
  Lie(kCountField, 0);
  Lie(kTableOffsetField, 0xFFFFF000);
  Write();
  EXPECT_FALSE(archive.LoadPff(archive_path));
  EXPECT_EQ(events, std::vector<std::string>{"321 " + Sentence("says that its table lies behind its end.")});
  EXPECT_EQ(ErrorNumberOf([&] { return Pack("A.BMS", "x"); }), error::kInvalidFileFormat);
  EXPECT_EQ(FileBytes(), std::string(AsChars(bytes_)));
}

TEST_F(PffLyingArchiveTest, DataBehindTheTrailerIsWrittenInPlace) {
  const size_t behind = bytes_.size();
  bytes_.insert(bytes_.end(), {'c', 'c', 'c', 'c'});
  LieInEntry(kEntryOffsetField, static_cast<uint32_t>(behind));
  WriteAndLoad();
  EXPECT_TRUE(Pack("A.BMS", "AAAA"));
  archive.SavePffFile();
  EXPECT_EQ(FileBytes().substr(behind), "AAAA");
  EXPECT_EQ(Stored("B.BMS"), "bbbb");
}

TEST_F(PffLyingArchiveTest, ALongerFileLeavesALyingPlaceAndGoesBehindTheData) {
  LieInEntry(kEntryOffsetField, 0);
  WriteAndLoad();
  EXPECT_TRUE(Pack("A.BMS", "longer"));
  archive.SavePffFile();
  EXPECT_EQ(Stored("A.BMS"), "longer");
  EXPECT_EQ(Stored("B.BMS"), "bbbb");
}

TEST_F(PffLyingArchiveTest, RecordsThatOverlapAreReadInTheirSteps) {
  Lie(kStrideField, 18);
  bytes_[kTable + 18 + kEntryLengthField] = 77;  // within the first record's name
  WriteAndLoad();
  EXPECT_EQ(archive.PFFTotalFiles(), 2);
  EXPECT_EQ(archive.FileOffset(0), 20);
  EXPECT_EQ(archive.FileLength(1), 77);
}

TEST_F(PffLyingArchiveTest, ManyEntriesInOnePlaceTakeNoMoreMemoryThanTheFileJustifies) {
  Lie(kStrideField, 0);
  Lie(kCountField, 500'000);
  bytes_.resize(600'000);
  Write();
  EXPECT_FALSE(archive.LoadPff(archive_path));
  EXPECT_EQ(events, std::vector<std::string>{
                        "321 " + Sentence("claims 500000 entries that lie over each other, more than it can hold.")});
}

TEST_F(PffLyingArchiveTest, CountsLeftByARefusedArchiveAreNotTakenForAMissingOne) {
  for (const uint32_t count : {0x7FFFFFFFU, 0x80000000U}) {
    Lie(kCountField, count);
    Write();
    EXPECT_FALSE(archive.LoadPff(archive_path));
    EXPECT_FALSE(archive.LoadPff(Path("missing.pff")));
    EXPECT_EQ(ErrorOf([&] { return Pack("A.BMS", "x"); }),
              "321: The archive '" + Path("missing.pff") + "' could not be read, so it is left as it is.");
    EXPECT_FALSE(FileIsThere(Path("missing.pff")));
  }
}

TEST_F(PffLyingArchiveTest, ANameBeyondTheCodePageIsNotFoundUnderItsQuestionMarks) {
  WriteArchive({{"?????", "question marks"}});
  Load();
  int32_t index = 0;
  EXPECT_FALSE(archive.PFFFileExists("Карта", index));
  EXPECT_EQ(index, -1);
  EXPECT_TRUE(archive.PFFFileExists("?????", index));
}

TEST_F(PffLyingArchiveTest, AChecksumOfNoBytesFailsAndOfOneByteLeavesNothingToSum) {
  archive.NewPffFile(archive_path);
  Pack("EMPTY.BMS", "");
  Pack("ONE.BMS", "1");
  EXPECT_EQ(ErrorNumberOf([&] { return archive.FileCRC32(0); }), error::kSubscriptOutOfRange);
  EXPECT_EQ(archive.FileCRC32(1), 0);
}

// Runs the work once, at the first report of that progress.
class PffReentryTest : public PffTest {
 protected:
  template <class Work>
  void AtProgress(int value, Work work) {
    archive.PFFPorgress = [this, value, work](int16_t reported) {
      if (reported != value || done_) return;
      done_ = true;
      work();
    };
  }

 private:
  bool done_ = false;
};

TEST_F(PffReentryTest, AFilePackedInTheMiddleOfAPackStandsBesideIt) {
  archive.NewPffFile(archive_path);
  AtProgress(50, [&] {
    for (int at = 0; at < 40; ++at) Pack("B" + std::to_string(at) + ".BMS", "inner");
  });
  EXPECT_TRUE(Pack("A.BMS", "outer"));
  EXPECT_EQ(archive.FileWaiting("A.BMS"), 1);
  archive.SavePffFile();
  EXPECT_EQ(Stored("A.BMS"), "outer");
  EXPECT_EQ(Stored("B39.BMS"), "inner");
}

TEST_F(PffReentryTest, AnArchiveBegunInTheMiddleOfAPackStopsThePack) {
  archive.NewPffFile(archive_path);
  AtProgress(60, [&] { archive.NewPffFile(Path("other.pff")); });
  EXPECT_EQ(ErrorNumberOf([&] { return Pack("A.BMS", "outer"); }), error::kSubscriptOutOfRange);
}

TEST_F(PffReentryTest, AnArchiveBegunInTheMiddleOfAnExtractionDoesNotDisturbIt) {
  WriteArchive({{"A.BMS", "aaaa"}});
  WriteFile(Path("copy.pff"), BuildArchive({{"B.BMS", "bbbbbbbb"}}));
  Load();
  AtProgress(10, [&] { EXPECT_TRUE(archive.LoadPff(Path("copy.pff"))); });
  EXPECT_EQ(Extract(0).size(), 4U);
}

TEST_F(PffReentryTest, StagedBytesThatWereSavedMeanwhileAreNoLongerTaken) {
  archive.NewPffFile(archive_path);
  Pack("A.BMS", "aaaa");
  AtProgress(50, [&] { archive.SavePffFile(); });
  Bytes bytes;
  EXPECT_EQ(ErrorNumberOf([&] { return archive.ExtractFile(0, bytes, ""); }), error::kSubscriptOutOfRange);
}

class PffFileCallsTest : public PffTest {
 protected:
  static constexpr int kNeverFail = std::numeric_limits<int>::max();

  // Calls of the file layer that the work takes.
  template <class Work>
  [[nodiscard]] int CallsOf(Work work) {
    FailingFiles files(native_files, kNeverFail);
    desktop.UseFiles(files);
    work();
    desktop.UseFiles(native_files);
    return files.CallsMade();
  }

  [[nodiscard]] static std::vector<RawEntry> ManyEntries() {
    std::vector<RawEntry> entries;
    for (int at = 0; at < 3000; ++at) entries.push_back({"F" + std::to_string(at), "data"});
    return entries;
  }
};

TEST_F(PffFileCallsTest, ATableIsReadInOnePieceAndWrittenInOnePiece) {
  WriteArchive(ManyEntries());
  // Open, header; open, size, table.
  EXPECT_EQ(CallsOf([&] { Load(); }), 5);
  Pack("F1500", "DATA");
  // The turn; open, header, size and table, to see that they are as they were read; open and size; the journal's open;
  // the old header, data, table in two pieces and trailer; the journal's write, flush and close; room; the block that
  // is another one; flush, close.
  EXPECT_EQ(CallsOf([&] { archive.SavePffFile(); }), 1 + 4 + 2 + 1 + 5 + 3 + 1 + 1 + 2);
  EXPECT_EQ(Stored("F1500"), "DATA");
}

TEST_F(PffFileCallsTest, RecordsFurtherApartAreReadInOnePieceToo) {
  WriteFile(archive_path, BuildArchive(ManyEntries(), 48));
  EXPECT_EQ(CallsOf([&] { Load(); }), 5);
  EXPECT_EQ(archive.FileName(2999), "F2999");
}

TEST_F(PffFileCallsTest, ASaveThatFailsAtAnyCallLeavesTheArchiveAndCanBeTriedAgain) {
  int call = 0;
  for (bool has_failed = true; has_failed; ++call) {
    WriteArchive({{"A.BMS", "aaaa"}, {"B.BMS", "bbbb"}});
    const std::string before = FileBytes();
    Load();
    Pack("A.BMS", "AAAA");
    Pack("NEW.BMS", "new");
    FailingFiles files(native_files, call);
    desktop.UseFiles(files);
    const int raised = ErrorNumberOf([&] { return archive.SavePffFile(), 0; });
    desktop.UseFiles(native_files);
    has_failed = files.HasFailed();
    if (!has_failed) break;
    EXPECT_EQ(raised, error::kDiskFull) << call;
    EXPECT_EQ(FileBytes(), before) << call;
    EXPECT_TRUE(archive.Edited());
    archive.SavePffFile();
    EXPECT_EQ(FileBytes(), BuildArchive({{"A.BMS", "AAAA"}, {"B.BMS", "bbbb"}, {"NEW.BMS", "new"}}));
  }
  EXPECT_GT(call, 15);
}

// The same for an extraction: open, size, read of the archive; open, write, close of the destination.
class PffFullDiskExtractTest : public PffTest, public testing::WithParamInterface<int> {};

TEST_P(PffFullDiskExtractTest, AnExtractionThatFailsReachesTheCallerAndLeavesTheArchive) {
  WriteArchive({{"A.BMS", "aaaa"}});
  const std::string before = FileBytes();
  Load();
  FailingFiles files(native_files, GetParam());
  desktop.UseFiles(files);
  Bytes bytes;
  EXPECT_EQ(ErrorOf([&] { return archive.ExtractFile(0, bytes, Path("out.bms")); }), "61: Disk full");
  desktop.UseFiles(native_files);
  EXPECT_EQ(FileBytes(), before);
}

INSTANTIATE_TEST_SUITE_P(AtEachCall, PffFullDiskExtractTest, testing::Range(0, 6));

}  // namespace
}  // namespace kestrun
