#include <set>

#include "base/text.h"
#include "script/runtime_fixture.h"
#include "script/vbscript/runtime/errors.h"

namespace kestrun::vbs {
namespace {

using RuntimeHostTest = RuntimeTest;

TEST_F(RuntimeHostTest, OnlyTheTwoOwnClassesAreCreated) {
  CheckTable(context, R"t(
CreateObject("Scripting.Dictionary") => Object Dictionary
CreateObject("scripting.dictionary") => Object Dictionary
CreateObject("VBScript.RegExp") => Object IRegExp2
CreateObject("RegExp") !! 429
CreateObject("Scripting.FileSystemObject") !! 429
CreateObject("WScript.Shell") !! 429
CreateObject("") !! 429
CreateObject("Scripting.Dictionary", "server") !! 429
CreateObject("Scripting.Dictionary", "") => Object Dictionary
CreateObject(Null) !! 94
GetObject() !! 429
GetObject("winmgmts:") !! 429
GetObject("c:\file", "Word.Document") !! 429
LoadPicture() => Nothing
LoadPicture("") => Nothing
LoadPicture("c:\a.bmp") !! 481
)t");
}

TEST_F(RuntimeHostTest, TheEngineNamesItself) {
  CheckTable(context, R"t(
ScriptEngine() => String VBScript
ScriptEngineMajorVersion() => Long 5
ScriptEngineMinorVersion() => Long 8
ScriptEngineBuildVersion() => Long 16384
)t");
}

TEST_F(RuntimeHostTest, SetLocaleGivesTheOneBefore) {
  CheckTable(context, R"t(
GetLocale() => Long 1033
SetLocale(1031) => Long 1033
GetLocale() => Long 1031
FormatNumber(1234.5) => String 1.234,50
SetLocale("en-GB") => Long 1031
SetLocale("fr-fr") => Long 2057
SetLocale(0) => Long 1036
GetLocale() => Long 1033
SetLocale("1031") => Long 1033
SetLocale() => Long 1031
SetLocale(99999) !! 447
SetLocale("xx-yy") !! 447
SetLocale("") => Long 1033
)t");
}

TEST_F(RuntimeHostTest, MsgBoxAsksThePlatform) {
  machine.box_answer = BoxAnswer::kNo;
  EXPECT_EQ(Outcome(context, R"(MsgBox("Really?", 4 , "Title"))"), "=> Integer 7");
  ASSERT_EQ(machine.messages.size(), 1U);
  EXPECT_EQ(machine.messages[0].text, "Really?");
  EXPECT_EQ(machine.messages[0].title, "Title");
  EXPECT_EQ(machine.messages[0].buttons, BoxButtons::kYesNo);
  EXPECT_EQ(machine.messages[0].icon, BoxIcon::kNone);
  EXPECT_EQ(machine.messages[0].default_button, 1);
}

TEST_F(RuntimeHostTest, MsgBoxTakesButtonsIconAndDefaultApart) {
  EXPECT_EQ(Outcome(context, "MsgBox(5, 826)"), "!! 5") << "10 is no set of buttons";
  EXPECT_EQ(Outcome(context, "MsgBox(5, 563)"), "=> Integer 1");  // 512 + 48 + 3
  EXPECT_EQ(machine.messages[0].text, "5");
  EXPECT_EQ(machine.messages[0].title, "");
  EXPECT_EQ(machine.messages[0].buttons, BoxButtons::kYesNoCancel);
  EXPECT_EQ(machine.messages[0].icon, BoxIcon::kWarning);
  EXPECT_EQ(machine.messages[0].default_button, 3);
  const std::pair<int, BoxIcon> icons[] = {
      {16, BoxIcon::kCritical}, {32, BoxIcon::kQuestion}, {64, BoxIcon::kInformation}};
  for (const auto& [style, icon] : icons) {
    static_cast<void>(Evaluate(context, "MsgBox(1, " + std::to_string(style) + ")"));
    EXPECT_EQ(machine.messages.back().icon, icon);
  }
}

TEST_F(RuntimeHostTest, BoxesAreRefusedUnlessTheHostAllowsThem) {
  context.ui = false;
  CheckTable(context, R"t(
MsgBox("a") !! 70
InputBox("a") !! 70
)t");
  EXPECT_TRUE(machine.messages.empty());
  EXPECT_TRUE(machine.questions.empty());
}

TEST_F(RuntimeHostTest, BoxArgumentsAreChecked) {
  CheckTable(context, R"t(
MsgBox(Null) !! 94
MsgBox("a", 6) !! 5
MsgBox("a", "x") !! 13
MsgBox("a", 0, "t", "help") !! 5
MsgBox("a", 0, "t", "help", 1) => Integer 1
MsgBox("a", , "t") => Integer 1
InputBox(Null) !! 94
InputBox("a", "t", "d", 0, 0, "help") !! 5
)t");
}

TEST_F(RuntimeHostTest, InputBoxGivesTheTextOrEmpty) {
  machine.text_answer = "typed";
  EXPECT_EQ(Outcome(context, R"(InputBox("Name?", "Title", "preset", 100, 100))"), "=> String typed");
  EXPECT_EQ(machine.questions.back(), "Name?|Title|preset");
  machine.text_answer = std::nullopt;
  EXPECT_EQ(Outcome(context, R"(InputBox("Name?"))"), "=> Empty");
  EXPECT_EQ(machine.questions.back(), "Name?||");
}

TEST(BuiltinTableTest, NamesAreSortedAndFoundInAnyCase) {
  const std::span<const Builtin> table = Builtins();
  EXPECT_EQ(table.size(), 104U);
  for (size_t at = 1; at < table.size(); ++at) {
    EXPECT_LT(CompareNoCase(table[at - 1].name, table[at].name), 0) << table[at].name;
  }
  for (const Builtin& row : table) {
    EXPECT_EQ(FindBuiltin(row.name), &row);
    EXPECT_EQ(FindBuiltin(ToUpper(row.name)), &row);
    EXPECT_EQ(FindBuiltin(ToLower(row.name)), &row);
    EXPECT_LE(row.least_arguments, row.most_arguments);
  }
  EXPECT_EQ(FindBuiltin("Nonsense"), nullptr);
  EXPECT_EQ(FindBuiltin(""), nullptr);
}

TEST_F(RuntimeHostTest, ConstantsHaveTheirValuesAndTypes) {
  CheckTable(context, R"t(
vbBlack => Long 0
vbRed => Long 255
vbGreen => Long 65280
vbYellow => Long 65535
vbBlue => Long 16711680
vbMagenta => Long 16711935
vbCyan => Long 16776960
vbWhite => Long 16777215
vbBinaryCompare => Integer 0
vbTextCompare => Integer 1
vbDatabaseCompare => Integer 2
vbSunday => Integer 1
vbSaturday => Integer 7
vbUseSystem => Integer 0
vbUseSystemDayOfWeek => Integer 0
vbFirstJan1 => Integer 1
vbFirstFourDays => Integer 2
vbFirstFullWeek => Integer 3
vbGeneralDate => Integer 0
vbLongDate => Integer 1
vbShortDate => Integer 2
vbLongTime => Integer 3
vbShortTime => Integer 4
vbOKOnly => Integer 0
vbOKCancel => Integer 1
vbAbortRetryIgnore => Integer 2
vbYesNoCancel => Integer 3
vbYesNo => Integer 4
vbRetryCancel => Integer 5
vbCritical => Integer 16
vbQuestion => Integer 32
vbExclamation => Integer 48
vbInformation => Integer 64
vbDefaultButton1 => Integer 0
vbDefaultButton2 => Integer 256
vbDefaultButton3 => Integer 512
vbDefaultButton4 => Integer 768
vbApplicationModal => Integer 0
vbSystemModal => Integer 4096
vbOK => Integer 1
vbCancel => Integer 2
vbAbort => Integer 3
vbRetry => Integer 4
vbIgnore => Integer 5
vbYes => Integer 6
vbNo => Integer 7
vbUseDefault => Integer -2
vbTrue => Integer -1
vbFalse => Integer 0
vbEmpty => Integer 0
vbNull => Integer 1
vbInteger => Integer 2
vbLong => Integer 3
vbSingle => Integer 4
vbDouble => Integer 5
vbCurrency => Integer 6
vbDate => Integer 7
vbString => Integer 8
vbObject => Integer 9
vbError => Integer 10
vbBoolean => Integer 11
vbVariant => Integer 12
vbDataObject => Integer 13
vbDecimal => Integer 14
vbByte => Integer 17
vbArray => Integer 8192
vbObjectError => Long -2147221504
Escape(vbCr) => String %0D
Escape(vbCrLf) => String %0D%0A
Escape(vbNewLine) => String %0D%0A
Escape(vbFormFeed) => String %0C
Escape(vbLf) => String %0A
Escape(vbTab) => String %09
Escape(vbVerticalTab) => String %0B
Escape(vbNullChar) => String %00
vbNullString => String 
)t");
}

TEST(ConstantTableTest, NoNameStandsTwice) {
  std::set<std::string> names;
  for (const Constant& constant : Constants()) {
    EXPECT_TRUE(names.insert(ToLower(constant.name)).second) << constant.name;
    EXPECT_EQ(FindBuiltin(constant.name), nullptr) << constant.name;
  }
}

TEST(ScriptErrorTextTest, EveryNumberHasItsWords) {
  const std::pair<int, std::string_view> texts[] = {
      {5, "Invalid procedure call or argument"},
      {6, "Overflow"},
      {7, "Out of memory"},
      {9, "Subscript out of range"},
      {10, "This array is fixed or temporarily locked"},
      {11, "Division by zero"},
      {13, "Type mismatch"},
      {14, "Out of string space"},
      {17, "Can't perform requested operation"},
      {28, "Out of stack space"},
      {35, "Sub or Function not defined"},
      {48, "Error in loading DLL"},
      {51, "Internal error"},
      {52, "Bad file name or number"},
      {53, "File not found"},
      {54, "Bad file mode"},
      {55, "File already open"},
      {57, "Device I/O error"},
      {58, "File already exists"},
      {61, "Disk full"},
      {62, "Input past end of file"},
      {67, "Too many files"},
      {68, "Device unavailable"},
      {70, "Permission denied"},
      {71, "Disk not ready"},
      {74, "Can't rename with different drive"},
      {75, "Path/File access error"},
      {76, "Path not found"},
      {91, "Object variable not set"},
      {92, "For loop not initialized"},
      {94, "Invalid use of Null"},
      {322, "Can't create necessary temporary file"},
      {424, "Object required"},
      {429, "ActiveX component can't create object"},
      {430, "Class doesn't support Automation"},
      {432, "File name or class name not found during Automation operation"},
      {438, "Object doesn't support this property or method"},
      {440, "Automation error"},
      {445, "Object doesn't support this action"},
      {446, "Object doesn't support named arguments"},
      {447, "Object doesn't support current locale setting"},
      {448, "Named argument not found"},
      {449, "Argument not optional"},
      {450, "Wrong number of arguments or invalid property assignment"},
      {451, "Object not a collection"},
      {453, "Specified DLL function not found"},
      {455, "Code resource lock error"},
      {457, "This key is already associated with an element of this collection"},
      {458, "Variable uses an Automation type not supported in VBScript"},
      {462, "The remote server machine does not exist or is unavailable"},
      {481, "Invalid picture"},
      {500, "Variable is undefined"},
      {501, "Illegal assignment"},
      {502, "Object not safe for scripting"},
      {503, "Object not safe for initializing"},
      {504, "Object not safe for creating"},
      {505, "Invalid or unqualified reference"},
      {506, "Class not defined"},
      {507, "An exception occurred"},
      {1001, "Out of memory"},
      {1002, "Syntax error"},
      {1005, "Expected '('"},
      {1006, "Expected ')'"},
      {1007, "Expected ']'"},
      {1010, "Expected identifier"},
      {1011, "Expected '='"},
      {1014, "Expected 'End'"},
      {1017, "Expected 'Then'"},
      {1023, "Expected expression"},
      {1024, "Expected statement"},
      {1025, "Expected end of statement"},
      {1031, "Invalid number"},
      {1032, "Invalid character"},
      {1033, "Unterminated string constant"},
      {1037, "Invalid use of 'Me' keyword"},
      {1039, "Invalid 'exit' statement"},
      {1041, "Name redefined"},
      {1042, "Must be first statement on the line"},
      {1044, "Cannot use parentheses when calling a Sub"},
      {1045, "Expected literal constant"},
      {1058, "'Default' specification can only be on Property Get"},
      {5016, "Regular Expression object expected"},
      {5017, "Syntax error in regular expression"},
      {5018, "Unexpected quantifier"},
      {5019, "Expected ']' in regular expression"},
      {5020, "Expected ')' in regular expression"},
      {5021, "Invalid range in character set"},
      {32811, "Element not found"},
      {32812, "The specified date is not available in the current locale's calendar"},
      {1, "Unknown runtime error"},
      {99999, "Unknown runtime error"},
  };
  for (const auto& [number, text] : texts) EXPECT_EQ(ScriptErrorText(number), text) << number;
}

TEST(ScriptErrorTextTest, StandardTextsGiveWayToTheLanguages) {
  EXPECT_EQ(InScriptWords(RuntimeError(91)).description(), "Object variable not set");
  EXPECT_EQ(InScriptWords(RuntimeError(91)).number(), 91);
  EXPECT_EQ(InScriptWords(RuntimeError(91, "The map is not loaded")).description(), "The map is not loaded");
  EXPECT_EQ(InScriptWords(RuntimeError(1030, "Own text")).description(), "Own text");
}

}  // namespace
}  // namespace kestrun::vbs
