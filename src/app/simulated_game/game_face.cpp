#include "app/simulated_game/game_face.h"

#include <cstdio>
#include <string_view>
#include <utility>

namespace kestrun {
namespace {

using Phase = SimulatedGame::Phase;

constexpr Color kGround = Rgb(26, 29, 25);
constexpr Color kHead = Rgb(40, 46, 38);
constexpr Color kPanel = Rgb(18, 20, 17);
constexpr Color kRule = Rgb(66, 74, 62);
constexpr Color kSand = Rgb(231, 214, 168);
constexpr Color kBright = Rgb(244, 244, 238);
constexpr Color kQuiet = Rgb(167, 173, 160);
constexpr Color kGreen = Rgb(120, 176, 84);
constexpr Color kAmber = Rgb(222, 170, 66);
constexpr Color kRed = Rgb(240, 128, 104);

// Pixels at 100 %.
constexpr int kMargin = 20;
constexpr int kHeadHeight = 60;
constexpr int kMapHeight = 118;
constexpr int kClockWidth = 190;
constexpr int kBarHeight = 6;
constexpr int kLineHeight = 19;
constexpr int kEntryHeight = 30;
constexpr int kBadgeWidth = 150;

FontDescription Tahoma(double points, bool bold = false) {
  FontDescription font;
  font.name = "Tahoma";
  font.size_points = points;
  font.bold = bold;
  return font;
}

// The largest of the sizes in which the text has room.
FontDescription FontFor(Canvas& canvas, std::string_view text, int width) {
  for (const double points : {20.0, 16.0, 13.0}) {
    if (canvas.MeasureText(text, Tahoma(points, true)).width <= width) return Tahoma(points, true);
  }
  return Tahoma(10, true);
}

struct Badge {
  Phase phase;
  std::string_view text;
  Color color;
};

constexpr Badge kBadges[]{
    {Phase::kBetweenRounds, "BETWEEN ROUNDS", kAmber},
    {Phase::kPlaying, "PLAYING", kGreen},
    {Phase::kLeaving, "LEAVING THE ROUND", kAmber},
    {Phase::kEnded, "ENDED", kRed},
};

const Badge& BadgeOf(Phase phase) { return kBadges[static_cast<size_t>(phase)]; }

std::string ClockText(int32_t units) {
  const int seconds = static_cast<int>(units / kClockUnitsPerSecond);
  char text[32];
  std::snprintf(text, sizeof text, "%d:%02d", seconds / 60, seconds % 60);
  return text;
}

std::string DetailOf(const LoadedMission& mission) {
  return "From the " + mission.source + "   CRC " + mission.CrcText() + "   " + std::to_string(mission.bytes) +
         " bytes";
}

}  // namespace

FaceState FaceOf(SimulatedGame& game, const GameOptions& options) {
  FaceState state;
  state.title = game.build().title;
  state.place = options.mission + " of " + options.folder;
  state.phase = game.phase();
  state.refusal = game.Refusal();
  if (game.Round() > 0) {
    state.map = game.Mission().name.empty() ? "A mission without a name" : game.Mission().name;
    state.map_detail = DetailOf(game.Mission());
    state.round = "ROUND " + std::to_string(game.Round());
  }
  state.clock = ClockText(game.ClockUnits());
  state.share_left = static_cast<int>(game.ShareLeft() * 1000);
  state.lines = game.Lines();
  state.open_line = game.OpenLine().value_or("");
  return state;
}

void GameFace::ShowState(FaceState state) {
  if (state == state_) return;
  state_ = std::move(state);
  Invalidate();
}

std::string GameFace::AccessibleName() const {
  return state_.title + ", simulated. " + std::string(BadgeOf(state_.phase).text) + ". " + state_.map + ", " +
         state_.clock;
}

void GameFace::Paint(Canvas& canvas) {
  const PixelSize size = canvas.Size();
  const int margin = Scaled(kMargin);
  const int left = margin;
  const int right = size.width - margin;
  canvas.Fill({0, 0, size.width, size.height}, kGround);
  int top = Scaled(kHeadHeight);
  PaintHead(canvas, {0, 0, size.width, top});
  PaintMap(canvas, {left, top, right, top + Scaled(kMapHeight)});
  PaintClock(canvas, {left, top, right, top + Scaled(kMapHeight)});
  top += Scaled(kMapHeight);
  PaintBar(canvas, {left, top, right, top + Scaled(kBarHeight)});
  top += Scaled(kBarHeight) + margin;
  const int entry_top = size.height - margin - Scaled(kEntryHeight);
  PaintLines(canvas, {left, top, right, entry_top - margin / 2});
  PaintOpenLine(canvas, {left, entry_top, right, size.height - margin});
}

void GameFace::PaintHead(Canvas& canvas, const PixelRect& area) const {
  const int margin = Scaled(kMargin);
  const int badge_left = area.right - margin - Scaled(kBadgeWidth);
  const int middle = (area.top + area.bottom) / 2;
  canvas.Fill(area, kHead);
  canvas.HorizontalLine(area.left, area.right, area.bottom - 1, kRule);
  canvas.Text(state_.title, {area.left + margin, area.top + Scaled(8), badge_left - margin, middle + Scaled(3)},
              Tahoma(11, true), kSand, TextPlacement::kLeft);
  canvas.Text("Simulated game   " + state_.place,
              {area.left + margin, middle + Scaled(3), badge_left - margin, area.bottom - Scaled(6)}, Tahoma(8), kQuiet,
              TextPlacement::kLeft);
  const Badge& badge = BadgeOf(state_.phase);
  const PixelRect box{badge_left, middle - Scaled(13), area.right - margin, middle + Scaled(13)};
  canvas.Fill(box, badge.color);
  canvas.Text(badge.text, box, Tahoma(8, true), kPanel, TextPlacement::kCenter);
}

void GameFace::PaintMap(Canvas& canvas, const PixelRect& area) const {
  const bool was_played = state_.phase == Phase::kBetweenRounds && !state_.map.empty();
  const std::string_view map = state_.map.empty() ? "Waiting for the first round" : std::string_view(state_.map);
  const bool refused = !state_.refusal.empty();
  const int clock_left = area.right - Scaled(kClockWidth);
  canvas.Text(was_played ? "LAST MAP" : "MAP", {area.left, area.top + Scaled(16), clock_left, area.top + Scaled(32)},
              Tahoma(8, true), kQuiet, TextPlacement::kLeft);
  canvas.Text(map, {area.left, area.top + Scaled(34), clock_left, area.top + Scaled(74)},
              FontFor(canvas, map, clock_left - area.left), kBright, TextPlacement::kLeft);
  canvas.Text(refused ? "Refused: " + state_.refusal : state_.map_detail,
              {area.left, area.top + Scaled(82), area.right, area.top + Scaled(102)}, Tahoma(9),
              refused ? kRed : kQuiet, TextPlacement::kLeft);
}

void GameFace::PaintClock(Canvas& canvas, PixelRect area) const {
  area.left = area.right - Scaled(kClockWidth);
  canvas.Text(state_.round, {area.left, area.top + Scaled(16), area.right, area.top + Scaled(32)}, Tahoma(8, true),
              kQuiet, TextPlacement::kRight);
  canvas.Text(state_.clock, {area.left, area.top + Scaled(32), area.right, area.top + Scaled(80)}, Tahoma(34, true),
              state_.phase == Phase::kPlaying ? kSand : kQuiet, TextPlacement::kRight);
}

void GameFace::PaintBar(Canvas& canvas, const PixelRect& area) const {
  const int filled = area.width() * state_.share_left / 1000;
  canvas.Fill(area, kPanel);
  canvas.Fill({area.left, area.top, area.left + filled, area.bottom}, BadgeOf(state_.phase).color);
}

// The newest line stands lowest.
void GameFace::PaintLines(Canvas& canvas, PixelRect area) const {
  canvas.Text("CHAT AND CONSOLE", {area.left, area.top, area.right, area.top + Scaled(16)}, Tahoma(8, true), kQuiet,
              TextPlacement::kLeft);
  area.top += Scaled(22);
  canvas.Fill(area, kPanel);
  canvas.PushClip(area);
  int bottom = area.bottom - Scaled(6);
  for (auto line = state_.lines.rbegin(); line != state_.lines.rend(); ++line) {
    const bool command = line->starts_with("console");
    canvas.Text(*line, {area.left + Scaled(10), bottom - Scaled(kLineHeight), area.right - Scaled(10), bottom},
                Tahoma(9), command ? kSand : kBright, TextPlacement::kLeft);
    bottom -= Scaled(kLineHeight);
  }
  canvas.PopClip();
}

void GameFace::PaintOpenLine(Canvas& canvas, const PixelRect& area) const {
  const bool open = !state_.open_line.empty();
  const PixelRect text{area.left + Scaled(10), area.top, area.right - Scaled(10), area.bottom};
  canvas.Fill(area, kPanel);
  canvas.Frame(area, open ? kSand : kRule);
  canvas.Text(open ? state_.open_line + "_" : "T  public chat      Y  team chat      `  console", text, Tahoma(9),
              open ? kSand : kQuiet, TextPlacement::kLeft);
}

}  // namespace kestrun
