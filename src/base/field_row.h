// Rows of member tables for plain data members.
#pragma once

#include <string_view>
#include <type_traits>
#include <utility>

#include "base/member_rows.h"

namespace kestrun {

// A field that can be read and written. `kHolder` gives the C++ object that holds it for the one that is called.
template <auto kField, auto kHolder>
constexpr Member FieldRow(std::string_view name) {
  using Value = std::remove_cvref_t<decltype(kHolder(std::declval<Object&>()).*kField)>;
  return {name,
          MemberKind::kReadWrite,
          0,
          0,
          [](Object& object, Arguments) -> Variant { return VariantTraits<Value>::To(kHolder(object).*kField); },
          [](Object& object, Arguments, const Variant& value) {
            kHolder(object).*kField = VariantTraits<Value>::From(value);
          },
          VariantTraits<Value>::kTypeName};
}

}  // namespace kestrun
