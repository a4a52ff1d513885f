#include "desktop/win32/system/winhttp_session.h"

#include "desktop/win32/system/wide_text.h"

namespace kestrun {
namespace {

constexpr wchar_t kAgent[] = L"Kestrun";

InternetHandle OpenLibrary(DWORD access, LPCWSTR proxy = nullptr, LPCWSTR bypass = nullptr) {
  return InternetHandle(WINHTTP_CALL(WinHttpOpen)(kAgent, access, proxy, bypass, WINHTTP_FLAG_ASYNC));
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
  RequireInternet(WINHTTP_CALL(WinHttpCrackUrl)(wide.c_str(), static_cast<DWORD>(wide.size()), 0, &parts),
                  "The URL cannot be read");
  Target target;
  target.secure = parts.nScheme == INTERNET_SCHEME_HTTPS;
  target.host.assign(parts.lpszHostName, parts.dwHostNameLength);
  target.port = parts.nPort;
  target.resource.assign(parts.lpszUrlPath, parts.dwUrlPathLength);
  target.resource.append(parts.lpszExtraInfo, parts.dwExtraInfoLength);
  return target;
}

}  // namespace

// ---- the user's proxy ----------------------------------------------------------------------------------------------

UserProxy::UserProxy() {
  WINHTTP_CURRENT_USER_IE_PROXY_CONFIG found{};
  if (!WINHTTP_CALL(WinHttpGetIEProxyConfigForCurrentUser)(&found)) return;
  detects_ = found.fAutoDetect != FALSE;
  script_.Reset(found.lpszAutoConfigUrl);
  proxy_.Reset(found.lpszProxy);
  bypass_.Reset(found.lpszProxyBypass);
}

InternetHandle UserProxy::OpenSession() const {
  return proxy_.IsValid() ? OpenLibrary(WINHTTP_ACCESS_TYPE_NAMED_PROXY, proxy_.get(), bypass_.get())
                          : OpenLibrary(WINHTTP_ACCESS_TYPE_DEFAULT_PROXY);
}

void UserProxy::Apply(const InternetHandle& session, const InternetHandle& request, const std::wstring& url) const {
  if (!MustBeAskedFor()) return;
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

// ---- the session ---------------------------------------------------------------------------------------------------

WinHttpLibrary::WinHttpLibrary() : handle_(OpenLibrary(WINHTTP_ACCESS_TYPE_AUTOMATIC_PROXY)) {
  if (handle_.IsValid()) return;
  proxy_.emplace();
  handle_ = proxy_->OpenSession();
  RequireInternet(handle_.IsValid(), "The HTTP library cannot start");
  // These systems speak the newer protocols but do not offer them unasked.
  DWORD protocols =
      WINHTTP_FLAG_SECURE_PROTOCOL_TLS1 | WINHTTP_FLAG_SECURE_PROTOCOL_TLS1_1 | WINHTTP_FLAG_SECURE_PROTOCOL_TLS1_2;
  WINHTTP_CALL(WinHttpSetOption)(handle_.get(), WINHTTP_OPTION_SECURE_PROTOCOLS, &protocols, sizeof protocols);
}

OpenedRequest WinHttpLibrary::OpenRequest(const HttpRequest& wanted) const {
  const Target target = CrackUrl(wanted.url);
  OpenedRequest opened;
  opened.connection.Reset(WINHTTP_CALL(WinHttpConnect)(handle_.get(), target.host.c_str(), target.port, 0));
  RequireInternet(opened.connection.IsValid(), "The server's name cannot be used");
  opened.request.Reset(WINHTTP_CALL(WinHttpOpenRequest)(
      opened.connection.get(), ToWide(wanted.method).c_str(), target.resource.c_str(), nullptr, WINHTTP_NO_REFERER,
      WINHTTP_DEFAULT_ACCEPT_TYPES, target.secure ? WINHTTP_FLAG_SECURE : 0));
  RequireInternet(opened.request.IsValid(), "The request cannot be opened");
  DWORD policy = WINHTTP_OPTION_REDIRECT_POLICY_NEVER;
  RequireInternet(
      WINHTTP_CALL(WinHttpSetOption)(opened.request.get(), WINHTTP_OPTION_REDIRECT_POLICY, &policy, sizeof policy),
      "Redirects cannot be kept back");
  return opened;
}

void WinHttpLibrary::ApplyProxy(const InternetHandle& request, const std::string& url) const {
  if (proxy_) proxy_->Apply(handle_, request, ToWide(url));
}

}  // namespace kestrun
