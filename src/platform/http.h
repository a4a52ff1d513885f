// One HTTP request and its answer, as they cross between the program and the platform.
#pragma once

#include <cstddef>
#include <cstdint>
#include <functional>
#include <optional>
#include <string>
#include <string_view>
#include <utility>
#include <vector>

#include "base/bytes.h"

namespace kestrun {

// A body of more bytes ends its request as a failure: nothing that the program asks for comes near it.
inline constexpr size_t kMostResponseBytes = size_t{64} << 20;

struct HttpHeader {
  std::string name;
  std::string value;
  friend bool operator==(const HttpHeader&, const HttpHeader&) = default;
};

struct HttpRequest {
  std::string method;
  std::string url;
  std::vector<HttpHeader> headers;
  // Sent as it stands, with its length; the bytes have to live until the answer is there.
  ByteView body;
  // Called, where it is set, when the response starts and whenever a piece of its body has arrived.
  std::function<void()> on_event;
};

struct HttpResponse {
  int status = 0;
  // In the order of the response; names as the server wrote them, values as UTF-8.
  std::vector<HttpHeader> headers;
  Bytes body;

  // The first header of that name, in any case; nothing when there is none.
  [[nodiscard]] std::optional<std::string> Header(std::string_view name) const;
};

// The body as UTF-8 text, read by the charset of Content-Type: UTF-8 where it says so, the code page everywhere else.
[[nodiscard]] std::string ResponseText(const HttpResponse& response);

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

}  // namespace kestrun
