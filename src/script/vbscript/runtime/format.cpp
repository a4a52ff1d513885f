// FormatNumber and its like, in the way of the script's locale; in English (United States): "1,234.50", "($1,234.50)",
// "12.35%".
#include <algorithm>
#include <array>
#include <charconv>
#include <cmath>

#include "base/calendar.h"
#include "script/vbscript/runtime/conversions.h"
#include "script/vbscript/runtime/errors.h"
#include "script/vbscript/runtime/functions.h"
#include "script/vbscript/runtime/locale.h"

namespace kestrun::vbs {
namespace {

constexpr int kMostDigits = 255;
// The digits that a Double is good for.
constexpr int kSignificantDigits = 15;

struct NumberFormat {
  const LocaleForms& forms;
  int digits = 2;
  bool leading_zero = true;
  bool parentheses = false;
  bool groups = true;
};

// -2 is the locale's own choice, -1 yes, 0 no.
bool TristateArgument(Arguments arguments, size_t index, bool preset) {
  const int32_t choice = LongArgument(arguments, index, -2);
  if (choice < -2 || choice > 0) RaiseScript(error::kInvalidProcedureCall);
  return choice == -2 ? preset : choice == -1;
}

NumberFormat ReadFormat(const RuntimeContext& context, Arguments arguments, bool parentheses) {
  NumberFormat format{FormsOf(context.locale())};
  const int32_t digits = LongArgument(arguments, 1, -1);
  if (digits < -1 || digits > kMostDigits) RaiseScript(error::kInvalidProcedureCall);
  if (digits >= 0) format.digits = digits;
  format.leading_zero = TristateArgument(arguments, 2, true);
  format.parentheses = TristateArgument(arguments, 3, parentheses);
  format.groups = TristateArgument(arguments, 4, true);
  return format;
}

// A number as its decimal digits: 0.digits * 10^point.
struct Decimal {
  std::string digits;
  int point = 0;
};

Decimal DecimalOf(double magnitude) {
  std::array<char, 64> text;
  const auto end = std::to_chars(text.data(), text.data() + text.size(), magnitude, std::chars_format::scientific,
                                 kSignificantDigits - 1)
                       .ptr;
  const std::string_view shown(text.data(), static_cast<size_t>(end - text.data()));
  const size_t mark = shown.find('e');
  Decimal decimal;
  for (const char character : shown.substr(0, mark)) {
    if (character != '.') decimal.digits.push_back(character);
  }
  const size_t power = mark + (shown[mark + 1] == '+' ? 2 : 1);
  std::from_chars(shown.data() + power, shown.data() + shown.size(), decimal.point);
  ++decimal.point;
  return decimal;
}

// Currency is exact: its own digits, not those of a Double.
Decimal DecimalOfCurrency(int64_t scaled) {
  const uint64_t magnitude = scaled < 0 ? 0 - static_cast<uint64_t>(scaled) : static_cast<uint64_t>(scaled);
  Decimal decimal;
  decimal.digits = std::to_string(magnitude);
  decimal.point = static_cast<int>(decimal.digits.size()) - 4;
  return decimal;
}

// Rounds halves up, away from zero, at `places` behind the point.
void RoundDecimal(Decimal& decimal, int places) {
  const int keep = decimal.point + places;
  if (keep >= static_cast<int>(decimal.digits.size())) return;
  if (keep < 0) {
    decimal.digits.clear();
    return;
  }
  const bool up = decimal.digits[static_cast<size_t>(keep)] >= '5';
  decimal.digits.resize(static_cast<size_t>(keep));
  if (!up) return;
  int at = keep - 1;
  while (at >= 0 && decimal.digits[static_cast<size_t>(at)] == '9') decimal.digits[static_cast<size_t>(at--)] = '0';
  if (at >= 0) {
    ++decimal.digits[static_cast<size_t>(at)];
  } else {
    decimal.digits.insert(decimal.digits.begin(), '1');
    ++decimal.point;
  }
}

char DigitAt(const Decimal& decimal, int index) {
  const bool inside = index >= 0 && index < static_cast<int>(decimal.digits.size());
  return inside ? decimal.digits[static_cast<size_t>(index)] : '0';
}

std::string WholePart(const Decimal& decimal, const NumberFormat& format) {
  std::string whole;
  for (int at = 0; at < decimal.point; ++at) {
    if (format.groups && !whole.empty() && (decimal.point - at) % 3 == 0) whole += format.forms.group;
    if (!whole.empty() || DigitAt(decimal, at) != '0') whole.push_back(DigitAt(decimal, at));
  }
  return whole.empty() && (format.leading_zero || format.digits == 0) ? "0" : whole;
}

std::string FormatDecimal(Decimal decimal, const NumberFormat& format) {
  RoundDecimal(decimal, format.digits);
  std::string text = WholePart(decimal, format);
  if (format.digits == 0) return text;
  text += format.forms.decimal;
  for (int at = 0; at < format.digits; ++at) text.push_back(DigitAt(decimal, decimal.point + at));
  return text;
}

struct SignedDecimal {
  Decimal decimal;
  bool negative;
};

// `power` moves the point. Error 13 for what is no number.
SignedDecimal ReadNumberArgument(const Variant& argument, int power) {
  const Variant plain = PlainValue(argument);
  if (plain.Is(VarType::kNull)) RaiseScript(error::kTypeMismatch);
  SignedDecimal number;
  if (plain.Is(VarType::kCurrency)) {
    number = {DecimalOfCurrency(plain.scaled()), plain.scaled() < 0};
  } else {
    const double value = ToDouble(plain);
    if (!std::isfinite(value)) RaiseScript(error::kOverflow);
    number = {DecimalOf(std::fabs(value)), value < 0};
  }
  number.decimal.point += power;
  return number;
}

std::string WithSign(const std::string& text, bool negative, const NumberFormat& format) {
  if (!negative) return text;
  return format.parentheses ? "(" + text + ")" : "-" + text;
}

}  // namespace

// FormatNumber(number[, digits[, leading zero[, parentheses[, groups]]]]): two digits unless told; halves round up.
Variant FormatNumber(RuntimeContext& context, Arguments arguments) {
  const NumberFormat format = ReadFormat(context, arguments, false);
  const SignedDecimal number = ReadNumberArgument(arguments[0], 0);
  return WithSign(FormatDecimal(number.decimal, format), number.negative, format);
}

// FormatCurrency: with the locale's sign. Negative amounts stand in parentheses in the United States, elsewhere behind
// a minus sign, unless told otherwise.
Variant FormatCurrency(RuntimeContext& context, Arguments arguments) {
  const NumberFormat format = ReadFormat(context, arguments, context.locale() == kEnglishUnitedStates);
  const SignedDecimal number = ReadNumberArgument(arguments[0], 0);
  const std::string amount = FormatDecimal(number.decimal, format);
  const std::string sign(format.forms.currency);
  return WithSign(format.forms.currency_behind ? amount + " " + sign : sign + amount, number.negative, format);
}

// FormatPercent: a hundred times the number, with "%" behind it, inside the parentheses.
Variant FormatPercent(RuntimeContext& context, Arguments arguments) {
  const NumberFormat format = ReadFormat(context, arguments, false);
  const SignedDecimal number = ReadNumberArgument(arguments[0], 2);
  return WithSign(FormatDecimal(number.decimal, format) + "%", number.negative, format);
}

// FormatDateTime(date[, form]): 0 general, 1 long date, 2 short date, 3 long time, 4 short time of 24 hours.
Variant FormatDateTime(RuntimeContext& context, Arguments arguments) {
  const int32_t form = LongArgument(arguments, 1, 0);
  if (form < 0 || form > 4) RaiseScript(error::kInvalidProcedureCall);
  if (arguments[0].Is(VarType::kNull)) RaiseScript(error::kTypeMismatch);
  const double date = ToDate(arguments[0]);
  const CalendarMoment moment = SplitDate(date);
  const auto two_digits = [](int number) { return std::to_string(100 + number).substr(1); };
  const LocaleForms& forms = FormsOf(context.locale());
  switch (form) {
    case 1: return forms.long_date(forms, moment.date);
    case 2: return forms.short_date(moment.date);
    case 3: return forms.time(moment);
    case 4: return two_digits(moment.hour) + ":" + two_digits(moment.minute);
    default: return GeneralDate(forms, date);
  }
}

}  // namespace kestrun::vbs
