// Objects that live in registers only: what a For Each has left to do, and what holds an array in place.
#pragma once

#include <memory>
#include <utility>

#include "base/object.h"

namespace kestrun::vbs {

// Never reaches a script, so that it has no members.
class InternalObject : public Object {
 public:
  [[nodiscard]] std::string TypeName() const override { return "Object"; }
  [[nodiscard]] MemberId FindMember(std::string_view) const override { return kNoMember; }
  [[nodiscard]] std::vector<MemberInfo> ListMembers() const override { return {}; }
  Variant Get(MemberId, Arguments) override { Raise(error::kMemberNotFound); }
  void Put(MemberId, Arguments, const Variant&) override { Raise(error::kMemberNotFound); }
};

// Counts one reference to the array as a pin.
class ArrayPin final : public InternalObject {
 public:
  explicit ArrayPin(Ref<ArrayBody> body) : body_(std::move(body)) { ++body_->pins; }
  ~ArrayPin() override { --body_->pins; }
  [[nodiscard]] ArrayBody& body() const { return *body_; }

 private:
  Ref<ArrayBody> body_;
};

class IterationState final : public InternalObject {
 public:
  explicit IterationState(Ref<ArrayBody> body) : pin_(MakeRef<ArrayPin>(std::move(body))) {}
  explicit IterationState(std::unique_ptr<Enumeration> items) : items_(std::move(items)) {}

  [[nodiscard]] bool over_array() const { return !items_; }
  // False at the end, with the item as it was.
  bool Next(Variant& item) {
    if (items_) return items_->Next(item);
    if (next_ >= pin_->body().elements.size()) return false;
    item = pin_->body().elements[next_++];
    return true;
  }

 private:
  Ref<ArrayPin> pin_;
  size_t next_ = 0;
  std::unique_ptr<Enumeration> items_;
};

}  // namespace kestrun::vbs
