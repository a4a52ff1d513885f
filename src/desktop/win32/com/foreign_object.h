// Somebody else's object of automation as one of the program's.
#pragma once

#include "base/object.h"
#include "desktop/win32/system/com_owner.h"
#include "desktop/win32/system/windows_api.h"

namespace kestrun {

// Member numbers are the object's own; what a member is shows only when it is used.
class ForeignObject final : public Object {
 public:
  // The one for this reference, made when there is none.
  [[nodiscard]] static Ref<Object> For(ComOwner<IDispatch> target);
  explicit ForeignObject(ComOwner<IDispatch> target);
  ~ForeignObject() override;

  [[nodiscard]] IDispatch* target() const { return target_.get(); }

  // The name of its class where it has a type library, "Object" otherwise.
  [[nodiscard]] std::string TypeName() const override;
  [[nodiscard]] MemberId FindMember(std::string_view name) const override;
  [[nodiscard]] MemberId DefaultMember() const override { return DISPID_VALUE; }
  [[nodiscard]] std::vector<MemberInfo> ListMembers() const override { return {}; }
  Variant Get(MemberId member, Arguments arguments) override;
  void Put(MemberId member, Arguments arguments, const Variant& value) override;
  // As a plain property where the object knows no other way.
  void PutReference(MemberId member, Arguments arguments, const Variant& value) override;
  Variant Call(MemberId member, Arguments arguments) override;
  [[nodiscard]] std::unique_ptr<Enumeration> Enumerate() override;

 private:
  ComOwner<IDispatch> target_;
};

}  // namespace kestrun
