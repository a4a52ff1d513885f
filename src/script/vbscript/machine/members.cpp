// Members of objects by name: a script's own classes without leaving the loop, all others through Object.
#include <array>
#include <vector>

#include "base/local_forms.h"
#include "script/vbscript/engine/class_instance.h"
#include "script/vbscript/engine/engine.h"
#include "script/vbscript/machine/machine.h"
#include "script/vbscript/runtime/errors.h"

namespace kestrun::vbs {
namespace {

bool SameValue(const Variant& left, const Variant& right) {
  return left.type() == right.type() && left.scaled() == right.scaled();
}

}  // namespace

// Looks the site's name up for this object and remembers the answer for its kind. Private members are no members here.
void Machine::ResolveSite(CallSite& site, Object& object) {
  const void* const layout = object.MemberLayout();
  if (layout && layout == site.layout) return;
  site.script_class = nullptr;
  if (auto* instance = dynamic_cast<ClassInstance*>(&object)) {
    ClassDefinition& definition = instance->definition();
    site.member = definition.FindMember(site.name);
    if (site.member != kNoMember && !definition.members[static_cast<size_t>(site.member)].is_public) {
      site.member = kNoMember;
    }
    site.script_class = &definition;
  } else {
    site.member = object.FindMember(engine_.names().Spelling(site.name));
  }
  site.layout = layout;
  if (site.member == kNoMember) {
    site.layout = nullptr;
    RaiseNamed(error::kMemberNotFound, site.name);
  }
}

const Instruction* Machine::CallSiteMember(const Instruction* pc, bool is_statement) {
  CallSite& site = const_cast<CallSite&>(Top().code->sites[static_cast<size_t>(pc->c)]);
  Object& object = ObjectOf(At(site.object));
  ResolveSite(site, object);
  if (site.script_class) {
    auto& instance = static_cast<ClassInstance&>(object);
    const ClassMember& member = site.script_class->members[static_cast<size_t>(site.member)];
    if (member.is_field) RequireCallableField(instance.fields()[member.field], pc->n, is_statement);
    return CallClassMember(pc, instance, member);
  }
  CallHostMember(pc, object, site.member, is_statement);
  return pc + 1;
}

// A field is no method, and has no arguments unless it holds an array or an object.
void Machine::RequireCallableField(const Variant& field, size_t argument_count, bool is_statement) {
  if (field.Is(VarType::kObject) || (field.Is(VarType::kArray) && !is_statement)) return;
  if (is_statement || argument_count > 0) RaiseScript(error::kMemberNotFound);
}

const Instruction* Machine::CallClassMember(const Instruction* pc, ClassInstance& self, const ClassMember& member) {
  const Arguments arguments = List(*pc);
  if (member.is_field) {
    const Variant& field = self.fields()[member.field];
    Variant value = arguments.empty() ? field : IndexedValue(field, ValuesOf(arguments));
    for (Variant& argument : arguments) argument.Clear();
    GiveResult(pc->a, std::move(value));
    return pc + 1;
  }
  if (!member.get) RaiseNamed(error::kMemberNotFound, member.name);
  if (!arguments.empty() && member.get->tree->parameters.empty() && pc->a != kNoResult) {
    return CallWithTooMany(pc, self, *member.get);
  }
  return Enter(*member.get, &self, registers_ + pc->b, pc->n, pc->a, pc + 1);
}

// Arguments for a function that takes none belong to what it gives.
const Instruction* Machine::CallWithTooMany(const Instruction* pc, ClassInstance& self, Procedure& procedure) {
  const Variant held(static_cast<Object*>(&self));
  const Variant given = Invoke(procedure, &self, {});
  const Arguments arguments = List(*pc);
  Variant value = IndexedValue(given, ValuesOf(arguments));
  for (Variant& argument : arguments) argument.Clear();
  GiveResult(pc->a, std::move(value));
  return pc + 1;
}

// Turns stand-ins for variables into the variables' values.
Arguments Machine::ValuesOf(Arguments arguments) {
  for (Variant& argument : arguments) {
    if (argument.IsReference()) argument = Variant(*argument.target());
  }
  return arguments;
}

// A text that nobody else holds was made by the call.
void Machine::ChargeMaking(const Variant& result) {
  if (!result.owns()) return;
  engine_.ChargeMemory(0);
  if (result.Is(VarType::kString) && result.text_body()->references() == 1) {
    Charge(result.text().size() / kUnitsPerStep);
  }
}

namespace {

// The variables that arguments stand for, in a list that takes no memory for the usual few.
class PassedVariables {
 public:
  explicit PassedVariables(Arguments arguments) : arguments_(arguments) {
    if (arguments.size() > few_.size()) many_.resize(arguments.size());
    Variant** const targets = Targets();
    for (size_t at = 0; at < arguments.size(); ++at) {
      targets[at] = arguments[at].IsReference() ? arguments[at].target() : nullptr;
      if (targets[at]) arguments[at] = Variant(*targets[at]);
    }
  }
  // What the callee has changed goes into the variables.
  void GiveBack() {
    Variant** const targets = Targets();
    for (size_t at = 0; at < arguments_.size(); ++at) {
      if (targets[at] && !SameValue(*targets[at], arguments_[at])) *targets[at] = arguments_[at];
    }
  }

