// What a downloaded file is, seen from its own headers (Microsoft's PE format).
#pragma once

#include <cstdint>

#include "platform/files.h"

namespace kestrun {

// True for a Windows program that is whole: its headers can be read, it is a program and no library, and the file
// reaches to the end of every section and of the signature that its headers tell of. Nothing but headers is read.
// Raises what the file raises.
[[nodiscard]] bool IsWholeWindowsProgram(File& file);

}  // namespace kestrun
