// The words for a mission's fields.
#pragma once

#include <array>
#include <cstdint>
#include <string>
#include <string_view>

namespace kestrun {

struct GameType {
  uint32_t bit;
  std::string_view text;
};

// In the order in which a map's types are told, which is not the order of the bits.
inline constexpr std::array<GameType, 9> kGameTypes{{
    {0x100, "Cooperative"},
    {0x200, "Deathmatch"},
    {0x2000, "Team Deathmatch"},
    {0x400, "King of the hill"},
    {0x4000, "Team King of the hill"},
    {0x1000, "Capture the flag"},
    {0x80, "Attack and defend"},
    {0x8000, "Search and destroy"},
    {0x800, "Flagball"},
}};

// All types of the mask, joined with ", "; other bits are ignored.
[[nodiscard]] std::string GameTypeText(int32_t mask);

// "Green", "Brown", "White", "Alpha" for 0 to 3, empty for any other.
[[nodiscard]] std::string_view ItemColorText(uint8_t set);

// Joins the two bytes as they are written in hexadecimal without leading zeros, high byte first, and tells the number
// that this spells: 5 and 1 give "15", which is 21.
[[nodiscard]] std::string WaterLevelText(uint8_t low, uint8_t high);

}  // namespace kestrun
