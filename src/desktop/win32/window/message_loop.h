// The one thread's message loop: every message, whichever loop fetched it, goes through DispatchOne.
#pragma once

#include <functional>

#include "desktop/win32/system/windows_api.h"

namespace kestrun {

// Looks at a message before it is dispatched; true takes it away. The windowing installs its keyboard navigation here.
using MessageFilter = std::function<bool(MSG& message)>;
void SetMessageFilter(MessageFilter filter);

void DispatchOne(MSG& message);
// Handles all messages that wait now. A quit message is left for the loop that waits for it.
void DispatchWaiting();

}  // namespace kestrun
