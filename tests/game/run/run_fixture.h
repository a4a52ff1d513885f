// A run without a window: a play list of plain rows, the virtual clock, and a game whose clock and byte a test sets.
#pragma once

#include <gtest/gtest.h>

#include <functional>
#include <set>
#include <string>
#include <vector>

#include "base/convert.h"
#include "base/number.h"
#include "base/runtime_error.h"
#include "desktop/headless/headless_game.h"
#include "game/builds.h"
#include "game/run/auto_host_run.h"
#include "game/run/plain_run_window.h"
#include "platform/virtual_clock.h"

namespace kestrun {

class WatchedRunWindow final : public PlainRunWindow {
 public:
  std::string failure;
  bool failure_is_shown = false;
  std::string refusal;
  std::vector<RunStep> steps;
  std::vector<int> puts;
  std::vector<TimeField> focused;
  bool open = true;

  void FocusLongestTime(TimeField field) override { focused.push_back(field); }
  void Follow(RunStep step) override { steps.push_back(step); }
  void ShowPut(int row) override { puts.push_back(row); }
  void ShowFailure(const std::string& text) override {
    failure = text;
    failure_is_shown = true;
  }
  void HideFailure() override {
    failure.clear();
    failure_is_shown = false;
  }
  void ShowRefusal(const std::string& sentence) override { refusal = sentence; }
  bool IsOpen() override { return open; }
};

class RunTest : public testing::Test {
 protected:
  // The rows of the play list.
  void Rows(const std::vector<std::string>& texts) {
    window.rows.clear();
    for (const std::string& text : texts) window.rows.push_back({text});
  }
  void LongestTime(const std::string& minutes, const std::string& seconds) {
    window.minutes = minutes;
    window.seconds = seconds;
  }
  // A game of the first build, in which the byte stands so.
  std::shared_ptr<HeadlessGame> StartGame(bool is_running) {
    auto game = games.Start(std::string(kBuild.window_title));
    game->SetLong(static_cast<uint32_t>(kBuild.GameTimer), 0);
    game->SetByte(static_cast<uint32_t>(kBuild.GameEndAddr), is_running ? 1 : 0);
    game->AddMemory(static_cast<uint32_t>(kBuild.MemoryAdress), 256);
    return game;
  }
  static void SetRunning(HeadlessGame& game, bool is_running) {
    game.SetByte(static_cast<uint32_t>(kBuild.GameEndAddr), is_running ? 1 : 0);
  }
  static void SetRoundClock(HeadlessGame& game, double seconds) {
    game.SetLong(static_cast<uint32_t>(kBuild.GameTimer), RoundToInt(seconds * 62.5));
  }
  // Attached and told the addresses, as a start with one of the two check boxes leaves it.
  void AttachTo(HeadlessGame& game) {
    EXPECT_TRUE(memory->AttachToWindow(game.Title()));
    run.fields.DfVersion = 0;
    run.fields.MemoryAdress = kBuild.MemoryAdress;
    run.fields.GameTimer = kBuild.GameTimer;
    run.fields.GameEndAddr = kBuild.GameEndAddr;
  }
  void Ticks(int count) {
    for (int tick = 0; tick < count; ++tick) {
      clock.AdvanceMs(AutoHostRun::kTickMs);
      run.Tick();
    }
  }
  // What was put, row texts joined.
  [[nodiscard]] std::string Put() const {
    std::string joined;
    for (const std::string& map : put_maps) joined += map + "|";
    return joined;
  }

  static constexpr const HostBuild& kBuild = kHostBuilds[0];
  VirtualClock clock;
  HeadlessGames games;
  std::unique_ptr<GameMemory> memory = games.MakeMemory({});
  WatchedRunWindow window;
  std::set<std::string> bad_maps;      // putting them fails
  std::set<std::string> raising_maps;  // putting them raises error 57
  std::set<std::string> dead_urls;     // they cannot be fetched
  std::vector<std::string> put_maps;
  std::vector<std::string> missions;
  std::vector<std::string> downloads;
  std::vector<std::string> told;
  std::vector<int> reported;  // error numbers
  std::vector<RunEvent> events;
  std::vector<double> draws;  // laid down, first in first out
  AutoHostRun run{window,
                  {clock, *memory,
                   [this](const std::string& map, std::string& mission) {
                     if (bad_maps.contains(map)) return "File not found: " + map;
                     if (raising_maps.contains(map)) Raise(error::kDeviceIo);
                     put_maps.push_back(map);
                     missions.push_back(mission);
                     return std::string();
                   },
                   [](const std::string& text) { return text.starts_with("http://"); },
                   [this](const std::string& url, const std::string&) {
                     downloads.push_back(url);
                     return !dead_urls.contains(url);
                   },
                   "file.tmp",
                   [this] {
                     const double draw = draws.empty() ? 0.5 : draws.front();
                     if (!draws.empty()) draws.erase(draws.begin());
                     return draw;
                   },
                   [this](const std::string& text) { told.push_back(text); },
                   [this] { reported.push_back(CurrentError().number()); },
                   [this](const RunEvent& event) { events.push_back(event); }}};
};

}  // namespace kestrun
