// A session of the system's HTTP library, and requests that are opened in it.
#pragma once

#include <optional>
#include <string>

#include "desktop/win32/system/winhttp_library.h"
#include "platform/http.h"

namespace kestrun {

// Texts that the library allocates for its caller.
struct SharedTextTraits {
  using Handle = LPWSTR;
  static Handle Empty() { return nullptr; }
  static void Close(Handle handle) { GlobalFree(handle); }
};
using SharedText = UniqueHandle<SharedTextTraits>;

// The user's proxy settings, for systems before 8.1, whose library does not follow them by itself.
class UserProxy {
 public:
  UserProxy();

  [[nodiscard]] InternetHandle OpenSession() const;
  // Whether Apply has to ask the network or a script, which may take seconds.
  [[nodiscard]] bool MustBeAskedFor() const { return detects_ || script_.IsValid(); }
  // Asks the network's or the user's proxy script about one URL. Without an answer the session's own proxy stays.
  void Apply(const InternetHandle& session, const InternetHandle& request, const std::wstring& url) const;

 private:
  bool detects_ = false;
  SharedText script_;
  SharedText proxy_;
  SharedText bypass_;
};

// Connection and request, closed in the opposite order.
struct OpenedRequest {
  InternetHandle connection;
  InternetHandle request;
};

// The library with the user's proxy, its calls answered from threads of its own. Cookies live as long, and so go with a
// request from redirect to redirect.
class WinHttpLibrary {
 public:
  // Error 440 when the library cannot start.
  WinHttpLibrary();

  // A request that follows no redirect and is not sent yet. Error 440 for a URL that cannot be used.
  [[nodiscard]] OpenedRequest OpenRequest(const HttpRequest& wanted) const;
  // Whether ApplyProxy may take seconds.
  [[nodiscard]] bool IsProxySlow() const { return proxy_ && proxy_->MustBeAskedFor(); }
  void ApplyProxy(const InternetHandle& request, const std::string& url) const;

 private:
  InternetHandle handle_;
  std::optional<UserProxy> proxy_;
};

}  // namespace kestrun