 private:
  Variant** Targets() { return many_.empty() ? few_.data() : many_.data(); }

  Arguments arguments_;
  std::array<Variant*, 8> few_;
  std::vector<Variant*> many_;
};

}  // namespace

// A host gets values; what it changes in them goes back into the variables that were passed.
void Machine::CallHostMember(const Instruction* pc, Object& object, MemberId member, bool is_statement) {
  const LocalFormsScope hosts_forms(nullptr);
  const Ref<Object> held(&object);
  Top().calling = pc;
  const Arguments arguments = List(*pc);
  PassedVariables passed(arguments);
  Variant result = is_statement ? object.Call(member, arguments) : object.Get(member, arguments);
  ChargeMaking(result);
  passed.GiveBack();
  for (Variant& argument : arguments) argument.Clear();
  GiveResult(pc->a, std::move(result));
}

const Instruction* Machine::StoreSiteMember(const Instruction* pc, bool set) {
  CallSite& site = const_cast<CallSite&>(Top().code->sites[static_cast<size_t>(pc->c)]);
  Object& object = ObjectOf(At(site.object));
  Variant& value = Register(pc->b + pc->n);
  if (set) ObjectOrNothing(value);
  ResolveSite(site, object);
  if (site.script_class) {
    auto& instance = static_cast<ClassInstance&>(object);
    return StoreClassMember(pc, instance, site.script_class->members[static_cast<size_t>(site.member)], set);
  }
  const LocalFormsScope hosts_forms(nullptr);
  const Ref<Object> held(&object);
  Top().calling = pc;
  const Arguments arguments = ValuesOf(List(*pc));
  const Variant stored(std::move(value));
  if (set) {
    object.PutReference(site.member, arguments, stored);
  } else {
    object.Put(site.member, arguments, stored);
  }
  for (Variant& argument : arguments) argument.Clear();
  return pc + 1;
}

// The value stands behind the index arguments, so that it is the setter's last one.
const Instruction* Machine::StoreClassMember(const Instruction* pc, ClassInstance& self, const ClassMember& member,
                                             bool set) {
  const Arguments arguments = List(*pc);
  Variant& value = Register(pc->b + pc->n);
  if (member.is_field) {
    const Ref<Object> held(&self);
    Variant& field = self.fields()[member.field];
    const Variant stored(std::move(value));
    if (!arguments.empty()) {
      const bool has_items = field.Is(VarType::kArray) || field.Is(VarType::kObject);
      if (!has_items) RaiseScript(error::kInvalidProcedureCall);
      StoreIndexed(field, ValuesOf(arguments), stored, set);
    } else if (set) {
      field = stored;
    } else {
      Let(field, stored);
    }
    for (Variant& argument : arguments) argument.Clear();
    return pc + 1;
  }
  const Ref<Procedure>& setter = set ? member.set : member.let;
  if (!setter) RaiseNamed(error::kMemberNotFound, member.name);
  return Enter(*setter, &self, registers_ + pc->b, pc->n + 1U, kNoResult, pc + 1);
}

const Instruction* Machine::StoreOwnMember(const Instruction* pc, bool set) {
  ClassInstance& self = *Top().self;
  const ClassMember& member = self.definition().members[static_cast<size_t>(pc->c)];
  if (set) ObjectOrNothing(Register(pc->b + pc->n - 1));
  const Ref<Procedure>& setter = set ? member.set : member.let;
  if (!setter) RaiseNamed(error::kIllegalAssignment, member.name);
  return Enter(*setter, &self, registers_ + pc->b, pc->n, kNoResult, pc + 1);
}

// A name that had no meaning when the code was compiled.
const Instruction* Machine::CallGlobalName(const Instruction* pc) {
  const auto name = static_cast<NameId>(pc->c);
  const Arguments arguments = List(*pc);
  const GlobalEntry& entry = globals_.Entry(name);
  if (entry.kind == GlobalKind::kProcedure) {
    return Enter(*entry.procedure, nullptr, registers_ + pc->b, pc->n, pc->a, pc + 1);
  }
  const Variant* object = ExtraLocal(name);
  const bool holds =
      entry.kind == GlobalKind::kVariable || entry.kind == GlobalKind::kConstant || entry.kind == GlobalKind::kObject;
  if (!object && holds) object = &globals_.ValueOf(entry);
  if (!object) {
    RaiseNamed(Top().code->module->option_explicit ? error::kUndefinedVariable : error::kTypeMismatch, name);
  }
  Variant value = IndexedValue(*object, ValuesOf(arguments));
  for (Variant& argument : arguments) argument.Clear();
  GiveResult(pc->a, std::move(value));
  return pc + 1;
}

}  // namespace kestrun::vbs
