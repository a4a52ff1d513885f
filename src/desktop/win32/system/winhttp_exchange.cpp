#include "desktop/win32/system/winhttp_exchange.h"

#include <algorithm>
#include <mutex>
#include <thread>
#include <utility>

#include "base/text.h"
#include "desktop/win32/system/http_handover.h"
#include "desktop/win32/system/wide_text.h"
#include "formats/http/http_syntax.h"

namespace kestrun {
namespace {

constexpr DWORD kPieceBytes = 1 << 16;
// A server that is quicker than the disk must not hold up the windows.
constexpr int kMostItems = 64;

int QueryStatus(HINTERNET handle) {
  DWORD status = 0;
  DWORD size = sizeof status;
  RequireInternet(WINHTTP_CALL(WinHttpQueryHeaders)(handle, WINHTTP_QUERY_STATUS_CODE | WINHTTP_QUERY_FLAG_NUMBER,
                                                    nullptr, &status, &size, nullptr),
                  "The answer has no status");
  return static_cast<int>(status);
}

// The lines of the head behind the status line; what is no header is left out.
HttpHeaders QueryHeaders(HINTERNET handle) {
  DWORD size = 0;
  WINHTTP_CALL(WinHttpQueryHeaders)
  (handle, WINHTTP_QUERY_RAW_HEADERS_CRLF, nullptr, nullptr, &size, nullptr);
  std::wstring head(size / sizeof(wchar_t) + 1, L'\0');
  size = static_cast<DWORD>(head.size() * sizeof(wchar_t));
  RequireInternet(
      WINHTTP_CALL(WinHttpQueryHeaders)(handle, WINHTTP_QUERY_RAW_HEADERS_CRLF, nullptr, head.data(), &size, nullptr),
      "The answer's head cannot be read");
  HttpHeaders headers;
  for (const std::string& line : Split(FromWide(head.c_str()), kCrLf)) {
    if (std::optional<HttpHeader> header = ParseHeaderLine(line)) headers.push_back(std::move(*header));
  }
  return headers;
}

// What the library has answered, and the number that came with it: bytes, or why it failed.
struct Answer {
  DWORD status = 0;
  DWORD number = 0;
};

// That the reader has taken enough for more to come.
constexpr DWORD kHasRoom = 0;

// The steps of an exchange. At any time one call of the library is under way and no more, so that there is at most one
// answer to handle; it may come on another thread, or already within the call.
class Steps : public std::enable_shared_from_this<Steps> {
 public:
  Steps(std::shared_ptr<const WinHttpLibrary> library, const HttpRequest& request)
      : library_(std::move(library)), wanted_(request), body_(request.body.begin(), request.body.end()) {
    wanted_.body = body_;
  }

  HttpHandover handover;

  // Asking for the proxy waits for the network on older systems, and so is done aside.
  void Start() {
    if (!library_->IsProxySlow()) return Begin();
    Guarded([this] { std::thread([self = shared_from_this()] { self->Begin(); }).detach(); });
  }

  // Nobody listens any more: the library lets go of the request, and says so when it has.
  void Leave() {
    {
      const std::lock_guard lock(mutex_);
      is_left_ = true;
      if (is_handling_) return;  // whoever handles closes
      is_handling_ = true;       // no answer is handled from now on
    }
    Close();
  }

  void ReaderHasRoom() {
    {
      const std::lock_guard lock(mutex_);
      if (!waits_for_room_) return;
      waits_for_room_ = false;
    }
    Take({kHasRoom, 0});
  }

 private:
  // The library keeps one of these for each request until it has closed it.
  using Kept = std::shared_ptr<Steps>;

  static void CALLBACK Hear(HINTERNET, DWORD_PTR context, DWORD status, LPVOID information, DWORD length) {
    auto* const kept = reinterpret_cast<Kept*>(context);
    if (kept == nullptr) return;
    if (status == WINHTTP_CALLBACK_STATUS_HANDLE_CLOSING) {
      const std::unique_ptr<Kept> last(kept);
      return;
    }
    const Kept steps = *kept;  // the answer may lead to the closing, after which the library's own is gone
    if (const std::optional<Answer> answer = AnswerOf(status, information, length)) steps->Take(*answer);
  }

