// An option button: of those in one container at most one is on. Being switched on is a Click.
#pragma once

#include "forms/button.h"

namespace kestrun {

class OptionButton final : public Button {
 public:
  using Button::Button;

  Property<bool> Value{*this, PropertyId::kValue};
  Property<int> Alignment{*this, PropertyId::kAlignment};

  // Switches it on; Click comes also when it was on.
  bool Press() override;
  [[nodiscard]] bool StaysDown() const override { return Value; }

  [[nodiscard]] std::string TypeName() const override { return "OptionButton"; }
  [[nodiscard]] const MemberTable& Members() const override;
  [[nodiscard]] MemberId DefaultMember() const override { return FindMember("Value"); }

 protected:
  void PropertyChanged(PropertyId id) override;
};

}  // namespace kestrun
