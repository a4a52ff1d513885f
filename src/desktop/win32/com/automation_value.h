// Values on their way between the program and automation, and the owners of what automation allocates.
#pragma once

#include "base/variant.h"
#include "desktop/win32/system/windows_api.h"
// The header below needs the one above.
#include <oleauto.h>

namespace kestrun {

// A copy of the value; objects come through the object bridge, and arrays lose their lower bounds. Error 458 for a type
// that the program does not know.
[[nodiscard]] Variant FromAutomation(const VARIANT& value);

// Fills the target, which must hold nothing, with a copy of the value.
void StoreAutomation(const Variant& value, VARIANT& target);

// Puts the value into what a variant of the kind VT_BYREF stands for, converted to its type. Error 13 when it cannot
// be.
void StoreThroughReference(const Variant& value, const VARIANT& reference);

// A new text of automation. Error 7 when there is no memory.
[[nodiscard]] BSTR NewAutomationText(std::string_view utf8);
// Takes the text over: a copy of it as UTF-8.
[[nodiscard]] std::string TakeAutomationText(BSTR text);

// A variant of automation with what it holds.
class AutomationValue {
 public:
  AutomationValue() = default;
  explicit AutomationValue(const Variant& value) { StoreAutomation(value, held_); }
  ~AutomationValue();
  AutomationValue(const AutomationValue&) = delete;
  AutomationValue& operator=(const AutomationValue&) = delete;

  [[nodiscard]] VARIANT& get() { return held_; }
  [[nodiscard]] const VARIANT& get() const { return held_; }

 private:
  VARIANT held_{};
};

}  // namespace kestrun
