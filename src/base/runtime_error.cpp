#include "base/runtime_error.h"

#include <algorithm>
#include <array>
#include <new>

namespace kestrun {
namespace {

struct ErrorText {
  int number;
  std::string_view text;
};

constexpr std::array kErrorTexts{
    ErrorText{error::kInvalidProcedureCall, "Invalid procedure call or argument"},
    ErrorText{error::kOverflow, "Overflow"},
    ErrorText{error::kOutOfMemory, "Out of memory"},
    ErrorText{error::kSubscriptOutOfRange, "Subscript out of range"},
    ErrorText{error::kDivisionByZero, "Division by zero"},
    ErrorText{error::kTypeMismatch, "Type mismatch"},
    ErrorText{error::kOutOfStringSpace, "Out of string space"},
    ErrorText{error::kOutOfStackSpace, "Out of stack space"},
    ErrorText{error::kBadFileName, "Bad file name or number"},
    ErrorText{error::kFileNotFound, "File not found"},
    ErrorText{error::kFileAlreadyOpen, "File already open"},
    ErrorText{error::kDeviceIo, "Device I/O error"},
    ErrorText{error::kFileAlreadyExists, "File already exists"},
    ErrorText{error::kDiskFull, "Disk full"},
    ErrorText{error::kInputPastEnd, "Input past end of file"},
    ErrorText{error::kTooManyFiles, "Too many files"},
    ErrorText{error::kPermissionDenied, "Permission denied"},
    ErrorText{error::kDiskNotReady, "Disk not ready"},
    ErrorText{error::kPathFileAccess, "Path/File access error"},
    ErrorText{error::kPathNotFound, "Path not found"},
    ErrorText{error::kObjectNotSet, "Object variable or With block variable not set"},
    ErrorText{error::kInvalidUseOfNull, "Invalid use of Null"},
    ErrorText{error::kInvalidFileFormat, "Invalid file format"},
    ErrorText{error::kResourceNotFound, "Resource not found"},
    ErrorText{error::kNotMadeByScript, "Can't unload controls created at design time"},
    ErrorText{error::kInvalidPropertyValue, "Invalid property value"},
    ErrorText{error::kPropertyReadOnly, "Property is read-only"},
    ErrorText{error::kObjectRequired, "Object required"},
    ErrorText{error::kCannotCreateObject, "ActiveX component can't create object"},
    ErrorText{error::kNoSuchInterface, "Class doesn't support Automation"},
    ErrorText{error::kMemberNotFound, "Object doesn't support this property or method"},
    ErrorText{error::kAutomationError, "Automation error"},
    ErrorText{error::kActionNotSupported, "Object doesn't support this action"},
    ErrorText{error::kNoNamedArguments, "Object doesn't support named arguments"},
    ErrorText{error::kNamedArgumentNotFound, "Named argument not found"},
    ErrorText{error::kArgumentNotOptional, "Argument not optional"},
    ErrorText{error::kWrongArgumentCount, "Wrong number of arguments or invalid property assignment"},
    ErrorText{error::kNoCollection, "Object not a collection"},
    ErrorText{error::kUnsupportedType, "Variable uses an Automation type not supported"},
    ErrorText{error::kServerUnavailable, "The remote server machine does not exist or is unavailable"},
    ErrorText{error::kInvalidPicture, "Invalid picture"},
    ErrorText{error::kNameInUse, "There is already a control with this name"},
};

const ErrorText* FindText(int number) {
  return std::find_if(kErrorTexts.begin(), kErrorTexts.end(),
                      [number](const ErrorText& row) { return row.number == number; });
}

}  // namespace

std::string_view StandardErrorText(int number) {
  return HasStandardErrorText(number) ? FindText(number)->text : "Application-defined or object-defined error";
}

bool HasStandardErrorText(int number) { return FindText(number) != kErrorTexts.end(); }

RuntimeError::RuntimeError(int number) : RuntimeError(number, std::string(StandardErrorText(number))) {}

RuntimeError::RuntimeError(int number, const std::string& description)
    : std::runtime_error(description), number_(number) {}

void Raise(int number) { throw RuntimeError(number); }

void Raise(int number, const std::string& description) { throw RuntimeError(number, description); }

RuntimeError CurrentError() {
  try {
    throw;
  } catch (const RuntimeError& failure) {
    return failure;
  } catch (const std::bad_alloc&) {
    return RuntimeError(error::kOutOfMemory);
  } catch (const std::length_error&) {  // more than this program's addresses reach
    return RuntimeError(error::kOutOfMemory);
  } catch (const std::exception& failure) {
    return RuntimeError(error::kAutomationError, failure.what());
  }
}

}  // namespace kestrun
