#include "web/usable_request.h"

#include <utility>

#include "base/runtime_error.h"
#include "platform/platform.h"
#include "web/background_request.h"
#include "web/memory_receiver.h"

namespace kestrun {
namespace {

constexpr uint32_t kLookAfterMs = 10;

// False when it was left.
bool ReceiveAll(BackgroundRequest& sent, const std::function<bool()>& goes_on) {
  while (sent.Advance()) {
    Sleep(kLookAfterMs);
    RunPendingEvents();
    if (!goes_on()) return false;
  }
  return true;
}

}  // namespace

std::optional<HttpResponse> SendWhileUsable(const HttpRequest& request, const std::function<bool()>& goes_on) {
  MemoryReceiver receiver(MemoryReceiver::Wanted::kAnswer);
  bool is_whole = false;
  if (!goes_on()) return std::nullopt;
  const auto send = [&] {
    BackgroundRequest sent(request, receiver);
    is_whole = ReceiveAll(sent, goes_on);
  };
  if (!Attempt(send) || !is_whole) return std::nullopt;
  return std::move(receiver.response);
}

}  // namespace kestrun
