// Whatever ends a save, at whatever call: the next use of the archive finds the old one or the new one, whole.
#include <gtest/gtest.h>

#include "formats/pff/pff_recovery.h"
#include "formats/pff_fixture.h"
#include "support/simulated_disk.h"

namespace kestrun {
namespace {

constexpr const char* kArchive = "game.pff";
constexpr int kMostCalls = 400;

std::string Text(size_t length, char seed) {
  std::string text(length, ' ');
  for (size_t at = 0; at < length; ++at) text[at] = static_cast<char>(seed + at % 7);
  return text;
}

Bytes OldArchive() {
  const std::string bytes =
      BuildArchive({{"A.BMS", Text(1500, 'a')}, {"B.BMS", Text(700, 'b')}, {"LAST.BMS", Text(900, 'l')}});
  return {bytes.begin(), bytes.end()};
}

// One command that changes the archive.
struct Change {
  const char* name;
  bool starts_with_archive;
  std::function<void(ClsPFF&)> run;
  // What an earlier put of the same process has done.
  std::function<void(ClsPFF&)> before = nullptr;
};

void Put(ClsPFF& archive, const std::string& data, const std::string& name) { archive.PackFile(AsBytes(data), name); }

// Of more bytes than the put that is cut short, so that its journal is the shorter one.
void PutWithRestingJournal(ClsPFF& archive, size_t length, char seed) {
  static_cast<void>(archive.LoadPff(kArchive));
  Put(archive, Text(length, seed), "A.BMS");
  archive.LetJournalRest();
  archive.SavePffFile();
}

const std::vector<Change>& Changes() {
  static const std::vector<Change> changes{
      {"ShorterPut", true,
       [](ClsPFF& archive) {
         static_cast<void>(archive.LoadPff(kArchive));
         Put(archive, Text(1400, 'A'), "A.BMS");
         archive.SavePffFile();
       }},
      {"LongerPut", true,
       [](ClsPFF& archive) {
         static_cast<void>(archive.LoadPff(kArchive));
         Put(archive, Text(2500, 'A'), "A.BMS");
         archive.SavePffFile();
       }},
      {"LastEntryGrows", true,
       [](ClsPFF& archive) {
         static_cast<void>(archive.LoadPff(kArchive));
         Put(archive, Text(2100, 'L'), "LAST.BMS");
         archive.SavePffFile();
       }},
      {"Zip", true,
       [](ClsPFF& archive) {
         static_cast<void>(archive.LoadPff(kArchive));
         Put(archive, Text(2100, 'L'), "LAST.BMS");
         archive.SettleStaged();
         Put(archive, Text(800, 'N'), "NEW.BMS");
         archive.SettleStaged();
         Put(archive, Text(600, 'B'), "B.BMS");
         archive.SettleStaged();
         archive.SavePffFile();
       }},
      {"NewArchive", false,
       [](ClsPFF& archive) {
         archive.NewPffFile(kArchive);
         Put(archive, Text(1300, 'N'), "NEW.TXT");
         Put(archive, Text(300, 'M'), "MORE.TXT");
         archive.SavePffFile();
       }},
      {"NewArchiveOverAnOldOne", true,
       [](ClsPFF& archive) {
         archive.NewPffFile(kArchive);
         Put(archive, Text(1300, 'N'), "NEW.TXT");
         archive.SavePffFile();
       }},
      {"PutOverARestingJournal", true, [](ClsPFF& archive) { PutWithRestingJournal(archive, 900, 'A'); },
       [](ClsPFF& archive) { PutWithRestingJournal(archive, 1400, 'E'); }},
  };
  return changes;
}

using CrashCase = std::tuple<size_t, SimulatedDisk::Room>;

class PffCrashTest : public HeadlessTest, public testing::WithParamInterface<CrashCase> {
 protected:
  PffCrashTest() : change_(Changes()[std::get<0>(GetParam())]) {
    const auto disk = MakeDisk();
    desktop.UseFiles(*disk);
    ClsPFF archive;
    change_.run(archive);
    pff::RemoveRestingJournals();
    before_ = MakeDisk()->Content(kArchive);
    after_ = disk->Content(kArchive);
    EXPECT_NE(before_, after_);
  }
  ~PffCrashTest() override {
    desktop.UseFiles(native_files);
    pff::RemoveRestingJournals();
  }

  [[nodiscard]] std::unique_ptr<SimulatedDisk> MakeDisk() {
    auto disk = std::make_unique<SimulatedDisk>(std::get<1>(GetParam()));
    if (change_.starts_with_archive) disk->Put(kArchive, OldArchive());
    if (!change_.before) return disk;
    desktop.UseFiles(*disk);
    ClsPFF archive;
    change_.before(archive);
    disk->StartAgain();
    return disk;
  }

  enum class End { kDone, kRaised, kEnded };
  End Run(SimulatedDisk& disk) {
    desktop.UseFiles(disk);
    try {
      ClsPFF archive;
      archive.Recovered = [this](const std::string& sentence) { sentences_.push_back(sentence); };
      change_.run(archive);
      return End::kDone;
    } catch (const RuntimeError&) {
      return End::kRaised;
    } catch (const ProcessEnded&) {
      return End::kEnded;
    }
  }

