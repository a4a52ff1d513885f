#include "script/vbscript/lexer/lexer.h"

#include <charconv>
#include <cmath>
#include <cstdlib>

#include "base/text.h"
#include "script/vbscript/syntax/compile_error.h"

namespace kestrun::vbs {
namespace {

constexpr size_t kLongestIdentifier = 255;

bool IsLetter(char c) {
  return (c >= 'a' && c <= 'z') || (c >= 'A' && c <= 'Z') || static_cast<unsigned char>(c) >= 0x80;
}
bool IsDigit(char c) { return c >= '0' && c <= '9'; }
bool IsNamePart(char c) { return IsLetter(c) || IsDigit(c) || c == '_'; }
bool IsLineEnd(char c) { return c == '\n' || c == '\r'; }
bool IsBlank(char c) { return c == ' ' || c == '\t' || c == '\v' || c == '\f'; }

int DigitValue(char c) {
  if (IsDigit(c)) return c - '0';
  if (c >= 'a' && c <= 'f') return c - 'a' + 10;
  if (c >= 'A' && c <= 'F') return c - 'A' + 10;
  return 99;
}

// Whether an operand may end with this token: behind one, & joins texts.
bool EndsOperand(const Token& token) {
  switch (token.kind) {
    case TokenKind::kIdentifier: return token.word == Word::kNone || !IsReserved(token.word);
    case TokenKind::kInteger:
    case TokenKind::kLong:
    case TokenKind::kDouble:
    case TokenKind::kString:
    case TokenKind::kDate:
    case TokenKind::kClose: return true;
    default: return false;
  }
}

[[noreturn]] void Fail(int number, size_t position) { throw CompileError{number, static_cast<uint32_t>(position)}; }

}  // namespace

void Lexer::MoveTo(const Token& token) {
  at_ = token.position;
  line_start_ = token.first_on_line;
}

// An underscore behind a blank, with nothing but blanks to the end of its line.
bool Lexer::SkipContinuation() {
  size_t at = at_ + 1;
  while (at < text_.size() && IsBlank(text_[at])) ++at;
  if (at < text_.size() && !IsLineEnd(text_[at])) return false;
  if (at < text_.size()) at += text_[at] == '\r' && at + 1 < text_.size() && text_[at + 1] == '\n' ? 2 : 1;
  at_ = at;
  return true;
}

void Lexer::SkipBlanks() {
  while (at_ < text_.size()) {
    if (IsBlank(Peek())) {
      ++at_;
    } else if (text_.compare(at_, 2, "\xC2\xA0") == 0) {
      at_ += 2;
    } else if (Peek() != '_' || !SkipContinuation()) {
      return;
    }
  }
}

void Lexer::SkipComment() {
  while (at_ < text_.size() && !IsLineEnd(text_[at_])) ++at_;
}

void Lexer::EndLine(Token& token) {
  token.kind = TokenKind::kEndOfLine;
  at_ += Peek() == '\r' && Peek(1) == '\n' ? 2 : 1;
  line_start_ = true;
}

void Lexer::ReadIdentifier(Token& token) {
  const size_t start = at_;
  while (at_ < text_.size() && IsNamePart(text_[at_])) ++at_;
  token.kind = TokenKind::kIdentifier;
  token.text = text_.substr(start, at_ - start);
  token.word = FindWord(token.text);
  if (token.text.size() > kLongestIdentifier) Fail(compile_error::kIdentifierTooLong, start);
}

void Lexer::ReadEscapedName(Token& token) {
  const size_t start = ++at_;
  while (at_ < text_.size() && text_[at_] != ']' && !IsLineEnd(text_[at_])) ++at_;
  if (Peek() != ']') Fail(compile_error::kExpectedCloseBracket, at_);
  token.kind = TokenKind::kIdentifier;
  token.escaped = true;
  token.text = text_.substr(start, at_ - start);
  ++at_;
}

// &H and &O literals are bit patterns: of 16 bits, or of 32 when they need them or end in &. The value then has the
// narrowest type of a literal, whose Integers go from -32767 to 32767.
void Lexer::ReadRadixNumber(Token& token, int bits_per_digit) {
  const size_t start = at_;
  uint64_t value = 0;
  while (DigitValue(Peek()) < (1 << bits_per_digit)) {
    value = (value << bits_per_digit) | static_cast<uint64_t>(DigitValue(Peek()));
    if (value > UINT32_MAX) Fail(compile_error::kInvalidNumber, token.position);
    ++at_;
  }
  if (at_ == start) Fail(compile_error::kInvalidNumber, token.position);
  const bool all_bits = Peek() == '&' || value > UINT16_MAX;
  if (Peek() == '&') ++at_;
  token.number = all_bits ? static_cast<int32_t>(value) : static_cast<int16_t>(value);
  token.kind = std::fabs(token.number) <= INT16_MAX ? TokenKind::kInteger : TokenKind::kLong;
}

void Lexer::ReadDecimal(Token& token) {
  const size_t start = at_;
  bool whole = true;
  while (IsDigit(Peek())) ++at_;
  if (Peek() == '.') {
    whole = false;
    ++at_;
    while (IsDigit(Peek())) ++at_;
  }
  if (Peek() == 'e' || Peek() == 'E') {
    const size_t digits = Peek(1) == '+' || Peek(1) == '-' ? 2 : 1;
    if (!IsDigit(Peek(digits))) Fail(compile_error::kInvalidNumber, token.position);
    whole = false;
    at_ += digits;
    while (IsDigit(Peek())) ++at_;
  }
  const std::string_view digits = text_.substr(start, at_ - start);
  const auto read = std::from_chars(digits.data(), digits.data() + digits.size(), token.number);
  const bool vanishes = digits.find("e-") != digits.npos || digits.find("E-") != digits.npos;
  if (read.ec == std::errc::result_out_of_range && !vanishes) Fail(compile_error::kInvalidNumber, start);
  token.kind = !whole || token.number > INT32_MAX ? TokenKind::kDouble
               : token.number > INT16_MAX         ? TokenKind::kLong
                                                  : TokenKind::kInteger;
}

void Lexer::ReadNumber(Token& token) {
  if (Peek() != '&') return ReadDecimal(token);
  const char radix = Peek(1);
  at_ += IsDigit(radix) ? 1 : 2;
  ReadRadixNumber(token, radix == 'H' || radix == 'h' ? 4 : 3);
}

void Lexer::ReadString(Token& token) {
  const size_t start = ++at_;
  while (true) {
    if (at_ >= text_.size() || IsLineEnd(text_[at_])) Fail(compile_error::kUnterminatedString, at_);
    if (text_[at_] == '"') {
      if (Peek(1) != '"') break;
      ++at_;
    }
    ++at_;
  }
  token.kind = TokenKind::kString;
  token.text = text_.substr(start, at_ - start);
  ++at_;
}

void Lexer::ReadDate(Token& token) {
  const size_t start = ++at_;
  while (at_ < text_.size() && text_[at_] != '#' && !IsLineEnd(text_[at_])) ++at_;
  if (Peek() != '#') Fail(compile_error::kSyntax, token.position);
  token.kind = TokenKind::kDate;
  token.text = text_.substr(start, at_ - start);
  ++at_;
}

void Lexer::ReadOperator(Token& token) {
  const auto take = [&](TokenKind kind, size_t length) {
    token.kind = kind;
    at_ += length;
  };
  const char next = Peek(1);
  switch (Peek()) {
    case ':': return take(TokenKind::kColon, 1);
    case '.': return take(TokenKind::kDot, 1);
    case ',': return take(TokenKind::kComma, 1);
    case '(': return take(TokenKind::kOpen, 1);
    case ')': return take(TokenKind::kClose, 1);
    case '+': return take(TokenKind::kPlus, 1);
    case '-': return take(TokenKind::kMinus, 1);
    case '*': return take(TokenKind::kStar, 1);
    case '/': return take(TokenKind::kSlash, 1);
    case '\\': return take(TokenKind::kBackslash, 1);
    case '^': return take(TokenKind::kCaret, 1);
    case '&': return take(TokenKind::kAmpersand, 1);
    case '=':
      if (next == '<') return take(TokenKind::kLessEqual, 2);
      if (next == '>') return take(TokenKind::kGreaterEqual, 2);
      return take(TokenKind::kEqual, 1);
    case '<':
      if (next == '=') return take(TokenKind::kLessEqual, 2);
      if (next == '>') return take(TokenKind::kNotEqual, 2);
      return take(TokenKind::kLess, 1);
    case '>':
      if (next == '=') return take(TokenKind::kGreaterEqual, 2);
      if (next == '<') return take(TokenKind::kNotEqual, 2);
      return take(TokenKind::kGreater, 1);
    default: Fail(compile_error::kInvalidCharacter, at_);
  }
}

void Lexer::ReadToken(Token& token) {
  const char c = Peek();
  const char next = Peek(1);
  if (IsLetter(c)) return ReadIdentifier(token);
  if (IsDigit(c) || (c == '.' && IsDigit(next))) return ReadNumber(token);
  if (c == '&' && (next == 'H' || next == 'h' || next == 'O' || next == 'o')) {
    const char digit = Peek(2);
    const bool hexadecimal = next == 'H' || next == 'h';
    if (DigitValue(digit) < (hexadecimal ? 16 : 8)) return ReadNumber(token);
  }
  if (c == '&' && IsDigit(next) && next < '8' && !after_operand_) return ReadNumber(token);
  if (c == '"') return ReadString(token);
  if (c == '#') return ReadDate(token);
  if (c == '[') return ReadEscapedName(token);
  ReadOperator(token);
}

Token Lexer::Next() {
  Token token;
  const size_t before = at_;
  token.first_on_line = line_start_;
  SkipBlanks();
  token.space_before = at_ > before;
  token.position = static_cast<uint32_t>(at_);
  if (Peek() == '\'' || (line_start_ && (text_.compare(at_, 4, "<!--") == 0 || text_.compare(at_, 3, "-->") == 0))) {
    SkipComment();
  }
  if (at_ >= text_.size()) {
    token.kind = TokenKind::kEndOfFile;
  } else if (IsLineEnd(Peek())) {
    EndLine(token);
  } else {
    line_start_ = false;
    ReadToken(token);
  }
  token.end = static_cast<uint32_t>(at_);
  const bool remark = token.word == Word::kRem && !after_dot_;
  after_operand_ = EndsOperand(token);
  after_dot_ = token.kind == TokenKind::kDot;
  if (!remark) return token;
  SkipComment();
  return Next();
}

}  // namespace kestrun::vbs
