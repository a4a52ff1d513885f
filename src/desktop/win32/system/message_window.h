// A window that nobody sees, for messages to an object.
#pragma once

#include "desktop/win32/system/handles.h"

namespace kestrun {

// Of that class, which is registered at its first use; GWLP_USERDATA holds the object's address.
[[nodiscard]] WindowHandle MakeMessageWindow(const wchar_t* class_name, WNDPROC handle, void* object);

}  // namespace kestrun
