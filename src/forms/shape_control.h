// A rectangle, an oval or a circle that its container draws.
#pragma once

#include "forms/control.h"
#include "forms/line_control.h"

namespace kestrun {

enum class ShapeKind { kRectangle = 0, kSquare = 1, kOval = 2, kCircle = 3, kRoundedRectangle = 4, kRoundedSquare = 5 };

class ShapeControl final : public Control {
 public:
  using Control::Control;

  Property<int> Shape{*this, PropertyId::kStyle};
  Property<Color> BorderColor{*this, PropertyId::kForeColor, color::kWindowText};
  Property<int> BorderStyle{*this, PropertyId::kBorderStyle, static_cast<int>(BorderPattern::kSolid)};
  // In pixels.
  Property<int> BorderWidth{*this, PropertyId::kBorderStyle, 1};
  // 0 transparent, 1 filled with BackColor.
  Property<int> BackStyle{*this, PropertyId::kBackStyle};
  // 0 filled with FillColor, whatever BackStyle is; any other value is not filled.
  Property<int> FillStyle{*this, PropertyId::kBackStyle, 1};
  Property<Color> FillColor{*this, PropertyId::kBackColor, color::kBlack};

  [[nodiscard]] std::string TypeName() const override { return "Shape"; }
  [[nodiscard]] const MemberTable& Members() const override;
  [[nodiscard]] bool TakesFocus() const override { return false; }
};

}  // namespace kestrun