  // What any command does first that reads the archive.
  End UseAgain(SimulatedDisk& disk) {
    desktop.UseFiles(disk);
    try {
      ClsPFF archive;
      archive.Recovered = [this](const std::string& sentence) { sentences_.push_back(sentence); };
      static_cast<void>(archive.LoadPff(kArchive));
      return End::kDone;
    } catch (const ProcessEnded&) {
      return End::kEnded;
    }
  }

  void ExpectOldOrNew(const SimulatedDisk& disk, const std::string& when) {
    const auto content = disk.Content(kArchive);
    EXPECT_TRUE(content == before_ || content == after_) << "a third state " << when;
    if (const auto journal = disk.Content(std::string(kArchive) + ".journal")) {
      EXPECT_TRUE(change_.before && AsChars(*journal).starts_with("KSTJREST")) << "the journal is left " << when;
    }
  }

  static void ExpectManyCalls(int calls) { EXPECT_GT(calls, 12); }

  const Change& change_;
  std::optional<Bytes> before_;
  std::optional<Bytes> after_;
  std::vector<std::string> sentences_;
};

TEST_P(PffCrashTest, AFailureAtAnyCallLeavesTheOldArchive) {
  for (int call = 0; call < kMostCalls; ++call) {
    const auto disk = MakeDisk();
    disk->Arm(Fault::kFailure, call);
    const End end = Run(*disk);
    if (!disk->HasHappened()) return ExpectManyCalls(call);
    disk->Disarm();
    if (end == End::kRaised) {
      EXPECT_EQ(disk->Content(kArchive), before_) << "call " << call;
    }
    EXPECT_EQ(UseAgain(*disk), End::kDone);
    ExpectOldOrNew(*disk, "after a failure at call " + std::to_string(call));
    if (end == End::kDone) {
      EXPECT_EQ(disk->Content(kArchive), after_) << "call " << call;
    }
  }
  FAIL() << "the command never ended";
}

TEST_P(PffCrashTest, AKillAtAnyCallIsMendedByTheNextUse) {
  for (int call = 0; call < kMostCalls; ++call) {
    const auto disk = MakeDisk();
    disk->Arm(Fault::kKill, call);
    if (Run(*disk) == End::kDone) return ExpectManyCalls(call);
    disk->StartAgain();
    EXPECT_EQ(UseAgain(*disk), End::kDone);
    ExpectOldOrNew(*disk, "after a kill at call " + std::to_string(call));
    // The command can be given again, whatever was left.
    EXPECT_EQ(Run(*disk), End::kDone);
    EXPECT_EQ(UseAgain(*disk), End::kDone);
  }
  FAIL() << "the command never ended";
}

TEST_P(PffCrashTest, APowerCutAtAnyCallIsMendedByTheNextUse) {
  for (int call = 0; call < kMostCalls; ++call) {
    for (unsigned seed = 1; seed <= 6; ++seed) {
      const auto disk = MakeDisk();
      disk->Arm(Fault::kPowerCut, call, seed);
      if (Run(*disk) == End::kDone) return ExpectManyCalls(call);
      disk->StartAgain();
      EXPECT_EQ(UseAgain(*disk), End::kDone);
      ExpectOldOrNew(*disk, "after a power cut at call " + std::to_string(call) + ", seed " + std::to_string(seed));
    }
  }
  FAIL() << "the command never ended";
}

TEST_P(PffCrashTest, APowerCutInTheMiddleOfMendingIsMendedToo) {
  for (int call = 0; call < kMostCalls; ++call) {
    for (unsigned seed = 1; seed <= 3; ++seed) {
      const auto disk = MakeDisk();
      disk->Arm(Fault::kPowerCut, call, seed);
      if (Run(*disk) == End::kDone) return;
      disk->StartAgain();
      for (int again = 0; again < kMostCalls; ++again) {
        disk->Arm(Fault::kPowerCut, again, seed + static_cast<unsigned>(again));
        if (UseAgain(*disk) == End::kDone) break;
        disk->StartAgain();
      }
      ExpectOldOrNew(*disk, "after power cuts at call " + std::to_string(call) + ", seed " + std::to_string(seed));
    }
  }
  FAIL() << "the command never ended";
}

TEST_P(PffCrashTest, ASaveThatSucceededSurvivesAPowerCut) {
  for (unsigned seed = 1; seed <= 20; ++seed) {
    const auto disk = MakeDisk();
    EXPECT_EQ(Run(*disk), End::kDone);
    disk->CutPower(seed);
    EXPECT_EQ(UseAgain(*disk), End::kDone);
    EXPECT_EQ(disk->Content(kArchive), after_);
  }
}

TEST_P(PffCrashTest, NothingButTheArchiveIsLeft) {
  const auto disk = MakeDisk();
  EXPECT_EQ(Run(*disk), End::kDone);
  pff::RemoveRestingJournals();
  EXPECT_EQ(disk->Names(), std::vector<std::string>{kArchive});
  EXPECT_TRUE(sentences_.empty());
}

std::string CaseName(const testing::TestParamInfo<CrashCase>& info) {
  const bool zeros = std::get<1>(info.param) == SimulatedDisk::Room::kZeros;
  return std::string(Changes()[std::get<0>(info.param)].name) + (zeros ? "WithRoomByZeros" : "");
}

INSTANTIATE_TEST_SUITE_P(EachChange, PffCrashTest,
                         testing::Combine(testing::Range(size_t{0}, size_t{7}),
                                          testing::Values(SimulatedDisk::Room::kUnseen, SimulatedDisk::Room::kZeros)),
                         CaseName);

}  // namespace
}  // namespace kestrun
