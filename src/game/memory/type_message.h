// A line of text typed into the game: a key opens the game's text line, the text is written into its place in the
// game's memory, Enter sends it.
//
// The game has one text line. Windows that type into one game at the same time ask first whether it is taken: a tick
// that comes while another window waits for the line would write into a line that is not its own.
#pragma once

#include <cstdint>
#include <string_view>

#include "platform/clock.h"
#include "platform/game_memory.h"

namespace kestrun {

// Virtual key codes that open a text line.
inline constexpr int32_t kPublicChatKey = 84;
inline constexpr int32_t kTeamChatKey = 89;
inline constexpr int32_t kConsoleKey = 192;

struct TextLine {
  int32_t key = 0;
  int32_t address = 0;
  uint32_t opens_ms = 0;  // from the key until the line takes a text
};

// Events run once behind the first key, not while it waits for the line.
void TypeMessage(GameMemory& game, Clock& clock, const TextLine& line, std::string_view message);

// True between the key that opens the line and Enter.
[[nodiscard]] bool IsTextLineTaken();

// While it lives what is typed goes into another game's line, which is free at first: that of a game that is only
// played in advance. Nothing of the first game may run meanwhile.
class SeparateTextLine {
 public:
  SeparateTextLine();
  ~SeparateTextLine();
  SeparateTextLine(const SeparateTextLine&) = delete;
  SeparateTextLine& operator=(const SeparateTextLine&) = delete;

 private:
  bool was_taken_;
};

}  // namespace kestrun
