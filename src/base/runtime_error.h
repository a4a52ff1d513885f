// The one exception type of the program's logic, with the platform's standard error numbers and texts.
#pragma once

#include <stdexcept>
#include <string>
#include <string_view>
#include <utility>

namespace kestrun {

// Numbers of the standard run-time errors that the program raises itself. Their texts stand in StandardErrorText.
namespace error {
inline constexpr int kInvalidProcedureCall = 5;
inline constexpr int kOverflow = 6;
inline constexpr int kOutOfMemory = 7;
inline constexpr int kSubscriptOutOfRange = 9;
inline constexpr int kDivisionByZero = 11;
inline constexpr int kTypeMismatch = 13;
inline constexpr int kOutOfStringSpace = 14;
inline constexpr int kOutOfStackSpace = 28;
inline constexpr int kBadFileName = 52;
inline constexpr int kFileNotFound = 53;
inline constexpr int kFileAlreadyOpen = 55;
inline constexpr int kDeviceIo = 57;
inline constexpr int kFileAlreadyExists = 58;
inline constexpr int kDiskFull = 61;
inline constexpr int kInputPastEnd = 62;
inline constexpr int kTooManyFiles = 67;
inline constexpr int kPermissionDenied = 70;
inline constexpr int kDiskNotReady = 71;
inline constexpr int kPathFileAccess = 75;
inline constexpr int kPathNotFound = 76;
inline constexpr int kObjectNotSet = 91;
inline constexpr int kInvalidUseOfNull = 94;
inline constexpr int kInvalidFileFormat = 321;
inline constexpr int kResourceNotFound = 326;
inline constexpr int kNotMadeByScript = 362;
inline constexpr int kInvalidPropertyValue = 380;
inline constexpr int kPropertyReadOnly = 383;
inline constexpr int kObjectRequired = 424;
inline constexpr int kCannotCreateObject = 429;
inline constexpr int kNoSuchInterface = 430;
inline constexpr int kMemberNotFound = 438;
inline constexpr int kAutomationError = 440;
inline constexpr int kActionNotSupported = 445;
inline constexpr int kNoNamedArguments = 446;
inline constexpr int kNamedArgumentNotFound = 448;
inline constexpr int kArgumentNotOptional = 449;
inline constexpr int kWrongArgumentCount = 450;
inline constexpr int kNoCollection = 451;
inline constexpr int kUnsupportedType = 458;
inline constexpr int kServerUnavailable = 462;
inline constexpr int kInvalidPicture = 481;
inline constexpr int kNameInUse = 727;
}  // namespace error

// The platform's text for a standard number; "Application-defined or object-defined error" for any other.
[[nodiscard]] std::string_view StandardErrorText(int number);

[[nodiscard]] bool HasStandardErrorText(int number);

// A run-time failure that a handler can catch: number and description, both meant for the user's eyes.
class RuntimeError : public std::runtime_error {
 public:
  // A standard error with its standard text.
  explicit RuntimeError(int number);
  RuntimeError(int number, const std::string& description);

  [[nodiscard]] int number() const noexcept { return number_; }
  [[nodiscard]] std::string description() const { return what(); }

 private:
  int number_;
};

// A failure of an object that scripts use, with all that a host may say about it. The number is a run-time error's or a
// result code (negative); a script sees the common result codes as the error numbers of its language, unless the host
// describes the failure itself. An empty text was not given.
class HostError : public RuntimeError {
 public:
  explicit HostError(int number, const std::string& description = {}, std::string source = {},
                     std::string help_file = {}, int help_context = 0)
      : RuntimeError(number, description),
        source_(std::move(source)),
        help_file_(std::move(help_file)),
        help_context_(help_context) {}

  [[nodiscard]] const std::string& source() const noexcept { return source_; }
  [[nodiscard]] const std::string& help_file() const noexcept { return help_file_; }
  [[nodiscard]] int help_context() const noexcept { return help_context_; }

 private:
  std::string source_;
  std::string help_file_;
  int help_context_;
};

[[noreturn]] void Raise(int number);
[[noreturn]] void Raise(int number, const std::string& description);

// The failure in flight, seen from inside a catch block: a RuntimeError as it is, std::bad_alloc as error 7,
// anything else as error 440 with its text.
[[nodiscard]] RuntimeError CurrentError();

// Runs one statement and skips it when it fails: the counterpart of a handler that goes on with the next statement.
// Gives true when the statement ran through.
template <class Statement>
bool Attempt(Statement&& statement) {
  try {
    statement();
    return true;
  } catch (const std::exception&) {
    return false;
  }
}

// The same, with what is to be done about the failure.
template <class Statement, class TakeFailure>
bool Attempt(Statement&& statement, TakeFailure&& take) {
  try {
    statement();
    return true;
  } catch (const std::exception&) {
    take(CurrentError());
    return false;
  }
}

// Runs the statement. What is to be done about a failure is done before the caller meets it; `see` may raise another
// one in its place.
template <class Statement, class SeeFailure>
void OnFailure(Statement&& statement, SeeFailure&& see) {
  try {
    statement();
  } catch (const std::exception&) {
    see(CurrentError());
    throw;
  }
}

}  // namespace kestrun
