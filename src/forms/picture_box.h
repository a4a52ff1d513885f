// A container with a picture behind its controls.
#pragma once

#include "forms/control.h"
#include "forms/picture.h"

namespace kestrun {

class PictureBox final : public Control {
 public:
  using Control::Control;

  Property<Ref<kestrun::Picture>> Picture{*this, PropertyId::kPicture};
  // The box takes the size of its picture.
  Property<bool> AutoSize{*this, PropertyId::kAutoSize};
  Property<int> BorderStyle{*this, PropertyId::kBorderStyle, 1};
  Property<int> Appearance{*this, PropertyId::kAppearance, 1};

  [[nodiscard]] std::string TypeName() const override { return "PictureBox"; }
  [[nodiscard]] const MemberTable& Members() const override;
  [[nodiscard]] bool TakesFocus() const override { return false; }
  [[nodiscard]] bool IsContainer() const override { return true; }
  [[nodiscard]] MemberId DefaultMember() const override { return FindMember("Picture"); }
};

}  // namespace kestrun
