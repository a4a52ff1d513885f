// Assignment, and what a condition or an object stands for.
#include "script/vbscript/engine/engine.h"
#include "script/vbscript/machine/machine.h"
#include "script/vbscript/runtime/conversions.h"
#include "script/vbscript/runtime/errors.h"
#include "script/vbscript/runtime/operators.h"

namespace kestrun::vbs {

NamedError::NamedError(int number, std::string name)
    : RuntimeError(number, std::string(ScriptErrorText(number))), name_(std::move(name)) {}

void Machine::RequireAssignable(const Variant& target) const {
  if (target.Is(VarType::kArray) && target.array().fixed) RaiseScript(error::kTypeMismatch);
}

// An array is shared until one side changes it; a copy of one of fixed size may change its own.
Variant Machine::CopyOf(const Variant& value) {
  if (!value.Is(VarType::kArray) || !value.array().fixed) return value;
  Ref<ArrayBody> copy = CloneArray(value.array());
  copy->fixed = false;
  return Variant(std::move(copy));
}

// A copy that stays valid whatever runs meanwhile; an object gives its default member's value.
Variant Machine::PlainCopy(const Variant& value) {
  if (!value.Is(VarType::kObject)) return value;
  const Variant held(value);
  return PlainValue(held);
}

void Machine::Let(Variant& target, const Variant& value) {
  if (value.Is(VarType::kObject)) {
    Variant plain = PlainCopy(value);
    RequireAssignable(target);
    target = std::move(plain);
    return;
  }
  RequireAssignable(target);
  target = CopyOf(value);
}

Object& Machine::ObjectOf(const Variant& value) {
  if (!value.Is(VarType::kObject)) RaiseScript(error::kObjectRequired);
  if (!value.object()) RaiseScript(error::kObjectNotSet);
  return *value.object();
}

void Machine::ObjectOrNothing(const Variant& value) {
  if (!value.Is(VarType::kObject)) RaiseScript(error::kObjectRequired);
}

// Over something that is let go, or into the variable that a parameter stands for.
void Machine::PutElsewhere(Operand target, Variant value) { At(target) = std::move(value); }

bool Machine::SlowTruth(const Variant& value) {
  const Variant plain = PlainCopy(value);
  ChargeReading(plain);
  return IsTrue(plain);
}

// The name stays out of the description that a script sees; the host is told of it.
void Machine::RaiseNamed(int number, NameId name) const { throw NamedError(number, engine_.names().Spelling(name)); }

}  // namespace kestrun::vbs
