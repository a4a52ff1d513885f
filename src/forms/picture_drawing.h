// Small pictures drawn by the program's own code, with smooth edges. Places are units of a 64 by 64 field whatever the
// picture's size in pixels is; shapes are drawn in order, each over the ones before.
#pragma once

#include <cstdint>
#include <initializer_list>
#include <vector>

#include "forms/picture.h"

namespace kestrun {

struct DrawingPoint {
  double x;
  double y;
};

class PictureDrawing {
 public:
  explicit PictureDrawing(int size_pixels);

  // Colours are 0xRRGGBB. The even-odd rule tells the inside of a polygon.
  void Polygon(uint32_t rgb, std::initializer_list<DrawingPoint> corners);
  void Rectangle(uint32_t rgb, double left, double top, double right, double bottom);
  void Disc(uint32_t rgb, DrawingPoint centre, double radius);
  // The part of a circle's line between two angles in degrees, counted clockwise from the right.
  void Arc(uint32_t rgb, DrawingPoint centre, double radius, double thickness, double from, double to);
  // With round ends.
  void Line(uint32_t rgb, DrawingPoint start, DrawingPoint end, double thickness);

  [[nodiscard]] Ref<Picture> Finish();

 private:
  struct Box {
    double left, top, right, bottom;
  };
  void Fill(uint32_t rgb, const Box& box, const auto& is_inside);
  void Blend(int x, int y, uint32_t rgb, double coverage);

  int size_;
  std::vector<uint32_t> pixels_;
};

}  // namespace kestrun
