// If, Select Case, loops and With.
#include "script/vbscript/compiler/compiler.h"

namespace kestrun::vbs {

// A failing condition resumes at the first statement of its branch.
void Compiler::CompileIf(const IfStatement& statement) {
  Label end;
  for (const IfBranch& branch : statement.branches) {
    Label next;
    if (branch.condition) {
      Mark(branch.position);
      const size_t mark = OpenMark();
      const int saved = next_register_;
      JumpOn(*branch.condition, false, next);
      EndMark(mark, Here());
      next_register_ = saved;
    }
    CompileBlock(branch.body);
    if (&branch != &statement.branches.back()) EmitJump(end, Opcode::kJump);
    Place(next);
  }
  Place(end);
  Mark(statement.position);
  const size_t mark = OpenMark();
  ClearDirty(next_register_);
  EndMark(mark, Here());
}

// A failure in the subject resumes behind the whole statement, one in a value in the branch of that value.
void Compiler::CompileSelect(const SelectStatement& statement) {
  const int subject = NewRegister();
  Mark(statement.position);
  const size_t head = OpenMark();
  Into(*statement.subject, Register(subject));
  const bool plain = GivesPlainValue(*statement.subject);
  if (!plain) Emit(Opcode::kLetTemporary, Register(subject), Register(subject));
  Label end;
  for (const CaseBranch& branch : statement.branches) {
    Label body;
    Label next;
    if (!branch.values.empty()) {
      Mark(statement.position);
      const size_t mark = OpenMark();
      CompileCase(branch, *statement.subject, subject, body, next);
      EndMark(mark, Here());
    }
    Place(body);
    CompileBlock(branch.body);
    EmitJump(end, Opcode::kJump);
    Place(next);
  }
  Place(end);
  EndMark(head, Here());
  Mark(statement.position);
  const size_t mark = OpenMark();
  if (!plain) MarkDirty(subject);
  ClearDirty(subject);
  EndMark(mark, Here());
}

void Compiler::CompileCase(const CaseBranch& branch, const Expression& subject_tree, int subject, Label& body,
                           Label& next) {
  for (const Expression* value : branch.values) {
    const int saved = next_register_;
    const bool last = value == branch.values.back();
    const Operand operand = Value(*value);
    uint32_t sides = LiteralSides(subject_tree, *value) | kCaseComparison;
    const Opcode jump = SmallForm(last ? Opcode::kJumpUnlessEqual : Opcode::kJumpIfEqual, operand, sides);
    EmitJump(last ? next : body, jump, Register(subject), operand, sides);
    next_register_ = saved;
  }
}

Operand Compiler::LoopVariable(const Expression& variable) {
  const Meaning meaning = Resolve(variable.name, NameUse::kAssigned);
  if (meaning.kind == MeaningKind::kVariable) return meaning.operand;
  EmitRaise(meaning.kind == MeaningKind::kUnresolved ? 500 : 501);
  return Register(NewRegister());
}

// Registers of the state: first value, last value, step. A failure in the head leaves them Empty and resumes in the
// body, which then runs once: the Next raises error 92 and leaves the loop.
void Compiler::CompileFor(const ForStatement& statement) {
  const int state = NewRegisters(3);
  Label end;
  Label body;
  Mark(statement.position);
  size_t mark = OpenMark();
  Emit(Opcode::kClear, state, 0, 0, 3);
  const Operand variable = LoopVariable(*statement.variable);
  const int saved = next_register_;
  IntoFresh(*statement.first, state);
  next_register_ = saved;
  const int last = NewRegisters(2);
  IntoFresh(*statement.last, last);
  if (statement.step) {
    IntoFresh(*statement.step, last + 1);
  } else {
    Emit(Opcode::kMove, Register(last + 1), AddConstant(int16_t{1}));
  }
  EmitJump(end, Opcode::kForBegin, variable, state, static_cast<uint32_t>(last - state));
  ClearDirty(state + 3);
  EndMark(mark, Here());
  next_register_ = saved;
  Place(body);
  loops_.push_back({ExitKind::kFor, &end});
  CompileBlock(statement.body);
  loops_.pop_back();
  Mark(statement.next_position);
  mark = OpenMark();
  EmitJump(body, statement.step ? Opcode::kForNext : Opcode::kForNextOne, variable, state);
  Place(end);
  EndMark(mark, Here());
}

// As with For; the Next of a loop whose head has failed raises error 451.
void Compiler::CompileForEach(const ForEachStatement& statement) {
  const int state = NewRegister();
  Label end;
  Label body;
  Label next;
  Mark(statement.position);
  size_t mark = OpenMark();
  Emit(Opcode::kClear, state, 0, 0, 1);
  const Operand variable = LoopVariable(*statement.variable);
  const int saved = next_register_;
  const Operand collection = Value(*statement.collection);
  Emit(Opcode::kEachBegin, 0, collection, state);
  ClearDirty(state + 1);
  EmitJump(next, Opcode::kJump);
  EndMark(mark, Here());
  next_register_ = saved;
  Place(body);
  loops_.push_back({ExitKind::kFor, &end});
  CompileBlock(statement.body);
  loops_.pop_back();
  Place(next);
  Mark(statement.next_position);
  mark = OpenMark();
  EmitJump(body, Opcode::kEachNext, variable, state);
  Place(end);
  EndMark(mark, Here());
  Emit(Opcode::kClear, state, 0, 0, 1);
}

// A condition at the end that fails leaves the loop. One at the head that fails lets the body run, but only so often:
// what follows the loop counts that.
void Compiler::CompileDo(const DoStatement& statement) {
  Label start;
  Label end;
  Label body;
  const bool before = statement.test == LoopTest::kWhileBefore || statement.test == LoopTest::kUntilBefore;
  const bool while_test = statement.test == LoopTest::kWhileBefore || statement.test == LoopTest::kWhileAfter;
  const auto test = [&](uint32_t position) {
    Mark(position);
    const int saved = next_register_;
    JumpOn(*statement.condition, !while_test, end);
    next_register_ = saved;
    return OpenMark();
  };
  const int failures = before ? NewRegister() : 0;
  if (before) Emit(Opcode::kClear, failures, 0, 0, 1);
  Place(start);
  size_t condition = SIZE_MAX;
  if (before) condition = test(statement.position);
  Place(body);
  if (!statement.is_while) loops_.push_back({ExitKind::kDo, &end});
  CompileBlock(statement.body);
  if (!statement.is_while) loops_.pop_back();
  if (!before && statement.condition) condition = test(statement.loop_position);
  Mark(statement.loop_position);
  const size_t mark = OpenMark();
  ClearDirty(next_register_);
  EmitJump(start, Opcode::kLoop);
  EndMark(mark, Here());
  if (condition != SIZE_MAX) EndMark(condition, Here());
  if (before) EmitJump(body, Opcode::kCountFailure, Register(failures));
  Place(end);
}

// A failure leaves the register Empty: the members that the body names then raise error 424.
void Compiler::CompileWith(const WithStatement& statement) {
  const int object = NewRegister();
  const int value = NewRegister();
  Mark(statement.position);
  const size_t mark = OpenMark();
  Emit(Opcode::kClear, object, 0, 0, 1);
  IntoFresh(*statement.object, value);
  Emit(Opcode::kSet, Register(object), Register(value), 0, 1);  // error 424 for what is no object
  MarkDirty(value);
  ClearDirty(value);
  EndMark(mark, Here());
  withs_.push_back(Register(object));
  CompileBlock(statement.body);
  withs_.pop_back();
  Emit(Opcode::kClear, object, 0, 0, 1);
}

void Compiler::CompileExit(const ExitStatement& statement) {
  if (statement.what == ExitKind::kProcedure) {
    Emit(Opcode::kReturn);
    return;
  }
  for (size_t at = loops_.size(); at-- > 0;) {
    if (loops_[at].kind == statement.what) return EmitJump(*loops_[at].end, Opcode::kJump);
  }
}

}  // namespace kestrun::vbs
