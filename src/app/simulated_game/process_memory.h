// The memory of this process at the addresses of the game's builds: one block that the linker puts in front of all code
// (game_memory.cmake), for the loader has no room left there once the process runs.
#pragma once

#include "game/simulated/simulated_game.h"

namespace kestrun {

class ProcessMemory final : public GameBody {
 public:
  // False when the program was linked in another way than its addresses need.
  [[nodiscard]] static bool HoldsAllBuilds();

  void Store(uint32_t address, ByteView bytes) override;
  [[nodiscard]] Bytes Load(uint32_t address, size_t count) override;
};

}  // namespace kestrun
