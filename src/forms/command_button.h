// A push button. Default: Enter presses it; Cancel: Esc presses it.
#pragma once

#include "forms/control.h"
#include "forms/picture.h"

namespace kestrun {

class CommandButton final : public Control {
 public:
  using Control::Control;

  Property<std::string> Caption{*this, PropertyId::kCaption};
  Property<bool> Default{*this, PropertyId::kDefault};
  Property<bool> Cancel{*this, PropertyId::kCancel};
  // 0 standard, 1 with its picture.
  Property<int> Style{*this, PropertyId::kAppearance};
  Property<Ref<kestrun::Picture>> Picture{*this, PropertyId::kPicture};

  // What a user's press does: Click, when the button is usable. Gives whether it was.
  bool Press();

  [[nodiscard]] std::string TypeName() const override { return "CommandButton"; }
  [[nodiscard]] const MemberTable& Members() const override;

 protected:
  void PropertyChanged(PropertyId id) override;
};

}  // namespace kestrun
