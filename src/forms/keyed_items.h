// Failures of collections whose items have keys.
#pragma once

#include "base/runtime_error.h"

namespace kestrun {

[[noreturn]] inline void RaiseIndexOutOfBounds() { Raise(35600, "Index out of bounds"); }
[[noreturn]] inline void RaiseElementNotFound() { Raise(35601, "Element not found"); }
[[noreturn]] inline void RaiseKeyNotUnique() { Raise(35602, "Key is not unique in collection"); }

}  // namespace kestrun
