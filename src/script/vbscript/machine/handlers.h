// One short function per instruction: the fast path, with everything else a call away. Part of frames.cpp alone.
#pragma once

#include "script/vbscript/engine/class_instance.h"
#include "script/vbscript/engine/engine.h"
#include "script/vbscript/machine/machine.h"
#include "script/vbscript/machine/numeric.h"
#include "script/vbscript/runtime/errors.h"
#include "script/vbscript/runtime/operators.h"

namespace kestrun::vbs {

// Only these end the loop by giving null.
template <Opcode kOpcode>
inline constexpr bool kMayLeave = kOpcode == Opcode::kReturn || kOpcode == Opcode::kEnd;

// The instructions that loops are made of read their operands where they stand: a stand-in for the caller's variable
// has a type that no fast path takes, and the slow ones look behind it. They stand in the loop itself, what is slower
// is called.
#define KESTRUN_HOT [[gnu::always_inline]] inline

KESTRUN_HOT void Machine::PutWhole(Operand target, unsigned kind, int64_t value) {
  Variant& place = Place(target);
  if (place.IsPlain()) [[likely]]
    return StoreWhole(place, kind, value);
  Variant result;
  StoreWhole(result, kind, value);
  PutElsewhere(target, std::move(result));
}

KESTRUN_HOT void Machine::PutReal(Operand target, double value) {
  Variant& place = Place(target);
  if (place.IsPlain()) [[likely]]
    return place.OverwriteReal(VarType::kDouble, value);
  PutElsewhere(target, value);
}

KESTRUN_HOT const Instruction* Machine::DoMove(const Instruction* pc) {
  At(pc->a) = At(pc->b);
  return pc + 1;
}

KESTRUN_HOT const Instruction* Machine::DoLet(const Instruction* pc) {
  Variant& target = At(pc->a);
  const Variant& value = At(pc->b);
  if (value.type() <= VarType::kString && !target.Is(VarType::kArray)) {
    target = value;
  } else {
    Let(target, value);
  }
  return pc + 1;
}

inline const Instruction* Machine::DoLetTemporary(const Instruction* pc) {
  Variant& target = At(pc->a);
  Variant& value = At(pc->b);
  if (value.type() <= VarType::kString && !target.Is(VarType::kArray)) {
    target = std::move(value);
  } else {
    Let(target, Variant(std::move(value)));
  }
  return pc + 1;
}

inline const Instruction* Machine::DoSet(const Instruction* pc) {
  Variant& value = At(pc->b);
  if (!value.Is(VarType::kObject)) RaiseScript(error::kObjectRequired);
  Variant& target = At(pc->a);
  RequireAssignable(target);
  if (pc->n) {
    target = std::move(value);
  } else {
    target = value;
  }
  return pc + 1;
}

inline const Instruction* Machine::DoClear(const Instruction* pc) {
  for (int reg = pc->a; reg < pc->a + pc->n; ++reg) Register(reg).Clear();
  return pc + 1;
}

inline const Instruction* Machine::DoMakeReference(const Instruction* pc) {
  Register(pc->a) = Variant::ReferenceTo(&At(pc->b));
  return pc + 1;
}

KESTRUN_HOT const Instruction* Machine::DoIndex(const Instruction* pc) {
  const Variant* const element = QuickElement(Place(pc->b), Place(pc->c));
  if (!element) [[unlikely]]
    return SlowIndex(pc);
  At(pc->a) = *element;
  return pc + 1;
}

KESTRUN_HOT const Instruction* Machine::DoBorrow(const Instruction* pc) {
  Variant* const element = QuickElement(Place(pc->b), Place(pc->c));
  if (!element) [[unlikely]]
    return SlowBorrow(pc);
  Variant& place = Register(pc->a);
  if (element->IsPlain() && place.IsPlain()) [[likely]] {
    place.OverwritePlain(*element);
  } else {
    place = element->IsPlain() ? *element : Variant::ReferenceTo(element);
  }
  return pc + 1;
}

KESTRUN_HOT const Instruction* Machine::DoStoreIndex(const Instruction* pc) {
  const Variant& array = Place(pc->a);
  const Variant& value = Place(pc->b);
  Variant* const element = QuickElement(array, Place(pc->c));
  const bool plain = value.type() <= VarType::kString;
  if (!element || !plain || !array.array().IsUnshared()) [[unlikely]]
    return SlowStoreIndex(pc);
  if (value.IsPlain() && element->IsPlain()) {
    element->OverwritePlain(value);
  } else {
    *element = value;
  }
  return pc + 1;
}

inline const Instruction* Machine::DoSetIndex(const Instruction* pc) {
  StoreIndexed(At(pc->a), {&At(pc->c), 1}, At(pc->b), true);
  return pc + 1;
}

inline const Instruction* Machine::DoStoreIndexMany(const Instruction* pc) {
  const Arguments indexes{registers_ + pc->c, pc->n};
  StoreIndexed(At(pc->a), indexes, At(pc->b), false);
  for (Variant& index : indexes) index.Clear();
  return pc + 1;
}

inline const Instruction* Machine::DoSetIndexMany(const Instruction* pc) {
  const Arguments indexes{registers_ + pc->c, pc->n};
  StoreIndexed(At(pc->a), indexes, At(pc->b), true);
  for (Variant& index : indexes) index.Clear();
  return pc + 1;
}

// Goes from stand-ins to the variables behind them; false when there is none.
[[gnu::always_inline]] inline bool LookBehind(const Variant*& left, const Variant*& right) {
  const bool stand_ins = left->IsReference() || right->IsReference();
  if (left->IsReference()) left = left->target();
  if (right->IsReference()) right = right->target();
  return stand_ins;
}

// name, the operation on whole numbers and on real ones, what is called for all others
#define KESTRUN_ARITHMETIC(name, sign, slow)                                                  \
  KESTRUN_HOT const Instruction* Machine::Do##name(const Instruction* pc) {                   \
    const Variant* left = &Place(pc->b);                                                      \
    const Variant* right = &Place(pc->c);                                                     \
    double first = 0;                                                                         \
    double second = 0;                                                                        \
    do {                                                                                      \
      if (const unsigned kind = WholeKind(*left, *right); kind <= kWholeNumbers) [[likely]] { \
        PutWhole(pc->a, kind, int64_t{left->whole()} sign right->whole());                    \
        return pc + 1;                                                                        \
      }                                                                                       \
      const bool reals = AsReal(*left, first) && AsReal(*right, second);                      \
      if (reals && IsFinite(first sign second)) {                                             \
        PutReal(pc->a, first sign second);                                                    \
        return pc + 1;                                                                        \
      }                                                                                       \
    } while (LookBehind(left, right));                                                        \
    slow(*pc, name);                                                                          \
    return pc + 1;                                                                            \
  }                                                                                           \
  KESTRUN_HOT const Instruction* Machine::Do##name##Small(const Instruction* pc) {            \
    const Variant& left = Place(pc->b);                                                       \
    const int64_t right = SmallNumber(*pc);                                                   \
    const unsigned kind = WholeKind(left);                                                    \
    if (kind > kWholeNumbers) [[unlikely]]                                                    \
      return Do##name(pc);                                                                    \
    PutWhole(pc->a, kind, left.whole() sign right);                                           \
    return pc + 1;                                                                            \
  }
