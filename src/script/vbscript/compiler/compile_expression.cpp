#include <array>

#include "script/vbscript/compiler/compiler.h"
#include "script/vbscript/runtime/operators.h"

namespace kestrun::vbs {
namespace {

struct OperatorRow {
  Operator operation;
  Opcode compute;
  Opcode jump_if;  // comparisons only
  Opcode jump_unless;
};

constexpr OperatorRow kOperators[] = {
    {Operator::kImp, Opcode::kImp, {}, {}},
    {Operator::kEqv, Opcode::kEqv, {}, {}},
    {Operator::kXor, Opcode::kXor, {}, {}},
    {Operator::kOr, Opcode::kOr, {}, {}},
    {Operator::kAnd, Opcode::kAnd, {}, {}},
    {Operator::kNot, Opcode::kNot, {}, {}},
    {Operator::kEqual, Opcode::kEqual, Opcode::kJumpIfEqual, Opcode::kJumpUnlessEqual},
    {Operator::kNotEqual, Opcode::kNotEqual, Opcode::kJumpIfNotEqual, Opcode::kJumpUnlessNotEqual},
    {Operator::kLess, Opcode::kLess, Opcode::kJumpIfLess, Opcode::kJumpUnlessLess},
    {Operator::kLessEqual, Opcode::kLessEqual, Opcode::kJumpIfLessEqual, Opcode::kJumpUnlessLessEqual},
    {Operator::kGreater, Opcode::kGreater, Opcode::kJumpIfGreater, Opcode::kJumpUnlessGreater},
    {Operator::kGreaterEqual, Opcode::kGreaterEqual, Opcode::kJumpIfGreaterEqual, Opcode::kJumpUnlessGreaterEqual},
    {Operator::kIs, Opcode::kIs, {}, {}},
    {Operator::kConcatenate, Opcode::kConcatenate, {}, {}},
    {Operator::kAdd, Opcode::kAdd, {}, {}},
    {Operator::kSubtract, Opcode::kSubtract, {}, {}},
    {Operator::kModulo, Opcode::kModulo, {}, {}},
    {Operator::kIntegerDivide, Opcode::kIntegerDivide, {}, {}},
    {Operator::kMultiply, Opcode::kMultiply, {}, {}},
    {Operator::kDivide, Opcode::kDivide, {}, {}},
    {Operator::kNegate, Opcode::kNegate, {}, {}},
    {Operator::kPlus, Opcode::kPlus, {}, {}},
    {Operator::kPower, Opcode::kPower, {}, {}},
};

const OperatorRow& RowOf(Operator operation) { return kOperators[static_cast<size_t>(operation)]; }

bool IsComparison(Operator operation) { return operation >= Operator::kEqual && operation <= Operator::kGreaterEqual; }

}  // namespace

const Expression& Compiler::Bare(const Expression& expression) {
  const Expression* bare = &expression;
  while (bare->kind == ExpressionKind::kParentheses) bare = bare->left;
  return *bare;
}

bool Compiler::IsLiteral(const Expression& expression) { return Bare(expression).kind == ExpressionKind::kLiteral; }

bool Compiler::CountsAsLiteral(const Expression& expression) {
  const Expression& bare = Bare(expression);
  if (bare.kind == ExpressionKind::kLiteral) return true;
  Variant folded;
  if (bare.kind == ExpressionKind::kUnary) return FoldSign(bare, folded);
  if (bare.kind != ExpressionKind::kName) return false;
  const Meaning meaning = Resolve(bare.name, NameUse::kRead);
  if (meaning.kind != MeaningKind::kConstant) return false;
  return SpaceOf(meaning.operand) == Space::kConstant ||
         context_.globals.Entry(bare.name).kind == GlobalKind::kConstant;
}

uint32_t Compiler::LiteralSides(const Expression& left, const Expression& right) {
  return (CountsAsLiteral(left) ? kLeftIsLiteral : 0) | (CountsAsLiteral(right) ? kRightIsLiteral : 0);
}

// A sign before a number is part of the number.
bool Compiler::FoldSign(const Expression& expression, Variant& value) {
  if (expression.operation != Operator::kNegate || expression.left->kind != ExpressionKind::kLiteral) return false;
  const Variant& literal = context_.module.literals[expression.left->literal];
  const bool number = literal.Is(VarType::kInteger) || literal.Is(VarType::kLong) || literal.Is(VarType::kDouble);
  if (!number || (!literal.Is(VarType::kDouble) && literal.whole() < 0)) return false;
  value = Negate(literal);
  return true;
}

// Where the value can be read: a variable's own place, or a register that was filled with it.
Operand Compiler::Value(const Expression& expression) {
  const Expression& bare = Bare(expression);
  if (bare.kind == ExpressionKind::kLiteral) return LiteralOperand(bare.literal);
  if (bare.kind == ExpressionKind::kName) {
    const Meaning meaning = Resolve(bare.name, NameUse::kRead);
    if (meaning.kind == MeaningKind::kVariable || meaning.kind == MeaningKind::kConstant) return meaning.operand;
  }
  Variant folded;
  if (bare.kind == ExpressionKind::kUnary && FoldSign(bare, folded)) return AddConstant(std::move(folded));
  const Operand place = Register(NewRegister());
  Into(bare, place);
  return place;
}

void Compiler::Into(const Expression& expression, Operand target) {
  switch (expression.kind) {
    case ExpressionKind::kLiteral: Emit(Opcode::kMove, target, LiteralOperand(expression.literal)); break;
    case ExpressionKind::kName: NameInto(expression, target); break;
    case ExpressionKind::kMember: MemberInto(expression, target); break;
    case ExpressionKind::kCall: CallInto(*expression.left, expression.arguments, target, false); break;
    case ExpressionKind::kUnary: UnaryInto(expression, target); break;
    case ExpressionKind::kBinary: BinaryInto(expression, target); break;
    case ExpressionKind::kParentheses: Into(*expression.left, target); break;
    case ExpressionKind::kNew:
      Emit(Opcode::kNew, target, 0, static_cast<int32_t>(expression.name));
      MarkDirty(static_cast<int>(IndexOf(target)));
      break;
    case ExpressionKind::kMe:
      Emit(Opcode::kLoadMe, target);
      MarkDirty(static_cast<int>(IndexOf(target)));
      break;
    case ExpressionKind::kMissing: Emit(Opcode::kMove, target, AddConstant(Variant::Missing())); break;
  }
}

void Compiler::NameInto(const Expression& expression, Operand target) {
  const Meaning meaning = Resolve(expression.name, NameUse::kRead);
  switch (meaning.kind) {
    case MeaningKind::kVariable:
    case MeaningKind::kConstant:
      Emit(Opcode::kMove, target, meaning.operand);
      MarkDirty(static_cast<int>(IndexOf(target)));
      break;
    case MeaningKind::kUnresolved:
      Emit(Opcode::kLoadName, target, 0, static_cast<int32_t>(expression.name));
      MarkDirty(static_cast<int>(IndexOf(target)));
      break;
    default: CallInto(expression, {}, target, false);
  }
}

void Compiler::MemberInto(const Expression& expression, Operand target) {
  MemberCallInto(expression, {}, target, false);
}

void Compiler::UnaryInto(const Expression& expression, Operand target) {
  Variant folded;
  if (FoldSign(expression, folded)) {
    Emit(Opcode::kMove, target, AddConstant(std::move(folded)));
    return;
  }
  const int saved = next_register_;
  const Operand operand = IsElement(*expression.left) ? BorrowElement(*expression.left, -1) : Value(*expression.left);
  Emit(RowOf(expression.operation).compute, target, operand);
  next_register_ = saved;
}

// A literal or a variable: reading it runs nothing.
bool Compiler::IsSimple(const Expression& expression) {
  const Expression& bare = Bare(expression);
  if (bare.kind == ExpressionKind::kLiteral) return true;
  if (bare.kind != ExpressionKind::kName) return false;
  const Meaning meaning = Resolve(bare.name, NameUse::kRead);
  return meaning.kind == MeaningKind::kVariable || meaning.kind == MeaningKind::kConstant;
}

// `name(index)` of a variable.
bool Compiler::IsElement(const Expression& expression) {
  if (expression.kind != ExpressionKind::kCall || expression.arguments.size() != 1) return false;
  if (expression.arguments[0]->kind == ExpressionKind::kMissing) return false;
  if (expression.left->kind != ExpressionKind::kName) return false;
  return Resolve(expression.left->name, NameUse::kCalled).kind == MeaningKind::kVariable;
}

// A number, a truth value or Null: nothing that has to be let go.
bool Compiler::GivesPlainValue(const Expression& expression) {
  const Expression& bare = Bare(expression);
  if (bare.kind == ExpressionKind::kUnary) return bare.operation != Operator::kPlus;
  if (bare.kind != ExpressionKind::kBinary) return false;
  return bare.operation != Operator::kAdd && bare.operation != Operator::kConcatenate;
}

// False only when evaluating it can run no code of a script or of a host.
bool Compiler::MayRunCode(const Expression& expression) {
  for (const Expression* at = &expression; at; at = at->left) {
    switch (at->kind) {
      case ExpressionKind::kLiteral:
      case ExpressionKind::kMissing:
      case ExpressionKind::kMe: return false;
      case ExpressionKind::kName: return !IsSimple(*at);
      case ExpressionKind::kBinary:
        if (MayRunCode(*at->right)) return true;
        break;
      case ExpressionKind::kUnary:
      case ExpressionKind::kParentheses: break;
      case ExpressionKind::kCall: return !IsElement(*at) || MayRunCode(*at->arguments[0]);
      default: return true;
    }
  }
  return false;
}

// An element of an array without a copy of it. Only the very next instruction may use it: the array could be gone
// later.
Operand Compiler::BorrowElement(const Expression& expression, int left_borrowed) {
  const Operand array = Resolve(expression.left->name, NameUse::kCalled).operand;
  const int place = NewRegister();
  const Operand index = Value(*expression.arguments[0]);
  Emit(Opcode::kBorrow, place, array, index, static_cast<uint32_t>(left_borrowed + 1));
  return MakeOperand(Space::kIndirect, static_cast<uint32_t>(place));
}

Operand Compiler::LeftOperand(const Expression& left, const Expression& right, int& borrowed) {
  const bool right_is_quiet = IsSimple(right) || (IsElement(right) && IsSimple(*right.arguments[0]));
  if (right_is_quiet && IsElement(left)) {
    const Operand operand = BorrowElement(left, -1);
    borrowed = static_cast<int>(IndexOf(operand));
    return operand;
  }
  if (!IsLiteral(left) && IsSimple(left) && MayRunCode(right)) {
    const int copy = NewRegister();
    IntoFresh(left, copy);
    return Register(copy);
  }
  return Value(left);
}

Operand Compiler::RightOperand(const Expression& right, int borrowed) {
  return IsElement(right) ? BorrowElement(right, borrowed) : Value(right);
}

// A chain such as a & b & c leans to the left and can be long, so it is walked, not recursed into.
void Compiler::BinaryInto(const Expression& expression, Operand target) {
  std::vector<const Expression*> chain;
  const Expression* at = &expression;
  for (; at->kind == ExpressionKind::kBinary; at = at->left) chain.push_back(at);
  const int saved = next_register_;
  const Operand between = chain.size() > 1 ? Register(NewRegister()) : target;
  Operand left = 0;
  for (size_t step = chain.size(); step-- > 0;) {
    const Expression& node = *chain[step];
    const int step_saved = next_register_;
    int borrowed = -1;
    if (step + 1 == chain.size()) left = LeftOperand(*node.left, *node.right, borrowed);
    const Operand right = RightOperand(*node.right, borrowed);
    uint32_t sides = IsComparison(node.operation) ? LiteralSides(*node.left, *node.right) : 0;
    const Opcode compute = SmallForm(RowOf(node.operation).compute, right, sides);
    Emit(compute, step == 0 ? target : between, left, right, sides);
    left = between;
    next_register_ = step_saved;
  }
  next_register_ = saved;
}

bool Compiler::JumpOnComparison(const Expression& condition, bool sense, Label& label) {
  if (condition.kind != ExpressionKind::kBinary || !IsComparison(condition.operation)) return false;
  const int saved = next_register_;
  int borrowed = -1;
  const Operand left = LeftOperand(*condition.left, *condition.right, borrowed);
  const Operand right = RightOperand(*condition.right, borrowed);
  const OperatorRow& row = RowOf(condition.operation);
  uint32_t sides = LiteralSides(*condition.left, *condition.right);
  const Opcode jump = SmallForm(sense ? row.jump_if : row.jump_unless, right, sides);
  EmitJump(label, jump, left, right, sides);
  next_register_ = saved;
  return true;
}

void Compiler::JumpOn(const Expression& condition, bool sense, Label& label) {
  const Expression& bare = Bare(condition);
  if (JumpOnComparison(bare, sense, label)) return;
  const int saved = next_register_;
  EmitJump(label, sense ? Opcode::kJumpTrue : Opcode::kJumpFalse, Value(bare));
  next_register_ = saved;
}

}  // namespace kestrun::vbs
