// How a simulated game behaves: its build, its folder, and what goes wrong in it.
#pragma once

#include <cstddef>
#include <cstdint>
#include <string>
#include <string_view>

namespace kestrun {

struct GameOptions {
  size_t build = 0;                    // row of SimulatedBuilds
  std::string folder;                  // the game's folder, without a trailing separator
  std::string archive = "dflw.pff";    // in that folder
  std::string mission = "D08M03.BMS";  // the stock mission that the server plays
  uint32_t round_seconds = 900;        // on the round clock
  uint32_t speed = 1;                  // seconds of the round clock in one second
  uint32_t pause_ms = 5000;            // between the end of a round and the next one
  uint32_t leave_ms = 300;             // from the end of a round to the fall of the running byte
  uint32_t kill_after_ms = 0;          // the process ends at that age, in the middle of whatever it does; 0 never
  bool ignores_keys = false;
  bool plays_anything = false;  // also files that are no missions
  std::string log;              // file for the log lines; of the process alone
};

// Reads words such as `-build 1 -folder "C:\the game" -round 60 -keysignored`. Error 5 with a sentence that names the
// word for one that is unknown, or whose number is missing or out of range.
[[nodiscard]] GameOptions ParseGameOptions(std::string_view command_line);

// One line for each word, for the usage.
[[nodiscard]] std::string GameOptionsUsage();

}  // namespace kestrun
