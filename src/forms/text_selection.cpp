#include "forms/text_selection.h"

#include <algorithm>

#include "base/text.h"

namespace kestrun {
namespace {

size_t StartIn(const std::u16string& text, int start) {
  return std::min(static_cast<size_t>(std::max(start, 0)), text.size());
}

}  // namespace

std::string SelectedPart(std::string_view text, int start, int length) {
  const std::u16string units = ToUtf16(text);
  return ToUtf8(std::u16string_view(units).substr(StartIn(units, start), static_cast<size_t>(std::max(length, 0))));
}

ReplacedText ReplaceSelection(std::string_view text, int start, int length, std::string_view replacement) {
  std::u16string units = ToUtf16(text);
  const std::u16string inserted = ToUtf16(replacement);
  const size_t from = StartIn(units, start);
  units.replace(from, static_cast<size_t>(std::max(length, 0)), inserted);
  return {ToUtf8(units), static_cast<int>(from + inserted.size())};
}

}  // namespace kestrun
