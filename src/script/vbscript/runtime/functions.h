// The built-in functions behind the table in builtins.cpp, by the file that defines them. A name that would hide a type
// or clash with a Windows macro differs from the one in the table.
#pragma once

#include "script/vbscript/runtime/builtins.h"

namespace kestrun::vbs {

// numbers.cpp
Variant Abs(RuntimeContext& context, Arguments arguments);
Variant Atn(RuntimeContext& context, Arguments arguments);
Variant Cos(RuntimeContext& context, Arguments arguments);
Variant Exp(RuntimeContext& context, Arguments arguments);
Variant Fix(RuntimeContext& context, Arguments arguments);
Variant Hex(RuntimeContext& context, Arguments arguments);
Variant Int(RuntimeContext& context, Arguments arguments);
Variant Log(RuntimeContext& context, Arguments arguments);
Variant Oct(RuntimeContext& context, Arguments arguments);
Variant Randomize(RuntimeContext& context, Arguments arguments);
Variant Rgb(RuntimeContext& context, Arguments arguments);
Variant Rnd(RuntimeContext& context, Arguments arguments);
Variant Round(RuntimeContext& context, Arguments arguments);
Variant Sgn(RuntimeContext& context, Arguments arguments);
Variant Sin(RuntimeContext& context, Arguments arguments);
Variant Sqr(RuntimeContext& context, Arguments arguments);
Variant Tan(RuntimeContext& context, Arguments arguments);

// types.cpp
Variant CBool(RuntimeContext& context, Arguments arguments);
Variant CByte(RuntimeContext& context, Arguments arguments);
Variant CCur(RuntimeContext& context, Arguments arguments);
Variant CDate(RuntimeContext& context, Arguments arguments);
Variant CDbl(RuntimeContext& context, Arguments arguments);
Variant CInt(RuntimeContext& context, Arguments arguments);
Variant CLng(RuntimeContext& context, Arguments arguments);
Variant CSng(RuntimeContext& context, Arguments arguments);
Variant CStr(RuntimeContext& context, Arguments arguments);
Variant IsArray(RuntimeContext& context, Arguments arguments);
Variant IsDate(RuntimeContext& context, Arguments arguments);
Variant IsEmpty(RuntimeContext& context, Arguments arguments);
Variant IsNull(RuntimeContext& context, Arguments arguments);
Variant IsNumber(RuntimeContext& context, Arguments arguments);
Variant IsObject(RuntimeContext& context, Arguments arguments);
Variant TypeNameOf(RuntimeContext& context, Arguments arguments);
Variant VarTypeOf(RuntimeContext& context, Arguments arguments);

// strings.cpp
Variant Asc(RuntimeContext& context, Arguments arguments);
Variant AscW(RuntimeContext& context, Arguments arguments);
Variant Chr(RuntimeContext& context, Arguments arguments);
Variant ChrW(RuntimeContext& context, Arguments arguments);
Variant InStr(RuntimeContext& context, Arguments arguments);
Variant InStrRev(RuntimeContext& context, Arguments arguments);
Variant LCase(RuntimeContext& context, Arguments arguments);
Variant Left(RuntimeContext& context, Arguments arguments);
Variant Len(RuntimeContext& context, Arguments arguments);
Variant LTrim(RuntimeContext& context, Arguments arguments);
Variant Mid(RuntimeContext& context, Arguments arguments);
Variant Replace(RuntimeContext& context, Arguments arguments);
Variant Right(RuntimeContext& context, Arguments arguments);
Variant RTrim(RuntimeContext& context, Arguments arguments);
Variant Space(RuntimeContext& context, Arguments arguments);
Variant StrComp(RuntimeContext& context, Arguments arguments);
Variant RepeatCharacter(RuntimeContext& context, Arguments arguments);
Variant StrReverse(RuntimeContext& context, Arguments arguments);
Variant Trim(RuntimeContext& context, Arguments arguments);
Variant UCase(RuntimeContext& context, Arguments arguments);

// byte_strings.cpp
Variant AscB(RuntimeContext& context, Arguments arguments);
Variant ChrB(RuntimeContext& context, Arguments arguments);
Variant InStrB(RuntimeContext& context, Arguments arguments);
Variant LeftB(RuntimeContext& context, Arguments arguments);
Variant LenB(RuntimeContext& context, Arguments arguments);
Variant MidB(RuntimeContext& context, Arguments arguments);
Variant RightB(RuntimeContext& context, Arguments arguments);

// escape.cpp
Variant Escape(RuntimeContext& context, Arguments arguments);
Variant Unescape(RuntimeContext& context, Arguments arguments);

// arrays.cpp
Variant MakeArray(RuntimeContext& context, Arguments arguments);
Variant Filter(RuntimeContext& context, Arguments arguments);
Variant Join(RuntimeContext& context, Arguments arguments);
Variant LBound(RuntimeContext& context, Arguments arguments);
Variant SplitText(RuntimeContext& context, Arguments arguments);
Variant UBound(RuntimeContext& context, Arguments arguments);

// dates.cpp
Variant Today(RuntimeContext& context, Arguments arguments);
Variant DateAdd(RuntimeContext& context, Arguments arguments);
Variant DateDiff(RuntimeContext& context, Arguments arguments);
Variant DatePart(RuntimeContext& context, Arguments arguments);
Variant DateSerial(RuntimeContext& context, Arguments arguments);
Variant DateValue(RuntimeContext& context, Arguments arguments);
Variant Day(RuntimeContext& context, Arguments arguments);
Variant Hour(RuntimeContext& context, Arguments arguments);
Variant Minute(RuntimeContext& context, Arguments arguments);
Variant Month(RuntimeContext& context, Arguments arguments);
Variant MonthName(RuntimeContext& context, Arguments arguments);
Variant Now(RuntimeContext& context, Arguments arguments);
Variant Second(RuntimeContext& context, Arguments arguments);
Variant TimeOfDay(RuntimeContext& context, Arguments arguments);
Variant Timer(RuntimeContext& context, Arguments arguments);
Variant TimeSerial(RuntimeContext& context, Arguments arguments);
Variant TimeValue(RuntimeContext& context, Arguments arguments);
Variant Weekday(RuntimeContext& context, Arguments arguments);
Variant WeekdayName(RuntimeContext& context, Arguments arguments);
Variant Year(RuntimeContext& context, Arguments arguments);

// format.cpp
Variant FormatCurrency(RuntimeContext& context, Arguments arguments);
Variant FormatDateTime(RuntimeContext& context, Arguments arguments);
Variant FormatNumber(RuntimeContext& context, Arguments arguments);
Variant FormatPercent(RuntimeContext& context, Arguments arguments);

// dialogs.cpp
Variant InputBox(RuntimeContext& context, Arguments arguments);
Variant MessageBoxFunction(RuntimeContext& context, Arguments arguments);

// host.cpp
Variant CreateObject(RuntimeContext& context, Arguments arguments);
Variant GetLocale(RuntimeContext& context, Arguments arguments);
Variant GetObject(RuntimeContext& context, Arguments arguments);
Variant LoadPicture(RuntimeContext& context, Arguments arguments);
Variant ScriptEngineName(RuntimeContext& context, Arguments arguments);
Variant ScriptEngineBuildVersion(RuntimeContext& context, Arguments arguments);
Variant ScriptEngineMajorVersion(RuntimeContext& context, Arguments arguments);
Variant ScriptEngineMinorVersion(RuntimeContext& context, Arguments arguments);
Variant SetLocale(RuntimeContext& context, Arguments arguments);

}  // namespace kestrun::vbs
