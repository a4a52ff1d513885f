// What a script gets for many controls: those of a form, and the elements of a control array. Both look the controls
// up anew at each use, so that they follow controls that come and go.
#pragma once

#include <string>
#include <vector>

#include "forms/form.h"

namespace kestrun {

// All controls of a form. Item takes a number from 0 or a name; the name of a control array gives the array.
class ControlCollection final : public TableObject {
 public:
  explicit ControlCollection(Ref<Form> form) : form_(std::move(form)) {}

  [[nodiscard]] int Count() const { return static_cast<int>(form_->controls().size()); }
  // Error 9 for a number outside of the collection, 438 for a name that no control has.
  [[nodiscard]] Variant Item(const Variant& which) const;
  // A control of a kind such as "VB.Label", hidden until it is made visible. Error 429 for a kind that does not exist,
  // 727 for a name that is taken, 380 for a container that is none of the form's.
  Control& Add(std::string_view kind, std::string_view name, Control* container);
  // Error 362 for a control that Add did not make.
  void Remove(const Variant& which);

  [[nodiscard]] std::string TypeName() const override { return "Controls"; }
  [[nodiscard]] const MemberTable& Members() const override;
  [[nodiscard]] MemberId DefaultMember() const override { return FindMember("Item"); }
  [[nodiscard]] std::unique_ptr<Enumeration> Enumerate() override;

 protected:
  [[nodiscard]] bool IsAlive() const override { return form_->form() != nullptr; }

 private:
  Ref<Form> form_;
};

// The elements that share a name.
class ControlArray final : public TableObject {
 public:
  ControlArray(Ref<Form> form, std::string name) : form_(std::move(form)), name_(std::move(name)) {}

  [[nodiscard]] int Count() const { return static_cast<int>(Elements().size()); }
  [[nodiscard]] int LBound() const;
  [[nodiscard]] int UBound() const;
  // Error 9 for an index that no element has.
  [[nodiscard]] Variant Item(const Variant& index) const;

  [[nodiscard]] std::string TypeName() const override { return "Object"; }
  [[nodiscard]] const MemberTable& Members() const override;
  [[nodiscard]] MemberId DefaultMember() const override { return FindMember("Item"); }
  [[nodiscard]] std::unique_ptr<Enumeration> Enumerate() override;

 protected:
  [[nodiscard]] bool IsAlive() const override { return form_->form() != nullptr; }

 private:
  // In the order of their indexes.
  [[nodiscard]] std::vector<Ref<Control>> Elements() const;

  Ref<Form> form_;
  std::string name_;
};

}  // namespace kestrun
