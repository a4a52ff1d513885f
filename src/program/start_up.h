// From the process's start to the first real window: what the splash window's load handler runs.
#pragma once

#include <string>

#include "forms/form.h"
#include "forms/label.h"

namespace kestrun {

// The start-up sequence for a raw command line. Ends with the main window open, or one other window, or none; the
// splash window is closed in any case. `version` takes the program's version.
void RunStartUp(Form& splash, Label& version, const std::string& raw_command_line);

}  // namespace kestrun
