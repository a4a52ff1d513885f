#include "desktop/headless/curl_http.h"

#ifndef _WIN32

#include <curl/curl.h>

#include <algorithm>
#include <chrono>
#include <exception>
#include <string>
#include <utility>

#include "base/code_page.h"
#include "base/runtime_error.h"
#include "base/text.h"
#include "formats/http/http_syntax.h"

namespace kestrun {
namespace {

using SteadyClock = std::chrono::steady_clock;

constexpr long kConnectMs = 60000;
constexpr std::chrono::seconds kMostSilence{30};
constexpr std::chrono::seconds kMostSilenceBeforeHead{60};
constexpr size_t kMostHeadBytes = size_t{64} << 10;
constexpr int kTellEveryMs = 100;

// The library's own start, once in a process.
void EnsureStarted() {
  static const CURLcode started = curl_global_init(CURL_GLOBAL_DEFAULT);
  if (started != CURLE_OK) RefuseExchange("The HTTP library cannot start.");
}

struct EasyEnd {
  void operator()(CURL* easy) const { curl_easy_cleanup(easy); }
};
struct MultiEnd {
  void operator()(CURLM* multi) const { curl_multi_cleanup(multi); }
};
struct ShareEnd {
  void operator()(CURLSH* share) const { curl_share_cleanup(share); }
};
struct ListEnd {
  void operator()(curl_slist* list) const { curl_slist_free_all(list); }
};

// What the requests of a session have in common: connections and cookies.
struct Common {
  Common() {
    EnsureStarted();
    multi.reset(curl_multi_init());
    share.reset(curl_share_init());
    if (!multi || !share) RefuseExchange("The HTTP library cannot start.");
    curl_share_setopt(share.get(), CURLSHOPT_SHARE, CURL_LOCK_DATA_COOKIE);
  }
  std::unique_ptr<CURLM, MultiEnd> multi;
  std::unique_ptr<CURLSH, ShareEnd> share;
};

// Bytes that may not stand in a request line are escaped, as browsers do.
std::string Escaped(std::string_view url) {
  constexpr std::string_view kDigits = "0123456789ABCDEF";
  std::string escaped;
  for (const char c : url) {
    const auto byte = static_cast<unsigned char>(c);
    if (byte > 32 && byte < 127) {
      escaped += c;
    } else {
      escaped += {'%', kDigits[byte >> 4], kDigits[byte & 15]};
    }
  }
  return escaped;
}

class CurlExchange final : public HttpExchange {
 public:
  CurlExchange(std::shared_ptr<Common> common, const HttpRequest& request)
      : common_(std::move(common)), easy_(curl_easy_init()), body_(AsChars(request.body)) {
    if (!easy_) RefuseExchange("The HTTP library cannot start.");
    SetUp(request);
    SetUpCalls();
    if (curl_multi_add_handle(multi(), easy()) != CURLM_OK) RefuseExchange("The request cannot be sent.");
  }
  ~CurlExchange() override { curl_multi_remove_handle(multi(), easy()); }
  CurlExchange(const CurlExchange&) = delete;
  CurlExchange& operator=(const CurlExchange&) = delete;

  bool Advance(HttpReceiver& receiver, int wait_ms) override {
    receiver_ = &receiver;
    const bool goes_on = Perform();
    if (!goes_on || wait_ms == 0) return goes_on;
    curl_multi_poll(multi(), nullptr, 0, wait_ms, nullptr);
    return Perform();
  }

 private:
  [[nodiscard]] CURL* easy() const { return easy_.get(); }
  [[nodiscard]] CURLM* multi() const { return common_->multi.get(); }

  template <class Value>
  void Set(CURLoption option, Value value) {
    if (curl_easy_setopt(easy(), option, value) != CURLE_OK) RefuseExchange("The request cannot be prepared.");
  }

