// A night of the auto host and the messenger, played in advance: the run itself, over a virtual clock, against the
// simulated game. Nothing outside is changed, and no map is fetched.
#pragma once

#include <cstdint>
#include <string>
#include <vector>

#include "game/messages/message_list.h"
#include "game/simulated/stock_mission.h"

namespace kestrun {

struct RehearsalPlan {
  // The auto host's.
  std::vector<std::string> rows;  // paths and web addresses
  std::string Rename;             // file name of the mission that the maps take the place of
  bool random = false;
  bool uses_game_timer = false;
  bool sends_reset_games = false;
  std::string minutes, seconds;  // the longest time between two maps
  int16_t DfVersion = 0;

  // The messenger's, whose build is a row of kMessengerBuilds; without messages it stays silent.
  MessengerSettings messenger;

  // The game's.
  LoadedMission first_mission;   // what it plays before a map was put
  uint32_t round_seconds = 900;  // that its round clock begins with
  uint32_t pause_ms = 5000;      // between two rounds

  uint32_t hours = 8;
  double begins = 0;  // date and time, for %time%
};

struct RehearsalLine {
  enum class Kind { kInserted, kFailed, kRound, kRefused, kMessage };
  uint64_t at_ms = 0;  // since the beginning
  Kind kind = Kind::kInserted;
  int row = -1;        // of the play list, from 0; -1 for none
  std::string what;    // the map, or the message with its line in front
  std::string reason;  // what called for the map, or why it failed
};

struct Rehearsal {
  std::vector<RehearsalLine> lines;
  std::vector<std::string> game_log;  // of the simulated game
  std::vector<std::string> told;      // what the run would have shown in a box
  int inserted = 0;
  int failed = 0;
  int messages = 0;
  // The longest time in which the server played one map, and when it began.
  uint64_t longest_ms = 0;
  uint64_t longest_from_ms = 0;
};

// Plays the whole plan.
[[nodiscard]] Rehearsal Rehearse(const RehearsalPlan& plan);

// A text for each line, in columns for a font of a fixed pitch: time, "Inserted", "Failed", "Round", "Refused" or
// "Message", the row, what, and why.
[[nodiscard]] std::vector<std::string> RehearsalTexts(const Rehearsal& rehearsal);
// Hours, minutes and seconds: "1:02:03".
[[nodiscard]] std::string DurationText(uint64_t milliseconds);
// The summary, one sentence a line.
[[nodiscard]] std::vector<std::string> RehearsalSummary(const Rehearsal& rehearsal, uint32_t hours);
// The whole as a text file.
[[nodiscard]] std::string RehearsalReport(const Rehearsal& rehearsal, uint32_t hours);

}  // namespace kestrun
