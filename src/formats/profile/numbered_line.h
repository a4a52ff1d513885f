// Key lines whose name is a prefix and a number: MAP0, MAP1 and so on. In the header, since long lists consist of them.
#pragma once

#include <cstdint>
#include <optional>
#include <string_view>

#include "formats/profile/profile_content.h"
#include "formats/profile/profile_lines.h"

namespace kestrun {

struct NumberedLine {
  uint64_t number = 0;
  std::string_view value;  // as in ProfileLine
  bool has_value = false;
};

namespace internal {

// The digits at the front of the text as std::to_string would write them, and their number; none for any others.
inline size_t ReadNumber(std::string_view text, uint64_t& number) {
  constexpr size_t kMostDigits = 19;
  size_t count = 0;
  number = 0;
  for (; count < text.size() && text[count] >= '0' && text[count] <= '9'; ++count) {
    number = number * 10 + static_cast<uint64_t>(text[count] - '0');
  }
  const bool has_leading_zero = count > 1 && text.front() == '0';
  return has_leading_zero || count > kMostDigits ? 0 : count;
}

}  // namespace internal

// Nothing for any other line. The number counts as std::to_string writes it; the prefix is ASCII and begins with a
// letter, and its case is not looked at.
[[nodiscard]] inline std::optional<NumberedLine> ParseNumberedLine(std::string_view line, std::string_view prefix) {
  line = TrimProfileBlanks(line);
  if (!EqualsNoAsciiCase(line.substr(0, prefix.size()), prefix)) return std::nullopt;
  NumberedLine parsed;
  const size_t digits = internal::ReadNumber(line.substr(prefix.size()), parsed.number);
  if (digits == 0) return std::nullopt;
  const std::string_view rest = TrimProfileBlanks(line.substr(prefix.size() + digits));
  if (!rest.empty() && rest.front() != '=') return std::nullopt;
  parsed.has_value = !rest.empty();
  if (parsed.has_value) parsed.value = TrimProfileBlanks(rest.substr(1));
  return parsed;
}

}  // namespace kestrun
