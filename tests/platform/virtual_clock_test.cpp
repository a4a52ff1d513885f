#include "platform/virtual_clock.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <memory>

#include "base/runtime_error.h"

namespace kestrun {
namespace {

using testing::ElementsAre;

TEST(VirtualClockTest, TimeStandsStillByItself) {
  VirtualClock clock;
  clock.RunPendingEvents();
  EXPECT_EQ(clock.NowMs(), 0U);
}

TEST(VirtualClockTest, SleepMovesTimeExactly) {
  VirtualClock clock;
  clock.SleepMs(5000);
  EXPECT_EQ(clock.NowMs(), 5000U);
}

TEST(VirtualClockTest, DateGoesOnWithTheTime) {
  VirtualClock clock;
  clock.SleepMs(1000);
  clock.SetLocalDateTime(36526.0);
  clock.SleepMs(6 * 60 * 60 * 1000);
  EXPECT_DOUBLE_EQ(clock.LocalDateTime(), 36526.25);
}

TEST(VirtualClockTest, TimerFiresAtEachInterval) {
  VirtualClock clock;
  std::vector<uint64_t> moments;
  static_cast<void>(clock.StartTimer(999, [&] { moments.push_back(clock.NowMs()); }));
  clock.AdvanceMs(998);
  EXPECT_THAT(moments, ElementsAre());
  clock.AdvanceMs(2000);
  EXPECT_THAT(moments, ElementsAre(999, 1998, 2997));
}

TEST(VirtualClockTest, TimersFireInOrderOfTheirMoments) {
  VirtualClock clock;
  std::string order;
  static_cast<void>(clock.StartTimer(300, [&] { order += "c"; }));
  static_cast<void>(clock.StartTimer(100, [&] { order += "a"; }));
  static_cast<void>(clock.StartTimer(200, [&] { order += "b"; }));
  clock.SleepMs(300);
  EXPECT_EQ(order, "abaca");
}

TEST(VirtualClockTest, OfTwoDueAtOnceTheOneArmedFirstFiresFirst) {
  VirtualClock clock;
  std::string order;
  static_cast<void>(clock.StartTimer(10, [&] { order += "a"; }));
  static_cast<void>(clock.StartTimer(10, [&] { order += "b"; }));
  clock.SleepMs(20);
  EXPECT_EQ(order, "abab");
}

TEST(VirtualClockTest, StoppedTimerIsSilent) {
  VirtualClock clock;
  int ticks = 0;
  const TimerId timer = clock.StartTimer(10, [&] { ++ticks; });
  clock.StopTimer(timer);
  clock.AdvanceMs(100);
  EXPECT_EQ(ticks, 0);
  EXPECT_EQ(clock.TimerCount(), 0U);
}

TEST(VirtualClockTest, TickMayStopItsOwnTimer) {
  VirtualClock clock;
  int ticks = 0;
  TimerId timer = 0;
  const auto owned = std::make_shared<int>(7);
  timer = clock.StartTimer(10, [&, owned] {
    clock.StopTimer(timer);
    ticks += *owned;
  });
  clock.AdvanceMs(100);
  EXPECT_EQ(ticks, 7);
}

TEST(VirtualClockTest, TickMayStartAnotherTimer) {
  VirtualClock clock;
  std::vector<uint64_t> moments;
  const TimerId first =
      clock.StartTimer(10, [&] { static_cast<void>(clock.StartTimer(50, [&] { moments.push_back(clock.NowMs()); })); });
  clock.AdvanceMs(10);
  clock.StopTimer(first);
  clock.AdvanceMs(60);
  EXPECT_THAT(moments, ElementsAre(60));
}

TEST(VirtualClockTest, MissedTicksAreNotMadeUpFor) {
  VirtualClock clock;
  std::vector<uint64_t> fast_moments;
  static_cast<void>(clock.StartTimer(100, [&] { fast_moments.push_back(clock.NowMs()); }));
  clock.MoveTo(1050);
  clock.RunPendingEvents();
  clock.AdvanceMs(200);
  EXPECT_THAT(fast_moments, ElementsAre(1050, 1150, 1250));
}

TEST(VirtualClockTest, TickThatSleepsIsNotEnteredAgainByItsOwnSleep) {
  VirtualClock clock;
  std::vector<uint64_t> starts;
  int others = 0;
  static_cast<void>(clock.StartTimer(1000, [&] {
    starts.push_back(clock.NowMs());
    clock.SleepMs(2500);
  }));
  static_cast<void>(clock.StartTimer(1000, [&] { ++others; }));
  clock.AdvanceMs(1000);
  EXPECT_THAT(starts, ElementsAre(1000));
  EXPECT_EQ(others, 3);
  clock.RunPendingEvents();
  EXPECT_THAT(starts, ElementsAre(1000, 3500));
}

TEST(VirtualClockTest, TickThatRunsTheLoopCanBeEnteredAgain) {
  VirtualClock clock;
  int depth = 0;
  int deepest = 0;
  static_cast<void>(clock.StartTimer(10, [&] {
    deepest = std::max(deepest, ++depth);
    if (depth < 3) {
      clock.SleepMs(10);
      clock.RunPendingEvents();
    }
    --depth;
  }));
  clock.AdvanceMs(10);
  EXPECT_EQ(deepest, 3);
}

TEST(VirtualClockTest, IntervalOfZeroCountsAsOne) {
  VirtualClock clock;
  int ticks = 0;
  static_cast<void>(clock.StartTimer(0, [&] { ++ticks; }));
  clock.AdvanceMs(5);
  EXPECT_EQ(ticks, 5);
}

TEST(VirtualClockTest, PostedTaskWaitsForTheLoop) {
  VirtualClock clock;
  bool ran = false;
  clock.Post([&] { ran = true; });
  clock.SleepMs(1000);
  EXPECT_FALSE(ran);
  clock.RunPendingEvents();
  EXPECT_TRUE(ran);
}

TEST(VirtualClockTest, TaskPostedByATaskWaitsForTheNextPass) {
  VirtualClock clock;
  std::string order;
  clock.Post([&] {
    order += "a";
    clock.Post([&] { order += "c"; });
  });
  clock.Post([&] { order += "b"; });
  clock.RunPendingEvents();
  EXPECT_EQ(order, "ab");
  EXPECT_TRUE(clock.HasTasks());
  clock.RunPendingEvents();
  EXPECT_EQ(order, "abc");
}

TEST(VirtualClockTest, FailureInATickLeavesTheTimerRunning) {
  VirtualClock clock;
  int ticks = 0;
  static_cast<void>(clock.StartTimer(10, [&] {
    ++ticks;
    Raise(error::kTypeMismatch);
  }));
  EXPECT_THROW(clock.SleepMs(10), RuntimeError);
  EXPECT_THROW(clock.SleepMs(10), RuntimeError);
  EXPECT_EQ(ticks, 2);
}

TEST(VirtualClockTest, ClearForgetsTimersAndTasks) {
  VirtualClock clock;
  int runs = 0;
  static_cast<void>(clock.StartTimer(1, [&] { ++runs; }));
  clock.Post([&] { ++runs; });
  clock.Clear();
  clock.AdvanceMs(10);
  EXPECT_EQ(runs, 0);
  EXPECT_FALSE(clock.NextDueMs());
}

}  // namespace
}  // namespace kestrun
