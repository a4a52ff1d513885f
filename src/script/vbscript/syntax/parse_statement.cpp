#include "script/vbscript/syntax/nesting.h"
#include "script/vbscript/syntax/parser.h"

namespace kestrun::vbs {

// Words at which a block ends; whoever opened it tells whether it is the right one. Loop and Next belong to the
// innermost block or to none.
bool Parser::AtBlockEnd() const {
  switch (token_.word) {
    case Word::kElse:
    case Word::kElseIf:
    case Word::kEnd:
    case Word::kCase:
    case Word::kWEnd: return around_.block != BlockKind::kModule || around_.inline_ifs > 0;
    case Word::kLoop: return around_.block == BlockKind::kDo;
    case Word::kNext: return around_.block == BlockKind::kFor;
    default: return At(TokenKind::kEndOfFile);
  }
}

void Parser::ParseBlockInto(Statements& list) {
  SkipSeparators();
  while (!AtBlockEnd()) {
    ParseStatement(list);
    ExpectStatementEnd();
    SkipSeparators();
  }
}

Block Parser::ParseBlock() {
  Statements list;
  ParseBlockInto(list);
  return module_.arena.Keep(list);
}

Block Parser::ParseBody(BlockKind kind) {
  const BlockScope scope(*this, kind);
  return ParseBlock();
}

void Parser::ParseStatement(Statements& out) {
  const NestingLevel level(depth_, token_.position);
  if (At(TokenKind::kDot)) return ParseImplicitCall(out);
  RequirePropertyInClass();
  if (!At(TokenKind::kIdentifier)) Fail(compile_error::kExpectedStatement);
  if (token_.word == Word::kNone || !IsReserved(token_.word) || AtWord(Word::kMe)) return ParseImplicitCall(out);
  ParseWordStatement(out);
}

void Parser::ParseWordStatement(Statements& out) {
  switch (token_.word) {
    case Word::kCall: return ParseCall(out);
    case Word::kConst: return ParseConst(out);
    case Word::kDim: return ParseDim(true, out);
    case Word::kDo: return ParseDo(out);
    case Word::kErase: return ParseErase(out);
    case Word::kExit: return ParseExit(out);
    case Word::kFor: return ParseFor(out);
    case Word::kIf: return ParseIf(out);
    case Word::kOn: return ParseOnError(out);
    case Word::kReDim: return ParseReDim(out);
    case Word::kSelect: return ParseSelect(out);
    case Word::kSet: return ParseSet(out);
    case Word::kStop:
      out.push_back(module_.arena.Make<Statement>(StatementKind::kStop, token_.position));
      return Advance();
    case Word::kWhile: return ParseWhile(out);
    case Word::kWith: return ParseWith(out);
    case Word::kLoop: Fail(compile_error::kLoopWithoutDo);
    case Word::kNext: Fail(compile_error::kUnexpectedNext);
    case Word::kSub:
    case Word::kFunction:
      if (!around_.only_ifs || around_.inline_ifs > 0 || scope_ != &global_) Fail(compile_error::kSyntax);
      return ParseGlobalProcedure(true);
    case Word::kClass:
    case Word::kPrivate:
    case Word::kPublic: Fail(compile_error::kSyntax);
    default: Fail(compile_error::kExpectedStatement);
  }
}

void Parser::ParseAssignment(Expression* target, uint32_t position, Statements& out) {
  if (target->kind == ExpressionKind::kMe) FailAt(compile_error::kInvalidMe, position);
  Advance();
  if (target->kind == ExpressionKind::kName) MarkAssigned(target->name);
  out.push_back(
      module_.arena.Make<AssignStatement>(Statement{StatementKind::kAssign, position}, target, ParseExpression()));
}

void Parser::ParseSet(Statements& out) {
  const uint32_t position = token_.position;
  Advance();
  if (!At(TokenKind::kIdentifier) && !At(TokenKind::kDot)) Fail(compile_error::kExpectedIdentifier);
  Expression* target = ParsePostfix(ParsePrimary());
  if (target->kind == ExpressionKind::kMe) FailAt(compile_error::kInvalidMe, target->position);
  const bool assignable = target->kind == ExpressionKind::kName || target->kind == ExpressionKind::kMember ||
                          target->kind == ExpressionKind::kCall;
  if (!assignable) FailAt(compile_error::kExpectedIdentifier, target->position);
  Expect(TokenKind::kEqual, compile_error::kExpectedEqual);
  if (target->kind == ExpressionKind::kName) MarkAssigned(target->name);
  out.push_back(
      module_.arena.Make<AssignStatement>(Statement{StatementKind::kSet, position}, target, ParseExpression()));
}

void Parser::ParseCall(Statements& out) {
  const uint32_t position = token_.position;
  Advance();
  const bool parenthesis = At(TokenKind::kOpen);
  if (!At(TokenKind::kIdentifier) && !At(TokenKind::kDot) && !parenthesis) Fail(compile_error::kExpectedIdentifier);
  Expression* chain = ParsePostfix(ParsePrimary());
  while (chain->kind == ExpressionKind::kParentheses) chain = chain->left;
  const bool with_list = chain->kind == ExpressionKind::kCall;
  out.push_back(module_.arena.Make<CallStatement>(Statement{StatementKind::kCall, position},
                                                  with_list ? chain->left : chain,
                                                  with_list ? chain->arguments : std::span<Expression*>{}));
}

// A blank before a dot inside With begins an argument: `Show .Name`.
bool Parser::ChainGoesOn() const {
  if (At(TokenKind::kDot)) return around_.withs == 0 || !token_.space_before;
  return At(TokenKind::kOpen);
}

bool Parser::ParseChainList(Expression*& chain) {
  const Token open = token_;
  Expression* call = MakeNode(ExpressionKind::kCall, token_.position);
  call->left = chain;
  call->arguments = ParseArguments();
  if (AtStatementEnd() || At(TokenKind::kEqual) || ChainGoesOn()) {
    chain = call;
    return true;
  }
  GoBackTo(open);
  return false;
}

void Parser::ParseImplicitCall(Statements& out) {
  const uint32_t position = token_.position;
  Expression* chain = ParsePrimary();
  for (int length = 0; ChainGoesOn(); ++length) {
    if (length >= kDeepestNesting) Fail(compile_error::kOutOfMemory);
    if (At(TokenKind::kDot)) {
      chain = ParseMember(chain);
    } else if (!ParseChainList(chain)) {
      break;
    }
  }
  if (At(TokenKind::kEqual)) return ParseAssignment(chain, position, out);
  FinishChain(chain, position, out);
}

// A call whose arguments stand without parentheses, or a single one in parentheses, which then goes by value.
void Parser::FinishChain(Expression* chain, uint32_t position, Statements& out) {
  Expression* callee = chain;
  std::span<Expression*> arguments;
  if (chain->kind == ExpressionKind::kCall && AtStatementEnd()) {
    callee = chain->left;
    arguments = chain->arguments;
    if (arguments.size() > 1) Fail(compile_error::kParenthesesOnSub);
    if (arguments.size() == 1 && arguments[0]->kind != ExpressionKind::kMissing) {
      Expression* value = MakeNode(ExpressionKind::kParentheses, arguments[0]->position);
      value->left = arguments[0];
      arguments[0] = value;
    }
  } else {
    arguments = ParseOpenArguments();
  }
  out.push_back(module_.arena.Make<CallStatement>(Statement{StatementKind::kCall, position}, callee, arguments));
}

void Parser::ParseWith(Statements& out) {
  const uint32_t position = token_.position;
  Advance();
  Expression* object = ParseExpression();
  ExpectStatementEnd();
  const int outer_withs = around_.withs++;
  const Block body = ParseBody(BlockKind::kOther);
  around_.withs = outer_withs;
  ExpectWord(Word::kEnd, compile_error::kExpectedEnd);
  ExpectWord(Word::kWith, compile_error::kExpectedWith);
  out.push_back(module_.arena.Make<WithStatement>(Statement{StatementKind::kWith, position}, object, body));
}

void Parser::ParseExit(Statements& out) {
  const uint32_t position = token_.position;
  Advance();
  const ProcedureTree* procedure = scope_->procedure;
  const auto leaves = [&](Word word) {
    if (!procedure) return false;
    if (word == Word::kSub) return procedure->kind == ProcedureKind::kSub;
    if (word == Word::kFunction) return procedure->kind == ProcedureKind::kFunction;
    return procedure->kind != ProcedureKind::kSub && procedure->kind != ProcedureKind::kFunction;
  };
  ExitKind what = ExitKind::kProcedure;
  switch (token_.word) {
    case Word::kDo:
      what = ExitKind::kDo;
      if (around_.dos == 0) FailAt(compile_error::kInvalidExit, position);
      break;
    case Word::kFor:
      what = ExitKind::kFor;
      if (around_.fors == 0) FailAt(compile_error::kInvalidExit, position);
      break;
    case Word::kSub:
    case Word::kFunction:
    case Word::kProperty:
      if (!leaves(token_.word)) FailAt(compile_error::kInvalidExit, position);
      break;
    default: Fail(compile_error::kInvalidExit);
  }
  Advance();
  out.push_back(module_.arena.Make<ExitStatement>(Statement{StatementKind::kExit, position}, what));
}

void Parser::ParseOnError(Statements& out) {
  const uint32_t position = token_.position;
  Advance();
  ExpectWord(Word::kError, compile_error::kSyntax);
  const bool resume_next = AtWord(Word::kResume);
  if (!resume_next && !AtWord(Word::kGoTo)) Fail(compile_error::kSyntax);
  Advance();
  if (resume_next) {
    ExpectWord(Word::kNext, compile_error::kExpectedNext);
  } else {
    if (!At(TokenKind::kInteger) || token_.number != 0) Fail(compile_error::kSyntax);
    Advance();
  }
  out.push_back(module_.arena.Make<OnErrorStatement>(Statement{StatementKind::kOnError, position}, resume_next));
}

void Parser::ParseReDim(Statements& out) {
  uint32_t position = token_.position;
  Advance();
  const bool preserve = AcceptWord(Word::kPreserve);
  do {
    if (!At(TokenKind::kIdentifier) && !At(TokenKind::kDot)) Fail(compile_error::kExpectedIdentifier);
    Expression* target = ParsePostfix(ParsePrimary());
    if (target->kind != ExpressionKind::kCall) Fail(compile_error::kExpectedOpen);
    if (target->arguments.empty()) FailAt(compile_error::kExpectedExpression, target->position + 1);
    if (target->left->kind == ExpressionKind::kName) {
      MarkAssigned(target->left->name);
      (scope_->procedure ? scope_->procedure->redimmed : module_.redimmed).push_back(target->left->name);
    }
    out.push_back(module_.arena.Make<ReDimStatement>(Statement{StatementKind::kReDim, position}, preserve, target->left,
                                                     target->arguments));
    position = token_.end;
  } while (Accept(TokenKind::kComma));
}

void Parser::ParseErase(Statements& out) {
  const uint32_t position = token_.position;
  Advance();
  do {
    if (!At(TokenKind::kIdentifier) && !At(TokenKind::kDot)) Fail(compile_error::kExpectedIdentifier);
    Expression* target = ParsePostfix(ParsePrimary());
    out.push_back(module_.arena.Make<EraseStatement>(Statement{StatementKind::kErase, position}, target));
  } while (Accept(TokenKind::kComma));
}

}  // namespace kestrun::vbs
