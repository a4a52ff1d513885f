#include "script/vbscript/lexer/token.h"

#include <algorithm>
#include <array>

namespace kestrun::vbs {
namespace {

struct WordRow {
  std::string_view text;
  Word word;
  bool reserved;
};

// In alphabetical order: looked up by bisection.
constexpr WordRow kWords[] = {
    {"and", Word::kAnd, true},
    {"byref", Word::kByRef, true},
    {"byval", Word::kByVal, true},
    {"call", Word::kCall, true},
    {"case", Word::kCase, true},
    {"class", Word::kClass, true},
    {"const", Word::kConst, true},
    {"default", Word::kDefault, false},
    {"dim", Word::kDim, true},
    {"do", Word::kDo, true},
    {"each", Word::kEach, true},
    {"else", Word::kElse, true},
    {"elseif", Word::kElseIf, true},
    {"empty", Word::kEmpty, true},
    {"end", Word::kEnd, true},
    {"eqv", Word::kEqv, true},
    {"erase", Word::kErase, true},
    {"error", Word::kError, false},
    {"exit", Word::kExit, true},
    {"explicit", Word::kExplicit, false},
    {"false", Word::kFalse, true},
    {"for", Word::kFor, true},
    {"function", Word::kFunction, true},
    {"get", Word::kGet, true},
    {"goto", Word::kGoTo, true},
    {"if", Word::kIf, true},
    {"imp", Word::kImp, true},
    {"in", Word::kIn, true},
    {"is", Word::kIs, true},
    {"let", Word::kLet, true},
    {"loop", Word::kLoop, true},
    {"me", Word::kMe, true},
    {"mod", Word::kMod, true},
    {"new", Word::kNew, true},
    {"next", Word::kNext, true},
    {"not", Word::kNot, true},
    {"nothing", Word::kNothing, true},
    {"null", Word::kNull, true},
    {"on", Word::kOn, true},
    {"option", Word::kOption, true},
    {"or", Word::kOr, true},
    {"preserve", Word::kPreserve, true},
    {"private", Word::kPrivate, true},
    {"property", Word::kProperty, false},
    {"public", Word::kPublic, true},
    {"redim", Word::kReDim, true},
    {"rem", Word::kRem, true},
    {"resume", Word::kResume, true},
    {"select", Word::kSelect, true},
    {"set", Word::kSet, true},
    {"step", Word::kStep, false},
    {"stop", Word::kStop, true},
    {"sub", Word::kSub, true},
    {"then", Word::kThen, true},
    {"to", Word::kTo, true},
    {"true", Word::kTrue, true},
    {"until", Word::kUntil, true},
    {"wend", Word::kWEnd, true},
    {"while", Word::kWhile, true},
    {"with", Word::kWith, true},
    {"xor", Word::kXor, true},
};

constexpr size_t kLongestWord = 8;

}  // namespace

Word FindWord(std::string_view text) {
  if (text.size() < 2 || text.size() > kLongestWord) return Word::kNone;
  std::array<char, kLongestWord> lower{};
  std::transform(text.begin(), text.end(), lower.begin(),
                 [](char c) { return c >= 'A' && c <= 'Z' ? static_cast<char>(c + ('a' - 'A')) : c; });
  const std::string_view folded(lower.data(), text.size());
  const auto* found = std::lower_bound(std::begin(kWords), std::end(kWords), folded,
                                       [](const WordRow& row, std::string_view wanted) { return row.text < wanted; });
  return found != std::end(kWords) && found->text == folded ? found->word : Word::kNone;
}

bool IsReserved(Word word) {
  const auto* found =
      std::find_if(std::begin(kWords), std::end(kWords), [word](const WordRow& row) { return row.word == word; });
  return found != std::end(kWords) && found->reserved;
}

}  // namespace kestrun::vbs
