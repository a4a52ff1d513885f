// A play list and the controls of a run as plain values: for a run that nobody watches.
#pragma once

#include <string>
#include <vector>

#include "base/runtime_error.h"
#include "game/run/run_window.h"
#include "game/run/running_clock.h"

namespace kestrun {

class PlainRunWindow : public RunWindow {
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
  std::string drawn;

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
  void FocusLongestTime(TimeField) override {}
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
  void Follow(RunStep) override {}
  void ShowPut(int) override {}
  void ShowFailure(const std::string&) override {}
  void HideFailure() override {}
  void ShowRefusal(const std::string&) override {}
  bool IsOpen() override { return true; }

 private:
  Row& At(int row) {
    if (row < 0 || row >= RowCount()) Raise(error::kInvalidProcedureCall);
    return rows[static_cast<size_t>(row)];
  }
};

}  // namespace kestrun
