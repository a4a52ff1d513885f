// The simulated game in memory of its own, on a virtual clock: what a rehearsal plays against.
#pragma once

#include <cstdint>
#include <functional>
#include <map>
#include <string>
#include <string_view>

#include "game/simulated/simulated_game.h"
#include "platform/clock.h"
#include "platform/game_memory.h"

namespace kestrun {

class RehearsedGame final : private GameBody {
 public:
  // The game begins now. It takes the mission of a round from `Mission` until another one is put there.
  RehearsedGame(const GameOptions& options, Clock& clock, LoadedMission mission,
                std::function<void(const std::string& line)> log);

  // What the next round plays.
  void PutMission(LoadedMission mission);
  // Up to the present moment.
  void Turn() { game_.TurnTo(clock_.NowMs()); }
  void Press(int32_t key_code);
  [[nodiscard]] std::string_view Title() const { return game_.build().title; }
  // Nothing where the game has nothing.
  [[nodiscard]] Bytes Read(int32_t address, size_t count);
  void Write(int32_t address, ByteView bytes);

 private:
  void Store(uint32_t address, ByteView bytes) override;
  Bytes Load(uint32_t address, size_t count) override;

  Clock& clock_;
  LoadedMission mission_;
  std::map<uint32_t, Bytes> memory_;  // by first address
  SimulatedGame game_;
};

// A window's link to it.
class RehearsedLink final : public GameMemory {
 public:
  explicit RehearsedLink(RehearsedGame& game) : game_(game) {}

  uint8_t ReadByteAt(int32_t address) override;
  int32_t ReadLongAt(int32_t address) override;
  void PressKey(int32_t key_code) override;
  void WriteTextAt(int32_t address, std::string_view text) override;
  bool AttachToWindow(std::string_view title) override { return is_attached_ = title == game_.Title(); }
  std::string Refusal() override { return {}; }

 private:
  RehearsedGame& game_;
  bool is_attached_ = false;
};

}  // namespace kestrun
