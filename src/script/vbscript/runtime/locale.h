// What SetLocale changes: how numbers, dates, amounts and truth values are written and read. English (United States),
// English (United Kingdom), German (Germany) and French (France) have forms of their own; every other locale that the
// engine knows by number keeps the English (United States) ones.
#pragma once

#include <array>
#include <string>
#include <string_view>

#include "base/calendar.h"
#include "base/local_forms.h"

namespace kestrun::vbs {

struct LocaleForms {
  int number;
  std::string_view decimal;
  std::string_view group;
  std::string_view currency;
  bool currency_behind;  // with a blank, and negative amounts with a minus sign
  int first_weekday;     // 1 is Sunday
  std::array<std::string_view, 12> months;
  std::array<std::string_view, 12> short_months;
  std::array<std::string_view, 7> weekdays;  // from Sunday on
  std::array<std::string_view, 7> short_weekdays;
  std::string (*short_date)(const CalendarDate& date);
  std::string (*long_date)(const LocaleForms& forms, const CalendarDate& date);
  std::string (*time)(const CalendarMoment& moment);
  const LocalForms* conversions;  // null where those of base/convert.h serve
};

// The row of a locale's number; English (United States) when it has none.
[[nodiscard]] const LocaleForms& FormsOf(int locale);

// "1/2/2020 3:04:05 PM" and its like: a date without midnight, or a time without day zero.
[[nodiscard]] std::string GeneralDate(const LocaleForms& forms, double date);

}  // namespace kestrun::vbs
