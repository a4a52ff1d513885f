'---- Numbers and their types
WScript.Echo Abs(-3), TypeName(Abs(-3)), Abs(-2.5), Sgn(-9), Sgn(0), Sgn(4) '=> 3 Integer 2.5 -1 0 1
WScript.Echo Int(2.7), Int(-2.7), Fix(-2.7), TypeName(Int(2.7)), TypeName(Int(2)) '=> 2 -3 -2 Double Integer
WScript.Echo Round(2.5), Round(3.5), Round(-2.5), Round(1.2345, 2), TypeName(Round(5)) '=> 2 4 -2 1.23 Integer
WScript.Echo Sqr(16), Exp(0), Log(1), Sin(0), Cos(0), Tan(0), Atn(0) '=> 4 1 0 0 1 0 0
WScript.Echo Hex(-1), Hex(CLng(-1)), Oct(-1), Hex(65535), Hex(15.5) '=> FFFF FFFFFFFF 177777 FFFF 10
WScript.Echo RGB(255, 128, 0), RGB(999, 0, 0), TypeName(RGB(0, 0, 0)) '=> 33023 255 Long
'---- The first draws are always the same
WScript.Echo Rnd, Rnd(), Rnd(1) '=> 0.7055475 0.533424 0.5795186
WScript.Echo Rnd(0), Rnd(-1), Rnd(-1) '=> 0.5795186 0.224007 0.224007
'---- Randomize with a number after a negative draw
Dim first
Rnd -1
Randomize 42
first = Rnd
Rnd -1
Randomize 42
WScript.Echo first = Rnd, first >= 0, first < 1, TypeName(first) '=> True True True Single
'---- Randomize by the clock
Randomize
x = Rnd
WScript.Echo x >= 0 And x < 1 '=> True
'---- Conversions
WScript.Echo CInt(2.5), CInt(3.5), CInt("7"), CInt(True), CInt(Empty) '=> 2 4 7 -1 0
WScript.Echo CLng("12,345"), CLng(1e5), CDbl("1.5e3"), CSng("0.1"), CByte(255), CCur("1.23456") '=> 12345 100000 1500 0.1 255 1.2346
WScript.Echo CBool(1), CBool("False"), CBool(0.1), CStr(1e15), CStr(0.00001), CStr(1/3) '=> True False True 1E+15 1E-05 0.333333333333333
WScript.Echo CDbl("$1,234.50"), CDbl("(5)"), CDbl("5-"), CDbl("&HFF"), CLng("&O17") '=> 1234.5 -5 -5 255 15
WScript.Echo TypeName(CInt(1)), TypeName(CLng(1)), TypeName(CSng(1)), TypeName(CDbl(1)), TypeName(CByte(1)) '=> Integer Long Single Double Byte
WScript.Echo TypeName(CCur(1)), TypeName(CDate(1)), TypeName(CStr(1)), TypeName(CBool(1)) '=> Currency Date String Boolean
WScript.Echo IsNumeric("12"), IsNumeric("1d2"), IsNumeric("12x"), IsNumeric(""), IsNumeric(Empty), IsNumeric(Null) '=> True True False False True False
'---- A text that is no number
x = CInt("a") '!! 13
'---- An Integer holds 16 bits
x = CInt(40000) '!! 6
'---- A Byte holds 8 bits
x = CByte(-1) '!! 6
'---- A Long holds 32 bits
x = CLng(3000000000) '!! 6
'---- Null is no number
x = CDbl(Null) '!! 94
'---- Nothing is no number
x = CDbl(Nothing) '!! 91
'---- An array is no number
x = CDbl(Array(1)) '!! 13
'---- A root of a negative number
x = Sqr(-1) '!! 5
'---- A logarithm of zero
x = Log(0) '!! 5
'---- An exponential that is too large
x = Exp(1000) '!! 6
'---- Digits below zero
x = Round(1.5, -1) '!! 5
'---- A colour part below zero
x = RGB(-1, 0, 0) '!! 5
'---- Formats
WScript.Echo FormatNumber(1234.5), FormatNumber(-1234.567, 1), FormatNumber(0.5, 2, vbFalse) '=> 1,234.50 -1,234.6 .50
WScript.Echo FormatNumber(-5, 0, vbTrue, vbTrue), FormatNumber(1234, 0, , , vbFalse) '=> (5) 1234
WScript.Echo FormatCurrency(1234.5), FormatCurrency(-2), FormatPercent(0.256), FormatPercent(2, 0) '=> $1,234.50 ($2.00) 25.60% 200%
'---- A format of what is no number
x = FormatNumber("abc") '!! 13
'---- A format with too many digits
x = FormatNumber(1, 300) '!! 5
'---- Zeros in front of a number
WScript.Echo CDbl("000.5"), CDbl("-0012"), CLng("0"), CDbl("00,012.50"), CDbl("0e5"), CDbl(" 007 ") '=> 0.5 -12 0 12.5 0 7
WScript.Echo IsNumeric("0."), IsNumeric("."), IsNumeric("00"), IsNumeric("0x") '=> True False True False
