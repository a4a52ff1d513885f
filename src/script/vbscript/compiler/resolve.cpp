// What a name means: a variable of the procedure, a member of its class, a global name, a word of the library, or a new
// variable.
#include <algorithm>

#include "base/text.h"
#include "script/vbscript/compiler/compiler.h"
#include "script/vbscript/runtime/operators.h"

namespace kestrun::vbs {
namespace {

struct IntrinsicRow {
  std::string_view name;
  Intrinsic intrinsic;
};

constexpr IntrinsicRow kIntrinsics[] = {
    {"err", Intrinsic::kErr},         {"eval", Intrinsic::kEval},
    {"execute", Intrinsic::kExecute}, {"executeglobal", Intrinsic::kExecuteGlobal},
    {"getref", Intrinsic::kGetRef},
};

// The library's constants by folded name.
const std::unordered_map<std::string, Variant>& LibraryConstants() {
  static const std::unordered_map<std::string, Variant> kConstants = [] {
    std::unordered_map<std::string, Variant> table;
    for (const Constant& row : Constants()) table.emplace(FoldName(row.name), row.value);
    return table;
  }();
  return kConstants;
}

}  // namespace

Variant ConstantValue(const Module& module, const ConstStatement& constant) {
  const Expression* value = constant.value;
  bool negative = false;
  for (; value->kind == ExpressionKind::kUnary; value = value->left) {
    negative = negative != (value->operation == Operator::kNegate);
  }
  const Variant& literal = module.literals[value->literal];
  return negative ? Negate(literal) : literal;
}

bool IsLibraryName(std::string_view name) {
  const std::string folded = FoldName(name);
  const bool intrinsic = std::any_of(std::begin(kIntrinsics), std::end(kIntrinsics),
                                     [&](const IntrinsicRow& row) { return row.name == folded; });
  return intrinsic || LibraryConstants().contains(folded) || FindBuiltin(folded);
}

void Compiler::AddLocal(NameId name, Operand operand, bool is_constant) {
  locals_.insert_or_assign(name, Local{operand, is_constant});
}

void Compiler::DeclareConstant(const ConstStatement& constant) {
  AddLocal(constant.name, AddConstant(ConstantValue(context_.module, constant)), true);
}

// Registers: parameters first, then the function's result, then the variables.
void Compiler::DeclareLocals() {
  for (const NameId name : context_.outer) {
    AddLocal(name, MakeOperand(Space::kIndirect, static_cast<uint32_t>(NewRegister())));
  }
  code_->parameter_count = static_cast<uint32_t>(next_register_);
  if (!procedure_) return;
  for (const Parameter& parameter : procedure_->parameters) {
    const auto reg = static_cast<uint32_t>(NewRegister());
    AddLocal(parameter.name, MakeOperand(parameter.by_value ? Space::kRegister : Space::kIndirect, reg));
    code_->by_value.push_back(parameter.by_value);
    code_->has_by_value = code_->has_by_value || parameter.by_value;
  }
  code_->parameter_count = static_cast<uint32_t>(next_register_);
  code_->gives_result = procedure_->kind == ProcedureKind::kFunction || procedure_->kind == ProcedureKind::kPropertyGet;
  if (code_->gives_result) code_->result_register = static_cast<uint32_t>(NewRegister());
  for (const NameId name : procedure_->locals) AddLocal(name, Register(NewRegister()));
  for (const ConstStatement* constant : procedure_->constants) DeclareConstant(*constant);
  // Names that are assigned without a declaration become variables when nothing else has the name.
  for (const NameId name : procedure_->assigned) Resolve(name, NameUse::kAssigned);
  code_->cleared_count = static_cast<uint32_t>(next_register_);
  locals_complete_ = true;
}

bool Compiler::IsAssignedHere(NameId name) const {
  const std::vector<NameId>& assigned = procedure_ ? procedure_->assigned : context_.module.assigned;
  return std::binary_search(assigned.begin(), assigned.end(), name);
}

Compiler::Meaning Compiler::Resolve(NameId name, NameUse use) {
  if (const auto found = locals_.find(name); found != locals_.end()) {
    const MeaningKind kind = found->second.is_constant ? MeaningKind::kConstant : MeaningKind::kVariable;
    return {.kind = kind, .operand = found->second.operand};
  }
  if (Meaning own = ResolveOwn(name);
      own.kind != MeaningKind::kUnresolved && !(own.is_result && use == NameUse::kCalled)) {
    return own;
  }
  if (context_.owner) {
    if (const MemberId member = context_.owner->FindMember(name); member != kNoMember) {
      const ClassMember& row = context_.owner->members[static_cast<size_t>(member)];
      if (row.is_field) return {.kind = MeaningKind::kVariable, .operand = MakeOperand(Space::kField, row.field)};
      return {.kind = MeaningKind::kOwnMember, .member = member};
    }
  }
  const Meaning global = ResolveGlobal(name);
  const bool free = global.kind == MeaningKind::kClass && IsAssignedHere(name);  // Set person = New Person
  if (global.kind != MeaningKind::kUnresolved && !free) return global;
  if (const Meaning library = ResolveLibrary(name); library.kind != MeaningKind::kUnresolved) return library;
  return ResolveNew(name, use);
}

// Inside a function its name is the variable of the result.
Compiler::Meaning Compiler::ResolveOwn(NameId name) {
  if (!procedure_ || !code_->gives_result || procedure_->name != name) return {};
  return {
      .kind = MeaningKind::kVariable, .operand = Register(static_cast<int>(code_->result_register)), .is_result = true};
}

Compiler::Meaning Compiler::ResolveGlobal(NameId name) {
  const GlobalEntry& entry = context_.globals.Entry(name);
  code_->dependencies.push_back({name, entry.version});
  switch (entry.kind) {
    case GlobalKind::kUnbound: return {};
    case GlobalKind::kVariable:
      return {.kind = MeaningKind::kVariable, .operand = MakeOperand(Space::kGlobal, entry.slot)};
    case GlobalKind::kConstant:
    case GlobalKind::kObject:
      return {.kind = MeaningKind::kConstant, .operand = MakeOperand(Space::kGlobal, entry.slot)};
    case GlobalKind::kProcedure: return {.kind = MeaningKind::kProcedure};
    case GlobalKind::kClass: return {.kind = MeaningKind::kClass};
  }
  return {};
}

Compiler::Meaning Compiler::ResolveLibrary(NameId name) {
  const std::string folded = FoldName(context_.names.Spelling(name));
  for (const IntrinsicRow& row : kIntrinsics) {
    if (row.name == folded) return {.kind = MeaningKind::kIntrinsic, .intrinsic = row.intrinsic};
  }
  const auto constant = LibraryConstants().find(folded);
  if (constant != LibraryConstants().end()) {
    const Operand operand = AddConstant(constant->second);
    AddLocal(name, operand, true);
    return {.kind = MeaningKind::kConstant, .operand = operand};
  }
  const Builtin* builtin = FindBuiltin(folded);
  return {.kind = builtin ? MeaningKind::kBuiltin : MeaningKind::kUnresolved, .builtin = builtin};
}

// Nothing has this name: it is a variable if this code assigns it, and otherwise looked up when the code runs.
Compiler::Meaning Compiler::ResolveNew(NameId name, NameUse use) {
  const std::vector<NameId>& redimmed = procedure_ ? procedure_->redimmed : context_.module.redimmed;
  if (context_.module.option_explicit && !std::binary_search(redimmed.begin(), redimmed.end(), name)) return {};
  if (use != NameUse::kAssigned && !IsAssignedHere(name)) return {};
  if (procedure_ && locals_complete_) return {};
  if (procedure_) {
    const Operand operand = Register(NewRegister());
    AddLocal(name, operand);
    return {.kind = MeaningKind::kVariable, .operand = operand};
  }
  const GlobalEntry& entry = context_.globals.DefineVariable(name);
  code_->dependencies.push_back({name, entry.version});
  return {.kind = MeaningKind::kVariable, .operand = MakeOperand(Space::kGlobal, entry.slot)};
}

}  // namespace kestrun::vbs
