// kestrun.log in the program's folder: one line for each thing that was done with nobody watching.
#pragma once

#include <string>

namespace kestrun {

// Appends the line, with its end, in the code page. The file grows without limit.
void AppendToLog(const std::string& line);
// That what was in the way of a command could not be kept, and that the command went on.
void LogNotKept(const std::string& name, const std::string& reason);

}  // namespace kestrun
