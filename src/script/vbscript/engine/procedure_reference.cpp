#include "script/vbscript/engine/procedure_reference.h"

#include "script/vbscript/engine/engine.h"
#include "script/vbscript/runtime/errors.h"

namespace kestrun::vbs {

Variant ProcedureReference::Get(MemberId, Arguments arguments) {
  if (!link_->engine) RaiseScript(error::kObjectRequired);
  const Ref<ProcedureReference> held(this);
  return link_->engine->Call(*procedure_, nullptr, arguments);
}

void ProcedureReference::Put(MemberId, Arguments, const Variant&) { RaiseScript(error::kMemberNotFound); }

}  // namespace kestrun::vbs
