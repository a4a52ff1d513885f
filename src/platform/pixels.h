// Places and extents in device pixels.
#pragma once

namespace kestrun {

struct PixelPoint {
  int x = 0;
  int y = 0;
  friend bool operator==(const PixelPoint&, const PixelPoint&) = default;
};

struct PixelSize {
  int width = 0;
  int height = 0;
  friend bool operator==(const PixelSize&, const PixelSize&) = default;
};

// Right and bottom edges are not part of the rectangle.
struct PixelRect {
  int left = 0;
  int top = 0;
  int right = 0;
  int bottom = 0;
  [[nodiscard]] int width() const { return right - left; }
  [[nodiscard]] int height() const { return bottom - top; }
  [[nodiscard]] bool IsEmpty() const { return right <= left || bottom <= top; }
  [[nodiscard]] bool Contains(int x, int y) const { return x >= left && x < right && y >= top && y < bottom; }
  friend bool operator==(const PixelRect&, const PixelRect&) = default;
};

}  // namespace kestrun
