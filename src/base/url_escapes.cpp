#include "base/url_escapes.h"

#include "base/hex_digit.h"

namespace kestrun {
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
