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

// The way of one request from place to place.
class RedirectTrail {
 public:
  // What the answer to a request asks for: 301, 302 and 303 turn all but GET and HEAD into a GET without a body, 307
  // and 308 repeat the request. Raises error 440 after ten of them, for one that leads from https to anything else, and
  // for one that leads to what is neither http nor https.
  [[nodiscard]] HttpRequest Next(HttpRequest request, int status, const HttpHeaders& headers);

 private:
  int followed_ = 0;
};

// True for addresses that are asked for by HTTP: "http://" or "https://" in any case.
[[nodiscard]] bool IsHttpUrl(std::string_view url);

// Sends a request with `send`, and then what the answers ask for. Gives the last answer. Raises as RedirectTrail does.
[[nodiscard]] HttpResponse FollowRedirects(HttpRequest request,
                                           const std::function<HttpResponse(const HttpRequest& request)>& send);

// Where a Location header leads, seen from the page that it came with (RFC 3986, 5.2).
[[nodiscard]] std::string ResolveLocation(std::string_view page, std::string_view location);

}  // namespace kestrun
