#include "controls/quick_link/help_picture.h"

#include <cmath>
#include <vector>

namespace kestrun {
namespace {

constexpr int kSize = 64;
// Each pixel is sampled on a grid of this many points each way.
constexpr int kSamples = 4;
constexpr uint32_t kDisc = 0x2C6E8F;
constexpr uint32_t kMark = 0xFFFFFF;
constexpr double kDiscRadius = 31;
constexpr double kHalfStroke = 3.5;

struct Point {
  double x;
  double y;
};

double Distance(Point from, Point to) { return std::hypot(from.x - to.x, from.y - to.y); }

double DistanceToLine(Point point, Point start, Point end) {
  const double length = Distance(start, end);
  const double along = ((point.x - start.x) * (end.x - start.x) + (point.y - start.y) * (end.y - start.y)) / length;
  const double share = std::fmin(std::fmax(along / length, 0), 1);
  return Distance(point, {start.x + share * (end.x - start.x), start.y + share * (end.y - start.y)});
}

bool IsInDisc(Point point) { return Distance(point, {32, 32}) <= kDiscRadius; }

// A bow that leaves its lower left quarter open, a stem under it, and the dot.
bool IsInMark(Point point) {
  constexpr Point kBow{32, 24};
  constexpr double kBowRadius = 10;
  const bool in_quarter = point.x < kBow.x && point.y > kBow.y;
  const bool on_bow = !in_quarter && std::fabs(Distance(point, kBow) - kBowRadius) <= kHalfStroke;
  const bool on_end = Distance(point, {kBow.x - kBowRadius, kBow.y}) <= kHalfStroke;
  const bool on_stem = DistanceToLine(point, {32, 34}, {32, 41}) <= kHalfStroke;
  return on_bow || on_end || on_stem || Distance(point, {32, 51.5}) <= 4;
}

// How much of the pixel lies inside, from 0 to 1.
template <class Shape>
double Coverage(int x, int y, const Shape& is_inside) {
  int hits = 0;
  for (int sample = 0; sample < kSamples * kSamples; ++sample) {
    const Point point{x + (sample % kSamples + 0.5) / kSamples, y + (sample / kSamples + 0.5) / kSamples};
    if (is_inside(point)) ++hits;
  }
  return static_cast<double>(hits) / (kSamples * kSamples);
}

uint32_t PixelAt(int x, int y) {
  const auto alpha = static_cast<uint32_t>(std::lround(Coverage(x, y, IsInDisc) * 255));
  const double mark = Coverage(x, y, IsInMark);
  uint32_t pixel = alpha << 24;
  for (int shift = 0; shift < 24; shift += 8) {
    const double below = (kDisc >> shift) & 0xFF;
    const double above = (kMark >> shift) & 0xFF;
    pixel |= static_cast<uint32_t>(std::lround(below + (above - below) * mark)) << shift;
  }
  return pixel;
}

}  // namespace

Ref<Picture> HelpPicture() {
  std::vector<uint32_t> pixels;
  pixels.reserve(static_cast<size_t>(kSize) * kSize);
  for (int y = 0; y < kSize; ++y) {
    for (int x = 0; x < kSize; ++x) pixels.push_back(PixelAt(x, y));
  }
  return MakeRef<Picture>(kSize, kSize, std::move(pixels));
}

}  // namespace kestrun
