// Standard output of the Windows program, which has no console of its own.
#pragma once

#include <string_view>

namespace kestrun {

// Writes the line to the file or pipe that the program was started with, otherwise to the console that it was started
// from; nowhere where there is neither.
void WriteToStandardOutput(std::string_view line);

}  // namespace kestrun
