// Dates as whole numbers, for the functions that take them apart.
#pragma once

#include <cstdint>

#include "base/calendar.h"
#include "script/vbscript/runtime/context.h"
#include "script/vbscript/runtime/conversions.h"

namespace kestrun::vbs {

struct DateParts {
  int64_t day_number;
  CalendarMoment moment;
  // Seconds since midnight.
  [[nodiscard]] int64_t SecondOfDay() const { return moment.hour * 3600 + moment.minute * 60 + moment.second; }
  [[nodiscard]] int64_t Seconds() const { return day_number * 86400 + SecondOfDay(); }
};

// Error 13 for what is no date, 94 for Null.
[[nodiscard]] DateParts PartsOf(const Variant& argument);
[[nodiscard]] DateParts PartsOfDate(double date);

// A day of the week argument: 1 is Sunday, 0 the locale's choice. Error 5 beyond 7.
[[nodiscard]] int FirstWeekday(const RuntimeContext& context, Arguments arguments, size_t index);

}  // namespace kestrun::vbs
