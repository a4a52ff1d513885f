// A module that is no valid program.
#pragma once

#include <cstdint>

namespace kestrun::vbs {

// Numbers of the compilation errors; their texts stand with those of the run-time errors.
namespace compile_error {
inline constexpr int kOutOfMemory = 1001;
inline constexpr int kSyntax = 1002;
inline constexpr int kExpectedOpen = 1005;
inline constexpr int kExpectedClose = 1006;
inline constexpr int kExpectedCloseBracket = 1007;
inline constexpr int kExpectedIdentifier = 1010;
inline constexpr int kExpectedEqual = 1011;
inline constexpr int kExpectedIf = 1012;
inline constexpr int kExpectedTo = 1013;
inline constexpr int kExpectedEnd = 1014;
inline constexpr int kExpectedFunction = 1015;
inline constexpr int kExpectedSub = 1016;
inline constexpr int kExpectedThen = 1017;
inline constexpr int kExpectedWEnd = 1018;
inline constexpr int kExpectedLoop = 1019;
inline constexpr int kExpectedNext = 1020;
inline constexpr int kExpectedCase = 1021;
inline constexpr int kExpectedSelect = 1022;
inline constexpr int kExpectedExpression = 1023;
inline constexpr int kExpectedStatement = 1024;
inline constexpr int kExpectedEndOfStatement = 1025;
inline constexpr int kExpectedIntegerConstant = 1026;
inline constexpr int kExpectedWhileOrUntil = 1027;
inline constexpr int kExpectedWhileUntilOrEnd = 1028;
inline constexpr int kExpectedWith = 1029;
inline constexpr int kIdentifierTooLong = 1030;
inline constexpr int kInvalidNumber = 1031;
inline constexpr int kInvalidCharacter = 1032;
inline constexpr int kUnterminatedString = 1033;
inline constexpr int kInvalidMe = 1037;
inline constexpr int kLoopWithoutDo = 1038;
inline constexpr int kInvalidExit = 1039;
inline constexpr int kInvalidForVariable = 1040;
inline constexpr int kNameRedefined = 1041;
inline constexpr int kMustBeFirstOnLine = 1042;
inline constexpr int kParenthesesOnSub = 1044;
inline constexpr int kExpectedLiteral = 1045;
inline constexpr int kExpectedIn = 1046;
inline constexpr int kExpectedClass = 1047;
inline constexpr int kMustBeInClass = 1048;
inline constexpr int kExpectedLetSetGet = 1049;
inline constexpr int kExpectedProperty = 1050;
inline constexpr int kInconsistentArguments = 1051;
inline constexpr int kManyDefaults = 1052;
inline constexpr int kInitializeHasArguments = 1053;
inline constexpr int kPropertyNeedsArgument = 1054;
inline constexpr int kUnexpectedNext = 1055;
inline constexpr int kDefaultOnWrongMember = 1056;
inline constexpr int kDefaultNeedsPublic = 1057;
inline constexpr int kDefaultNeedsGet = 1058;
}  // namespace compile_error

struct CompileError {
  int number;
  uint32_t position;
};

}  // namespace kestrun::vbs
