// The system's HTTP library: its calls, bound at their first use, its handles, and what a call that fails becomes.
#pragma once

#include <string>

#include "base/runtime_error.h"
#include "desktop/win32/system/handles.h"
#include "desktop/win32/system/late_call.h"
// Behind windows.h, which it needs.
#include <winhttp.h>

#define WINHTTP_CALL(function) KESTRUN_LATE(L"winhttp.dll", function)

namespace kestrun {

struct InternetHandleTraits {
  using Handle = HINTERNET;
  static Handle Empty() { return nullptr; }
  static void Close(Handle handle) { WINHTTP_CALL(WinHttpCloseHandle)(handle); }
};
using InternetHandle = UniqueHandle<InternetHandleTraits>;

// The sentence of a failure with the system's number behind it.
[[nodiscard]] inline std::string InternetFailure(const char* what, DWORD number) {
  return std::string(what) + " (" + std::to_string(number) + ").";
}

// Raises error 440 with that sentence for a call that gave FALSE.
inline void RequireInternet(BOOL succeeded, const char* what) {
  if (!succeeded) Raise(error::kAutomationError, InternetFailure(what, GetLastError()));
}

}  // namespace kestrun
