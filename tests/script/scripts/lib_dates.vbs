'---- Dates as texts
WScript.Echo CDate("1/2/2020"), CDate("2020-01-02 15:04:05"), CDate("3 PM") '=> 1/2/2020 1/2/2020 3:04:05 PM 3:00:00 PM
WScript.Echo #1/2/2020#, #3:04:05 PM#, #1/2/2020 3:04:05 PM# '=> 1/2/2020 3:04:05 PM 1/2/2020 3:04:05 PM
WScript.Echo "On " & #12/31/1999# & " at " & #11:59:59 PM# '=> On 12/31/1999 at 11:59:59 PM
'---- Parts
Dim d
d = #2/29/2020 13:14:15#
WScript.Echo Year(d), Month(d), Day(d), Hour(d), Minute(d), Second(d) '=> 2020 2 29 13 14 15
WScript.Echo Weekday(d), Weekday(d, vbMonday), WeekdayName(Weekday(d)), WeekdayName(1, True, vbMonday) '=> 7 6 Saturday Mon
WScript.Echo MonthName(2), MonthName(2, True), TypeName(Year(d)) '=> February Feb Integer
'---- Arithmetic
WScript.Echo #1/31/2020# + 1, #1/1/2020# - 1, #1/2/2020# - #1/1/2020# '=> 2/1/2020 12/31/2019 1
WScript.Echo TypeName(#1/1/2020# + 1), TypeName(#1/2/2020# - #1/1/2020#), TypeName(#1/1/2020# * 1) '=> Date Double Double
WScript.Echo #1/1/2020# > #12/31/2019#, #1/1/2020# = CDate("2020-01-01"), CDbl(#1/1/1900#) '=> True True 2
WScript.Echo CDbl(#12/29/1899 6:00:00 AM#), CDate(-1.25) '=> -1.25 12/29/1899 6:00:00 AM
'---- Intervals
WScript.Echo DateAdd("m", 1, #1/31/2020#), DateAdd("yyyy", 1, #2/29/2020#), DateAdd("h", -1, #1/1/2020#) '=> 2/29/2020 2/28/2021 12/31/2019 11:00:00 PM
WScript.Echo DateDiff("d", #1/1/2020#, #12/31/2020#), DateDiff("yyyy", #12/31/2019#, #1/1/2020#), DateDiff("ww", #1/1/2020#, #1/31/2020#) '=> 365 1 4
WScript.Echo DatePart("q", #8/1/2020#), DatePart("y", #12/31/2020#), DatePart("ww", #1/1/2021#, vbMonday, vbFirstFourDays) '=> 3 366 53
WScript.Echo DateSerial(2020, 14, 0), DateSerial(30, 1, 1), TimeSerial(12, 90, 0) '=> 1/31/2021 1/1/1930 1:30:00 PM
WScript.Echo DateValue("1/2/2020 3:04"), TimeValue("1/2/2020 3:04") '=> 1/2/2020 3:04:00 AM
WScript.Echo IsDate("1/2/2020"), IsDate("2/30/2020"), IsDate("hello"), IsDate(Null) '=> True False False False
'---- Formats
WScript.Echo FormatDateTime(#1/2/2020 15:04:05#), FormatDateTime(#1/2/2020#, vbLongDate) '=> 1/2/2020 3:04:05 PM Thursday, January 2, 2020
WScript.Echo FormatDateTime(#1/2/2020 15:04:05#, vbShortDate), FormatDateTime(#15:04:05#, vbLongTime), FormatDateTime(#15:04:05#, vbShortTime) '=> 1/2/2020 3:04:05 PM 15:04
'---- The clock
Dim before
before = Now
WScript.Echo TypeName(Now), TypeName(Date), TypeName(Time), TypeName(Timer) '=> Date Date Date Single
WScript.Echo Now >= before, Date <= Now, Time < 1, Timer >= 0, Timer < 86401, Int(Date) = Date '=> True True True True True True
'---- An interval that there is not
x = DateAdd("x", 1, Date) '!! 5
'---- A day that there is not
x = CDate("2/30/2020 5:00 XM") '!! 13
'---- A year that there is not
x = DateSerial(10000, 1, 1) '!! 5
'---- A month that there is not
x = MonthName(13) '!! 5
'---- A weekday that there is not
x = WeekdayName(0) '!! 5
'---- A form that there is not
x = FormatDateTime(Date, 5) '!! 5
'---- A date beyond the calendar
x = #12/31/9999# + 1 '!! 6
