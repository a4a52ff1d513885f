#include "web/web_request.h"

#include <algorithm>
#include <array>

#include "base/code_page.h"
#include "base/runtime_error.h"
#include "base/text.h"
#include "formats/http/http_syntax.h"
#include "platform/platform.h"
#include "web/fetch_scope.h"
#include "web/redirect.h"

namespace kestrun {
namespace {

[[noreturn]] void Refuse(const char* why) { Raise(error::kAutomationError, why); }

// How many bytes the body has by its head; nothing where the head does not say, or says it in another way.
std::optional<uint64_t> ToldLength(const std::string& method, int status, const HttpHeaders& headers) {
  if (HasNoBody(method, status) || FindHeader(headers, "Transfer-Encoding")) return std::nullopt;
  const std::optional<std::string> told = FindHeader(headers, "Content-Length");
  if (!told) return std::nullopt;
  const std::optional<uint64_t> length = ParseLength(*told);
  if (!length) Refuse("The answer's length is no number.");
  return length;
}

// One answer on its way to a receiver. It keeps the bodies of redirects back, holds a body to its length whatever the
// system's library makes of it, and shows how far it is.
class CheckedAnswer final : public HttpReceiver {
 public:
  CheckedAnswer(const HttpRequest& request, HttpReceiver& receiver)
      : method_(request.method), receiver_(receiver), state_{request.url, 0, std::nullopt} {
    FetchScope::Show(state_);
  }

  bool TakeHead(int status, const HttpHeaders& headers) override {
    head_ = {status, headers, {}};
    if (IsRedirect(status, headers)) return Leave();
    state_.total_bytes = ToldLength(method_, status, headers);
    FetchScope::Show(state_);
    return receiver_.TakeHead(status, headers) || Leave();
  }

  bool TakePiece(ByteView piece) override {
    const bool is_more = state_.total_bytes && piece.size() > *state_.total_bytes - state_.received_bytes;
    if (is_more) piece = piece.first(static_cast<size_t>(*state_.total_bytes - state_.received_bytes));
    state_.received_bytes += piece.size();
    if (!piece.empty() && !receiver_.TakePiece(piece)) return Leave();
    return !is_more;
  }

  void StillWaiting(bool user_leaves) override {
    if (user_leaves) {
      FetchScope::Cancel();
      Refuse("The fetch was cancelled.");
    }
    FetchScope::Show(state_);
  }

  // What was received when the exchange has ended.
  HttpResponse TakeResult() {
    if (!has_left_ && state_.total_bytes && state_.received_bytes < *state_.total_bytes) {
      Refuse("The answer is cut off.");
    }
    return std::move(head_);
  }

 private:
  bool Leave() {
    has_left_ = true;
    return false;
  }

  const std::string& method_;
  HttpReceiver& receiver_;
  FetchState state_;
  HttpResponse head_;
  bool has_left_ = false;
};

HttpResponse SendOnce(HttpSession& session, const HttpRequest& request, HttpReceiver& receiver) {
  if (!IsWellFormed(request)) Refuse("The request is malformed.");
  if (!IsHttpUrl(request.url)) Refuse("Only http addresses can be asked for.");
  CheckedAnswer answer(request, receiver);
  session.Exchange(request, answer);
  return answer.TakeResult();
}

// An answer in memory, or the head of one.
class MemoryReceiver final : public HttpReceiver {
 public:
  MemoryReceiver(bool wants_body, const std::function<void()>& on_event)
      : wants_body_(wants_body), on_event_(on_event) {}

  bool TakeHead(int status, const HttpHeaders& headers) override {
    response = {status, headers, {}};
    if (on_event_) on_event_();
    return wants_body_;
  }

  bool TakePiece(ByteView piece) override {
    if (piece.size() > kMostResponseBytes - response.body.size()) Refuse("The answer is too large.");
    response.body.insert(response.body.end(), piece.begin(), piece.end());
    if (on_event_) on_event_();
    return true;
  }

  HttpResponse response;

 private:
  bool wants_body_;
  const std::function<void()>& on_event_;
};

std::optional<HttpResponse> SendToMemory(const HttpRequest& request, bool wants_body,
                                         const std::function<void()>& on_event) {
  MemoryReceiver receiver(wants_body, on_event);
  if (!Attempt([&] { ReceiveAnswer(request, receiver); })) return std::nullopt;
  return std::move(receiver.response);
}

bool IsUtf8(std::string_view charset) { return EqualsNoCase(charset, "utf-8") || EqualsNoCase(charset, "utf8"); }

}  // namespace

bool IsHttpUrl(std::string_view url) {
  constexpr std::array<std::string_view, 2> kSchemes{"http://", "https://"};
  return std::any_of(kSchemes.begin(), kSchemes.end(),
                     [url](std::string_view scheme) { return EqualsNoCase(url.substr(0, scheme.size()), scheme); });
}

void ReceiveAnswer(const HttpRequest& request, HttpReceiver& receiver) {
  if (FetchScope::IsAnyCancelled()) Refuse("The fetch was cancelled.");
  const std::unique_ptr<HttpSession> session = platform().internet().OpenSession();
  static_cast<void>(
      FollowRedirects(request, [&](const HttpRequest& next) { return SendOnce(*session, next, receiver); }));
}

std::optional<HttpResponse> SendRequest(const HttpRequest& request, const std::function<void()>& on_event) {
  return SendToMemory(request, true, on_event);
}

std::optional<HttpResponse> SendRequestForHead(const HttpRequest& request, const std::function<void()>& on_event) {
  return SendToMemory(request, false, on_event);
}

std::string ResponseText(const HttpResponse& response) {
  const std::string_view bytes = AsChars(response.body);
  if (!IsUtf8(CharsetOf(response.Header("Content-Type").value_or("")))) return DecodeText(bytes);
  // Through UTF-16 and back, so that bytes which are no UTF-8 do not travel on as if they were.
  return ToUtf8(ToUtf16(bytes));
}

}  // namespace kestrun
