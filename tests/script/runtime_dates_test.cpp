#include "base/calendar.h"
#include "script/runtime_fixture.h"

namespace kestrun::vbs {
namespace {

using RuntimeDatesTest = RuntimeTest;

TEST_F(RuntimeDatesTest, CDateReadsManyForms) {
  CheckTable(context, R"t(
CDate("1/2/2020") => Date 1/2/2020
CDate("1-2-2020") => Date 1/2/2020
CDate("2020-01-02") => Date 1/2/2020
CDate("2020/1/2") => Date 1/2/2020
CDate("13/1/2020") => Date 1/13/2020
CDate("31/12/99") => Date 12/31/1999
CDate("1/2/29") => Date 1/2/2029
CDate("1/2/30") => Date 1/2/1930
CDate("1/2/99") => Date 1/2/1999
CDate("1/2/100") => Date 1/2/100
CDate("1/2/9999") => Date 1/2/9999
CDate("1/2/10000") !! 13
CDate("Jan 2, 2020") => Date 1/2/2020
CDate("January 2 2020") => Date 1/2/2020
CDate("2 Jan 2020") => Date 1/2/2020
CDate("2-Jan-2020") => Date 1/2/2020
CDate("2020 Jan 2") => Date 1/2/2020
CDate("Jan 2020") => Date 1/1/2020
CDate("1/2020") => Date 1/1/2020
CDate("1/Jan/2020") => Date 1/1/2020
CDate("Jan-01-20") => Date 1/1/2020
CDate("Thursday, January 2, 2020") => Date 1/2/2020
CDate("Thu, Jan 2, 2020") => Date 1/2/2020
CDate(" 1/2/2020 ") => Date 1/2/2020
CDate("1 / 2 / 2020") => Date 1/2/2020
CDate("1 2 2020") => Date 1/2/2020
CDate("2/29/2020") => Date 2/29/2020
CDate("2/29/2019") !! 13
CDate("1/32/2020") !! 13
CDate("0/1/2020") !! 13
CDate("1/0/2020") !! 13
CDate("1/2/2020 abc") !! 13
CDate("1/2/3/4") !! 13
CDate("1//2/2020") !! 13
CDate("/1/2/2020") !! 13
CDate("1/2/2020/") !! 13
CDate("Jan") !! 13
CDate("Janu 2 2020") !! 13
CDate("Jan Feb 2020") !! 13
CDate("") !! 13
CDate("abc") !! 13
CDate("3:04") => Date 3:04:00 AM
CDate("3:04:05") => Date 3:04:05 AM
CDate("3:04:05 PM") => Date 3:04:05 PM
CDate("3 PM") => Date 3:00:00 PM
CDate("3PM") => Date 3:00:00 PM
CDate("3:04p") => Date 3:04:00 PM
CDate("12:00 AM") => Date 12:00:00 AM
CDate("12:00 PM") => Date 12:00:00 PM
CDate("15:04 PM") => Date 3:04:00 PM
CDate("3.04.05") => Date 3:04:05 AM
CDate("24:00") !! 13
CDate("25:00") !! 13
CDate("3:60") !! 13
CDate("3:04:60") !! 13
CDate("3:") !! 13
CDate("3:04:") !! 13
CDate("PM 3:04") !! 13
CDate("1/2/2020 3:04") => Date 1/2/2020 3:04:00 AM
CDate("1/2/2020, 3:04") => Date 1/2/2020 3:04:00 AM
CDate("3:04 1/2/2020") => Date 1/2/2020 3:04:00 AM
CDate("3:04 PM 1/2/2020") => Date 1/2/2020 3:04:00 PM
CDate("1/2/2020 3 PM") => Date 1/2/2020 3:00:00 PM
CDate("1/2/2020 24:00") !! 13
CDate("1/1/1800 6:00") => Date 1/1/1800 6:00:00 AM
CDbl(CDate("1/1/1800 6:00")) => Double -36522.25
CDate(0) => Date 12:00:00 AM
CDate(43831.25) => Date 1/1/2020 6:00:00 AM
CDate(-1.5) => Date 12/29/1899 12:00:00 PM
CDate(2958465.5) => Date 12/31/9999 12:00:00 PM
CDate(2958466) !! 6
CDate(-657434) => Date 1/1/100
CDate(-657435) !! 6
CDate(1e300) !! 6
CDate(Null) !! 94
CDate(Empty) => Date 12:00:00 AM
CDate(True) => Date 12/29/1899
CDate(Nothing) !! 91
CDate(Array(1)) !! 13
)t");
}

TEST(CalendarTest, ADateWithoutAYearLiesInTheCurrentOne) {
  EXPECT_EQ(ParseDate("1/2", 2020), 43832);
  EXPECT_EQ(ParseDate("Jan 2", 2020), 43832);
  EXPECT_EQ(ParseDate("2 Jan", 2020), 43832);
  EXPECT_EQ(ParseDate("13/2", 2020), DayNumber(2020, 2, 13));
  EXPECT_EQ(ParseDate("2/30", 2020), DayNumber(1930, 2, 1));
  EXPECT_EQ(ParseDate("2/29", 2020), DayNumber(2020, 2, 29));
  EXPECT_EQ(ParseDate("Jan 45", 2020), DayNumber(1945, 1, 1));
}

TEST(CalendarTest, DayNumbersAndDatesAreInverse) {
  for (int64_t day = -657434; day < 2958466; day += 97) {
    const CalendarDate date = DateOfDayNumber(day);
    ASSERT_EQ(DayNumber(date.year, date.month, date.day), day);
    ASSERT_GE(date.day, 1);
    ASSERT_LE(date.day, DaysInMonth(date.year, date.month));
  }
  EXPECT_EQ(DayNumber(1899, 12, 30), 0);
  EXPECT_EQ(DayNumber(2000, 2, 29), 36585);
  EXPECT_EQ(WeekdayOfDayNumber(43832), 5);
}

TEST(CalendarTest, OverlongTextsAreNoDates) {
  EXPECT_FALSE(ParseDate(std::string(1000000, '1'), 2020));
  EXPECT_FALSE(ParseDate(std::string(1000000, '/'), 2020));
  std::string many;
  for (int part = 0; part < 1000; ++part) many += "Monday ";
  EXPECT_FALSE(ParseDate(many, 2020));
}

TEST_F(RuntimeDatesTest, PartsOfADate) {
  CheckTable(context, R"t(
Day(#1/2/2020#) => Integer 2
Month(#1/2/2020#) => Integer 1
Year(#1/2/2020#) => Integer 2020
Hour(#1/2/2020 3:04:05 PM#) => Integer 15
Minute(#3:04:05#) => Integer 4
Second(#3:04:05#) => Integer 5
Year("1/2/2020") => Integer 2020
Day(0) => Integer 30
Month(0) => Integer 12
Year(0) => Integer 1899
Day(-1.5) => Integer 29
Hour(-1.5) => Integer 12
Day(Null) => Null
Month(Null) => Null
Year(Null) => Null
Hour(Null) => Null
Minute(Null) => Null
Second(Null) => Null
Weekday(Null) => Null
Day("abc") !! 13
Year(Empty) => Integer 1899
Hour(0.99999999) => Integer 0
Day(0.99999999) => Integer 31
Second(0.99999) => Integer 59
Day(Nothing) !! 91
Year(3000000) !! 6
)t");
}

TEST_F(RuntimeDatesTest, WeekdaysAndNames) {
  CheckTable(context, R"t(
Weekday(#1/2/2020#) => Integer 5
Weekday(#1/2/2020#, 2) => Integer 4
Weekday(#1/2/2020#, 0) => Integer 5
Weekday(#1/2/2020#, vbThursday) => Integer 1
Weekday(#1/2/2020#, 8) !! 5
Weekday(#1/2/2020#, -1) !! 5
Weekday(#1/1/1800#) => Integer 4
WeekdayName(1) => String Sunday
WeekdayName(7) => String Saturday
WeekdayName(1, True) => String Sun
WeekdayName(1, False, 2) => String Monday
WeekdayName(7, True, 2) => String Sun
WeekdayName(1, , vbWednesday) => String Wednesday
WeekdayName(0) !! 5
WeekdayName(8) !! 5
WeekdayName(1, False, 8) !! 5
WeekdayName(Null) !! 94
WeekdayName("x") !! 13
MonthName(1) => String January
MonthName(12) => String December
MonthName(5, True) => String May
MonthName(9, True) => String Sep
MonthName(0) !! 5
MonthName(13) !! 5
MonthName(Null) !! 94
MonthName("x") !! 13
MonthName("5") => String May
)t");
}

TEST_F(RuntimeDatesTest, SerialsCarryOver) {
  CheckTable(context, R"t(
DateSerial(2020, 1, 2) => Date 1/2/2020
DateSerial(2020, 14, -1) => Date 1/30/2021
DateSerial(2020, 0, 1) => Date 12/1/2019
DateSerial(2020, -11, 1) => Date 1/1/2019
DateSerial(2020, 3, 0) => Date 2/29/2020
DateSerial(2020, 1, 400) => Date 2/3/2021
DateSerial(20, 1, 1) => Date 1/1/2020
DateSerial(29, 1, 1) => Date 1/1/2029
DateSerial(30, 1, 1) => Date 1/1/1930
DateSerial(99, 1, 1) => Date 1/1/1999
DateSerial(100, 1, 1) => Date 1/1/100
DateSerial(9999, 12, 31) => Date 12/31/9999
DateSerial(10000, 1, 1) !! 5
DateSerial(9999, 12, 32) !! 5
DateSerial(40000, 1, 1) !! 6
DateSerial("2020", "1", "2") => Date 1/2/2020
DateSerial(2020.5, 1, 2) => Date 1/2/2020
DateSerial(Null, 1, 1) !! 94
DateSerial("x", 1, 1) !! 13
TimeSerial(1, 2, 3) => Date 1:02:03 AM
TimeSerial(25, 0, 0) => Date 12/31/1899 1:00:00 AM
TimeSerial(-1, 0, 0) => Date 12/29/1899 11:00:00 PM
TimeSerial(1, -15, 0) => Date 12:45:00 AM
TimeSerial(0, 0, -1) => Date 12/29/1899 11:59:59 PM
TimeSerial(0, 90, 0) => Date 1:30:00 AM
TimeSerial(0, 0, 32767) => Date 9:06:07 AM
TimeSerial(40000, 0, 0) !! 6
TimeSerial(Null, 0, 0) !! 94
DateValue("1/2/2020 3:04") => Date 1/2/2020
DateValue(#1/2/2020 3:04:05 PM#) => Date 1/2/2020
DateValue("3:04") => Date 12:00:00 AM
DateValue("abc") !! 13
DateValue(Null) !! 94
TimeValue("1/2/2020 3:04") => Date 3:04:00 AM
TimeValue("3:04:05 PM") => Date 3:04:05 PM
TimeValue("1/2/2020") => Date 12:00:00 AM
TimeValue("abc") !! 13
TimeValue(Null) !! 94
)t");
}

TEST_F(RuntimeDatesTest, DateAddKnowsItsIntervals) {
  CheckTable(context, R"t(
DateAdd("yyyy", 1, #1/2/2020#) => Date 1/2/2021
DateAdd("yyyy", 1, #2/29/2020#) => Date 2/28/2021
DateAdd("yyyy", -4, #2/29/2020#) => Date 2/29/2016
DateAdd("q", 1, #11/30/2019#) => Date 2/29/2020
DateAdd("m", 1, #1/31/2020#) => Date 2/29/2020
DateAdd("m", -1, #3/31/2019#) => Date 2/28/2019
DateAdd("m", 13, #12/15/2019#) => Date 1/15/2021
DateAdd("d", 1, #12/31/2019#) => Date 1/1/2020
DateAdd("y", 1, #12/31/2019#) => Date 1/1/2020
DateAdd("w", 1, #12/31/2019#) => Date 1/1/2020
DateAdd("ww", 1, #12/31/2019#) => Date 1/7/2020
DateAdd("h", 25, #1/1/2020#) => Date 1/2/2020 1:00:00 AM
DateAdd("n", -1, #1/1/2020#) => Date 12/31/2019 11:59:00 PM
DateAdd("s", 86399, #1/1/2020#) => Date 1/1/2020 11:59:59 PM
DateAdd("D", 1, #1/1/2020#) => Date 1/2/2020
DateAdd("YYYY", 1, "1/2/2020") => Date 1/2/2021
DateAdd("d", 1.5, #1/1/2020#) => Date 1/3/2020
DateAdd("d", 2.5, #1/1/2020#) => Date 1/3/2020
DateAdd("m", 1, #1/31/2020 3:04:05 PM#) => Date 2/29/2020 3:04:05 PM
DateAdd("h", -12, #12/30/1899 6:00:00 AM#) => Date 12/29/1899 6:00:00 PM
DateAdd("x", 1, #1/1/2020#) !! 5
DateAdd("", 1, #1/1/2020#) !! 5
DateAdd("yyyy", 9000, #1/1/2020#) !! 5
DateAdd("d", 2147483647, #1/1/2020#) !! 5
DateAdd("d", 3000000000.0, #1/1/2020#) !! 6
DateAdd("d", 1, Null) => Null
DateAdd("d", Null, #1/1/2020#) !! 94
DateAdd(Null, 1, #1/1/2020#) !! 94
DateAdd("d", 1, "abc") !! 13
DateAdd("d", "x", #1/1/2020#) !! 13
)t");
}

TEST_F(RuntimeDatesTest, DateDiffCountsBoundaries) {
  CheckTable(context, R"t(
DateDiff("yyyy", #12/31/2019#, #1/1/2020#) => Long 1
DateDiff("yyyy", #1/1/2020#, #12/31/2020#) => Long 0
DateDiff("q", #3/31/2020#, #4/1/2020#) => Long 1
DateDiff("m", #1/31/2020#, #2/1/2020#) => Long 1
DateDiff("m", #2/1/2020#, #1/31/2020#) => Long -1
DateDiff("d", #1/1/2020#, #1/5/2020#) => Long 4
DateDiff("d", #1/1/2020 11:59:00 PM#, #1/2/2020 12:01:00 AM#) => Long 1
DateDiff("y", #1/1/2020#, #1/5/2020#) => Long 4
DateDiff("w", #1/1/2020#, #1/9/2020#) => Long 1
DateDiff("w", #1/1/2020#, #1/7/2020#) => Long 0
DateDiff("ww", #1/4/2020#, #1/5/2020#) => Long 1
DateDiff("ww", #1/4/2020#, #1/5/2020#, 2) => Long 0
DateDiff("ww", #1/5/2020#, #1/6/2020#, vbMonday) => Long 1
DateDiff("h", #1:59:00#, #2:00:00#) => Long 1
DateDiff("h", #1:00:00#, #1:59:00#) => Long 0
DateDiff("n", #1:59:59#, #2:00:00#) => Long 1
DateDiff("s", #1:59:59#, #2:00:00#) => Long 1
DateDiff("s", #1/1/2020#, #1/2/2020#) => Long 86400
DateDiff("s", #1/1/1900#, #1/1/2020#) !! 6
DateDiff("d", #1/5/2020#, #1/1/2020#) => Long -4
DateDiff("h", #12/29/1899 6:00:00 PM#, #12/30/1899 6:00:00 AM#) => Long 12
DateDiff("x", #1/1/2020#, #1/1/2020#) !! 5
DateDiff("d", Null, #1/1/2020#) => Null
DateDiff("d", #1/1/2020#, Null) => Null
DateDiff("d", "abc", #1/1/2020#) !! 13
DateDiff("d", #1/1/2020#, #1/1/2020#, 8) !! 5
DateDiff("d", #1/1/2020#, #1/1/2020#, 1, 4) !! 5
DateDiff("d", "1/1/2020", "1/5/2020") => Long 4
)t");
}

TEST_F(RuntimeDatesTest, DatePartCountsWeeksByItsRule) {
  CheckTable(context, R"t(
DatePart("yyyy", #5/1/2020#) => Integer 2020
DatePart("q", #5/1/2020#) => Integer 2
DatePart("m", #5/1/2020#) => Integer 5
DatePart("y", #12/31/2020#) => Integer 366
DatePart("d", #5/17/2020#) => Integer 17
DatePart("w", #1/2/2020#) => Integer 5
DatePart("w", #1/2/2020#, 2) => Integer 4
DatePart("h", #3:04:05 PM#) => Integer 15
DatePart("n", #3:04:05 PM#) => Integer 4
DatePart("s", #3:04:05 PM#) => Integer 5
DatePart("ww", #1/1/2021#) => Integer 1
DatePart("ww", #1/2/2021#) => Integer 1
DatePart("ww", #1/3/2021#) => Integer 2
DatePart("ww", #1/1/2021#, 2, 2) => Integer 53
DatePart("ww", #1/4/2021#, 2, 2) => Integer 1
DatePart("ww", #12/31/2018#, 2, 2) => Integer 1
DatePart("ww", #12/31/2020#) => Integer 53
DatePart("ww", #1/1/2021#, 2, 3) => Integer 52
DatePart("ww", #1/4/2021#, 2, 3) => Integer 1
DatePart("x", #1/1/2020#) !! 5
DatePart("d", Null) => Null
DatePart("d", "abc") !! 13
DatePart("d", #1/1/2020#, 9) !! 5
DatePart("d", #1/1/2020#, 1, 4) !! 5
DatePart(Null, #1/1/2020#) !! 94
)t");
}

TEST_F(RuntimeDatesTest, TheClockIsThePlatforms) {
  CheckTable(context, R"t(
Now() => Date 1/2/2020 6:00:00 PM
Date() => Date 1/2/2020
Time() => Date 6:00:00 PM
Timer() => Single 64800
)t");
  machine.now = 43832.5 + 1.5 / 86400;
  EXPECT_EQ(Outcome(context, "Timer()"), "=> Single 43201.5");
}

TEST(LocalNowTest, WithoutAPlatformItIsTheSystemsTime) {
  ASSERT_EQ(InstalledPlatform(), nullptr);
  TestContext context;
  const Variant now = Evaluate(context, "Now()");
  ASSERT_TRUE(now.Is(VarType::kDate));
  EXPECT_GT(now.real(), 45000);
  EXPECT_TRUE(IsDateNumber(now.real()));
  EXPECT_EQ(Outcome(context, "MsgBox(\"a\")"), "!! 70");
}

}  // namespace
}  // namespace kestrun::vbs
