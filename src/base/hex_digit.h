// Hexadecimal digits in texts of any encoding.
#pragma once

namespace kestrun {

// 0 to 15; -1 for what is no digit.
[[nodiscard]] constexpr int HexDigit(char32_t unit) {
  if (unit >= U'0' && unit <= U'9') return static_cast<int>(unit - U'0');
  const char32_t lower = unit | 0x20;
  return lower >= U'a' && lower <= U'f' ? static_cast<int>(lower - U'a') + 10 : -1;
}

}  // namespace kestrun
