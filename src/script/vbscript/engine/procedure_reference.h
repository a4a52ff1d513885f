// What GetRef gives: a procedure as an object whose default member calls it.
#pragma once

#include <memory>

#include "base/object.h"
#include "script/vbscript/engine/program.h"

namespace kestrun::vbs {

class Engine;

// Outlives the engine with the objects that point back to it; its pointer is null from then on.
struct EngineLink {
  Engine* engine;
};

class ProcedureReference final : public Object {
 public:
  ProcedureReference(std::shared_ptr<EngineLink> link, Ref<Procedure> procedure)
      : link_(std::move(link)), procedure_(std::move(procedure)) {}

  [[nodiscard]] std::string TypeName() const override { return "Object"; }
  [[nodiscard]] MemberId FindMember(std::string_view) const override { return kNoMember; }
  [[nodiscard]] MemberId DefaultMember() const override { return 0; }
  [[nodiscard]] std::vector<MemberInfo> ListMembers() const override { return {}; }
  Variant Get(MemberId member, Arguments arguments) override;
  void Put(MemberId member, Arguments arguments, const Variant& value) override;

 private:
  std::shared_ptr<EngineLink> link_;
  Ref<Procedure> procedure_;
};

}  // namespace kestrun::vbs
