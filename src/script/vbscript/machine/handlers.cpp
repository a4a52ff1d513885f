// Instructions that are too rare or too heavy for the loop's own file.
#include "script/vbscript/engine/class_instance.h"
#include "script/vbscript/engine/engine.h"
#include "script/vbscript/machine/iteration.h"
#include "script/vbscript/machine/machine.h"
#include "script/vbscript/machine/numeric.h"
#include "script/vbscript/runtime/errors.h"
#include "script/vbscript/runtime/operators.h"

namespace kestrun::vbs {

// An array in place while one of its elements is passed by reference.
const Instruction* Machine::DoPin(const Instruction* pc) {
  Variant& array = At(pc->b);
  if (array.Is(VarType::kArray)) {
    ArrayBody& body = OwnArray(array);
    Register(pc->a) = Variant(MakeRef<ArrayPin>(Ref<ArrayBody>(&body)));
  }
  return pc + 1;
}

const Instruction* Machine::DoElementReferenceMany(const Instruction* pc) {
  const Arguments indexes{registers_ + pc->c, pc->n};
  Variant& array = At(pc->b);
  if (array.Is(VarType::kArray)) {
    ArrayBody& body = OwnArray(array);
    Register(pc->a) = Variant::ReferenceTo(&body.elements[ElementOffset(body, indexes)]);
  } else {
    Register(pc->a) = IndexedValue(array, indexes);
  }
  for (Variant& index : indexes) index.Clear();
  return pc + 1;
}

const Instruction* Machine::DoIndexMany(const Instruction* pc) {
  const Arguments indexes{registers_ + pc->c, pc->n};
  Variant value = IndexedValue(At(pc->b), indexes);
  for (Variant& index : indexes) index.Clear();
  At(pc->a) = std::move(value);
  return pc + 1;
}

// A number of a For's head, as arithmetic takes it.
Variant Machine::LoopNumber(const Variant& value) {
  const Variant plain = PlainCopy(value);
  if (plain.Is(VarType::kNull)) RaiseScript(error::kInvalidUseOfNull);
  ChargeReading(plain);
  return Add(plain, int16_t{0});
}

// The head of a loop has computed first, last and step; from here on the state says that it is under way. Nothing has
// changed when one of them is no number.
const Instruction* Machine::DoForBegin(const Instruction* pc) {
  Variant& first = Register(pc->c);
  Variant last = LoopNumber(Register(pc->c + pc->n));
  Variant step = LoopNumber(Register(pc->c + pc->n + 1));
  static_cast<void>(LoopNumber(first));
  Let(At(pc->b), Variant(std::move(first)));
  const bool rises = IsTrue(Compare(step, int16_t{0}, Comparison::kGreaterEqual));
  const Comparison beyond = rises ? Comparison::kGreater : Comparison::kLess;
  const bool done = IsTrue(Compare(PlainCopy(At(pc->b)), last, beyond, kRightIsLiteral));
  Register(pc->c + 1) = std::move(last);
  Register(pc->c + 2) = std::move(step);
  return done ? pc + pc->a : pc + 1;
}

const Instruction* Machine::SlowForNext(const Instruction* pc) {
  if (Register(pc->c + 1).Is(VarType::kEmpty)) RaiseScript(error::kLoopNotInitialized);  // the head has failed
  const Variant last = Register(pc->c + 1);
  const Variant step = Register(pc->c + 2);
  const Variant reached = PlainCopy(At(pc->b));
  ChargeReading(reached);
  Variant next = Add(reached, step);
  At(pc->b) = next;
  const bool rises = IsTrue(Compare(step, int16_t{0}, Comparison::kGreaterEqual));
  const Comparison within = rises ? Comparison::kLessEqual : Comparison::kGreaterEqual;
  return IsTrue(Compare(next, last, within)) ? pc + pc->a : pc + 1;
}

// The reference engine runs the body whenever the condition at a loop's head fails, and so for ever when nothing mends
// it. Here it does so twice.
const Instruction* Machine::DoCountFailure(const Instruction* pc) {
  constexpr int32_t kMostFailures = 2;
  Variant& count = At(pc->b);
  const int32_t failures = count.Is(VarType::kLong) ? count.whole() : 0;
  if (failures == kMostFailures) return pc + 1;
  if (--fuel_ < 0) Refuel();
  count = failures + 1;
  return pc + pc->a;
}

const Instruction* Machine::DoEachBegin(const Instruction* pc) {
  Register(pc->c) = IterationOver(At(pc->b));
  return pc + 1;
}

// The variable is Empty once a collection has come to its end; behind an array it keeps the last element.
const Instruction* Machine::DoEachNext(const Instruction* pc) {
  Charge(1 + static_cast<uint64_t>(-int64_t{pc->a}) / 8);
  const Variant state = Register(pc->c);
  if (!state.Is(VarType::kObject)) RaiseScript(error::kNotANumberedObject);  // the head has failed
  auto& iteration = *static_cast<IterationState*>(state.object());
  Variant item;
  const bool more = iteration.Next(item);
  if (more || !iteration.over_array()) At(pc->b) = std::move(item);
  return more ? pc + pc->a : pc + 1;
}

const Instruction* Machine::DoLoadName(const Instruction* pc) {
  const auto name = static_cast<NameId>(pc->c);
  if (const Variant* extra = ExtraLocal(name)) {
    GiveResult(pc->a, Variant(*extra));
    return pc + 1;
  }
  const GlobalEntry& entry = globals_.Entry(name);
  switch (entry.kind) {
    case GlobalKind::kVariable:
    case GlobalKind::kConstant:
    case GlobalKind::kObject: GiveResult(pc->a, Variant(globals_.ValueOf(entry))); return pc + 1;
    case GlobalKind::kProcedure: return Enter(*entry.procedure, nullptr, registers_ + IndexOf(pc->a), 0, pc->a, pc + 1);
    case GlobalKind::kClass: RaiseScript(error::kTypeMismatch);
    case GlobalKind::kUnbound: break;
  }
  if (Top().code->module->option_explicit) RaiseNamed(error::kUndefinedVariable, name);
  GiveResult(pc->a, Variant());
  return pc + 1;
}

void Machine::StoreByName(const Instruction& at, bool set) {
  const auto name = static_cast<NameId>(at.c);
  Variant* target = ExtraLocal(name);
  if (!target) {
    const GlobalEntry& entry = globals_.Entry(name);
    if (entry.kind == GlobalKind::kUnbound) RaiseNamed(error::kUndefinedVariable, name);
    if (entry.kind != GlobalKind::kVariable) RaiseNamed(error::kIllegalAssignment, name);
    target = &globals_.ValueOf(entry);
  }
  if (set) {
    ObjectOrNothing(At(at.b));
    *target = Variant(At(at.b));
  } else {
    Let(*target, Variant(At(at.b)));
  }
}

const Instruction* Machine::DoStoreName(const Instruction* pc) {
  StoreByName(*pc, false);
  return pc + 1;
}

const Instruction* Machine::DoSetName(const Instruction* pc) {
  StoreByName(*pc, true);
  return pc + 1;
}

const Instruction* Machine::DoNew(const Instruction* pc) {
  const bool explicit_names = Top().code->module && Top().code->module->option_explicit;
  Variant object = engine_.MakeObject(static_cast<NameId>(pc->c), explicit_names);
  engine_.ChargeMemory(0);
  At(pc->a) = std::move(object);
  return pc + 1;
}

const Instruction* Machine::DoLoadMe(const Instruction* pc) {
  Object* const self = Top().self;
  At(pc->a) = Variant(self ? self : &engine_.global_object());
  return pc + 1;
}

const Instruction* Machine::DoLoadErr(const Instruction* pc) {
  At(pc->a) = Variant(static_cast<Object*>(&engine_.err()));
  return pc + 1;
}

const Instruction* Machine::DoExecute(const Instruction* pc) {
  const Variant text = std::move(Register(pc->b));
  engine_.ExecuteText(text, false);
  return pc + 1;
}

const Instruction* Machine::DoExecuteGlobal(const Instruction* pc) {
  const Variant text = std::move(Register(pc->b));
  engine_.ExecuteText(text, true);
  return pc + 1;
}

const Instruction* Machine::DoEval(const Instruction* pc) {
  const Variant text = std::move(Register(pc->b));
  GiveResult(pc->a, engine_.EvaluateText(text));
  return pc + 1;
}

const Instruction* Machine::DoGetRef(const Instruction* pc) {
  const Variant name = std::move(Register(pc->b));
  GiveResult(pc->a, engine_.MakeProcedureReference(name));
  engine_.ChargeMemory(0);
  return pc + 1;
}

const Instruction* Machine::DoDimArray(const Instruction* pc) {
  Variant array = NewArray(Top().code->bounds[static_cast<size_t>(pc->c)]);
  At(pc->a) = std::move(array);
  return pc + 1;
}

const Instruction* Machine::DoReDim(const Instruction* pc) {
  const Arguments bounds = List(*pc);
  ReDimArray(At(pc->a), bounds, pc->c != 0);
  for (Variant& bound : bounds) bound.Clear();
  return pc + 1;
}

const Instruction* Machine::DoErase(const Instruction* pc) {
  EraseArray(At(pc->a));
  return pc + 1;
}

// Either form forgets the last error.
const Instruction* Machine::DoOnError(const Instruction* pc) {
  Top().resume_next = pc->n != 0;
  engine_.err().Clear();
  return pc + 1;
}

const Instruction* Machine::DoRaise(const Instruction* pc) { RaiseScript(pc->n); }

}  // namespace kestrun::vbs
