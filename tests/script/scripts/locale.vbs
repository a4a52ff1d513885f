'---- German numbers, truth values and dates
SetLocale 1031
WScript.Echo CStr(1.5), CStr(CCur(2.25)), 1000 & "", CStr(True), "" & False '=> 1,5 2,25 1000 Wahr Falsch
WScript.Echo CDbl("1,5") * 2, CDbl("1.234,5") = 1234.5, IsNumeric("1,5"), CBool("Wahr"), CBool("True") '=> 3 True True True True
WScript.Echo CStr(#1/2/2020 15:04:05#), CStr(#1/2/2020#), CStr(#3:04#) '=> 02.01.2020 15:04:05 02.01.2020 03:04:00
WScript.Echo CDate("02.01.2020") = #1/2/2020#, CDate("2. Januar 2020") = #1/2/2020#, CDate("2.1.2020 15:04") = #1/2/2020 15:04:00# '=> True True True
WScript.Echo IsDate("31.12.2020"), IsDate("32.12.2020"), Month("3. Mai 2021") '=> True False 5
'---- German formats
SetLocale "de-de"
WScript.Echo FormatNumber(1234567.891), FormatNumber(-0.5, 1), FormatPercent(0.1235) '=> 1.234.567,89 -0,5 12,35%
WScript.Echo FormatCurrency(-1234.5), FormatCurrency(-1, 2, , True) '=> -1.234,50 € (1,00 €)
WScript.Echo FormatDateTime(#1/2/2020 15:04:05#), FormatDateTime(#1/2/2020#, 1), FormatDateTime(#1/2/2020#, 2) '=> 02.01.2020 15:04:05 Donnerstag, 2. Januar 2020 02.01.2020
WScript.Echo FormatDateTime(#15:04:05#, 3), FormatDateTime(#15:04:05#, 4) '=> 15:04:05 15:04
WScript.Echo MonthName(3), MonthName(10, True), WeekdayName(1), WeekdayName(1, True, 0), Weekday(#1/6/2020#, 0) '=> März Okt Sonntag Mo 1
'---- French
SetLocale 1036
WScript.Echo CStr(1.5), CStr(True), CDbl("2,5") = 2.5, CStr(#1/2/2020 15:04:05#) '=> 1,5 Vrai True 02/01/2020 15:04:05
WScript.Echo CDate("2 février 2020") = #2/2/2020#, CDate("5/1/2020") = #1/5/2020#, MonthName(2, True), WeekdayName(2) '=> True True févr. lundi
WScript.Echo Replace(FormatNumber(1234.5), ChrW(160), "_"), Replace(FormatCurrency(1234.5), ChrW(160), "_") '=> 1_234,50 1_234,50 €
WScript.Echo FormatDateTime(#1/2/2020#, 1) '=> jeudi 2 janvier 2020
'---- British
SetLocale 2057
WScript.Echo CStr(1.5), CStr(#1/2/2020 15:04:05#), CDate("5/1/2020") = #1/5/2020#, CDate("25/12/2020") = #12/25/2020# '=> 1.5 02/01/2020 15:04:05 True True
WScript.Echo FormatCurrency(1234.5), FormatCurrency(-1234.5), FormatDateTime(#1/2/2020#, 1) '=> £1,234.50 -£1,234.50 02 January 2020
'---- American
SetLocale 1033
WScript.Echo CStr(1.5), CStr(#1/2/2020 15:04:05#), FormatCurrency(-1234.5), CDate("1/5/2020") = #1/5/2020# '=> 1.5 1/2/2020 3:04:05 PM ($1,234.50) True
'---- Literals of the source do not change with the locale
SetLocale 1031
WScript.Echo 1.5 + 1 = 2.5, #3/4/2020# = DateSerial(2020, 3, 4), Eval("1.5 = 3 / 2") '=> True True True
WScript.Echo Eval("#3/4/2020#") = DateSerial(2020, 3, 4) '=> True
'---- Parentheses enclose the per cent sign
WScript.Echo FormatPercent(-0.5, 2, , True), FormatPercent(-0.5), FormatPercent(0.5, 0, , True) '=> (50.00%) -50.00% 50%
