// Lines and shapes, which their container draws.
#include <algorithm>
#include <array>

#include "desktop/win32/drawing/graphics.h"
#include "desktop/win32/window/control_peer.h"
#include "desktop/win32/window/peer_kinds.h"
#include "forms/line_control.h"
#include "forms/shape_control.h"

namespace kestrun {
namespace {

// A pen for a border pattern; a pattern shows only in lines of one pixel.
PenHandle MakePen(int pattern, int width_pixels, Color color) {
  // By the pattern's number; the last is a solid line inside of the shape.
  static constexpr std::array kStyles{PS_NULL, PS_SOLID, PS_DASH, PS_DOT, PS_DASHDOT, PS_DASHDOTDOT, PS_INSIDEFRAME};
  const auto at = static_cast<size_t>(std::clamp(pattern, 0, static_cast<int>(kStyles.size()) - 1));
  return PenHandle(CreatePen(kStyles[at], std::max(1, width_pixels), ToColorRef(color)));
}

class LinePeer final : public DrawnPeer {
 public:
  using DrawnPeer::DrawnPeer;

  void Draw(HDC target, const RECT&) override {
    const ScreenScale scale = form().scale();
    const PenHandle pen = MakePen(Model().BorderStyle, WidthPixels(), Model().BorderColor);
    const HGDIOBJ previous = SelectObject(target, pen.get());
    SetBkMode(target, TRANSPARENT);
    MoveToEx(target, scale.Pixels(Model().X1), scale.Pixels(Model().Y1), nullptr);
    LineTo(target, scale.Pixels(Model().X2), scale.Pixels(Model().Y2));
    SelectObject(target, previous);
  }
  [[nodiscard]] bool TakesMouse() const override { return false; }

 protected:
  [[nodiscard]] RECT DrawnArea() const override {
    RECT area = Area();
    InflateRect(&area, WidthPixels() + 1, WidthPixels() + 1);
    return area;
  }

 private:
  [[nodiscard]] LineControl& Model() const { return static_cast<LineControl&>(control()); }
  [[nodiscard]] int WidthPixels() const { return MulDiv(Model().BorderWidth, form().scale().dpi(), 96); }
};

class ShapePeer final : public DrawnPeer {
 public:
  using DrawnPeer::DrawnPeer;

  void Draw(HDC target, const RECT& area) override {
    const int width = MulDiv(Model().BorderWidth, form().scale().dpi(), 96);
    const PenHandle pen = MakePen(Model().BorderStyle, width, Model().BorderColor);
    const HGDIOBJ pen_before = SelectObject(target, pen.get());
    const HGDIOBJ brush_before = SelectObject(target, Filling());
    SetBkMode(target, TRANSPARENT);
    DrawOutline(target, OutlineIn(area, width));
    SelectObject(target, brush_before);
    SelectObject(target, pen_before);
  }
  [[nodiscard]] bool TakesMouse() const override { return false; }

 private:
  [[nodiscard]] ShapeControl& Model() const { return static_cast<ShapeControl&>(control()); }

  [[nodiscard]] HGDIOBJ Filling() const {
    if (Model().FillStyle == 0) return form().BrushFor(Model().FillColor);
    if (Model().BackStyle == 1) return form().BrushFor(Model().BackColor);
    return GetStockObject(NULL_BRUSH);
  }

  // Inside of the area by half of the border; a square or a circle stands in its middle.
  [[nodiscard]] RECT OutlineIn(RECT area, int width) const {
    InflateRect(&area, -width / 2, -width / 2);
    const auto kind = static_cast<ShapeKind>(Model().Shape.get());
    if (kind != ShapeKind::kSquare && kind != ShapeKind::kCircle && kind != ShapeKind::kRoundedSquare) return area;
    const LONG spare = (area.right - area.left) - (area.bottom - area.top);
    InflateRect(&area, spare > 0 ? -spare / 2 : 0, spare < 0 ? spare / 2 : 0);
    return area;
  }

  void DrawOutline(HDC target, const RECT& area) const {
    const int round = std::min(area.right - area.left, area.bottom - area.top) / 4;
    switch (static_cast<ShapeKind>(Model().Shape.get())) {
      case ShapeKind::kOval:
      case ShapeKind::kCircle: Ellipse(target, area.left, area.top, area.right, area.bottom); break;
      case ShapeKind::kRoundedRectangle:
      case ShapeKind::kRoundedSquare:
        RoundRect(target, area.left, area.top, area.right, area.bottom, round, round);
        break;
      default: Rectangle(target, area.left, area.top, area.right, area.bottom);
    }
  }
};

}  // namespace

std::unique_ptr<ControlPeer> MakeLinePeer(FormWindow& form, Control& control) {
  return MakePeerOfKind<LinePeer>(form, control);
}

std::unique_ptr<ControlPeer> MakeShapePeer(FormWindow& form, Control& control) {
  return MakePeerOfKind<ShapePeer>(form, control);
}

}  // namespace kestrun
