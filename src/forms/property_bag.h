// Stored properties of a control: what its designer set, by name. A value that equals the default is not stored, and a
// property that is not stored reads as the default that the reader passes.
#pragma once

#include <map>
#include <string>
#include <string_view>

#include "base/variant.h"

namespace kestrun {

class PropertyBag {
 public:
  // Stores the value unless it equals the default; then an older value of that name goes.
  void WriteProperty(std::string_view name, const Variant& value, const Variant& default_value);
  [[nodiscard]] Variant ReadProperty(std::string_view name, const Variant& default_value) const;
  [[nodiscard]] bool Holds(std::string_view name) const;
  [[nodiscard]] size_t Count() const { return values_.size(); }

 private:
  std::map<std::string, Variant> values_;  // by name in lower case
};

}  // namespace kestrun
