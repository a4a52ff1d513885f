// The ledger under limits, failures, kills and other processes.
#include "game/originals/ledger.h"

#include <gtest/gtest.h>

#include "game/originals/originals_fixture.h"
#include "program/originals_hook.h"
#include "support/failing_files.h"
#include "support/forwarding_files.h"

namespace kestrun::originals {
namespace {

class LedgerTest : public OriginalsTest {
 protected:
  static constexpr size_t kMegabyte = size_t{1} << 20;

  void SetLimit(int megabytes) {
    WriteIni("[ORIGINALS]\r\nLIMITMB=" + std::to_string(megabytes) + "\r\n[launcher]\r\nWARNOVERWRITE=False\r\n");
  }
  static Content Of(char filling, size_t bytes) { return {Bytes(bytes, static_cast<uint8_t>(filling)), 0, 0}; }
  static LastPut PutOf(const std::string& content) {
    return {Sha256Hex(AsBytes(content)), content.size(), {}, "map.bms", {}};
  }
  [[nodiscard]] bool HasContent(const Content& content) { return FileIsThere(LedgerPath(Sha256Hex(content.bytes))); }
};

TEST_F(LedgerTest, FurtherVersionsMakeRoomForLaterOnesTheOldestFirst) {
  SetLimit(3);
  const Place place = PlaceOf(GamePath("a.bms"));
  Ledger ledger;
  ledger.Keep(place, Of('1', kMegabyte), PutOf("p1"));
  ledger.Keep(place, Of('2', kMegabyte), PutOf("p2"));
  ledger.Keep(place, Of('3', kMegabyte), PutOf("p3"));
  ledger.Keep(place, Of('4', kMegabyte), PutOf("p4"));
  ledger.Finish();
  EXPECT_TRUE(HasContent(Of('1', kMegabyte)));
  EXPECT_FALSE(HasContent(Of('2', kMegabyte)));
  EXPECT_TRUE(HasContent(Of('3', kMegabyte)));
  EXPECT_TRUE(HasContent(Of('4', kMegabyte)));
  EXPECT_EQ(ReadIndex().Find(place)->versions.size(), 3U);
}

TEST_F(LedgerTest, FirstVersionsAreKeptBeyondTheLimitAndNeverDropped) {
  SetLimit(1);
  Ledger ledger;
  for (const char name : {'a', 'b', 'c'}) {
    ledger.Keep(PlaceOf(GamePath(std::string(1, name))), Of(name, kMegabyte), PutOf("p"));
  }
  EXPECT_THROW(ledger.Keep(PlaceOf(GamePath("a")), Of('x', kMegabyte), PutOf("q")), RuntimeError);
  ledger.Finish();
  for (const char name : {'a', 'b', 'c'}) EXPECT_TRUE(HasContent(Of(name, kMegabyte))) << name;
}

TEST_F(LedgerTest, ALimitThatIsNoNumberIsTheDefault) {
  WriteIni("[ORIGINALS]\r\nLIMITMB=much\r\n");
  Ledger ledger;
  const Place place = PlaceOf(GamePath("a.bms"));
  ledger.Keep(place, Of('1', 100), PutOf("p1"));
  EXPECT_NO_THROW(ledger.Keep(place, Of('2', 100), PutOf("p2")));
}

TEST_F(LedgerTest, ALineThatAKillCutOffDoesNotSpoilTheNext) {
  EXPECT_TRUE(Put("Oasis.bms", kMission));
  const std::string index = IndexText();
  WriteFile(LedgerPath("index.txt"), index.substr(0, index.size() - 30));
  EXPECT_TRUE(Put("Harbour.bms", "D08M04.BMS"));
  const Index read = ReadIndex();
  EXPECT_NE(RecordOf(read, "dflw.pff", kMission), nullptr);
  EXPECT_NE(RecordOf(read, "dflw.pff", "D08M04.BMS"), nullptr);
  EXPECT_EQ(RecordOf(read, "dflw.pff", "D08M04.BMS")->versions.size(), 1U);
}

TEST_F(LedgerTest, ALongIndexIsWrittenAnewWithTheSameMeaning) {
  const Place place = PlaceOf(GamePath("a.bms"));
  {
    Ledger ledger;
    ledger.Keep(place, Of('1', 10), PutOf("p0"));
    std::string last = "p0";
    for (int round = 1; round < 1500; ++round) {
      const std::string next = "p" + std::to_string(round);
      ledger.Keep(place, Content{Bytes(last.begin(), last.end()), 0, 0}, PutOf(next));
      last = next;
    }
    ledger.Finish();
  }
  EXPECT_LT(IndexText().size(), size_t{300} << 10);
  const Index index = ReadIndex();
  ASSERT_EQ(index.Find(place)->versions.size(), 1U);
  EXPECT_TRUE(index.Find(place)->IsOurs(Sha256Hex(AsBytes("p1499"))));
}

TEST_F(LedgerTest, AnIndexLongerThanAnyIsRefused) {
  native_files.MakeFolder(ProgramPath("originals"));
  native_files.Open(LedgerPath("index.txt"), OpenMode::kCreate)->WriteAt((uint64_t{64} << 20) + 1, AsBytes("x"));
  EXPECT_THROW(static_cast<void>(ReadIndex()), RuntimeError);
}

// Another process has its turn at the ledger.
class TakenTurn final : public ForwardingFiles {
 public:
  using ForwardingFiles::ForwardingFiles;
  std::unique_ptr<FileLock> TryLock(std::string_view path, std::string_view program) override {
    if (path.find("originals") != std::string_view::npos) return nullptr;
    return files().TryLock(path, program);
  }
};

TEST_F(LedgerTest, ATurnThatDoesNotComeMakesAnOriginalThatCannotBeKept) {
  const std::string before = ReadFile(Archive());
  TakenTurn files(native_files);
  desktop.UseFiles(files);
  desktop.dialogs().ExpectBox("The original of \"D08M03.BMS\" cannot be kept. Go on without?", BoxAnswer::kNo);
  EXPECT_FALSE(Put("Oasis.bms", kMission));
  desktop.UseFiles(native_files);
  EXPECT_EQ(ReadFile(Archive()), before);
}

// Counts how often the disk is waited for.
class CountedFlushes final : public ForwardingFiles {
 public:
  using ForwardingFiles::ForwardingFiles;
  void FlushFiles(const std::string& folder, const std::vector<std::string>& names) override {
    ++count;
    files().FlushFiles(folder, names);
  }

