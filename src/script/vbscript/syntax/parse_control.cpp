// If, Select Case and the loops.
#include "script/vbscript/syntax/parser.h"

namespace kestrun::vbs {

void Parser::ParseIf(Statements& out) {
  const uint32_t position = token_.position;
  std::vector<IfBranch> branches;
  Advance();
  branches.push_back({position, ParseExpression(), {}});
  ExpectWord(Word::kThen, compile_error::kExpectedThen);
  if (At(TokenKind::kEndOfLine) || At(TokenKind::kEndOfFile)) {
    ParseIfLines(branches);
  } else {
    ParseInlineIf(branches);
  }
  out.push_back(module_.arena.Make<IfStatement>(Statement{StatementKind::kIf, position}, module_.arena.Keep(branches)));
}

void Parser::ParseIfLines(std::vector<IfBranch>& branches) {
  const BlockScope scope(*this, BlockKind::kIf);
  branches.back().body = ParseBlock();
  while (AtWord(Word::kElseIf)) {
    const uint32_t position = token_.position;
    Advance();
    branches.push_back({position, ParseExpression(), {}});
    ExpectWord(Word::kThen, compile_error::kExpectedThen);
    branches.back().body = ParseBranch();
  }
  if (AtWord(Word::kElse)) {
    branches.push_back({token_.position, nullptr, {}});
    Advance();
    branches.back().body = ParseBranch();
  }
  ExpectWord(Word::kEnd, compile_error::kExpectedEnd);
  ExpectWord(Word::kIf, compile_error::kExpectedIf);
}

// What follows Else, or Then of an ElseIf: the rest of its own line, which End If may end, and further lines.
Block Parser::ParseBranch() {
  Statements list;
  ++around_.inline_ifs;
  while (!At(TokenKind::kEndOfLine) && !AtBlockEnd()) {
    if (Accept(TokenKind::kColon)) continue;
    ParseStatement(list);
    ExpectStatementEnd();
  }
  --around_.inline_ifs;
  if (At(TokenKind::kEndOfLine)) ParseBlockInto(list);
  return module_.arena.Keep(list);
}

void Parser::ParseInlineIf(std::vector<IfBranch>& branches) {
  ++around_.inline_ifs;
  branches.back().body = ParseInlineBranch();
  if (AtWord(Word::kElse)) {
    branches.push_back({token_.position, nullptr, {}});
    Advance();
    branches.back().body = ParseInlineBranch();
  }
  --around_.inline_ifs;
  if (!AtWord(Word::kEnd)) return;
  const Token end = token_;
  Advance();
  if (!AcceptWord(Word::kIf)) GoBackTo(end);  // the End of the procedure
}

// Statements with colons between them, up to Else or the end of the line.
Block Parser::ParseInlineBranch() {
  Statements list;
  SkipColons();
  while (!At(TokenKind::kEndOfLine) && !At(TokenKind::kEndOfFile) && !AtWord(Word::kElse) && !AtWord(Word::kEnd)) {
    if (AtBlockEnd()) break;
    ParseStatement(list);
    ExpectStatementEnd();
    SkipColons();
  }
  return module_.arena.Keep(list);
}

void Parser::ParseSelect(Statements& out) {
  const uint32_t position = token_.position;
  Advance();
  ExpectWord(Word::kCase, compile_error::kExpectedCase);
  Expression* subject = ParseExpression();
  ExpectStatementEnd();
  SkipSeparators();
  const BlockScope scope(*this, BlockKind::kOther);
  std::vector<CaseBranch> branches;
  bool has_else = false;
  while (AtWord(Word::kCase) && !has_else) {
    branches.push_back(ParseCase());
    has_else = branches.back().values.empty();
  }
  if (!AtWord(Word::kEnd)) Fail(branches.empty() ? compile_error::kExpectedCase : compile_error::kExpectedEnd);
  Advance();
  ExpectWord(Word::kSelect, compile_error::kExpectedSelect);
  out.push_back(module_.arena.Make<SelectStatement>(Statement{StatementKind::kSelect, position}, subject,
                                                    module_.arena.Keep(branches)));
}

CaseBranch Parser::ParseCase() {
  CaseBranch branch{token_.position, {}, {}};
  Advance();
  if (!AcceptWord(Word::kElse)) {
    std::vector<Expression*> values;
    do values.push_back(ParseExpression());
    while (Accept(TokenKind::kComma));
    branch.values = module_.arena.Keep(values);
    if (AtWord(Word::kTo)) Fail(compile_error::kExpectedEndOfStatement);
  }
  branch.body = ParseBlock();
  return branch;
}

Expression* Parser::ParseLoopVariable() {
  const Token start = token_;
  Expression* variable = MakeNode(ExpressionKind::kName, start.position);
  variable->name = ExpectName();
  if (At(TokenKind::kDot) || At(TokenKind::kOpen)) FailAt(compile_error::kInvalidForVariable, start.position);
  MarkAssigned(variable->name);
  return variable;
}

void Parser::ParseFor(Statements& out) {
  const uint32_t position = token_.position;
  Advance();
  if (AcceptWord(Word::kEach)) return ParseForEach(position, out);
  auto* loop = module_.arena.Make<ForStatement>();
  loop->kind = StatementKind::kFor;
  loop->position = position;
  loop->variable = ParseLoopVariable();
  Expect(TokenKind::kEqual, compile_error::kExpectedEqual);
  loop->first = ParseExpression();
  ExpectWord(Word::kTo, compile_error::kExpectedTo);
  loop->last = ParseExpression();
  loop->step = AcceptWord(Word::kStep) ? ParseExpression() : nullptr;
  ExpectStatementEnd();
  loop->body = ParseBody(BlockKind::kFor);
  loop->next_position = token_.position;
  ExpectWord(Word::kNext, compile_error::kExpectedNext);
  out.push_back(loop);
}

void Parser::ParseForEach(uint32_t position, Statements& out) {
  auto* loop = module_.arena.Make<ForEachStatement>();
  loop->kind = StatementKind::kForEach;
  loop->position = position;
  loop->variable = ParseLoopVariable();
  ExpectWord(Word::kIn, compile_error::kExpectedIn);
  loop->collection = ParseExpression();
  ExpectStatementEnd();
  loop->body = ParseBody(BlockKind::kFor);
  loop->next_position = token_.position;
  ExpectWord(Word::kNext, compile_error::kExpectedNext);
  out.push_back(loop);
}

LoopTest Parser::ParseLoopTest(bool before, Expression*& condition) {
  const bool is_while = AtWord(Word::kWhile);
  if (!is_while && !AtWord(Word::kUntil)) return LoopTest::kNone;
  Advance();
  condition = ParseExpression();
  if (before) return is_while ? LoopTest::kWhileBefore : LoopTest::kUntilBefore;
  return is_while ? LoopTest::kWhileAfter : LoopTest::kUntilAfter;
}

void Parser::ParseDo(Statements& out) {
  auto* loop = module_.arena.Make<DoStatement>();
  loop->kind = StatementKind::kDo;
  loop->position = token_.position;
  Advance();
  loop->test = ParseLoopTest(true, loop->condition);
  if (!AtStatementEnd()) {
    Fail(loop->test == LoopTest::kNone ? compile_error::kExpectedWhileUntilOrEnd
                                       : compile_error::kExpectedEndOfStatement);
  }
  loop->body = ParseBody(BlockKind::kDo);
  loop->loop_position = token_.position;
  ExpectWord(Word::kLoop, compile_error::kExpectedLoop);
  if (loop->test == LoopTest::kNone) {
    loop->test = ParseLoopTest(false, loop->condition);
    if (loop->test == LoopTest::kNone && !AtStatementEnd()) Fail(compile_error::kExpectedWhileUntilOrEnd);
  }
  out.push_back(loop);
}

void Parser::ParseWhile(Statements& out) {
  auto* loop = module_.arena.Make<DoStatement>();
  loop->kind = StatementKind::kDo;
  loop->position = token_.position;
  loop->test = LoopTest::kWhileBefore;
  loop->is_while = true;
  Advance();
  loop->condition = ParseExpression();
  ExpectStatementEnd();
  loop->body = ParseBody(BlockKind::kOther);
  loop->loop_position = token_.position;
  ExpectWord(Word::kWEnd, compile_error::kExpectedWEnd);
  out.push_back(loop);
}

}  // namespace kestrun::vbs
