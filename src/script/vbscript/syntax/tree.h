// A module as the parser leaves it. Nodes live in the module's arena; names are numbers of the engine's NameTable.
#pragma once

#include <cstdint>
#include <memory>
#include <span>
#include <string>
#include <vector>

#include "base/variant.h"
#include "script/vbscript/lexer/names.h"
#include "script/vbscript/source/source_text.h"
#include "script/vbscript/syntax/arena.h"

namespace kestrun::vbs {

enum class ExpressionKind : uint8_t {
  kLiteral,
  kName,
  kMember,  // left.name; no left: the object of the With around
  kCall,    // left(arguments): a call, an index or a default member
  kUnary,
  kBinary,
  kParentheses,  // (left): a value, so never by reference
  kNew,
  kMe,
  kMissing,  // an argument that was left out
};

enum class Operator : uint8_t {
  kImp,
  kEqv,
  kXor,
  kOr,
  kAnd,
  kNot,
  kEqual,
  kNotEqual,
  kLess,
  kLessEqual,
  kGreater,
  kGreaterEqual,
  kIs,
  kConcatenate,
  kAdd,
  kSubtract,
  kModulo,
  kIntegerDivide,
  kMultiply,
  kDivide,
  kNegate,
  kPlus,
  kPower,
};

struct Expression {
  ExpressionKind kind;
  Operator operation = Operator::kImp;
  uint32_t position = 0;
  NameId name = kNoName;
  uint32_t literal = 0;  // index in Module::literals
  Expression* left = nullptr;
  Expression* right = nullptr;
  std::span<Expression*> arguments;
};

enum class StatementKind : uint8_t {
  kAssign,
  kSet,
  kCall,
  kDim,
  kReDim,
  kErase,
  kConst,
  kIf,
  kSelect,
  kFor,
  kForEach,
  kDo,
  kWith,
  kExit,
  kOnError,
  kStop,
};

struct Statement {
  StatementKind kind;
  uint32_t position;
};
using Block = std::span<Statement*>;

// Also Set: `target` is a name, a member or a call of either.
struct AssignStatement : Statement {
  Expression* target;
  Expression* value;
};
struct CallStatement : Statement {
  Expression* callee;
  std::span<Expression*> arguments;
};
struct DeclaredVariable {
  NameId name;
  uint32_t position;
  bool is_array;
  bool is_public;
  std::span<int32_t> bounds;  // upper bounds; none: not dimensioned yet
};
struct DimStatement : Statement {
  std::span<DeclaredVariable> variables;
};
struct ReDimStatement : Statement {
  bool preserve;
  Expression* target;
  std::span<Expression*> bounds;
};
struct EraseStatement : Statement {
  Expression* target;
};
struct ConstStatement : Statement {
  NameId name;
  Expression* value;  // a literal
};
struct IfBranch {
  uint32_t position;
  Expression* condition;  // none: Else
  Block body;
};
struct IfStatement : Statement {
  std::span<IfBranch> branches;
};
struct CaseBranch {
  uint32_t position;
  std::span<Expression*> values;  // none: Case Else
  Block body;
};
struct SelectStatement : Statement {
  Expression* subject;
  std::span<CaseBranch> branches;
};
struct ForStatement : Statement {
  Expression* variable;
  Expression* first;
  Expression* last;
  Expression* step;  // none: 1
  Block body;
  uint32_t next_position;
};
struct ForEachStatement : Statement {
  Expression* variable;
  Expression* collection;
  Block body;
  uint32_t next_position;
};
enum class LoopTest : uint8_t { kNone, kWhileBefore, kUntilBefore, kWhileAfter, kUntilAfter };
struct DoStatement : Statement {
  LoopTest test;
  bool is_while;  // While ... Wend, which Exit Do does not leave
  Expression* condition;
  Block body;
  uint32_t loop_position;
};
struct WithStatement : Statement {
  Expression* object;
  Block body;
};
enum class ExitKind : uint8_t { kDo, kFor, kProcedure };
struct ExitStatement : Statement {
  ExitKind what;
};
struct OnErrorStatement : Statement {
  bool resume_next;
};

struct Parameter {
  NameId name;
  bool by_value;
};

enum class ProcedureKind : uint8_t { kSub, kFunction, kPropertyGet, kPropertyLet, kPropertySet };

struct ProcedureTree {
  ProcedureKind kind = ProcedureKind::kSub;
  bool is_public = true;
  bool is_default = false;
  uint32_t position = 0;
  uint32_t end_position = 0;
  NameId name = kNoName;
  std::vector<Parameter> parameters;
  std::vector<NameId> locals;  // declared by Dim and Const anywhere in the body
  std::vector<ConstStatement*> constants;
  std::vector<NameId> assigned;  // every bare name that the body assigns or passes on, sorted
  std::vector<NameId> redimmed;  // names that ReDim declares unless they exist, sorted
  Block body;
};

struct ClassTree {
  NameId name = kNoName;
  uint32_t position = 0;
  std::vector<DeclaredVariable> fields;
  std::vector<std::unique_ptr<ProcedureTree>> procedures;
};

struct Module : std::enable_shared_from_this<Module> {
  explicit Module(std::string_view text) : source(text) {
    bytes.Set(sizeof(Module) + LiveBytes::Block(source.text().size()));
  }
  // Once it is parsed: what it takes beside its arena.
  void CountBytes();

  SourceText source;
  int number = -1;  // among the modules of its host, from 0; -1 for text that a script executes
  Arena arena;
  bool option_explicit = false;
  std::vector<Variant> literals;
  std::vector<std::unique_ptr<ProcedureTree>> procedures;
  std::vector<std::unique_ptr<ClassTree>> classes;
  std::vector<DeclaredVariable> variables;  // declared by Dim at the top level, wherever it stands
  std::vector<ConstStatement*> constants;   // likewise
  std::vector<NameId> assigned;
  std::vector<NameId> redimmed;
  std::vector<Statement*> statements;  // global code in order
  Expression* expression = nullptr;    // what Eval was given
  LiveBytes bytes;
};

}  // namespace kestrun::vbs
