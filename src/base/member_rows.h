// Rows of member tables, written from the C++ members themselves:
//   MethodRow<&Form::Hide>("Hide"), ReadOnlyRow<&ListBox::ListCount>("ListCount")
#pragma once

#include <string>
#include <string_view>
#include <tuple>
#include <type_traits>
#include <utility>

#include "base/convert.h"
#include "base/object.h"

namespace kestrun {

// How a C++ type crosses to late binding and back. FromVariant raises the conversion's error, 13 or 6.
template <class T>
struct VariantTraits;

template <>
struct VariantTraits<uint8_t> {
  static constexpr std::string_view kTypeName = "Byte";
  static Variant To(uint8_t value) { return value; }
  static uint8_t From(const Variant& value) { return ToByte(value); }
};
template <>
struct VariantTraits<int16_t> {
  static constexpr std::string_view kTypeName = "Integer";
  static Variant To(int16_t value) { return value; }
  static int16_t From(const Variant& value) { return ToInteger(value); }
};
template <>
struct VariantTraits<bool> {
  static constexpr std::string_view kTypeName = "Boolean";
  static Variant To(bool value) { return value; }
  static bool From(const Variant& value) { return ToBoolean(value); }
};
template <>
struct VariantTraits<int> {
  static constexpr std::string_view kTypeName = "Long";
  static Variant To(int value) { return value; }
  static int From(const Variant& value) { return ToLong(value); }
};
template <>
struct VariantTraits<uint32_t> {  // colours
  static constexpr std::string_view kTypeName = "Long";
  static Variant To(uint32_t value) { return static_cast<int32_t>(value); }
  static uint32_t From(const Variant& value) { return static_cast<uint32_t>(ToLong(value)); }
};
template <>
struct VariantTraits<double> {
  static constexpr std::string_view kTypeName = "Double";
  static Variant To(double value) { return value; }
  static double From(const Variant& value) { return ToDouble(value); }
};
template <>
struct VariantTraits<std::string> {
  static constexpr std::string_view kTypeName = "String";
  static Variant To(const std::string& value) { return value; }
  static std::string From(const Variant& value) { return ToText(value); }
};
template <>
struct VariantTraits<std::string_view> {
  static constexpr std::string_view kTypeName = "String";
  static Variant To(std::string_view value) { return value; }
  static std::string From(const Variant& value) { return ToText(value); }
};
template <>
struct VariantTraits<Variant> {
  static constexpr std::string_view kTypeName = "";
  static Variant To(const Variant& value) { return value; }
  static Variant From(const Variant& value) { return value; }
};

namespace internal {

template <class T>
struct MemberPointer;
template <class C, class R, class... P>
struct MemberPointer<R (C::*)(P...)> {
  using Class = C;
  using Result = R;
  using Parameters = std::tuple<std::remove_cvref_t<P>...>;
};
template <class C, class R, class... P>
struct MemberPointer<R (C::*)(P...) const> : MemberPointer<R (C::*)(P...)> {};

// Empty for what gives nothing.
template <class T>
constexpr std::string_view TypeNameOf() {
  if constexpr (std::is_void_v<T>) {
    return {};
  } else {
    return VariantTraits<std::remove_cvref_t<T>>::kTypeName;
  }
}
template <auto kMethod>
constexpr std::string_view kResultType = TypeNameOf<typename MemberPointer<decltype(kMethod)>::Result>();

template <auto kMethod, size_t... kAt>
Variant CallMethod(Object& object, Arguments arguments, std::index_sequence<kAt...>) {
  using Traits = MemberPointer<decltype(kMethod)>;
  auto& target = static_cast<typename Traits::Class&>(object);
  static_cast<void>(arguments);
  auto call = [&] {
    return (target.*
            kMethod)(VariantTraits<std::tuple_element_t<kAt, typename Traits::Parameters>>::From(arguments[kAt])...);
  };
  if constexpr (std::is_void_v<typename Traits::Result>) {
    call();
    return {};
  } else {
    return VariantTraits<std::remove_cvref_t<typename Traits::Result>>::To(call());
  }
}

template <auto kMethod>
Variant CallMethod(Object& object, Arguments arguments) {
  constexpr size_t kCount = std::tuple_size_v<typename MemberPointer<decltype(kMethod)>::Parameters>;
  return CallMethod<kMethod>(object, arguments, std::make_index_sequence<kCount>{});
}

template <auto kSetter>
void PutThrough(Object& object, Arguments, const Variant& value) {
  using Traits = MemberPointer<decltype(kSetter)>;
  using Parameter = std::tuple_element_t<0, typename Traits::Parameters>;
  (static_cast<typename Traits::Class&>(object).*kSetter)(VariantTraits<Parameter>::From(value));
}

}  // namespace internal

// A property behind a getter, and a setter if there is one. Getter parameters are the property's indexes, `parameters`
// their names.
template <auto kGetter>
constexpr Member ReadOnlyRow(std::string_view name, std::string_view parameters = {}) {
  constexpr auto kCount =
      static_cast<int>(std::tuple_size_v<typename internal::MemberPointer<decltype(kGetter)>::Parameters>);
  return {name,    MemberKind::kReadOnly,          kCount,    kCount, &internal::CallMethod<kGetter>,
          nullptr, internal::kResultType<kGetter>, parameters};
}
template <auto kGetter, auto kSetter>
constexpr Member AccessorRow(std::string_view name) {
  return {name,
          MemberKind::kReadWrite,
          0,
          0,
          &internal::CallMethod<kGetter>,
          &internal::PutThrough<kSetter>,
          internal::kResultType<kGetter>};
}

// `parameters` are the names of the arguments, with ", " between.
template <auto kMethod>
constexpr Member MethodRow(std::string_view name, std::string_view parameters = {}) {
  constexpr auto kCount =
      static_cast<int>(std::tuple_size_v<typename internal::MemberPointer<decltype(kMethod)>::Parameters>);
  return {name,
          MemberKind::kMethod,
          kCount,
          kCount,
          &internal::CallMethod<kMethod>,
          nullptr,
          internal::kResultType<kMethod>,
          parameters};
}

// A method with optional arguments, or one that needs the raw values.
constexpr Member RawMethodRow(std::string_view name, int least, int most, Variant (*call)(Object&, Arguments),
                              std::string_view parameters = {}) {
  return {name, MemberKind::kMethod, least, most, call, nullptr, {}, parameters};
}

}  // namespace kestrun
