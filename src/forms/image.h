// A picture without a window of its own: its container draws it.
#pragma once

#include "forms/control.h"
#include "forms/picture.h"

namespace kestrun {

class Image final : public Control {
 public:
  using Control::Control;

  Property<Ref<kestrun::Picture>> Picture{*this, PropertyId::kPicture};
  // The picture takes the size of the control; otherwise it is drawn at its own size.
  Property<bool> Stretch{*this, PropertyId::kStretch};
  Property<int> BorderStyle{*this, PropertyId::kBorderStyle};

  [[nodiscard]] std::string TypeName() const override { return "Image"; }
  [[nodiscard]] const MemberTable& Members() const override;
  [[nodiscard]] bool TakesFocus() const override { return false; }
  [[nodiscard]] MemberId DefaultMember() const override { return FindMember("Picture"); }
};

}  // namespace kestrun
