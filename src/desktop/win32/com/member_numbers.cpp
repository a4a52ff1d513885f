#include "desktop/win32/com/member_numbers.h"

#include <deque>
#include <map>

#include "base/text.h"

namespace kestrun {
namespace {

// Automation's own numbers are 0 and below.
constexpr DISPID kFirstNumber = 1;

struct Names {
  std::deque<std::string> by_number;
  std::map<std::string, DISPID> in_lower_case;
};

Names& KnownNames() {
  static Names names;
  return names;
}

}  // namespace

DISPID NumberOfMember(std::string_view name) {
  Names& names = KnownNames();
  const auto next = kFirstNumber + static_cast<DISPID>(names.by_number.size());
  const auto [place, is_new] = names.in_lower_case.try_emplace(ToLower(name), next);
  if (is_new) names.by_number.emplace_back(name);
  return place->second;
}

const std::string* MemberOfNumber(DISPID number) {
  const std::deque<std::string>& names = KnownNames().by_number;
  const auto at = static_cast<size_t>(int64_t{number} - kFirstNumber);
  return number >= kFirstNumber && at < names.size() ? &names[at] : nullptr;
}

}  // namespace kestrun
