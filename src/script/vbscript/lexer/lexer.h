// Cuts a module's text into tokens. Comments, line continuations and blanks are gone; line ends and colons remain.
#pragma once

#include <string_view>

#include "script/vbscript/lexer/token.h"

namespace kestrun::vbs {

class Lexer {
 public:
  explicit Lexer(std::string_view text) : text_(text) {}

  // Throws CompileError for what is no token.
  [[nodiscard]] Token Next();
  // Goes back (or on) to the token that starts at this offset.
  void MoveTo(const Token& token);

 private:
  [[nodiscard]] char Peek(size_t ahead = 0) const { return at_ + ahead < text_.size() ? text_[at_ + ahead] : '\0'; }
  void SkipBlanks();
  bool SkipContinuation();
  void SkipComment();
  void EndLine(Token& token);
  void ReadIdentifier(Token& token);
  void ReadEscapedName(Token& token);
  void ReadNumber(Token& token);
  void ReadRadixNumber(Token& token, int bits_per_digit);
  void ReadDecimal(Token& token);
  void ReadString(Token& token);
  void ReadDate(Token& token);
  void ReadOperator(Token& token);
  void ReadToken(Token& token);

  std::string_view text_;
  size_t at_ = 0;
  bool line_start_ = true;
  bool after_dot_ = false;      // behind a dot, Rem is a member's name
  bool after_operand_ = false;  // behind an operand, &1 joins; elsewhere it is an octal number
};

}  // namespace kestrun::vbs
