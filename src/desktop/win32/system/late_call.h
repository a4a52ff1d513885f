// Calls of system libraries that are loaded at their first use: most starts need none of them, and a start that loads
// less shows its window sooner. A library or a call that the system lacks raises error 429.
#pragma once

#include "base/runtime_error.h"
#include "desktop/win32/system/windows_api.h"

namespace kestrun {

// The function of the type of `kFunction`, by its name: LateCall<&PathIsURLW>(L"shlwapi.dll", "PathIsURLW").
template <auto kFunction>
decltype(kFunction) LateCall(const wchar_t* library, const char* name) {
  using Function = decltype(kFunction);
  static const auto function =
      reinterpret_cast<Function>(reinterpret_cast<void*>(GetProcAddress(LoadLibraryW(library), name)));
  if (!function) Raise(error::kCannotCreateObject);
  return function;
}

}  // namespace kestrun

// KESTRUN_LATE(L"shlwapi.dll", PathIsURLW)(text)
#define KESTRUN_LATE(library, function) ::kestrun::LateCall<&function>(library, #function)
