// Sizes that come from outside, such as a file's or one that a format announces, as sizes in memory.
#pragma once

#include <cstddef>
#include <cstdint>
#include <limits>

#include "base/runtime_error.h"

namespace kestrun {

// The largest block that containers of this process can hold.
inline constexpr uint64_t kMostMemoryBytes = static_cast<uint64_t>(std::numeric_limits<std::ptrdiff_t>::max());

// Raises "Out of memory" for a size that no block can have: a cast alone would make 5 of 4 GB and 5 in a 32-bit
// process.
[[nodiscard]] inline size_t ToSize(uint64_t bytes, uint64_t most = kMostMemoryBytes) {
  if (bytes > most) throw RuntimeError(error::kOutOfMemory);
  return static_cast<size_t>(bytes);
}

}  // namespace kestrun
