// Searching and folding of UTF-16 texts under the script's time limit.
#pragma once

#include <string>
#include <string_view>

#include "base/text.h"
#include "script/vbscript/runtime/context.h"

namespace kestrun::vbs {

// One unit in the other case.
[[nodiscard]] inline char16_t LowerUnit(char16_t unit) {
  if (unit < 0x80) return static_cast<char16_t>(unit >= u'A' && unit <= u'Z' ? unit + 32 : unit);
  return static_cast<char16_t>(LowerCodePoint(unit));
}
[[nodiscard]] inline char16_t UpperUnit(char16_t unit) {
  if (unit < 0x80) return static_cast<char16_t>(unit >= u'a' && unit <= u'z' ? unit - 32 : unit);
  return static_cast<char16_t>(UpperCodePoint(unit));
}
// Every unit in lower case, for comparing without regard to case.
[[nodiscard]] std::u16string Fold(RuntimeContext& context, std::u16string_view text);
// Below, at or above zero, unit by unit.
[[nodiscard]] int CompareUnits(RuntimeContext& context, std::u16string_view left, std::u16string_view right);
// The same without regard to case.
[[nodiscard]] int CompareFolded(RuntimeContext& context, std::u16string_view left, std::u16string_view right);

// Finds one text in another as often as asked. Folds both once when case does not count.
class TextFinder {
 public:
  TextFinder(RuntimeContext& context, std::u16string_view text, std::u16string_view wanted, bool ignore_case);

  // The first place at or behind `from`, npos when there is none.
  [[nodiscard]] size_t Find(size_t from);
  // The last place that ends at or in front of `end`.
  [[nodiscard]] size_t FindLast(size_t end);

 private:
  bool MatchesAt(size_t place);
  void CountWork(size_t units);

  RuntimeContext& context_;
  std::u16string folded_text_;
  std::u16string folded_wanted_;
  std::u16string_view text_;
  std::u16string_view wanted_;
  size_t uncharged_ = 0;
};

}  // namespace kestrun::vbs
