// A request that goes on while the program does other things, by the same rules as those that are waited for
// (web_request.h).
#pragma once

#include <memory>

#include "platform/http.h"
#include "web/checked_answer.h"
#include "web/redirect.h"

namespace kestrun {

class BackgroundRequest {
 public:
  // Sends it. The receiver, and the bytes of the body, have to live as long as this object, whose end leaves the answer
  // where it is. Raises error 440 for a request that cannot be sent.
  BackgroundRequest(HttpRequest request, HttpReceiver& receiver);

  // Hands some of what has arrived to the receiver, and follows redirects. True while there may be more. Raises error
  // 440 with a sentence for every failure; what the receiver raises travels on. Either way the request is over then.
  [[nodiscard]] bool Advance(int wait_ms = 0);

  // Of the answer that arrives now.
  [[nodiscard]] uint64_t ReceivedBytes() const { return answer_->ReceivedBytes(); }
  [[nodiscard]] std::optional<uint64_t> TotalBytes() const { return answer_->TotalBytes(); }

 private:
  void Send();

  HttpRequest request_;
  HttpReceiver& receiver_;
  RedirectTrail trail_;
  std::unique_ptr<HttpSession> session_;
  std::unique_ptr<CheckedAnswer> answer_;
  std::unique_ptr<HttpExchange> exchange_;
};

}  // namespace kestrun
