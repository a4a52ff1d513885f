// From the process's start to the first real window: what the splash window's load handler runs.
#pragma once

#include <string>

namespace kestrun {

class frmsplash;

// The start-up sequence for a raw command line. Ends with the main window open, or one other window, or none; the
// splash window is closed in any case.
void RunStartUp(frmsplash& splash, const std::string& raw_command_line);

}  // namespace kestrun
