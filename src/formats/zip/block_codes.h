// The two prefix codes of a compressed block: the fixed ones, and those that a dynamic block describes (RFC 1951,
// sections 3.2.5 to 3.2.7).
#pragma once

#include <array>

#include "formats/zip/bit_reader.h"
#include "formats/zip/huffman_table.h"

namespace kestrun::deflate {

struct BlockCodes {
  std::array<Entry, kLiteralTableEntries> literals;
  std::array<Entry, kDistanceTableEntries> distances;
  int longest_literal;  // longest codeword of each, in bits
  int longest_distance;
};

[[nodiscard]] const BlockCodes& StaticCodes();

// Reads the codes at the front of a dynamic block. False when they cannot be built: a set of lengths that is no prefix
// code, a repeat of nothing or beyond the last symbol, no end of block. Error 9 when the input ends before.
[[nodiscard]] bool ReadCodes(BitReader& reader, BlockCodes& codes);

}  // namespace kestrun::deflate
