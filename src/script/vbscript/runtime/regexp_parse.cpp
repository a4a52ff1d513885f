#include <algorithm>
#include <optional>

#include "base/hex_digit.h"
#include "script/vbscript/runtime/errors.h"
#include "script/vbscript/runtime/regexp_tree.h"

namespace kestrun::vbs {
namespace {

constexpr int kMostNesting = 250;
constexpr uint32_t kMostRepeats = 1'000'000'000;

std::unique_ptr<PatternNode> NewNode(NodeKind kind, uint32_t value = 0) {
  auto node = std::make_unique<PatternNode>();
  node->kind = kind;
  node->value = value;
  return node;
}

void AddWordUnits(UnitSet& set) {
  set.Add(u'0', u'9');
  set.Add(u'A', u'Z');
  set.Add(u'_', u'_');
  set.Add(u'a', u'z');
}

void AddSpaces(UnitSet& set) {
  set.Add(u'\t', u'\r');  // tab, line feed, vertical tab, form feed, carriage return
  set.Add(u' ', u' ');
}

void AddComplement(UnitSet& set, UnitSet other) {
  std::sort(other.ranges.begin(), other.ranges.end(), [](auto left, auto right) { return left.first < right.first; });
  uint32_t next = 0;
  for (const UnitSet::Range range : other.ranges) {
    if (range.first > next) set.Add(static_cast<char16_t>(next), static_cast<char16_t>(range.first - 1));
    next = uint32_t{range.last} + 1;
  }
  if (next <= 0xFFFF) set.Add(static_cast<char16_t>(next), 0xFFFF);
}

// Adds \d, \w, \s or, as a capital, what is not in it; false for any other letter.
bool AddClass(UnitSet& set, char16_t letter) {
  UnitSet named;
  switch (letter | 0x20) {
    case u'd': named.Add(u'0', u'9'); break;
    case u'w': AddWordUnits(named); break;
    case u's': AddSpaces(named); break;
    default: return false;
  }
  if (letter >= u'a') {
    set.ranges.insert(set.ranges.end(), named.ranges.begin(), named.ranges.end());
  } else {
    AddComplement(set, std::move(named));
  }
  return true;
}

bool IsDigit(char16_t unit) { return unit >= u'0' && unit <= u'9'; }
bool IsOctal(char16_t unit) { return unit >= u'0' && unit <= u'7'; }
bool IsAsciiLetter(char16_t unit) { return (unit | 0x20) >= u'a' && (unit | 0x20) <= u'z' && unit < 0x80; }

class Parser {
 public:
  explicit Parser(std::u16string_view pattern) : pattern_(pattern) {}

  RegExpTree Run() {
    tree_.root = ParseAlternatives();
    if (!AtEnd()) RaiseScript(error::kRegExpSyntax);  // only a ")" too many stops the walk
    return std::move(tree_);
  }

 private:
  [[nodiscard]] bool AtEnd() const { return at_ == pattern_.size(); }
  [[nodiscard]] bool Sees(char16_t unit) const { return !AtEnd() && pattern_[at_] == unit; }
  [[nodiscard]] bool Sees(std::u16string_view text) const { return pattern_.substr(at_, text.size()) == text; }
  bool Take(char16_t unit) {
    if (!Sees(unit)) return false;
    ++at_;
    return true;
  }
  bool Take(std::u16string_view text) {
    if (!Sees(text)) return false;
    at_ += text.size();
    return true;
  }

  std::unique_ptr<PatternNode> ParseAlternatives() {
    if (++depth_ > kMostNesting) RaiseScript(error::kOutOfStackSpace);
    auto first = ParseSequence();
    if (Sees(u'|')) {
      auto alternatives = NewNode(NodeKind::kAlternatives);
      alternatives->children.push_back(std::move(first));
      while (Take(u'|')) alternatives->children.push_back(ParseSequence());
      first = std::move(alternatives);
    }
    --depth_;
    return first;
  }

  std::unique_ptr<PatternNode> ParseSequence() {
    auto sequence = NewNode(NodeKind::kSequence);
    while (!AtEnd() && !Sees(u'|') && !Sees(u')')) {
      auto atom = ParseAtom();
      sequence->children.push_back(ParseQuantifier(std::move(atom)));
    }
    return sequence;
  }

