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
#include "desktop/headless/headless_clock.h"
#include "desktop/headless/headless_game.h"
#include "game/builds.h"
#include "game/run/auto_host_run.h"
#include "game/run/running_clock.h"

namespace kestrun {

class PlainRunWindow final : public RunWindow {
 public:
  struct Row {
    std::string text;
    int32_t inserts = 0;
    bool selected = false;
  };
  std::vector<Row> rows;
  int current = -1;
  bool uses_game_timer = false;
  bool sends_reset = false;
  std::string minutes = "15", seconds = "58";  // the longest time between two maps
  std::string shown_minutes, shown_seconds;
  std::string failure;
  bool failure_is_shown = false;
  std::string refusal;
  std::string drawn;
  std::vector<RunStep> steps;
  std::vector<int> puts;
  std::vector<TimeField> focused;
  bool open = true;

  int RowCount() override { return static_cast<int>(rows.size()); }
  std::string RowText(int row) override { return At(row).text; }
  int CurrentRow() override { return current; }
  void SetCurrentRow(int row) override {
    if (row >= RowCount()) Raise(error::kInvalidProcedureCall);
    current = row;
  }
  void SelectRow(int row, bool selected) override { At(row).selected = selected; }
  int32_t InsertCount(int row) override { return At(row).inserts; }
  void SetInsertCount(int row, int32_t count) override { At(row).inserts = count; }
  void ShowDrawnMap(const std::string& map) override { drawn = map; }
  void TakeRename() override {}
  bool UsesGameTimer() override { return uses_game_timer; }
  bool SendsResetGames() override { return sends_reset; }
  std::string LongestTime(TimeField field) override { return field == TimeField::kMinutes ? minutes : seconds; }
  void RestoreLongestTime(TimeField field) override {
    (field == TimeField::kMinutes ? minutes : seconds) = field == TimeField::kMinutes ? "15" : "58";
  }
  void FocusLongestTime(TimeField field) override { focused.push_back(field); }
  std::string ShownTime(TimeField field) override {
    return field == TimeField::kMinutes ? shown_minutes : shown_seconds;
  }
  void ShowTime(TimeField field, const std::string& text) override {
    if (field == TimeField::kMinutes) {
      shown_minutes = LimitedMinutes(text);
    } else {
      shown_seconds = LimitedSeconds(text);
    }
  }
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

 private:
  Row& At(int row) {
    if (row < 0 || row >= RowCount()) Raise(error::kInvalidProcedureCall);
    return rows[static_cast<size_t>(row)];
  }
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
  HeadlessClock clock;
  HeadlessGames games;
  std::unique_ptr<GameMemory> memory = games.MakeMemory({});
  PlainRunWindow window;
  std::set<std::string> bad_maps;  // putting them fails
  std::vector<std::string> put_maps;
  std::vector<std::string> missions;
  std::vector<std::string> downloads;
  std::vector<std::string> told;
  std::vector<int> reported;  // error numbers
  std::vector<double> draws;  // laid down, first in first out
  AutoHostRun run{window,
                  {clock, *memory,
                   [this](const std::string& map, std::string& mission) {
                     if (bad_maps.contains(map)) return false;
                     put_maps.push_back(map);
                     missions.push_back(mission);
                     return true;
                   },
                   [](const std::string& text) { return text.starts_with("http://"); },
                   [this](const std::string& url, const std::string&) { downloads.push_back(url); }, "file.tmp",
                   [this] {
                     const double draw = draws.empty() ? 0.5 : draws.front();
                     if (!draws.empty()) draws.erase(draws.begin());
                     return draw;
                   },
                   [this](const std::string& text) { told.push_back(text); },
                   [this] { reported.push_back(CurrentError().number()); }}};
};

}  // namespace kestrun
