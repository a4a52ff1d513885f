// Requests and answers of the web as they cross between the program and the platform: one exchange at a time, without
// any judgement about what an answer means. The rules stand in web/.
#pragma once

#include <memory>
#include <optional>
#include <string>
#include <string_view>
#include <vector>

#include "base/bytes.h"

namespace kestrun {

struct HttpHeader {
  std::string name;
  std::string value;
  friend bool operator==(const HttpHeader&, const HttpHeader&) = default;
};

// In the order of the message; names as they were written, values as UTF-8.
using HttpHeaders = std::vector<HttpHeader>;

// The first header of that name, in any case; nothing when there is none.
[[nodiscard]] std::optional<std::string> FindHeader(const HttpHeaders& headers, std::string_view name);

struct HttpRequest {
  std::string method;
  std::string url;
  HttpHeaders headers;
  // Sent as it stands, with its length; the bytes have to live until the exchange has ended.
  ByteView body;
};

// A whole answer in memory.
struct HttpResponse {
  int status = 0;
  HttpHeaders headers;
  Bytes body;

  [[nodiscard]] std::optional<std::string> Header(std::string_view name) const { return FindHeader(headers, name); }
};

// Raises error 440 with a sentence: how every failure of an exchange ends.
[[noreturn]] void RefuseExchange(const std::string& why);

// Takes an answer in as it arrives, on the thread that asked. What a call raises ends the exchange and travels on.
class HttpReceiver {
 public:
  virtual ~HttpReceiver() = default;
  // These two give whether to go on: with false the rest is left, and the exchange ends as if the answer were whole.
  [[nodiscard]] virtual bool TakeHead(int status, const HttpHeaders& headers) = 0;
  // The next bytes of the body, never none.
  [[nodiscard]] virtual bool TakePiece(ByteView piece) = 0;
  // Several times a second while the exchange lasts. `user_leaves` is true once the user has pressed Esc in it.
  virtual void StillWaiting(bool user_leaves) { static_cast<void>(user_leaves); }
};

// An exchange that goes on while the program does other things. Its end leaves the server, however much is still to
// come.
class HttpExchange {
 public:
  virtual ~HttpExchange() = default;
  // Hands some of what has arrived to the receiver, after at most so long a wait for it; `StillWaiting` is left out.
  // True while there may be more. Raises as HttpSession::Exchange does, and what the receiver raises travels on; either
  // way the exchange is over then.
  [[nodiscard]] virtual bool Advance(HttpReceiver& receiver, int wait_ms) = 0;
};

// What one request and those that it leads to have in common, such as cookies.
class HttpSession {
 public:
  virtual ~HttpSession() = default;
  // Sends a request and hands its one answer to the receiver; a redirect is an answer like any other. Waits as long as
  // the service does by default. No other input of the user's than Esc goes anywhere meanwhile. Raises error 440 with a
  // sentence for every failure: no connection, a bad URL, a time-out, an answer that is no HTTP.
  virtual void Exchange(const HttpRequest& request, HttpReceiver& receiver) = 0;
  // The same in the background; the session has one exchange at a time. Its own copy of the body is made.
  [[nodiscard]] virtual std::unique_ptr<HttpExchange> Start(const HttpRequest& request) = 0;
};

}  // namespace kestrun