KESTRUN_ARITHMETIC(Add, +, SlowAdd)
KESTRUN_ARITHMETIC(Subtract, -, SlowBinary)
KESTRUN_ARITHMETIC(Multiply, *, SlowBinary)
#undef KESTRUN_ARITHMETIC

KESTRUN_HOT const Instruction* Machine::DoAddElement(const Instruction* pc) {
  const Variant* const element = QuickElement(Place(pc->b), Place(pc->c));
  const bool added = element && AddNumber(Place(pc->a), *element);
  return added ? pc + 1 : SlowAddElement(pc);
}

inline const Instruction* Machine::DoDivide(const Instruction* pc) {
  double first = 0;
  double second = 0;
  const bool reals = AsReal(At(pc->b), first) && AsReal(At(pc->c), second) && second != 0;
  if (reals && IsFinite(first / second)) {
    PutReal(pc->a, first / second);
  } else {
    SlowBinary(*pc, Divide);
  }
  return pc + 1;
}

// name, the operation on whole numbers with a positive divisor
#define KESTRUN_WHOLE_DIVISION(name, sign)                                         \
  KESTRUN_HOT const Instruction* Machine::Do##name(const Instruction* pc) {        \
    const Variant* left = &Place(pc->b);                                           \
    const Variant* right = &Place(pc->c);                                          \
    do {                                                                           \
      const unsigned kind = WholeKind(*left, *right);                              \
      if (kind <= kWholeNumbers && right->whole() > 0) {                           \
        PutWhole(pc->a, kind, left->whole() sign right->whole());                  \
        return pc + 1;                                                             \
      }                                                                            \
    } while (LookBehind(left, right));                                             \
    SlowBinary(*pc, name);                                                         \
    return pc + 1;                                                                 \
  }                                                                                \
  KESTRUN_HOT const Instruction* Machine::Do##name##Small(const Instruction* pc) { \
    const Variant& left = Place(pc->b);                                            \
    const unsigned kind = WholeKind(left);                                         \
    if (kind > kWholeNumbers) [[unlikely]]                                         \
      return Do##name(pc);                                                         \
    PutWhole(pc->a, kind, left.whole() sign SmallNumber(*pc));                     \
    return pc + 1;                                                                 \
  }
