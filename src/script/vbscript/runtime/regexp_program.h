// A regular expression as a program for the matcher: compiled once, run against many texts.
#pragma once

#include <cstdint>
#include <string_view>
#include <vector>

namespace kestrun::vbs {

// A set of UTF-16 units: sorted ranges, ends included.
struct UnitSet {
  struct Range {
    char16_t first;
    char16_t last;
  };
  std::vector<Range> ranges;
  bool negated = false;

  void Add(char16_t first, char16_t last) { ranges.push_back({first, last}); }
  [[nodiscard]] bool Contains(char16_t unit) const;
};

enum class PatternOperation : uint8_t {
  kUnit,  // the unit `first`
  kAny,   // anything but a line feed
  kSet,   // a unit of set `first`
  kRun,   // the one-unit instruction that follows, `least` to `most` times
  kLineStart,
  kLineEnd,
  kWordBoundary,
  kNoWordBoundary,
  kBackReference,   // the text of group `first` again
  kSavePosition,    // slot `slot` = position
  kCloseGroup,      // group `first` = from the position in slot `slot` to here
  kClearCount,      // slot `slot` = 0
  kFork,            // go on at `first`, and at `second` when that fails
  kJump,            // to `first`
  kLoop,            // head of a loop: counter in slot `slot`, its last start in slot + 1, body behind, end at `first`
  kEnterLoop,       // begins the next turn: the body follows
  kLookAhead,       // barrier; its stack height goes to slot `slot`; end at `first`
  kEndLookAhead,    // the text ahead matched
  kRefuseAhead,     // barrier of a negative look ahead; goes on at `first` when the body fails
  kEndRefuseAhead,  // the text ahead matched, so the look ahead fails
  kMatch,
};

struct PatternInstruction {
  PatternOperation operation;
  bool greedy = true;
  uint32_t slot = 0;
  uint32_t first = 0;
  uint32_t second = 0;
  uint32_t least = 0;
  uint32_t most = 0;
};

inline constexpr uint32_t kUnlimited = UINT32_MAX;

struct RegExpProgram {
  std::vector<PatternInstruction> code;
  std::vector<UnitSet> sets;
  // Slots 2n and 2n + 1 hold where group n begins and ends; group 0 is the whole match. Loop state follows.
  uint32_t group_count = 1;
  uint32_t slot_count = 2;
  bool ignore_case = false;
  bool multiline = false;
};

[[nodiscard]] bool IsWordUnit(char16_t unit);

// Errors: 5017 syntax, 5018 unexpected quantifier, 5019 missing "]", 5020 missing ")", 5021 reversed range; 28 when
// groups nest too deeply.
[[nodiscard]] RegExpProgram CompileRegExp(std::u16string_view pattern, bool ignore_case, bool multiline);

}  // namespace kestrun::vbs
