#pragma once

#include "desktop/win32/system/windows_api.h"

namespace kestrun {

// Handles all that waits and forgets the end of the message loop, which a form that closes itself as the last one asks
// for: the next test needs the loop.
inline void EmptyMessageQueue() {
  MSG message{};
  while (PeekMessageW(&message, nullptr, 0, 0, PM_REMOVE)) {
    if (message.message != WM_QUIT) DispatchMessageW(&message);
  }
}

// Puts the mouse where no test has a window. The system tells a window that comes up under the mouse of a move, at a
// time of its own.
inline void ParkMouse() {
  SetCursorPos(GetSystemMetrics(SM_CXSCREEN) - 2, GetSystemMetrics(SM_CYSCREEN) - 2);
  EmptyMessageQueue();
}

}  // namespace kestrun
