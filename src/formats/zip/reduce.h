// Expands what the four Reduce methods of early zip archives made (APPNOTE, "Expanding - methods 2-5").
#pragma once

#include <cstdint>

#include "base/bytes.h"

namespace kestrun::zip {

inline constexpr int32_t kReduceCutShort = -1;

// `method` is 2 to 5, for the factors 1 to 4; `last` the announced size in bytes less 1. The output grows as the data
// come. Gives 0, or -1 when the data end before the announced size is reached; what came before stays.
[[nodiscard]] int32_t Reduce(ByteView data, int method, int64_t last, Bytes& output);

}  // namespace kestrun::zip
