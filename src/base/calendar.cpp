#include "base/calendar.h"

#include <array>
#include <cmath>
#include <cstdio>

namespace kestrun {
namespace {

constexpr int64_t kDaysBetweenEpochs = 25569;  // 30 December 1899 to 1 January 1970
constexpr int64_t kDaysPerEra = 146097;        // 400 Gregorian years
constexpr int kSecondsPerDay = 86400;

constexpr std::array<std::string_view, 12> kMonths{"January",   "February", "March",    "April",
                                                   "May",       "June",     "July",     "August",
                                                   "September", "October",  "November", "December"};
constexpr std::array<std::string_view, 7> kWeekdays{"Sunday",   "Monday", "Tuesday", "Wednesday",
                                                    "Thursday", "Friday", "Saturday"};

int64_t FloorDivide(int64_t value, int64_t divisor) {
  const int64_t quotient = value / divisor;
  return value % divisor < 0 ? quotient - 1 : quotient;
}

bool IsLeapYear(int year) { return (year % 4 == 0 && year % 100 != 0) || year % 400 == 0; }

}  // namespace

// Years are counted from 1 March, so that the leap day ends them; eras of 400 years repeat exactly.
int64_t DayNumber(int64_t year, int64_t month, int64_t day) {
  const int64_t months = year * 12 + (month - 1) - 2;
  const int64_t march_year = FloorDivide(months, 12);
  const int64_t march_month = months - march_year * 12;
  const int64_t era = FloorDivide(march_year, 400);
  const int64_t year_of_era = march_year - era * 400;
  const int64_t day_of_year = (153 * march_month + 2) / 5;
  const int64_t day_of_era = year_of_era * 365 + year_of_era / 4 - year_of_era / 100 + day_of_year;
  return era * kDaysPerEra + day_of_era - 719468 + kDaysBetweenEpochs + day - 1;
}

CalendarDate DateOfDayNumber(int64_t day_number) {
  const int64_t days = day_number - kDaysBetweenEpochs + 719468;
  const int64_t era = FloorDivide(days, kDaysPerEra);
  const int64_t day_of_era = days - era * kDaysPerEra;
  const int64_t year_of_era = (day_of_era - day_of_era / 1460 + day_of_era / 36524 - day_of_era / 146096) / 365;
  const int64_t day_of_year = day_of_era - (365 * year_of_era + year_of_era / 4 - year_of_era / 100);
  const int64_t march_month = (5 * day_of_year + 2) / 153;
  CalendarDate date;
  date.day = static_cast<int>(day_of_year - (153 * march_month + 2) / 5 + 1);
  date.month = static_cast<int>(march_month < 10 ? march_month + 3 : march_month - 9);
  date.year = static_cast<int>(year_of_era + era * 400 + (date.month <= 2 ? 1 : 0));
  return date;
}

int DaysInMonth(int year, int month) {
  constexpr std::array kDays{31, 28, 31, 30, 31, 30, 31, 31, 30, 31, 30, 31};
  return month == 2 && IsLeapYear(year) ? 29 : kDays[static_cast<size_t>(month - 1)];
}

int WeekdayOfDayNumber(int64_t day_number) {
  const int64_t days = day_number + 6;  // day zero was a Saturday
  return static_cast<int>(days - FloorDivide(days, 7) * 7) + 1;
}

CalendarMoment SplitDate(double date) {
  const double whole = std::trunc(date);
  auto day_number = static_cast<int64_t>(whole);
  auto seconds = static_cast<int>(std::floor(std::fabs(date - whole) * kSecondsPerDay + 0.5));
  if (seconds == kSecondsPerDay) {
    seconds = 0;
    ++day_number;
  }
  return {DateOfDayNumber(day_number), seconds / 3600, seconds / 60 % 60, seconds % 60};
}

double JoinDate(int64_t day_number, double seconds) {
  const double fraction = seconds / kSecondsPerDay;
  const auto days = static_cast<double>(day_number);
  return day_number < 0 ? days - fraction : days + fraction;
}

bool IsDateNumber(double value) { return value > kFirstDateNumber - 1 && value < kDateNumberLimit; }

int FullYear(int year) {
  if (year < 0 || year > 99) return year;
  return year < 30 ? 2000 + year : 1900 + year;
}

std::string_view MonthText(int month, bool abbreviated) {
  const std::string_view name = kMonths[static_cast<size_t>(month - 1)];
  return abbreviated ? name.substr(0, 3) : name;
}

std::string_view WeekdayText(int weekday, bool abbreviated) {
  const std::string_view name = kWeekdays[static_cast<size_t>(weekday - 1)];
  return abbreviated ? name.substr(0, 3) : name;
}

std::string DayToText(const CalendarDate& date) {
  return std::to_string(date.month) + "/" + std::to_string(date.day) + "/" + std::to_string(date.year);
}

std::string TimeToText(const CalendarMoment& moment) {
  std::array<char, 48> text;
  const int hour = moment.hour % 12 == 0 ? 12 : moment.hour % 12;
  std::snprintf(text.data(), text.size(), "%d:%02d:%02d %s", hour, moment.minute, moment.second,
                moment.hour < 12 ? "AM" : "PM");
  return text.data();
}

std::string HoursAndMinutes(const CalendarMoment& moment) {
  std::array<char, 48> text;
  std::snprintf(text.data(), text.size(), "%d:%02d", moment.hour, moment.minute);
  return text.data();
}

std::string MomentToSortableText(const CalendarMoment& moment) {
  std::array<char, 96> text;
  std::snprintf(text.data(), text.size(), "%04d-%02d-%02d %02d:%02d:%02d", moment.date.year, moment.date.month,
                moment.date.day, moment.hour, moment.minute, moment.second);
  return text.data();
}

std::string DateToText(double date) {
  const CalendarMoment moment = SplitDate(date);
  const bool has_time = moment.hour != 0 || moment.minute != 0 || moment.second != 0;
  if (DayNumber(moment.date.year, moment.date.month, moment.date.day) == 0) return TimeToText(moment);
  return has_time ? DayToText(moment.date) + " " + TimeToText(moment) : DayToText(moment.date);
}

}  // namespace kestrun
