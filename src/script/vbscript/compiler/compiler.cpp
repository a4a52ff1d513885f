#include "script/vbscript/compiler/compiler.h"

#include <algorithm>

#include "base/runtime_error.h"

namespace kestrun::vbs {
namespace {

struct SmallFormRow {
  Opcode general;
  Opcode small;
  int32_t least;  // number on the right side
};

#define KESTRUN_SMALL(name, least) \
  { Opcode::k##name, Opcode::k##name##Small, least }
constexpr SmallFormRow kSmallForms[] = {
    KESTRUN_SMALL(Add, kLeastSmallNumber),
    KESTRUN_SMALL(Subtract, kLeastSmallNumber),
    KESTRUN_SMALL(Multiply, kLeastSmallNumber),
    KESTRUN_SMALL(IntegerDivide, 1),
    KESTRUN_SMALL(Modulo, 1),
    KESTRUN_SMALL(JumpUnlessEqual, kLeastSmallNumber),
    KESTRUN_SMALL(JumpUnlessNotEqual, kLeastSmallNumber),
    KESTRUN_SMALL(JumpUnlessLess, kLeastSmallNumber),
    KESTRUN_SMALL(JumpUnlessLessEqual, kLeastSmallNumber),
    KESTRUN_SMALL(JumpUnlessGreater, kLeastSmallNumber),
    KESTRUN_SMALL(JumpUnlessGreaterEqual, kLeastSmallNumber),
    KESTRUN_SMALL(JumpIfEqual, kLeastSmallNumber),
    KESTRUN_SMALL(JumpIfNotEqual, kLeastSmallNumber),
    KESTRUN_SMALL(JumpIfLess, kLeastSmallNumber),
    KESTRUN_SMALL(JumpIfLessEqual, kLeastSmallNumber),
    KESTRUN_SMALL(JumpIfGreater, kLeastSmallNumber),
    KESTRUN_SMALL(JumpIfGreaterEqual, kLeastSmallNumber),
};
#undef KESTRUN_SMALL

}  // namespace

std::unique_ptr<Code> CompileProcedure(const CompileContext& context, const ProcedureTree& procedure) {
  return Compiler(context, &procedure).FinishProcedure();
}

std::unique_ptr<Code> CompileStatements(const CompileContext& context, Block statements) {
  return Compiler(context, nullptr).FinishStatements(statements);
}

std::unique_ptr<Code> CompileEvaluation(const CompileContext& context, const Expression& expression) {
  return Compiler(context, nullptr).FinishEvaluation(expression);
}

Compiler::Compiler(const CompileContext& context, const ProcedureTree* procedure)
    : context_(context), procedure_(procedure), code_(std::make_unique<Code>()) {
  code_->module = &context.module;
  DeclareLocals();
}

std::unique_ptr<Code> Compiler::FinishProcedure() {
  CompileBlock(procedure_->body);
  Mark(procedure_->end_position);
  Emit(Opcode::kReturn);
  EndMark(OpenMark(), Here());
  return Finish();
}

std::unique_ptr<Code> Compiler::FinishStatements(Block statements) {
  CompileBlock(statements);
  Emit(Opcode::kEnd);
  return Finish();
}

std::unique_ptr<Code> Compiler::FinishEvaluation(const Expression& expression) {
  code_->gives_result = true;
  code_->result_register = static_cast<uint32_t>(NewRegister());
  Mark(expression.position);
  IntoFresh(expression, static_cast<int>(code_->result_register));
  Emit(Opcode::kReturn);
  EndMark(OpenMark(), Here());
  return Finish();
}

std::unique_ptr<Code> Compiler::Finish() {
  if (code_->cleared_count == 0) code_->cleared_count = code_->parameter_count;
  for (const auto& [name, local] : locals_) {
    if (!local.is_constant) code_->locals.push_back({name, local.operand});
  }
  // Failures behind the last mark's end resume at the closing instruction.
  const auto last = static_cast<uint32_t>(code_->instructions.size() - 1);
  for (StatementMark& mark : code_->marks) mark.resume = std::min(mark.resume, last);
  code_->CountBytes();
  return std::move(code_);
}

void Code::CountBytes() {
  size_t total = LiveBytes::Block(sizeof(Code)) + LiveBytes::BlockOf(instructions) + LiveBytes::BlockOf(constants) +
                 LiveBytes::BlockOf(sites) + LiveBytes::BlockOf(builtins) + LiveBytes::BlockOf(bounds) +
                 LiveBytes::BlockOf(marks) + LiveBytes::BlockOf(dependencies) + LiveBytes::BlockOf(locals);
  for (const std::vector<int32_t>& list : bounds) total += LiveBytes::BlockOf(list);
  bytes.Set(total);
}

size_t Compiler::Emit(Opcode opcode, int32_t a, int32_t b, int32_t c, uint32_t n) {
  code_->instructions.push_back({opcode, static_cast<uint16_t>(n), a, b, c});
  return Here() - 1;
}

Operand Compiler::AddConstant(Variant value) {
  code_->constants.push_back(std::move(value));
  return MakeOperand(Space::kConstant, static_cast<uint32_t>(code_->constants.size() - 1));
}

Operand Compiler::LiteralOperand(uint32_t literal) {
  const auto [place, added] = literals_.emplace(literal, 0);
  if (added) place->second = AddConstant(context_.module.literals[literal]);
  return place->second;
}

// The form of the instruction that has the right operand's number in itself, if there is one and the number fits.
Opcode Compiler::SmallForm(Opcode opcode, Operand right, uint32_t& n) const {
  if (SpaceOf(right) != Space::kConstant) return opcode;
  const Variant& number = code_->constants[IndexOf(right)];
  const auto row = std::find_if(std::begin(kSmallForms), std::end(kSmallForms),
                                [&](const SmallFormRow& form) { return form.general == opcode; });
  if (row == std::end(kSmallForms) || !number.Is(VarType::kInteger)) return opcode;
  if (number.whole() < row->least || number.whole() > kMostSmallNumber) return opcode;
  n |= static_cast<uint32_t>(number.whole()) << kSideBits;
  return row->small;
}

int32_t Compiler::AddSite(NameId name, Operand object) {
  code_->sites.push_back({name, object});
  return static_cast<int32_t>(code_->sites.size() - 1);
}

void Compiler::EmitJump(Label& label, Opcode opcode, int32_t b, int32_t c, uint32_t n) {
  const size_t at = Emit(opcode, 0, b, c, n);
  if (label.place == SIZE_MAX) {
    label.jumps.push_back(at);
  } else {
    AimJump(at, label.place);
  }
}

// Jumps hold their distance; those that go back also what a turn of their loop costs.
void Compiler::AimJump(size_t jump, size_t target) {
  Instruction& at = code_->instructions[jump];
  at.a = static_cast<int32_t>(static_cast<int64_t>(target) - static_cast<int64_t>(jump));
  const bool turns = at.opcode == Opcode::kLoop || at.opcode == Opcode::kForNext || at.opcode == Opcode::kForNextOne;
  if (turns) at.n = static_cast<uint16_t>(std::min(1 - at.a / kInstructionsPerStep, int32_t{UINT16_MAX}));
}

void Compiler::Place(Label& label) {
  label.place = Here();
  for (const size_t jump : label.jumps) AimJump(jump, label.place);
  label.jumps.clear();
}

void Compiler::Mark(uint32_t position) {
  code_->marks.push_back({static_cast<uint32_t>(Here()), position, UINT32_MAX});
}

void Compiler::EndMark(size_t mark, size_t resume) { code_->marks[mark].resume = static_cast<uint32_t>(resume); }

int Compiler::NewRegister() { return NewRegisters(1); }

int Compiler::NewRegisters(size_t count) {
  constexpr size_t kMostRegisters = 1U << 16;
  const int first = next_register_;
  if (static_cast<size_t>(first) + count > kMostRegisters) Raise(error::kOutOfMemory);
  next_register_ += static_cast<int>(count);
  code_->register_count = std::max(code_->register_count, static_cast<uint32_t>(next_register_));
  return first;
}

// The register may keep an object alive, so that it is emptied when its statement ends.
void Compiler::MarkDirty(int reg) {
  dirty_from_ = std::min(dirty_from_, reg);
  dirty_to_ = std::max(dirty_to_, reg + 1);
}

void Compiler::ClearDirty(int from) {
  const int first = std::max(from, dirty_from_);
  if (first < dirty_to_) Emit(Opcode::kClear, first, 0, 0, static_cast<uint32_t>(dirty_to_ - first));
  dirty_from_ = INT32_MAX;
  dirty_to_ = 0;
}

}  // namespace kestrun::vbs
