#include "script/vbscript/engine/global_object.h"

#include "script/vbscript/engine/engine.h"
#include "script/vbscript/runtime/errors.h"

namespace kestrun::vbs {
namespace {

bool IsMember(const GlobalEntry& entry) {
  return entry.kind != GlobalKind::kUnbound && entry.kind != GlobalKind::kClass;
}

}  // namespace

Engine& GlobalObject::LivingEngine() const {
  if (!link_->engine) RaiseScript(error::kObjectRequired);
  return *link_->engine;
}

MemberId GlobalObject::FindMember(std::string_view name) const {
  Engine& engine = LivingEngine();
  const NameId number = engine.names().Find(name);
  return number != kNoName && IsMember(engine.globals().Entry(number)) ? static_cast<MemberId>(number) : kNoMember;
}

Variant GlobalObject::Get(MemberId member, Arguments arguments) {
  Engine& engine = LivingEngine();
  const GlobalEntry& entry = engine.globals().Entry(static_cast<NameId>(member));
  if (!IsMember(entry)) RaiseScript(error::kMemberNotFound);
  if (entry.kind != GlobalKind::kProcedure) return engine.FieldValue(engine.globals().ValueOf(entry), arguments);
  const Ref<Procedure> procedure = entry.procedure;
  return engine.Call(*procedure, nullptr, arguments);
}

void GlobalObject::Store(MemberId member, Arguments arguments, const Variant& value, bool set) {
  Engine& engine = LivingEngine();
  const GlobalEntry& entry = engine.globals().Entry(static_cast<NameId>(member));
  if (entry.kind != GlobalKind::kVariable) RaiseScript(error::kMemberNotFound);
  engine.StoreField(engine.globals().ValueOf(entry), arguments, value, set);
}

}  // namespace kestrun::vbs
