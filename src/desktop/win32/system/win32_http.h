// The web through the system's HTTP library.
#pragma once

#include <memory>

#include "platform/http.h"

namespace kestrun {

// A way to the web through the proxy that the user's system settings name, which waits as long as the library does by
// default. While an exchange lasts, windows are painted and nothing else: what the user presses goes nowhere, and Esc
// is told to the receiver. Exchanges raise error 440 with a sentence for every failure, 429 when the library is
// missing.
[[nodiscard]] std::unique_ptr<HttpSession> OpenWinHttpSession();

}  // namespace kestrun
