// Redirects in one way on every system. The system's own libraries differ in them: some send a posted form's headers on
// with a request that has no body any more, some take every path for one from the root.
#pragma once

#include <functional>
#include <string>
#include <string_view>

#include "platform/http.h"

namespace kestrun {

// True for an answer that says where to ask instead.
[[nodiscard]] bool IsRedirect(int status, const HttpHeaders& headers);

// Sends a request with `send` and then what the answers ask for: 301, 302 and 303 turn all but GET and HEAD into a GET
// without a body, 307 and 308 repeat the request. Gives the last answer. Raises error 440 after ten of them, and for
// one that leads from https to anything else.
[[nodiscard]] HttpResponse FollowRedirects(HttpRequest request,
                                           const std::function<HttpResponse(const HttpRequest& request)>& send);

// Where a Location header leads, seen from the page that it came with (RFC 3986, 5.2).
[[nodiscard]] std::string ResolveLocation(std::string_view page, std::string_view location);

}  // namespace kestrun
