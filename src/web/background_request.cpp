#include "web/background_request.h"

#include <utility>

#include "platform/platform.h"

namespace kestrun {

BackgroundRequest::BackgroundRequest(HttpRequest request, HttpReceiver& receiver)
    : request_(std::move(request)), receiver_(receiver), session_(platform().internet().OpenSession()) {
  Send();
}

void BackgroundRequest::Send() {
  exchange_.reset();
  CheckRequest(request_);
  answer_ = std::make_unique<CheckedAnswer>(request_, receiver_);
  exchange_ = session_->Start(request_);
}

bool BackgroundRequest::Advance(int wait_ms) {
  if (exchange_->Advance(*answer_, wait_ms)) return true;
  const HttpResponse head = answer_->TakeResult();
  if (!IsRedirect(head.status, head.headers)) return false;
  request_ = trail_.Next(std::move(request_), head.status, head.headers);
  Send();
  return true;
}

}  // namespace kestrun
