#include "script/vbscript/source/source_text.h"

#include <algorithm>

#include "base/text.h"

namespace kestrun::vbs {
namespace {

constexpr std::string_view kByteOrderMark = "\xEF\xBB\xBF";

bool EndsLine(char character) { return character == '\n' || character == '\r'; }

}  // namespace

SourceText::SourceText(std::string_view text)
    : text_(StartsWith(text, kByteOrderMark) ? text.substr(kByteOrderMark.size()) : text) {}

size_t SourceText::LineStart(uint32_t offset) const {
  size_t at = std::min<size_t>(offset, text_.size());
  while (at > 0 && !EndsLine(text_[at - 1])) --at;
  return at;
}

SourcePlace SourceText::PlaceOf(uint32_t offset) const {
  const size_t end = std::min<size_t>(offset, text_.size());
  SourcePlace place{1, 1};
  for (size_t at = 0; at < end; ++at) {
    const bool second_half = text_[at] == '\n' && at > 0 && text_[at - 1] == '\r';
    if (EndsLine(text_[at]) && !second_half) ++place.line;
  }
  const size_t start = LineStart(offset);
  place.column += static_cast<int>(ToUtf16(std::string_view(text_).substr(start, end - start)).size());
  return place;
}

std::string SourceText::LineAt(uint32_t offset) const {
  const size_t start = LineStart(offset);
  size_t end = start;
  while (end < text_.size() && !EndsLine(text_[end])) ++end;
  return text_.substr(start, end - start);
}

}  // namespace kestrun::vbs
