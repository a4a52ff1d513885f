// The version that the program was built as: that of the CMake project, which the version resource of the program file
// takes too.
#pragma once

#include "platform/program.h"

namespace kestrun {

[[nodiscard]] Version BuiltVersion();

}  // namespace kestrun
