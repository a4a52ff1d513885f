// The byte forms of the text functions: each UTF-16 unit counts as two bytes, the low one first. An odd number of bytes
// ends in half a unit.
#include <algorithm>

#include "script/vbscript/runtime/builders.h"
#include "script/vbscript/runtime/conversions.h"
#include "script/vbscript/runtime/errors.h"
#include "script/vbscript/runtime/functions.h"
#include "script/vbscript/runtime/text_search.h"

namespace kestrun::vbs {
namespace {

// One unit for each byte.
std::u16string BytesOf(RuntimeContext& context, const Variant& argument) {
  const TextArgument text(argument);
  ChargeText(context, text.size() * 2);
  std::u16string bytes;
  bytes.reserve(text.size() * 2);
  ByPieces(context, text.size(), [&](size_t from, size_t to) {
    for (; from < to; ++from) {
      bytes.push_back(static_cast<char16_t>(text.view()[from] & 0xFF));
      bytes.push_back(static_cast<char16_t>(text.view()[from] >> 8));
    }
  });
  if (text.value().text_body()->half_unit) bytes.pop_back();
  return bytes;
}

Variant TextOf(RuntimeContext& context, std::u16string_view bytes) {
  TextBuilder text(context, (bytes.size() + 1) / 2);
  for (size_t at = 0; at < bytes.size(); at += 2) {
    const unsigned high = at + 1 < bytes.size() ? bytes[at + 1] : 0;
    text.Append(static_cast<char16_t>(bytes[at] | high << 8));
  }
  Variant taken = text.Take();
  taken.text_body()->half_unit = bytes.size() % 2 != 0;
  return taken;
}

Variant FindBytes(RuntimeContext& context, Arguments arguments, size_t first, size_t start) {
  if (arguments[first].Is(VarType::kNull) || arguments[first + 1].Is(VarType::kNull)) return Variant::Null();
  const std::u16string text = BytesOf(context, arguments[first]);
  const std::u16string wanted = BytesOf(context, arguments[first + 1]);
  if (start > text.size()) return CountValue(0);
  const size_t place = TextFinder(context, text, wanted, false).Find(start - 1);
  return CountValue(place == std::u16string::npos ? 0 : place + 1);
}

}  // namespace

// AscB(text): the first byte; error 5 for an empty text.
Variant AscB(RuntimeContext& context, Arguments arguments) {
  const std::u16string bytes = BytesOf(context, arguments[0]);
  if (bytes.empty()) RaiseScript(error::kInvalidProcedureCall);
  return static_cast<uint8_t>(bytes[0]);
}

// ChrB(code): a text of one byte.
Variant ChrB(RuntimeContext& context, Arguments arguments) {
  const int32_t code = ToLong(arguments[0]);
  if (code < 0 || code > 255) RaiseScript(error::kInvalidProcedureCall);
  return TextOf(context, std::u16string(1, static_cast<char16_t>(code)));
}

Variant InStrB(RuntimeContext& context, Arguments arguments) {
  if (arguments.size() == 2) return FindBytes(context, arguments, 0, 1);
  static_cast<void>(TextCompareArgument(arguments, 3));
  ChargeReading(context, arguments[0]);
  return FindBytes(context, arguments, 1, CountArgument(arguments[0], 1));
}

Variant LenB(RuntimeContext&, Arguments arguments) {
  if (arguments[0].Is(VarType::kNull)) return arguments[0];
  const TextArgument text(arguments[0]);
  return CountValue(text.size() * 2 - (text.value().text_body()->half_unit ? 1 : 0));
}

Variant LeftB(RuntimeContext& context, Arguments arguments) {
  if (arguments[0].Is(VarType::kNull)) return arguments[0];
  const size_t count = CountArgument(arguments[1], 0);
  const std::u16string bytes = BytesOf(context, arguments[0]);
  return TextOf(context, std::u16string_view(bytes).substr(0, count));
}

Variant MidB(RuntimeContext& context, Arguments arguments) {
  if (arguments[0].Is(VarType::kNull)) return arguments[0];
  const size_t start = CountArgument(arguments[1], 1);
  const size_t count = IsGiven(arguments, 2) ? CountArgument(arguments[2], 0) : std::u16string::npos;
  const std::u16string bytes = BytesOf(context, arguments[0]);
  return TextOf(context, std::u16string_view(bytes).substr(std::min(start - 1, bytes.size()), count));
}

Variant RightB(RuntimeContext& context, Arguments arguments) {
  if (arguments[0].Is(VarType::kNull)) return arguments[0];
  const size_t count = CountArgument(arguments[1], 0);
  const std::u16string bytes = BytesOf(context, arguments[0]);
  return TextOf(context, std::u16string_view(bytes).substr(bytes.size() > count ? bytes.size() - count : 0));
}

Variant JoinBytes(RuntimeContext& context, const Variant& left, const Variant& right) {
  const auto bytes_of = [&](const Variant& side) {
    return side.Is(VarType::kNull) ? std::u16string() : BytesOf(context, side);
  };
  return TextOf(context, bytes_of(left) + bytes_of(right));
}

}  // namespace kestrun::vbs
