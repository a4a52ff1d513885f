// From tree to code. Names become operands or calls by what they mean at this moment; the code lists the global names
// it relied on, so that it can be made anew when one of them changes its meaning.
#pragma once

#include <memory>
#include <span>
#include <unordered_map>
#include <vector>

#include "script/vbscript/compiler/code.h"
#include "script/vbscript/engine/program.h"

namespace kestrun::vbs {

// The surroundings of a piece of code.
struct CompileContext {
  NameTable& names;
  GlobalScope& globals;
  Module& module;
  ClassDefinition* owner = nullptr;  // the class whose members the code sees by name
  // Names of a procedure's variables, for code that is executed inside it; nothing for global code.
  std::span<const NameId> outer = {};
  bool inside_procedure = false;
};

[[nodiscard]] std::unique_ptr<Code> CompileProcedure(const CompileContext& context, const ProcedureTree& procedure);
// Statements that run where they stand: of the global code, or of an executed text. With outer names, register i stands
// for the variable of the i-th.
[[nodiscard]] std::unique_ptr<Code> CompileStatements(const CompileContext& context, Block statements);
[[nodiscard]] std::unique_ptr<Code> CompileEvaluation(const CompileContext& context, const Expression& expression);

// The value of a Const declaration.
[[nodiscard]] Variant ConstantValue(const Module& module, const ConstStatement& constant);

// A function, statement or constant that the language brings along. Any case.
[[nodiscard]] bool IsLibraryName(std::string_view name);

enum class Intrinsic : uint8_t { kErr, kEval, kExecute, kExecuteGlobal, kGetRef };

class Compiler {
 public:
  Compiler(const CompileContext& context, const ProcedureTree* procedure);

  std::unique_ptr<Code> FinishProcedure();
  std::unique_ptr<Code> FinishStatements(Block statements);
  std::unique_ptr<Code> FinishEvaluation(const Expression& expression);

 private:
  enum class MeaningKind : uint8_t {
    kVariable,
    kConstant,
    kProcedure,
    kOwnMember,
    kIntrinsic,
    kBuiltin,
    kClass,
    kUnresolved,
  };
  struct Meaning {
    MeaningKind kind = MeaningKind::kUnresolved;
    Operand operand = 0;
    MemberId member = kNoMember;
    Intrinsic intrinsic = Intrinsic::kErr;
    const Builtin* builtin = nullptr;
    bool is_result = false;  // the name of the function whose code this is
  };
  struct Local {
    Operand operand;
    bool is_constant;
  };
  // Jumps that wait for their target.
  struct Label {
    std::vector<size_t> jumps;
    size_t place = SIZE_MAX;
  };
  struct LoopFrame {
    ExitKind kind;
    Label* end;
  };
  enum class NameUse : uint8_t { kRead, kAssigned, kCalled };
  using ArgumentTrees = std::span<Expression* const>;

  // Names (resolve.cpp).
  void DeclareLocals();
  void DeclareConstant(const ConstStatement& constant);
  void AddLocal(NameId name, Operand operand, bool is_constant = false);
  Meaning Resolve(NameId name, NameUse use);
  Meaning ResolveOwn(NameId name);
  Meaning ResolveGlobal(NameId name);
  Meaning ResolveLibrary(NameId name);
  Meaning ResolveNew(NameId name, NameUse use);
  [[nodiscard]] bool IsAssignedHere(NameId name) const;

  // Instructions (compiler.cpp).
  size_t Emit(Opcode opcode, int32_t a = 0, int32_t b = 0, int32_t c = 0, uint32_t n = 0);
  [[nodiscard]] size_t Here() const { return code_->instructions.size(); }
  Operand AddConstant(Variant value);
  Operand LiteralOperand(uint32_t literal);
  [[nodiscard]] Opcode SmallForm(Opcode opcode, Operand right, uint32_t& n) const;
  int32_t AddSite(NameId name, Operand object);
  void EmitJump(Label& label, Opcode opcode, int32_t b = 0, int32_t c = 0, uint32_t n = 0);
  void AimJump(size_t jump, size_t target);
  void Place(Label& label);
  void Mark(uint32_t position);
  void EndMark(size_t mark, size_t resume);
  [[nodiscard]] size_t OpenMark() const { return code_->marks.size() - 1; }
  int NewRegister();
  int NewRegisters(size_t count);
  void MarkDirty(int reg);
  void ClearDirty(int from);
  static Operand Register(int reg) { return MakeOperand(Space::kRegister, static_cast<uint32_t>(reg)); }
  std::unique_ptr<Code> Finish();

