// A control's font as an object of its own: `Label1.Font.Bold = True`. Reads and writes go through to the control.
#pragma once

#include <string>

#include "forms/control.h"

namespace kestrun {

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
