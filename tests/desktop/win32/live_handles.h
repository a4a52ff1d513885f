// How many graphics objects and windows this process holds. Wine counts neither in GetGuiResources; there a handle's
// low half alone names its object, so that all of them can be tried.
#pragma once

#include <cstdint>

#include "desktop/win32/system/windows_api.h"

namespace kestrun {

inline int LiveGraphicsObjects() {
  const auto counted = static_cast<int>(GetGuiResources(GetCurrentProcess(), GR_GDIOBJECTS));
  if (counted != 0) return counted;
  int live = 0;
  for (uintptr_t handle = 1; handle < 0x10000; ++handle) {
    if (GetObjectType(reinterpret_cast<HGDIOBJ>(handle)) != 0) ++live;
  }
  return live;
}

inline int LiveWindows() {
  const auto counted = static_cast<int>(GetGuiResources(GetCurrentProcess(), GR_USEROBJECTS));
  if (counted != 0) return counted;
  int live = 0;
  for (uintptr_t handle = 1; handle < 0x10000; ++handle) {
    DWORD process = 0;
    GetWindowThreadProcessId(reinterpret_cast<HWND>(handle), &process);
    if (process == GetCurrentProcessId()) ++live;
  }
  return live;
}

}  // namespace kestrun
