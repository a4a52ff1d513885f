#include "script/javascript/loop_guards.h"

#include <algorithm>
#include <array>
#include <cctype>
#include <span>

#include "base/text.h"

namespace kestrun {
namespace {

bool IsNameLetter(char letter) {
  return std::isalnum(static_cast<unsigned char>(letter)) != 0 || letter == '_' || letter == '$' ||
         static_cast<unsigned char>(letter) >= 0x80;
}

bool IsIn(std::string_view word, std::span<const std::string_view> words) {
  return std::ranges::find(words, word) != words.end();
}

// Cuts source into tokens, as far as finding loops needs: names and numbers, texts, regular expressions, comments with
// blanks, and single signs.
class TokenReader {
 public:
  explicit TokenReader(std::string_view source) : rest_(source) {}

  [[nodiscard]] bool AtEnd() const { return rest_.empty(); }
  [[nodiscard]] std::string_view Next() {
    const std::string_view token = rest_.substr(0, std::max<size_t>(1, LengthOfNext()));
    rest_.remove_prefix(token.size());
    if (!IsBlank(token)) before_ = token;
    return token;
  }
  // Comments count as blanks.
  [[nodiscard]] static bool IsBlank(std::string_view token) {
    return std::isspace(static_cast<unsigned char>(token[0])) != 0 || token.starts_with("//") ||
           token.starts_with("/*");
  }

 private:
  [[nodiscard]] size_t LengthOfNext() const {
    const char first = rest_[0];
    if (IsNameLetter(first)) return std::min(rest_.size(), FirstOther());
    if (first == '"' || first == '\'') return LengthUpTo(first);
    if (rest_.starts_with("//")) return std::min(rest_.size(), rest_.find_first_of("\r\n"));
    if (rest_.starts_with("/*")) return std::min(rest_.size(), rest_.find("*/", 2)) + 2;
    if (first == '/' && MayBeginExpression()) return LengthOfRegularExpression();
    return 1;
  }
  [[nodiscard]] size_t FirstOther() const {
    return static_cast<size_t>(std::ranges::find_if_not(rest_, &IsNameLetter) - rest_.begin());
  }
  [[nodiscard]] size_t LengthUpTo(char quote) const {
    for (size_t at = 1; at < rest_.size(); ++at) {
      if (rest_[at] == '\\')
        ++at;
      else if (rest_[at] == quote)
        return at + 1;
    }
    return rest_.size();
  }
  [[nodiscard]] size_t LengthOfRegularExpression() const {
    bool in_set = false;
    for (size_t at = 1; at < rest_.size() && rest_[at] != '\r' && rest_[at] != '\n'; ++at) {
      if (rest_[at] == '\\')
        ++at;
      else if (rest_[at] == '[')
        in_set = true;
      else if (rest_[at] == ']')
        in_set = false;
      else if (rest_[at] == '/' && !in_set)
        return at + 1;
    }
    return 1;
  }
  // Behind a value a slash divides.
  [[nodiscard]] bool MayBeginExpression() const {
    static constexpr std::array<std::string_view, 8> kWords{"return", "typeof", "case", "in",
                                                            "delete", "void",   "new",  "throw"};
    if (before_.empty() || IsIn(before_, kWords)) return true;
    const char last = before_.back();
    return !IsNameLetter(last) && last != ')' && last != ']' && last != '"' && last != '\'' && last != '}';
  }

  std::string_view rest_;
  std::string_view before_;  // the last token that is no blank
};

// What stands behind the word `for`, up to its second part.
struct OpenFor {
  int depth;  // of parentheses around its parts
  int semicolons = 0;
};

}  // namespace

bool IsJavaScript(std::string_view language) {
  static constexpr std::array<std::string_view, 4> kNames{"jscript", "javascript", "ecmascript", "livescript"};
  return IsIn(ToLower(language), kNames);
}

// A line ends with LF, CR or both; a column is a character.
void GuardedSource::Copy(std::string_view what) {
  for (const char letter : what) {
    const bool ends_line = letter == '\n' || letter == '\r';
    const bool is_second_end = letter == '\n' && !text_.empty() && text_.back() == '\r';
    const bool begins_character = (static_cast<unsigned char>(letter) & 0xC0U) != 0x80U;
    text_ += letter;
    if (ends_line && !is_second_end) ++line_;
    if (ends_line) {
      column_ = 1;
    } else if (begins_character) {
      ++column_;
    }
  }
}

void GuardedSource::Insert(std::string_view what) {
  insertions_.push_back({line_, column_, static_cast<int>(what.size())});
  text_ += what;
  column_ += static_cast<int>(what.size());
}

GuardedSource::GuardedSource(std::string_view source, std::string_view call) {
  const std::string guard = std::string(call) + ",";
  TokenReader reader(source);
  std::vector<OpenFor> loops;
  std::string_view word;  // the last one that is no blank
  bool awaits_body = false;
  int depth = 0;
  while (!reader.AtEnd()) {
    const std::string_view token = reader.Next();
    if (token == ")" && !loops.empty() && loops.back().depth == depth) loops.pop_back();
    depth += token == "(" ? 1 : token == ")" ? -1 : 0;
    // A condition that is left out stands for true.
    const bool is_second_end =
        token == ";" && !loops.empty() && loops.back().depth == depth && loops.back().semicolons == 1 && word == ";";
    if (is_second_end) Insert("true");
    Copy(token);
    if (token == "{" && awaits_body) Insert(std::string(call) + ";");
    awaits_body = token == "function" || (awaits_body && token != "{");
    if (token == "(" && word == "while") Insert(guard);
    if (token == "(" && word == "for") loops.push_back({depth});
    if (token == ";" && !loops.empty() && loops.back().depth == depth && ++loops.back().semicolons == 1) Insert(guard);
    if (!TokenReader::IsBlank(token)) word = token;
  }
}

int GuardedSource::OriginalColumn(int line, int column) const {
  int inserted = 0;
  for (const Insertion& one : insertions_) {
    if (one.line == line && one.column < column) inserted += std::min(one.length, column - one.column);
  }
  return column - inserted;
}

}  // namespace kestrun
