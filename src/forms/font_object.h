// A control's font as an object of its own: `Label1.Font.Bold = True`. Reads and writes go through to the control.
#pragma once

#include <string>

#include "forms/control.h"

namespace kestrun {

// A font's size in points, as a script or a stored control gives it. Error 380 for a size that no font has: it would go
// wrong far from here, where text is measured.
[[nodiscard]] double CheckedFontSize(double points);

// The font that an object describes: a control's, or somebody else's with the members Name, Size, Bold and so on. Error
// 13 for an object that is no font.
[[nodiscard]] FontDescription FontOf(Object& object);

class FontObject final : public TableObject {
 public:
  explicit FontObject(Ref<Control> owner) : owner_(std::move(owner)) {}

  [[nodiscard]] Control& owner() const { return *owner_; }

  [[nodiscard]] std::string TypeName() const override { return "Font"; }
  [[nodiscard]] const MemberTable& Members() const override;
  [[nodiscard]] MemberId DefaultMember() const override { return FindMember("Name"); }

 protected:
  [[nodiscard]] bool IsAlive() const override { return owner_->form() != nullptr; }

 private:
  Ref<Control> owner_;
};

}  // namespace kestrun
