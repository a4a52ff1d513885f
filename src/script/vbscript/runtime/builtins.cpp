#include "script/vbscript/runtime/builtins.h"

#include <algorithm>
#include <array>

#include "base/text.h"
#include "script/vbscript/runtime/conversions.h"
#include "script/vbscript/runtime/functions.h"

namespace kestrun::vbs {
namespace {

using Use = BuiltinUse;
using Function = Variant (*)(RuntimeContext& context, Arguments arguments);

// Functions that work on values get those of their objects' default members.
template <Function kFunction>
Variant OnValues(RuntimeContext& context, Arguments arguments) {
  for (Variant& argument : arguments) {
    if (argument.Is(VarType::kObject)) argument = PlainValue(Variant(argument));
  }
  return kFunction(context, arguments);
}

// Sorted by name. The rule that each follows stands above its definition.
constexpr std::array kBuiltins{
    Builtin{"Abs", 1, 1, OnValues<Abs>},
    Builtin{"Array", 0, kAnyArgumentCount, MakeArray, kEvery},
    Builtin{"Asc", 1, 1, OnValues<Asc>, kFirst},
    Builtin{"AscB", 1, 1, OnValues<AscB>, kFirst},
    Builtin{"AscW", 1, 1, OnValues<AscW>, kFirst},
    Builtin{"Atn", 1, 1, OnValues<Atn>},
    Builtin{"CBool", 1, 1, OnValues<CBool>},
    Builtin{"CByte", 1, 1, OnValues<CByte>, 0, Use::kValue},
    Builtin{"CCur", 1, 1, OnValues<CCur>, 0, Use::kValue},
    Builtin{"CDate", 1, 1, OnValues<CDate>, 0, Use::kValue},
    Builtin{"CDbl", 1, 1, OnValues<CDbl>, 0, Use::kValue},
    Builtin{"Chr", 1, 1, OnValues<Chr>},
    Builtin{"ChrB", 1, 1, OnValues<ChrB>},
    Builtin{"ChrW", 1, 1, OnValues<ChrW>},
    Builtin{"CInt", 1, 1, OnValues<CInt>, 0, Use::kValue},
    Builtin{"CLng", 1, 1, OnValues<CLng>, 0, Use::kValue},
    Builtin{"Cos", 1, 1, OnValues<Cos>},
    Builtin{"CreateObject", 1, 2, OnValues<CreateObject>},
    Builtin{"CSng", 1, 1, OnValues<CSng>, 0, Use::kValue},
    Builtin{"CStr", 1, 1, OnValues<CStr>, kFirst},
    Builtin{"Date", 0, 0, OnValues<Today>},
    Builtin{"DateAdd", 3, 3, OnValues<DateAdd>},
    Builtin{"DateDiff", 3, 5, OnValues<DateDiff>},
    Builtin{"DatePart", 2, 4, OnValues<DatePart>},
    Builtin{"DateSerial", 3, 3, OnValues<DateSerial>},
    Builtin{"DateValue", 1, 1, OnValues<DateValue>},
    Builtin{"Day", 1, 1, OnValues<Day>},
    Builtin{"Escape", 1, 1, OnValues<Escape>, kFirst},
    Builtin{"Exp", 1, 1, OnValues<Exp>},
    Builtin{"Filter", 2, 4, Filter, kFirst | kSecond},
    Builtin{"Fix", 1, 1, OnValues<Fix>},
    Builtin{"FormatCurrency", 1, 5, OnValues<FormatCurrency>},
    Builtin{"FormatDateTime", 1, 2, OnValues<FormatDateTime>},
    Builtin{"FormatNumber", 1, 5, OnValues<FormatNumber>},
    Builtin{"FormatPercent", 1, 5, OnValues<FormatPercent>},
    Builtin{"GetLocale", 0, 0, OnValues<GetLocale>},
    Builtin{"GetObject", 0, 2, OnValues<GetObject>},
    Builtin{"Hex", 1, 1, OnValues<Hex>},
    Builtin{"Hour", 1, 1, OnValues<Hour>},
    Builtin{"InputBox", 1, 7, OnValues<InputBox>},
    Builtin{"InStr", 2, 4, OnValues<InStr>, kFirst | kSecond | kThird},
    Builtin{"InStrB", 2, 4, OnValues<InStrB>, kFirst | kSecond | kThird},
    Builtin{"InStrRev", 2, 4, OnValues<InStrRev>, kFirst | kSecond},
    Builtin{"Int", 1, 1, OnValues<Int>},
    Builtin{"IsArray", 1, 1, IsArray, kFirst},
    Builtin{"IsDate", 1, 1, IsDate},
    Builtin{"IsEmpty", 1, 1, IsEmpty, kFirst},
    Builtin{"IsNull", 1, 1, IsNull, kFirst},
    Builtin{"IsNumeric", 1, 1, IsNumber},
    Builtin{"IsObject", 1, 1, IsObject, kFirst},
    Builtin{"Join", 1, 2, Join, kFirst | kSecond},
    Builtin{"LBound", 1, 2, LBound, kFirst},
    Builtin{"LCase", 1, 1, OnValues<LCase>, kFirst},
    Builtin{"Left", 2, 2, OnValues<Left>, kFirst},
    Builtin{"LeftB", 2, 2, OnValues<LeftB>, kFirst},
    Builtin{"Len", 1, 1, OnValues<Len>, kFirst},
    Builtin{"LenB", 1, 1, OnValues<LenB>, kFirst},
    Builtin{"LoadPicture", 0, 1, OnValues<LoadPicture>},
    Builtin{"Log", 1, 1, OnValues<Log>},
    Builtin{"LTrim", 1, 1, OnValues<LTrim>, kFirst},
    Builtin{"Mid", 2, 3, OnValues<Mid>, kFirst},
    Builtin{"MidB", 2, 3, OnValues<MidB>, kFirst},
    Builtin{"Minute", 1, 1, OnValues<Minute>},
    Builtin{"Month", 1, 1, OnValues<Month>},
    Builtin{"MonthName", 1, 2, OnValues<MonthName>},
    Builtin{"MsgBox", 1, 5, OnValues<MessageBoxFunction>},
    Builtin{"Now", 0, 0, OnValues<Now>},
    Builtin{"Oct", 1, 1, OnValues<Oct>},
    Builtin{"Randomize", 0, 1, OnValues<Randomize>, 0, Use::kStatement},
    Builtin{"Replace", 3, 6, OnValues<Replace>, kFirst | kSecond | kThird},
    Builtin{"RGB", 3, 3, OnValues<Rgb>},
    Builtin{"Right", 2, 2, OnValues<Right>, kFirst},
    Builtin{"RightB", 2, 2, OnValues<RightB>, kFirst},
    Builtin{"Rnd", 0, 1, OnValues<Rnd>},
    Builtin{"Round", 1, 2, OnValues<Round>},
    Builtin{"RTrim", 1, 1, OnValues<RTrim>, kFirst},
    Builtin{"ScriptEngine", 0, 0, OnValues<ScriptEngineName>},
    Builtin{"ScriptEngineBuildVersion", 0, 0, OnValues<ScriptEngineBuildVersion>},
    Builtin{"ScriptEngineMajorVersion", 0, 0, OnValues<ScriptEngineMajorVersion>},
    Builtin{"ScriptEngineMinorVersion", 0, 0, OnValues<ScriptEngineMinorVersion>},
    Builtin{"Second", 1, 1, OnValues<Second>},
    Builtin{"SetLocale", 0, 1, OnValues<SetLocale>},
    Builtin{"Sgn", 1, 1, OnValues<Sgn>},
    Builtin{"Sin", 1, 1, OnValues<Sin>},
    Builtin{"Space", 1, 1, OnValues<Space>},
    Builtin{"Split", 1, 4, OnValues<SplitText>, kFirst | kSecond},
    Builtin{"Sqr", 1, 1, OnValues<Sqr>},
    Builtin{"StrComp", 2, 3, OnValues<StrComp>, kFirst | kSecond},
    Builtin{"String", 2, 2, OnValues<RepeatCharacter>, kSecond},
    Builtin{"StrReverse", 1, 1, OnValues<StrReverse>, kFirst},
    Builtin{"Tan", 1, 1, OnValues<Tan>},
    Builtin{"Time", 0, 0, OnValues<TimeOfDay>},
    Builtin{"Timer", 0, 0, OnValues<Timer>},
    Builtin{"TimeSerial", 3, 3, OnValues<TimeSerial>},
    Builtin{"TimeValue", 1, 1, OnValues<TimeValue>},
    Builtin{"Trim", 1, 1, OnValues<Trim>, kFirst},
    Builtin{"TypeName", 1, 1, TypeNameOf, kFirst},
    Builtin{"UBound", 1, 2, UBound, kFirst},
    Builtin{"UCase", 1, 1, OnValues<UCase>, kFirst},
    Builtin{"Unescape", 1, 1, OnValues<Unescape>, kFirst},
    Builtin{"VarType", 1, 1, VarTypeOf, kFirst},
    Builtin{"Weekday", 1, 2, OnValues<Weekday>},
    Builtin{"WeekdayName", 1, 3, OnValues<WeekdayName>},
    Builtin{"Year", 1, 1, OnValues<Year>},
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
