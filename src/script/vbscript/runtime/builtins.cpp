#include "script/vbscript/runtime/builtins.h"

#include <algorithm>
#include <array>

#include "base/text.h"
#include "script/vbscript/runtime/functions.h"

namespace kestrun::vbs {
namespace {

// Sorted by name. The rule that each follows stands above its definition.
constexpr std::array kBuiltins{
    Builtin{"Abs", 1, 1, Abs},
    Builtin{"Array", 0, kAnyArgumentCount, MakeArray, kEvery},
    Builtin{"Asc", 1, 1, Asc, kFirst},
    Builtin{"AscB", 1, 1, AscB, kFirst},
    Builtin{"AscW", 1, 1, AscW, kFirst},
    Builtin{"Atn", 1, 1, Atn},
    Builtin{"CBool", 1, 1, CBool},
    Builtin{"CByte", 1, 1, CByte},
    Builtin{"CCur", 1, 1, CCur},
    Builtin{"CDate", 1, 1, CDate},
    Builtin{"CDbl", 1, 1, CDbl},
    Builtin{"Chr", 1, 1, Chr},
    Builtin{"ChrB", 1, 1, ChrB},
    Builtin{"ChrW", 1, 1, ChrW},
    Builtin{"CInt", 1, 1, CInt},
    Builtin{"CLng", 1, 1, CLng},
    Builtin{"Cos", 1, 1, Cos},
    Builtin{"CreateObject", 1, 2, CreateObject},
    Builtin{"CSng", 1, 1, CSng},
    Builtin{"CStr", 1, 1, CStr, kFirst},
    Builtin{"Date", 0, 0, Today},
    Builtin{"DateAdd", 3, 3, DateAdd},
    Builtin{"DateDiff", 3, 5, DateDiff},
    Builtin{"DatePart", 2, 4, DatePart},
    Builtin{"DateSerial", 3, 3, DateSerial},
    Builtin{"DateValue", 1, 1, DateValue},
    Builtin{"Day", 1, 1, Day},
    Builtin{"Escape", 1, 1, Escape, kFirst},
    Builtin{"Exp", 1, 1, Exp},
    Builtin{"Filter", 2, 4, Filter, kFirst | kSecond},
    Builtin{"Fix", 1, 1, Fix},
    Builtin{"FormatCurrency", 1, 5, FormatCurrency},
    Builtin{"FormatDateTime", 1, 2, FormatDateTime},
    Builtin{"FormatNumber", 1, 5, FormatNumber},
    Builtin{"FormatPercent", 1, 5, FormatPercent},
    Builtin{"GetLocale", 0, 0, GetLocale},
    Builtin{"GetObject", 0, 2, GetObject},
    Builtin{"Hex", 1, 1, Hex},
    Builtin{"Hour", 1, 1, Hour},
    Builtin{"InputBox", 1, 7, InputBox},
    Builtin{"InStr", 2, 4, InStr, kFirst | kSecond | kThird},
    Builtin{"InStrB", 2, 4, InStrB, kFirst | kSecond | kThird},
    Builtin{"InStrRev", 2, 4, InStrRev, kFirst | kSecond},
    Builtin{"Int", 1, 1, Int},
    Builtin{"IsArray", 1, 1, IsArray, kFirst},
    Builtin{"IsDate", 1, 1, IsDate},
    Builtin{"IsEmpty", 1, 1, IsEmpty, kFirst},
    Builtin{"IsNull", 1, 1, IsNull, kFirst},
    Builtin{"IsNumeric", 1, 1, IsNumber},
    Builtin{"IsObject", 1, 1, IsObject, kFirst},
    Builtin{"Join", 1, 2, Join, kFirst | kSecond},
    Builtin{"LBound", 1, 2, LBound, kFirst},
    Builtin{"LCase", 1, 1, LCase, kFirst},
    Builtin{"Left", 2, 2, Left, kFirst},
    Builtin{"LeftB", 2, 2, LeftB, kFirst},
    Builtin{"Len", 1, 1, Len, kFirst},
    Builtin{"LenB", 1, 1, LenB, kFirst},
    Builtin{"LoadPicture", 0, 1, LoadPicture},
    Builtin{"Log", 1, 1, Log},
    Builtin{"LTrim", 1, 1, LTrim, kFirst},
    Builtin{"Mid", 2, 3, Mid, kFirst},
    Builtin{"MidB", 2, 3, MidB, kFirst},
    Builtin{"Minute", 1, 1, Minute},
    Builtin{"Month", 1, 1, Month},
    Builtin{"MonthName", 1, 2, MonthName},
    Builtin{"MsgBox", 1, 5, MessageBoxFunction},
    Builtin{"Now", 0, 0, Now},
    Builtin{"Oct", 1, 1, Oct},
    Builtin{"Randomize", 0, 1, Randomize},
    Builtin{"Replace", 3, 6, Replace, kFirst | kSecond | kThird},
    Builtin{"RGB", 3, 3, Rgb},
    Builtin{"Right", 2, 2, Right, kFirst},
    Builtin{"RightB", 2, 2, RightB, kFirst},
    Builtin{"Rnd", 0, 1, Rnd},
    Builtin{"Round", 1, 2, Round},
    Builtin{"RTrim", 1, 1, RTrim, kFirst},
    Builtin{"ScriptEngine", 0, 0, ScriptEngineName},
    Builtin{"ScriptEngineBuildVersion", 0, 0, ScriptEngineBuildVersion},
    Builtin{"ScriptEngineMajorVersion", 0, 0, ScriptEngineMajorVersion},
    Builtin{"ScriptEngineMinorVersion", 0, 0, ScriptEngineMinorVersion},
    Builtin{"Second", 1, 1, Second},
    Builtin{"SetLocale", 0, 1, SetLocale},
    Builtin{"Sgn", 1, 1, Sgn},
    Builtin{"Sin", 1, 1, Sin},
    Builtin{"Space", 1, 1, Space},
    Builtin{"Split", 1, 4, SplitText, kFirst | kSecond},
    Builtin{"Sqr", 1, 1, Sqr},
    Builtin{"StrComp", 2, 3, StrComp, kFirst | kSecond},
    Builtin{"String", 2, 2, RepeatCharacter, kSecond},
    Builtin{"StrReverse", 1, 1, StrReverse, kFirst},
    Builtin{"Tan", 1, 1, Tan},
    Builtin{"Time", 0, 0, TimeOfDay},
    Builtin{"Timer", 0, 0, Timer},
    Builtin{"TimeSerial", 3, 3, TimeSerial},
    Builtin{"TimeValue", 1, 1, TimeValue},
    Builtin{"Trim", 1, 1, Trim, kFirst},
    Builtin{"TypeName", 1, 1, TypeNameOf, kFirst},
    Builtin{"UBound", 1, 2, UBound, kFirst},
    Builtin{"UCase", 1, 1, UCase, kFirst},
    Builtin{"Unescape", 1, 1, Unescape, kFirst},
    Builtin{"VarType", 1, 1, VarTypeOf, kFirst},
    Builtin{"Weekday", 1, 2, Weekday},
    Builtin{"WeekdayName", 1, 3, WeekdayName},
    Builtin{"Year", 1, 1, Year},
};

}  // namespace

std::span<const Builtin> Builtins() { return kBuiltins; }

const Builtin* FindBuiltin(std::string_view name) {
  const auto* row = std::lower_bound(
      kBuiltins.begin(), kBuiltins.end(), name,
      [](const Builtin& each, std::string_view wanted) { return CompareNoCase(each.name, wanted) < 0; });
  return row != kBuiltins.end() && EqualsNoCase(row->name, name) ? row : nullptr;
}

}  // namespace kestrun::vbs
