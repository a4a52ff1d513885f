#include "forms/picture_drawing.h"

#include <algorithm>
#include <cmath>
#include <numbers>

namespace kestrun {
namespace {

constexpr double kField = 64;
// Each pixel's coverage is sampled on a grid of this many points each way.
constexpr int kSamples = 4;

// Even-odd rule.
bool Contains(const std::vector<DrawingPoint>& shape, DrawingPoint point) {
  bool inside = false;
  for (size_t at = 0, before = shape.size() - 1; at < shape.size(); before = at++) {
    const DrawingPoint& a = shape[at];
    const DrawingPoint& b = shape[before];
    const bool crosses = (a.y > point.y) != (b.y > point.y);
    if (crosses && point.x < (b.x - a.x) * (point.y - a.y) / (b.y - a.y) + a.x) inside = !inside;
  }
  return inside;
}

// Not std::hypot: the system's library takes twenty times as long, and a start draws a quarter of a million distances.
double Distance(DrawingPoint from, DrawingPoint to) {
  const double across = to.x - from.x;
  const double down = to.y - from.y;
  return std::sqrt(across * across + down * down);
}

double DistanceToLine(DrawingPoint point, DrawingPoint start, DrawingPoint end) {
  const double length = Distance(start, end);
  const double along = ((point.x - start.x) * (end.x - start.x) + (point.y - start.y) * (end.y - start.y)) / length;
  const double share = std::clamp(along / length, 0.0, 1.0);
  return Distance(point, {start.x + share * (end.x - start.x), start.y + share * (end.y - start.y)});
}

}  // namespace

PictureDrawing::PictureDrawing(int size_pixels)
    : size_(size_pixels), pixels_(static_cast<size_t>(size_pixels) * static_cast<size_t>(size_pixels)) {}

void PictureDrawing::Fill(uint32_t rgb, const Box& box, const auto& is_inside) {
  const double unit = kField / size_;
  const auto first = [&](double edge) { return std::clamp(static_cast<int>(edge / unit), 0, size_); };
  const auto behind = [&](double edge) { return std::clamp(static_cast<int>(edge / unit) + 1, 0, size_); };
  for (int y = first(box.top); y < behind(box.bottom); ++y) {
    for (int x = first(box.left); x < behind(box.right); ++x) {
      int hits = 0;
      for (int sample = 0; sample < kSamples * kSamples; ++sample) {
        const double column = (sample % kSamples + 0.5) / kSamples;
        const double row = (sample / kSamples + 0.5) / kSamples;
        if (is_inside(DrawingPoint{(x + column) * unit, (y + row) * unit})) ++hits;
      }
      Blend(x, y, rgb, static_cast<double>(hits) / (kSamples * kSamples));
    }
  }
}

void PictureDrawing::Polygon(uint32_t rgb, std::initializer_list<DrawingPoint> corners) {
  const std::vector<DrawingPoint> shape(corners);
  Box box{kField, kField, 0, 0};
  for (const DrawingPoint& corner : shape) {
    box = {std::min(box.left, corner.x), std::min(box.top, corner.y), std::max(box.right, corner.x),
           std::max(box.bottom, corner.y)};
  }
  Fill(rgb, box, [&shape](DrawingPoint point) { return Contains(shape, point); });
}

void PictureDrawing::Rectangle(uint32_t rgb, double left, double top, double right, double bottom) {
  Fill(rgb, {left, top, right, bottom},
       [=](DrawingPoint point) { return point.x >= left && point.x < right && point.y >= top && point.y < bottom; });
}

void PictureDrawing::Disc(uint32_t rgb, DrawingPoint centre, double radius) {
  Fill(rgb, {centre.x - radius, centre.y - radius, centre.x + radius, centre.y + radius},
       [=](DrawingPoint point) { return Distance(point, centre) <= radius; });
}

void PictureDrawing::Arc(uint32_t rgb, DrawingPoint centre, double radius, double thickness, double from, double to) {
  const double reach = radius + thickness / 2;
  Fill(rgb, {centre.x - reach, centre.y - reach, centre.x + reach, centre.y + reach}, [=](DrawingPoint point) {
    if (std::abs(Distance(point, centre) - radius) > thickness / 2) return false;
    double angle = std::atan2(point.y - centre.y, point.x - centre.x) * 180 / std::numbers::pi;
    while (angle < from) angle += 360;
    return angle <= to;
  });
}

void PictureDrawing::Line(uint32_t rgb, DrawingPoint start, DrawingPoint end, double thickness) {
  const double half = thickness / 2;
  Fill(rgb,
       {std::min(start.x, end.x) - half, std::min(start.y, end.y) - half, std::max(start.x, end.x) + half,
        std::max(start.y, end.y) + half},
       [=](DrawingPoint point) { return DistanceToLine(point, start, end) <= half; });
}

Ref<Picture> PictureDrawing::Finish() { return MakeRef<Picture>(size_, size_, pixels_); }

void PictureDrawing::Blend(int x, int y, uint32_t rgb, double coverage) {
  if (coverage == 0) return;
  uint32_t& pixel = pixels_[static_cast<size_t>(y * size_ + x)];
  const double below = (pixel >> 24) / 255.0 * (1 - coverage);
  const double alpha = coverage + below;
  uint32_t mixed = static_cast<uint32_t>(std::lround(alpha * 255)) << 24;
  for (int shift = 0; shift < 24; shift += 8) {
    const double top = (rgb >> shift) & 0xFF;
    const double bottom = (pixel >> shift) & 0xFF;
    mixed |= static_cast<uint32_t>(std::lround((top * coverage + bottom * below) / alpha)) << shift;
  }
  pixel = mixed;
}

}  // namespace kestrun
