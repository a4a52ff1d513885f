// Requests to the web by the program's rules, which are the same on every system: redirects, lengths, limits, what can
// be asked for at all. All of the program's requests go this way.
#pragma once

#include <functional>
#include <optional>
#include <string>
#include <string_view>

#include "platform/http.h"
#include "web/memory_receiver.h"
#include "web/redirect.h"

namespace kestrun {

// Hands the last answer to the receiver: redirects are followed, the body is neither more nor less than its length
// says. Any status is an answer. Shows how far it is in the FetchScope around it. Raises error 440 with a sentence for
// every failure, a cancel of the user's included.
void ReceiveAnswer(const HttpRequest& request, HttpReceiver& receiver);

// The same with the answer in memory; nothing on every failure. `on_event`, where it is set, is called when the answer
// starts and whenever a piece of its body has arrived; a fault in it ends the request. Never raises.
[[nodiscard]] std::optional<HttpResponse> SendRequest(const HttpRequest& request,
                                                      const std::function<void()>& on_event = {});

// The head of the answer alone; its body is left unread, however large it is.
[[nodiscard]] std::optional<HttpResponse> SendRequestForHead(const HttpRequest& request,
                                                             const std::function<void()>& on_event = {});

// The body as UTF-8 text, read by the charset of Content-Type: UTF-8 where it says so, the code page everywhere else.
[[nodiscard]] std::string ResponseText(const HttpResponse& response);

}  // namespace kestrun
