// Escapes in web addresses: a percent sign and two hexadecimal digits for a byte (RFC 3986, 2.1).
#pragma once

#include <string>
#include <string_view>

namespace kestrun {

// The text with its escapes as the bytes that they stand for; a percent sign that begins none stays.
[[nodiscard]] std::string WithoutUrlEscapes(std::string_view text);

}  // namespace kestrun