  // Nothing for what only tells how far a call is.
  static std::optional<Answer> AnswerOf(DWORD status, const void* information, DWORD length) {
    switch (status) {
      case WINHTTP_CALLBACK_STATUS_SENDREQUEST_COMPLETE:
      case WINHTTP_CALLBACK_STATUS_HEADERS_AVAILABLE: return Answer{status, 0};
      case WINHTTP_CALLBACK_STATUS_DATA_AVAILABLE: return Answer{status, *static_cast<const DWORD*>(information)};
      case WINHTTP_CALLBACK_STATUS_READ_COMPLETE: return Answer{status, length};
      case WINHTTP_CALLBACK_STATUS_REQUEST_ERROR:
        return Answer{status, static_cast<const WINHTTP_ASYNC_RESULT*>(information)->dwError};
      default: return std::nullopt;
    }
  }

  // Handles the answer, and those that come within the calls that this leads to, one after the other.
  void Take(Answer answer) {
    {
      const std::lock_guard lock(mutex_);
      answer_ = answer;
      if (is_handling_) return;
      is_handling_ = true;
    }
    HandleWhatIsThere();
  }

  void HandleWhatIsThere() {
    while (const std::optional<Answer> answer = NextAnswer()) {
      Guarded([&] { Handle(*answer); });
    }
  }

  // Nothing when there is none: from then on another thread may handle the next one.
  std::optional<Answer> NextAnswer() {
    {
      const std::lock_guard lock(mutex_);
      if (!is_left_) {
        if (!answer_) is_handling_ = false;
        return std::exchange(answer_, std::nullopt);
      }
    }
    Close();
    return std::nullopt;
  }

  template <class Step>
  void Guarded(Step&& step) {
    try {
      std::forward<Step>(step)();
    } catch (const std::exception&) {
      handover.End(CurrentError().description());
    }
  }

  void Close() {
    opened_.request.Reset();
    opened_.connection.Reset();
  }

  // ---- the steps, in their order ----

  // Runs as if it handled an answer, so that the exchange is not closed under its hands.
  void Begin() {
    {
      const std::lock_guard lock(mutex_);
      if (is_left_) return;
      is_handling_ = true;
    }
    Guarded([this] {
      Open();
      Send();
    });
    HandleWhatIsThere();
  }

  void Open() {
    opened_ = library_->OpenRequest(wanted_);
    library_->ApplyProxy(opened_.request, wanted_.url);
    const HINTERNET request = opened_.request.get();
    const WINHTTP_STATUS_CALLBACK before = WINHTTP_CALL(WinHttpSetStatusCallback)(
        request, &Hear, WINHTTP_CALLBACK_FLAG_ALL_COMPLETIONS | WINHTTP_CALLBACK_FLAG_HANDLES, 0);
    RequireInternet(before != WINHTTP_INVALID_STATUS_CALLBACK, "The request cannot be followed");
    auto kept = std::make_unique<Kept>(shared_from_this());
    auto context = reinterpret_cast<DWORD_PTR>(kept.get());
    RequireInternet(WINHTTP_CALL(WinHttpSetOption)(request, WINHTTP_OPTION_CONTEXT_VALUE, &context, sizeof context),
                    "The request cannot be followed");
    static_cast<void>(kept.release());  // Hear has it
    context_ = context;
  }

  void Send() {
    if (body_.size() > MAXLONG) Raise(error::kAutomationError, "The body is too large to be sent.");
    for (const HttpHeader& header : wanted_.headers) headers_ += ToWide(header.name + ": " + header.value + "\r\n");
    const auto bytes = static_cast<DWORD>(body_.size());
    failure_ = "The request cannot be sent";
    RequireInternet(
        WINHTTP_CALL(WinHttpSendRequest)(opened_.request.get(), headers_.empty() ? nullptr : headers_.c_str(),
                                         static_cast<DWORD>(headers_.size()), bytes == 0 ? nullptr : body_.data(),
                                         bytes, bytes, context_),
        failure_);
  }

