// Adds game types to the header of a mission file.
#pragma once

#include <array>
#include <cstdint>
#include <string>
#include <string_view>

namespace kestrun {

struct AddableGameType {
  std::string_view caption;
  uint32_t flag;
};

inline constexpr std::array<AddableGameType, 9> kAddableGameTypes{{
    {"Cooperative", 256},
    {"Deathmatch", 512},
    {"Team Deathmatch", 8192},
    {"King Of The Hill", 1024},
    {"Team King Of The Hill", 16384},
    {"Capture The Flag", 4096},
    {"Search And Destroy", 32768},
    {"Attack And Defend", 128},
    {"FlagBall", 2048},
}};

// Sets the flags of the mask in the 32 bits at the place of a mission's game types; a flag that is set stays. A shorter
// file grows to that place. Error 53 for a file that is missing, 70 for one that may not be written.
void AddGameTypes(const std::string& path, uint32_t mask);

}  // namespace kestrun
