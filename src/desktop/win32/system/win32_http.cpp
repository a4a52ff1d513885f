#include "desktop/win32/system/win32_http.h"

#include "desktop/win32/system/http_handover.h"
#include "desktop/win32/system/winhttp_exchange.h"

namespace kestrun {
namespace {

class WinHttpSession final : public HttpSession {
 public:
  void Exchange(const HttpRequest& request, HttpReceiver& receiver) override {
    const std::unique_ptr<HttpExchange> exchange = Start(request);
    WaitForAnswer(*exchange, receiver);
  }

  std::unique_ptr<HttpExchange> Start(const HttpRequest& request) override {
    if (!library_) library_ = std::make_shared<const WinHttpLibrary>();
    return StartWinHttpExchange(library_, request);
  }

 private:
  std::shared_ptr<const WinHttpLibrary> library_;
};

}  // namespace

std::unique_ptr<HttpSession> OpenWinHttpSession() { return std::make_unique<WinHttpSession>(); }

}  // namespace kestrun
