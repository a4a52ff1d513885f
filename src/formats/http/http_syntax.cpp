#include "formats/http/http_syntax.h"

#include <algorithm>

#include "base/text.h"

namespace kestrun {
namespace {

constexpr std::string_view kBlanks = " \t";

std::string_view WithoutBlanks(std::string_view text) {
  const size_t first = text.find_first_not_of(kBlanks);
  if (first == std::string_view::npos) return {};
  return text.substr(first, text.find_last_not_of(kBlanks) - first + 1);
}

std::string_view WithoutQuotes(std::string_view text) {
  const bool quoted = text.size() >= 2 && text.front() == '"' && text.back() == '"';
  return quoted ? text.substr(1, text.size() - 2) : text;
}

bool IsToken(std::string_view text) {
  static constexpr std::string_view kSigns = "!#$%&'*+-.^_`|~";
  const auto belongs = [](char c) {
    const char lower = static_cast<char>(c | 0x20);
    return (lower >= 'a' && lower <= 'z') || (c >= '0' && c <= '9') || kSigns.find(c) != std::string_view::npos;
  };
  return !text.empty() && std::all_of(text.begin(), text.end(), belongs);
}

bool HasControls(std::string_view text) {
  return std::any_of(text.begin(), text.end(), [](char c) { return static_cast<unsigned char>(c) < 32 || c == 127; });
}

}  // namespace

std::optional<HttpHeader> ParseHeaderLine(std::string_view line) {
  const size_t colon = line.find(':');
  if (colon == std::string_view::npos || !IsToken(line.substr(0, colon))) return std::nullopt;
  return HttpHeader{std::string(line.substr(0, colon)), std::string(WithoutBlanks(line.substr(colon + 1)))};
}

bool IsWellFormed(const HttpRequest& request) {
  return IsToken(request.method) && !HasControls(request.url) &&
         std::all_of(request.headers.begin(), request.headers.end(),
                     [](const HttpHeader& header) { return IsToken(header.name) && !HasControls(header.value); });
}

bool HasNoBody(std::string_view method, int status) {
  return EqualsNoCase(method, "HEAD") || status / 100 == 1 || status == 204 || status == 304;
}

std::optional<uint64_t> ParseLength(std::string_view text) {
  constexpr size_t kMostDigits = 18;
  if (text.empty() || text.size() > kMostDigits) return std::nullopt;
  uint64_t length = 0;
  for (const char digit : text) {
    if (digit < '0' || digit > '9') return std::nullopt;
    length = length * 10 + static_cast<uint64_t>(digit - '0');
  }
  return length;
}

std::string_view CharsetOf(std::string_view content_type) {
  while (true) {
    const size_t end = content_type.find(';');
    if (end == std::string_view::npos) return {};
    content_type.remove_prefix(end + 1);
    const std::string_view parameter = WithoutBlanks(content_type.substr(0, content_type.find(';')));
    const size_t equals = parameter.find('=');
    if (equals == std::string_view::npos || !EqualsNoCase(parameter.substr(0, equals), "charset")) continue;
    return WithoutQuotes(parameter.substr(equals + 1));
  }
}

}  // namespace kestrun
