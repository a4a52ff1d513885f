#include "script/runtime_fixture.h"

namespace kestrun::vbs {
namespace {

using RuntimeFormatTest = RuntimeTest;

TEST_F(RuntimeFormatTest, FormatNumberGroupsAndRounds) {
  CheckTable(context, R"t(
FormatNumber(1234.5) => String 1,234.50
FormatNumber(-1234.5) => String -1,234.50
FormatNumber(0) => String 0.00
FormatNumber(5) => String 5.00
FormatNumber(1234567.891) => String 1,234,567.89
FormatNumber(999.995) => String 1,000.00
FormatNumber(99999.999, 1) => String 100,000.0
FormatNumber(2.345, 2) => String 2.35
FormatNumber(2.5, 0) => String 3
FormatNumber(0.5, 0) => String 1
FormatNumber(0.4, 0) => String 0
FormatNumber(0.5, 2, 0) => String .50
FormatNumber(0.5, 2, -1) => String 0.50
FormatNumber(-0.5, 1, 0) => String -.5
FormatNumber(0, 0, 0) => String 0
FormatNumber(-1234.5, 1, -1, -1) => String (1,234.5)
FormatNumber(-1234.5, 1, -1, -1, 0) => String (1234.5)
FormatNumber(-1234.5, 1, , , 0) => String -1234.5
FormatNumber(1234.5, , , , vbFalse) => String 1234.50
FormatNumber(1234.5, -1) => String 1,234.50
FormatNumber(1234.5, -2) !! 5
FormatNumber(1234.5, 256) !! 5
FormatNumber(1234.5, 2, -3) !! 5
FormatNumber(1234.5, 2, 1) !! 5
FormatNumber(1234.5, 2, vbUseDefault) => String 1,234.50
FormatNumber(1e20) => String 100,000,000,000,000,000,000.00
FormatNumber(1e-20) => String 0.00
FormatNumber(0.000123, 6) => String 0.000123
FormatNumber(1.005, 2) => String 1.01
FormatNumber(CCur("922337203685477.5807"), 4) => String 922,337,203,685,477.5807
FormatNumber(CCur(0.0001), 4) => String 0.0001
FormatNumber("1234.5") => String 1,234.50
FormatNumber(True) => String -1.00
FormatNumber(Empty) => String 0.00
FormatNumber(Null) !! 13
FormatNumber("abc") !! 13
FormatNumber(Nothing) !! 91
FormatNumber(1, "x") !! 13
FormatNumber(999999999, 3) => String 999,999,999.000
FormatNumber(0.05, 1) => String 0.1
FormatNumber(0.04, 1) => String 0.0
)t");
}

TEST_F(RuntimeFormatTest, FormatCurrencyPutsNegativesIntoParentheses) {
  CheckTable(context, R"t(
FormatCurrency(1234.5) => String $1,234.50
FormatCurrency(-1234.5) => String ($1,234.50)
FormatCurrency(-1234.5, 2, -1, 0) => String -$1,234.50
FormatCurrency(0.5, 2, 0) => String $.50
FormatCurrency(1234.5, 0) => String $1,235
FormatCurrency(1234.5, 2, , , 0) => String $1234.50
FormatCurrency(Empty) => String $0.00
FormatCurrency(Null) !! 13
FormatCurrency("x") !! 13
FormatCurrency(1, -2) !! 5
)t");
}

TEST_F(RuntimeFormatTest, FormatPercentIsAHundredTimes) {
  CheckTable(context, R"t(
FormatPercent(0.12345) => String 12.35%
FormatPercent(1) => String 100.00%
FormatPercent(-0.5) => String -50.00%
FormatPercent(-0.5, 0, -1, -1) => String (50%)
FormatPercent(0.001, 1, 0) => String .1%
FormatPercent(12.5, 0) => String 1,250%
FormatPercent(12.5, 0, , , 0) => String 1250%
FormatPercent(Null) !! 13
FormatPercent("x") !! 13
)t");
}

TEST_F(RuntimeFormatTest, FormatDateTimeHasFiveForms) {
  CheckTable(context, R"t(
FormatDateTime(#1/2/2020 3:04:05 PM#) => String 1/2/2020 3:04:05 PM
FormatDateTime(#1/2/2020 3:04:05 PM#, 0) => String 1/2/2020 3:04:05 PM
FormatDateTime(#1/2/2020 3:04:05 PM#, vbLongDate) => String Thursday, January 2, 2020
FormatDateTime(#1/2/2020 3:04:05 PM#, vbShortDate) => String 1/2/2020
FormatDateTime(#1/2/2020 3:04:05 PM#, vbLongTime) => String 3:04:05 PM
FormatDateTime(#1/2/2020 3:04:05 PM#, vbShortTime) => String 15:04
FormatDateTime(#1/2/2020 3:04:05 AM#, 4) => String 03:04
FormatDateTime(#1/2/2020#) => String 1/2/2020
FormatDateTime(#3:04:05#) => String 3:04:05 AM
FormatDateTime("1/2/2020", 1) => String Thursday, January 2, 2020
FormatDateTime(43832, 2) => String 1/2/2020
FormatDateTime(#1/2/2020#, 5) !! 5
FormatDateTime(#1/2/2020#, -1) !! 5
FormatDateTime("abc") !! 13
FormatDateTime(Null) !! 13
)t");
}

}  // namespace
}  // namespace kestrun::vbs
