#include "script/vbscript/source/source_text.h"

#include <algorithm>

#include "base/text.h"
#include "base/text_file.h"

namespace kestrun::vbs {
namespace {

constexpr std::string_view kLittleEndianMark = "\xFF\xFE";
constexpr std::string_view kBigEndianMark = "\xFE\xFF";

// UTF-16 of either byte order, behind its mark; a byte too many is dropped.
std::string FromUtf16(std::string_view bytes, bool big_endian) {
  std::u16string units;
  units.reserve(bytes.size() / 2);
  for (size_t at = 0; at + 1 < bytes.size(); at += 2) {
    const auto first = static_cast<unsigned char>(bytes[at]);
    const auto second = static_cast<unsigned char>(bytes[at + 1]);
    units.push_back(static_cast<char16_t>(big_endian ? first << 8 | second : second << 8 | first));
  }
  return ToUtf8(units);
}

std::string WithoutMark(std::string_view text) {
  if (StartsWith(text, kUtf8Mark)) return std::string(text.substr(kUtf8Mark.size()));
  if (StartsWith(text, kLittleEndianMark)) return FromUtf16(text.substr(2), false);
  if (StartsWith(text, kBigEndianMark)) return FromUtf16(text.substr(2), true);
  return std::string(text);
}

bool EndsLine(char character) { return character == '\n' || character == '\r'; }

}  // namespace

SourceText::SourceText(std::string_view text) : text_(WithoutMark(text)) {}

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
