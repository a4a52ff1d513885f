// What the lexer makes of a module's text.
#pragma once

#include <cstdint>
#include <string_view>

namespace kestrun::vbs {

// Reserved words and words with a meaning in some places only; the table of spellings stands in token.cpp.
enum class Word : uint8_t {
  kNone,
  kAnd,
  kByRef,
  kByVal,
  kCall,
  kCase,
  kClass,
  kConst,
  kDefault,
  kDim,
  kDo,
  kEach,
  kElse,
  kElseIf,
  kEmpty,
  kEnd,
  kEqv,
  kErase,
  kError,
  kExit,
  kExplicit,
  kFalse,
  kFor,
  kFunction,
  kGet,
  kGoTo,
  kIf,
  kImp,
  kIn,
  kIs,
  kLet,
  kLoop,
  kMe,
  kMod,
  kNew,
  kNext,
  kNot,
  kNothing,
  kNull,
  kOn,
  kOption,
  kOr,
  kPreserve,
  kPrivate,
  kProperty,
  kPublic,
  kReDim,
  kRem,
  kResume,
  kSelect,
  kSet,
  kStep,
  kStop,
  kSub,
  kThen,
  kTo,
  kTrue,
  kUntil,
  kWEnd,
  kWhile,
  kWith,
  kXor,
};

enum class TokenKind : uint8_t {
  kEndOfFile,
  kEndOfLine,
  kColon,
  kIdentifier,  // also a reserved word: `word` tells
  kInteger,
  kLong,
  kDouble,
  kString,
  kDate,
  kDot,
  kComma,
  kOpen,
  kClose,
  kEqual,
  kNotEqual,
  kLess,
  kLessEqual,
  kGreater,
  kGreaterEqual,
  kPlus,
  kMinus,
  kStar,
  kSlash,
  kBackslash,
  kCaret,
  kAmpersand,
};

struct Token {
  TokenKind kind = TokenKind::kEndOfFile;
  Word word = Word::kNone;    // of an identifier that is not escaped
  bool space_before = false;  // blanks stand before it: `.x` behind a blank begins a new expression
  bool first_on_line = false;
  bool escaped = false;   // written as [name]
  uint32_t position = 0;  // offset of the first character
  uint32_t end = 0;
  std::string_view text;  // of an identifier, string (quotes still doubled) or date, without its delimiters
  double number = 0;
};

// kNone for a word that is no keyword.
[[nodiscard]] Word FindWord(std::string_view text);
// Words that may not name a variable, procedure or class unless they are escaped.
[[nodiscard]] bool IsReserved(Word word);

}  // namespace kestrun::vbs
