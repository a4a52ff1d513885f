// Functions that make dates and take them apart. The current time is the platform's.
#include <cmath>

#include "script/vbscript/runtime/date_parts.h"
#include "script/vbscript/runtime/errors.h"
#include "script/vbscript/runtime/functions.h"
#include "script/vbscript/runtime/local_time.h"
#include "script/vbscript/runtime/locale.h"

namespace kestrun::vbs {

DateParts PartsOfDate(double date) {
  const CalendarMoment moment = SplitDate(date);
  return {DayNumber(moment.date.year, moment.date.month, moment.date.day), moment};
}

DateParts PartsOf(const Variant& argument) { return PartsOfDate(ToDate(argument)); }

int FirstWeekday(const RuntimeContext& context, Arguments arguments, size_t index) {
  const int32_t day = LongArgument(arguments, index, 1);
  if (day < 0 || day > 7) RaiseScript(error::kInvalidProcedureCall);
  return day == 0 ? FormsOf(context.locale()).first_weekday : day;
}

namespace {

// Null for Null, else one part of the date as an Integer.
template <int (*Part)(const DateParts&)>
Variant PartOf(Arguments arguments) {
  if (arguments[0].Is(VarType::kNull)) return arguments[0];
  return static_cast<int16_t>(Part(PartsOf(arguments[0])));
}

int DayPart(const DateParts& parts) { return parts.moment.date.day; }
int MonthPart(const DateParts& parts) { return parts.moment.date.month; }
int YearPart(const DateParts& parts) { return parts.moment.date.year; }
int HourPart(const DateParts& parts) { return parts.moment.hour; }
int MinutePart(const DateParts& parts) { return parts.moment.minute; }
int SecondPart(const DateParts& parts) { return parts.moment.second; }

// A name's number from 1 to `count`, else error 5.
int NameNumber(const Variant& argument, int count) {
  const int32_t number = ToLong(argument);
  if (number < 1 || number > count) RaiseScript(error::kInvalidProcedureCall);
  return number;
}

bool FlagArgument(Arguments arguments, size_t index) {
  return IsGiven(arguments, index) && ToBoolean(arguments[index]);
}

}  // namespace

Variant Day(RuntimeContext&, Arguments arguments) { return PartOf<DayPart>(arguments); }
Variant Month(RuntimeContext&, Arguments arguments) { return PartOf<MonthPart>(arguments); }
Variant Year(RuntimeContext&, Arguments arguments) { return PartOf<YearPart>(arguments); }
Variant Hour(RuntimeContext&, Arguments arguments) { return PartOf<HourPart>(arguments); }
Variant Minute(RuntimeContext&, Arguments arguments) { return PartOf<MinutePart>(arguments); }
Variant Second(RuntimeContext&, Arguments arguments) { return PartOf<SecondPart>(arguments); }

Variant Now(RuntimeContext&, Arguments) { return Variant::Date(LocalNow()); }
Variant Today(RuntimeContext&, Arguments) { return Variant::Date(std::floor(LocalNow())); }

Variant TimeOfDay(RuntimeContext&, Arguments) {
  const double now = LocalNow();
  return Variant::Date(now - std::floor(now));
}

// Timer: seconds since midnight as a Single.
Variant Timer(RuntimeContext&, Arguments) {
  const double now = LocalNow();
  return static_cast<float>((now - std::floor(now)) * 86400);
}

// DateSerial(year, month, day): parts carry over; years 0 to 99 are the century around 2000. Error 5 outside the
// calendar.
Variant DateSerial(RuntimeContext&, Arguments arguments) {
  const int year = FullYear(ToInteger(arguments[0]));
  const int64_t day_number = DayNumber(year, ToInteger(arguments[1]), ToInteger(arguments[2]));
  if (!IsDateNumber(static_cast<double>(day_number))) RaiseScript(error::kInvalidProcedureCall);
  return Variant::Date(static_cast<double>(day_number));
}

// TimeSerial(hour, minute, second): parts carry over, also into days before and behind day zero.
Variant TimeSerial(RuntimeContext&, Arguments arguments) {
  constexpr int64_t kDay = 86400;
  const int64_t hours = ToInteger(arguments[0]);
  const int64_t minutes = ToInteger(arguments[1]);
  const int64_t seconds = hours * 3600 + minutes * 60 + ToInteger(arguments[2]);
  const int64_t days = seconds >= 0 ? seconds / kDay : -((-seconds + kDay - 1) / kDay);
  return Variant::Date(JoinDate(days, static_cast<double>(seconds - days * kDay)));
}

// DateValue(text), TimeValue(text): the one half of a date; error 13 for a text that is none.
Variant DateValue(RuntimeContext&, Arguments arguments) {
  return Variant::Date(static_cast<double>(PartsOf(arguments[0]).day_number));
}

Variant TimeValue(RuntimeContext&, Arguments arguments) {
  return Variant::Date(JoinDate(0, static_cast<double>(PartsOf(arguments[0]).SecondOfDay())));
}

// MonthName(month[, abbreviate]).
Variant MonthName(RuntimeContext& context, Arguments arguments) {
  const LocaleForms& forms = FormsOf(context.locale());
  const bool abbreviated = FlagArgument(arguments, 1);
  const auto month = static_cast<size_t>(NameNumber(arguments[0], 12) - 1);
  return abbreviated ? forms.short_months[month] : forms.months[month];
}

// Weekday(date[, first day]): 1 is the first day of the week.
Variant Weekday(RuntimeContext& context, Arguments arguments) {
  const int first = FirstWeekday(context, arguments, 1);
  if (arguments[0].Is(VarType::kNull)) return arguments[0];
  const int weekday = WeekdayOfDayNumber(PartsOf(arguments[0]).day_number);
  return static_cast<int16_t>((weekday - first + 7) % 7 + 1);
}

// WeekdayName(weekday[, abbreviate[, first day]]).
Variant WeekdayName(RuntimeContext& context, Arguments arguments) {
  const LocaleForms& forms = FormsOf(context.locale());
  const int first = FirstWeekday(context, arguments, 2);
  const bool abbreviated = FlagArgument(arguments, 1);
  const auto weekday = static_cast<size_t>((NameNumber(arguments[0], 7) - 1 + first - 1) % 7);
  return abbreviated ? forms.short_weekdays[weekday] : forms.weekdays[weekday];
}

}  // namespace kestrun::vbs
