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
    ArrayBody& body = array.MutableArray();
    Register(pc->a) = Variant(MakeRef<ArrayPin>(Ref<ArrayBody>(&body)));
  }
  return pc + 1;
}

const Instruction* Machine::DoElementReferenceMany(const Instruction* pc) {
  const Arguments indexes{registers_ + pc->c, pc->n};
  Variant& array = At(pc->b);
  if (array.Is(VarType::kArray)) {
    ArrayBody& body = array.MutableArray();
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

// The head of a loop has computed first, last and step; from here on the state says that it is under way.
const Instruction* Machine::DoForBegin(const Instruction* pc) {
  Variant& first = Register(pc->c);
  const Variant last = PlainCopy(Register(pc->c + pc->n));
  const Variant step = PlainCopy(Register(pc->c + pc->n + 1));
  Let(At(pc->b), Variant(std::move(first)));
  Register(pc->c + 1) = Add(last, int16_t{0});
  Register(pc->c + 2) = Add(step, int16_t{0});
  const bool rises = IsTrue(Compare(Register(pc->c + 2), int16_t{0}, Comparison::kGreaterEqual));
  const Comparison beyond = rises ? Comparison::kGreater : Comparison::kLess;
  const bool done = IsTrue(Compare(PlainCopy(At(pc->b)), Register(pc->c + 1), beyond, kRightIsLiteral));
  return done ? pc + pc->a : pc + 1;
}

const Instruction* Machine::SlowForNext(const Instruction* pc) {
  if (Register(pc->c + 1).Is(VarType::kEmpty)) return pc + 1;  // the head has failed
  const Variant last = Register(pc->c + 1);
  const Variant step = Register(pc->c + 2);
  Variant next = Add(PlainCopy(At(pc->b)), step);
  At(pc->b) = next;
  const bool rises = IsTrue(Compare(step, int16_t{0}, Comparison::kGreaterEqual));
  const Comparison within = rises ? Comparison::kLessEqual : Comparison::kGreaterEqual;
  return IsTrue(Compare(next, last, within)) ? pc + pc->a : pc + 1;
}

const Instruction* Machine::DoEachBegin(const Instruction* pc) {
  Register(pc->c) = IterationOver(At(pc->b));
  return pc + 1;
}

const Instruction* Machine::DoEachNext(const Instruction* pc) {
  if (--fuel_ < 0) Refuel();
  const Variant& state = Register(pc->c);
  if (!state.Is(VarType::kObject)) return pc + 1;  // the head has failed
  Variant item;
  if (!static_cast<IterationState*>(state.object())->Next(item)) return pc + 1;
  At(pc->b) = std::move(item);
  return pc + pc->a;
}

const Instruction* Machine::DoLoadName(const Instruction* pc) {
  const auto name = static_cast<NameId>(pc->c);
  if (const Variant* extra = ExtraLocal(name)) {
    GiveResult(pc->a, *extra);
    return pc + 1;
  }
  const GlobalEntry& entry = globals_.Entry(name);
  switch (entry.kind) {
    case GlobalKind::kVariable:
    case GlobalKind::kConstant:
    case GlobalKind::kObject: GiveResult(pc->a, globals_.ValueOf(entry)); return pc + 1;
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