KESTRUN_WHOLE_DIVISION(IntegerDivide, /)
KESTRUN_WHOLE_DIVISION(Modulo, %)
#undef KESTRUN_WHOLE_DIVISION

inline const Instruction* Machine::DoPower(const Instruction* pc) {
  SlowBinary(*pc, Power);
  return pc + 1;
}

inline const Instruction* Machine::DoConcatenate(const Instruction* pc) {
  Concatenate(*pc);
  return pc + 1;
}

// Bit by bit on numbers of one kind, plain logic on two Booleans.
// NOLINTBEGIN(bugprone-macro-parentheses): the symbol is an operator
#define KESTRUN_LOGIC(name, symbol)                                                                           \
  inline const Instruction* Machine::Do##name(const Instruction* pc) {                                        \
    const Variant& left = At(pc->b);                                                                          \
    const Variant& right = At(pc->c);                                                                         \
    const unsigned kind = WholeKind(left, right);                                                             \
    if (left.Is(VarType::kBoolean) && right.Is(VarType::kBoolean)) {                                          \
      At(pc->a).SetBoolean((static_cast<int>(left.boolean()) symbol static_cast<int>(right.boolean())) != 0); \
    } else if (kind <= kWholeNumbers) {                                                                       \
      PutWhole(pc->a, kind, left.whole() symbol right.whole());                                               \
    } else {                                                                                                  \
      SlowBinary(*pc, name);                                                                                  \
    }                                                                                                         \
    return pc + 1;                                                                                            \
  }
KESTRUN_LOGIC(And, &)
KESTRUN_LOGIC(Or, |)
KESTRUN_LOGIC(Xor, ^)
#undef KESTRUN_LOGIC
// NOLINTEND(bugprone-macro-parentheses)

inline const Instruction* Machine::DoEqv(const Instruction* pc) {
  SlowBinary(*pc, Eqv);
  return pc + 1;
}

inline const Instruction* Machine::DoImp(const Instruction* pc) {
  SlowBinary(*pc, Imp);
  return pc + 1;
}

inline const Instruction* Machine::DoIs(const Instruction* pc) {
  At(pc->a) = IsSame(At(pc->b), At(pc->c));
  return pc + 1;
}

inline const Instruction* Machine::DoNegate(const Instruction* pc) {
  const Variant& value = At(pc->b);
  if (const unsigned kind = WholeKind(value, value); kind <= kWholeNumbers) {
    PutWhole(pc->a, kind, -int64_t{value.whole()});
  } else {
    SlowUnary(*pc, Negate);
  }
  return pc + 1;
}

inline const Instruction* Machine::DoPlus(const Instruction* pc) {
  const Variant value = At(pc->b);
  At(pc->a) = UnaryPlus(value);
  return pc + 1;
}

inline const Instruction* Machine::DoNot(const Instruction* pc) {
  const Variant& value = At(pc->b);
  if (value.Is(VarType::kBoolean)) {
    At(pc->a).SetBoolean(!value.boolean());
  } else {
    SlowUnary(*pc, Not);
  }
  return pc + 1;
}

// name, the sign in C++
#define KESTRUN_COMPARISONS(X) \
  X(Equal, ==) X(NotEqual, !=) X(Less, <) X(LessEqual, <=) X(Greater, >) X(GreaterEqual, >=)

