#include "forms/property_bag.h"

#include "base/convert.h"
#include "base/text.h"

namespace kestrun {
namespace {

// Objects are equal when they are the same one; everything else compares as its text within its type.
bool SameValue(const Variant& left, const Variant& right) {
  if (left.Is(VarType::kObject) || right.Is(VarType::kObject)) {
    return left.type() == right.type() && left.object() == right.object();
  }
  if (left.Is(VarType::kEmpty) || right.Is(VarType::kEmpty)) return left.type() == right.type();
  return ToText(left) == ToText(right);
}

}  // namespace

void PropertyBag::WriteProperty(std::string_view name, const Variant& value, const Variant& default_value) {
  const std::string key = ToLower(name);
  if (SameValue(value, default_value)) {
    values_.erase(key);
  } else {
    values_.insert_or_assign(key, value);
  }
}

Variant PropertyBag::ReadProperty(std::string_view name, const Variant& default_value) const {
  const auto found = values_.find(ToLower(name));
  return found == values_.end() ? default_value : found->second;
}

bool PropertyBag::Holds(std::string_view name) const { return values_.contains(ToLower(name)); }

}  // namespace kestrun
