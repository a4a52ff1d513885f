// A straight line between two points of its container, which draws it.
#pragma once

#include "forms/control.h"

namespace kestrun {

// How a line or a shape's edge is drawn.
enum class BorderPattern {
  kTransparent = 0,
  kSolid = 1,
  kDash = 2,
  kDot = 3,
  kDashDot = 4,
  kDashDotDot = 5,
  kInside = 6
};

class LineControl final : public Control {
 public:
  LineControl(Form* form, std::string name, int index);

  // In the container's twips. Left, Top, Width and Height follow: the rectangle around both ends.
  Property<int> X1{*this, PropertyId::kDrawing};
  Property<int> Y1{*this, PropertyId::kDrawing};
  Property<int> X2{*this, PropertyId::kDrawing};
  Property<int> Y2{*this, PropertyId::kDrawing};
  Property<Color> BorderColor{*this, PropertyId::kForeColor, color::kWindowText};
  Property<int> BorderStyle{*this, PropertyId::kBorderStyle, static_cast<int>(BorderPattern::kSolid)};
  // In pixels.
  Property<int> BorderWidth{*this, PropertyId::kBorderStyle, 1};

  [[nodiscard]] std::string TypeName() const override { return "Line"; }
  [[nodiscard]] const MemberTable& Members() const override;
  [[nodiscard]] bool TakesFocus() const override { return false; }

 protected:
  void PropertyChanged(PropertyId id) override;
};

}  // namespace kestrun
