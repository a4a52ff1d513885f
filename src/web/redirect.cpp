#include "web/redirect.h"

#include <algorithm>
#include <array>

#include "base/runtime_error.h"
#include "base/text.h"

namespace kestrun {
namespace {

constexpr int kMostRedirects = 10;
constexpr std::string_view kSecureScheme = "https://";

bool IsSecure(std::string_view url) { return EqualsNoCase(url.substr(0, kSecureScheme.size()), kSecureScheme); }

// A scheme and a colon stand before any other part of a URL.
bool IsAbsolute(std::string_view location) {
  const size_t colon = location.find_first_of(":/?#");
  return colon != std::string_view::npos && colon > 0 && location[colon] == ':';
}

// RFC 3986, 5.2.4: "." and ".." segments of a path that starts with "/".
std::string WithoutDotSegments(std::string_view path) {
  std::vector<std::string> kept;
  std::vector<std::string> segments = Split(path.substr(1), "/");
  const bool ends_in_dots = segments.back() == "." || segments.back() == "..";
  for (std::string& segment : segments) {
    if (segment == "..") {
      if (!kept.empty()) kept.pop_back();
    } else if (segment != ".") {
      kept.push_back(std::move(segment));
    }
  }
  std::string plain;
  for (const std::string& segment : kept) plain += "/" + segment;
  if (plain.empty() || ends_in_dots) plain += "/";
  return plain;
}

// The parts of "http://site/path?query#fragment", the last one dropped. The path is never empty.
struct PageParts {
  explicit PageParts(std::string_view page) {
    page = page.substr(0, page.find('#'));
    const size_t colon = page.find(':');
    const size_t site_end =
        std::min(page.find_first_of("/?", colon == std::string_view::npos ? 0 : colon + 3), page.size());
    const size_t path_end = std::min(page.find('?', site_end), page.size());
    scheme = page.substr(0, colon);
    site = page.substr(0, site_end);
    path = path_end == site_end ? std::string_view("/") : page.substr(site_end, path_end - site_end);
  }
  std::string_view scheme;
  std::string_view site;  // scheme and authority
  std::string_view path;
};

HttpRequest Redirected(HttpRequest request, int status, std::string url) {
  request.url = std::move(url);
  if (status == 307 || status == 308 || request.method == "GET" || request.method == "HEAD") return request;
  request.method = "GET";
  request.body = {};
  std::erase_if(request.headers, [](const HttpHeader& header) { return EqualsNoCase(header.name, "Content-Type"); });
  return request;
}

}  // namespace

bool IsRedirect(int status, const HttpHeaders& headers) {
  const bool leads = status == 301 || status == 302 || status == 303 || status == 307 || status == 308;
  return leads && FindHeader(headers, "Location");
}

std::string ResolveLocation(std::string_view page, std::string_view location) {
  if (IsAbsolute(location)) return std::string(location);
  const PageParts from(page);
  if (StartsWith(location, "//")) return std::string(from.scheme) + ":" + std::string(location);
  const size_t path_end = std::min(location.find_first_of("?#"), location.size());
  const std::string_view path = location.substr(0, path_end);
  std::string whole(path);
  if (path.empty()) {
    whole = from.path;
  } else if (path.front() != '/') {
    whole = std::string(from.path.substr(0, from.path.rfind('/') + 1)) + whole;
  }
  return std::string(from.site) + WithoutDotSegments(whole) + std::string(location.substr(path_end));
}

bool IsHttpUrl(std::string_view url) {
  constexpr std::array<std::string_view, 2> kSchemes{"http://", "https://"};
  return std::any_of(kSchemes.begin(), kSchemes.end(),
                     [url](std::string_view scheme) { return EqualsNoCase(url.substr(0, scheme.size()), scheme); });
}

HttpRequest RedirectTrail::Next(HttpRequest request, int status, const HttpHeaders& headers) {
  if (++followed_ > kMostRedirects) RefuseExchange("The server sends the request from place to place.");
  std::string url = ResolveLocation(request.url, FindHeader(headers, "Location").value_or(""));
  if (!IsHttpUrl(url)) RefuseExchange("The server sends the request to an address that is no web address.");
  if (IsSecure(request.url) && !IsSecure(url)) {
    RefuseExchange("The server sends the request from a safe connection to an open one.");
  }
  return Redirected(std::move(request), status, std::move(url));
}

HttpResponse FollowRedirects(HttpRequest request, const std::function<HttpResponse(const HttpRequest& request)>& send) {
  RedirectTrail trail;
  for (;;) {
    HttpResponse response = send(request);
    if (!IsRedirect(response.status, response.headers)) return response;
    request = trail.Next(std::move(request), response.status, response.headers);
  }
}

}  // namespace kestrun
