// A titled box around controls that belong together; a container.
#pragma once

#include "forms/control.h"

namespace kestrun {

class Frame final : public Control {
 public:
  using Control::Control;

  Property<std::string> Caption{*this, PropertyId::kCaption};
  Property<int> BorderStyle{*this, PropertyId::kBorderStyle, 1};
  // 0 flat, 1 etched: how the border looks.
  Property<int> Appearance{*this, PropertyId::kAppearance, 1};

  [[nodiscard]] std::string TypeName() const override { return "Frame"; }
  [[nodiscard]] const MemberTable& Members() const override;
  [[nodiscard]] bool TakesFocus() const override { return false; }
  [[nodiscard]] bool IsContainer() const override { return true; }
};

}  // namespace kestrun
