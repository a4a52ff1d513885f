// Option Explicit, Dim, Const, procedures and classes.
#include <algorithm>

#include "script/vbscript/syntax/nesting.h"
#include "script/vbscript/syntax/parser.h"

namespace kestrun::vbs {

void Parser::ParseOptionExplicit() {
  if (!AcceptWord(Word::kOption)) return;
  ExpectWord(Word::kExplicit, compile_error::kSyntax);
  ExpectStatementEnd();
  module_.option_explicit = true;
  SkipSeparators();
}

bool Parser::AtProcedure() const {
  return AtWord(Word::kSub) || AtWord(Word::kFunction) || (in_class_ && AtWord(Word::kProperty));
}

void Parser::ParseTopLevelItem() {
  if (AtWord(Word::kClass)) return ParseClass();
  if (AtWord(Word::kPublic) || AtWord(Word::kPrivate)) return ParseVisible();
  ParseStatement(module_.statements);
  ExpectStatementEnd();
}

// A name may be defined by several procedures, of which the last one counts, but by nothing else besides.
void Parser::ParseGlobalProcedure(bool is_public) {
  auto procedure = ParseProcedure(is_public, false);
  if (global_.names.contains(procedure->name)) FailAt(compile_error::kNameRedefined, procedure->position);
  global_procedures_.insert(procedure->name);
  module_.procedures.push_back(std::move(procedure));
}

// Property is a name like others unless a declaration follows.
void Parser::RequirePropertyInClass() {
  if (!AtWord(Word::kProperty)) return;
  const Token property = token_;
  Advance();
  const bool declares = AtWord(Word::kGet) || AtWord(Word::kLet) || AtWord(Word::kSet);
  GoBackTo(property);
  if (declares) Fail(compile_error::kMustBeInClass);
}

// Public or Private at the top level; both make names of the one global space.
void Parser::ParseVisible() {
  const bool is_public = AtWord(Word::kPublic);
  Advance();
  if (AtWord(Word::kProperty) || AtWord(Word::kDefault)) Fail(compile_error::kMustBeInClass);
  if (AtProcedure()) {
    ParseGlobalProcedure(is_public);
  } else if (AtWord(Word::kConst)) {
    ParseConst(module_.statements);
  } else {
    ParseVisibleVariables(is_public);
  }
  ExpectStatementEnd();
}

void Parser::ParseVisibleVariables(bool is_public) {
  const uint32_t position = token_.position;
  const std::vector<DeclaredVariable> variables = ParseVariables(is_public);
  module_.variables.insert(module_.variables.end(), variables.begin(), variables.end());
  module_.statements.push_back(
      module_.arena.Make<DimStatement>(Statement{StatementKind::kDim, position}, module_.arena.Keep(variables)));
}

void Parser::ParseDim(bool is_public, Statements& out) {
  const uint32_t position = token_.position;
  Advance();
  const std::vector<DeclaredVariable> variables = ParseVariables(is_public);
  if (!scope_->procedure) module_.variables.insert(module_.variables.end(), variables.begin(), variables.end());
  out.push_back(
      module_.arena.Make<DimStatement>(Statement{StatementKind::kDim, position}, module_.arena.Keep(variables)));
}

std::vector<DeclaredVariable> Parser::ParseVariables(bool is_public) {
  std::vector<DeclaredVariable> list;
  do {
    DeclaredVariable variable{kNoName, token_.position, false, is_public, {}};
    variable.name = ExpectName();
    Declare(variable.name, variable.position);
    if (At(TokenKind::kOpen)) {
      variable.is_array = true;
      variable.bounds = ParseBounds();
    }
    list.push_back(variable);
  } while (Accept(TokenKind::kComma));
  return list;
}

std::span<int32_t> Parser::ParseBounds() {
  std::vector<int32_t> bounds;
  Advance();
  if (Accept(TokenKind::kClose)) return {};
  do {
    if (!At(TokenKind::kInteger) && !At(TokenKind::kLong)) Fail(compile_error::kExpectedIntegerConstant);
    bounds.push_back(static_cast<int32_t>(token_.number));
    Advance();
  } while (Accept(TokenKind::kComma));
  Expect(TokenKind::kClose, compile_error::kExpectedClose);
  return module_.arena.Keep(bounds);
}

void Parser::ParseConst(Statements& out) {
  Advance();
  do {
    const uint32_t position = token_.position;
    const NameId name = ExpectName();
    Declare(name, position);
    Expect(TokenKind::kEqual, compile_error::kExpectedEqual);
    auto* constant =
        module_.arena.Make<ConstStatement>(Statement{StatementKind::kConst, position}, name, ParseConstValue());
    (scope_->procedure ? scope_->procedure->constants : module_.constants).push_back(constant);
    out.push_back(constant);
  } while (Accept(TokenKind::kComma));
}

// A literal, with signs before it and parentheses around it.
Expression* Parser::ParseConstValue() {
  const NestingLevel level(depth_, token_.position);
  if (At(TokenKind::kMinus) || At(TokenKind::kPlus)) {
    Expression* node = MakeNode(ExpressionKind::kUnary, token_.position);
    node->operation = At(TokenKind::kMinus) ? Operator::kNegate : Operator::kPlus;
    Advance();
    node->left = ParseConstValue();
    return node;
  }
  if (Accept(TokenKind::kOpen)) {
    Expression* inner = ParseConstValue();
    Expect(TokenKind::kClose, compile_error::kExpectedClose);
    return inner;
  }
  switch (token_.word) {
    case Word::kTrue:
    case Word::kFalse:
    case Word::kEmpty:
    case Word::kNull:
    case Word::kNothing: return ParsePrimary();
    default: break;
  }
  if (At(TokenKind::kIdentifier) || AtStatementEnd() || token_.kind >= TokenKind::kDot) {
    Fail(compile_error::kExpectedLiteral);
  }
  return ParsePrimary();
}

std::unique_ptr<ProcedureTree> Parser::ParseProcedure(bool is_public, bool is_default) {
  auto procedure = std::make_unique<ProcedureTree>();
  procedure->is_public = is_public;
  procedure->is_default = is_default;
  ParseProcedureHead(*procedure);
  DeclarationScope scope;
  scope.procedure = procedure.get();
  scope.assigned = &procedure->assigned;
  DeclarationScope* const outer = std::exchange(scope_, &scope);
  if (At(TokenKind::kOpen)) {
    ParseParameters(*procedure);
  } else if (!At(TokenKind::kEndOfLine) && !At(TokenKind::kColon) && !At(TokenKind::kEndOfFile)) {
    Fail(compile_error::kExpectedEndOfStatement);
  }
  ParseProcedureBody(*procedure);
  scope_ = outer;
  std::sort(procedure->assigned.begin(), procedure->assigned.end());
  std::sort(procedure->redimmed.begin(), procedure->redimmed.end());
  return procedure;
}

void Parser::ParseProcedureHead(ProcedureTree& procedure) {
  const Word what = token_.word;
  Advance();
  procedure.kind = what == Word::kFunction ? ProcedureKind::kFunction : ProcedureKind::kSub;
  if (what == Word::kProperty) {
    procedure.kind = AtWord(Word::kGet)   ? ProcedureKind::kPropertyGet
                     : AtWord(Word::kLet) ? ProcedureKind::kPropertyLet
                                          : ProcedureKind::kPropertySet;
    if (!AtWord(Word::kGet) && !AtWord(Word::kLet) && !AtWord(Word::kSet)) Fail(compile_error::kExpectedLetSetGet);
    Advance();
  }
  procedure.position = token_.position;
  procedure.name = ExpectName();
}

void Parser::ParseParameters(ProcedureTree& procedure) {
  Advance();
  if (Accept(TokenKind::kClose)) return;
  do {
    const bool by_value = AtWord(Word::kByVal);
    if (by_value || AtWord(Word::kByRef)) Advance();
    const uint32_t position = token_.position;
    const NameId name = ExpectName();
    if (!scope_->names.insert(name).second) FailAt(compile_error::kNameRedefined, position);
    procedure.parameters.push_back({name, by_value});
    if (Accept(TokenKind::kOpen)) Expect(TokenKind::kClose, compile_error::kExpectedClose);
  } while (Accept(TokenKind::kComma));
  Expect(TokenKind::kClose, compile_error::kExpectedClose);
}

void Parser::ParseProcedureBody(ProcedureTree& procedure) {
  procedure.body = ParseBody(BlockKind::kProcedure);
  procedure.end_position = token_.position;
  ExpectWord(Word::kEnd, compile_error::kExpectedEnd);
  switch (procedure.kind) {
    case ProcedureKind::kSub: return ExpectWord(Word::kSub, compile_error::kExpectedSub);
    case ProcedureKind::kFunction: return ExpectWord(Word::kFunction, compile_error::kExpectedFunction);
    default: return ExpectWord(Word::kProperty, compile_error::kExpectedProperty);
  }
}

void Parser::ParseClass() {
  auto tree = std::make_unique<ClassTree>();
  Advance();
  tree->position = token_.position;
  tree->name = ExpectName();
  Declare(tree->name, tree->position);
  ExpectStatementEnd();
  DeclarationScope scope;
  DeclarationScope* const outer = std::exchange(scope_, &scope);
  in_class_ = true;
  SkipSeparators();
  {
    const BlockScope block(*this, BlockKind::kClass);
    while (!AtWord(Word::kEnd)) {
      ParseClassMember(*tree);
      ExpectStatementEnd();
      SkipSeparators();
    }
  }
  Advance();
  ExpectWord(Word::kClass, compile_error::kExpectedClass);
  in_class_ = false;
  scope_ = outer;
  ExpectStatementEnd();
  module_.classes.push_back(std::move(tree));
}

void Parser::ParseClassMember(ClassTree& tree) {
  if (AtWord(Word::kDim)) {
    Advance();
    return ParseFields(tree, true);
  }
  const bool is_private = AtWord(Word::kPrivate);
  const bool is_public = AtWord(Word::kPublic);
  if (is_private || is_public) Advance();
  const bool is_default = AtWord(Word::kDefault);
  if (is_default) {
    if (!is_public) Fail(compile_error::kDefaultNeedsPublic);
    Advance();
  }
  if (AtProcedure()) return AddMethod(tree, ParseProcedure(!is_private, is_default));
  if (is_default) Fail(compile_error::kDefaultOnWrongMember);
  if (At(TokenKind::kEndOfFile)) Fail(compile_error::kExpectedEnd);
  if (!is_private && !is_public) Fail(compile_error::kSyntax);
  ParseFields(tree, is_public);
}

void Parser::ParseFields(ClassTree& tree, bool is_public) {
  const std::vector<DeclaredVariable> fields = ParseVariables(is_public);
  tree.fields.insert(tree.fields.end(), fields.begin(), fields.end());
}

void Parser::AddMethod(ClassTree& tree, std::unique_ptr<ProcedureTree> procedure) {
  CheckMethodShape(*procedure);
  CheckMember(tree, *procedure);
  scope_->names.insert(procedure->name);
  tree.procedures.push_back(std::move(procedure));
}

void Parser::CheckMethodShape(const ProcedureTree& procedure) const {
  const bool setter = procedure.kind == ProcedureKind::kPropertyLet || procedure.kind == ProcedureKind::kPropertySet;
  if (setter && procedure.is_default) FailAt(compile_error::kDefaultNeedsGet, procedure.position);
  if (setter && procedure.parameters.empty()) FailAt(compile_error::kPropertyNeedsArgument, procedure.position);
  const std::string name = FoldName(names_.Spelling(procedure.name));
  const bool life_cycle = name == "class_initialize" || name == "class_terminate";
  if (life_cycle && procedure.kind == ProcedureKind::kSub && !procedure.parameters.empty()) {
    FailAt(compile_error::kInitializeHasArguments, procedure.position);
  }
}

// A member is what is called, what Let assigns and what Set assigns: one procedure each. The index arguments of a
// property agree.
void Parser::CheckMember(const ClassTree& tree, const ProcedureTree& procedure) const {
  const auto is_property = [](const ProcedureTree& p) {
    return p.kind != ProcedureKind::kSub && p.kind != ProcedureKind::kFunction;
  };
  const auto is_setter = [](const ProcedureTree& p) {
    return p.kind == ProcedureKind::kPropertyLet || p.kind == ProcedureKind::kPropertySet;
  };
  const auto index_count = [](const ProcedureTree& p) {
    return p.parameters.size() - (p.kind == ProcedureKind::kPropertyGet ? 0 : 1);
  };
  bool known = false;
  for (const auto& other : tree.procedures) {
    if (procedure.is_default && other->is_default) FailAt(compile_error::kManyDefaults, procedure.position);
    if (other->name != procedure.name) continue;
    known = true;
    const bool both_called = !is_setter(*other) && !is_setter(procedure);
    if (both_called || other->kind == procedure.kind) FailAt(compile_error::kNameRedefined, procedure.position);
    if (!is_property(*other) || !is_property(procedure)) continue;
    if (index_count(*other) != index_count(procedure)) {
      FailAt(compile_error::kInconsistentArguments, procedure.position);
    }
  }
  if (!known && scope_->names.contains(procedure.name)) FailAt(compile_error::kNameRedefined, procedure.position);
}

}  // namespace kestrun::vbs
