// Recursive descent over a module's tokens. The depth of nesting is bounded, so hostile text costs an error, not the
// stack. Throws CompileError.
#pragma once

#include <functional>
#include <memory>
#include <string_view>
#include <unordered_set>
#include <vector>

#include "script/vbscript/lexer/lexer.h"
#include "script/vbscript/syntax/compile_error.h"
#include "script/vbscript/syntax/tree.h"

namespace kestrun::vbs {

// Reads the text of a #...# literal; throws RuntimeError when it is no date.
using DateReader = std::function<double(std::string_view text)>;

class Parser {
 public:
  Parser(Module& module, NameTable& names, DateReader read_date);

  void ParseModule();
  // Called now and then with the number of tokens since the last time. What it throws ends the parsing.
  void OnProgress(std::function<void(size_t tokens)> report) { report_progress_ = std::move(report); }
  // One expression and nothing behind it.
  void ParseEvaluation();

 private:
  // What a procedure or the global code declares.
  struct DeclarationScope {
    ProcedureTree* procedure = nullptr;
    std::unordered_set<NameId> names;
    std::vector<NameId>* assigned = nullptr;
  };

  // The statement whose body is being read.
  enum class BlockKind : uint8_t { kModule, kProcedure, kClass, kIf, kFor, kDo, kOther };
  // What stands around the present place, within one procedure.
  struct Surroundings {
    BlockKind block = BlockKind::kModule;
    int dos = 0;
    int fors = 0;
    int withs = 0;
    int inline_ifs = 0;    // an If on one line, or the rest of the line behind Else
    bool only_ifs = true;  // no other statement encloses this place
  };
  class BlockScope;

  // Tokens.
  void Advance() {
    token_ = lexer_.Next();
    if (++unreported_ == kTokensPerReport) ReportProgress();
  }
  void ReportProgress();
  void GoBackTo(const Token& token);
  [[nodiscard]] bool At(TokenKind kind) const { return token_.kind == kind; }
  [[nodiscard]] bool AtWord(Word word) const { return token_.word == word && word != Word::kNone; }
  bool Accept(TokenKind kind);
  bool AcceptWord(Word word);
  void Expect(TokenKind kind, int error_number);
  void ExpectWord(Word word, int error_number);
  [[nodiscard]] bool AtStatementEnd() const;
  void ExpectStatementEnd();
  void SkipSeparators();
  void SkipColons();
  NameId ExpectName();
  NameId ExpectMemberName();
  [[noreturn]] void Fail(int number) const { throw CompileError{number, token_.position}; }
  [[noreturn]] void FailAt(int number, uint32_t position) const { throw CompileError{number, position}; }

  // Expressions.
  Expression* ParseExpression(int lowest = 0);
  Expression* ParseOperand();
  Expression* ParsePrefix(Operator operation, int binding);
  Expression* ParsePrimary();
  Expression* ParsePostfix(Expression* start);
  Expression* ParseLiteral(Variant value);
  Expression* ParseWordPrimary();
  Expression* ParseNew();
  Expression* ParseArgument();
  std::span<Expression*> ParseArguments();
  std::span<Expression*> ParseOpenArguments();
  [[nodiscard]] Variant TokenValue() const;
  Expression* ParseMember(Expression* object);
  Expression* MakeNode(ExpressionKind kind, uint32_t position);

  // Statements. Each appends what it read: one source statement can be several in the tree, or none.
  using Statements = std::vector<Statement*>;
  void ParseStatement(Statements& out);
  void ParseWordStatement(Statements& out);
  void ParseImplicitCall(Statements& out);
  [[nodiscard]] bool ChainGoesOn() const;
  // Reads the list behind a name; false when it was the first parenthesised part of an argument instead.
  bool ParseChainList(Expression*& chain);
  void FinishChain(Expression* chain, uint32_t position, Statements& out);
  void ParseAssignment(Expression* target, uint32_t position, Statements& out);
  void ParseSet(Statements& out);
  void ParseCall(Statements& out);
  void ParseIf(Statements& out);
  void ParseIfLines(std::vector<IfBranch>& branches);
  void ParseInlineIf(std::vector<IfBranch>& branches);
  Block ParseInlineBranch();
  void ParseSelect(Statements& out);
  CaseBranch ParseCase();
  void ParseFor(Statements& out);
  void ParseForEach(uint32_t position, Statements& out);
  void ParseDo(Statements& out);
  LoopTest ParseLoopTest(bool before, Expression*& condition);
  void ParseWhile(Statements& out);
  void ParseWith(Statements& out);
  void ParseExit(Statements& out);
  void ParseOnError(Statements& out);
  void ParseReDim(Statements& out);
  void ParseErase(Statements& out);
  void ParseDim(bool is_public, Statements& out);
  void ParseConst(Statements& out);
  Expression* ParseConstValue();
  [[nodiscard]] bool AtBlockEnd() const;
  void ParseBlockInto(Statements& list);
  Block ParseBlock();
  Block ParseBody(BlockKind kind);
  Block ParseBranch();
  Expression* ParseLoopVariable();

  // Declarations.
  void ParseOptionExplicit();
  void ParseTopLevelItem();
  void ParseGlobalProcedure(bool is_public);
  void ParseVisible();
  void ParseVisibleVariables(bool is_public);
  [[nodiscard]] bool AtProcedure() const;
  std::unique_ptr<ProcedureTree> ParseProcedure(bool is_public, bool is_default);
  void ParseProcedureHead(ProcedureTree& procedure);
  void ParseParameters(ProcedureTree& procedure);
  void ParseProcedureBody(ProcedureTree& procedure);
  void ParseClass();
  void ParseClassMember(ClassTree& tree);
  void ParseFields(ClassTree& tree, bool is_public);
  void AddMethod(ClassTree& tree, std::unique_ptr<ProcedureTree> procedure);
  void CheckMember(const ClassTree& tree, const ProcedureTree& procedure) const;
  void CheckMethodShape(const ProcedureTree& procedure) const;
  std::vector<DeclaredVariable> ParseVariables(bool is_public);
  std::span<int32_t> ParseBounds();
  void Declare(NameId name, uint32_t position);
  void RequirePropertyInClass();
  void MarkAssigned(NameId name);

  Module& module_;
  NameTable& names_;
  static constexpr size_t kTokensPerReport = 256;

  DateReader read_date_;
  std::function<void(size_t)> report_progress_;
  size_t unreported_ = 0;
  Lexer lexer_;
  Token token_;
  DeclarationScope global_;
  DeclarationScope* scope_ = &global_;
  std::unordered_set<NameId> global_procedures_;
  bool in_class_ = false;
  int depth_ = 0;
  Surroundings around_;
};

// Enters a statement's body, and leaves it with its block.
class Parser::BlockScope {
 public:
  BlockScope(Parser& parser, BlockKind kind) : parser_(parser), outer_(parser.around_) {
    Surroundings& around = parser.around_;
    const bool fresh = kind == BlockKind::kProcedure || kind == BlockKind::kClass;
    if (fresh) around = {};
    around.block = kind;
    around.inline_ifs = 0;
    if (kind == BlockKind::kFor) ++around.fors;
    if (kind == BlockKind::kDo) ++around.dos;
    if (kind != BlockKind::kIf) around.only_ifs = false;
  }
  ~BlockScope() { parser_.around_ = outer_; }
  BlockScope(const BlockScope&) = delete;
  BlockScope& operator=(const BlockScope&) = delete;

 private:
  Parser& parser_;
  const Surroundings outer_;
};

}  // namespace kestrun::vbs
