// The names by which screen readers call the system's own controls.
#pragma once

#include <string>

#include "desktop/win32/system/windows_api.h"

namespace kestrun {

// Tells the system the name of a control that has no text of its own and no label with a window in front of it. Where
// the system has no such service the control keeps what it has.
void TellReadersName(HWND window, const std::string& name);
// Tells what a row of a list is beside its text, counted from 0; an empty note takes it back.
void TellReadersRowNote(HWND list, int row, const std::string& note);

}  // namespace kestrun
