// Rows of member tables for stored properties: PropertyRow<&Label::Caption>("Caption").
#pragma once

#include "base/member_rows.h"
#include "forms/picture.h"
#include "forms/property.h"

namespace kestrun {

template <>
struct VariantTraits<Ref<Picture>> {
  static constexpr std::string_view kTypeName = "Picture";
  static Variant To(const Ref<Picture>& value) { return value; }
  static Ref<Picture> From(const Variant& value) {
    if (value.Is(VarType::kEmpty)) return {};
    if (!value.Is(VarType::kObject)) Raise(error::kTypeMismatch);
    return value.object() ? PictureOf(*value.object()) : Ref<Picture>();
  }
};

namespace internal {

template <class C, class T>
struct MemberPointer<Property<T> C::*> {
  using Class = C;
  using Value = T;
};

template <auto kProperty>
Variant GetProperty(Object& object, Arguments) {
  using Traits = MemberPointer<decltype(kProperty)>;
  return VariantTraits<typename Traits::Value>::To((static_cast<typename Traits::Class&>(object).*kProperty).get());
}

template <auto kProperty>
void PutProperty(Object& object, Arguments, const Variant& value) {
  using Traits = MemberPointer<decltype(kProperty)>;
  static_cast<typename Traits::Class&>(object).*kProperty = VariantTraits<typename Traits::Value>::From(value);
}

}  // namespace internal

// A stored property, readable and writable.
template <auto kProperty>
constexpr Member PropertyRow(std::string_view name) {
  return {name,
          MemberKind::kReadWrite,
          0,
          0,
          &internal::GetProperty<kProperty>,
          &internal::PutProperty<kProperty>,
          VariantTraits<typename internal::MemberPointer<decltype(kProperty)>::Value>::kTypeName};
}

}  // namespace kestrun
