// The names that were used earlier, by player: the profile file names.index beside the program.
#pragma once

#include <array>
#include <string>
#include <vector>

#include "game/players/player_file.h"

namespace kestrun {

using NameHistory = std::array<std::vector<std::string>, kPlayerCount>;

// The rows that are read back, of each player; more of them may have been saved.
inline constexpr int kHistoryRows = 21;

// Names that are not empty, in the order of their rows.
[[nodiscard]] NameHistory ReadNameHistory();
// Rows of a longer list that was saved before stay in the file. Error 75 with the file's name
// where it cannot be written.
void WriteNameHistory(const NameHistory& names);

}  // namespace kestrun
