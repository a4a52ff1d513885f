// Array functions. Arrays start at 0.
#include "script/vbscript/runtime/builders.h"
#include "script/vbscript/runtime/conversions.h"
#include "script/vbscript/runtime/errors.h"
#include "script/vbscript/runtime/functions.h"
#include "script/vbscript/runtime/text_search.h"

namespace kestrun::vbs {
namespace {

constexpr size_t kNotFound = std::u16string_view::npos;

const ArrayBody& ArrayArgument(const Variant& argument) {
  if (!argument.Is(VarType::kArray)) RaiseScript(error::kTypeMismatch);
  return argument.array();
}

// The list is held by the caller, because reading an object's text may run code that changes the script's variable.
// A list of texts has one dimension: error 13 for a value that is no array, 5 for another shape.
const ArrayBody& ListArgument(const Variant& argument) {
  const ArrayBody& array = ArrayArgument(argument);
  if (array.sizes.size() != 1) RaiseScript(error::kInvalidProcedureCall);
  return array;
}

int32_t SizeOfDimension(Arguments arguments) {
  const ArrayBody& array = ArrayArgument(arguments[0]);
  const int32_t dimension = LongArgument(arguments, 1, 1);
  if (dimension < 1 || static_cast<size_t>(dimension) > array.sizes.size()) RaiseScript(error::kSubscriptOutOfRange);
  return array.sizes[static_cast<size_t>(dimension - 1)];
}

// Null among the texts of a list is a mismatch.
TextArgument ElementText(const Variant& element) {
  if (element.Is(VarType::kNull)) RaiseScript(error::kTypeMismatch);
  return TextArgument(element);
}

Variant PartOf(RuntimeContext& context, std::u16string_view text) {
  TextBuilder part(context, text.size());
  part.Append(text);
  return part.Take();
}

}  // namespace

// Array(values...): a list of the values.
Variant MakeArray(RuntimeContext& context, Arguments arguments) {
  ListBuilder list(context, arguments.size());
  for (const Variant& value : arguments) list.Append(value);
  return list.Take();
}

// LBound(array[, dimension]), UBound(array[, dimension]): error 9 for a dimension that there is not.
Variant LBound(RuntimeContext&, Arguments arguments) {
  static_cast<void>(SizeOfDimension(arguments));
  return int32_t{0};
}

Variant UBound(RuntimeContext&, Arguments arguments) { return SizeOfDimension(arguments) - 1; }

// Filter(list, wanted[, include[, compare]]): the texts that hold `wanted`, or those that do not.
Variant Filter(RuntimeContext& context, Arguments arguments) {
  const Variant held = arguments[0];
  const ArrayBody& list = ListArgument(held);
  const TextArgument wanted(arguments[1]);
  const bool include = !IsGiven(arguments, 2) || ToBoolean(arguments[2]);
  const bool ignore_case = TextCompareArgument(arguments, 3);
  ListBuilder kept(context);
  for (const Variant& element : list.elements) {
    const TextArgument text = ElementText(element);
    context.Charge(1 + text.size() / kUnitsPerStep);
    const bool found = TextFinder(context, text.view(), wanted.view(), ignore_case).Find(0) != kNotFound;
    if (found == include) kept.Append(text.value());
  }
  return kept.Take();
}

// Join(list[, delimiter]): a blank between the texts unless another delimiter is given.
Variant Join(RuntimeContext& context, Arguments arguments) {
  const Variant held = arguments[0];
  const ArrayBody& list = ListArgument(held);
  const Variant delimiter = IsGiven(arguments, 1) ? ToTextValue(arguments[1]) : Variant(std::u16string(u" "));
  TextBuilder joined(context);
  for (size_t at = 0; at < list.elements.size(); ++at) {
    if (at > 0) joined.Append(delimiter.text());
    joined.Append(ElementText(list.elements[at]).view());
  }
  return joined.Take();
}

// Split(text[, delimiter[, count[, compare]]]): an empty text gives an empty list, an empty delimiter the whole text.
Variant SplitText(RuntimeContext& context, Arguments arguments) {
  const TextArgument text(arguments[0]);
  const Variant delimiter = IsGiven(arguments, 1) ? ToTextValue(arguments[1]) : Variant(std::u16string(u" "));
  const int32_t count = LongArgument(arguments, 2, -1);
  if (count < -1) RaiseScript(error::kInvalidProcedureCall);
  const bool ignore_case = TextCompareArgument(arguments, 3);
  ListBuilder parts(context);
  if (text.size() == 0 || count == 0) return parts.Take();
  if (delimiter.text().empty()) {
    parts.Append(text.value());
    return parts.Take();
  }
  const size_t most = count < 0 ? SIZE_MAX : static_cast<size_t>(count);
  TextFinder finder(context, text.view(), delimiter.text(), ignore_case);
  size_t from = 0;
  while (parts.size() + 1 < most) {
    const size_t place = finder.Find(from);
    if (place == kNotFound) break;
    parts.Append(PartOf(context, text.view().substr(from, place - from)));
    from = place + delimiter.text().size();
  }
  parts.Append(PartOf(context, text.view().substr(from)));
  return parts.Take();
}

}  // namespace kestrun::vbs
