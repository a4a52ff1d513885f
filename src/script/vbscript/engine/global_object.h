// What Me means outside of classes: the space of global names as an object. Its members are the variables, constants,
// host objects and procedures of that space.
#pragma once

#include <memory>

#include "base/object.h"
#include "script/vbscript/engine/procedure_reference.h"

namespace kestrun::vbs {

class GlobalObject final : public Object {
 public:
  explicit GlobalObject(std::shared_ptr<EngineLink> link) : link_(std::move(link)) {}

  [[nodiscard]] std::string TypeName() const override { return "Object"; }
  [[nodiscard]] MemberId FindMember(std::string_view name) const override;
  [[nodiscard]] std::vector<MemberInfo> ListMembers() const override { return {}; }
  Variant Get(MemberId member, Arguments arguments) override;
  void Put(MemberId member, Arguments arguments, const Variant& value) override {
    Store(member, arguments, value, false);
  }
  void PutReference(MemberId member, Arguments arguments, const Variant& value) override {
    Store(member, arguments, value, true);
  }

 private:
  void Store(MemberId member, Arguments arguments, const Variant& value, bool set);
  [[nodiscard]] Engine& LivingEngine() const;

  std::shared_ptr<EngineLink> link_;
};

}  // namespace kestrun::vbs
