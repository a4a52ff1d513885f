#include "script/vbscript/runtime/errors.h"

#include <algorithm>
#include <array>
#include <string>

namespace kestrun::vbs {
namespace {

struct ErrorText {
  int number;
  std::string_view text;
};

// Ascending numbers.
constexpr std::array kTexts{
    ErrorText{5, "Invalid procedure call or argument"},
    ErrorText{6, "Overflow"},
    ErrorText{7, "Out of memory"},
    ErrorText{9, "Subscript out of range"},
    ErrorText{10, "This array is fixed or temporarily locked"},
    ErrorText{11, "Division by zero"},
    ErrorText{13, "Type mismatch"},
    ErrorText{14, "Out of string space"},
    ErrorText{17, "Can't perform requested operation"},
    ErrorText{28, "Out of stack space"},
    ErrorText{35, "Sub or Function not defined"},
    ErrorText{48, "Error in loading DLL"},
    ErrorText{51, "Internal error"},
    ErrorText{52, "Bad file name or number"},
    ErrorText{53, "File not found"},
    ErrorText{54, "Bad file mode"},
    ErrorText{55, "File already open"},
    ErrorText{57, "Device I/O error"},
    ErrorText{58, "File already exists"},
    ErrorText{61, "Disk full"},
    ErrorText{62, "Input past end of file"},
    ErrorText{67, "Too many files"},
    ErrorText{68, "Device unavailable"},
    ErrorText{70, "Permission denied"},
    ErrorText{71, "Disk not ready"},
    ErrorText{74, "Can't rename with different drive"},
    ErrorText{75, "Path/File access error"},
    ErrorText{76, "Path not found"},
    ErrorText{91, "Object variable not set"},
    ErrorText{92, "For loop not initialized"},
    ErrorText{94, "Invalid use of Null"},
    ErrorText{322, "Can't create necessary temporary file"},
    ErrorText{424, "Object required"},
    ErrorText{429, "ActiveX component can't create object"},
    ErrorText{430, "Class doesn't support Automation"},
    ErrorText{432, "File name or class name not found during Automation operation"},
    ErrorText{438, "Object doesn't support this property or method"},
    ErrorText{440, "Automation error"},
    ErrorText{445, "Object doesn't support this action"},
    ErrorText{446, "Object doesn't support named arguments"},
    ErrorText{447, "Object doesn't support current locale setting"},
    ErrorText{448, "Named argument not found"},
    ErrorText{449, "Argument not optional"},
    ErrorText{450, "Wrong number of arguments or invalid property assignment"},
    ErrorText{451, "Object not a collection"},
    ErrorText{453, "Specified DLL function not found"},
    ErrorText{455, "Code resource lock error"},
    ErrorText{457, "This key is already associated with an element of this collection"},
    ErrorText{458, "Variable uses an Automation type not supported in VBScript"},
    ErrorText{462, "The remote server machine does not exist or is unavailable"},
    ErrorText{481, "Invalid picture"},
    ErrorText{500, "Variable is undefined"},
    ErrorText{501, "Illegal assignment"},
    ErrorText{502, "Object not safe for scripting"},
    ErrorText{503, "Object not safe for initializing"},
    ErrorText{504, "Object not safe for creating"},
    ErrorText{505, "Invalid or unqualified reference"},
    ErrorText{506, "Class not defined"},
    ErrorText{507, "An exception occurred"},
    ErrorText{1001, "Out of memory"},
    ErrorText{1002, "Syntax error"},
    ErrorText{1003, "Expected ':'"},
    ErrorText{1005, "Expected '('"},
    ErrorText{1006, "Expected ')'"},
    ErrorText{1007, "Expected ']'"},
    ErrorText{1010, "Expected identifier"},
    ErrorText{1011, "Expected '='"},
    ErrorText{1012, "Expected 'If'"},
    ErrorText{1013, "Expected 'To'"},
    ErrorText{1014, "Expected 'End'"},
    ErrorText{1015, "Expected 'Function'"},
    ErrorText{1016, "Expected 'Sub'"},
    ErrorText{1017, "Expected 'Then'"},
    ErrorText{1018, "Expected 'Wend'"},
    ErrorText{1019, "Expected 'Loop'"},
    ErrorText{1020, "Expected 'Next'"},
    ErrorText{1021, "Expected 'Case'"},
    ErrorText{1022, "Expected 'Select'"},
    ErrorText{1023, "Expected expression"},
    ErrorText{1024, "Expected statement"},
    ErrorText{1025, "Expected end of statement"},
    ErrorText{1026, "Expected integer constant"},
    ErrorText{1027, "Expected 'While' or 'Until'"},
    ErrorText{1028, "Expected 'While', 'Until' or end of statement"},
    ErrorText{1029, "Expected 'With'"},
    ErrorText{1030, "Identifier too long"},
    ErrorText{1031, "Invalid number"},
    ErrorText{1032, "Invalid character"},
    ErrorText{1033, "Unterminated string constant"},
    ErrorText{1034, "Unterminated comment"},
    ErrorText{1037, "Invalid use of 'Me' keyword"},
    ErrorText{1038, "'loop' without 'do'"},
    ErrorText{1039, "Invalid 'exit' statement"},
    ErrorText{1040, "Invalid 'for' loop control variable"},
    ErrorText{1041, "Name redefined"},
    ErrorText{1042, "Must be first statement on the line"},
    ErrorText{1043, "Cannot assign to non-ByVal argument"},
    ErrorText{1044, "Cannot use parentheses when calling a Sub"},
    ErrorText{1045, "Expected literal constant"},
    ErrorText{1046, "Expected 'In'"},
    ErrorText{1047, "Expected 'Class'"},
    ErrorText{1048, "Must be defined inside a Class"},
    ErrorText{1049, "Expected Let or Set or Get in property declaration"},
    ErrorText{1050, "Expected 'Property'"},
    ErrorText{1051, "Number of arguments must be consistent across properties specification"},
    ErrorText{1052, "Cannot have multiple default property/method in a Class"},
    ErrorText{1053, "Class initialize or terminate do not have arguments"},
    ErrorText{1054, "Property Set or Let must have at least one argument"},
    ErrorText{1055, "Unexpected 'Next'"},
    ErrorText{1056, "'Default' can be specified only on 'Property' or 'Function' or 'Sub'"},
    ErrorText{1057, "'Default' specification must also specify 'Public'"},
    ErrorText{1058, "'Default' specification can only be on Property Get"},
    ErrorText{5016, "Regular Expression object expected"},
    ErrorText{5017, "Syntax error in regular expression"},
    ErrorText{5018, "Unexpected quantifier"},
    ErrorText{5019, "Expected ']' in regular expression"},
    ErrorText{5020, "Expected ')' in regular expression"},
    ErrorText{5021, "Invalid range in character set"},
    ErrorText{32811, "Element not found"},
    ErrorText{32812, "The specified date is not available in the current locale's calendar"},
};

}  // namespace

std::string_view ScriptErrorText(int number) {
  const auto* row = std::lower_bound(kTexts.begin(), kTexts.end(), number,
                                     [](const ErrorText& text, int wanted) { return text.number < wanted; });
  if (row != kTexts.end() && row->number == number) return row->text;
  // What the program's own objects raise has the program's text.
  return HasStandardErrorText(number) ? StandardErrorText(number) : "Unknown runtime error";
}

void RaiseScript(int number) { throw RuntimeError(number, std::string(ScriptErrorText(number))); }

RuntimeError InScriptWords(const RuntimeError& failure) {
  const bool standard = failure.description() == StandardErrorText(failure.number());
  if (!standard && !failure.description().empty()) return failure;
  const int number = NumberOfResult(failure.number());
  const bool unknown = number == failure.number() && !standard;
  return RuntimeError(number, unknown ? std::string() : std::string(ScriptErrorText(number)));
}

}  // namespace kestrun::vbs
