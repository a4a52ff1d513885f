// The web for the command-line program and for tests: a plain HTTP/1.1 client over the system's sockets. It knows http
// URLs only, goes through no proxy, and asks for one thing on each connection (RFC 9110 and RFC 9112).
#pragma once

#ifndef _WIN32

#include <functional>
#include <optional>
#include <span>

#include "platform/http.h"

namespace kestrun {

// Follows redirects (platform/http_redirect.h). Waits 60 seconds for a connection and 30 for each piece of an answer.
// Nothing on every failure; never raises.
[[nodiscard]] std::optional<HttpResponse> SendOverSockets(const HttpRequest& request);

// Fills the buffer with what has arrived and gives the count, 0 at the end of the stream.
using ReceiveBytes = std::function<size_t(std::span<char> buffer)>;

// Reads one whole response to a request of that method. Raises error 440 with a sentence for one that is cut off,
// malformed or too large: a head of more than 64 KB, or a body of more than kMostResponseBytes.
[[nodiscard]] HttpResponse ReadHttpResponse(const std::string& method, const ReceiveBytes& receive,
                                            const std::function<void()>& on_event);

}  // namespace kestrun

#endif  // _WIN32
