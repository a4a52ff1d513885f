// A night of the auto host and the messenger, played in advance: the run itself, over a virtual clock, against the
// simulated game. Nothing outside is changed, no map is fetched, and no file is read meanwhile: whoever rehearses reads
// the maps beforehand, so that a disk that does not answer holds nobody up.
#pragma once

#include <cstdint>
#include <map>
#include <string>
#include <vector>

#include "game/messages/message_list.h"
#include "game/simulated/stock_mission.h"
#include "platform/files.h"

namespace kestrun {

// What the file of a map is to a put and to the game.
struct RehearsedMap {
  LoadedMission mission;
  std::string refusal;  // why it could not be read, explained; empty when it was
};
using RehearsedMaps = std::map<std::string, RehearsedMap>;  // by path
// May run on any thread, takes as long as the disk, and never raises.
[[nodiscard]] RehearsedMap ReadRehearsedMap(FileSystem& files, const std::string& path);

struct RehearsalPlan {
  // The auto host's.
  std::vector<std::string> rows;  // paths and web addresses
  std::string Rename;             // file name of the mission that the maps take the place of
  bool random = false;
  bool uses_game_timer = false;
  bool sends_reset_games = false;
  std::string minutes, seconds;  // the longest time between two maps
  int16_t DfVersion = 0;

  // Why no map can be put, as far as that is known before; empty otherwise.
  std::string put_refusal;

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
  // Paths that were put and are not among the maps that were given, each once: they were taken for good maps.
  std::vector<std::string> unread;
  int inserted = 0;
  int failed = 0;
  int messages = 0;
  // The longest time in which the server played one map, and when it began.
  uint64_t longest_ms = 0;
  uint64_t longest_from_ms = 0;
};

// Plays the whole plan. With the maps that it names as unread it plays otherwise, and may name more.
[[nodiscard]] Rehearsal Rehearse(const RehearsalPlan& plan, const RehearsedMaps& maps);

// A text for each line, in columns for a font of a fixed pitch: time, "Inserted", "Failed", "Round", "Refused" or
// "Message", the row, what, and why.
[[nodiscard]] std::vector<std::string> RehearsalTexts(const Rehearsal& rehearsal);
// Hours, minutes and seconds: "1:02:03".
[[nodiscard]] std::string DurationText(uint64_t milliseconds);
// The summary, one sentence a line. Maps that were not read are told.
[[nodiscard]] std::vector<std::string> RehearsalSummary(const Rehearsal& rehearsal, uint32_t hours);
// The whole as a text file.
[[nodiscard]] std::string RehearsalReport(const Rehearsal& rehearsal, uint32_t hours);

}  // namespace kestrun
