#include "app/simulated_game/frmsimulatedgame.h"

#include "base/runtime_error.h"
#include "platform/platform.h"

namespace kestrun {
namespace {

constexpr int kTickMs = 16;
constexpr int kWidth = 9900;
constexpr int kHeight = 6600;
constexpr int kLeastWidth = 8400;
constexpr int kLeastHeight = 5100;

}  // namespace

frmsimulatedgame::frmsimulatedgame(const GameOptions& options)
    : Form(kName),
      options_(options),
      game_(
          options_, [this] { return LoadStockMission(platform().files(), options_); }, memory_,
          platform().clock().NowMs(), [this](const std::string& line) { AppendToLog(line); }) {
  Caption = std::string(game_.build().title);
  KeyPreview = true;
  SetClientSize(kWidth, kHeight);
  SetLeastClientSize(kLeastWidth, kLeastHeight);
  Resize = [this] { PlaceFace(); };
  PlaceFace();
  KeyDown = [this](int& code, int) { game_.KeyDown(code), Turn(); };
  KeyUp = [this](int& code, int) { game_.KeyUp(code); };
  KeyPress = [this](int& code) { game_.Character(static_cast<char16_t>(code)), Turn(); };
  tick_.Tick = [this] { Turn(); };
  tick_.Interval = kTickMs;
  Turn();
}

void frmsimulatedgame::Turn() {
  game_.TurnTo(platform().clock().NowMs());
  if (game_.phase() == SimulatedGame::Phase::kEnded) platform().processes().EndProcess();
  face_.ShowState(FaceOf(game_, options_));
}

void frmsimulatedgame::PlaceFace() { face_.Move(0, 0, ScaleWidth(), ScaleHeight()); }

// The file is open for the one line only, so that others may read it meanwhile; while one of them keeps it closed, the
// line is lost.
void frmsimulatedgame::AppendToLog(const std::string& line) {
  if (options_.log.empty()) return;
  Attempt([&] { platform().files().Append(options_.log, AsBytes(line + "\r\n")); });
}

}  // namespace kestrun