  void SetUp(const HttpRequest& request) {
    Set(CURLOPT_URL, Escaped(request.url).c_str());
    Set(CURLOPT_PROTOCOLS_STR, "http,https");
    Set(CURLOPT_DISALLOW_USERNAME_IN_URL, 1L);
    Set(CURLOPT_FOLLOWLOCATION, 0L);
    Set(CURLOPT_USERAGENT, "Kestrun");
    Set(CURLOPT_SHARE, common_->share.get());
    Set(CURLOPT_COOKIEFILE, "");
    Set(CURLOPT_NOSIGNAL, 1L);
    Set(CURLOPT_CONNECTTIMEOUT_MS, kConnectMs);
    Set(CURLOPT_SUPPRESS_CONNECT_HEADERS, 1L);
    if (IsThisMachine(request.url)) Set(CURLOPT_PROXY, "");
    SetUpMethod(request.method);
    SetUpHeaders(request.headers);
  }

  static bool IsThisMachine(std::string_view url) {
    constexpr std::string_view kLoopback[]{"http://127.0.0.1", "http://localhost", "http://[::1]"};
    return std::any_of(std::begin(kLoopback), std::end(kLoopback),
                       [url](std::string_view start) { return StartsWith(url, start); });
  }

  void SetUpMethod(const std::string& method) {
    const bool may_lack_body = method == "GET" || method == "HEAD";
    if (method == "HEAD" && body_.empty()) Set(CURLOPT_NOBODY, 1L);
    if (!body_.empty() || !may_lack_body) {
      Set(CURLOPT_POST, 1L);
      Set(CURLOPT_POSTFIELDS, body_.c_str());
      Set(CURLOPT_POSTFIELDSIZE_LARGE, static_cast<curl_off_t>(body_.size()));
    }
    Set(CURLOPT_CUSTOMREQUEST, method.c_str());
  }

  // The library would add two headers of its own to a form.
  void SetUpHeaders(const HttpHeaders& headers) {
    AddHeader("Expect:");
    if (!FindHeader(headers, "Content-Type")) AddHeader("Content-Type:");
    for (const HttpHeader& header : headers) AddHeader(header.name + ": " + header.value);
    Set(CURLOPT_HTTPHEADER, headers_.get());
  }

  void AddHeader(const std::string& line) {
    curl_slist* const longer = curl_slist_append(headers_.get(), line.c_str());
    if (!longer) RefuseExchange("The request cannot be prepared.");
    static_cast<void>(headers_.release());
    headers_.reset(longer);
  }

  void SetUpCalls() {
    Set(CURLOPT_HEADERFUNCTION, &CurlExchange::CallHeader);
    Set(CURLOPT_HEADERDATA, this);
    Set(CURLOPT_WRITEFUNCTION, &CurlExchange::CallPiece);
    Set(CURLOPT_WRITEDATA, this);
    Set(CURLOPT_NOPROGRESS, 0L);
    Set(CURLOPT_XFERINFOFUNCTION, &CurlExchange::CallProgress);
    Set(CURLOPT_XFERINFODATA, this);
  }

  // What is raised in a call of the library's waits here until the library has returned.
  template <class Action>
  bool Keep(Action&& action) {
    try {
      if (action()) return true;
      has_left_ = true;
    } catch (...) {
      failure_ = std::current_exception();
    }
    return false;
  }

  static size_t CallHeader(char* bytes, size_t size, size_t count, void* self) {
    auto& exchange = *static_cast<CurlExchange*>(self);
    const std::string_view line(bytes, size * count);
    return exchange.Keep([&] { return exchange.TakeHeaderLine(line); }) ? line.size() : 0;
  }

  static size_t CallPiece(char* bytes, size_t size, size_t count, void* self) {
    auto& exchange = *static_cast<CurlExchange*>(self);
    const std::string_view piece(bytes, size * count);
    exchange.heard_at_ = SteadyClock::now();
    return exchange.Keep([&] { return exchange.receiver_->TakePiece(AsBytes(piece)); }) ? piece.size() : 0;
  }

