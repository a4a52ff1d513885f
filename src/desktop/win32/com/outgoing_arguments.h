// Values on their way into a call of another component.
#pragma once

#include <deque>
#include <vector>

#include "base/object.h"
#include "desktop/win32/com/automation_value.h"
#include "desktop/win32/system/windows_api.h"

namespace kestrun {

// The arguments of a call as automation takes them: last to first, and what is assigned before all of them.
class OutgoingArguments {
 public:
  OutgoingArguments(Arguments arguments, const Variant* put_value) {
    if (put_value) held_.emplace_back(*put_value);
    for (size_t at = arguments.size(); at > 0; --at) held_.emplace_back(arguments[at - 1]);
    // Borrowed from their owners for the call.
    for (AutomationValue& value : held_) values_.push_back(value.get());
    parameters_ = {values_.data(), put_value ? &put_name_ : nullptr, static_cast<UINT>(values_.size()),
                   put_value ? 1U : 0U};
  }
  OutgoingArguments(const OutgoingArguments&) = delete;
  OutgoingArguments& operator=(const OutgoingArguments&) = delete;

  [[nodiscard]] DISPPARAMS* get() { return &parameters_; }

 private:
  std::deque<AutomationValue> held_;
  std::vector<VARIANT> values_;
  DISPID put_name_ = DISPID_PROPERTYPUT;
  DISPPARAMS parameters_{};
};

}  // namespace kestrun
