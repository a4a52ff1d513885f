#include "web/web_request.h"

#include "base/code_page.h"
#include "base/runtime_error.h"
#include "base/text.h"
#include "formats/http/http_syntax.h"
#include "platform/platform.h"
#include "web/checked_answer.h"
#include "web/fetch_scope.h"
#include "web/memory_receiver.h"
#include "web/redirect.h"

namespace kestrun {
namespace {

// An answer that is waited for: it shows how far it is, and Esc ends it.
class WaitedAnswer final : public CheckedAnswer {
 public:
  WaitedAnswer(const HttpRequest& request, HttpReceiver& receiver) : CheckedAnswer(request, receiver) { Show(); }

  void StillWaiting(bool user_leaves) override {
    if (user_leaves) {
      FetchScope::Cancel();
      RefuseExchange("The fetch was cancelled.");
    }
    Show();
  }

 protected:
  void Show() override { FetchScope::Show({Url(), ReceivedBytes(), TotalBytes()}); }
};

HttpResponse SendOnce(HttpSession& session, const HttpRequest& request, HttpReceiver& receiver) {
  CheckRequest(request);
  WaitedAnswer answer(request, receiver);
  session.Exchange(request, answer);
  return answer.TakeResult();
}

std::optional<HttpResponse> SendToMemory(const HttpRequest& request, MemoryReceiver::Wanted wanted,
                                         const std::function<void()>& on_event) {
  MemoryReceiver receiver(wanted, on_event);
  if (!Attempt([&] { ReceiveAnswer(request, receiver); })) return std::nullopt;
  return std::move(receiver.response);
}

bool IsUtf8(std::string_view charset) { return EqualsNoCase(charset, "utf-8") || EqualsNoCase(charset, "utf8"); }

}  // namespace

void ReceiveAnswer(const HttpRequest& request, HttpReceiver& receiver) {
  if (FetchScope::IsAnyCancelled()) RefuseExchange("The fetch was cancelled.");
  const std::unique_ptr<HttpSession> session = platform().internet().OpenSession();
  static_cast<void>(
      FollowRedirects(request, [&](const HttpRequest& next) { return SendOnce(*session, next, receiver); }));
}

std::optional<HttpResponse> SendRequest(const HttpRequest& request, const std::function<void()>& on_event) {
  return SendToMemory(request, MemoryReceiver::Wanted::kAnswer, on_event);
}

std::optional<HttpResponse> SendRequestForHead(const HttpRequest& request, const std::function<void()>& on_event) {
  return SendToMemory(request, MemoryReceiver::Wanted::kHead, on_event);
}

std::string ResponseText(const HttpResponse& response) {
  const std::string_view bytes = AsChars(response.body);
  if (!IsUtf8(CharsetOf(response.Header("Content-Type").value_or("")))) return DecodeText(bytes);
  // Through UTF-16 and back, so that bytes which are no UTF-8 do not travel on as if they were.
  return ToUtf8(ToUtf16(bytes));
}

}  // namespace kestrun
