#include "controls/list_box/text_lines.h"

#include <algorithm>

#include "base/text.h"

namespace kestrun {

bool IsDelimiter(char32_t character) {
  const bool is_letter = (character >= U'A' && character <= U'Z') || (character >= U'a' && character <= U'z');
  return !is_letter && character != U'_';
}

std::vector<std::string> SplitIntoLines(std::string_view text, int width, bool strip,
                                        const std::function<int(std::string_view)>& measure, size_t most) {
  const std::string whole = strip ? ReplaceAll(text, kCrLf, "") : std::string(text);
  const std::string_view all = whole;
  const bool fits = measure(all) <= width;  // then no part of it has to be measured
  std::vector<std::string> lines;
  size_t line = 0;                            // where the present line starts
  size_t delimiter = std::string_view::npos;  // the last one in it
  for (size_t at = 0; at < all.size();) {
    const size_t start = at;
    if (IsDelimiter(NextCodePoint(all, at))) delimiter = start;
    if (at < all.size() && (fits || measure(all.substr(line, at - line)) <= width)) continue;
    const size_t cut = std::min(delimiter, start);
    lines.emplace_back(TrimBlanks(all.substr(line, cut - line)));
    line = cut;
    delimiter = std::string_view::npos;
    if (lines.size() == most) return lines;
  }
  if (!lines.empty()) lines.back() += all.substr(line);
  return lines;
}

}  // namespace kestrun
