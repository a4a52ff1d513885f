// A check box. Value: 0 clear, 1 ticked, 2 greyed. Every change of the value is a Click.
#pragma once

#include "forms/control.h"

namespace kestrun {

class CheckBox final : public Control {
 public:
  using Control::Control;

  Property<std::string> Caption{*this, PropertyId::kCaption};
  Property<int> Value{*this, PropertyId::kValue};
  Property<int> Alignment{*this, PropertyId::kAlignment};

  // What a user's press does: 0 and 2 become 1, 1 becomes 0, when the box is usable.
  bool Press();

  [[nodiscard]] std::string TypeName() const override { return "CheckBox"; }
  [[nodiscard]] const MemberTable& Members() const override;
  [[nodiscard]] MemberId DefaultMember() const override { return FindMember("Value"); }

 protected:
  void PropertyChanged(PropertyId id) override;
};

}  // namespace kestrun
