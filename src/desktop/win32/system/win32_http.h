// One blocking request through the system's HTTP library.
#pragma once

#include "platform/http.h"

namespace kestrun {

// Follows redirects (platform/http_redirect.h), waits as long as the library does by default, and goes through the
// proxy that the user's system settings name. Raises error 440 with a sentence for every failure, 429 when the library
// is missing.
[[nodiscard]] HttpResponse SendThroughWinHttp(const HttpRequest& request);

}  // namespace kestrun
