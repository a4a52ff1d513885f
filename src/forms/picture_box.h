// A container with a picture behind its controls.
#pragma once

#include "forms/drawable_control.h"

namespace kestrun {

class PictureBox final : public DrawableControl {
 public:
  using DrawableControl::DrawableControl;

  // The box takes the size of its picture.
  Property<bool> AutoSize{*this, PropertyId::kAutoSize};
  Property<int> BorderStyle{*this, PropertyId::kBorderStyle, 1};
  // 0 flat, 1 sunken: how the border looks.
  Property<int> Appearance{*this, PropertyId::kAppearance, 1};

  [[nodiscard]] int ScaleWidth() const override { return Width - EdgesTwips(); }
  [[nodiscard]] int ScaleHeight() const override { return Height - EdgesTwips(); }

  [[nodiscard]] std::string TypeName() const override { return "PictureBox"; }
  [[nodiscard]] const MemberTable& Members() const override;
  [[nodiscard]] bool TakesFocus() const override { return false; }
  [[nodiscard]] MemberId DefaultMember() const override { return FindMember("Picture"); }

 protected:
  void PropertyChanged(PropertyId id) override;

 private:
  // What the border takes of the width and of the height.
  [[nodiscard]] int EdgesTwips() const;
};

}  // namespace kestrun
