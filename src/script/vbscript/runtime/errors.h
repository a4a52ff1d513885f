// The texts of the language's errors, and how the run-time library raises them.
#pragma once

#include <string_view>

#include "base/result_codes.h"
#include "base/runtime_error.h"

namespace kestrun::vbs {

namespace error {
using namespace kestrun::error;
inline constexpr int kArrayLocked = 10;
inline constexpr int kLoopNotInitialized = 92;
inline constexpr int kNotANumberedObject = 451;
inline constexpr int kKeyExists = 457;
inline constexpr int kIllegalAssignment = 501;
inline constexpr int kUndefinedVariable = 500;
inline constexpr int kUnqualifiedReference = 505;
inline constexpr int kClassNotDefined = 506;
inline constexpr int kRegExpExpected = 5016;
inline constexpr int kRegExpSyntax = 5017;
inline constexpr int kRegExpQuantifier = 5018;
inline constexpr int kRegExpBracket = 5019;
inline constexpr int kRegExpParenthesis = 5020;
inline constexpr int kRegExpRange = 5021;
inline constexpr int kElementNotFound = 32811;
}  // namespace error

// The text of a run-time error (up to 32811) or of a compile error (1001 to 1058) in the words of the language;
// "Unknown runtime error" for any other number.
[[nodiscard]] std::string_view ScriptErrorText(int number);

// Raises a script error with its text.
[[noreturn]] void RaiseScript(int number);

using kestrun::NumberOfResult;

// A failure that came out of the program's own floors, in the language's words: where it carries the platform's
// standard text for its number, that text gives way to the language's, and a result code that nobody describes to the
// language's number for it.
[[nodiscard]] RuntimeError InScriptWords(const RuntimeError& failure);

}  // namespace kestrun::vbs
