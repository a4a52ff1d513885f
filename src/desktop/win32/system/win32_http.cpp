#include "desktop/win32/system/win32_http.h"

#include <algorithm>
#include <utility>

#include "base/runtime_error.h"
#include "base/text.h"
#include "desktop/win32/system/handles.h"
#include "desktop/win32/system/http_handover.h"
#include "desktop/win32/system/late_call.h"
#include "desktop/win32/system/wide_text.h"
#include "formats/http/http_syntax.h"
// Behind windows.h, which it needs.
#include <winhttp.h>

#define WINHTTP_CALL(function) KESTRUN_LATE(L"winhttp.dll", function)

namespace kestrun {
namespace {

constexpr wchar_t kAgent[] = L"Kestrun";
constexpr DWORD kPieceBytes = 1 << 16;

struct InternetHandleTraits {
  using Handle = HINTERNET;
  static Handle Empty() { return nullptr; }
  static void Close(Handle handle) { WINHTTP_CALL(WinHttpCloseHandle)(handle); }
};
using InternetHandle = UniqueHandle<InternetHandleTraits>;

// Texts that the library allocates for its caller.
struct SharedTextTraits {
  using Handle = LPWSTR;
  static Handle Empty() { return nullptr; }
  static void Close(Handle handle) { GlobalFree(handle); }
};
using SharedText = UniqueHandle<SharedTextTraits>;

void Require(BOOL succeeded, const char* what) {
  if (!succeeded) Raise(error::kAutomationError, std::string(what) + " (" + std::to_string(GetLastError()) + ").");
}

// The parts of a URL that the library wants one by one.
struct Target {
  bool secure = false;
  std::wstring host;
  INTERNET_PORT port = 0;
  std::wstring resource;  // path and query
};

Target CrackUrl(const std::string& url) {
  // What stands behind "#" is for the reader of the page, not for its server.
  const std::wstring wide = ToWide(std::string_view(url).substr(0, url.find('#')));
  URL_COMPONENTS parts{};
  parts.dwStructSize = sizeof parts;
  parts.dwHostNameLength = parts.dwUrlPathLength = parts.dwExtraInfoLength = static_cast<DWORD>(-1);
  Require(WINHTTP_CALL(WinHttpCrackUrl)(wide.c_str(), static_cast<DWORD>(wide.size()), 0, &parts),
          "The URL cannot be read");
  Target target;
  target.secure = parts.nScheme == INTERNET_SCHEME_HTTPS;
  target.host.assign(parts.lpszHostName, parts.dwHostNameLength);
  target.port = parts.nPort;
  target.resource.assign(parts.lpszUrlPath, parts.dwUrlPathLength);
  target.resource.append(parts.lpszExtraInfo, parts.dwExtraInfoLength);
  return target;
}

// The user's proxy settings, for systems before 8.1, whose library does not follow them by itself.
class UserProxy {
 public:
  UserProxy() {
    WINHTTP_CURRENT_USER_IE_PROXY_CONFIG found{};
    if (!WINHTTP_CALL(WinHttpGetIEProxyConfigForCurrentUser)(&found)) return;
    detects_ = found.fAutoDetect != FALSE;
    script_.Reset(found.lpszAutoConfigUrl);
    proxy_.Reset(found.lpszProxy);
    bypass_.Reset(found.lpszProxyBypass);
  }

  [[nodiscard]] InternetHandle OpenSession() const {
    if (!proxy_.IsValid()) {
      return InternetHandle(WINHTTP_CALL(WinHttpOpen)(kAgent, WINHTTP_ACCESS_TYPE_DEFAULT_PROXY, nullptr, nullptr, 0));
    }
    return InternetHandle(
        WINHTTP_CALL(WinHttpOpen)(kAgent, WINHTTP_ACCESS_TYPE_NAMED_PROXY, proxy_.get(), bypass_.get(), 0));
  }

  // Asks the network's or the user's proxy script about one URL. Without an answer the session's own proxy stays.
  void Apply(const InternetHandle& session, const InternetHandle& request, const std::wstring& url) const {
    if (!detects_ && !script_.IsValid()) return;
    WINHTTP_AUTOPROXY_OPTIONS options{};
    options.dwFlags = script_.IsValid() ? WINHTTP_AUTOPROXY_CONFIG_URL : WINHTTP_AUTOPROXY_AUTO_DETECT;
    options.dwAutoDetectFlags = script_.IsValid() ? 0 : WINHTTP_AUTO_DETECT_TYPE_DHCP | WINHTTP_AUTO_DETECT_TYPE_DNS_A;
    options.lpszAutoConfigUrl = script_.get();
    options.fAutoLogonIfChallenged = TRUE;
    WINHTTP_PROXY_INFO found{};
    if (!WINHTTP_CALL(WinHttpGetProxyForUrl)(session.get(), url.c_str(), &options, &found)) return;
    const SharedText proxy(found.lpszProxy);
    const SharedText bypass(found.lpszProxyBypass);
    WINHTTP_CALL(WinHttpSetOption)(request.get(), WINHTTP_OPTION_PROXY, &found, sizeof found);
  }

 private:
  bool detects_ = false;
  SharedText script_;
  SharedText proxy_;
  SharedText bypass_;
};

// The library with the user's proxy. Cookies live as long, and so go with a request from redirect to redirect.
class Session {
 public:
  Session() : handle_(WINHTTP_CALL(WinHttpOpen)(kAgent, WINHTTP_ACCESS_TYPE_AUTOMATIC_PROXY, nullptr, nullptr, 0)) {
    if (handle_.IsValid()) return;
    proxy_.emplace();
    handle_ = proxy_->OpenSession();
    Require(handle_.IsValid(), "The HTTP library cannot start");
    // These systems speak the newer protocols but do not offer them unasked.
    DWORD protocols =
        WINHTTP_FLAG_SECURE_PROTOCOL_TLS1 | WINHTTP_FLAG_SECURE_PROTOCOL_TLS1_1 | WINHTTP_FLAG_SECURE_PROTOCOL_TLS1_2;
    WINHTTP_CALL(WinHttpSetOption)(handle_.get(), WINHTTP_OPTION_SECURE_PROTOCOLS, &protocols, sizeof protocols);
  }

