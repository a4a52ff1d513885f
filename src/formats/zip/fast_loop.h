// The part of a compressed block that is far from the ends of input and output, where nothing has to be asked byte by
// byte. It gives what the careful way gives.
#pragma once

#include "formats/zip/block_codes.h"

namespace kestrun::deflate {

enum class BlockEnd { kReached, kNotYet };

// Expands until the block ends or one of the buffers comes near its end. `out` moves on between `begin` and `end`.
// Error 9 for a distance behind `begin` and for what means nothing.
template <bool kDeflate64>
[[nodiscard]] BlockEnd RunFast(BitReader& reader, const BlockCodes& codes, const uint8_t* begin, uint8_t*& out,
                               const uint8_t* end);
// The same by the instructions that every processor has; RunFast does so itself where there are no better ones.
template <bool kDeflate64>
[[nodiscard]] BlockEnd RunFastPortably(BitReader& reader, const BlockCodes& codes, const uint8_t* begin, uint8_t*& out,
                                       const uint8_t* end);

}  // namespace kestrun::deflate
