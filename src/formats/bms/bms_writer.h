// Writes valid missions for demonstrations and tests (docs/formats/bms.md). The program itself never changes a map.
#pragma once

#include <array>
#include <cstdint>
#include <string>

#include "base/bytes.h"

namespace kestrun {

// The known fields of a mission. Texts are cut at 32 bytes of the code page.
struct MissionFields {
  std::string mission_name;
  std::string designer;
  std::string terrain;
  uint8_t item_colors = 0;
  uint16_t game_types = 0;
  uint16_t water_level = 0;
  int16_t fog_level = 0;
  std::array<uint8_t, 3> fog_color{};  // blue, green, red
  std::string sun;
};

// The first 256 bytes of a mission; what is not known is zero.
[[nodiscard]] Bytes WriteMission(const MissionFields& fields);

}  // namespace kestrun
