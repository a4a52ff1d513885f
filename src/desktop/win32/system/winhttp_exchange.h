// One exchange through the system's HTTP library in its asynchronous mode: each call is answered later, on a thread of
// the library, and the answer leads to the next call.
#pragma once

#include <memory>

#include "desktop/win32/system/winhttp_session.h"
#include "platform/http.h"

namespace kestrun {

// Begins the exchange; its body is copied. Failures, those of the beginning too, are raised where the answer is handed
// over, as error 440. When the object goes the request is closed, however much is still to come.
[[nodiscard]] std::unique_ptr<HttpExchange> StartWinHttpExchange(std::shared_ptr<const WinHttpLibrary> library,
                                                                 const HttpRequest& request);

}  // namespace kestrun
