// Work on the background's own thread, and the badges of a real list that come in through it.
#include "desktop/win32/system/win32_background.h"

#include <gtest/gtest.h>

#include <atomic>
#include <chrono>
#include <future>
#include <memory>
#include <thread>

#include "desktop/win32/game_process.h"
#include "desktop/win32/window_fixture.h"
#include "forms/list_box.h"
#include "platform/background_work.h"
#include "platform/command_result.h"
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

// The work that runs goes on when the work behind it is gone. Where that stayed, the process would be ended after three
// seconds: by then with a failure.
TEST_F(BackgroundTest, WhatStillWaitsWhenTheProgramEndsIsDropped) {
  SetExitCode(1);
  std::atomic<int> runs = 0;
  std::promise<void> dropped;
  {
    Win32Background background;
    std::promise<void> started;
    background.Run(
        [&] {
          started.set_value();
          dropped.get_future().wait();
          ++runs;
        },
        [] { FAIL() << "nobody is there any more"; });
    started.get_future().wait();
    background.Run([&runs, last = std::shared_ptr<void>(nullptr, [&](void*) { dropped.set_value(); })] { ++runs; },
                   [] { FAIL() << "nobody is there any more"; });
  }
  EXPECT_EQ(runs, 1);
  SetExitCode(0);
}

constexpr int kCodeOfTheEnd = 7;

// The part of the test below that runs in a process of its own, which does not come to the end of it.
TEST_F(BackgroundTest, DISABLED_EndingWhileAReadHangs) {
  std::promise<void> started;
  RunInBackground(
      [&] {
        started.set_value();
        ::Sleep(INFINITE);
      },
      [] {});
  started.get_future().wait();
  SetExitCode(kCodeOfTheEnd);
}

TEST_F(BackgroundTest, AProgramThatEndsWhileAReadHangsEndsWithItsOwnExitCode) {
  std::wstring path(32'768, L'\0');
  path.resize(GetModuleFileNameW(nullptr, path.data(), static_cast<DWORD>(path.size())));
  const ProcessHandle process =
      StartProcess(L"\"" + path +
                   L"\" --gtest_filter=BackgroundTest.DISABLED_EndingWhileAReadHangs --gtest_also_run_disabled_tests");
  ASSERT_TRUE(process.IsValid());
  EXPECT_EQ(WaitForSingleObject(process.get(), kPatienceMs), WAIT_OBJECT_0);
  DWORD code = 0;
  ASSERT_TRUE(GetExitCodeProcess(process.get(), &code));
  EXPECT_EQ(code, static_cast<DWORD>(kCodeOfTheEnd));
  EndProcess(process);
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
