#include "desktop/win32/com/call_arguments.h"

#include <algorithm>

#include "base/text.h"
#include "desktop/win32/com/automation_value.h"

namespace kestrun {
namespace {

// More than any member takes.
constexpr size_t kMostArguments = 256;

// The same value in the same memory: what a callee has not touched.
bool IsUntouched(const Variant& before, const Variant& after) {
  return before.type() == after.type() && before.scaled() == after.scaled();
}

}  // namespace

DISPID PlaceOfParameter(std::string_view parameters, std::string_view name) {
  const std::vector<std::string> names = Split(parameters, ", ");
  for (size_t at = 0; at < names.size(); ++at) {
    if (EqualsNoCase(names[at], name)) return static_cast<DISPID>(at);
  }
  return -1;
}

CallArguments::CallArguments(const DISPPARAMS& given, bool is_put) {
  const size_t count = given.cArgs;
  const size_t named = given.cNamedArgs;
  if (named > count || count > kMostArguments) Raise(error::kWrongArgumentCount);
  const size_t values = is_put ? 1 : 0;
  if (values > count || (is_put && named > 0 && given.rgdispidNamedArgs[0] != DISPID_PROPERTYPUT)) {
    Raise(error::kWrongArgumentCount);
  }
  if (is_put) put_value_ = FromAutomation(given.rgvarg[0]);
  const size_t first_positional = std::max(named, values);
  for (size_t at = count; at > first_positional; --at) Take(count - at, given.rgvarg[at - 1]);
  for (size_t at = values; at < named; ++at) {
    const DISPID place = given.rgdispidNamedArgs[at];
    if (place < 0 || static_cast<size_t>(place) >= kMostArguments) Raise(error::kNamedArgumentNotFound);
    Take(static_cast<size_t>(place), given.rgvarg[at]);
  }
  while (!values_.empty() && values_.back().IsMissing()) {
    values_.pop_back();
    sources_.pop_back();
  }
  passed_ = values_;
}

void CallArguments::Take(size_t place, VARIANT& source) {
  if (place >= values_.size()) {
    values_.resize(place + 1, Variant::Missing());
    sources_.resize(place + 1, nullptr);
  }
  values_[place] = FromAutomation(source);
  sources_[place] = &source;
}

void CallArguments::GiveBack() {
  for (size_t at = 0; at < values_.size(); ++at) {
    if (!sources_[at] || !(sources_[at]->vt & VT_BYREF) || IsUntouched(passed_[at], values_[at])) continue;
    StoreThroughReference(values_[at], *sources_[at]);
  }
}

}  // namespace kestrun
