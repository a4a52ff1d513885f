#include "maps/preview_search.h"

#include <algorithm>

#include "base/text.h"
#include "program/path_text.h"
#include "web/cls_http.h"
#include "web/redirect.h"

namespace kestrun {
namespace {

constexpr std::string_view kNothingFound = "no map";
constexpr const char* kParameterType = "file";
constexpr size_t kMostAddresses = 1000;

}  // namespace

std::string WithoutServiceSigns(const std::string& name) {
  constexpr std::string_view kSigns = "?'*\\/[]\"";
  std::string kept = name;
  std::erase_if(kept, [&](char c) { return kSigns.find(c) != std::string_view::npos; });
  return kept;
}

std::string MapBaseName(const std::string& map) {
  constexpr size_t kExtension = 4;
  const std::string name = GetFileName(map, true);
  return name.substr(0, name.size() - std::min(kExtension, name.size()));
}

std::string PreviewSearchName(const std::string& map) {
  std::string name;
  for (const char c : MapBaseName(map)) {
    const bool is_digit = c >= '0' && c <= '9';
    name += is_digit ? std::string{'%', c, '%'} : std::string(1, c);
  }
  return std::string(TrimBlanks(WithoutServiceSigns(name)));
}

std::string SearchPreviews(const std::string& service, const std::string& map) {
  const Ref<ClsHTTP> http = MakeRef<ClsHTTP>();
  http->AddParameter("action", "bestpreview", false, kParameterType);
  http->AddParameter("mapname", PreviewSearchName(map), false, kParameterType);
  return http->DownloadURl(service + "/script.php", "POST");
}

std::vector<std::string> PreviewAddresses(const std::string& reply) {
  std::vector<std::string> addresses;
  if (reply.empty() || reply == kNothingFound) return addresses;
  for (const std::string& line : Split(reply, "\n")) {
    const std::string_view address = TrimBlanks(std::string_view(line).substr(0, line.find('\r')));
    if (addresses.size() < kMostAddresses && IsHttpUrl(address)) addresses.emplace_back(address);
  }
  return addresses;
}

std::string PreviewName(const std::string& address) {
  return ReplaceAll(address.substr(address.find_last_of("/\\") + 1), "%20", " ");
}

}  // namespace kestrun
