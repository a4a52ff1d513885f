// Text functions. Positions count from 1 in UTF-16 units. Most give Null for Null.
#include <algorithm>

#include "base/code_page.h"
#include "base/text.h"
#include "script/vbscript/runtime/builders.h"
#include "script/vbscript/runtime/conversions.h"
#include "script/vbscript/runtime/errors.h"
#include "script/vbscript/runtime/functions.h"
#include "script/vbscript/runtime/text_search.h"

namespace kestrun::vbs {
namespace {

constexpr size_t kNotFound = std::u16string_view::npos;
// Texts above this size are built piece by piece.
constexpr size_t kLargeText = 1 << 10;

// True when the argument is Null; an object is asked for its default value by the functions themselves.
bool IsNullArgument(const Variant& argument) { return argument.Is(VarType::kNull); }

Variant TextOf(RuntimeContext& context, std::u16string_view text) {
  if (text.size() <= kLargeText) {
    Ref<TextBody> body = MakeRef<TextBody>();
    body->text.assign(text);
    body->CountBytes();
    return Variant(std::move(body));
  }
  TextBuilder builder(context, text.size());
  builder.Append(text);
  return builder.Take();
}

Variant Slice(RuntimeContext& context, const TextArgument& text, size_t from, size_t count) {
  const std::u16string_view view = text.view();
  if (from == 0 && count >= view.size()) return text.value();
  return TextOf(context, view.substr(std::min(from, view.size()), count));
}

Variant Repeat(RuntimeContext& context, size_t count, char16_t unit) {
  if (count <= kLargeText) return Variant(std::u16string(count, unit));
  TextBuilder builder(context, count);
  builder.Append(count, unit);
  return builder.Take();
}

Variant Position(size_t place) { return CountValue(place == kNotFound ? 0 : place + 1); }

Variant FindFrom(RuntimeContext& context, Arguments arguments, size_t first, size_t start, bool ignore_case) {
  if (IsNullArgument(arguments[first]) || IsNullArgument(arguments[first + 1])) return Variant::Null();
  const TextArgument text(arguments[first]);
  const TextArgument wanted(arguments[first + 1]);
  if (text.size() == 0 || start > text.size()) return CountValue(0);
  return Position(TextFinder(context, text.view(), wanted.view(), ignore_case).Find(start - 1));
}

// The byte of a character in the installed code page; "?" for one that has none.
uint8_t CodePageByte(char16_t unit) {
  const std::string bytes = EncodeText(ToUtf8(std::u16string_view(&unit, 1)));
  return bytes.empty() ? 0 : static_cast<uint8_t>(bytes[0]);
}

char16_t FirstUnit(const Variant& argument) {
  const TextArgument text(argument);
  if (text.size() == 0) RaiseScript(error::kInvalidProcedureCall);
  return text.view()[0];
}

Variant OneUnit(char16_t unit) { return Variant(std::u16string(1, unit)); }

char16_t UnitOfByte(uint8_t byte) {
  if (byte < 0x80) return byte;
  const char narrow = static_cast<char>(byte);
  const std::u16string decoded = ToUtf16(DecodeText(std::string_view(&narrow, 1)));
  return decoded.empty() ? u'?' : decoded[0];
}

// Every unit through `map`.
template <class Map>
Variant MapUnits(RuntimeContext& context, const Variant& argument, Map map) {
  if (IsNullArgument(argument)) return argument;
  const TextArgument text(argument);
  const std::u16string_view view = text.view();
  if (view.size() <= kLargeText) {
    Ref<TextBody> mapped = MakeRef<TextBody>();
    mapped->text.assign(view);
    for (char16_t& unit : mapped->text) unit = map(unit);
    mapped->CountBytes();
    return Variant(std::move(mapped));
  }
  TextBuilder mapped(context, view.size());
  mapped.AppendMapped(view, map);
  return mapped.Take();
}

Variant TrimSides(RuntimeContext& context, const Variant& argument, bool front, bool back) {
  if (IsNullArgument(argument)) return argument;
  const TextArgument text(argument);
  const std::u16string_view view = text.view();
  const size_t from = front ? view.find_first_not_of(u' ') : 0;
  context.Charge(std::min(from, view.size()) / kUnitsPerStep);
  if (from == kNotFound) return Variant(std::u16string());
  const size_t to = back ? view.find_last_not_of(u' ') + 1 : view.size();
  context.Charge((view.size() - to) / kUnitsPerStep);
  if (from == 0 && to == view.size()) return text.value();
  return TextOf(context, view.substr(from, to - from));
}

struct Replacing {
  size_t start;
  size_t limit;
  bool ignore_case;
};

Replacing ReadReplacing(Arguments arguments) {
  const int32_t start = LongArgument(arguments, 3, 1);
  const int32_t count = LongArgument(arguments, 4, -1);
  if (start < 1 || count < -1) RaiseScript(error::kInvalidProcedureCall);
  return {static_cast<size_t>(start), count < 0 ? SIZE_MAX : static_cast<size_t>(count),
          TextCompareArgument(arguments, 5)};
}

}  // namespace

// Asc(text): the code of the first character in the installed code page; error 5 for an empty text.
Variant Asc(RuntimeContext&, Arguments arguments) {
  const char16_t unit = FirstUnit(arguments[0]);
  return static_cast<int16_t>(unit < 0x80 ? unit : CodePageByte(unit));
}

// AscW(text): the UTF-16 unit as an Integer, negative above 32767.
Variant AscW(RuntimeContext&, Arguments arguments) { return static_cast<int16_t>(FirstUnit(arguments[0])); }

// Chr(code): 0 to 255 in the installed code page, else error 5.
Variant Chr(RuntimeContext&, Arguments arguments) {
  const int32_t code = ToLong(arguments[0]);
  if (code < 0 || code > 255) RaiseScript(error::kInvalidProcedureCall);
  return OneUnit(UnitOfByte(static_cast<uint8_t>(code)));
}

// ChrW(code): -32768 to 65535, else error 5.
Variant ChrW(RuntimeContext&, Arguments arguments) {
  const int32_t code = ToLong(arguments[0]);
  if (code < -32768 || code > 65535) RaiseScript(error::kInvalidProcedureCall);
  return OneUnit(static_cast<char16_t>(code));
}

// InStr([start,] text, wanted[, compare]): with three arguments the first is the start. An empty `wanted` is found at
// the start; nothing is found in an empty text or behind its end.
Variant InStr(RuntimeContext& context, Arguments arguments) {
  if (arguments.size() == 2) return FindFrom(context, arguments, 0, 1, false);
  ChargeReading(context, arguments[0]);
  const size_t start = CountArgument(arguments[0], 1);
  return FindFrom(context, arguments, 1, start, TextCompareArgument(arguments, 3));
}

// InStrRev(text, wanted[, start[, compare]]): the last place that ends at or in front of start; -1 is the end. Error 94
// for Null.
Variant InStrRev(RuntimeContext& context, Arguments arguments) {
  const int32_t start = LongArgument(arguments, 2, -1);
  if (start == 0 || start < -1) RaiseScript(error::kInvalidProcedureCall);
  const bool ignore_case = TextCompareArgument(arguments, 3);
  const TextArgument text(arguments[0]);
  const TextArgument wanted(arguments[1]);
  const size_t end = start < 0 ? text.size() : static_cast<size_t>(start);
  if (text.size() == 0 || end > text.size()) return CountValue(0);
  if (wanted.size() == 0) return CountValue(end);
  return Position(TextFinder(context, text.view(), wanted.view(), ignore_case).FindLast(end));
}

Variant LCase(RuntimeContext& context, Arguments arguments) {
  return MapUnits(context, arguments[0], [](char16_t unit) { return LowerUnit(unit); });
}

Variant UCase(RuntimeContext& context, Arguments arguments) {
  return MapUnits(context, arguments[0], [](char16_t unit) { return UpperUnit(unit); });
}

// Len(text): in UTF-16 units.
Variant Len(RuntimeContext&, Arguments arguments) {
  const Variant& argument = arguments[0];
  if (argument.Is(VarType::kString)) return CountValue(argument.text().size() - (EndsInHalf(argument) ? 1 : 0));
  return IsNullArgument(argument) ? argument : CountValue(TextArgument(argument).size());
}

// Left(text, count), Right(text, count): the whole text when it is shorter; error 5 for a negative count.
Variant Left(RuntimeContext& context, Arguments arguments) {
  const size_t count = CountArgument(arguments[1], 0);
  if (IsNullArgument(arguments[0])) return arguments[0];
  return Slice(context, TextArgument(arguments[0]), 0, count);
}

Variant Right(RuntimeContext& context, Arguments arguments) {
  const size_t count = CountArgument(arguments[1], 0);
  if (IsNullArgument(arguments[0])) return arguments[0];
  const TextArgument text(arguments[0]);
  return Slice(context, text, text.size() > count ? text.size() - count : 0, count);
}

// Mid(text, start[, count]): what there is; error 5 for a start below 1 or a negative count.
Variant Mid(RuntimeContext& context, Arguments arguments) {
  const int32_t wanted = LongArgument(arguments, 2, INT32_MAX);
  const size_t start = CountArgument(arguments[1], 1);
  const size_t count = CountArgument(wanted, 0);
  if (IsNullArgument(arguments[0])) return arguments[0];
  return Slice(context, TextArgument(arguments[0]), start - 1, count);
}

Variant LTrim(RuntimeContext& context, Arguments arguments) { return TrimSides(context, arguments[0], true, false); }
Variant RTrim(RuntimeContext& context, Arguments arguments) { return TrimSides(context, arguments[0], false, true); }
Variant Trim(RuntimeContext& context, Arguments arguments) { return TrimSides(context, arguments[0], true, true); }

// Replace(text, wanted, replacement[, start[, count[, compare]]]): the result begins at `start`. Error 94 for Null.
Variant Replace(RuntimeContext& context, Arguments arguments) {
  const TextArgument text(arguments[0]);
  const TextArgument wanted(arguments[1]);
  const TextArgument replacement(arguments[2]);
  const Replacing how = ReadReplacing(arguments);
  if (how.start > text.size()) return Variant(std::u16string());
  const std::u16string_view view = text.view();
  size_t from = how.start - 1;
  if (wanted.size() == 0) return TextOf(context, view.substr(from));
  TextFinder finder(context, view, wanted.view(), how.ignore_case);
  TextBuilder result(context);
  for (size_t done = 0; done < how.limit; ++done) {
    const size_t place = finder.Find(from);
    if (place == kNotFound) break;
    result.Append(view.substr(from, place - from));
    result.Append(replacement.view());
    from = place + wanted.size();
  }
  result.Append(view.substr(from));
  return result.Take();
}

// Space(count), String(count, character): error 5 for a negative count.
Variant Space(RuntimeContext& context, Arguments arguments) {
  return Repeat(context, CountArgument(arguments[0], 0), u' ');
}

// The character is the first of a text (error 5 when that is empty) or a code, of which 8 bits count. Null gives Null.
Variant RepeatCharacter(RuntimeContext& context, Arguments arguments) {
  const Variant character = PlainValue(arguments[1]);
  if (IsNullArgument(arguments[0]) || IsNullArgument(character)) return Variant::Null();
  const size_t count = CountArgument(arguments[0], 0);
  const bool by_text = character.Is(VarType::kString);
  const char16_t unit = by_text ? FirstUnit(character) : UnitOfByte(static_cast<uint8_t>(ToLong(character)));
  return Repeat(context, count, unit);
}

// StrComp(left, right[, compare]): -1, 0 or 1 as an Integer.
Variant StrComp(RuntimeContext& context, Arguments arguments) {
  const bool ignore_case = TextCompareArgument(arguments, 2);
  if (IsNullArgument(arguments[0]) || IsNullArgument(arguments[1])) return Variant::Null();
  const TextArgument left(arguments[0]);
  const TextArgument right(arguments[1]);
  const int order = (ignore_case ? CompareFolded : CompareUnits)(context, left.view(), right.view());
  return static_cast<int16_t>(order < 0 ? -1 : order > 0);
}

// StrReverse(text): error 94 for Null.
Variant StrReverse(RuntimeContext& context, Arguments arguments) {
  const TextArgument text(arguments[0]);
  TextBuilder reversed(context, text.size());
  ByPieces(context, text.size(), [&](size_t from, size_t to) {
    for (; from < to; ++from) reversed.Append(text.view()[text.size() - 1 - from]);
  });
  return reversed.Take();
}

}  // namespace kestrun::vbs
