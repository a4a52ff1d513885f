// Work that takes long on large values: what the time limit's test and its measurement go through.
#pragma once

#include <algorithm>
#include <iterator>
#include <string>
#include <string_view>
#include <vector>

namespace kestrun::vbs {

// A script that makes large values by name, and objects to apply things to. Texts have so many units, lists a fraction
// of that in elements.
inline std::string LargeValues(size_t units) {
  const std::string size = std::to_string(units);
  return "Class Plain\nPublic Default Property Get P\nP = s\nEnd Property\nEnd Class\n"
         "Dim s, u, blanks, digits, list, list2, d, re, o, hits, fixed(32767)\n"
         "s = String(" +
         size + ", \"x\")\nu = Left(s, " + std::to_string(units - 1) + ") & \"y\"\nblanks = Space(" + size +
         ")\ndigits = String(" + size + ", \"0\") & \"1\"\nReDim list(" + std::to_string(units / 8 - 1) +
         ")\nlist(0) = 1\nReDim list2(" + std::to_string(units / 32 - 1) +
         ")\nlist2(5) = s\nSet d = CreateObject(\"Scripting.Dictionary\")\n"
         "For i = 1 To 20000 : d(i) = i : Next\nSet re = New RegExp\nre.Global = True\nSet o = New Plain\n"
         "Sub ByVal1(ByVal a)\na(1) = 2\nEnd Sub\n";
}

// A call whose argument at `place` is long. Those that are left out take no longer for a long one.
struct LongCall {
  std::string_view name;
  std::vector<std::string_view> arguments;
};

inline const LongCall kTextCalls[] = {
    {"Escape", {"s"}},
    {"Filter", {"list2", "\"y\""}},
    {"Filter", {"list2", "u"}},
    {"InStr", {"s", "\"y\""}},
    {"InStr", {"digits", "s", "\"x\""}},
    {"InStr", {"1", "s", "\"y\"", "1"}},
    {"InStr", {"s", "u"}},
    {"InStrB", {"s", "\"y\""}},
    {"InStrRev", {"s", "\"y\""}},
    {"InStrRev", {"s", "\"Y\"", "-1", "1"}},
    {"Join", {"list2"}},
    {"Join", {"Array(1, 2, 3, 4)", "s"}},
    {"LCase", {"s"}},
    {"UCase", {"s"}},
    {"Left", {"s", "200000"}},
    {"LeftB", {"s", "200000"}},
    {"Right", {"s", "200000"}},
    {"RightB", {"s", "200000"}},
    {"Mid", {"s", "2"}},
    {"MidB", {"s", "3"}},
    {"Mid", {"s", "digits", "1"}},
    {"LTrim", {"blanks"}},
    {"RTrim", {"blanks"}},
    {"Trim", {"blanks"}},
    {"AscB", {"s"}},
    {"Replace", {"s", "\"x\"", "\"z\""}},
    {"Replace", {"s", "\"y\"", "\"z\""}},
    {"Replace", {"s", "\"\"", "\"z\""}},
    {"Replace", {"\"aaaa\"", "\"a\"", "s"}},
    {"Split", {"s", "\"x\""}},
    {"Split", {"s", "\"y\""}},
    {"StrComp", {"s", "u"}},
    {"StrComp", {"s", "u", "1"}},
    {"StrReverse", {"s"}},
    {"String", {"262144", "\"x\""}},
    {"Space", {"262144"}},
    {"Unescape", {"s"}},
};

// The functions above, and those that take no long text or no longer for one.
inline bool IsTextFunction(std::string_view name) {
  constexpr std::string_view kShort[] = {"Array",
                                         "Asc",
                                         "AscW",
                                         "CStr",
                                         "Date",
                                         "GetLocale",
                                         "IsArray",
                                         "IsEmpty",
                                         "IsNull",
                                         "IsObject",
                                         "LBound",
                                         "Len",
                                         "LenB",
                                         "LoadPicture",
                                         "Now",
                                         "Randomize",  // a statement, tried below
                                         "ScriptEngine",
                                         "ScriptEngineBuildVersion",
                                         "ScriptEngineMajorVersion",
                                         "ScriptEngineMinorVersion",
                                         "Time",
                                         "Timer",
                                         "TypeName",
                                         "UBound",
                                         "VarType"};
  const auto same = [name](std::string_view each) { return each == name; };
  return std::any_of(std::begin(kShort), std::end(kShort), same) ||
         std::any_of(std::begin(kTextCalls), std::end(kTextCalls),
                     [&](const LongCall& each) { return same(each.name); });
}

inline std::string CallText(std::string_view name, const std::vector<std::string_view>& arguments) {
  std::string text = "x = " + std::string(name) + "(";
  for (size_t at = 0; at < arguments.size(); ++at) text += (at ? ", " : "") + std::string(arguments[at]);
  return text + ")";
}

inline constexpr std::string_view kOperatorStatements[] = {
    "x = s & u",
    "x = s & 1",
    "x = 1 & s",
    "x = s + u",
    "x = Null & s",
    "x = s : x = x & u",
    "x = s = u",
    "x = s <> u",
    "x = s < u",
    "x = s >= u",
    "If s = u Then y=1",
    "If s < u Then y=1",
    "x = digits + 1",
    "x = digits - 1",
    "x = 2 * digits",
    "x = digits / 2",
    "x = digits \\ 2",
    "x = digits Mod 2",
    "x = digits ^ 2",
    "x = -digits",
    "x = Not digits",
    "x = digits And 1",
    "x = 1 Or digits",
    "x = digits Xor 1",
    "x = digits Eqv 1",
    "x = digits Imp 1",
    "x = digits = 1",
    "x = digits < 5",
    "If digits Then y = 1",
    "x = o & 1",
    "x = o = u",
    "x = o + 1",
    "x = list(digits)",
    "list(digits) = 1",
    "For j = 1 To digits Step 2 : Next",
    "Select Case s\nCase u\nEnd Select",
    "Do While s = u\nLoop",
};

inline constexpr std::string_view kArrayStatements[] = {
    "b = list : b(1) = 2",
    "b = list : ReDim Preserve b(5)",
    "ReDim b(32767)",
    "ReDim b(31,31,31)",
    "Erase fixed",
    "b = list : b(1) = list",
    "ByVal1 list",
    "x = d.Keys",
    "x = d.Items",
    "For Each k In d : Exit For : Next",
    "d(s) = 1",
    "x = d.Exists(s)",
    "d.Add s & turn, 1",
};

inline constexpr std::string_view kPatternStatements[] = {
    "re.Pattern = \"y\" : x = re.Test(s)",
    "re.Pattern = \"x\" : Set hits = re.Execute(s)",
    "re.Pattern = \"x\" : x = re.Replace(s, \"z\")",
    "re.Pattern = \"y\" : x = re.Replace(s, \"z\")",
    "re.Pattern = s : x = re.Test(\"x\")",
    "re.Pattern = \"(x+x+)+y\" : x = re.Test(s)",
    "re.Pattern = \"x*\" : x = re.Execute(s)(0).Value",
};

inline constexpr std::string_view kCodeStatements[] = {
    "Execute \"'\" & s",     "ExecuteGlobal \"z = 1 '\" & s",
    "x = Eval(\"1 '\" & s)", "Execute s",
    "Execute blanks",        "Execute Replace(Left(s, 60000), \"x\", \"z=1:\")",
};

}  // namespace kestrun::vbs
