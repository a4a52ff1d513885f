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

// In alphabetical order, as the words are numbered.
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

// The first row that begins with a letter or with one behind it.
constexpr std::array<uint8_t, 27> kRowsByLetter = [] {
  std::array<uint8_t, 27> rows{};
  for (size_t letter = 0; letter < rows.size(); ++letter) {
    while (rows[letter] < std::size(kWords) && kWords[rows[letter]].text[0] < static_cast<char>('a' + letter)) {
      ++rows[letter];
    }
  }
  return rows;
}();

constexpr bool RowsFollowTheWords() {
  for (size_t row = 0; row < std::size(kWords); ++row) {
    if (static_cast<size_t>(kWords[row].word) != row + 1) return false;
  }
  return true;
}
static_assert(RowsFollowTheWords());

char Lower(char c) { return c >= 'A' && c <= 'Z' ? static_cast<char>(c + ('a' - 'A')) : c; }

}  // namespace

Word FindWord(std::string_view text) {
  if (text.size() < 2 || text.size() > kLongestWord) return Word::kNone;
  const char first = Lower(text[0]);
  if (first < 'a' || first > 'z') return Word::kNone;
  const auto letter = static_cast<size_t>(first - 'a');
  for (size_t row = kRowsByLetter[letter]; row < kRowsByLetter[letter + 1]; ++row) {
    const std::string_view word = kWords[row].text;
    if (word.size() == text.size() && std::equal(word.begin() + 1, word.end(), text.begin() + 1,
                                                 [](char wanted, char c) { return wanted == Lower(c); })) {
      return kWords[row].word;
    }
  }
  return Word::kNone;
}

bool IsReserved(Word word) { return word != Word::kNone && kWords[static_cast<size_t>(word) - 1].reserved; }

}  // namespace kestrun::vbs