  // Expressions (compile_expression.cpp).
  Operand Value(const Expression& expression);
  void Into(const Expression& expression, Operand target);
  void IntoFresh(const Expression& expression, int reg) { Into(expression, Register(reg)); }
  void BinaryInto(const Expression& expression, Operand target);
  void UnaryInto(const Expression& expression, Operand target);
  void NameInto(const Expression& expression, Operand target);
  void MemberInto(const Expression& expression, Operand target);
  Operand LeftOperand(const Expression& left, const Expression& right, int& borrowed);
  Operand RightOperand(const Expression& right, int borrowed);
  Operand BorrowElement(const Expression& expression, int left_borrowed);
  [[nodiscard]] bool FoldSign(const Expression& expression, Variant& value);
  [[nodiscard]] bool IsSimple(const Expression& expression);
  [[nodiscard]] bool IsElement(const Expression& expression);
  [[nodiscard]] static bool GivesPlainValue(const Expression& expression);
  [[nodiscard]] bool MayRunCode(const Expression& expression);
  void JumpOn(const Expression& condition, bool sense, Label& label);
  bool JumpOnComparison(const Expression& condition, bool sense, Label& label);
  static bool IsLiteral(const Expression& expression);
  // Whether a comparison takes it for a literal: also a signed number and a constant.
  [[nodiscard]] bool CountsAsLiteral(const Expression& expression);
  [[nodiscard]] uint32_t LiteralSides(const Expression& left, const Expression& right);
  // Without the parentheses around it.
  [[nodiscard]] static const Expression& Bare(const Expression& expression);

  // Calls (compile_call.cpp).
  void CallInto(const Expression& callee, ArgumentTrees arguments, Operand target, bool is_statement);
  void NameCallInto(const Expression& callee, ArgumentTrees arguments, Operand target, bool is_statement);
  void IntrinsicInto(Intrinsic intrinsic, ArgumentTrees arguments, Operand target);
  void MemberCallInto(const Expression& callee, ArgumentTrees arguments, Operand target, bool is_statement);
  void IndexInto(Operand object, ArgumentTrees arguments, Operand target);
  void BuiltinInto(const Builtin& builtin, ArgumentTrees arguments, Operand target);
  void EmitCall(Opcode opcode, int32_t called, int base, size_t count, Operand target);
  int ArgumentList(ArgumentTrees arguments, bool by_reference);
  void ArgumentInto(const Expression& argument, int reg, int pin);
  bool ReferenceInto(const Expression& argument, int reg, int pin);
  [[nodiscard]] bool CanPassElement(const Expression& argument);
  void EmitRaise(int number);
  // The object of the innermost With; outside of any, error 505 when it is used.
  Operand WithObject();

  // Statements (compile_statement.cpp, compile_loop.cpp).
  void CompileBlock(Block block);
  void CompileStatement(const Statement& statement);
  void CompileSimple(const Statement& statement);
  void CompileAssign(const AssignStatement& statement);
  void CompileSet(const AssignStatement& statement);
  void AssignName(const Expression& target, const Expression& value);
  bool AppendTo(const Expression& target, Operand operand, const Expression& value);
  bool AddElementTo(const Expression& target, Operand operand, const Expression& value);
  void AssignVariable(Operand operand, const Expression& value);
  void StoreElement(const Expression& target, const Expression& value, bool set);
  void StoreMember(const Expression& member, ArgumentTrees arguments, const Expression& value, bool set);
  void StoreOwn(MemberId member, ArgumentTrees arguments, const Expression& value, bool set);
  void StoreOperand(const Expression& target, Operand value);
  Operand ValueToMove(const Expression& value, bool& fresh);
  Operand ElementPlace(const Expression& expression);
  Operand LeftCopy(const Expression& left, const Expression& right);
  void SetName(const Expression& target, const Expression& value);
  void CompileDim(const DimStatement& statement);
  void CompileReDim(const ReDimStatement& statement);
  void CompileErase(const EraseStatement& statement);
  void CompileIf(const IfStatement& statement);
  void CompileSelect(const SelectStatement& statement);
  void CompileCase(const CaseBranch& branch, const Expression& subject_tree, int subject, Label& body, Label& next);
  void CompileFor(const ForStatement& statement);
  void CompileForEach(const ForEachStatement& statement);
  void CompileDo(const DoStatement& statement);
  void CompileWith(const WithStatement& statement);
  void CompileExit(const ExitStatement& statement);
  Operand LoopVariable(const Expression& variable);

  CompileContext context_;
  const ProcedureTree* procedure_;
  std::unique_ptr<Code> code_;
  std::unordered_map<NameId, Local> locals_;
  std::unordered_map<uint32_t, Operand> literals_;
  std::vector<LoopFrame> loops_;
  std::vector<Operand> withs_;
  bool locals_complete_ = false;
  int next_register_ = 0;
  int dirty_from_ = INT32_MAX;
  int dirty_to_ = 0;
};

}  // namespace kestrun::vbs