  static int CallProgress(void* self, curl_off_t, curl_off_t, curl_off_t, curl_off_t sent) {
    auto& exchange = *static_cast<CurlExchange*>(self);
    if (std::exchange(exchange.sent_bytes_, sent) != sent) exchange.heard_at_ = SteadyClock::now();
    return 0;
  }

  bool TakeHeaderLine(std::string_view line) {
    heard_at_ = SteadyClock::now();
    if (has_head_) return true;  // what stands behind the last chunk
    head_bytes_ += line.size();
    if (head_bytes_ > kMostHeadBytes) RefuseExchange("The answer's head is too long.");
    line = line.substr(0, line.find_last_not_of("\r\n") + 1);
    if (line.empty()) return EndHead();
    if (StartsWith(line, "HTTP/")) {
      header_lines_.clear();
    } else if (std::optional<HttpHeader> header = ParseHeaderLine(DecodeText(line))) {
      header_lines_.push_back(std::move(*header));
    } else {
      RefuseExchange("The answer's head is malformed.");
    }
    return true;
  }

  // Interim answers go before the real one.
  bool EndHead() {
    long status = 0;
    curl_easy_getinfo(easy(), CURLINFO_RESPONSE_CODE, &status);
    if (status < 200) return true;
    has_head_ = true;
    return receiver_->TakeHead(static_cast<int>(status), header_lines_);
  }

  // One round of the library's; true while there may be more.
  bool Perform() {
    int running = 0;
    const CURLMcode worked = curl_multi_perform(multi(), &running);
    if (failure_) std::rethrow_exception(std::exchange(failure_, nullptr));
    if (has_left_) return false;
    if (worked != CURLM_OK) RefuseExchange(curl_multi_strerror(worked));
    if (running == 0) return End();
    if (SteadyClock::now() - heard_at_ > (has_head_ ? kMostSilence : kMostSilenceBeforeHead)) {
      RefuseExchange("The server does not answer in time.");
    }
    return true;
  }

  bool End() {
    int left = 0;
    while (const CURLMsg* const message = curl_multi_info_read(multi(), &left)) {
      if (message->msg != CURLMSG_DONE || message->data.result == CURLE_OK) continue;
      RefuseExchange(std::string(curl_easy_strerror(message->data.result)) + ".");
    }
    if (!has_head_) RefuseExchange("The answer never begins.");
    return false;
  }

  std::shared_ptr<Common> common_;
  std::unique_ptr<CURL, EasyEnd> easy_;
  std::string body_;
  std::unique_ptr<curl_slist, ListEnd> headers_;
  HttpReceiver* receiver_ = nullptr;
  HttpHeaders header_lines_;
  size_t head_bytes_ = 0;
  curl_off_t sent_bytes_ = 0;
  SteadyClock::time_point heard_at_ = SteadyClock::now();
  std::exception_ptr failure_;
  bool has_head_ = false;
  bool has_left_ = false;
};

class CurlSession final : public HttpSession {
 public:
  std::unique_ptr<HttpExchange> Start(const HttpRequest& request) override {
    if (!common_) common_ = std::make_shared<Common>();
    return std::make_unique<CurlExchange>(common_, request);
  }

  void Exchange(const HttpRequest& request, HttpReceiver& receiver) override {
    const std::unique_ptr<HttpExchange> exchange = Start(request);
    SteadyClock::time_point next = SteadyClock::now() + std::chrono::milliseconds(kTellEveryMs);
    while (exchange->Advance(receiver, kTellEveryMs)) {
      if (SteadyClock::now() < next) continue;
      next = SteadyClock::now() + std::chrono::milliseconds(kTellEveryMs);
      receiver.StillWaiting(false);
    }
  }

 private:
  std::shared_ptr<Common> common_;
};

}  // namespace

std::unique_ptr<HttpSession> OpenCurlSession() { return std::make_unique<CurlSession>(); }

}  // namespace kestrun

#endif  // _WIN32
