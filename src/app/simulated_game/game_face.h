// What a person sees of the simulated game: the map that is played, the round clock, and the last lines of its chat and
// console.
#pragma once

#include <string>
#include <vector>

#include "forms/user_control.h"
#include "game/simulated/simulated_game.h"

namespace kestrun {

// Everything that is drawn, so that the face is drawn anew only when something of it has changed.
struct FaceState {
  std::string title;
  std::string place;  // the stock mission and the game's folder
  SimulatedGame::Phase phase = SimulatedGame::Phase::kBetweenRounds;
  std::string map;
  std::string map_detail;
  std::string refusal;
  std::string round;
  std::string clock;
  int share_left = 0;  // per mille
  std::vector<std::string> lines;
  std::string open_line;  // empty when none is open
  friend bool operator==(const FaceState&, const FaceState&) = default;
};

[[nodiscard]] FaceState FaceOf(SimulatedGame& game, const GameOptions& options);

class GameFace final : public UserControl {
 public:
  using UserControl::UserControl;

  void ShowState(FaceState state);

  void Paint(Canvas& canvas) override;
  [[nodiscard]] std::string AccessibleName() const override;
  [[nodiscard]] std::string TypeName() const override { return "GameFace"; }

 private:
  void PaintHead(Canvas& canvas, const PixelRect& area) const;
  void PaintMap(Canvas& canvas, const PixelRect& area) const;
  void PaintClock(Canvas& canvas, PixelRect area) const;
  void PaintBar(Canvas& canvas, const PixelRect& area) const;
  void PaintLines(Canvas& canvas, PixelRect area) const;
  void PaintOpenLine(Canvas& canvas, const PixelRect& area) const;
  // Pixels of this screen for pixels at 100 %.
  [[nodiscard]] int Scaled(int pixels) const { return pixels * dpi() / 96; }

  FaceState state_;
};

}  // namespace kestrun
