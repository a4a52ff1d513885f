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
  std::vector<std::string> lines;
  std::string line;
  size_t delimiter = std::string::npos;  // in the line
  for (size_t at = 0; at < whole.size();) {
    const size_t start = at;
    if (IsDelimiter(NextCodePoint(whole, at))) delimiter = line.size();
    const std::string_view character = std::string_view(whole).substr(start, at - start);
    std::string longer = line + std::string(character);
    if (at < whole.size() && measure(longer) <= width) {
      line = std::move(longer);
      continue;
    }
    const size_t cut = std::min(delimiter, line.size());
    lines.emplace_back(TrimBlanks(std::string_view(longer).substr(0, cut)));
    line = longer.substr(cut);
    delimiter = std::string::npos;
    if (lines.size() == most) return lines;
  }
  if (!lines.empty()) lines.back() += line;
  return lines;
}

}  // namespace kestrun
