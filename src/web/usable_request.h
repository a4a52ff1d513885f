// A request whose answer is waited for while the windows stay usable: the message loop runs meanwhile, and events can
// arrive in the middle of the command that waits. The rules are those of web_request.h.
#pragma once

#include <functional>
#include <optional>

#include "platform/http.h"

namespace kestrun {

// `goes_on` is asked before anything is sent and then again and again; false leaves the answer, however much of it is
// still to come. Nothing then, and on every failure. Never raises.
[[nodiscard]] std::optional<HttpResponse> SendWhileUsable(const HttpRequest& request,
                                                          const std::function<bool()>& goes_on);

}  // namespace kestrun
