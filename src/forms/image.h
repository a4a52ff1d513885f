// A picture without a window of its own: its container draws it.
#pragma once

#include "forms/control.h"
#include "forms/picture.h"

namespace kestrun {

class Image final : public Control {
 public:
  using Control::Control;

  Property<Ref<kestrun::Picture>> Picture{*this, PropertyId::kPicture};
  // The picture takes the size of the control; otherwise the control takes the size of its picture.
  Property<bool> Stretch{*this, PropertyId::kStretch};
  Property<int> BorderStyle{*this, PropertyId::kBorderStyle};
  // 0 flat, 1 sunken: how the border looks.
  Property<int> Appearance{*this, PropertyId::kAppearance, 1};

  [[nodiscard]] std::string TypeName() const override { return "Image"; }
  [[nodiscard]] const MemberTable& Members() const override;
  [[nodiscard]] bool TakesFocus() const override { return false; }
  [[nodiscard]] MemberId DefaultMember() const override { return FindMember("Picture"); }

 protected:
  void PropertyChanged(PropertyId id) override;
};

}  // namespace kestrun
