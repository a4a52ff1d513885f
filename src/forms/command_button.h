// A push button. Default: Enter presses it; Cancel: Esc presses it.
#pragma once

#include "forms/button.h"

namespace kestrun {

class CommandButton final : public Button {
 public:
  using Button::Button;

  Property<bool> Default{*this, PropertyId::kDefault};
  Property<bool> Cancel{*this, PropertyId::kCancel};

  // A Click.
  bool Press() override;

  [[nodiscard]] std::string TypeName() const override { return "CommandButton"; }
  [[nodiscard]] const MemberTable& Members() const override;
  [[nodiscard]] MemberId DefaultMember() const override { return FindMember("Value"); }

 protected:
  void PropertyChanged(PropertyId id) override;
};

}  // namespace kestrun