#define KESTRUN_COMPARISON(name, sign)                                                         \
  KESTRUN_HOT bool Machine::Holds##name(const Instruction* pc) {                               \
    const Variant* left = &Place(pc->b);                                                       \
    const Variant* right = &Place(pc->c);                                                      \
    double first = 0;                                                                          \
    double second = 0;                                                                         \
    do {                                                                                       \
      if (WholeKind(*left, *right) <= kWholeNumbers) return left->whole() sign right->whole(); \
      if (AsReal(*left, first) && AsReal(*right, second)) return first sign second;            \
    } while (LookBehind(left, right));                                                         \
    return SlowTest(*pc, static_cast<int>(Comparison::k##name));                               \
  }                                                                                            \
  inline const Instruction* Machine::Do##name(const Instruction* pc) {                         \
    const Variant& left = At(pc->b);                                                           \
    const Variant& right = At(pc->c);                                                          \
    double first = 0;                                                                          \
    double second = 0;                                                                         \
    if (WholeKind(left, right) <= kWholeNumbers) {                                             \
      At(pc->a).SetBoolean(left.whole() sign right.whole());                                   \
    } else if (AsReal(left, first) && AsReal(right, second)) {                                 \
      At(pc->a).SetBoolean(first sign second);                                                 \
    } else {                                                                                   \
      SlowCompare(*pc, static_cast<int>(Comparison::k##name), At(pc->a));                      \
    }                                                                                          \
    return pc + 1;                                                                             \
  }                                                                                            \
  KESTRUN_HOT const Instruction* Machine::DoJumpUnless##name(const Instruction* pc) {          \
    return Holds##name(pc) ? pc + 1 : pc + pc->a;                                              \
  }                                                                                            \
  KESTRUN_HOT const Instruction* Machine::DoJumpIf##name(const Instruction* pc) {              \
    return Holds##name(pc) ? pc + pc->a : pc + 1;                                              \
  }                                                                                            \
  KESTRUN_HOT bool Machine::Holds##name##Small(const Instruction* pc) {                        \
    const Variant& left = Place(pc->b);                                                        \
    if (WholeKind(left) > kWholeNumbers) [[unlikely]]                                          \
      return Holds##name(pc);                                                                  \
    return left.whole() sign SmallNumber(*pc);                                                 \
  }                                                                                            \
  KESTRUN_HOT const Instruction* Machine::DoJumpUnless##name##Small(const Instruction* pc) {   \
    return Holds##name##Small(pc) ? pc + 1 : pc + pc->a;                                       \
  }                                                                                            \
  KESTRUN_HOT const Instruction* Machine::DoJumpIf##name##Small(const Instruction* pc) {       \
    return Holds##name##Small(pc) ? pc + pc->a : pc + 1;                                       \
  }
KESTRUN_COMPARISONS(KESTRUN_COMPARISON)
#undef KESTRUN_COMPARISON

inline const Instruction* Machine::DoAppend(const Instruction* pc) {
  AppendParts(At(pc->a), registers_ + pc->b, pc->n);
  return pc + 1;
}

KESTRUN_HOT const Instruction* Machine::DoJump(const Instruction* pc) { return pc + pc->a; }

KESTRUN_HOT const Instruction* Machine::DoLoop(const Instruction* pc) {
  fuel_ -= pc->n;
  if (fuel_ < 0) Refuel();
  return pc + pc->a;
}

inline const Instruction* Machine::DoJumpFalse(const Instruction* pc) {
  const Variant& value = At(pc->b);
  const bool holds = value.Is(VarType::kBoolean) ? value.boolean() : SlowTruth(value);
  return holds ? pc + 1 : pc + pc->a;
}

inline const Instruction* Machine::DoJumpTrue(const Instruction* pc) {
  const Variant& value = At(pc->b);
  const bool holds = value.Is(VarType::kBoolean) ? value.boolean() : SlowTruth(value);
  return holds ? pc + pc->a : pc + 1;
}

