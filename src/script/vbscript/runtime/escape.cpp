// Escape and Unescape: "%XX" for a unit below 256 and "%uXXXX" above.
#include <string_view>

#include "base/hex_digit.h"
#include "script/vbscript/runtime/builders.h"
#include "script/vbscript/runtime/conversions.h"
#include "script/vbscript/runtime/functions.h"

namespace kestrun::vbs {
namespace {

constexpr std::u16string_view kDigits = u"0123456789ABCDEF";

bool StaysPlain(char16_t unit) {
  const bool letter = (unit >= u'a' && unit <= u'z') || (unit >= u'A' && unit <= u'Z');
  return letter || (unit >= u'0' && unit <= u'9') ||
         std::u16string_view(u"@*_+-./").find(unit) != std::u16string_view::npos;
}

void AppendHex(TextBuilder& text, unsigned value, int digits) {
  for (int shift = (digits - 1) * 4; shift >= 0; shift -= 4) text.Append(kDigits[value >> shift & 0xF]);
}

// Reads exactly `count` digits at `at`; -1 when there are fewer.
int ReadHex(std::u16string_view text, size_t at, size_t count) {
  if (at + count > text.size()) return -1;
  int value = 0;
  for (size_t end = at + count; at < end; ++at) {
    const int digit = HexDigit(text[at]);
    if (digit < 0) return -1;
    value = value * 16 + digit;
  }
  return value;
}

// The unit that the "%" at `at` begins, and how many units it takes; one "%" for itself when it begins nothing.
struct Decoded {
  char16_t unit;
  size_t taken;
};

Decoded DecodeAt(std::u16string_view text, size_t at) {
  if (at + 1 < text.size() && text[at + 1] == u'u') {
    if (const int unit = ReadHex(text, at + 2, 4); unit >= 0) return {static_cast<char16_t>(unit), 6};
  }
  if (const int unit = ReadHex(text, at + 1, 2); unit >= 0) return {static_cast<char16_t>(unit), 3};
  return {u'%', 1};
}

}  // namespace

// Escape(text): letters, digits and @*_+-./ stay.
Variant Escape(RuntimeContext& context, Arguments arguments) {
  if (arguments[0].Is(VarType::kNull)) return arguments[0];
  const TextArgument text(arguments[0]);
  TextBuilder escaped(context, text.size());
  for (const char16_t unit : text.view()) {
    if (StaysPlain(unit)) {
      escaped.Append(unit);
    } else if (unit < 0x100) {
      escaped.Append(u'%');
      AppendHex(escaped, unit, 2);
    } else {
      escaped.Append(u"%u");
      AppendHex(escaped, unit, 4);
    }
  }
  return escaped.Take();
}

// Unescape(text): a "%" that begins no escape stays.
Variant Unescape(RuntimeContext& context, Arguments arguments) {
  if (arguments[0].Is(VarType::kNull)) return arguments[0];
  const TextArgument text(arguments[0]);
  const std::u16string_view view = text.view();
  TextBuilder plain(context, view.size());
  for (size_t at = 0; at < view.size();) {
    const Decoded next = view[at] == u'%' ? DecodeAt(view, at) : Decoded{view[at], 1};
    plain.Append(next.unit);
    at += next.taken;
  }
  return plain.Take();
}

}  // namespace kestrun::vbs
