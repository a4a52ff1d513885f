// Standard output of the Windows program, which has no console of its own.
#pragma once

#include <string_view>

#include "desktop/win32/system/windows_api.h"

namespace kestrun {

// Writes the line to the file or pipe that the program was started with, otherwise to the console that it was started
// from; nowhere where there is neither.
void WriteToStandardOutput(std::string_view line);

// Writes the line and its end, CR LF: to a console in characters, whatever its code page, to anything else in UTF-8.
void WriteLineTo(HANDLE output, std::string_view line);

}  // namespace kestrun
