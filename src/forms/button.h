// What push buttons, check boxes and option buttons have in common: a caption, and pictures for the graphical style.
#pragma once

#include "forms/control.h"

namespace kestrun {

class Button : public Control {
 public:
  using Control::Control;

  Property<std::string> Caption{*this, PropertyId::kCaption};
  // 0 standard; 1 graphical: a push button's face with the picture above the caption, which stays down while the value
  // of a check box or an option button is on.
  Property<int> Style{*this, PropertyId::kStyle};
  Property<int> Appearance{*this, PropertyId::kAppearance, 1};
  Property<Ref<kestrun::Picture>> Picture{*this, PropertyId::kPicture};
  // While the button is down, and while it is disabled; without them Picture stands for all.
  Property<Ref<kestrun::Picture>> DownPicture{*this, PropertyId::kPicture};
  Property<Ref<kestrun::Picture>> DisabledPicture{*this, PropertyId::kPicture};
  // With UseMaskColor the pictures' pixels of this colour are not drawn.
  Property<Color> MaskColor{*this, PropertyId::kPicture, 0xC0C0C0};
  Property<bool> UseMaskColor{*this, PropertyId::kPicture};

  // What a user's press does, when the button is usable. Gives whether it was.
  virtual bool Press() = 0;
  // Graphical buttons look pressed while this is set.
  [[nodiscard]] virtual bool StaysDown() const { return false; }

  // The picture for a state, masked; null for none. The next call may give another of the same content.
  [[nodiscard]] Ref<kestrun::Picture> ShownPicture(bool is_down) const;

  static const MemberTable kButtonMembers;

 private:
  // What ShownPicture made last, and of what.
  mutable Ref<kestrun::Picture> mask_source_;
  mutable Color mask_color_ = 0;
  mutable Ref<kestrun::Picture> masked_;
};

}  // namespace kestrun
