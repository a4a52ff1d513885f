// The simulated game's window: its title is the game's, its keys are the game's.
#pragma once

#include <cstdint>

#include "app/simulated_game/game_face.h"
#include "app/simulated_game/process_memory.h"
#include "forms/form.h"
#include "forms/timer.h"

namespace kestrun {

class frmsimulatedgame final : public Form {
 public:
  static constexpr const char* kName = "frmsimulatedgame";
  explicit frmsimulatedgame(const GameOptions& options);

 private:
  void Turn();
  void PlaceFace();
  void AppendToLog(const std::string& line);

  GameOptions options_;
  ProcessMemory memory_;
  SimulatedGame game_;
  GameFace& face_ = Add<GameFace>("GameFace1");
  Timer& tick_ = Add<Timer>("TmrTick");
};

}  // namespace kestrun