  std::unique_ptr<PatternNode> ParseAtom() {
    const char16_t unit = pattern_[at_++];
    switch (unit) {
      case u'.': return NewNode(NodeKind::kAny);
      case u'^': return NewNode(NodeKind::kLineStart);
      case u'$': return NewNode(NodeKind::kLineEnd);
      case u'(': return ParseGroup();
      case u'[': return ParseSet();
      case u'\\': return ParseEscape();
      case u'*':
      case u'+':
      case u'?': RaiseScript(error::kRegExpQuantifier);
      case u'{':
        --at_;
        if (ReadBounds()) RaiseScript(error::kRegExpQuantifier);
        ++at_;
        return NewNode(NodeKind::kUnit, unit);
      default: return NewNode(NodeKind::kUnit, unit);
    }
  }

  std::unique_ptr<PatternNode> ParseGroup() {
    NodeKind kind = NodeKind::kGroup;
    bool plain = false;
    if (Take(u"?:")) {
      plain = true;
    } else if (Take(u"?=")) {
      kind = NodeKind::kLookAhead;
    } else if (Take(u"?!")) {
      kind = NodeKind::kRefuseAhead;
    } else if (Sees(u'?')) {
      RaiseScript(error::kRegExpSyntax);
    }
    auto group = NewNode(kind, kind == NodeKind::kGroup && !plain ? tree_.group_count++ : 0);
    auto content = ParseAlternatives();
    if (!Take(u')')) RaiseScript(error::kRegExpParenthesis);
    if (plain) return content;
    group->children.push_back(std::move(content));
    return group;
  }

  struct Bounds {
    uint32_t least;
    uint32_t most;
  };

  std::optional<uint32_t> ReadNumber() {
    if (AtEnd() || !IsDigit(pattern_[at_])) return std::nullopt;
    uint32_t number = 0;
    for (; !AtEnd() && IsDigit(pattern_[at_]); ++at_) {
      number = std::min<uint32_t>(kMostRepeats, number * 10 + static_cast<uint32_t>(pattern_[at_] - u'0'));
      if (number >= kMostRepeats / 10) number = kMostRepeats / 10;
    }
    return number;
  }

  // "{2}", "{2,}" or "{2,5}"; a brace that begins none of them is a plain character and nothing is taken.
  std::optional<Bounds> ReadBounds() {
    const size_t start = at_;
    if (!Take(u'{')) return std::nullopt;
    if (const std::optional<uint32_t> least = ReadNumber()) {
      if (Take(u'}')) return Bounds{*least, *least};
      if (Take(u',')) {
        if (Take(u'}')) return Bounds{*least, kUnlimited};
        const std::optional<uint32_t> most = ReadNumber();
        if (most && Take(u'}')) return Bounds{*least, *most};
      }
    }
    at_ = start;
    return std::nullopt;
  }

  std::optional<Bounds> ReadQuantifier() {
    if (Take(u'*')) return Bounds{0, kUnlimited};
    if (Take(u'+')) return Bounds{1, kUnlimited};
    if (Take(u'?')) return Bounds{0, 1};
    return ReadBounds();
  }

  std::unique_ptr<PatternNode> ParseQuantifier(std::unique_ptr<PatternNode> atom) {
    const std::optional<Bounds> bounds = ReadQuantifier();
    if (!bounds) return atom;
    if (atom->IsPlace()) RaiseScript(error::kRegExpQuantifier);
    if (bounds->least > bounds->most) RaiseScript(error::kRegExpSyntax);
    auto repeat = NewNode(NodeKind::kRepeat);
    repeat->least = bounds->least;
    repeat->most = bounds->most;
    repeat->greedy = !Take(u'?');
    repeat->children.push_back(std::move(atom));
    return repeat;
  }

  std::unique_ptr<PatternNode> SetNode(UnitSet set) {
    tree_.sets.push_back(std::move(set));
    return NewNode(NodeKind::kSet, static_cast<uint32_t>(tree_.sets.size() - 1));
  }

  std::unique_ptr<PatternNode> ParseEscape() {
    if (AtEnd()) RaiseScript(error::kRegExpSyntax);
    const char16_t unit = pattern_[at_];
    if (unit == u'b' || unit == u'B') {
      ++at_;
      return NewNode(unit == u'b' ? NodeKind::kWordBoundary : NodeKind::kNoWordBoundary);
    }
    UnitSet set;
    if (IsAsciiLetter(unit) && AddClass(set, unit)) {
      ++at_;
      return SetNode(std::move(set));
    }
    if (unit >= u'1' && unit <= u'9') {
      if (const std::optional<uint32_t> group = ReadGroupNumber()) return NewNode(NodeKind::kBackReference, *group);
    }
    return NewNode(NodeKind::kUnit, ReadCharacterEscape());
  }

