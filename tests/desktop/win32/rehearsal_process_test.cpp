// A rehearsal beside the night itself: the same run, over the real clock, against the game as a process of its own.
#include <gtest/gtest.h>

#include "desktop/win32/game_process.h"
#include "desktop/win32/system/win32_game_memory.h"
#include "desktop/win32/window_fixture.h"
#include "game/run/auto_host_run.h"
#include "game/run/plain_run_window.h"
#include "game/run/rehearsal.h"

namespace kestrun {
namespace {

// How many seconds of the night pass in one.
constexpr uint32_t kSpeed = 20;
constexpr uint32_t kRoundSeconds = 40;
constexpr uint32_t kPauseMs = 5000;

// Everything but the stamps.
std::vector<std::string> Happened(const std::vector<std::string>& log) {
  std::vector<std::string> texts;
  for (const std::string& line : log) {
    if (line.size() > 11) texts.push_back(line.substr(11));
  }
  return texts;
}

class RehearsalProcessTest : public RealWindowTest {
 protected:
  [[nodiscard]] std::string MapPath(const std::string& name) const { return folder.path() + "\\" + name + ".bms"; }
  static Bytes MissionNamed(const std::string& name) {
    MissionFields fields;
    fields.mission_name = name;
    return WriteMission(fields);
  }

  TemporaryFolder folder;
};

// Waits take as much less time as the night goes faster.
class FastClock final : public Clock {
 public:
  explicit FastClock(Clock& clock) : clock_(clock) {}
  uint64_t NowMs() override { return clock_.NowMs() * kSpeed; }
  double LocalDateTime() override { return clock_.LocalDateTime(); }
  void SleepMs(uint32_t milliseconds) override { clock_.SleepMs(milliseconds / kSpeed + 1); }
  void RunPendingEvents() override { clock_.RunPendingEvents(); }
  TimerId StartTimer(uint32_t interval_ms, std::function<void()> tick) override {
    return clock_.StartTimer(interval_ms / kSpeed, std::move(tick));
  }
  void StopTimer(TimerId timer) override { clock_.StopTimer(timer); }
  void Post(std::function<void()> task) override { clock_.Post(std::move(task)); }

 private:
  Clock& clock_;
};

TEST_F(RehearsalProcessTest, TheTableOfARehearsalIsTheLogOfTheGame) {
  Win32FileSystem files;
  for (const char* name : {"Alpha", "Bravo", "Charlie"}) files.WriteAll(MapPath(name), MissionNamed(name));
  files.WriteAll(MapPath("Broken"), AsBytes("no mission"));
  const std::vector<std::string> rows{MapPath("Alpha"), MapPath("Gone"), MapPath("Bravo"), MapPath("Broken"),
                                      MapPath("Charlie")};
  const auto game_folder = std::make_shared<TemporaryFolder>();
  const std::string mission = game_folder->path() + "\\D08M03.BMS";
  files.WriteAll(mission, MissionNamed("First"));

  RehearsalPlan plan;
  plan.rows = rows;
  plan.Rename = "D08M03.BMS";
  plan.uses_game_timer = true;
  plan.minutes = "15";
  plan.seconds = "58";
  plan.first_mission = MissionFromBytes(MissionNamed("First"), "loose file", false);
  plan.round_seconds = kRoundSeconds;
  plan.pause_ms = kPauseMs;
  plan.hours = 1;
  const std::vector<std::string> rehearsed = Happened(Rehearse(plan).game_log);

  const GameProcess game(0,
                         "-round " + std::to_string(kRoundSeconds) + " -speed " + std::to_string(kSpeed) + " -pause " +
                             std::to_string(kPauseMs / kSpeed) + " -leave " + std::to_string(300 / kSpeed),
                         game_folder);
  ASSERT_TRUE(game.IsThere());
  FastClock clock(platform.clock());
  const std::unique_ptr<GameMemory> memory = Win32Games().MakeMemory({});
  PlainRunWindow host;
  for (const std::string& row : rows) host.rows.push_back({row});
  host.uses_game_timer = true;
  std::vector<std::string> told;
  AutoHostRun run(host, {clock,
                         *memory,
                         [&](const std::string& map, std::string&) {
                           std::string refusal;
                           Attempt([&] { files.CopyDurably(map, mission); },
                                   [&](const RuntimeError& failure) { refusal = failure.description(); });
                           return refusal;
                         },
                         [](const std::string&) { return false; },
                         {},
                         "",
                         [] { return 0.0; },
                         [&](const std::string& text) { told.push_back(text); },
                         [&] { told.push_back(CurrentError().description()); },
                         [](const RunEvent&) {}});
  run.fields.Rename = plan.Rename;
  run.fields.DfVersion = 0;
  run.StartList();
  ASSERT_TRUE(told.empty()) << told.front();
  const TimerId tick = clock.StartTimer(AutoHostRun::kTickMs, [&] { run.Tick(); });
  const auto rounds = [&] { return Happened(Split(game.Log(), "\r\n")).size(); };
  EXPECT_TRUE(WaitFor([&] {
    Pump();
    return rounds() >= 24;
  }));
  clock.StopTimer(tick);

  const std::vector<std::string> played = Happened(Split(game.Log(), "\r\n"));
  ASSERT_GE(rehearsed.size(), 24U);
  EXPECT_EQ(std::vector<std::string>(played.begin(), played.begin() + 24),
            std::vector<std::string>(rehearsed.begin(), rehearsed.begin() + 24));
}

}  // namespace
}  // namespace kestrun
