#include "base/url_escapes.h"

namespace kestrun {
namespace {

// -1 for what is no digit.
int HexDigit(char c) {
  if (c >= '0' && c <= '9') return c - '0';
  const char lower = static_cast<char>(c | 0x20);
  return lower >= 'a' && lower <= 'f' ? lower - 'a' + 10 : -1;
}

}  // namespace

std::string WithoutUrlEscapes(std::string_view text) {
  std::string plain;
  for (size_t at = 0; at < text.size(); ++at) {
    const bool is_escape =
        text[at] == '%' && at + 2 < text.size() && HexDigit(text[at + 1]) >= 0 && HexDigit(text[at + 2]) >= 0;
    plain += is_escape ? static_cast<char>(HexDigit(text[at + 1]) * 16 + HexDigit(text[at + 2])) : text[at];
    if (is_escape) at += 2;
  }
  return plain;
}

}  // namespace kestrun
