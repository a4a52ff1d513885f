// The language's operators on values of any type: results, promotion and errors as its reference gives them.
//
// Arithmetic: whole numbers that overflow go over into the next wider type (Byte, Integer, Long, Double); a Currency or
// Double that overflows raises error 6. Null makes every result Null. An object among the operands stands for its
// default member: error 91 for Nothing, 438 when it has none. A text that is no number raises error 13.
#pragma once

#include "base/variant.h"

namespace kestrun::vbs {

// Two texts are joined; a text and a number are added; Date with anything gives a Date.
[[nodiscard]] Variant Add(const Variant& left, const Variant& right);
// Two dates give the days between them as a Double.
[[nodiscard]] Variant Subtract(const Variant& left, const Variant& right);
[[nodiscard]] Variant Multiply(const Variant& left, const Variant& right);
// Double, or Single for operands no wider. Error 11 for a zero divisor, error 6 for zero by zero.
[[nodiscard]] Variant Divide(const Variant& left, const Variant& right);
// `\` and Mod work on operands rounded to whole numbers (ties to even): error 6 beyond a Long, error 11 for zero.
[[nodiscard]] Variant IntegerDivide(const Variant& left, const Variant& right);
[[nodiscard]] Variant Modulo(const Variant& left, const Variant& right);
// Always a Double. Error 5 for a root of a negative number and for zero to a negative power.
[[nodiscard]] Variant Power(const Variant& left, const Variant& right);
[[nodiscard]] Variant Negate(const Variant& value);
// Unary plus: the value unchanged, an object too.
[[nodiscard]] Variant UnaryPlus(const Variant& value);
// Null counts as an empty text unless both sides are Null.
[[nodiscard]] Variant Concatenate(const Variant& left, const Variant& right);

// Bit by bit. Two Booleans give a Boolean and two Bytes a Byte; Boolean, Byte, Integer and Empty among each other an
// Integer, two Empty values and everything else a Long. The texts "True" and "False" are Booleans beside each other and
// beside Booleans. Null is the unknown truth value: it stays Null unless the other side alone decides the result.
[[nodiscard]] Variant And(const Variant& left, const Variant& right);
[[nodiscard]] Variant Or(const Variant& left, const Variant& right);
[[nodiscard]] Variant Xor(const Variant& left, const Variant& right);
[[nodiscard]] Variant Eqv(const Variant& left, const Variant& right);
[[nodiscard]] Variant Imp(const Variant& left, const Variant& right);
[[nodiscard]] Variant Not(const Variant& value);

enum class Comparison { kEqual, kNotEqual, kLess, kLessEqual, kGreater, kGreaterEqual };

// Which sides of a comparison are literals or constants of the source.
inline constexpr unsigned kLeftIsLiteral = 1;
inline constexpr unsigned kRightIsLiteral = 2;

// A Boolean, or Null when a side is Null. Texts compare by their UTF-16 units. Empty equals both 0 and the empty text.
// A text and a value of another type: a text that is a literal compares with the other's text; a number or date that is
// a literal turns the text into its kind (error 13 when it is none); otherwise any text is greater.
[[nodiscard]] Variant Compare(const Variant& left, const Variant& right, Comparison comparison, unsigned literals = 0);
// -1, 0 or 1 for values that are not Null.
[[nodiscard]] int Order(const Variant& left, const Variant& right, unsigned literals = 0);

// The Is operator: whether both refer to the same object, Nothing included. Error 424 when a side is no object.
[[nodiscard]] Variant IsSame(const Variant& left, const Variant& right);

// The truth of a condition: Null counts as False, everything else as CBool takes it.
[[nodiscard]] bool IsTrue(const Variant& condition);

}  // namespace kestrun::vbs
