// CRC-32 as zip, gzip and PNG have it: reflected polynomial 0xEDB88320 (RFC 1952, section 8). Over long buffers by
// carry-less multiplication where the processor has it (Gopal and others, "Fast CRC Computation for Generic Polynomials
// Using PCLMULQDQ Instruction", 2009), by tables elsewhere.
#pragma once

#include <cstdint>

#include "base/bytes.h"

namespace kestrun::crc32 {

inline constexpr uint32_t kPolynomial = 0xEDB88320;
inline constexpr uint32_t kStart = 0xFFFFFFFF;

// What a byte does to a state of which only the low byte counts.
[[nodiscard]] uint32_t TableEntry(uint8_t index);
// The state behind one byte more.
[[nodiscard]] inline uint32_t Next(uint32_t state, uint8_t byte) {
  return (state >> 8) ^ TableEntry(static_cast<uint8_t>(state ^ byte));
}
// The state behind all bytes, in the quickest way of this processor. The checksum is the inverted state.
[[nodiscard]] uint32_t Update(uint32_t state, ByteView bytes);
// The same by tables alone.
[[nodiscard]] uint32_t UpdateByTables(uint32_t state, ByteView bytes);

}  // namespace kestrun::crc32
