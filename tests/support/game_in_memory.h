// The simulated game in the memory of the headless platform, turned by its clock: values at the true addresses of its
// build, keys as the program presses them. It ends with this object.
#pragma once

#include <cstdint>
#include <memory>
#include <string>
#include <vector>

#include "desktop/headless/headless_platform.h"
#include "game/simulated/simulated_game.h"

namespace kestrun {

class GameInMemory final : private GameBody {
 public:
  GameInMemory(HeadlessPlatform& desktop, const GameOptions& options)
      : desktop_(desktop),
        process_(desktop.running_games().Start(std::string(SimulatedBuilds()[options.build].title))) {
    AddMemory(SimulatedBuilds()[options.build]);
    game_ = std::make_unique<SimulatedGame>(
        options, [&desktop, options] { return LoadStockMission(desktop.files(), options); },
        static_cast<GameBody&>(*this), desktop.clock().NowMs(),
        [this](const std::string& line) { log.push_back(line); });
    process_->before_access = [this] { Turn(); };
    process_->on_key = [this](int32_t key_code) { Press(key_code); };
    Turn();
  }
  ~GameInMemory() override { Kill(); }
  GameInMemory(const GameInMemory&) = delete;
  GameInMemory& operator=(const GameInMemory&) = delete;

  // Up to the present moment.
  [[nodiscard]] SimulatedGame& game() {
    Turn();
    return *game_;
  }
  [[nodiscard]] HeadlessGame& process() { return *process_; }
  // What the log says of one kind of thing, such as "map", without the time and the kind.
  [[nodiscard]] std::vector<std::string> LogOf(std::string_view kind) const {
    std::vector<std::string> found;
    for (const std::string& line : log) {
      const std::string_view text = std::string_view(line).substr(kStampLength);
      if (text.starts_with(std::string(kind) + " ")) found.emplace_back(text.substr(kind.size() + 1));
    }
    return found;
  }

  // The process ends at once.
  void Kill() {
    desktop_.clock().StopTimer(timer_);
    process_->ended = true;
    process_->before_access = nullptr;
    process_->on_key = nullptr;
  }

  // One line for each thing that happened: "  12.345 round 1 of 900 seconds".
  std::vector<std::string> log;

 private:
  static constexpr size_t kStampLength = 11;

  void Store(uint32_t address, ByteView bytes) override {
    std::ranges::copy(bytes, process_->Memory(address, bytes.size()).begin());
  }
  Bytes Load(uint32_t address, size_t count) override {
    const MutableByteView memory = process_->Memory(address, count);
    return {memory.begin(), memory.end()};
  }

  void AddMemory(const SimulatedBuild& build) {
    for (const uint32_t line : build.text_lines) {
      if (line != 0) process_->AddMemory(line, kTextLineBytes);
    }
    if (build.round_clock != 0) process_->AddMemory(build.round_clock, sizeof(int32_t));
    if (build.running_byte != 0) process_->AddMemory(build.running_byte, 1);
  }

  // Everything up to now, and a timer for the next thing that happens by itself.
  void Turn() {
    game_->TurnTo(desktop_.clock().NowMs());
    const auto next_ms = game_->NextEventMs();
    if (!next_ms) return Kill();
    if (timer_ != 0 && armed_for_ms_ == *next_ms) return;
    desktop_.clock().StopTimer(timer_);
    armed_for_ms_ = *next_ms;
    timer_ =
        desktop_.clock().StartTimer(static_cast<uint32_t>(*next_ms - desktop_.clock().NowMs()), [this] { Turn(); });
  }

  void Press(int32_t key_code) {
    game_->KeyDown(key_code);
    game_->KeyUp(key_code);
    Turn();
  }

  HeadlessPlatform& desktop_;
  std::shared_ptr<HeadlessGame> process_;
  std::unique_ptr<SimulatedGame> game_;
  TimerId timer_ = 0;
  uint64_t armed_for_ms_ = 0;
};

}  // namespace kestrun
