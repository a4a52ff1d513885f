// What a script does is charged by its size, so that the time limit is looked at whatever it does. The clock here goes
// on by one millisecond whenever it is read, so that the number of readings is what is tested: a loop over large values
// that was charged by the turn only would come to its end before the clock has been read often enough.
#include <gtest/gtest.h>

#include "script/vbscript/engine/engine.h"
#include "script/vbscript/runtime/builtins.h"

namespace kestrun::vbs {
namespace {

using Time = std::chrono::steady_clock::time_point;

Time present;

Time ReadClock() { return present += std::chrono::milliseconds(1); }

constexpr int kReadings = 8;
constexpr std::string_view kTurns = "300";

// Large values by name, and objects to apply things to.
constexpr std::string_view kValues =
    "Class Plain\nPublic Default Property Get P\nP = s\nEnd Property\nEnd Class\n"
    "Dim s, u, blanks, digits, list, list2, d, re, o, hits\n"
    "s = String(262144, \"x\")\nu = String(262143, \"x\") & \"y\"\nblanks = Space(262144)\n"
    "digits = String(262144, \"0\") & \"1\"\n"
    "ReDim list(32767)\nlist(0) = 1\nReDim list2(8191)\nlist2(5) = s\n"
    "Set d = CreateObject(\"Scripting.Dictionary\")\nFor i = 1 To 20000 : d(i) = i : Next\n"
    "Set re = New RegExp\nre.Global = True\nSet o = New Plain\n"
    "Sub ByVal1(ByVal a)\na(1) = 2\nEnd Sub\n";

class TimeLimitTest : public testing::Test {
 protected:
  TimeLimitTest() {
    engine_.limits().now = ReadClock;
    EXPECT_EQ(engine_.Report([&] { engine_.Load(engine_.Parse(kValues)); }).number, 0);
    engine_.limits().timeout_ms = kReadings;
  }

  // Runs a statement again and again and gives the number of the error that ended that.
  int Loop(const std::string& statement) {
    const std::string script =
        "On Error Resume Next\nFor turn = 1 To " + std::string(kTurns) + "\n" + statement + "\nNext\n";
    return engine_.Report([&] { engine_.Load(engine_.Parse(script)); }).number;
  }

  void ExpectStopped(std::span<const std::string_view> statements) {
    for (const std::string_view statement : statements) {
      EXPECT_EQ(Loop(std::string(statement)), kTimeLimitNumber) << statement;
    }
  }

  Engine engine_;
};

// A call whose argument at `place` is long. Those that are left out take no longer for a long one.
struct LongCall {
  std::string_view name;
  std::vector<std::string_view> arguments;
};

const LongCall kTextCalls[] = {
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
bool IsTextFunction(std::string_view name) {
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

std::string CallText(std::string_view name, const std::vector<std::string_view>& arguments) {
  std::string text = "x = " + std::string(name) + "(";
  for (size_t at = 0; at < arguments.size(); ++at) text += (at ? ", " : "") + std::string(arguments[at]);
  return text + ")";
}

TEST_F(TimeLimitTest, TextFunctionsAreChargedByTheTextsTheyWorkOn) {
  for (const LongCall& call : kTextCalls) {
    EXPECT_EQ(Loop(CallText(call.name, call.arguments)), kTimeLimitNumber) << CallText(call.name, call.arguments);
  }
}

TEST_F(TimeLimitTest, EveryOtherFunctionIsChargedForALongTextInAnyPlace) {
  for (const Builtin& builtin : Builtins()) {
    if (IsTextFunction(builtin.name)) continue;
    const auto count = static_cast<size_t>(std::min(builtin.most_arguments, 3));
    for (size_t place = 0; place < count; ++place) {
      const size_t given = std::max(place + 1, static_cast<size_t>(builtin.least_arguments));
      std::vector<std::string_view> arguments(given, "1");
      arguments[place] = "digits";
      EXPECT_EQ(Loop(CallText(builtin.name, arguments)), kTimeLimitNumber) << CallText(builtin.name, arguments);
    }
  }
}

TEST_F(TimeLimitTest, RandomizeIsChargedByTheTextOfItsSeed) { EXPECT_EQ(Loop("Randomize digits"), kTimeLimitNumber); }

TEST_F(TimeLimitTest, OperatorsAreChargedByTheirTexts) {
  constexpr std::string_view kStatements[] = {
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
  ExpectStopped(kStatements);
}

TEST_F(TimeLimitTest, ArraysAndCollectionsAreChargedByTheirElements) {
  constexpr std::string_view kStatements[] = {
      "b = list : b(1) = 2",
      "b = list : ReDim Preserve b(5)",
      "ReDim b(32767)",
      "ReDim b(31,31,31)",
      "Dim f(32767) : Erase f",
      "b = list : b(1) = list",
      "ByVal1 list",
      "x = d.Keys",
      "x = d.Items",
      "For Each k In d : Exit For : Next",
      "d(s) = 1",
      "x = d.Exists(s)",
      "d.Add s & turn, 1",
  };
  for (const std::string_view statement : kStatements) {
    std::string loop;
    for (int copy = 0; copy < 6; ++copy) loop += std::string(statement) + "\n";
    if (statement.find("Dim f") != std::string_view::npos) loop = "Erase fixed";
    if (loop == "Erase fixed") continue;
    EXPECT_EQ(Loop(loop), kTimeLimitNumber) << statement;
  }
}

TEST_F(TimeLimitTest, PatternsAreChargedByWhatTheyWalk) {
  constexpr std::string_view kStatements[] = {
      "re.Pattern = \"y\" : x = re.Test(s)",
      "re.Pattern = \"x\" : Set hits = re.Execute(s)",
      "re.Pattern = \"x\" : x = re.Replace(s, \"z\")",
      "re.Pattern = \"y\" : x = re.Replace(s, \"z\")",
      "re.Pattern = s : x = re.Test(\"x\")",
      "re.Pattern = \"(x+x+)+y\" : x = re.Test(s)",
      "re.Pattern = \"x*\" : x = re.Execute(s)(0).Value",
  };
  ExpectStopped(kStatements);
}

TEST_F(TimeLimitTest, CodeIsChargedByItsLength) {
  constexpr std::string_view kStatements[] = {
      "Execute \"'\" & s",     "ExecuteGlobal \"z = 1 '\" & s",
      "x = Eval(\"1 '\" & s)", "Execute s",
      "Execute blanks",        "Execute Replace(Left(s, 60000), \"x\", \"z=1:\")",
  };
  ExpectStopped(kStatements);
}

TEST_F(TimeLimitTest, ALoopThatDoesLittleIsNotStopped) {
  EXPECT_EQ(Loop("x = Len(s) : x = Mid(s, 100, 1) : x = Left(s, 3) : x = TypeName(s) : y = s : x = UBound(list)"), 0);
}

TEST_F(TimeLimitTest, ParsingAModuleIsPartOfTheTime) {
  std::string text;
  for (int line = 0; line < 60000; ++line) text += "x = 1 + 2 * 3 - 4\n";
  const ErrorReport report = engine_.Report([&] { static_cast<void>(engine_.Parse(text)); });
  EXPECT_EQ(report.number, kTimeLimitNumber);
  EXPECT_EQ(report.description, "The script ran longer than its time limit and was stopped");
}

}  // namespace
}  // namespace kestrun::vbs
