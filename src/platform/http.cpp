#include "platform/http.h"

#include <algorithm>

#include "base/runtime_error.h"
#include "base/text.h"

namespace kestrun {

std::optional<std::string> FindHeader(const HttpHeaders& headers, std::string_view name) {
  const auto found = std::find_if(headers.begin(), headers.end(),
                                  [name](const HttpHeader& header) { return EqualsNoCase(header.name, name); });
  if (found == headers.end()) return std::nullopt;
  return found->value;
}

void RefuseExchange(const std::string& why) { Raise(error::kAutomationError, why); }

}  // namespace kestrun
