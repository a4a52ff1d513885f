// The constants of the language reference, by theme.
#include "script/vbscript/runtime/builtins.h"

namespace kestrun::vbs {
namespace {

struct NumberRow {
  std::string_view name;
  int32_t value;
};

// Longs whatever their value.
constexpr NumberRow kLongs[] = {
    {"vbMsgBoxHelpButton", 16384}, {"vbBlack", 0},       {"vbRed", 0xFF},
    {"vbGreen", 0xFF00},           {"vbYellow", 0xFFFF}, {"vbBlue", 0xFF0000},
    {"vbMagenta", 0xFF00FF},       {"vbCyan", 0xFFFF00}, {"vbWhite", 0xFFFFFF},
};

constexpr NumberRow kNumbers[] = {
    // Comparison
    {"vbBinaryCompare", 0},
    {"vbTextCompare", 1},
    {"vbDatabaseCompare", 2},
    // Dates
    {"vbSunday", 1},
    {"vbMonday", 2},
    {"vbTuesday", 3},
    {"vbWednesday", 4},
    {"vbThursday", 5},
    {"vbFriday", 6},
    {"vbSaturday", 7},
    {"vbUseSystem", 0},
    {"vbUseSystemDayOfWeek", 0},
    {"vbFirstJan1", 1},
    {"vbFirstFourDays", 2},
    {"vbFirstFullWeek", 3},
    {"vbGeneralDate", 0},
    {"vbLongDate", 1},
    {"vbShortDate", 2},
    {"vbLongTime", 3},
    {"vbShortTime", 4},
    // Message boxes
    {"vbOKOnly", 0},
    {"vbOKCancel", 1},
    {"vbAbortRetryIgnore", 2},
    {"vbYesNoCancel", 3},
    {"vbYesNo", 4},
    {"vbRetryCancel", 5},
    {"vbCritical", 16},
    {"vbQuestion", 32},
    {"vbExclamation", 48},
    {"vbInformation", 64},
    {"vbDefaultButton1", 0},
    {"vbDefaultButton2", 256},
    {"vbDefaultButton3", 512},
    {"vbDefaultButton4", 768},
    {"vbApplicationModal", 0},
    {"vbSystemModal", 4096},
    {"vbMsgBoxSetForeground", 65536},
    {"vbMsgBoxRight", 524288},
    {"vbMsgBoxRtlReading", 1048576},
    {"vbOK", 1},
    {"vbCancel", 2},
    {"vbAbort", 3},
    {"vbRetry", 4},
    {"vbIgnore", 5},
    {"vbYes", 6},
    {"vbNo", 7},
    // Tristate
    {"vbUseDefault", -2},
    {"vbTrue", -1},
    {"vbFalse", 0},
    // Types
    {"vbEmpty", 0},
    {"vbNull", 1},
    {"vbInteger", 2},
    {"vbLong", 3},
    {"vbSingle", 4},
    {"vbDouble", 5},
    {"vbCurrency", 6},
    {"vbDate", 7},
    {"vbString", 8},
    {"vbObject", 9},
    {"vbError", 10},
    {"vbBoolean", 11},
    {"vbVariant", 12},
    {"vbDataObject", 13},
    {"vbDecimal", 14},
    {"vbByte", 17},
    {"vbArray", 8192},
    // Errors
    {"vbObjectError", -2147221504},
};

struct TextRow {
  std::string_view name;
  std::string_view value;
};

constexpr TextRow kTexts[] = {
    {"vbCr", "\r"},       {"vbCrLf", "\r\n"}, {"vbNewLine", "\r\n"},   {"vbFormFeed", "\f"},
    {"vbLf", "\n"},       {"vbTab", "\t"},    {"vbVerticalTab", "\v"}, {"vbNullChar", std::string_view("\0", 1)},
    {"vbNullString", ""},
};

// A constant is no wider than its value needs.
Variant Number(int32_t value) {
  return value == static_cast<int16_t>(value) ? Variant(static_cast<int16_t>(value)) : Variant(value);
}

std::vector<Constant> MakeConstants() {
  std::vector<Constant> constants;
  for (const NumberRow& row : kLongs) constants.push_back({row.name, row.value});
  for (const NumberRow& row : kNumbers) constants.push_back({row.name, Number(row.value)});
  for (const TextRow& row : kTexts) constants.push_back({row.name, Variant(row.value)});
  return constants;
}

}  // namespace

const std::vector<Constant>& Constants() {
  static const std::vector<Constant> kConstants = MakeConstants();
  return kConstants;
}

}  // namespace kestrun::vbs
