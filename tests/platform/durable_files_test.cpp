// Files that are replaced: whatever ends it, at whatever call, there is the old file or the whole new one.
#include <gtest/gtest.h>

#include "platform/file_error.h"
#include "support/headless_fixture.h"
#include "support/simulated_disk.h"

namespace kestrun {
namespace {

constexpr const char* kMap = "C:\\maps\\Oasis.bms";
constexpr const char* kLoose = "C:\\game\\D08M03.BMS";
constexpr int kMostCalls = 60;

class DurableCopyTest : public HeadlessTest, public testing::WithParamInterface<bool> {
 protected:
  ~DurableCopyTest() override { desktop.UseFiles(native_files); }

  [[nodiscard]] bool HasTarget() const { return GetParam(); }
  [[nodiscard]] std::unique_ptr<SimulatedDisk> MakeDisk() {
    auto disk = std::make_unique<SimulatedDisk>();
    disk->Put(kMap, map_);
    if (HasTarget()) disk->Put(kLoose, old_);
    desktop.UseFiles(*disk);
    return disk;
  }

  enum class End { kDone, kRaised, kEnded };
  static End Copy() {
    try {
      platform().files().CopyDurably(kMap, kLoose);
      return End::kDone;
    } catch (const RuntimeError&) {
      return End::kRaised;
    } catch (const ProcessEnded&) {
      return End::kEnded;
    }
  }
  static void ExpectManyCalls(int calls) { EXPECT_GT(calls, 6); }
  [[nodiscard]] std::optional<Bytes> Before() const { return HasTarget() ? std::optional(old_) : std::nullopt; }
  void ExpectOldOrNew(const SimulatedDisk& disk, int call) {
    const auto there = disk.Content(kLoose);
    EXPECT_TRUE(there == Before() || there == map_) << "call " << call;
    EXPECT_EQ(disk.Content(kMap), map_) << "call " << call;
  }

  const Bytes map_ = Bytes(5000, 'm');
  const Bytes old_ = Bytes(3000, 'o');
};

TEST_P(DurableCopyTest, AFailureAtAnyCallLeavesWhatWasThereAndNothingBesideIt) {
  for (int call = 0; call < kMostCalls; ++call) {
    const auto disk = MakeDisk();
    disk->Arm(Fault::kFailure, call);
    const End end = Copy();
    if (!disk->HasHappened()) return ExpectManyCalls(call);
    EXPECT_EQ(disk->Content(kLoose), end == End::kDone ? std::optional(map_) : Before()) << "call " << call;
    EXPECT_FALSE(disk->Content(std::string(kLoose) + ".new")) << "call " << call;
  }
  FAIL() << "the copy never ended";
}

TEST_P(DurableCopyTest, AKillAtAnyCallLeavesTheOldFileOrTheNewOneAndTheNextCopyGoesOn) {
  for (int call = 0; call < kMostCalls; ++call) {
    const auto disk = MakeDisk();
    disk->Arm(Fault::kKill, call);
    if (Copy() == End::kDone) return;
    disk->StartAgain();
    ExpectOldOrNew(*disk, call);
    EXPECT_EQ(Copy(), End::kDone);
    EXPECT_EQ(disk->Content(kLoose), map_);
    EXPECT_FALSE(disk->Content(std::string(kLoose) + ".new")) << "call " << call;
  }
  FAIL() << "the copy never ended";
}

TEST_P(DurableCopyTest, APowerCutAtAnyCallLeavesTheOldFileOrTheNewOne) {
  for (int call = 0; call < kMostCalls; ++call) {
    for (unsigned seed = 1; seed <= 6; ++seed) {
      const auto disk = MakeDisk();
      disk->Arm(Fault::kPowerCut, call, seed);
      if (Copy() == End::kDone) return;
      disk->StartAgain();
      ExpectOldOrNew(*disk, call);
    }
  }
  FAIL() << "the copy never ended";
}

TEST_P(DurableCopyTest, ACopyThatSucceededSurvivesAPowerCut) {
  for (unsigned seed = 1; seed <= 10; ++seed) {
    const auto disk = MakeDisk();
    EXPECT_EQ(Copy(), End::kDone);
    disk->CutPower(seed);
    EXPECT_EQ(disk->Content(kLoose), map_);
  }
}

TEST_P(DurableCopyTest, AFullDiskLeavesWhatWasThereAndNamesTheTarget) {
  const auto disk = MakeDisk();
  disk->LimitBytes(4000);
  try {
    platform().files().CopyDurably(kMap, kLoose);
    ADD_FAILURE() << "it was copied";
  } catch (const FileError& failure) {
    EXPECT_EQ(failure.number(), error::kDiskFull);
    EXPECT_EQ(failure.path(), kLoose);
  }
  EXPECT_EQ(disk->Content(kLoose), Before());
  EXPECT_FALSE(disk->Content(std::string(kLoose) + ".new"));
}

INSTANTIATE_TEST_SUITE_P(Target, DurableCopyTest, testing::Bool(),
                         [](const auto& info) { return info.param ? "IsThere" : "IsNew"; });

class DurableCopyOnDiskTest : public HeadlessTest {
 protected:
  [[nodiscard]] int ErrorOfCopy(const std::string& from, const std::string& to) {
    try {
      platform().files().CopyDurably(from, to);
      return 0;
    } catch (const RuntimeError& failure) {
      return failure.number();
    }
  }
};

TEST_F(DurableCopyOnDiskTest, TheCopyHasTheContentAndTheTimeOfTheMap) {
  WriteFile(Path("map.bms"), "a map");
  WriteFile(Path("loose.bms"), "what was there before, and longer");
  native_files.SetWriteTime(Path("map.bms"), 132'000'000'000'000'000);
  platform().files().CopyDurably(Path("map.bms"), Path("loose.bms"));
  EXPECT_EQ(ReadFile(Path("loose.bms")), "a map");
  EXPECT_EQ(native_files.WriteTime(Path("loose.bms")), 132'000'000'000'000'000U);
  EXPECT_FALSE(FileIsThere(Path("loose.bms.new")));
}

TEST_F(DurableCopyOnDiskTest, WhatAKillLeftBesideTheTargetIsWrittenOver) {
  WriteFile(Path("map.bms"), "a map");
  WriteFile(Path("loose.bms.new"), "half of another map that was longer");
  platform().files().CopyDurably(Path("map.bms"), Path("loose.bms"));
  EXPECT_EQ(ReadFile(Path("loose.bms")), "a map");
  EXPECT_FALSE(FileIsThere(Path("loose.bms.new")));
}

TEST_F(DurableCopyOnDiskTest, AFileOntoItselfAFolderAndAMissingMapAreRefused) {
  WriteFile(Path("map.bms"), "a map");
  native_files.MakeFolder(Path("folder"));
  EXPECT_EQ(ErrorOfCopy(Path("map.bms"), Path("map.bms")), error::kPermissionDenied);
  EXPECT_EQ(ErrorOfCopy(Path("map.bms"), Path("folder")), error::kPathFileAccess);
  EXPECT_EQ(ErrorOfCopy(Path("folder"), Path("map.bms")), error::kPathFileAccess);
  EXPECT_EQ(ErrorOfCopy(Path("missing.bms"), Path("map.bms")), error::kFileNotFound);
  EXPECT_EQ(ReadFile(Path("map.bms")), "a map");
}

}  // namespace
}  // namespace kestrun
