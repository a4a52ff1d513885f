// Builds of the game as the simulated game plays them: each window title that the program knows, with all addresses
// that any part of the program uses for it.
#pragma once

#include <array>
#include <cstdint>
#include <span>
#include <string_view>

namespace kestrun {

struct SimulatedBuild {
  std::string_view title;
  // The auto host and the messenger may know two places for the text line of one build; 0 where there is no second.
  std::array<uint32_t, 2> text_lines{};
  uint32_t round_clock = 0;   // 0 where no part of the program reads it
  uint32_t running_byte = 0;  // the same
};

// One row for each title, in the order of the messenger's table.
[[nodiscard]] std::span<const SimulatedBuild> SimulatedBuilds();

}  // namespace kestrun
