#include "script/vbscript/compiler/compiler.h"
#include "script/vbscript/runtime/errors.h"

namespace kestrun::vbs {
namespace {

bool IsCompound(StatementKind kind) {
  switch (kind) {
    case StatementKind::kIf:
    case StatementKind::kSelect:
    case StatementKind::kFor:
    case StatementKind::kForEach:
    case StatementKind::kDo:
    case StatementKind::kWith: return true;
    default: return false;
  }
}

}  // namespace

void Compiler::CompileBlock(Block block) {
  for (const Statement* statement : block) CompileStatement(*statement);
}

// A compound statement marks its own parts; every other one is one mark that resumes behind itself.
void Compiler::CompileStatement(const Statement& statement) {
  const int saved = next_register_;
  if (IsCompound(statement.kind)) {
    switch (statement.kind) {
      case StatementKind::kIf: CompileIf(static_cast<const IfStatement&>(statement)); break;
      case StatementKind::kSelect: CompileSelect(static_cast<const SelectStatement&>(statement)); break;
      case StatementKind::kFor: CompileFor(static_cast<const ForStatement&>(statement)); break;
      case StatementKind::kForEach: CompileForEach(static_cast<const ForEachStatement&>(statement)); break;
      case StatementKind::kDo: CompileDo(static_cast<const DoStatement&>(statement)); break;
      default: CompileWith(static_cast<const WithStatement&>(statement));
    }
  } else {
    Mark(statement.position);
    const size_t mark = OpenMark();
    CompileSimple(statement);
    ClearDirty(saved);
    EndMark(mark, Here());
  }
  next_register_ = saved;
}

void Compiler::CompileSimple(const Statement& statement) {
  switch (statement.kind) {
    case StatementKind::kAssign: return CompileAssign(static_cast<const AssignStatement&>(statement));
    case StatementKind::kSet: return CompileSet(static_cast<const AssignStatement&>(statement));
    case StatementKind::kCall: {
      const auto& call = static_cast<const CallStatement&>(statement);
      return CallInto(*call.callee, call.arguments, kNoResult, true);
    }
    case StatementKind::kDim: return CompileDim(static_cast<const DimStatement&>(statement));
    case StatementKind::kReDim: return CompileReDim(static_cast<const ReDimStatement&>(statement));
    case StatementKind::kErase: return CompileErase(static_cast<const EraseStatement&>(statement));
    case StatementKind::kExit: return CompileExit(static_cast<const ExitStatement&>(statement));
    case StatementKind::kOnError:
      Emit(Opcode::kOnError, 0, 0, 0, static_cast<const OnErrorStatement&>(statement).resume_next ? 1 : 0);
      return;
    default: return;  // Const has its meaning from the start; Stop waits for a debugger that is never there
  }
}

void Compiler::CompileAssign(const AssignStatement& statement) {
  const Expression& target = *statement.target;
  switch (target.kind) {
    case ExpressionKind::kName: return AssignName(target, *statement.value);
    case ExpressionKind::kMember: return StoreMember(target, {}, *statement.value, false);
    default: return StoreElement(target, *statement.value, false);
  }
}

void Compiler::AssignName(const Expression& target, const Expression& value) {
  const Meaning meaning = Resolve(target.name, NameUse::kAssigned);
  switch (meaning.kind) {
    case MeaningKind::kVariable:
      if (AppendTo(target, meaning.operand, value) || AddElementTo(target, meaning.operand, value)) return;
      AssignVariable(meaning.operand, value);
      return;
    case MeaningKind::kOwnMember: return StoreOwn(meaning.member, {}, value, false);
    case MeaningKind::kUnresolved: Emit(Opcode::kStoreName, 0, Value(value), static_cast<int32_t>(target.name)); return;
    default: EmitRaise(error::kIllegalAssignment);
  }
}

// s = s & a & b grows the text in place, so that building one piece by piece costs what its length does.
bool Compiler::AppendTo(const Expression& target, Operand operand, const Expression& value) {
  std::vector<const Expression*> parts;
  const Expression* at = &value;
  for (; at->kind == ExpressionKind::kBinary && at->operation == Operator::kConcatenate; at = at->left) {
    parts.push_back(at->right);
  }
  if (parts.empty() || at->kind != ExpressionKind::kName || at->name != target.name) return false;
  const int first = NewRegisters(parts.size());
  for (size_t part = 0; part < parts.size(); ++part) {
    const int saved = next_register_;
    IntoFresh(*parts[parts.size() - 1 - part], first + static_cast<int>(part));
    next_register_ = saved;
  }
  Emit(Opcode::kAppend, operand, first, 0, static_cast<uint32_t>(parts.size()));
  return true;
}

// s = s + a(i), which sums an array up.
bool Compiler::AddElementTo(const Expression& target, Operand operand, const Expression& value) {
  if (value.kind != ExpressionKind::kBinary || value.operation != Operator::kAdd) return false;
  if (value.left->kind != ExpressionKind::kName || value.left->name != target.name) return false;
  if (!IsElement(*value.right) || !IsSimple(*value.right->arguments[0])) return false;
  const Operand array = Resolve(value.right->left->name, NameUse::kCalled).operand;
  Emit(Opcode::kAddElement, operand, array, Value(*value.right->arguments[0]));
  return true;
}

void Compiler::AssignVariable(Operand operand, const Expression& value) {
  const bool computes = value.kind == ExpressionKind::kBinary || value.kind == ExpressionKind::kUnary;
  if (computes) return Into(value, operand);
  if (IsElement(value)) {
    Emit(Opcode::kLet, operand, BorrowElement(value, -1));
    return;
  }
  bool fresh = false;
  const Operand source = ValueToMove(value, fresh);
  Emit(fresh ? Opcode::kLetTemporary : Opcode::kLet, operand, source);
}

// A value that was made for this one use is moved, so that its register need not be emptied.
Operand Compiler::ValueToMove(const Expression& value, bool& fresh) {
  const int saved = next_register_;
  const int from = dirty_from_;
  const int to = dirty_to_;
  const Operand source = Value(value);
  const int reg = static_cast<int>(IndexOf(source));
  fresh = SpaceOf(source) == Space::kRegister && reg >= saved;
  const bool only_this = dirty_from_ == reg && dirty_to_ == reg + 1;
  if (fresh && only_this && from > to) {
    dirty_from_ = from;
    dirty_to_ = to;
  }
  return source;
}

void Compiler::CompileSet(const AssignStatement& statement) {
  const Expression& target = *statement.target;
  switch (target.kind) {
    case ExpressionKind::kName: return SetName(target, *statement.value);
    case ExpressionKind::kMember: return StoreMember(target, {}, *statement.value, true);
    default: return StoreElement(target, *statement.value, true);
  }
}

void Compiler::SetName(const Expression& target, const Expression& value) {
  const Meaning meaning = Resolve(target.name, NameUse::kAssigned);
  switch (meaning.kind) {
    case MeaningKind::kVariable: {
      bool fresh = false;
      const Operand source = ValueToMove(value, fresh);
      Emit(Opcode::kSet, meaning.operand, source, 0, fresh ? 1 : 0);
      return;
    }
    case MeaningKind::kOwnMember: return StoreOwn(meaning.member, {}, value, true);
    case MeaningKind::kUnresolved: Emit(Opcode::kSetName, 0, Value(value), static_cast<int32_t>(target.name)); return;
    default: EmitRaise(error::kIllegalAssignment);
  }
}

// target(arguments) = value
void Compiler::StoreElement(const Expression& target, const Expression& value, bool set) {
  if (target.left->kind == ExpressionKind::kMember) return StoreMember(*target.left, target.arguments, value, set);
  Operand object = 0;
  if (target.left->kind == ExpressionKind::kName) {
    const Meaning meaning = Resolve(target.left->name, NameUse::kAssigned);
    if (meaning.kind == MeaningKind::kOwnMember) return StoreOwn(meaning.member, target.arguments, value, set);
    const bool holds = meaning.kind == MeaningKind::kVariable || meaning.kind == MeaningKind::kConstant;
    object = holds ? meaning.operand : Value(*target.left);
  } else {
    object = ElementPlace(*target.left);
  }
  if (target.arguments.size() == 1 && target.arguments[0]->kind != ExpressionKind::kMissing) {
    const Operand index = LeftCopy(*target.arguments[0], value);
    Emit(set ? Opcode::kSetIndex : Opcode::kStoreIndex, object, Value(value), index);
    return;
  }
  const int base = ArgumentList(target.arguments, false);
  const Operand stored = Value(value);
  Emit(set ? Opcode::kSetIndexMany : Opcode::kStoreIndexMany, object, stored, base,
       static_cast<uint32_t>(target.arguments.size()));
}

// Where an array inside an array stands, so that it can be changed there: a(i)(j) = x.
Operand Compiler::ElementPlace(const Expression& expression) {
  if (!CanPassElement(expression)) return Value(expression);
  const int pin = NewRegister();
  const int place = NewRegister();
  ReferenceInto(expression, place, pin);
  return MakeOperand(Space::kIndirect, static_cast<uint32_t>(place));
}

// The value of an operand that is read before another expression runs.
Operand Compiler::LeftCopy(const Expression& left, const Expression& right) {
  int borrowed = -1;
  if (IsSimple(left)) return LeftOperand(left, right, borrowed);
  return Value(left);
}

void Compiler::StoreMember(const Expression& member, ArgumentTrees arguments, const Expression& value, bool set) {
  const Operand object = member.left ? Value(*member.left) : WithObject();
  const int base = ArgumentList(arguments, true);
  IntoFresh(value, NewRegister());
  Emit(set ? Opcode::kSetMember : Opcode::kPutMember, 0, base, AddSite(member.name, object),
       static_cast<uint32_t>(arguments.size()));
}

void Compiler::StoreOwn(MemberId member, ArgumentTrees arguments, const Expression& value, bool set) {
  const int base = NewRegisters(arguments.size() + 1);
  for (size_t at = 0; at < arguments.size(); ++at) ArgumentInto(*arguments[at], base + static_cast<int>(at), -1);
  ArgumentInto(value, base + static_cast<int>(arguments.size()), -1);
  Emit(set ? Opcode::kSetOwn : Opcode::kPutOwn, 0, base, member, static_cast<uint32_t>(arguments.size() + 1));
}

// Stores a value that stands in a register back to where an expression took it from.
void Compiler::StoreOperand(const Expression& target, Operand value) {
  if (target.kind == ExpressionKind::kMember) {
    const Operand object = target.left ? Value(*target.left) : WithObject();
    const int base = NewRegister();
    Emit(Opcode::kMove, Register(base), value);
    Emit(Opcode::kPutMember, 0, base, AddSite(target.name, object));
  } else if (target.kind == ExpressionKind::kCall) {
    const Operand object = Value(*target.left);
    const int base = ArgumentList(target.arguments, false);
    Emit(Opcode::kStoreIndexMany, object, value, base, static_cast<uint32_t>(target.arguments.size()));
  } else {
    EmitRaise(error::kTypeMismatch);
  }
}

void Compiler::CompileDim(const DimStatement& statement) {
  for (const DeclaredVariable& variable : statement.variables) {
    if (!variable.is_array) continue;
    const Meaning meaning = Resolve(variable.name, NameUse::kAssigned);
    if (meaning.kind != MeaningKind::kVariable) continue;
    code_->bounds.emplace_back(variable.bounds.begin(), variable.bounds.end());
    Emit(Opcode::kDimArray, meaning.operand, 0, static_cast<int32_t>(code_->bounds.size() - 1));
  }
}

void Compiler::CompileReDim(const ReDimStatement& statement) {
  const int base = ArgumentList(statement.bounds, false);
  const auto count = static_cast<uint32_t>(statement.bounds.size());
  if (statement.target->kind == ExpressionKind::kName) {
    const Meaning meaning = Resolve(statement.target->name, NameUse::kAssigned);
    if (meaning.kind == MeaningKind::kVariable) {
      Emit(Opcode::kReDim, meaning.operand, base, statement.preserve ? 1 : 0, count);
    } else {
      EmitRaise(meaning.kind == MeaningKind::kUnresolved ? error::kUndefinedVariable : error::kIllegalAssignment);
    }
    return;
  }
  const int copy = NewRegister();
  IntoFresh(*statement.target, copy);
  Emit(Opcode::kReDim, Register(copy), base, statement.preserve ? 1 : 0, count);
  StoreOperand(*statement.target, Register(copy));
}

void Compiler::CompileErase(const EraseStatement& statement) {
  if (statement.target->kind == ExpressionKind::kName) {
    const Meaning meaning = Resolve(statement.target->name, NameUse::kAssigned);
    if (meaning.kind == MeaningKind::kVariable) {
      Emit(Opcode::kErase, meaning.operand);
    } else {
      EmitRaise(meaning.kind == MeaningKind::kUnresolved ? error::kUndefinedVariable : error::kTypeMismatch);
    }
    return;
  }
  const int copy = NewRegister();
  IntoFresh(*statement.target, copy);
  Emit(Opcode::kErase, Register(copy));
  StoreOperand(*statement.target, Register(copy));
}

}  // namespace kestrun::vbs
