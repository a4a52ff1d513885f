// An option button: of those in one container at most one is on. Being switched on is a Click.
#pragma once

#include "forms/control.h"

namespace kestrun {

class OptionButton final : public Control {
 public:
  using Control::Control;

  Property<std::string> Caption{*this, PropertyId::kCaption};
  Property<bool> Value{*this, PropertyId::kValue};
  Property<int> Alignment{*this, PropertyId::kAlignment};

  // What a user's press does: switches it on, when the button is usable; Click comes also when it was on.
  bool Press();

  [[nodiscard]] std::string TypeName() const override { return "OptionButton"; }
  [[nodiscard]] const MemberTable& Members() const override;
  [[nodiscard]] MemberId DefaultMember() const override { return FindMember("Value"); }

 protected:
  void PropertyChanged(PropertyId id) override;
};

}  // namespace kestrun
