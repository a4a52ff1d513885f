// Values as texts, numbers and counts, the way the built-in functions take their arguments. Works on UTF-16 throughout.
#pragma once

#include <cstdint>
#include <string>
#include <string_view>

#include "base/convert.h"
#include "base/object.h"
#include "base/variant.h"

namespace kestrun::vbs {

class RuntimeContext;

// The value itself, or for an object the value of its default member (of that again, to a bounded depth).
// Error 91 for Nothing, 438 when there is no default member.
[[nodiscard]] Variant PlainValue(const Variant& value);

// Appends the value's text to `text`. Null appends nothing. Error 13 for arrays and error values.
void AppendText(std::u16string& text, const Variant& value);

// The value as a String that may share its body with `value`. Error 94 for Null.
[[nodiscard]] Variant ToTextValue(const Variant& value);

// A value as a text for as long as the value stands: characters that stand in it are not copied.
class TextArgument {
 public:
  // Error 94 for Null, 13 for what has no text.
  explicit TextArgument(const Variant& value)
      : made_(value.Is(VarType::kString) ? Variant() : ToTextValue(value)),
        value_(value.Is(VarType::kString) ? value : made_) {}
  explicit TextArgument(const Variant&& value) : made_(ToTextValue(value)), value_(made_) {}
  TextArgument(const TextArgument&) = delete;
  TextArgument& operator=(const TextArgument&) = delete;

  [[nodiscard]] std::u16string_view view() const { return value_.text(); }
  [[nodiscard]] size_t size() const { return value_.text().size(); }
  // The String itself, sharing its characters.
  [[nodiscard]] const Variant& value() const { return value_; }

 private:
  Variant made_;
  const Variant& value_;
};

// A text that ends in half a unit, as only the byte functions make them.
[[nodiscard]] inline bool EndsInHalf(const Variant& value) {
  return value.Is(VarType::kString) && value.text_body()->half_unit;
}
// Joins two values where one of them ends in half a unit, byte by byte.
[[nodiscard]] Variant JoinBytes(RuntimeContext& context, const Variant& left, const Variant& right);

// A Boolean as the type that arithmetic sees: -1 or 0.
[[nodiscard]] inline int32_t BooleanBits(bool value) { return value ? -1 : 0; }

// Whether the argument at `index` was given: neither left out at the end nor in the middle.
[[nodiscard]] inline bool IsGiven(Arguments arguments, size_t index) {
  return index < arguments.size() && !arguments[index].IsMissing();
}

// Optional whole numbers with their default. Error 94 for Null.
[[nodiscard]] int32_t LongArgument(Arguments arguments, size_t index, int32_t preset);
// A count or position: error 5 when it is below `least`.
[[nodiscard]] size_t CountArgument(const Variant& value, int32_t least);
// A comparison mode: 0 binary, 1 text; error 5 for others. True for text.
[[nodiscard]] bool TextCompareArgument(Arguments arguments, size_t index);

// A count or position as functions give it: a Long.
[[nodiscard]] Variant CountValue(size_t count);

}  // namespace kestrun::vbs