  int count = 0;
};

TEST_F(LedgerTest, ForManyContentsTheDiskIsWaitedForOnce) {
  CountedFlushes files(native_files);
  desktop.UseFiles(files);
  constexpr int kMany = 50;
  const auto name = [](int number) { return std::to_string(number) + ".bms"; };
  {
    Ledger ledger;
    for (int number = 0; number < kMany; ++number) {
      ledger.Keep(PlaceOf(GamePath(name(number))), Content{Bytes(100, static_cast<uint8_t>(number)), 0, 0}, PutOf("p"));
    }
    ledger.Finish();
  }
  desktop.UseFiles(native_files);
  EXPECT_EQ(files.count, 1);
  const Index index = ReadIndex();
  for (int number = 0; number < kMany; ++number) {
    const Record* record = index.Find(PlaceOf(GamePath(name(number))));
    ASSERT_NE(record, nullptr);
    EXPECT_EQ(ReadContent(record->versions.front().sha256), Bytes(100, static_cast<uint8_t>(number)));
  }
}

// Fails where the contents are made durable.
class NoFlush final : public ForwardingFiles {
 public:
  using ForwardingFiles::ForwardingFiles;
  void FlushFiles(const std::string&, const std::vector<std::string>&) override { Raise(error::kDeviceIo); }
};

TEST_F(LedgerTest, WhatDidNotReachTheDiskIsNotTakenForKeptNorForTheProgramsOwn) {
  const Place place = PlaceOf(GamePath("a.bms"));
  NoFlush files(native_files);
  desktop.UseFiles(files);
  {
    Ledger ledger;
    ledger.Keep(place, Of('1', 10), PutOf("p1"));
    EXPECT_THROW(ledger.Finish(), RuntimeError);
  }
  desktop.UseFiles(native_files);
  {
    const Index index = ReadIndex();
    ASSERT_NE(index.Find(place), nullptr);
    EXPECT_TRUE(index.Find(place)->versions.empty());
    EXPECT_FALSE(index.Find(place)->IsOurs(Sha256Hex(Bytes(10, '1'))));
  }
  Ledger ledger;
  ledger.Keep(place, Of('1', 10), PutOf("p2"));
  ledger.Finish();
  EXPECT_EQ(ReadContent(ReadIndex().Find(place)->versions.front().sha256), Bytes(10, '1'));
}

TEST_F(LedgerTest, AZipWaitsOnceForATurnThatDoesNotCome) {
  TakenTurn files(native_files);
  desktop.UseFiles(files);
  ClsPFF archive;
  ASSERT_TRUE(archive.LoadPff(Archive()));
  const std::unique_ptr<OriginalsKeeper> keeper = KeepOriginals();
  const uint64_t before = desktop.clock().NowMs();
  for (const char* name : {"D08M03.BMS", "D08M04.BMS", "LAST.BIN"}) {
    EXPECT_THROW(keeper->KeepEntry(archive, name, AsBytes(oasis), "maps.zip"), RuntimeError);
  }
  EXPECT_LT(desktop.clock().NowMs() - before, uint64_t{6000});
  desktop.UseFiles(native_files);
}

// A command can run inside another one's message pass.
TEST_F(LedgerTest, TwoCommandsOfOneProcessLoseNoLineOfEachOther) {
  const Place outer = PlaceOf(GamePath("outer.bms"));
  const Place inner = PlaceOf(GamePath("inner.bms"));
  Ledger first;
  first.Keep(outer, Of('1', 10), PutOf("p1"));
  first.Finish();
  {
    Ledger second;
    second.Keep(inner, Of('2', 10), PutOf("p2"));
    second.Finish();
  }
  first.Keep(outer, Of('3', 10), PutOf("p3"));
  first.Finish();
  const Index index = ReadIndex();
  ASSERT_NE(index.Find(inner), nullptr);
  EXPECT_EQ(index.Find(inner)->versions.size(), 1U);
  EXPECT_EQ(index.Find(outer)->versions.size(), 2U);
}

// The archive's bytes change when the files are told to: a put is killed or fails at each file call before that.
class LedgerFailureTest : public LedgerTest, public testing::WithParamInterface<int> {};

TEST_P(LedgerFailureTest, AFullDiskAtAnyCallLosesNoOriginal) {
  FailingFiles files(native_files, GetParam());
  desktop.UseFiles(files);
  desktop.OnUnexpected([](const UnexpectedQuestion&) {});  // the safe answer is No
  static_cast<void>(Put("Oasis.bms", kMission));
  desktop.UseFiles(native_files);
  if (EntryOf(Archive(), kMission) != stock) {
    EXPECT_TRUE(IsKept(stock));
    const Index index = ReadIndex();
    const Record* record = RecordOf(index, "dflw.pff", kMission);
    ASSERT_NE(record, nullptr);
    EXPECT_EQ(record->versions.front().sha256, Sha256Hex(AsBytes(stock)));
  }
  // And the next time all is well.
  EXPECT_TRUE(Put("Harbour.bms", kMission));
  EXPECT_TRUE(IsKept(stock));
}

INSTANTIATE_TEST_SUITE_P(AtEachCall, LedgerFailureTest, testing::Range(0, 70));

// What a kill leaves: every call after the n-th that changes a file never happens, however the program goes on. Inside
// the archive's own save nothing is counted: that one has tests of its own.
class KilledFiles final : public ForwardingFiles {
 public:
  KilledFiles(FileSystem& files, int calls) : ForwardingFiles(files), left_(calls) {}

