#include <array>

#include "base/runtime_error.h"
#include "base/text.h"
#include "script/vbscript/syntax/nesting.h"
#include "script/vbscript/syntax/parser.h"

namespace kestrun::vbs {
namespace {

struct BinaryRow {
  TokenKind kind;
  Word word;
  Operator operation;
  int binding;
};

// Tighter operators bind with higher numbers; all of them associate to the left.
constexpr BinaryRow kBinaryOperators[] = {
    {TokenKind::kIdentifier, Word::kImp, Operator::kImp, 1},
    {TokenKind::kIdentifier, Word::kEqv, Operator::kEqv, 2},
    {TokenKind::kIdentifier, Word::kXor, Operator::kXor, 3},
    {TokenKind::kIdentifier, Word::kOr, Operator::kOr, 4},
    {TokenKind::kIdentifier, Word::kAnd, Operator::kAnd, 5},
    {TokenKind::kEqual, Word::kNone, Operator::kEqual, 7},
    {TokenKind::kNotEqual, Word::kNone, Operator::kNotEqual, 7},
    {TokenKind::kLess, Word::kNone, Operator::kLess, 7},
    {TokenKind::kLessEqual, Word::kNone, Operator::kLessEqual, 7},
    {TokenKind::kGreater, Word::kNone, Operator::kGreater, 7},
    {TokenKind::kGreaterEqual, Word::kNone, Operator::kGreaterEqual, 7},
    {TokenKind::kIdentifier, Word::kIs, Operator::kIs, 7},
    {TokenKind::kAmpersand, Word::kNone, Operator::kConcatenate, 8},
    {TokenKind::kPlus, Word::kNone, Operator::kAdd, 9},
    {TokenKind::kMinus, Word::kNone, Operator::kSubtract, 9},
    {TokenKind::kIdentifier, Word::kMod, Operator::kModulo, 10},
    {TokenKind::kBackslash, Word::kNone, Operator::kIntegerDivide, 11},
    {TokenKind::kStar, Word::kNone, Operator::kMultiply, 12},
    {TokenKind::kSlash, Word::kNone, Operator::kDivide, 12},
    {TokenKind::kCaret, Word::kNone, Operator::kPower, 14},
};
constexpr int kNotBinding = 6;
constexpr int kSignBinding = 15;

const BinaryRow* FindBinary(const Token& token) {
  if (token.kind == TokenKind::kIdentifier && token.word == Word::kNone) return nullptr;
  for (const BinaryRow& row : kBinaryOperators) {
    if (row.kind == token.kind && row.word == token.word) return &row;
  }
  return nullptr;
}

std::string Unquoted(std::string_view text) { return ReplaceAll(text, "\"\"", "\""); }

}  // namespace

Expression* Parser::ParseExpression(int lowest) {
  const NestingLevel level(depth_, token_.position);
  Expression* left = ParseOperand();
  while (const BinaryRow* row = FindBinary(token_)) {
    if (row->binding < lowest) break;
    Expression* node = MakeNode(ExpressionKind::kBinary, token_.position);
    Advance();
    node->operation = row->operation;
    node->left = left;
    node->right = ParseExpression(row->binding + 1);
    left = node;
  }
  return left;
}

Expression* Parser::ParseOperand() {
  if (AtWord(Word::kNot)) return ParsePrefix(Operator::kNot, kNotBinding);
  if (At(TokenKind::kMinus)) return ParsePrefix(Operator::kNegate, kSignBinding);
  if (At(TokenKind::kPlus)) return ParsePrefix(Operator::kPlus, kSignBinding);
  return ParsePostfix(ParsePrimary());
}

Expression* Parser::ParsePrefix(Operator operation, int binding) {
  Expression* node = MakeNode(ExpressionKind::kUnary, token_.position);
  node->operation = operation;
  Advance();
  node->left = ParseExpression(binding);
  return node;
}

Expression* Parser::ParseLiteral(Variant value) {
  Expression* node = MakeNode(ExpressionKind::kLiteral, token_.position);
  node->literal = static_cast<uint32_t>(module_.literals.size());
  module_.literals.push_back(std::move(value));
  Advance();
  return node;
}

// The value of a literal token.
Variant Parser::TokenValue() const {
  switch (token_.kind) {
    case TokenKind::kInteger: return static_cast<int16_t>(token_.number);
    case TokenKind::kLong: return static_cast<int32_t>(token_.number);
    case TokenKind::kDouble: return token_.number;
    case TokenKind::kString: return Unquoted(token_.text);
    case TokenKind::kDate: try { return Variant::Date(read_date_(token_.text));
      } catch (const RuntimeError&) {
        Fail(compile_error::kSyntax);
      }
    default: Fail(compile_error::kExpectedExpression);
  }
}

Expression* Parser::ParsePrimary() {
  switch (token_.kind) {
    case TokenKind::kInteger:
    case TokenKind::kLong:
    case TokenKind::kDouble:
    case TokenKind::kString:
    case TokenKind::kDate: return ParseLiteral(TokenValue());
    case TokenKind::kIdentifier: return ParseWordPrimary();
    case TokenKind::kDot: return ParseMember(nullptr);
    case TokenKind::kOpen: {
      Expression* node = MakeNode(ExpressionKind::kParentheses, token_.position);
      Advance();
      node->left = ParseExpression();
      Expect(TokenKind::kClose, compile_error::kExpectedClose);
      return node;
    }
    default: Fail(compile_error::kExpectedExpression);
  }
}

Expression* Parser::ParseWordPrimary() {
  switch (token_.word) {
    case Word::kTrue: return ParseLiteral(true);
    case Word::kFalse: return ParseLiteral(false);
    case Word::kEmpty: return ParseLiteral({});
    case Word::kNull: return ParseLiteral(Variant::Null());
    case Word::kNothing: return ParseLiteral(Variant::Nothing());
    case Word::kNew: return ParseNew();
    case Word::kMe: {
      Expression* node = MakeNode(ExpressionKind::kMe, token_.position);
      Advance();
      return node;
    }
    default: break;
  }
  if (IsReserved(token_.word) && token_.word != Word::kNone) Fail(compile_error::kExpectedExpression);
  Expression* node = MakeNode(ExpressionKind::kName, token_.position);
  node->name = ExpectName();
  return node;
}

Expression* Parser::ParseNew() {
  Expression* node = MakeNode(ExpressionKind::kNew, token_.position);
  Advance();
  node->name = ExpectName();
  return node;
}

Expression* Parser::ParseMember(Expression* object) {
  Expression* node = MakeNode(ExpressionKind::kMember, token_.position);
  Advance();
  node->left = object;
  node->name = ExpectMemberName();
  return node;
}

Expression* Parser::ParsePostfix(Expression* start) {
  if (start->kind == ExpressionKind::kLiteral) return start;
  Expression* chain = start;
  for (int length = 0; At(TokenKind::kDot) || At(TokenKind::kOpen); ++length) {
    if (length >= kDeepestNesting) Fail(compile_error::kOutOfMemory);
    if (At(TokenKind::kDot)) {
      chain = ParseMember(chain);
      continue;
    }
    Expression* call = MakeNode(ExpressionKind::kCall, token_.position);
    call->left = chain;
    call->arguments = ParseArguments();
    chain = call;
  }
  return chain;
}

// A variable that is passed can be assigned by what it is passed to.
Expression* Parser::ParseArgument() {
  Expression* argument = ParseExpression();
  if (argument->kind == ExpressionKind::kName) MarkAssigned(argument->name);
  return argument;
}

// A list in parentheses; arguments may be left out.
std::span<Expression*> Parser::ParseArguments() {
  std::vector<Expression*> list;
  Advance();
  if (Accept(TokenKind::kClose)) return {};
  while (true) {
    const bool missing = At(TokenKind::kComma) || At(TokenKind::kClose);
    list.push_back(missing ? MakeNode(ExpressionKind::kMissing, token_.position) : ParseArgument());
    if (!Accept(TokenKind::kComma)) break;
  }
  Expect(TokenKind::kClose, compile_error::kExpectedClose);
  return module_.arena.Keep(list);
}

// A list without parentheses, up to the end of the statement.
std::span<Expression*> Parser::ParseOpenArguments() {
  std::vector<Expression*> list;
  if (AtStatementEnd()) return {};
  while (true) {
    const bool missing = At(TokenKind::kComma) || AtStatementEnd();
    list.push_back(missing ? MakeNode(ExpressionKind::kMissing, token_.position) : ParseArgument());
    if (!Accept(TokenKind::kComma)) break;
  }
  ExpectStatementEnd();
  return module_.arena.Keep(list);
}

}  // namespace kestrun::vbs