  // Two digits when that many groups were opened before, else one, else it is no reference.
  std::optional<uint32_t> ReadGroupNumber() {
    const auto one = static_cast<uint32_t>(pattern_[at_] - u'0');
    if (at_ + 1 < pattern_.size() && IsDigit(pattern_[at_ + 1])) {
      const uint32_t two = one * 10 + static_cast<uint32_t>(pattern_[at_ + 1] - u'0');
      if (two < tree_.group_count) {
        at_ += 2;
        return two;
      }
    }
    if (one >= tree_.group_count) return std::nullopt;
    ++at_;
    return one;
  }

  // The unit that stands behind a backslash, inside and outside of sets.
  char16_t ReadCharacterEscape() {
    const char16_t unit = pattern_[at_];
    if (IsOctal(unit)) return ReadOctal();
    ++at_;
    switch (unit) {
      case u'f': return u'\f';
      case u'n': return u'\n';
      case u'r': return u'\r';
      case u't': return u'\t';
      case u'v': return u'\v';
      case u'x': return ReadHex(2).value_or(unit);
      case u'u': return ReadHex(4).value_or(unit);
      case u'c': return ReadControl();
      default: return unit;
    }
  }

  char16_t ReadControl() {
    if (AtEnd() || !IsAsciiLetter(pattern_[at_])) return u'c';
    return static_cast<char16_t>(pattern_[at_++] & 0x1F);
  }

  // Up to three digits, as long as the value stays below 256.
  char16_t ReadOctal() {
    uint32_t value = 0;
    for (int count = 0; count < 3 && !AtEnd() && IsOctal(pattern_[at_]); ++count) {
      const uint32_t next = value * 8 + static_cast<uint32_t>(pattern_[at_] - u'0');
      if (next > 0xFF) break;
      value = next;
      ++at_;
    }
    return static_cast<char16_t>(value);
  }

  std::optional<char16_t> ReadHex(size_t digits) {
    if (at_ + digits > pattern_.size()) return std::nullopt;
    int value = 0;
    for (size_t index = 0; index < digits; ++index) {
      const int digit = HexDigit(pattern_[at_ + index]);
      if (digit < 0) return std::nullopt;
      value = value * 16 + digit;
    }
    at_ += digits;
    return static_cast<char16_t>(value);
  }

  // One member of a set: a unit, or nothing when a class such as \d was added.
  std::optional<char16_t> ReadSetMember(UnitSet& set) {
    const char16_t unit = pattern_[at_++];
    if (unit != u'\\') return unit;
    if (AtEnd()) RaiseScript(error::kRegExpBracket);
    const char16_t letter = pattern_[at_];
    if (letter == u'b') {
      ++at_;
      return u'\b';
    }
    if (IsAsciiLetter(letter) && AddClass(set, letter)) {
      ++at_;
      return std::nullopt;
    }
    return ReadCharacterEscape();
  }

  std::unique_ptr<PatternNode> ParseSet() {
    UnitSet set;
    set.negated = Take(u'^');
    while (!Sees(u']')) {
      if (AtEnd()) RaiseScript(error::kRegExpBracket);
      ReadRange(set);
    }
    ++at_;
    return SetNode(std::move(set));
  }

  void ReadRange(UnitSet& set) {
    const std::optional<char16_t> first = ReadSetMember(set);
    const bool range = first && Sees(u'-') && at_ + 1 < pattern_.size() && pattern_[at_ + 1] != u']';
    if (!range) {
      if (first) set.Add(*first, *first);
      return;
    }
    ++at_;
    const std::optional<char16_t> last = ReadSetMember(set);
    if (!last) {  // a class cannot end a range: the hyphen is a plain one
      set.Add(*first, *first);
      set.Add(u'-', u'-');
      return;
    }
    if (*last < *first) RaiseScript(error::kRegExpRange);
    set.Add(*first, *last);
  }

  std::u16string_view pattern_;
  size_t at_ = 0;
  int depth_ = 0;
  RegExpTree tree_;
};

}  // namespace

RegExpTree ParseRegExp(std::u16string_view pattern) { return Parser(pattern).Run(); }

}  // namespace kestrun::vbs
