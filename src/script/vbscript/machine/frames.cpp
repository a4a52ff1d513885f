// The loop that runs instructions, and what happens to frames on calls, returns and errors.
#include <algorithm>
#include <cstdlib>
#include <new>

#include "script/vbscript/compiler/compiler.h"
#include "script/vbscript/engine/class_instance.h"
#include "script/vbscript/engine/engine.h"
#include "script/vbscript/machine/handlers.h"
#include "script/vbscript/runtime/errors.h"

namespace kestrun::vbs {
namespace {

constexpr size_t kStackValues = size_t{1} << 19;
constexpr size_t kMostFrames = 20000;
constexpr int kMostNestedRuns = 100;
constexpr int64_t kFuelPerCheck = 20000;
// An error takes as long as many turns of a loop.
constexpr int64_t kStepsPerError = 50;

}  // namespace

// The block's memory is all zero, which is Empty; what is never used is never touched.
Machine::Machine(Engine& engine)
    : engine_(engine),
      globals_(engine.globals()),
      stack_(static_cast<Variant*>(std::calloc(kStackValues, sizeof(Variant)))),
      stack_end_(stack_ + kStackValues) {
  if (!stack_) throw std::bad_alloc();
  SetBase(Space::kGlobal, globals_.values());
}

Machine::~Machine() { std::free(stack_); }

void Machine::Refuel() {
  engine_.CheckTime();
  fuel_ = kFuelPerCheck;
}

#pragma GCC diagnostic push
#pragma GCC diagnostic ignored "-Wpedantic"

// Each handler gives the next instruction, or null to leave the loop.
const Instruction* Machine::Dispatch(const Instruction* pc) {
#define KESTRUN_LABEL(name) &&L_##name,
  static const void* const kLabels[] = {KESTRUN_OPCODES(KESTRUN_LABEL)};
#undef KESTRUN_LABEL
  while (true) {
    try {
      goto* kLabels[static_cast<size_t>(pc->opcode)];
#define KESTRUN_RUN(name)                     \
  L_##name : pc = Do##name(pc);               \
  if constexpr (kMayLeave<Opcode::k##name>) { \
    if (!pc) return nullptr;                  \
  }                                           \
  goto* kLabels[static_cast<size_t>(pc->opcode)];
      KESTRUN_OPCODES(KESTRUN_RUN)
#undef KESTRUN_RUN
    } catch (const RuntimeError& error) {
      pc = Recover(error, pc);
    } catch (const std::exception&) {
      pc = Recover(CurrentError(), pc);
    }
  }
}

#pragma GCC diagnostic pop

void Machine::Execute(const Instruction* pc) {
  if (nested_runs_ >= kMostNestedRuns) {
    UnwindBoundary();
    RaiseScript(error::kOutOfStackSpace);
  }
  ++nested_runs_;
  const size_t floor = depth_;
  try {
    Dispatch(pc);
  } catch (...) {
    // Recover has taken the frames down already, unless what flies is no script error.
    while (depth_ >= floor) PopFrame();
    --nested_runs_;
    throw;
  }
  --nested_runs_;
}

void Machine::UnwindBoundary() {
  while (!Top().boundary) PopFrame();
  PopFrame();
}

const StatementMark* Machine::MarkAt(const Code& code, const Instruction* pc) {
  const auto offset = static_cast<uint32_t>(pc - code.instructions.data());
  const auto behind = std::upper_bound(code.marks.begin(), code.marks.end(), offset,
                                       [](uint32_t wanted, const StatementMark& mark) { return wanted < mark.first; });
  return behind == code.marks.begin() ? nullptr : &*(behind - 1);
}

ErrorPlace Machine::PlaceOf(const Code& code, const StatementMark* mark) {
  return {code.module ? code.module->shared_from_this() : nullptr, mark ? mark->position : 0};
}

// Finds the frame that goes on after an error: this one or a caller's, as far down as the native code that called.
const Instruction* Machine::Recover(const RuntimeError& error, const Instruction* pc) {
  fuel_ -= kStepsPerError;
  const auto* placed = dynamic_cast<const PlacedError*>(&error);
  const StatementMark* mark = MarkAt(*Top().code, pc);
  const auto* named = dynamic_cast<const NamedError*>(&error);
  const std::string name = placed ? placed->name() : named ? named->name() : std::string();
  const ErrorPlace place = placed ? placed->place() : PlaceOf(*Top().code, mark);
  // An error that comes out of a nested run has been told there, with its source and help.
  if (!placed || engine_.err().number != error.number()) engine_.err().Set(error);
  while (true) {
    const Frame& frame = Top();
    mark = MarkAt(*frame.code, pc);
    if (frame.resume_next && mark) return frame.code->instructions.data() + mark->resume;
    const bool boundary = frame.boundary;
    if (!boundary) pc = frame.return_to - 1;
    PopFrame();
    if (boundary) throw PlacedError(InScriptWords(error), place, name);
  }
}

[[gnu::always_inline]] inline const Instruction* Machine::EnterNow(Procedure& procedure, ClassInstance* self,
                                                                   Variant* arguments, uint32_t count, Operand result,
                                                                   const Instruction* return_to) {
  if (procedure.checked_epoch != globals_.epoch()) Refresh(procedure);
  const Code& code = *procedure.code;
  if (count != code.parameter_count) RaiseScript(error::kWrongArgumentCount);
  fuel_ -= 1 + static_cast<int64_t>(code.instructions.size()) / kInstructionsPerStep;
  if (fuel_ < 0) Refuel();
  PushFrame(code, self, arguments);
  for (uint32_t reg = count; reg < code.cleared_count; ++reg) arguments[reg].Clear();
  if (code.has_by_value) TakeByValue(code, arguments);
  Frame& frame = Top();
  frame.return_to = return_to;
  frame.result = result;
  frame.in_procedure = true;
  return code.instructions.data();
}

const Instruction* Machine::Enter(Procedure& procedure, ClassInstance* self, Variant* arguments, uint32_t count,
                                  Operand result, const Instruction* return_to) {
  return EnterNow(procedure, self, arguments, count, result, return_to);
}

[[gnu::always_inline]] inline void Machine::UseFrame() {
  if (depth_ == 0) return;
  const Frame& frame = *top_;
  registers_ = frame.base;
  SetBase(Space::kRegister, frame.base);
  SetBase(Space::kIndirect, frame.base);
  SetBase(Space::kConstant, frame.code->constants.data());
  SetBase(Space::kField, frame.self ? frame.self->fields() : nullptr);
}

void Machine::GrowFrames() {
  if (depth_ >= kMostFrames) RaiseScript(error::kOutOfStackSpace);
  frames_.resize(std::min(kMostFrames, 2 * depth_ + 16));
}

[[gnu::always_inline]] inline void Machine::PushFrame(const Code& code, ClassInstance* self, Variant* base) {
  if (base + code.register_count + 1 > stack_end_) RaiseScript(error::kOutOfStackSpace);
  if (depth_ == frames_.size()) GrowFrames();
  top_ = &frames_[depth_++];
  *top_ = {.code = &code, .base = base, .self = self};
  if (self) self->Retain();
  UseFrame();
}

// Registers may hold the last reference to an object whose end runs a script, which must find the frame in place.
[[gnu::always_inline]] inline void Machine::ClearRegisters(Variant* base, uint32_t count) {
  for (Variant* value = base; value != base + count; ++value) value->DropReference();
}

[[gnu::always_inline]] inline void Machine::PopFrame() {
  ClearRegisters(top_->base, top_->code->register_count);
  ClassInstance* const self = top_->self;
  ExtraLocals* const extras = top_->extras;
  --depth_;
  top_ = depth_ ? &frames_[depth_ - 1] : nullptr;
  UseFrame();
  if (extras) delete extras;
  if (self) self->Release();
}

void Machine::OpenFrame(const Code& code, ClassInstance* self, Variant* base) {
  PushFrame(code, self, base);
  Top().boundary = true;
}

void Machine::CloseFrame() { PopFrame(); }

// Where the registers of a frame that native code asks for may begin.
Variant* Machine::FreeStack(uint32_t count) {
  Variant* const free = depth_ == 0 ? stack_ : Top().base + Top().code->register_count;
  if (free + count > stack_end_) RaiseScript(error::kOutOfStackSpace);
  return free;
}

void Machine::Refresh(Procedure& procedure) {
  const bool stands = procedure.code && std::all_of(procedure.code->dependencies.begin(),
                                                    procedure.code->dependencies.end(), [this](const Dependency& used) {
                                                      return globals_.Entry(used.name).version == used.version;
                                                    });
  if (!stands) {
    const CompileContext context{engine_.names(), globals_, *procedure.module, procedure.owner};
    std::unique_ptr<Code> code = CompileProcedure(context, *procedure.tree);
    Charge(code->instructions.size());
    if (procedure.code) procedure.retired.push_back(std::move(procedure.code));
    procedure.code = std::move(code);
    engine_.ChargeMemory(0);
  }
  procedure.checked_epoch = globals_.epoch();
}

void Machine::TakeByValue(const Code& code, Variant* arguments) {
  for (uint32_t at = 0; at < code.parameter_count; ++at) {
    if (code.by_value[at] && arguments[at].IsReference()) arguments[at] = CopyOf(*arguments[at].target());
  }
}

Variant Machine::Invoke(Procedure& procedure, ClassInstance* self, Arguments arguments) {
  const auto count = static_cast<uint32_t>(arguments.size());
  Variant* const base = FreeStack(count + 1);
  for (uint32_t at = 0; at < count; ++at) base[at] = Variant::ReferenceTo(&arguments[at]);
  const Instruction* const start = Enter(procedure, self, base, count, kNoResult, nullptr);
  Top().boundary = true;
  Execute(start);
  UseFrame();
  return std::move(returned_);
}

void Machine::RunGlobal(Module& module) {
  static const Code kNoCode;
  OpenFrame(kNoCode, nullptr, FreeStack(0));
  const size_t floor = depth_;
  try {
    for (Statement*& statement : module.statements) {
      const CompileContext context{engine_.names(), globals_, module};
      const std::unique_ptr<Code> code = CompileStatements(context, Block(&statement, 1));
      if (Top().base + code->register_count > stack_end_) RaiseScript(error::kOutOfStackSpace);
      Top().code = code.get();
      UseFrame();
      Execute(code->instructions.data());
      ClearRegisters(Top().base, code->register_count);
      Top().code = &kNoCode;
    }
  } catch (...) {
    while (depth_ >= floor) {
      Top().code = &kNoCode;
      PopFrame();
    }
    throw;
  }
  PopFrame();
}

ErrorPlace Machine::CallingPlace() const {
  if (depth_ == 0 || !Top().calling) return {};
  return PlaceOf(*Top().code, MarkAt(*Top().code, Top().calling));
}

bool Machine::InProcedure() const { return depth_ > 0 && Top().in_procedure; }

}  // namespace kestrun::vbs
