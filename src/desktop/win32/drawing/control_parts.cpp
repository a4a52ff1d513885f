#include "desktop/win32/drawing/control_parts.h"

#include <algorithm>
#include <array>
#include <cmath>
#include <span>
#include <utility>

#include "desktop/win32/drawing/graphics.h"
#include "desktop/win32/system/handles.h"

namespace kestrun {
namespace {

// Places in a figure's square, which is 1 by 1.
struct Spot {
  double x;
  double y;
};

double Distance(Spot from, Spot to) { return std::hypot(from.x - to.x, from.y - to.y); }

double DistanceToLine(Spot spot, Spot start, Spot end) {
  const double along_x = end.x - start.x;
  const double along_y = end.y - start.y;
  const double part =
      ((spot.x - start.x) * along_x + (spot.y - start.y) * along_y) / (along_x * along_x + along_y * along_y);
  const double at = std::clamp(part, 0.0, 1.0);
  return Distance(spot, {start.x + along_x * at, start.y + along_y * at});
}

bool IsOnLines(Spot spot, std::span<const Spot> corners, double half_width) {
  for (size_t at = 1; at < corners.size(); ++at) {
    if (DistanceToLine(spot, corners[at - 1], corners[at]) <= half_width) return true;
  }
  return false;
}

// How much of a pixel the figure covers, in percent.
template <class Figure>
int CoverOf(int x, int y, int side, const Figure& contains) {
  constexpr int kSamples = 4;  // in each direction
  int inside = 0;
  for (int row = 0; row < kSamples; ++row) {
    for (int column = 0; column < kSamples; ++column) {
      const Spot spot{(x + (column + 0.5) / kSamples) / side, (y + (row + 0.5) / kSamples) / side};
      inside += contains(spot) ? 1 : 0;
    }
  }
  return inside * 100 / (kSamples * kSamples);
}

// Fills a figure with smooth edges over what stands in the square.
template <class Figure>
void FillFigure(HDC target, POINT corner, int side, Color color, const Figure& contains) {
  for (int y = 0; y < side; ++y) {
    for (int x = 0; x < side; ++x) {
      const int cover = CoverOf(x, y, side, contains);
      if (cover == 0) continue;
      const POINT place{corner.x + x, corner.y + y};
      SetPixelV(target, place.x, place.y, BlendColors(GetPixel(target, place.x, place.y), color, cover));
    }
  }
}

void FillCircle(HDC target, const RECT& area, double radius, Color color) {
  FillFigure(target, {area.left, area.top}, area.right - area.left, color, [radius](Spot spot) {
    return Distance(spot, {0.5, 0.5}) <= radius;
  });
}

}  // namespace

Color BlendColors(Color from, Color to, int percent) {
  const COLORREF one = ToColorRef(from);
  const COLORREF other = ToColorRef(to);
  const auto channel = [&](int shift) {
    const auto a = static_cast<int>((one >> shift) & 0xFF);
    const auto b = static_cast<int>((other >> shift) & 0xFF);
    return static_cast<Color>(a + (b - a) * percent / 100) << shift;
  };
  return channel(0) | channel(8) | channel(16);
}

PartColors PartColorsOf(Color background, Color text, PartState state) {
  const auto mixed = [&](int percent) { return BlendColors(background, text, percent); };
  if (!state.is_enabled) return {.face = mixed(0), .line = mixed(25), .mark = mixed(50)};
  if (state.is_down) return {.face = mixed(25), .line = mixed(100), .mark = mixed(100)};
  if (state.is_hot) return {.face = mixed(12), .line = mixed(75), .mark = mixed(100)};
  return {.face = mixed(0), .line = mixed(45), .mark = mixed(100)};
}

void DrawLineEdge(HDC target, const RECT& area, int thickness, Color line) {
  FillColor(target, {area.left, area.top, area.right, area.top + thickness}, line);
  FillColor(target, {area.left, area.bottom - thickness, area.right, area.bottom}, line);
  FillColor(target, {area.left, area.top, area.left + thickness, area.bottom}, line);
  FillColor(target, {area.right - thickness, area.top, area.right, area.bottom}, line);
}

void DrawEtchedEdge(HDC target, const RECT& area, Color background, Color text) {
  const RECT second{area.left + 1, area.top + 1, area.right, area.bottom};
  DrawLineEdge(target, second, 1, BlendColors(background, text, 15));
  const RECT first{area.left, area.top, area.right - 1, area.bottom - 1};
  DrawLineEdge(target, first, 1, BlendColors(background, text, 45));
}

void DrawCheckMark(HDC target, const RECT& area, int thickness, CheckMark mark, const PartColors& colors) {
  static constexpr std::array<Spot, 3> kTick{{{0.23, 0.52}, {0.42, 0.71}, {0.78, 0.29}}};
  constexpr double kHalfStroke = 0.075;
  FillColor(target, area, colors.face);
  DrawLineEdge(target, area, thickness, colors.line);
  const int side = area.right - area.left;
  if (mark == CheckMark::kTick) {
    FillFigure(target, {area.left, area.top}, side, colors.mark,
               [](Spot spot) { return IsOnLines(spot, kTick, kHalfStroke); });
  } else if (mark == CheckMark::kSquare) {
    const int inset = side * 3 / 10;
    FillColor(target, {area.left + inset, area.top + inset, area.right - inset, area.bottom - inset}, colors.mark);
  }
}

void DrawOptionMark(HDC target, const RECT& area, int thickness, bool is_chosen, const PartColors& colors) {
  constexpr double kRadius = 0.5;
  FillCircle(target, area, kRadius, colors.line);
  FillCircle(target, area, kRadius - static_cast<double>(thickness) / (area.right - area.left), colors.face);
  if (is_chosen) FillCircle(target, area, kRadius / 2, colors.mark);
}

void DrawArrow(HDC target, const RECT& area, int width, Color mark, ArrowDirection direction) {
  static constexpr std::array<Spot, 3> kArrow{{{0.1, 0.3}, {0.5, 0.7}, {0.9, 0.3}}};
  constexpr double kHalfStroke = 0.09;
  const POINT corner{(area.left + area.right - width) / 2, (area.top + area.bottom - width) / 2};
  FillFigure(target, corner, width, mark, [direction](Spot spot) {
    const bool is_sideways = direction == ArrowDirection::kLeft || direction == ArrowDirection::kRight;
    if (is_sideways) std::swap(spot.x, spot.y);
    if (direction == ArrowDirection::kUp || direction == ArrowDirection::kLeft) spot.y = 1 - spot.y;
    return IsOnLines(spot, kArrow, kHalfStroke);
  });
}

}  // namespace kestrun
