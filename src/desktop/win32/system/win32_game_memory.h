// The game's process: found by the title of its window, read and written from outside.
#pragma once

#include "platform/game_memory.h"

namespace kestrun {

class Win32Games final : public RunningGames {
 public:
  [[nodiscard]] std::unique_ptr<GameMemory> MakeMemory(KeyDeliverySource key_delivery) override;
};

}  // namespace kestrun
