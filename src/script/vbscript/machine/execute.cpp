// Text that scripts execute and evaluate: inside a procedure it sees the procedure's variables.
#include <algorithm>

#include "script/vbscript/compiler/compiler.h"
#include "script/vbscript/engine/class_instance.h"
#include "script/vbscript/engine/engine.h"
#include "script/vbscript/machine/machine.h"
#include "script/vbscript/runtime/errors.h"

namespace kestrun::vbs {
namespace {

constexpr size_t kBytesPerExtraLocal = 80;  // a node of the map

}  // namespace

Variant* Machine::ExtraLocal(NameId name) {
  ExtraLocals* const extras = Top().extras;
  if (!extras) return nullptr;
  const auto found = extras->values.find(name);
  return found == extras->values.end() ? nullptr : &found->second;
}

// The variables around executed text, by name and place. Names that the text itself declares or assigns, and that mean
// nothing yet, become variables of the procedure first.
void Machine::BindOuterNames(Module& module, std::vector<NameId>& names, std::vector<Variant*>& places) {
  for (const LocalName& local : Top().code->locals) {
    names.push_back(local.name);
    places.push_back(&At(local.place));
  }
  const auto known = [&](NameId name) { return std::find(names.begin(), names.end(), name) != names.end(); };
  const auto add = [&](NameId name) {
    if (known(name) || ExtraLocal(name)) return;
    if (!Top().extras) Top().extras = new ExtraLocals;
    Top().extras->values.emplace(name, Variant());
    Top().extras->bytes.Grow(kBytesPerExtraLocal);
    engine_.ChargeMemory(0);
  };
  for (const DeclaredVariable& variable : module.variables) add(variable.name);
  for (const NameId name : module.assigned) {
    const bool member = Top().self && Top().self->definition().FindMember(name) != kNoMember;
    if (!member && globals_.Entry(name).kind == GlobalKind::kUnbound &&
        !IsLibraryName(engine_.names().Spelling(name))) {
      add(name);
    }
  }
  Charge(names.size() / kElementsPerStep);
  if (!Top().extras) return;
  Charge(Top().extras->values.size() / kElementsPerStep);
  for (auto& [name, value] : Top().extras->values) {
    names.push_back(name);
    places.push_back(&value);
  }
}

// The text runs in a frame of its own, whose first registers stand for the variables around it.
Variant Machine::RunInside(Module& module) {
  std::vector<NameId> names;
  std::vector<Variant*> places;
  BindOuterNames(module, names, places);
  ClassInstance* const self = Top().self;
  const CompileContext context{engine_.names(), globals_, module, self ? &self->definition() : nullptr, names, true};
  const std::unique_ptr<Code> code = module.expression ? CompileEvaluation(context, *module.expression)
                                                       : CompileStatements(context, Block(module.statements));
  OpenFrame(*code, self, FreeStack(code->register_count));
  for (size_t at = 0; at < places.size(); ++at) Top().base[at] = Variant::ReferenceTo(places[at]);
  Top().in_procedure = true;
  Execute(code->instructions.data());
  if (module.expression) return std::move(returned_);
  CloseFrame();
  return {};
}

Variant Machine::EvaluateGlobal(Module& module) {
  const CompileContext context{engine_.names(), globals_, module};
  const std::unique_ptr<Code> code = CompileEvaluation(context, *module.expression);
  OpenFrame(*code, nullptr, FreeStack(code->register_count));
  Execute(code->instructions.data());
  return std::move(returned_);
}

}  // namespace kestrun::vbs
