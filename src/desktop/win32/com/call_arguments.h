// The arguments of a call from outside, in the order that the program's members take them.
#pragma once

#include <string_view>
#include <vector>

#include "base/object.h"
#include "desktop/win32/system/windows_api.h"

namespace kestrun {

// Place of a name in "Message, KeyAscii"; -1 when it is not there. Without regard to case.
[[nodiscard]] DISPID PlaceOfParameter(std::string_view parameters, std::string_view name);

class CallArguments {
 public:
  // Positional arguments come last to first, named ones before them. What is left out between others is missing; at the
  // end it is not there. `is_put`: the first is the value that is assigned. Error 448 for a name that the member lacks.
  CallArguments(const DISPPARAMS& given, bool is_put);

  [[nodiscard]] Arguments values() { return values_; }
  // What is assigned.
  [[nodiscard]] const Variant& put_value() const { return put_value_; }
  // Puts what the callee has changed into what was passed by reference.
  void GiveBack();

 private:
  void Take(size_t place, VARIANT& source);

  std::vector<Variant> values_;
  std::vector<Variant> passed_;    // as they were before the call
  std::vector<VARIANT*> sources_;  // by their places in values_; null for what was left out
  Variant put_value_;
};

}  // namespace kestrun
