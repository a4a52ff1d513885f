// The web for the command-line program and for tests: a plain HTTP/1.1 client over the system's sockets. It knows http
// URLs only, goes through no proxy, and asks for one thing on each connection (RFC 9110 and RFC 9112).
#pragma once

#ifndef _WIN32

#include <functional>
#include <memory>
#include <span>
#include <string>

#include "platform/http.h"

namespace kestrun {

// A way to the web for which nothing is kept from request to request. Waits 60 seconds for a connection and 30 for each
// piece of an answer. There is no user who could press Esc.
[[nodiscard]] std::unique_ptr<HttpSession> OpenSocketSession();

// Fills the buffer with what has arrived and gives the count, 0 at the end of the stream.
using ReceiveBytes = std::function<size_t(std::span<char> buffer)>;

// Hands one whole answer to a request of that method to the receiver. Raises error 440 with a sentence for one that is
// cut off or malformed, or has a head of more than 64 KB.
void ReadHttpAnswer(const std::string& method, const ReceiveBytes& receive, HttpReceiver& receiver);

}  // namespace kestrun

#endif  // _WIN32
