// The field's conversion rules, in one place: text and variants to numbers, booleans and back.
// A value that cannot be converted raises error 13, a number out of range error 6, Null error 94.
#pragma once

#include <cstdint>
#include <string>
#include <string_view>

#include "base/variant.h"

namespace kestrun {

// A decimal or &H / &O number with white space around it, sign in front or behind, currency sign, parentheses for a
// negative number, grouping commas and an optional exponent of e or d.
[[nodiscard]] double TextToDouble(std::string_view text);
// The same for UTF-16; false when the text is no number, error 6 when it is out of range.
[[nodiscard]] bool ReadNumber(std::u16string_view text, double& value);
// "True" and "False" in any case, or a number: zero is false.
[[nodiscard]] bool TextToBoolean(std::string_view text);
[[nodiscard]] int32_t TextToLong(std::string_view text);

// "True" or "False".
[[nodiscard]] std::string BooleanToText(bool value);
// Shortest form with at most 15 (double) or 7 (single) significant digits; "1E+15" and "1E-05" are written that way.
[[nodiscard]] std::string DoubleToText(double value);
[[nodiscard]] std::string SingleToText(float value);

// Leading number of a text, 0 when there is none; never fails (the Val rule).
[[nodiscard]] double LeadingNumber(std::string_view text);

[[nodiscard]] double ToDouble(const Variant& value);
[[nodiscard]] int32_t ToLong(const Variant& value);
[[nodiscard]] int16_t ToInteger(const Variant& value);
[[nodiscard]] uint8_t ToByte(const Variant& value);
[[nodiscard]] float ToSingle(const Variant& value);
// In units of 1/10000, rounded to the nearest, ties to even.
[[nodiscard]] int64_t ToCurrency(const Variant& value);
[[nodiscard]] int64_t DoubleToCurrency(double value);
// Days since 1899-12-30: a date, a text that holds one, or a number in the range of dates.
[[nodiscard]] double ToDate(const Variant& value);
[[nodiscard]] bool ToBoolean(const Variant& value);
// UTF-8. Empty gives the empty text, Null raises 94, an object its default member's text or 438.
[[nodiscard]] std::string ToText(const Variant& value);
// True when ToDouble would give a number (the IsNumeric rule): Empty counts, dates and objects do not.
[[nodiscard]] bool IsNumeric(const Variant& value);
// True for a date and for a text that holds one.
[[nodiscard]] bool IsDate(const Variant& value);

}  // namespace kestrun
