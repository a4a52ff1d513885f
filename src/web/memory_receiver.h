// Takes an answer into memory: all of it, or its head alone.
#pragma once

#include <cstddef>
#include <functional>

#include "platform/http.h"

namespace kestrun {

// A body that is held in memory ends its request as a failure when it has more bytes: nothing that the program asks for
// in this way comes near it.
inline constexpr size_t kMostResponseBytes = size_t{64} << 20;

class MemoryReceiver final : public HttpReceiver {
 public:
  enum class Wanted { kHead, kAnswer };
  // `on_event`, where it is set, is called when the answer starts and whenever a piece of its body has arrived.
  explicit MemoryReceiver(Wanted wanted, std::function<void()> on_event = {})
      : wanted_(wanted), on_event_(std::move(on_event)) {}

  bool TakeHead(int status, const HttpHeaders& headers) override {
    response = {status, headers, {}};
    if (on_event_) on_event_();
    return wanted_ == Wanted::kAnswer;
  }

  bool TakePiece(ByteView piece) override {
    if (piece.size() > kMostResponseBytes - response.body.size()) RefuseExchange("The answer is too large.");
    response.body.insert(response.body.end(), piece.begin(), piece.end());
    if (on_event_) on_event_();
    return true;
  }

  HttpResponse response;

 private:
  Wanted wanted_;
  std::function<void()> on_event_;
};

}  // namespace kestrun
