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
    ErrorText{5, "Invalid procedure call or argument"},
    ErrorText{6, "Overflow"},
    ErrorText{7, "Out of memory"},
    ErrorText{9, "Subscript out of range"},
    ErrorText{11, "Division by zero"},
    ErrorText{13, "Type mismatch"},
    ErrorText{14, "Out of string space"},
    ErrorText{28, "Out of stack space"},
    ErrorText{52, "Bad file name or number"},
    ErrorText{53, "File not found"},
    ErrorText{55, "File already open"},
    ErrorText{57, "Device I/O error"},
    ErrorText{58, "File already exists"},
    ErrorText{61, "Disk full"},
    ErrorText{62, "Input past end of file"},
    ErrorText{67, "Too many files"},
    ErrorText{70, "Permission denied"},
    ErrorText{71, "Disk not ready"},
    ErrorText{75, "Path/File access error"},
    ErrorText{76, "Path not found"},
    ErrorText{91, "Object variable or With block variable not set"},
    ErrorText{94, "Invalid use of Null"},
    ErrorText{321, "Invalid file format"},
    ErrorText{326, "Resource not found"},
    ErrorText{362, "Can't unload controls created at design time"},
    ErrorText{380, "Invalid property value"},
    ErrorText{383, "Property is read-only"},
    ErrorText{424, "Object required"},
    ErrorText{429, "ActiveX component can't create object"},
    ErrorText{438, "Object doesn't support this property or method"},
    ErrorText{440, "Automation error"},
    ErrorText{450, "Wrong number of arguments or invalid property assignment"},
    ErrorText{481, "Invalid picture"},
    ErrorText{727, "There is already a control with this name"},
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
