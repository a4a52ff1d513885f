// An item of a form's menu. A caption of "-" is a line; "&" marks the access key.
#pragma once

#include <vector>

#include "forms/control.h"
#include "forms/picture.h"

namespace kestrun {

class MenuItem final : public Control {
 public:
  using Control::Control;

  Property<std::string> Caption{*this, PropertyId::kCaption};
  Property<bool> Checked{*this, PropertyId::kChecked};
  // As it is shown behind the caption, "Ctrl+R" or "F5"; the form reacts to it.
  Property<std::string> Shortcut{*this, PropertyId::kText};
  // Shown like a shortcut, for a key that the control with the focus acts on; the form does not react to it.
  Property<std::string> KeyHint{*this, PropertyId::kText};
  // A small picture in front of the caption.
  Property<Ref<kestrun::Picture>> Picture{*this, PropertyId::kPicture};

  // Null for an item of the menu bar.
  [[nodiscard]] MenuItem* Parent() const { return parent_; }
  void SetParent(MenuItem& parent);
  // The items of its submenu, in order.
  [[nodiscard]] std::vector<MenuItem*> Items() const;
  // What a user's choice does: Click, when the item is visible and enabled and so are all above it. The item of the
  // menu bar may be hidden: its submenu then only pops up.
  bool Choose();

  [[nodiscard]] bool HasBody() const override { return false; }
  [[nodiscard]] std::string TypeName() const override { return "Menu"; }
  [[nodiscard]] const MemberTable& Members() const override;
  [[nodiscard]] MemberId DefaultMember() const override { return FindMember("Enabled"); }

 protected:
  void PropertyChanged(PropertyId id) override;

 private:
  MenuItem* parent_ = nullptr;
};

}  // namespace kestrun
