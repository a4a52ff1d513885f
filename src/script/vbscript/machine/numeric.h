// Numbers on the fast path: Integer, Long and Double, which between them do nearly all of a script's arithmetic.
#pragma once

#include <cfloat>
#include <cmath>
#include <cstdint>

#include "base/variant.h"

namespace kestrun::vbs {

inline constexpr unsigned kBothIntegers = 0;
inline constexpr unsigned kWholeNumbers = 1;

// 0 for two Integers, 1 for Integers and Longs, more for anything else.
[[nodiscard]] inline unsigned WholeKind(const Variant& left, const Variant& right) {
  constexpr auto kInteger = static_cast<unsigned>(VarType::kInteger);
  return (static_cast<unsigned>(left.type()) ^ kInteger) | (static_cast<unsigned>(right.type()) ^ kInteger);
}

// The same for a number and an Integer.
[[nodiscard]] inline unsigned WholeKind(const Variant& value) {
  return static_cast<unsigned>(value.type()) ^ static_cast<unsigned>(VarType::kInteger);
}

// True for Integer, Long and Double; gives the value.
[[nodiscard, gnu::always_inline]] inline bool AsReal(const Variant& value, double& real) {
  if (value.Is(VarType::kDouble)) {
    real = value.real();
    return true;
  }
  if (!value.Is(VarType::kInteger) && !value.Is(VarType::kLong)) return false;
  real = value.whole();
  return true;
}

[[nodiscard, gnu::always_inline]] inline bool IsFinite(double value) { return std::fabs(value) <= DBL_MAX; }

// The narrowest type that the operands' kind allows and the value fits. The target is plain.
[[gnu::always_inline]] inline void StoreWhole(Variant& target, unsigned kind, int64_t value) {
  if (kind == kBothIntegers && value == static_cast<int16_t>(value)) {
    target.OverwriteWhole(VarType::kInteger, static_cast<int32_t>(value));
  } else if (value == static_cast<int32_t>(value)) {
    target.OverwriteWhole(VarType::kLong, static_cast<int32_t>(value));
  } else {
    target.OverwriteReal(VarType::kDouble, static_cast<double>(value));
  }
}

// The element of an array of one dimension; null for any other, and when the index is no whole number or outside.
[[nodiscard, gnu::always_inline]] inline Variant* QuickElement(const Variant& array, const Variant& index) {
  if (!array.Is(VarType::kArray) || WholeKind(index) > kWholeNumbers) return nullptr;
  const ArrayBody& body = array.array();
  const auto place = static_cast<uint32_t>(index.whole());
  if (body.sizes.size() != 1 || place >= static_cast<uint32_t>(body.sizes.front())) return nullptr;
  return const_cast<Variant*>(&body.elements[place]);
}

// Adds a number to another in place; false when one of them is none of the fast path's, or the sum is too large.
[[nodiscard, gnu::always_inline]] inline bool AddNumber(Variant& sum, const Variant& number) {
  if (const unsigned kind = WholeKind(sum, number); kind <= kWholeNumbers) {
    StoreWhole(sum, kind, int64_t{sum.whole()} + number.whole());
    return true;
  }
  double first = 0;
  double second = 0;
  if (!AsReal(sum, first) || !AsReal(number, second) || !IsFinite(first + second)) return false;
  sum.OverwriteReal(VarType::kDouble, first + second);
  return true;
}

}  // namespace kestrun::vbs
