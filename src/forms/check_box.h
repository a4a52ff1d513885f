// A check box. Value: 0 clear, 1 ticked, 2 greyed. Every change of the value is a Click.
#pragma once

#include "forms/button.h"

namespace kestrun {

class CheckBox final : public Button {
 public:
  using Button::Button;

  Property<int> Value{*this, PropertyId::kValue};
  Property<int> Alignment{*this, PropertyId::kAlignment};

  // 0 and 2 become 1, 1 becomes 0.
  bool Press() override;
  [[nodiscard]] bool StaysDown() const override { return Value != 0; }

  [[nodiscard]] std::string TypeName() const override { return "CheckBox"; }
  [[nodiscard]] const MemberTable& Members() const override;
  [[nodiscard]] MemberId DefaultMember() const override { return FindMember("Value"); }

 protected:
  void PropertyChanged(PropertyId id) override;
};

}  // namespace kestrun
