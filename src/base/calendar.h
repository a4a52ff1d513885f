// Dates as the language keeps them: days since 30 December 1899, the fraction being the time of day. In front of that
// day the fraction still counts forward: -1.25 is 6:00 on 29 December 1899. English (United States) forms throughout.
#pragma once

#include <cstdint>
#include <optional>
#include <string>
#include <string_view>

namespace kestrun {

// The years 100 to 9999 are what a date can hold.
inline constexpr double kFirstDateNumber = -657434;
inline constexpr double kDateNumberLimit = 2958466;

struct CalendarDate {
  int year = 1899;
  int month = 12;
  int day = 30;
};

struct CalendarMoment {
  CalendarDate date;
  int hour = 0;
  int minute = 0;
  int second = 0;
};

// Any day and any month count, overflow carries into months and years: (2020, 14, -1) is a day in January 2021.
// Days since 30 December 1899, by the Gregorian rules also before they were in force.
[[nodiscard]] int64_t DayNumber(int64_t year, int64_t month, int64_t day);
[[nodiscard]] CalendarDate DateOfDayNumber(int64_t day_number);
[[nodiscard]] int DaysInMonth(int year, int month);
// 1 is Sunday.
[[nodiscard]] int WeekdayOfDayNumber(int64_t day_number);

// Splits a date to whole seconds, rounded.
[[nodiscard]] CalendarMoment SplitDate(double date);
// The date of a day number and a time in seconds, 0 to 86400 exclusive, with the fraction on the right side of zero.
[[nodiscard]] double JoinDate(int64_t day_number, double seconds);
[[nodiscard]] bool IsDateNumber(double value);

// 0 to 29 are 2000 to 2029, 30 to 99 are 1930 to 1999, anything else is itself.
[[nodiscard]] int FullYear(int year);

// Names from 1 on: January, Sunday.
[[nodiscard]] std::string_view MonthText(int month, bool abbreviated);
[[nodiscard]] std::string_view WeekdayText(int weekday, bool abbreviated);

// "1/2/2020", "3:04:05 PM", and both with a blank between. DateToText leaves out a date of day zero and a time of
// midnight, but never both.
[[nodiscard]] std::string DayToText(const CalendarDate& date);
[[nodiscard]] std::string TimeToText(const CalendarMoment& moment);
[[nodiscard]] std::string DateToText(double date);
// "15:04".
[[nodiscard]] std::string HoursAndMinutes(const CalendarMoment& moment);
// "2020-01-02 15:04:05", whose order as a text is that of time.
[[nodiscard]] std::string MomentToSortableText(const CalendarMoment& moment);

// Reads a date, a time or both: "1/2/2020", "2020-1-2", "Jan 2, 2020", "2-Jan-20", "3:04", "3 PM", "1/2/2020 3:04:05
// PM". Month, day, year unless only another order makes sense. A date without a year lies in `current_year`.
[[nodiscard]] std::optional<double> ParseDate(std::string_view text, int current_year);
// The same with the year that it is.
[[nodiscard]] std::optional<double> ParseDate(std::string_view text);

}  // namespace kestrun
