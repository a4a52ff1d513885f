#include "script/vbscript/compiler/compiler.h"
#include "script/vbscript/runtime/errors.h"

namespace kestrun::vbs {

void Compiler::EmitRaise(int number) { Emit(Opcode::kRaise, 0, 0, 0, static_cast<uint32_t>(number)); }

Operand Compiler::WithObject() {
  if (!withs_.empty()) return withs_.back();
  EmitRaise(error::kUnqualifiedReference);
  return Register(NewRegister());
}

void Compiler::EmitCall(Opcode opcode, int32_t called, int base, size_t count, Operand target) {
  Emit(opcode, target, base, called, static_cast<uint32_t>(count));
  if (target != kNoResult) MarkDirty(static_cast<int>(IndexOf(target)));
}

// Only an element of a variable can be passed by reference, or one of such an element, but none of a member or of a
// function's result.
bool Compiler::CanPassElement(const Expression& argument) {
  if (argument.kind != ExpressionKind::kCall || argument.arguments.empty()) return false;
  if (argument.left->kind == ExpressionKind::kCall) return CanPassElement(*argument.left);
  if (argument.left->kind != ExpressionKind::kName) return false;
  return Resolve(argument.left->name, NameUse::kCalled).kind == MeaningKind::kVariable;
}

bool Compiler::ReferenceInto(const Expression& argument, int reg, int pin) {
  if (argument.kind == ExpressionKind::kName) {
    const Meaning meaning = Resolve(argument.name, NameUse::kAssigned);
    if (meaning.kind != MeaningKind::kVariable) return false;
    Emit(Opcode::kMakeReference, reg, meaning.operand);
    return true;
  }
  if (!CanPassElement(argument)) return false;
  const bool nested = argument.left->kind == ExpressionKind::kCall;
  const Operand array = nested ? ElementPlace(*argument.left) : Resolve(argument.left->name, NameUse::kCalled).operand;
  const int saved = next_register_;
  const int indexes = ArgumentList(argument.arguments, false);
  Emit(Opcode::kPin, pin, array);
  MarkDirty(pin);
  Emit(Opcode::kElementReferenceMany, reg, array, indexes, static_cast<uint32_t>(argument.arguments.size()));
  MarkDirty(reg);
  next_register_ = saved;
  return true;
}

void Compiler::ArgumentInto(const Expression& argument, int reg, int pin) {
  if (pin >= 0 && ReferenceInto(argument, reg, pin)) return;
  const int saved = next_register_;
  IntoFresh(argument, reg);
  next_register_ = saved;
}

// Fills consecutive registers. What holds passed elements in place stands before them: the callee's own registers begin
// where the list does.
int Compiler::ArgumentList(ArgumentTrees arguments, bool by_reference) {
  int pin = -1;
  if (by_reference) {
    pin = next_register_;
    for (const Expression* argument : arguments) {
      if (CanPassElement(*argument)) NewRegister();
    }
  }
  const int first = NewRegisters(arguments.size());
  for (size_t at = 0; at < arguments.size(); ++at) {
    ArgumentInto(*arguments[at], first + static_cast<int>(at), pin);
    if (by_reference && CanPassElement(*arguments[at])) ++pin;
  }
  return first;
}

void Compiler::CallInto(const Expression& callee, ArgumentTrees arguments, Operand target, bool is_statement) {
  const int saved = next_register_;
  const Expression& bare = Bare(callee);
  if (bare.kind == ExpressionKind::kName) {  // also (f)(x), which calls f
    NameCallInto(bare, arguments, target, is_statement);
    next_register_ = saved;
    return;
  }
  switch (callee.kind) {
    case ExpressionKind::kMember: MemberCallInto(callee, arguments, target, is_statement); break;
    default: IndexInto(Value(callee), arguments, target);
  }
  next_register_ = saved;
}

void Compiler::NameCallInto(const Expression& callee, ArgumentTrees arguments, Operand target, bool is_statement) {
  const Meaning meaning = Resolve(callee.name, NameUse::kCalled);
  const auto name = static_cast<int32_t>(callee.name);
  switch (meaning.kind) {
    case MeaningKind::kVariable:
    case MeaningKind::kConstant: return IndexInto(meaning.operand, arguments, target);
    case MeaningKind::kIntrinsic: return IntrinsicInto(meaning.intrinsic, arguments, target);
    case MeaningKind::kBuiltin: return BuiltinInto(*meaning.builtin, arguments, target);
    case MeaningKind::kClass: return EmitRaise(error::kTypeMismatch);
    case MeaningKind::kProcedure:
    case MeaningKind::kOwnMember:
    case MeaningKind::kUnresolved: break;
  }
  const int base = ArgumentList(arguments, true);
  if (meaning.kind == MeaningKind::kOwnMember) {
    return EmitCall(Opcode::kCallOwn, meaning.member, base, arguments.size(), target);
  }
  const bool known = meaning.kind == MeaningKind::kProcedure;
  EmitCall(known ? Opcode::kCallProcedure : Opcode::kCallName, name, base, arguments.size(), target);
  static_cast<void>(is_statement);
}

void Compiler::BuiltinInto(const Builtin& builtin, ArgumentTrees arguments, Operand target) {
  const auto count = static_cast<int>(arguments.size());
  const int base = ArgumentList(arguments, false);
  if (count < builtin.least_arguments || count > builtin.most_arguments) return EmitRaise(error::kWrongArgumentCount);
  code_->builtins.push_back(&builtin);
  if (target == kNoResult && builtin.use == BuiltinUse::kValue) {
    EmitCall(Opcode::kCallBuiltin, static_cast<int32_t>(code_->builtins.size() - 1), base, arguments.size(),
             Register(NewRegister()));
    return EmitRaise(error::kUnsupportedType);
  }
  if (target != kNoResult && builtin.use == BuiltinUse::kStatement) return EmitRaise(error::kTypeMismatch);
  EmitCall(Opcode::kCallBuiltin, static_cast<int32_t>(code_->builtins.size() - 1), base, arguments.size(), target);
}

void Compiler::IntrinsicInto(Intrinsic intrinsic, ArgumentTrees arguments, Operand target) {
  if (intrinsic == Intrinsic::kErr) {
    if (target == kNoResult) return;
    if (arguments.empty()) {
      Emit(Opcode::kLoadErr, target);
      return MarkDirty(static_cast<int>(IndexOf(target)));
    }
    const int err = NewRegister();
    Emit(Opcode::kLoadErr, Register(err));
    return IndexInto(Register(err), arguments, target);
  }
  if (arguments.size() != 1) return EmitRaise(error::kWrongArgumentCount);
  constexpr Opcode kOpcodes[] = {Opcode::kLoadErr, Opcode::kEval, Opcode::kExecute, Opcode::kExecuteGlobal,
                                 Opcode::kGetRef};
  const int base = ArgumentList(arguments, false);
  EmitCall(kOpcodes[static_cast<size_t>(intrinsic)], 0, base, 1, target);
}

void Compiler::MemberCallInto(const Expression& callee, ArgumentTrees arguments, Operand target, bool is_statement) {
  const int saved = next_register_;
  const Operand object = callee.left ? Value(*callee.left) : WithObject();
  const int base = ArgumentList(arguments, true);
  Opcode opcode = is_statement ? Opcode::kInvokeMember : Opcode::kCallMember;
  if (!is_statement && arguments.empty()) opcode = Opcode::kGetMember;
  EmitCall(opcode, AddSite(callee.name, object), base, arguments.size(), target);
  next_register_ = saved;
}

void Compiler::IndexInto(Operand object, ArgumentTrees arguments, Operand target) {
  if (target == kNoResult) target = Register(NewRegister());
  MarkDirty(static_cast<int>(IndexOf(target)));
  const int saved = next_register_;
  if (arguments.size() == 1 && arguments[0]->kind != ExpressionKind::kMissing) {
    const Operand index = Value(*arguments[0]);
    Emit(Opcode::kIndex, target, object, index);
  } else {
    const int base = ArgumentList(arguments, false);
    Emit(Opcode::kIndexMany, target, object, base, static_cast<uint32_t>(arguments.size()));
  }
  next_register_ = saved;
}

}  // namespace kestrun::vbs
