#include "script/vbscript/runtime/locale.h"

#include <algorithm>
#include <cstdio>

#include "base/text.h"
#include "script/vbscript/runtime/context.h"

namespace kestrun::vbs {
namespace {

constexpr std::string_view kNoBreakSpace = "\xC2\xA0";
constexpr char16_t kNoBreakUnit = 0xA0;
constexpr char16_t kNarrowNoBreakUnit = 0x202F;

template <class... Values>
std::string Print(const char* form, Values... values) {
  std::array<char, 64> text;
  std::snprintf(text.data(), text.size(), form, values...);
  return text.data();
}

std::string_view WeekdayOf(const LocaleForms& forms, const CalendarDate& date) {
  const int weekday = WeekdayOfDayNumber(DayNumber(date.year, date.month, date.day));
  return forms.weekdays[static_cast<size_t>(weekday - 1)];
}

std::string_view MonthOf(const LocaleForms& forms, const CalendarDate& date) {
  return forms.months[static_cast<size_t>(date.month - 1)];
}

std::string DottedDate(const CalendarDate& date) { return Print("%02d.%02d.%d", date.day, date.month, date.year); }
std::string DayFirstDate(const CalendarDate& date) { return Print("%02d/%02d/%d", date.day, date.month, date.year); }
std::string FullDayTime(const CalendarMoment& moment) {
  return Print("%02d:%02d:%02d", moment.hour, moment.minute, moment.second);
}

std::string LongAmericanDate(const LocaleForms& forms, const CalendarDate& date) {
  return std::string(WeekdayOf(forms, date)) + ", " + std::string(MonthOf(forms, date)) + " " +
         std::to_string(date.day) + ", " + std::to_string(date.year);
}
std::string LongBritishDate(const LocaleForms& forms, const CalendarDate& date) {
  return Print("%02d ", date.day) + std::string(MonthOf(forms, date)) + " " + std::to_string(date.year);
}
std::string LongGermanDate(const LocaleForms& forms, const CalendarDate& date) {
  return std::string(WeekdayOf(forms, date)) + ", " + std::to_string(date.day) + ". " +
         std::string(MonthOf(forms, date)) + " " + std::to_string(date.year);
}
std::string LongFrenchDate(const LocaleForms& forms, const CalendarDate& date) {
  return std::string(WeekdayOf(forms, date)) + " " + std::to_string(date.day) + " " +
         std::string(MonthOf(forms, date)) + " " + std::to_string(date.year);
}

bool IsDigit(char16_t unit) { return unit >= u'0' && unit <= u'9'; }

// Decimal comma, points as groups, "€".
std::u16string GermanNumber(std::u16string_view text) {
  std::u16string number(text);
  for (char16_t& unit : number) unit = unit == u',' ? u'.' : unit == u'.' ? u',' : unit == u'€' ? u'$' : unit;
  return number;
}

// Decimal comma, no-break spaces as groups, "€". A point belongs to no number.
std::u16string FrenchNumber(std::u16string_view text) {
  std::u16string number;
  for (const char16_t unit : text) {
    if (unit == kNoBreakUnit || unit == kNarrowNoBreakUnit) continue;
    number.push_back(unit == u',' ? u'.' : unit == u'.' ? u'?' : unit == u'€' ? u'$' : unit);
  }
  return number;
}

std::u16string BritishNumber(std::u16string_view text) {
  std::u16string number(text);
  std::replace(number.begin(), number.end(), u'£', u'$');
  return number;
}

std::string CommaNumber(std::string_view text) {
  std::string number(text);
  std::replace(number.begin(), number.end(), '.', ',');
  return number;
}
std::string SameNumber(std::string_view text) { return std::string(text); }

// One number of a date with its place in the text.
struct NumberPlace {
  size_t from;
  size_t size;
};

// The first two numbers with a mark between them, when they can be day and month.
bool FindDayAndMonth(const std::u16string& text, NumberPlace& day, NumberPlace& month) {
  const auto number_at = [&](size_t from) {
    size_t to = from;
    while (to < text.size() && IsDigit(text[to])) ++to;
    return NumberPlace{from, to - from};
  };
  for (size_t at = 0; at < text.size(); ++at) {
    if (!IsDigit(text[at])) continue;
    day = number_at(at);
    const size_t mark = at + day.size;
    const bool joined = mark + 1 < text.size() && (text[mark] == u'/' || text[mark] == u'-') && IsDigit(text[mark + 1]);
    if (!joined) {
      at = mark;
      continue;
    }
    month = number_at(mark + 1);
    return day.size <= 2 && month.size <= 2;
  }
  return false;
}

// The day stands in front of the month; the conversions read the month first.
std::u16string MonthFirst(std::u16string text) {
  NumberPlace day{};
  NumberPlace month{};
  if (!FindDayAndMonth(text, day, month)) return text;
  const std::u16string swapped =
      text.substr(month.from, month.size) + text[day.from + day.size] + text.substr(day.from, day.size);
  return text.replace(day.from, month.from + month.size - day.from, swapped);
}

// Points between numbers are the marks of a date: 2.1.2020, and 2. Januar 2020.
std::u16string WithoutPoints(std::u16string text) {
  for (size_t at = 1; at < text.size(); ++at) {
    if (text[at] != u'.' || !IsDigit(text[at - 1])) continue;
    text[at] = at + 1 < text.size() && IsDigit(text[at + 1]) ? u'/' : u' ';
  }
  return text;
}

// Names of months and weekdays in English; words that are none stay.
std::u16string EnglishNames(const LocaleForms& forms, std::u16string_view text);

extern const LocalForms kBritishConversions;
extern const LocalForms kGermanConversions;
extern const LocalForms kFrenchConversions;

constexpr std::array<std::string_view, 12> kEnglishMonths{"January",   "February", "March",    "April",
                                                          "May",       "June",     "July",     "August",
                                                          "September", "October",  "November", "December"};
constexpr std::array<std::string_view, 12> kShortEnglishMonths{"Jan", "Feb", "Mar", "Apr", "May", "Jun",
                                                               "Jul", "Aug", "Sep", "Oct", "Nov", "Dec"};
constexpr std::array<std::string_view, 7> kEnglishDays{"Sunday",   "Monday", "Tuesday", "Wednesday",
                                                       "Thursday", "Friday", "Saturday"};
constexpr std::array<std::string_view, 7> kShortEnglishDays{"Sun", "Mon", "Tue", "Wed", "Thu", "Fri", "Sat"};

// English (United States) first.
const LocaleForms kForms[] = {
    {kEnglishUnitedStates, ".", ",", "$", false, 1, kEnglishMonths, kShortEnglishMonths, kEnglishDays,
     kShortEnglishDays, DayToText, LongAmericanDate, TimeToText, nullptr},
    {2057, ".", ",", "£", false, 2, kEnglishMonths, kShortEnglishMonths, kEnglishDays, kShortEnglishDays, DayFirstDate,
     LongBritishDate, FullDayTime, &kBritishConversions},
    {1031,
     ",",
     ".",
     "€",
     true,
     2,
     {"Januar", "Februar", "März", "April", "Mai", "Juni", "Juli", "August", "September", "Oktober", "November",
      "Dezember"},
     {"Jan", "Feb", "Mrz", "Apr", "Mai", "Jun", "Jul", "Aug", "Sep", "Okt", "Nov", "Dez"},
     {"Sonntag", "Montag", "Dienstag", "Mittwoch", "Donnerstag", "Freitag", "Samstag"},
     {"So", "Mo", "Di", "Mi", "Do", "Fr", "Sa"},
     DottedDate,
     LongGermanDate,
     FullDayTime,
     &kGermanConversions},
    {1036,
     ",",
     kNoBreakSpace,
     "€",
     true,
     2,
     {"janvier", "février", "mars", "avril", "mai", "juin", "juillet", "août", "septembre", "octobre", "novembre",
      "décembre"},
     {"janv.", "févr.", "mars", "avr.", "mai", "juin", "juil.", "août", "sept.", "oct.", "nov.", "déc."},
     {"dimanche", "lundi", "mardi", "mercredi", "jeudi", "vendredi", "samedi"},
     {"dim.", "lun.", "mar.", "mer.", "jeu.", "ven.", "sam."},
     DayFirstDate,
     LongFrenchDate,
     FullDayTime,
     &kFrenchConversions},
};

template <size_t kCount>
size_t PlaceOf(const std::array<std::string_view, kCount>& names, std::string_view word) {
  const auto found = std::find_if(names.begin(), names.end(), [word](std::string_view name) {
    return ToLower(name) == ToLower(word) || (name.ends_with('.') && ToLower(name) == ToLower(word) + ".");
  });
  return static_cast<size_t>(found - names.begin());
}

std::string EnglishName(const LocaleForms& forms, const std::string& word) {
  for (const auto& months : {forms.months, forms.short_months}) {
    if (const size_t at = PlaceOf(months, word); at < months.size()) return std::string(kEnglishMonths[at]);
  }
  for (const auto& days : {forms.weekdays, forms.short_weekdays}) {
    if (const size_t at = PlaceOf(days, word); at < days.size()) return std::string(kEnglishDays[at]);
  }
  return word;
}

std::u16string EnglishNames(const LocaleForms& forms, std::u16string_view text) {
  const auto is_letter = [](char16_t unit) {
    return (unit >= u'A' && unit <= u'Z') || (unit >= u'a' && unit <= u'z') || unit >= 0xC0;
  };
  std::u16string english;
  for (size_t at = 0; at < text.size();) {
    size_t end = at;
    while (end < text.size() && is_letter(text[end])) ++end;
    if (end == at) {
      english.push_back(text[at++]);
      continue;
    }
    const bool month_of_day = end - at > 1;
    const std::string word = ToUtf8(text.substr(at, end - at));
    english += ToUtf16(month_of_day ? EnglishName(forms, word) : word);
    at = end;
    if (at < text.size() && text[at] == u'.' && month_of_day) ++at;
  }
  return english;
}

std::u16string BritishDateIn(std::u16string_view text) { return MonthFirst(std::u16string(text)); }
std::u16string GermanDateIn(std::u16string_view text) {
  return MonthFirst(WithoutPoints(EnglishNames(FormsOf(1031), text)));
}
std::u16string FrenchDateIn(std::u16string_view text) { return MonthFirst(EnglishNames(FormsOf(1036), text)); }

std::string BritishDateOut(double date) { return GeneralDate(FormsOf(2057), date); }
std::string GermanDateOut(double date) { return GeneralDate(FormsOf(1031), date); }
std::string FrenchDateOut(double date) { return GeneralDate(FormsOf(1036), date); }

const LocalForms kBritishConversions{BritishNumber, BritishDateIn, SameNumber, BritishDateOut, "True", "False"};
const LocalForms kGermanConversions{GermanNumber, GermanDateIn, CommaNumber, GermanDateOut, "Wahr", "Falsch"};
const LocalForms kFrenchConversions{FrenchNumber, FrenchDateIn, CommaNumber, FrenchDateOut, "Vrai", "Faux"};

}  // namespace

const LocaleForms& FormsOf(int locale) {
  const auto* row = std::find_if(std::begin(kForms), std::end(kForms),
                                 [locale](const LocaleForms& each) { return each.number == locale; });
  return row == std::end(kForms) ? kForms[0] : *row;
}

std::string GeneralDate(const LocaleForms& forms, double date) {
  const CalendarMoment moment = SplitDate(date);
  const bool has_time = moment.hour != 0 || moment.minute != 0 || moment.second != 0;
  if (DayNumber(moment.date.year, moment.date.month, moment.date.day) == 0) return forms.time(moment);
  return has_time ? forms.short_date(moment.date) + " " + forms.time(moment) : forms.short_date(moment.date);
}

}  // namespace kestrun::vbs