  void Handle(const Answer& answer) {
    switch (answer.status) {
      case WINHTTP_CALLBACK_STATUS_SENDREQUEST_COMPLETE: return Receive();
      case WINHTTP_CALLBACK_STATUS_HEADERS_AVAILABLE:
        handover.PutHead(QueryStatus(opened_.request.get()), QueryHeaders(opened_.request.get()));
        return AskForMore();
      case WINHTTP_CALLBACK_STATUS_DATA_AVAILABLE: return Read(answer.number);
      case WINHTTP_CALLBACK_STATUS_READ_COMPLETE: return PassOn(answer.number);
      case WINHTTP_CALLBACK_STATUS_REQUEST_ERROR: return handover.End(InternetFailure(failure_, answer.number));
      default: return AskForMore();
    }
  }

  void Receive() {
    failure_ = "The server does not answer";
    RequireInternet(WINHTTP_CALL(WinHttpReceiveResponse)(opened_.request.get(), nullptr), failure_);
  }

  void AskForMore() {
    failure_ = "The answer is cut off";
    {
      const std::lock_guard lock(mutex_);
      waits_for_room_ = !handover.HasRoom();
      if (waits_for_room_) return;
    }
    RequireInternet(WINHTTP_CALL(WinHttpQueryDataAvailable)(opened_.request.get(), nullptr), failure_);
  }

  void Read(DWORD available) {
    if (available == 0) return handover.End(std::nullopt);
    piece_.resize(std::min(available, kPieceBytes));
    RequireInternet(
        WINHTTP_CALL(WinHttpReadData)(opened_.request.get(), piece_.data(), static_cast<DWORD>(piece_.size()), nullptr),
        failure_);
  }

  void PassOn(DWORD got) {
    if (got == 0) return handover.End(std::nullopt);
    piece_.resize(got);
    handover.PutPiece(std::exchange(piece_, {}));
    AskForMore();
  }

  std::shared_ptr<const WinHttpLibrary> library_;
  HttpRequest wanted_;
  Bytes body_;
  std::wstring headers_;
  OpenedRequest opened_;
  DWORD_PTR context_ = 0;
  const char* failure_ = "";  // what the call under way says when it fails
  Bytes piece_;               // that the library reads into

  std::mutex mutex_;
  std::optional<Answer> answer_;  // that waits to be handled
  bool is_handling_ = false;
  bool is_left_ = false;
  bool waits_for_room_ = false;
};

class WinHttpExchange final : public HttpExchange {
 public:
  explicit WinHttpExchange(std::shared_ptr<Steps> steps) : steps_(std::move(steps)) {}
  ~WinHttpExchange() override { steps_->Leave(); }
  WinHttpExchange(const WinHttpExchange&) = delete;
  WinHttpExchange& operator=(const WinHttpExchange&) = delete;

  bool Advance(HttpReceiver& receiver, int wait_ms) override {
    for (int taken = 0; taken < kMostItems; ++taken) {
      std::optional<HttpHandover::Item> item = steps_->handover.Take(taken == 0 ? wait_ms : 0);
      if (!item) return true;
      steps_->ReaderHasRoom();
      if (!HandOn(std::move(*item), receiver)) return false;
    }
    return true;
  }

 private:
  std::shared_ptr<Steps> steps_;
};

}  // namespace

std::unique_ptr<HttpExchange> StartWinHttpExchange(std::shared_ptr<const WinHttpLibrary> library,
                                                   const HttpRequest& request) {
  auto steps = std::make_shared<Steps>(std::move(library), request);
  auto exchange = std::make_unique<WinHttpExchange>(steps);
  steps->Start();
  return exchange;
}

}  // namespace kestrun
