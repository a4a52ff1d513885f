// A kill or a power cut at any file call of a pack that keeps an original: what was in the game first is in the game,
// or kept and named, or both; and the next pack and restore find everything in order.
#include <gtest/gtest.h>

#include "game/originals/originals_fixture.h"
#include "program/originals_hook.h"
#include "support/simulated_disk.h"

namespace kestrun::originals {
namespace {

constexpr const char* kArchive = "C:\\game\\dflw.pff";
constexpr const char* kEntry = "D08M03.BMS";
constexpr int kMostCalls = 400;

// What has happened before the pack that is cut short.
enum class History { kNone, kOwnMap, kForeignMap, kLongIndex };

struct CrashCase {
  const char* name;
  History history;
  Fault fault;
  unsigned seed;
};

std::string CaseName(const testing::TestParamInfo<CrashCase>& info) { return info.param.name; }

class LedgerCrashTest : public OriginalsTest, public testing::WithParamInterface<CrashCase> {
 protected:
  LedgerCrashTest() : game_(MakeGame()) {}
  ~LedgerCrashTest() override { desktop.UseFiles(native_files); }

  // The archive as it is before everything, made once.
  Bytes MakeGame() {
    SimulatedDisk disk;
    desktop.UseFiles(disk);
    MakeGameArchive(kArchive);
    return *disk.Content(kArchive);
  }

  static void PackByKeeper(const std::string& content) {
    ClsPFF archive;
    archive.Recovered = [](const std::string&) {};
    ASSERT_TRUE(archive.LoadPff(kArchive));
    const std::unique_ptr<OriginalsKeeper> keeper = KeepOriginals();
    keeper->KeepEntry(archive, kEntry, AsBytes(content), "map.bms");
    keeper->Finish();
    archive.PackFile(AsBytes(content), kEntry);
    archive.SavePffFile();
  }
  static void PackByAnother(const std::string& content) {
    ClsPFF archive;
    ASSERT_TRUE(archive.LoadPff(kArchive));
    archive.PackFile(AsBytes(content), kEntry);
    archive.SavePffFile();
  }
  void MakeHistory() {
    if (GetParam().history == History::kNone) return;
    PackByKeeper(oasis);
    if (GetParam().history == History::kOwnMap) return;
    PackByAnother(foreign_);
    if (GetParam().history != History::kLongIndex) return;
    // Lines that say the same again and again, until the next pack writes the index anew.
    const std::string text(AsChars(platform().files().ReadAll(AppFile("originals\\index.txt"))));
    const std::string line = text.substr(text.rfind("put\t"));
    std::string more;
    while (more.size() < size_t{260} << 10) more += line;
    platform().files().Append(AppFile("originals\\index.txt"), AsBytes(more));
  }

  // True when the pack was cut short.
  bool PackUntil(SimulatedDisk& disk, int call) {
    disk.Arm(GetParam().fault, call, GetParam().seed);
    try {
      PackByKeeper(harbour);
    } catch (const ProcessEnded&) {
      return true;
    }
    return false;
  }

  void ExpectNothingLost(int call) {
    const Record* record = nullptr;
    const Index index = ReadIndex();
    record = index.Find(PlaceOf(kArchive, kEntry));
    const std::string present = EntryOf(kArchive, kEntry);
    if (present != stock) {
      ASSERT_NE(record, nullptr) << call;
      ASSERT_FALSE(record->versions.empty()) << call;
      EXPECT_EQ(record->versions.front().sha256, Sha256Hex(AsBytes(stock))) << call;
      EXPECT_EQ(AsChars(ReadContent(record->versions.front().sha256)), stock) << call;
    }
    if (GetParam().history >= History::kForeignMap && present != foreign_) {
      EXPECT_EQ(AsChars(ReadContent(Sha256Hex(AsBytes(foreign_)))), foreign_) << call;
    }
  }

  const std::string foreign_ = std::string(800, 'f');
  Bytes game_;
};

TEST_P(LedgerCrashTest, NothingIsLostAndTheNextPackAndRestoreGoOn) {
  bool was_cut = true;
  int call = 0;
  for (; was_cut && call < kMostCalls; ++call) {
    SimulatedDisk disk;
    desktop.UseFiles(disk);
    disk.Put(kArchive, game_);
    MakeHistory();
    disk.StartAgain();
    was_cut = PackUntil(disk, call);
    disk.StartAgain();
    {
      ClsPFF archive;
      archive.Recovered = [](const std::string&) {};
      ASSERT_TRUE(archive.LoadPff(kArchive)) << call;
    }
    ExpectNothingLost(call);
    PackByKeeper(harbour);
    for (const Difference& difference : FindDifferences("C:\\game")) RestoreOriginal(difference, true);
    EXPECT_EQ(EntryOf(kArchive, kEntry), stock) << call;
    if (HasFailure()) break;
  }
  EXPECT_GT(call, 20);
  EXPECT_LT(call, kMostCalls);
}

INSTANTIATE_TEST_SUITE_P(
    Cases, LedgerCrashTest,
    testing::Values(CrashCase{"FirstPutKilled", History::kNone, Fault::kKill, 1},
                    CrashCase{"FirstPutPowerCut", History::kNone, Fault::kPowerCut, 1},
                    CrashCase{"FirstPutPowerCutOtherwise", History::kNone, Fault::kPowerCut, 2},
                    CrashCase{"OverTheOwnMapKilled", History::kOwnMap, Fault::kKill, 1},
                    CrashCase{"OverTheOwnMapPowerCut", History::kOwnMap, Fault::kPowerCut, 3},
                    CrashCase{"OverAForeignMapKilled", History::kForeignMap, Fault::kKill, 1},
                    CrashCase{"OverAForeignMapPowerCut", History::kForeignMap, Fault::kPowerCut, 4},
                    CrashCase{"OverAForeignMapPowerCutOtherwise", History::kForeignMap, Fault::kPowerCut, 5},
                    CrashCase{"WithALongIndexKilled", History::kLongIndex, Fault::kKill, 1},
                    CrashCase{"WithALongIndexPowerCut", History::kLongIndex, Fault::kPowerCut, 6}),
    CaseName);

}  // namespace
}  // namespace kestrun::originals
