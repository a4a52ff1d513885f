// RIFF WAVE files in memory, as far as playing them needs: nothing that a file says of itself is believed.
#pragma once

#include <cstdint>

#include "base/bytes.h"

namespace kestrun {

// The file without what follows its sound, and cut to at most that long a sound. Error 321 for bytes that are no
// WAVE file, end before what they claim to hold, or have no sound that can be played.
[[nodiscard]] Bytes PlayableWave(ByteView file, uint32_t most_ms);

}  // namespace kestrun
