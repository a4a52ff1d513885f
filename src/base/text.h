// UTF-8 text as the program's logic handles it. Positions and lengths are bytes unless a name says otherwise.
#pragma once

#include <string>
#include <string_view>
#include <vector>

namespace kestrun {

inline constexpr std::string_view kCrLf = "\r\n";

// One simple case mapping, locale-free: ASCII, Latin-1, Latin Extended-A, Greek and Cyrillic letters.
[[nodiscard]] char32_t LowerCodePoint(char32_t code_point);
[[nodiscard]] char32_t UpperCodePoint(char32_t code_point);
[[nodiscard]] std::string ToLower(std::string_view text);
[[nodiscard]] std::string ToUpper(std::string_view text);

// Equality and order without regard to case.
[[nodiscard]] bool EqualsNoCase(std::string_view left, std::string_view right);
[[nodiscard]] int CompareNoCase(std::string_view left, std::string_view right);

// First position of `wanted` in `text` at or behind `from`, without regard to ASCII case; npos when absent.
[[nodiscard]] size_t FindNoCase(std::string_view text, std::string_view wanted, size_t from = 0);

// Blanks only, as the program's own Trim takes them; tabs stay.
[[nodiscard]] std::string_view TrimBlanks(std::string_view text);

[[nodiscard]] std::string ReplaceAll(std::string_view text, std::string_view wanted, std::string_view replacement);
[[nodiscard]] std::vector<std::string> Split(std::string_view text, std::string_view separator);
[[nodiscard]] bool StartsWith(std::string_view text, std::string_view prefix);

// Case-insensitive match of a file name against one pattern of "*" and "?".
[[nodiscard]] bool MatchesPattern(std::string_view name, std::string_view pattern);

// Conversions. Bytes that are no UTF-8 become U+FFFD; lone surrogates travel through as three-byte sequences.
[[nodiscard]] std::u16string ToUtf16(std::string_view utf8);
[[nodiscard]] std::string ToUtf8(std::u16string_view utf16);
void AppendUtf8(std::string& text, char32_t code_point);

// Decodes the code point at `position` and moves `position` behind it.
[[nodiscard]] char32_t NextCodePoint(std::string_view utf8, size_t& position);
// Number of code points.
[[nodiscard]] size_t CodePointCount(std::string_view utf8);

}  // namespace kestrun
