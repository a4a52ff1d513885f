#include "frame/program_pictures.h"

#include <algorithm>
#include <cmath>
#include <initializer_list>
#include <vector>

namespace kestrun {
namespace {

constexpr int kSize = 64;
// Each pixel's coverage is sampled on a grid of this many points each way.
constexpr int kSamples = 4;

struct Point {
  double x;
  double y;
};

// Shapes are drawn in order, each over the ones before, with smooth edges.
class Drawing {
 public:
  void Fill(uint32_t rgb, const auto& is_inside) {
    for (int y = 0; y < kSize; ++y) {
      for (int x = 0; x < kSize; ++x) Blend(x, y, rgb, Coverage(x, y, is_inside));
    }
  }

  void Polygon(uint32_t rgb, std::initializer_list<Point> corners) {
    const std::vector<Point> shape(corners);
    Fill(rgb, [&shape](Point point) { return Contains(shape, point); });
  }

  void Disc(uint32_t rgb, Point centre, double radius) {
    Fill(rgb, [=](Point point) { return std::hypot(point.x - centre.x, point.y - centre.y) <= radius; });
  }

  [[nodiscard]] Ref<Picture> Finish() { return MakeRef<Picture>(kSize, kSize, pixels_); }

 private:
  // Even-odd rule.
  static bool Contains(const std::vector<Point>& shape, Point point) {
    bool inside = false;
    for (size_t at = 0, before = shape.size() - 1; at < shape.size(); before = at++) {
      const Point& a = shape[at];
      const Point& b = shape[before];
      const bool crosses = (a.y > point.y) != (b.y > point.y);
      if (crosses && point.x < (b.x - a.x) * (point.y - a.y) / (b.y - a.y) + a.x) inside = !inside;
    }
    return inside;
  }

  static double Coverage(int x, int y, const auto& is_inside) {
    int hits = 0;
    for (int row = 0; row < kSamples; ++row) {
      for (int column = 0; column < kSamples; ++column) {
        const Point point{x + (column + 0.5) / kSamples, y + (row + 0.5) / kSamples};
        if (is_inside(point)) ++hits;
      }
    }
    return static_cast<double>(hits) / (kSamples * kSamples);
  }

  void Blend(int x, int y, uint32_t rgb, double coverage) {
    if (coverage == 0) return;
    uint32_t& pixel = pixels_[static_cast<size_t>(y * kSize + x)];
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

  std::vector<uint32_t> pixels_ = std::vector<uint32_t>(static_cast<size_t>(kSize) * kSize);
};

}  // namespace

Ref<Picture> ProgramIcon() {
  Drawing drawing;
  drawing.Disc(0x14202B, {32, 32}, 31);
  drawing.Disc(0x2C6E8F, {32, 32}, 28);
  drawing.Polygon(0xF2E9D8,
                  {{6, 24}, {26, 27}, {32, 20}, {38, 27}, {58, 24}, {41, 38}, {37, 37}, {32, 52}, {27, 37}, {23, 38}});
  drawing.Polygon(0xC98A3C, {{29, 21}, {32, 14}, {35, 21}, {32, 26}});
  drawing.Polygon(0x8A5A22, {{27, 37}, {37, 37}, {32, 52}});
  return drawing.Finish();
}

Ref<Picture> ArchivePicture() {
  Drawing drawing;
  drawing.Polygon(0x6B4A1F, {{6, 22}, {58, 22}, {58, 58}, {6, 58}});
  drawing.Polygon(0xD9A441, {{8, 24}, {56, 24}, {56, 56}, {8, 56}});
  drawing.Polygon(0x6B4A1F, {{2, 8}, {62, 8}, {62, 24}, {2, 24}});
  drawing.Polygon(0xF0C465, {{4, 10}, {60, 10}, {60, 22}, {4, 22}});
  drawing.Polygon(0x6B4A1F, {{24, 30}, {40, 30}, {40, 38}, {24, 38}});
  drawing.Polygon(0xFFF3D6, {{26, 32}, {38, 32}, {38, 36}, {26, 36}});
  return drawing.Finish();
}

Ref<Picture> MapPicture() {
  Drawing drawing;
  drawing.Polygon(0x2F4A33, {{4, 12}, {23, 6}, {41, 12}, {60, 6}, {60, 52}, {41, 58}, {23, 52}, {4, 58}});
  drawing.Polygon(0xCFE3B4, {{6, 14}, {22, 9}, {22, 50}, {6, 55}});
  drawing.Polygon(0xAFCB8E, {{24, 9}, {40, 14}, {40, 55}, {24, 50}});
  drawing.Polygon(0xCFE3B4, {{42, 14}, {58, 9}, {58, 50}, {42, 55}});
  drawing.Polygon(0xC0392B, {{44, 22}, {54, 32}, {51, 35}, {41, 25}});
  drawing.Polygon(0xC0392B, {{51, 22}, {54, 25}, {44, 35}, {41, 32}});
  return drawing.Finish();
}

}  // namespace kestrun
