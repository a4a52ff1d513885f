#include "base/text.h"

#include <algorithm>

namespace kestrun {
namespace {

constexpr char32_t kReplacement = 0xFFFD;

bool IsContinuation(char byte) { return (static_cast<unsigned char>(byte) & 0xC0) == 0x80; }

char AsciiLower(char character) {
  return character >= 'A' && character <= 'Z' ? static_cast<char>(character + 32) : character;
}

// Latin Extended-A pairs letters as upper, lower on even, odd code points, except for two runs where it is odd, even.
bool UpperIsOdd(char32_t code_point) {
  return (code_point >= 0x139 && code_point <= 0x148) || (code_point >= 0x179 && code_point <= 0x17E);
}

bool InExtendedA(char32_t code_point) {
  return code_point >= 0x100 && code_point <= 0x17E && code_point != 0x130 && code_point != 0x131 &&
         code_point != 0x138 && code_point != 0x149 && code_point != 0x178;
}

// Greek capitals with an accent, which stand apart from their small letters.
struct CasePair {
  char32_t upper;
  char32_t lower;
};
constexpr CasePair kAccentedGreek[]{{0x386, 0x3AC}, {0x388, 0x3AD}, {0x389, 0x3AE}, {0x38A, 0x3AF}, {0x38C, 0x3CC},
                                    {0x38E, 0x3CD}, {0x38F, 0x3CE}, {0x3AA, 0x3CA}, {0x3AB, 0x3CB}};

// Cyrillic letters beyond the Russian and Serbian ones: pairs as upper, lower on even, odd code points.
bool InExtendedCyrillic(char32_t code_point) {
  return (code_point >= 0x460 && code_point <= 0x481) || (code_point >= 0x48A && code_point <= 0x4BF) ||
         (code_point >= 0x4D0 && code_point <= 0x52F);
}

template <char32_t (*Map)(char32_t)>
std::string MapText(std::string_view text) {
  std::string mapped;
  mapped.reserve(text.size());
  for (size_t position = 0; position < text.size();) {
    const char byte = text[position];
    if (static_cast<unsigned char>(byte) < 0x80) {
      mapped.push_back(static_cast<char>(Map(static_cast<char32_t>(byte))));
      ++position;
    } else {
      AppendUtf8(mapped, Map(NextCodePoint(text, position)));
    }
  }
  return mapped;
}

}  // namespace

char32_t LowerCodePoint(char32_t code_point) {
  if (code_point < 0x80) return code_point >= 'A' && code_point <= 'Z' ? code_point + 32 : code_point;
  if (code_point >= 0xC0 && code_point <= 0xDE && code_point != 0xD7) return code_point + 32;
  if (code_point == 0x178) return 0xFF;
  if (InExtendedA(code_point)) {
    const bool upper = ((code_point & 1) != 0) == UpperIsOdd(code_point);
    return upper ? code_point + 1 : code_point;
  }
  if (code_point >= 0x391 && code_point <= 0x3A9 && code_point != 0x3A2) return code_point + 32;
  if (code_point >= 0x410 && code_point <= 0x42F) return code_point + 32;
  if (code_point >= 0x400 && code_point <= 0x40F) return code_point + 80;
  if (InExtendedCyrillic(code_point)) return code_point | 1;
  for (const CasePair& pair : kAccentedGreek) {
    if (pair.upper == code_point) return pair.lower;
  }
  return code_point;
}

char32_t UpperCodePoint(char32_t code_point) {
  if (code_point < 0x80) return code_point >= 'a' && code_point <= 'z' ? code_point - 32 : code_point;
  if (code_point >= 0xE0 && code_point <= 0xFE && code_point != 0xF7) return code_point - 32;
  if (code_point == 0xFF) return 0x178;
  if (InExtendedA(code_point)) {
    const bool lower = ((code_point & 1) == 0) == UpperIsOdd(code_point);
    return lower ? code_point - 1 : code_point;
  }
  if (code_point >= 0x3B1 && code_point <= 0x3C9 && code_point != 0x3C2) return code_point - 32;
  if (code_point >= 0x430 && code_point <= 0x44F) return code_point - 32;
  if (code_point >= 0x450 && code_point <= 0x45F) return code_point - 80;
  if (InExtendedCyrillic(code_point)) return code_point & ~char32_t{1};
  for (const CasePair& pair : kAccentedGreek) {
    if (pair.lower == code_point) return pair.upper;
  }
  return code_point;
}

std::string ToLower(std::string_view text) { return MapText<LowerCodePoint>(text); }

std::string ToUpper(std::string_view text) { return MapText<UpperCodePoint>(text); }

bool EqualsNoCase(std::string_view left, std::string_view right) { return CompareNoCase(left, right) == 0; }

int CompareNoCase(std::string_view left, std::string_view right) {
  size_t left_position = 0;
  size_t right_position = 0;
  while (left_position < left.size() && right_position < right.size()) {
    const auto left_byte = static_cast<unsigned char>(left[left_position]);
    const auto right_byte = static_cast<unsigned char>(right[right_position]);
    if (left_byte < 0x80 && right_byte < 0x80) {
      const char left_letter = AsciiLower(static_cast<char>(left_byte));
      const char right_letter = AsciiLower(static_cast<char>(right_byte));
      if (left_letter != right_letter) return left_letter < right_letter ? -1 : 1;
      ++left_position;
      ++right_position;
      continue;
    }
    const char32_t left_point = LowerCodePoint(NextCodePoint(left, left_position));
    const char32_t right_point = LowerCodePoint(NextCodePoint(right, right_position));
    if (left_point != right_point) return left_point < right_point ? -1 : 1;
  }
  if (left_position < left.size()) return 1;
  return right_position < right.size() ? -1 : 0;
}

size_t FindNoCase(std::string_view text, std::string_view wanted, size_t from) {
  if (from > text.size()) return std::string_view::npos;
  const auto* found = std::search(text.begin() + static_cast<std::ptrdiff_t>(from), text.end(), wanted.begin(),
                                  wanted.end(), [](char a, char b) { return AsciiLower(a) == AsciiLower(b); });
  if (found == text.end() && !wanted.empty()) return std::string_view::npos;
  return static_cast<size_t>(found - text.begin());
}

std::string_view TrimBlanks(std::string_view text) {
  const size_t first = text.find_first_not_of(' ');
  if (first == std::string_view::npos) return {};
  return text.substr(first, text.find_last_not_of(' ') - first + 1);
}

std::string ReplaceAll(std::string_view text, std::string_view wanted, std::string_view replacement) {
  if (wanted.empty()) return std::string(text);
  std::string result;
  size_t from = 0;
  for (size_t at = text.find(wanted); at != std::string_view::npos; at = text.find(wanted, from)) {
    result.append(text, from, at - from).append(replacement);
    from = at + wanted.size();
  }
  return result.append(text, from);
}

std::vector<std::string> Split(std::string_view text, std::string_view separator) {
  std::vector<std::string> pieces;
  size_t from = 0;
  for (size_t at = text.find(separator); at != std::string_view::npos; at = text.find(separator, from)) {
    pieces.emplace_back(text.substr(from, at - from));
    from = at + separator.size();
  }
  pieces.emplace_back(text.substr(from));
  return pieces;
}

bool StartsWith(std::string_view text, std::string_view prefix) { return text.substr(0, prefix.size()) == prefix; }

namespace {

// "*.bms": a star, and behind it plain characters.
bool IsPlainEnding(std::string_view pattern) {
  return pattern.starts_with('*') && std::all_of(pattern.begin() + 1, pattern.end(), [](char one) {
           return static_cast<unsigned char>(one) < 0x80 && one != '*' && one != '?';
         });
}

}  // namespace

bool MatchesPattern(std::string_view name, std::string_view pattern) {
  if (IsPlainEnding(pattern)) {
    const std::string_view ending = pattern.substr(1);
    return name.size() >= ending.size() && EqualsNoCase(name.substr(name.size() - ending.size()), ending);
  }
  const std::u16string text = ToUtf16(ToLower(name));
  const std::u16string mask = ToUtf16(ToLower(pattern));
  size_t text_at = 0;
  size_t mask_at = 0;
  size_t star = std::u16string::npos;
  size_t resume = 0;
  while (text_at < text.size()) {
    if (mask_at < mask.size() && mask[mask_at] == u'*') {
      star = mask_at++;
      resume = text_at;
    } else if (mask_at < mask.size() && (mask[mask_at] == u'?' || mask[mask_at] == text[text_at])) {
      ++mask_at;
      ++text_at;
    } else if (star != std::u16string::npos) {
      mask_at = star + 1;
      text_at = ++resume;
    } else {
      return false;
    }
  }
  while (mask_at < mask.size() && mask[mask_at] == u'*') ++mask_at;
  return mask_at == mask.size();
}

std::u16string ToUtf16(std::string_view utf8) {
  std::u16string result;
  result.reserve(utf8.size());
  for (size_t position = 0; position < utf8.size();) {
    const char32_t code_point = NextCodePoint(utf8, position);
    if (code_point < 0x10000) {
      result.push_back(static_cast<char16_t>(code_point));
    } else {
      result.push_back(static_cast<char16_t>(0xD7C0 + (code_point >> 10)));
      result.push_back(static_cast<char16_t>(0xDC00 + (code_point & 0x3FF)));
    }
  }
  return result;
}

std::string ToUtf8(std::u16string_view utf16) {
  const auto other = std::find_if(utf16.begin(), utf16.end(), [](char16_t unit) { return unit >= 0x80; });
  std::string result;
  result.reserve(utf16.size());
  result.resize(static_cast<size_t>(other - utf16.begin()));
  std::transform(utf16.begin(), other, result.begin(), [](char16_t unit) { return static_cast<char>(unit); });
  for (size_t at = result.size(); at < utf16.size(); ++at) {
    const char32_t unit = utf16[at];
    const bool pair = unit >= 0xD800 && unit < 0xDC00 && at + 1 < utf16.size() && (utf16[at + 1] & 0xFC00) == 0xDC00;
    if (pair) {
      AppendUtf8(result, 0x10000 + ((unit - 0xD800) << 10) + (utf16[++at] - 0xDC00U));
    } else {
      AppendUtf8(result, unit);
    }
  }
  return result;
}

void AppendUtf8(std::string& text, char32_t code_point) {
  if (code_point < 0x80) {
    text.push_back(static_cast<char>(code_point));
  } else if (code_point < 0x800) {
    text.push_back(static_cast<char>(0xC0 | (code_point >> 6)));
    text.push_back(static_cast<char>(0x80 | (code_point & 0x3F)));
  } else if (code_point < 0x10000) {
    text.push_back(static_cast<char>(0xE0 | (code_point >> 12)));
    text.push_back(static_cast<char>(0x80 | ((code_point >> 6) & 0x3F)));
    text.push_back(static_cast<char>(0x80 | (code_point & 0x3F)));
  } else {
    text.push_back(static_cast<char>(0xF0 | (code_point >> 18)));
    text.push_back(static_cast<char>(0x80 | ((code_point >> 12) & 0x3F)));
    text.push_back(static_cast<char>(0x80 | ((code_point >> 6) & 0x3F)));
    text.push_back(static_cast<char>(0x80 | (code_point & 0x3F)));
  }
}

char32_t NextCodePoint(std::string_view utf8, size_t& position) {
  const auto lead = static_cast<unsigned char>(utf8[position++]);
  if (lead < 0x80) return lead;
  const int extra = lead >= 0xF0 && lead < 0xF5   ? 3
                    : lead >= 0xE0 && lead < 0xF0 ? 2
                    : lead >= 0xC2 && lead < 0xE0 ? 1
                                                  : 0;
  if (extra == 0 || position + static_cast<size_t>(extra) > utf8.size()) return kReplacement;
  char32_t code_point = lead & (0x3FU >> extra);
  for (int at = 0; at < extra; ++at) {
    const char next = utf8[position + static_cast<size_t>(at)];
    if (!IsContinuation(next)) return kReplacement;
    code_point = (code_point << 6) | (static_cast<unsigned char>(next) & 0x3FU);
  }
  const char32_t least = extra == 1 ? 0x80 : extra == 2 ? 0x800 : 0x10000;
  if (code_point < least || code_point > 0x10FFFF) return kReplacement;
  position += static_cast<size_t>(extra);
  return code_point;
}

size_t CodePointCount(std::string_view utf8) {
  size_t count = 0;
  for (size_t position = 0; position < utf8.size(); ++count) static_cast<void>(NextCodePoint(utf8, position));
  return count;
}

}  // namespace kestrun
