// The web where there is no Windows: libcurl, for the command-line program and for tests. The rules of web/ stand above
// it; nothing here follows a redirect or looks at a status.
#pragma once

#ifndef _WIN32

#include <memory>

#include "platform/http.h"

namespace kestrun {

// A way to the web through the proxy that the environment names (http_proxy, https_proxy, no_proxy; never for this
// machine itself). Cookies live as long as the session. Waits 60 seconds for a connection and 30 for each piece of an
// answer. There is no user who could press Esc. Exchanges raise error 440 with a sentence for every failure.
[[nodiscard]] std::unique_ptr<HttpSession> OpenCurlSession();

}  // namespace kestrun

#endif  // _WIN32
