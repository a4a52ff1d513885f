#include "maps/health/health_watch.h"

#include "maps/health/health_fixture.h"
#include "support/forwarding_files.h"

namespace kestrun {
namespace {

// Counts the files that are opened.
class CountingFiles final : public ForwardingFiles {
 public:
  using ForwardingFiles::ForwardingFiles;
  std::unique_ptr<File> Open(std::string_view path, OpenMode mode) override {
    opened.emplace_back(path);
    return files().Open(path, mode);
  }
  std::vector<std::string> opened;
};

class HealthWatchTest : public HealthTest {
 protected:
  HealthWatchTest() { desktop.UseFiles(files); }
  ~HealthWatchTest() override { desktop.UseFiles(native_files); }

  CountingFiles files{native_files};
  int changes = 0;
  HealthWatch watch{[this] { ++changes; }};
};

TEST_F(HealthWatchTest, TheDiskIsNotTouchedWhileTheRowIsPainted) {
  const std::string map = GoodMap();
  EXPECT_EQ(watch.Look(map), nullptr);
  EXPECT_TRUE(files.opened.empty());
  RunPendingEvents();
  ASSERT_NE(watch.Look(map), nullptr);
  EXPECT_EQ(watch.Look(map)->game_types, kCaptureTheFlag);
  EXPECT_EQ(changes, 1);
  EXPECT_EQ(files.opened.size(), 1U);
}

TEST_F(HealthWatchTest, RowsThatAreShownTogetherArePaintedAnewTogether) {
  for (int row = 0; row < 10; ++row) {
    EXPECT_EQ(watch.Look(GoodMap("map" + std::to_string(row) + ".bms")), nullptr);
  }
  RunPendingEvents();  // the first one is read at once
  RunPendingEvents();  // and those that came meanwhile behind it
  EXPECT_EQ(changes, 2);
  EXPECT_FALSE(desktop.clock().HasTasks());
}

TEST_F(HealthWatchTest, AFileIsLookedAtAgainAfterTenSeconds) {
  const std::string map = GoodMap();
  static_cast<void>(watch.Look(map));
  RunPendingEvents();
  native_files.Delete(map);
  desktop.clock().AdvanceMs(9'999);
  EXPECT_EQ(watch.Look(map)->state, MapFacts::State::kThere);
  EXPECT_FALSE(desktop.clock().HasTasks());
  desktop.clock().AdvanceMs(1);
  EXPECT_EQ(watch.Look(map)->state, MapFacts::State::kThere) << "what was known is shown meanwhile";
  RunPendingEvents();
  EXPECT_EQ(watch.Look(map)->state, MapFacts::State::kMissing);
  EXPECT_EQ(changes, 2);
}

TEST_F(HealthWatchTest, AFileThatHasNotChangedIsNotPaintedAnew) {
  const std::string map = GoodMap();
  static_cast<void>(watch.Look(map));
  RunPendingEvents();
  watch.LookAgain();
  ASSERT_NE(watch.Look(map), nullptr);
  RunPendingEvents();
  EXPECT_EQ(changes, 1);
}

TEST_F(HealthWatchTest, OfALongListThatIsScrolledThroughOnlyTheRowsThatWereSeenLastAreRead) {
  const auto row_path = [this](int row) { return MapPath("row" + std::to_string(row) + ".bms"); };
  for (int row = 0; row < 1000; ++row) static_cast<void>(watch.Look(row_path(row)));
  while (desktop.clock().HasTasks()) RunPendingEvents();
  EXPECT_NE(watch.Look(row_path(999)), nullptr);
  EXPECT_NE(watch.Look(row_path(800)), nullptr);
  EXPECT_EQ(watch.Look(row_path(500)), nullptr);
}

TEST_F(HealthWatchTest, WhatComesInForAWindowThatIsClosedIsDropped) {
  const std::string map = GoodMap();
  {
    HealthWatch closed([] { FAIL() << "its window is gone"; });
    EXPECT_EQ(closed.Look(map), nullptr);
  }
  RunPendingEvents();
  EXPECT_EQ(files.opened.size(), 1U);
}

TEST_F(HealthWatchTest, WhatACheckFoundOfAnAddressIsKept) {
  MapFacts facts;
  facts.state = MapFacts::State::kNoAnswer;
  watch.Keep("http://maps.example/a.bms", facts);
  ASSERT_NE(watch.Kept("http://maps.example/a.bms"), nullptr);
  EXPECT_EQ(watch.Kept("http://maps.example/b.bms"), nullptr);
}

}  // namespace
}  // namespace kestrun