  std::unique_ptr<File> Open(std::string_view path, OpenMode mode) override {
    if (mode != OpenMode::kRead) Count();
    const bool is_ledger = path.find("\\originals\\") != std::string_view::npos;
    return std::make_unique<KilledFile>(*this, files().Open(path, mode), is_ledger);
  }
  void Copy(std::string_view from, std::string_view to) override { Count(), files().Copy(from, to); }
  void Delete(std::string_view path) override { Count(), files().Delete(path); }
  void Replace(std::string_view from, std::string_view to) override { Count(), files().Replace(from, to); }
  void MakeFolder(std::string_view path) override { Count(), files().MakeFolder(path); }

 private:
  class KilledFile final : public File {
   public:
    KilledFile(KilledFiles& owner, std::unique_ptr<File> file, bool is_counted)
        : owner_(owner), file_(std::move(file)), is_counted_(is_counted) {}
    uint64_t Size() override { return file_->Size(); }
    size_t ReadAt(uint64_t offset, MutableByteView buffer) override { return file_->ReadAt(offset, buffer); }
    void WriteAt(uint64_t offset, ByteView bytes) override {
      // Half of the bytes are written when the kill comes.
      if (is_counted_ && owner_.left_ == 0) file_->WriteAt(offset, bytes.first(bytes.size() / 2));
      if (is_counted_) owner_.Count();
      file_->WriteAt(offset, bytes);
    }
    void Flush() override { file_->Flush(); }
    void Truncate(uint64_t bytes) override { file_->Truncate(bytes); }
    void Reserve(uint64_t bytes) override { file_->Reserve(bytes); }
    void Close() override { file_->Close(); }

   private:
    KilledFiles& owner_;
    std::unique_ptr<File> file_;
    bool is_counted_;
  };

  void Count() {
    if (left_ > 0) {
      --left_;
      return;
    }
    left_ = -1;
    Raise(error::kDeviceIo);
  }

  int left_;
};

class LedgerKillTest : public LedgerTest, public testing::WithParamInterface<int> {};

TEST_P(LedgerKillTest, AKillAtAnyCallLosesNoOriginalAndTheNextRunGoesOn) {
  {
    KilledFiles files(native_files, GetParam());
    desktop.UseFiles(files);
    desktop.OnUnexpected([](const UnexpectedQuestion&) {});
    static_cast<void>(Put("Oasis.bms", kMission));
    desktop.UseFiles(native_files);
  }
  const std::string entry = EntryOf(Archive(), kMission);
  EXPECT_TRUE(entry == stock || IsKept(stock));
  desktop.OnUnexpected([](const UnexpectedQuestion& question) { ADD_FAILURE() << question.text; });
  EXPECT_TRUE(Put("Harbour.bms", kMission));
  for (const Difference& difference : Differences()) RestoreOriginal(difference, true);
  EXPECT_EQ(EntryOf(Archive(), kMission), stock);
}

INSTANTIATE_TEST_SUITE_P(AtEachCall, LedgerKillTest, testing::Range(0, 30));

}  // namespace
}  // namespace kestrun::originals