  [[nodiscard]] HINTERNET get() const { return handle_.get(); }
  void ApplyProxy(const InternetHandle& request, const std::string& url) const {
    if (proxy_) proxy_->Apply(handle_, request, ToWide(url));
  }

 private:
  InternetHandle handle_;
  std::optional<UserProxy> proxy_;
};

// Connection and request of one exchange, closed in the opposite order.
struct Exchange {
  Exchange(const Session& session, const HttpRequest& wanted) {
    const Target target = CrackUrl(wanted.url);
    connection.Reset(WINHTTP_CALL(WinHttpConnect)(session.get(), target.host.c_str(), target.port, 0));
    Require(connection.IsValid(), "The server's name cannot be used");
    request.Reset(WINHTTP_CALL(WinHttpOpenRequest)(
        connection.get(), ToWide(wanted.method).c_str(), target.resource.c_str(), nullptr, WINHTTP_NO_REFERER,
        WINHTTP_DEFAULT_ACCEPT_TYPES, target.secure ? WINHTTP_FLAG_SECURE : 0));
    Require(request.IsValid(), "The request cannot be opened");
    session.ApplyProxy(request, wanted.url);
    DWORD policy = WINHTTP_OPTION_REDIRECT_POLICY_NEVER;
    Require(WINHTTP_CALL(WinHttpSetOption)(request.get(), WINHTTP_OPTION_REDIRECT_POLICY, &policy, sizeof policy),
            "Redirects cannot be kept back");
  }

  InternetHandle connection;
  InternetHandle request;
};

void SendBody(HINTERNET handle, const HttpRequest& request) {
  if (request.body.size() > MAXLONG) Raise(error::kAutomationError, "The body is too large to be sent.");
  std::wstring headers;
  for (const HttpHeader& header : request.headers) headers += ToWide(header.name + ": " + header.value + "\r\n");
  const auto bytes = static_cast<DWORD>(request.body.size());
  // The library takes the body by a pointer to changeable bytes and leaves it as it is.
  auto* const body = const_cast<uint8_t*>(request.body.data());
  Require(WINHTTP_CALL(WinHttpSendRequest)(handle, headers.empty() ? nullptr : headers.c_str(),
                                           static_cast<DWORD>(headers.size()), bytes == 0 ? nullptr : body, bytes,
                                           bytes, 0),
          "The request cannot be sent");
  Require(WINHTTP_CALL(WinHttpReceiveResponse)(handle, nullptr), "The server does not answer");
}

int QueryStatus(HINTERNET handle) {
  DWORD status = 0;
  DWORD size = sizeof status;
  Require(WINHTTP_CALL(WinHttpQueryHeaders)(handle, WINHTTP_QUERY_STATUS_CODE | WINHTTP_QUERY_FLAG_NUMBER, nullptr,
                                            &status, &size, nullptr),
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
  Require(
      WINHTTP_CALL(WinHttpQueryHeaders)(handle, WINHTTP_QUERY_RAW_HEADERS_CRLF, nullptr, head.data(), &size, nullptr),
      "The answer's head cannot be read");
  HttpHeaders headers;
  for (const std::string& line : Split(FromWide(head.c_str()), kCrLf)) {
    if (std::optional<HttpHeader> header = ParseHeaderLine(line)) headers.push_back(std::move(*header));
  }
  return headers;
}

// An exchange on its own thread, so that the one with the windows can paint and hear the user while the library waits.
// The request is a copy: when the user leaves, the thread is left behind and ends when the library lets it.
void RunExchange(const Session& session, const HttpRequest& request, HttpHandover& handover) {
  const Exchange exchange(session, request);
  const HINTERNET handle = exchange.request.get();
  SendBody(handle, request);
  bool goes_on = handover.PutHead(QueryStatus(handle), QueryHeaders(handle));
  while (goes_on) {
    DWORD waiting = 0;
    Require(WINHTTP_CALL(WinHttpQueryDataAvailable)(handle, &waiting), "The answer is cut off");
    Bytes piece(std::min(waiting, kPieceBytes));
    auto got = static_cast<DWORD>(piece.size());
    if (got > 0) Require(WINHTTP_CALL(WinHttpReadData)(handle, piece.data(), got, &got), "The answer is cut off");
    piece.resize(got);
    goes_on = got > 0 && handover.PutPiece(std::move(piece));
  }
}

class WinHttpSession final : public HttpSession {
 public:
  void Exchange(const HttpRequest& request, HttpReceiver& receiver) override {
    const std::unique_ptr<HttpExchange> exchange = Start(request);
    WaitForAnswer(*exchange, receiver);
  }

  std::unique_ptr<HttpExchange> Start(const HttpRequest& request) override {
    if (!session_) session_ = std::make_shared<const Session>();
    return StartOnThread([session = session_, copy = request,
                          body = Bytes(request.body.begin(), request.body.end())](HttpHandover& handover) mutable {
      copy.body = body;
      RunExchange(*session, copy, handover);
    });
  }

 private:
  std::shared_ptr<const Session> session_;
};

}  // namespace

std::unique_ptr<HttpSession> OpenWinHttpSession() { return std::make_unique<WinHttpSession>(); }

}  // namespace kestrun