KESTRUN_HOT const Instruction* Machine::DoForNext(const Instruction* pc) {
  fuel_ -= pc->n;
  if (fuel_ < 0) Refuel();
  Variant& variable = Place(pc->b);
  const Variant& last = Register(pc->c + 1);
  const Variant& step = Register(pc->c + 2);
  const unsigned kind = WholeKind(variable, step);
  if (kind <= kWholeNumbers && WholeKind(last, last) <= kWholeNumbers) {
    const int64_t next = int64_t{variable.whole()} + step.whole();
    StoreWhole(variable, kind, next);
    const bool goes_on = step.whole() >= 0 ? next <= last.whole() : next >= last.whole();
    return goes_on ? pc + pc->a : pc + 1;
  }
  return SlowForNext(pc);
}

KESTRUN_HOT const Instruction* Machine::DoForNextOne(const Instruction* pc) {
  fuel_ -= pc->n;
  if (fuel_ < 0) Refuel();
  Variant& variable = Place(pc->b);
  const Variant& last = Register(pc->c + 1);
  if (WholeKind(variable, last) > kWholeNumbers) [[unlikely]]
    return SlowForNext(pc);
  const bool goes_on = variable.whole() < last.whole();
  StoreWhole(variable, WholeKind(variable), int64_t{variable.whole()} + 1);
  return goes_on ? pc + pc->a : pc + 1;
}

KESTRUN_HOT const Instruction* Machine::DoReturn(const Instruction*) {
  const Code& code = *top_->code;
  const Instruction* const return_to = top_->return_to;
  const Operand target = top_->result;
  const bool boundary = top_->boundary;
  Variant result;
  if (code.gives_result) result = std::move(registers_[code.result_register]);
  PopFrame();
  if (boundary) {
    returned_ = std::move(result);
    return nullptr;
  }
  if (target != kNoResult) At(target) = std::move(result);
  return return_to;
}

inline const Instruction* Machine::DoEnd(const Instruction*) { return nullptr; }

KESTRUN_HOT const Instruction* Machine::DoCallProcedure(const Instruction* pc) {
  const GlobalEntry& entry = globals_.Entry(static_cast<NameId>(pc->c));
  if (entry.kind != GlobalKind::kProcedure) return CallGlobalName(pc);
  return EnterNow(*entry.procedure, nullptr, registers_ + pc->b, pc->n, pc->a, pc + 1);
}

// Texts among the arguments are paid for by their length, unless the builtin does that itself.
KESTRUN_HOT void Machine::ChargeArguments(const Builtin& builtin, Arguments arguments) {
  for (size_t at = 0; at < arguments.size(); ++at) {
    if (arguments[at].Is(VarType::kString) && !builtin.ChargesFor(at)) ChargeReading(arguments[at]);
  }
}

inline const Instruction* Machine::DoCallBuiltin(const Instruction* pc) {
  const Arguments arguments = List(*pc);
  const Builtin& builtin = *Top().code->builtins[static_cast<size_t>(pc->c)];
  ChargeArguments(builtin, arguments);
  Variant result = builtin.call(engine_, arguments);
  for (Variant& argument : arguments) argument.DropReference();
  if (result.owns()) engine_.ChargeMemory(0);
  GiveResult(pc->a, std::move(result));
  return pc + 1;
}

inline const Instruction* Machine::DoCallName(const Instruction* pc) { return CallGlobalName(pc); }
inline const Instruction* Machine::DoCallMember(const Instruction* pc) { return CallSiteMember(pc, false); }
inline const Instruction* Machine::DoInvokeMember(const Instruction* pc) { return CallSiteMember(pc, true); }
inline const Instruction* Machine::DoGetMember(const Instruction* pc) { return CallSiteMember(pc, false); }
inline const Instruction* Machine::DoPutMember(const Instruction* pc) { return StoreSiteMember(pc, false); }
inline const Instruction* Machine::DoSetMember(const Instruction* pc) { return StoreSiteMember(pc, true); }
inline const Instruction* Machine::DoPutOwn(const Instruction* pc) { return StoreOwnMember(pc, false); }
inline const Instruction* Machine::DoSetOwn(const Instruction* pc) { return StoreOwnMember(pc, true); }

inline const Instruction* Machine::DoCallOwn(const Instruction* pc) {
  ClassInstance& self = *Top().self;
  return CallClassMember(pc, self, self.definition().members[static_cast<size_t>(pc->c)]);
}

#undef KESTRUN_HOT

}  // namespace kestrun::vbs
