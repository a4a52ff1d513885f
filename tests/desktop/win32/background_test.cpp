// Work on the background's own thread, and the badges of a real list that come in through it.
#include "desktop/win32/system/win32_background.h"

#include <gtest/gtest.h>

#include <atomic>
#include <chrono>
#include <future>
#include <thread>

#include "desktop/win32/window_fixture.h"
#include "forms/list_box.h"
#include "platform/folder_rights.h"

namespace kestrun {
namespace {

class BackgroundTest : public RealWindowTest {
 protected:
  // Until a condition holds, for a few seconds at most.
  template <class Condition>
  bool PumpUntil(Condition&& condition) {
    const auto end = std::chrono::steady_clock::now() + std::chrono::seconds(10);
    while (!condition()) {
      if (std::chrono::steady_clock::now() > end) return false;
      Pump();
      ::Sleep(2);
    }
    return true;
  }
};

TEST_F(BackgroundTest, WorkRunsElsewhereAndItsEndOnTheWindowsThread) {
  Win32Background background;
  const std::thread::id windows = std::this_thread::get_id();
  std::atomic<bool> was_elsewhere = false;
  bool is_done = false;
  background.Run([&] { was_elsewhere = std::this_thread::get_id() != windows; },
                 [&] { is_done = std::this_thread::get_id() == windows; });
  EXPECT_FALSE(is_done) << "not before the message loop has run";
  EXPECT_TRUE(PumpUntil([&] { return is_done; }));
  EXPECT_TRUE(was_elsewhere);
}

TEST_F(BackgroundTest, AReadThatHangsDoesNotHoldTheWindowsUp) {
  Win32Background background;
  std::promise<void> release;
  bool is_done = false;
  background.Run([waiting = release.get_future().share()] { waiting.wait(); }, [&] { is_done = true; });
  for (int pass = 0; pass < 20; ++pass) Pump();
  EXPECT_FALSE(is_done);
  release.set_value();
  EXPECT_TRUE(PumpUntil([&] { return is_done; }));
}

TEST_F(BackgroundTest, TasksRunOneAfterTheOtherInTheirOrder) {
  Win32Background background;
  std::string order;  // written by one thread at a time
  bool is_done = false;
  for (const char* name : {"a", "b", "c"}) background.Run([&order, name] { order += name; }, [] {});
  background.Run([] {}, [&] { is_done = true; });
  EXPECT_TRUE(PumpUntil([&] { return is_done; }));
  EXPECT_EQ(order, "abc");
}

TEST_F(BackgroundTest, WhatStillWaitsWhenTheProgramEndsIsDropped) {
  std::atomic<int> runs = 0;
  {
    Win32Background background;
    std::promise<void> started;
    background.Run(
        [&] {
          started.set_value();
          ++runs;
        },
        [] { FAIL() << "nobody is there any more"; });
    started.get_future().wait();
  }
  EXPECT_EQ(runs, 1);
}

TEST_F(BackgroundTest, AFolderOfOnesOwnMayBeWrittenAndOneThatIsNotThereIsNotRefused) {
  EXPECT_TRUE(MayMakeFilesIn(platform.files(), platform.shell().TemporaryFolder()));
  EXPECT_TRUE(MayMakeFilesIn(platform.files(), "Z:\\no\\such\\folder"));
}

class frmbadges final : public Form {
 public:
  frmbadges() : Form("frmbadges") {
    SetClientSize(6000, 3000);
    list.Move(0, 0, 6000, 3000);
    for (int row = 0; row < 1000; ++row) list.AddItem("row");
    list.Badges = {[this](int row) {
                     last_asked = std::max(last_asked, row);
                     return RowBadge{MakeRef<kestrun::Picture>(1, 1, std::vector<uint32_t>{0xFF00FF00}), "good", ""};
                   },
                   "doubtful"};
  }
  ListBox& list = Add<ListBox>("List1");
  int last_asked = -1;
};

TEST_F(BackgroundTest, ABadgeIsDrawnInFrontOfItsRowAndOnlyOfRowsThatAreSeen) {
  const Ref<frmbadges> form = MakeRef<frmbadges>();
  form->Show();
  constexpr Color kGreen = 0x00FF00;
  const auto is_drawn = [&] { return CountPixels(HandleOf(form->list), {0, 0, 20, 14}, kGreen) > 50; };
  EXPECT_TRUE(PumpUntil(is_drawn));
  EXPECT_GE(form->last_asked, 5);
  EXPECT_LT(form->last_asked, 100);
  EXPECT_EQ(SendMessageW(HandleOf(form->list), LB_GETTEXTLEN, 0, 0), 3) << "the row's text stays as it is";
}

}  // namespace
}  // namespace kestrun
