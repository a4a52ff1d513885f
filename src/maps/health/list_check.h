// The check of a whole play list: each row's file is looked at, each web address is asked once, and a report tells
// which rows would fail and why. Many addresses are asked at once, few of one server, and after three quarters of a
// minute without a word from any server no more: a list of dead ones ends a little behind a minute. Those that were not
// asked are told as such.
#pragma once

#include <memory>
#include <optional>
#include <string>
#include <unordered_map>
#include <vector>

#include "maps/health/map_health.h"

namespace kestrun {

struct CheckedRow {
  std::string map;
  MapHealth health;
};

struct ListReport {
  std::string list;  // what was checked, for its first line
  MapUse use;
  std::vector<CheckedRow> rows;
  // The folder of the game where no map can be put; empty where nothing speaks against it, and where none is known.
  std::string closed_game_folder;
  bool is_cut_short = false;

  [[nodiscard]] int Count(Health health) const;
  // Whether something would fail, or may: there are rows that were not checked.
  [[nodiscard]] bool IsBad() const {
    return Count(Health::kBad) > 0 || Count(Health::kUnknown) > 0 || !closed_game_folder.empty();
  }
};

// Whether no map can be put into that folder of the game for want of rights; false for one that is not there. May run
// on any thread.
[[nodiscard]] bool IsClosedGameFolder(FileSystem& files, const std::string& folder);

// As plain text, lines ending in CR LF.
[[nodiscard]] std::string ReportText(const ListReport& report);
// "2 bad, 1 doubtful, 9 good"; what no row is, is left out.
[[nodiscard]] std::string CountText(const ListReport& report);

class ListCheck {
 public:
  ListCheck(std::string list, std::vector<std::string> rows, MapUse use);
  ~ListCheck();
  ListCheck(const ListCheck&) = delete;
  ListCheck& operator=(const ListCheck&) = delete;

  // Goes on a little and never waits long: it is called again and again, with passes of the message loop between. True
  // while there is more to do.
  [[nodiscard]] bool Advance();
  // Nothing comes of a call of Advance before something else has ended.
  [[nodiscard]] bool IsWaiting() const;
  // Rows whose map is looked at, and how many there are.
  [[nodiscard]] int DoneRows() const;
  [[nodiscard]] int RowCount() const { return static_cast<int>(rows_.size()); }
  // What it does now: "Looking at the files: 12 of 40 rows", "Asking maps.example: 39 of 40 rows".
  [[nodiscard]] std::string Task() const;
  // At any time: rows that it has not come to are not checked, and the report says that it was cut short.
  [[nodiscard]] ListReport Report() const;
  // What was found behind each web address that was asked.
  [[nodiscard]] const std::unordered_map<std::string, MapFacts>& Addresses() const { return addresses_; }

 private:
  struct Files;
  [[nodiscard]] bool AdvanceFiles();
  [[nodiscard]] bool AdvanceAddresses();
  // Whether a question has ended.
  [[nodiscard]] bool TakeAnswers(uint64_t now_ms);
  void AskMore();
  void TakeFacts(const std::string& address, const MapFacts& facts);

  struct Question;
  std::string list_;
  std::vector<std::string> rows_;
  MapUse use_;
  std::shared_ptr<Files> files_;
  std::vector<std::string> waiting_addresses_;  // in the order of their rows
  std::unordered_map<std::string, int> rows_of_address_;
  std::unordered_map<std::string, MapFacts> addresses_;
  std::vector<std::unique_ptr<Question>> questions_;  // that are asked now, the oldest first
  std::optional<uint64_t> asks_since_ms_;
  int asked_rows_ = 0;
  bool is_over_ = false;
};

// For each row the number of the first other row with the same map, counted from 1; 0 where there is none.
[[nodiscard]] std::vector<int> SameRows(const std::vector<std::string>& rows);

}  // namespace kestrun
