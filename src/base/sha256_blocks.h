// The inner loop of SHA-256 (FIPS 180-4, 6.2.2): whole blocks into a state. base/sha256.h is the face of it.
#pragma once

#include <array>
#include <cstddef>
#include <cstdint>

namespace kestrun::sha256 {

inline constexpr size_t kBlockBytes = 64;
using State = std::array<uint32_t, 8>;

// By the instructions that the processor has for it, where it has them.
void AddBlocks(State& state, const uint8_t* blocks, size_t count);
// On any processor. The results are the same.
void AddBlocksByWords(State& state, const uint8_t* blocks, size_t count);

}  // namespace kestrun::sha256
