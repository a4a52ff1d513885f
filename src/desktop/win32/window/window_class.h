// The window classes of the program's own windows.
#pragma once

#include "desktop/win32/system/windows_api.h"

namespace kestrun {

// Registers a class of this program, with the arrow for its pointer. One that is registered already stays as it is.
void RegisterWindowClass(const wchar_t* name, WNDPROC procedure, UINT style = CS_DBLCLKS);

}  // namespace kestrun
