#include "script/vbscript/syntax/parser.h"

#include <algorithm>

#include "script/vbscript/syntax/nesting.h"

namespace kestrun::vbs {

Parser::Parser(Module& module, NameTable& names, DateReader read_date)
    : module_(module), names_(names), read_date_(std::move(read_date)), lexer_(module.source.text()) {
  global_.assigned = &module.assigned;
}

void Parser::ParseModule() {
  Advance();
  SkipSeparators();
  ParseOptionExplicit();
  while (!At(TokenKind::kEndOfFile)) {
    ParseTopLevelItem();
    SkipSeparators();
  }
  std::sort(module_.assigned.begin(), module_.assigned.end());
  std::sort(module_.redimmed.begin(), module_.redimmed.end());
}

void Parser::ParseEvaluation() {
  Advance();
  module_.expression = ParseExpression();
  SkipSeparators();
  if (!At(TokenKind::kEndOfFile)) Fail(compile_error::kExpectedEndOfStatement);
}

void Parser::ReportProgress() {
  unreported_ = 0;
  if (report_progress_) report_progress_(kTokensPerReport);
}

void Parser::GoBackTo(const Token& token) {
  lexer_.MoveTo(token);
  const bool space_before = token.space_before;
  Advance();
  token_.space_before = space_before;
}

bool Parser::Accept(TokenKind kind) {
  if (!At(kind)) return false;
  Advance();
  return true;
}

bool Parser::AcceptWord(Word word) {
  if (!AtWord(word)) return false;
  Advance();
  return true;
}

void Parser::Expect(TokenKind kind, int error_number) {
  if (!Accept(kind)) Fail(error_number);
}

void Parser::ExpectWord(Word word, int error_number) {
  if (!AcceptWord(word)) Fail(error_number);
}

bool Parser::AtStatementEnd() const {
  if (At(TokenKind::kEndOfLine) || At(TokenKind::kColon) || At(TokenKind::kEndOfFile)) return true;
  if (around_.inline_ifs > 0 && (AtWord(Word::kElse) || AtWord(Word::kElseIf))) return true;
  // End of a procedure, a class or an If on one line needs no separator before it.
  const bool may_end =
      around_.inline_ifs > 0 || around_.block == BlockKind::kProcedure || around_.block == BlockKind::kClass;
  return may_end && AtWord(Word::kEnd);
}

void Parser::ExpectStatementEnd() {
  if (!AtStatementEnd()) Fail(compile_error::kExpectedEndOfStatement);
}

void Parser::SkipSeparators() {
  while (At(TokenKind::kEndOfLine) || At(TokenKind::kColon)) Advance();
}

void Parser::SkipColons() {
  while (At(TokenKind::kColon)) Advance();
}

NameId Parser::ExpectName() {
  if (!At(TokenKind::kIdentifier) || (token_.word != Word::kNone && IsReserved(token_.word))) {
    Fail(compile_error::kExpectedIdentifier);
  }
  const NameId name = names_.Intern(token_.text);
  Advance();
  return name;
}

// Behind a dot any word is a name.
NameId Parser::ExpectMemberName() {
  if (!At(TokenKind::kIdentifier)) Fail(compile_error::kExpectedIdentifier);
  const NameId name = names_.Intern(token_.text);
  Advance();
  return name;
}

void Parser::Declare(NameId name, uint32_t position) {
  const bool taken = scope_ == &global_ && global_procedures_.contains(name);
  if (taken || !scope_->names.insert(name).second) FailAt(compile_error::kNameRedefined, position);
  if (scope_->procedure) scope_->procedure->locals.push_back(name);
}

void Parser::MarkAssigned(NameId name) {
  if (scope_->assigned) scope_->assigned->push_back(name);
}

Expression* Parser::MakeNode(ExpressionKind kind, uint32_t position) {
  auto* node = module_.arena.Make<Expression>();
  node->kind = kind;
  node->position = position;
  return node;
}

}  // namespace kestrun::vbs
