// How the parts of HTTP messages are written (RFC 9110), for those who put them on the wire and take them off it.
#pragma once

#include <cstdint>
#include <optional>
#include <string_view>

#include "platform/http.h"

namespace kestrun {

// One "Name: value" line of a head, without blanks around the value; nothing when it is none: no colon, or a name that
// is no token.
[[nodiscard]] std::optional<HttpHeader> ParseHeaderLine(std::string_view line);

// True when the method and the header names are tokens (RFC 9110, 5.6.2) and neither the values nor the URL hold
// control characters: what is sent can be read in one way only.
[[nodiscard]] bool IsWellFormed(const HttpRequest& request);

// True when this answer has no body whatever its headers say: to HEAD, and with 1xx, 204 or 304.
[[nodiscard]] bool HasNoBody(std::string_view method, int status);

// A length in decimal digits and nothing else; nothing for any other text and for numbers past 18 digits.
[[nodiscard]] std::optional<uint64_t> ParseLength(std::string_view text);

// The charset parameter of "text/html; charset=utf-8" (RFC 9110, 8.3.2); empty when there is none.
[[nodiscard]] std::string_view CharsetOf(std::string_view content_type);

}  // namespace kestrun
