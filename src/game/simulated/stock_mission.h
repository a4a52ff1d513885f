// Where a simulated server takes the mission of a new round from.
#pragma once

#include <cstdint>
#include <string>

#include "base/bytes.h"
#include "game/simulated/game_options.h"
#include "platform/files.h"

namespace kestrun {

// A mission that was loaded, or the reason why not.
struct LoadedMission {
  std::string source;  // "loose file" or "archive"
  std::string name;    // as the mission calls itself
  uint32_t crc = 0;    // CRC-32 of all its bytes
  size_t bytes = 0;
  std::string refusal;  // empty for a mission that is played

  // Eight hexadecimal digits.
  [[nodiscard]] std::string CrcText() const;
};

// The mission that these bytes are, from that source. Never raises.
[[nodiscard]] LoadedMission MissionFromBytes(ByteView bytes, std::string source, bool plays_anything);

// The loose file of the stock mission's name in the game's folder if there is one, otherwise the archive's entry. A
// loose file that is refused is not made up for by the archive. Never raises.
[[nodiscard]] LoadedMission LoadStockMission(FileSystem& files, const GameOptions& options);

}  // namespace kestrun
