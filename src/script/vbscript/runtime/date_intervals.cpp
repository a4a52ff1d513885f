// DateAdd, DateDiff and DatePart: what they count is named by an interval such as "yyyy" or "ww".
#include <algorithm>
#include <array>
#include <cmath>

#include "base/number.h"
#include "base/text.h"
#include "script/vbscript/runtime/date_parts.h"
#include "script/vbscript/runtime/errors.h"
#include "script/vbscript/runtime/functions.h"

namespace kestrun::vbs {
namespace {

enum class Interval { kYear, kQuarter, kMonth, kDayOfYear, kDay, kWeekday, kWeek, kHour, kMinute, kSecond };

struct IntervalName {
  std::string_view name;
  Interval interval;
};

constexpr std::array kIntervals{
    IntervalName{"yyyy", Interval::kYear}, IntervalName{"q", Interval::kQuarter},
    IntervalName{"m", Interval::kMonth},   IntervalName{"y", Interval::kDayOfYear},
    IntervalName{"d", Interval::kDay},     IntervalName{"w", Interval::kWeekday},
    IntervalName{"ww", Interval::kWeek},   IntervalName{"h", Interval::kHour},
    IntervalName{"n", Interval::kMinute},  IntervalName{"s", Interval::kSecond},
};

constexpr int64_t kSecondsPerDay = 86400;

Interval IntervalArgument(const Variant& argument) {
  const std::string name = ToUtf8(TextArgument(argument).view());
  const auto* row = std::find_if(kIntervals.begin(), kIntervals.end(),
                                 [&name](const IntervalName& each) { return EqualsNoCase(each.name, name); });
  if (row == kIntervals.end()) RaiseScript(error::kInvalidProcedureCall);
  return row->interval;
}

int64_t FloorDivide(int64_t value, int64_t divisor) {
  const int64_t quotient = value / divisor;
  return value % divisor < 0 ? quotient - 1 : quotient;
}

Variant CheckedDate(int64_t day_number, int64_t second_of_day) {
  if (!IsDateNumber(static_cast<double>(day_number))) RaiseScript(error::kInvalidProcedureCall);
  return Variant::Date(JoinDate(day_number, static_cast<double>(second_of_day)));
}

// Months keep the day, or end on the last one of a shorter month.
Variant AddMonths(const DateParts& parts, int64_t count) {
  const int64_t months = parts.moment.date.year * int64_t{12} + parts.moment.date.month - 1 + count;
  const int64_t year = FloorDivide(months, 12);
  if (year < 100 || year > 9999) RaiseScript(error::kInvalidProcedureCall);
  const int month = static_cast<int>(months - year * 12) + 1;
  const int day = std::min(parts.moment.date.day, DaysInMonth(static_cast<int>(year), month));
  return CheckedDate(DayNumber(year, month, day), parts.SecondOfDay());
}

Variant AddSeconds(const DateParts& parts, int64_t count) {
  const int64_t seconds = parts.Seconds() + count;
  const int64_t days = FloorDivide(seconds, kSecondsPerDay);
  return CheckedDate(days, seconds - days * kSecondsPerDay);
}

Variant AddInterval(Interval interval, int64_t count, const DateParts& parts) {
  switch (interval) {
    case Interval::kYear: return AddMonths(parts, count * 12);
    case Interval::kQuarter: return AddMonths(parts, count * 3);
    case Interval::kMonth: return AddMonths(parts, count);
    case Interval::kWeek: return CheckedDate(parts.day_number + count * 7, parts.SecondOfDay());
    case Interval::kHour: return AddSeconds(parts, count * 3600);
    case Interval::kMinute: return AddSeconds(parts, count * 60);
    case Interval::kSecond: return AddSeconds(parts, count);
    default: return CheckedDate(parts.day_number + count, parts.SecondOfDay());
  }
}

// The day number of the day that begins the week of `day_number`.
int64_t WeekStart(int64_t day_number, int first_weekday) {
  return day_number - (WeekdayOfDayNumber(day_number) - first_weekday + 7) % 7;
}

int64_t MonthsOf(const DateParts& parts) { return parts.moment.date.year * int64_t{12} + parts.moment.date.month - 1; }

int64_t CountIntervals(Interval interval, const DateParts& from, const DateParts& to, int first_weekday) {
  switch (interval) {
    case Interval::kYear: return to.moment.date.year - from.moment.date.year;
    case Interval::kQuarter: return FloorDivide(MonthsOf(to), 3) - FloorDivide(MonthsOf(from), 3);
    case Interval::kMonth: return MonthsOf(to) - MonthsOf(from);
    case Interval::kWeekday: return (to.day_number - from.day_number) / 7;
    case Interval::kWeek:
      return (WeekStart(to.day_number, first_weekday) - WeekStart(from.day_number, first_weekday)) / 7;
    case Interval::kHour: return FloorDivide(to.Seconds(), 3600) - FloorDivide(from.Seconds(), 3600);
    case Interval::kMinute: return FloorDivide(to.Seconds(), 60) - FloorDivide(from.Seconds(), 60);
    case Interval::kSecond: return to.Seconds() - from.Seconds();
    default: return to.day_number - from.day_number;
  }
}

// The rule for the first week of a year: the one with 1 January, the first with four days, the first full one.
int FirstWeekRule(Arguments arguments, size_t index) {
  const int32_t rule = LongArgument(arguments, index, 1);
  if (rule < 0 || rule > 3) RaiseScript(error::kInvalidProcedureCall);
  return rule == 0 ? 1 : rule;
}

int64_t FirstWeekOfYear(int year, int first_weekday, int rule) {
  const int64_t new_year = DayNumber(year, 1, 1);
  const int64_t start = WeekStart(new_year, first_weekday);
  const int64_t days_in_year = 7 - (new_year - start);
  const int64_t needed = rule == 1 ? 1 : rule == 2 ? 4 : 7;
  return days_in_year >= needed ? start : start + 7;
}

// Days in front of the year's first week belong to the last week of the year before. The other way round a week that
// is the next year's first counts as that from rule two on.
int64_t WeekOfYear(const DateParts& parts, int first_weekday, int rule) {
  int year = parts.moment.date.year;
  if (rule != 1 && parts.day_number >= FirstWeekOfYear(year + 1, first_weekday, rule)) ++year;
  int64_t first = FirstWeekOfYear(year, first_weekday, rule);
  if (parts.day_number < first) first = FirstWeekOfYear(year - 1, first_weekday, rule);
  return (parts.day_number - first) / 7 + 1;
}

int64_t PartByInterval(Interval interval, const DateParts& parts, int first_weekday, int rule) {
  const CalendarDate& date = parts.moment.date;
  switch (interval) {
    case Interval::kYear: return date.year;
    case Interval::kQuarter: return (date.month - 1) / 3 + 1;
    case Interval::kMonth: return date.month;
    case Interval::kDayOfYear: return parts.day_number - DayNumber(date.year, 1, 1) + 1;
    case Interval::kDay: return date.day;
    case Interval::kWeekday: return parts.day_number - WeekStart(parts.day_number, first_weekday) + 1;
    case Interval::kWeek: return WeekOfYear(parts, first_weekday, rule);
    case Interval::kHour: return parts.moment.hour;
    case Interval::kMinute: return parts.moment.minute;
    case Interval::kSecond: return parts.moment.second;
  }
  return 0;
}

}  // namespace

// DateAdd(interval, number, date): the number is rounded first. Null for a Null date.
Variant DateAdd(RuntimeContext&, Arguments arguments) {
  const Interval interval = IntervalArgument(arguments[0]);
  const int32_t count = ToLong(arguments[1]);
  if (arguments[2].Is(VarType::kNull)) return arguments[2];
  return AddInterval(interval, count, PartsOf(arguments[2]));
}

// DateDiff(interval, from, to[, first day[, first week]]): the boundaries between the two as a Long; "w" counts whole
// weeks, "ww" the beginnings of weeks.
Variant DateDiff(RuntimeContext& context, Arguments arguments) {
  const Interval interval = IntervalArgument(arguments[0]);
  const int first_weekday = FirstWeekday(context, arguments, 3);
  static_cast<void>(FirstWeekRule(arguments, 4));
  if (arguments[1].Is(VarType::kNull) || arguments[2].Is(VarType::kNull)) return Variant::Null();
  const int64_t count = CountIntervals(interval, PartsOf(arguments[1]), PartsOf(arguments[2]), first_weekday);
  return RoundToInt(static_cast<double>(count));
}

// DatePart(interval, date[, first day[, first week]]) as an Integer.
Variant DatePart(RuntimeContext& context, Arguments arguments) {
  const Interval interval = IntervalArgument(arguments[0]);
  const int first_weekday = FirstWeekday(context, arguments, 2);
  const int rule = FirstWeekRule(arguments, 3);
  if (arguments[1].Is(VarType::kNull)) return arguments[1];
  return static_cast<int16_t>(PartByInterval(interval, PartsOf(arguments[1]), first_weekday, rule));
}

}  // namespace kestrun::vbs
