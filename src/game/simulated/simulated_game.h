// The rules of a game that stands in for the real one: rounds with a clock, a text line that keys open, a mission that
// each round loads. They run over any body: the memory of a test, or of a process of its own. docs/simulated_game.md
// says what they model and what not.
#pragma once

#include <cstdint>
#include <functional>
#include <optional>
#include <string>
#include <string_view>
#include <vector>

#include "base/bytes.h"
#include "game/simulated/game_options.h"
#include "game/simulated/simulated_build.h"
#include "game/simulated/stock_mission.h"

namespace kestrun {

// Where the game keeps its values. Addresses are those of the build.
class GameBody {
 public:
  virtual ~GameBody() = default;
  // All bytes of the range are there for the addresses of the build.
  virtual void Store(uint32_t address, ByteView bytes) = 0;
  [[nodiscard]] virtual Bytes Load(uint32_t address, size_t count) = 0;
};

// What the body has to hold from the address of a text line on, the zero at its end included.
inline constexpr size_t kTextLineBytes = 128;
// Of the round clock, in a second.
inline constexpr double kClockUnitsPerSecond = 62.5;

class SimulatedGame {
 public:
  enum class Phase { kBetweenRounds, kPlaying, kLeaving, kEnded };

  // The game starts at that moment, between two rounds, and takes the mission of each round from `load`. The body
  // outlives it.
  SimulatedGame(const GameOptions& options, std::function<LoadedMission()> load, GameBody& body, uint64_t now_ms,
                std::function<void(const std::string& line)> log);

  // Lets everything happen that is due up to that moment, in order. A moment in the past changes nothing.
  void TurnTo(uint64_t now_ms);
  // When the next thing happens by itself; nothing once the game has ended.
  [[nodiscard]] std::optional<uint64_t> NextEventMs() const;

  // A virtual key code, or a UTF-16 unit that was typed. A key that opens the line types nothing into it until it is
  // let go.
  void KeyDown(int key_code);
  void KeyUp(int key_code);
  void Character(char16_t character);

  [[nodiscard]] const SimulatedBuild& build() const { return build_; }
  [[nodiscard]] Phase phase() const { return phase_; }
  [[nodiscard]] int Round() const { return round_; }
  // Of the present round, or of the last one.
  [[nodiscard]] const LoadedMission& Mission() const { return mission_; }
  // Why the mission of the next round was refused last; empty once a round has begun.
  [[nodiscard]] const std::string& Refusal() const { return refusal_; }
  // Units that the round clock shows, and the share of the round that is left, from 1 down to 0.
  [[nodiscard]] int32_t ClockUnits() const { return clock_units_; }
  [[nodiscard]] double ShareLeft() const;
  // Chat and console lines that were sent, oldest first: at most so many.
  static constexpr size_t kMostLines = 8;
  [[nodiscard]] const std::vector<std::string>& Lines() const { return lines_; }
  // The line that is being typed, behind what it is for: "console> reset". Nothing when none is open.
  [[nodiscard]] std::optional<std::string> OpenLine();

 private:
  struct LineKind;
  static const LineKind* FindLineKind(int key_code);

  void Happen();
  void StartRound();
  void EndRound(std::string_view reason);
  void FallIdle();
  void Enter(Phase phase, uint64_t duration_ms);
  void ShowClock();
  void StoreValues();
  void Log(std::string_view kind, const std::string& text);
  void OpenTextLine(const LineKind& kind, int key_code);
  void SendLine();
  void Obey(const std::string& command);
  [[nodiscard]] std::string TextInLine();
  void StoreText(std::string_view text);

  GameOptions options_;
  SimulatedBuild build_;
  std::function<LoadedMission()> load_;
  GameBody& body_;
  std::function<void(const std::string& line)> log_;

  uint64_t start_ms_;
  uint64_t now_ms_;
  Phase phase_ = Phase::kBetweenRounds;
  uint64_t phase_end_ms_ = 0;
  int round_ = 0;
  LoadedMission mission_;
  std::string refusal_;
  int32_t clock_units_ = 0;

  const LineKind* line_kind_ = nullptr;
  int opening_key_ = 0;  // held since it opened the line
  std::vector<std::string> lines_;
};

}  // namespace kestrun
