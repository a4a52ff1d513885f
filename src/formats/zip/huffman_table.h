// Decode tables for the prefix codes of RFC 1951, section 3.2.2: two levels, indexed by the next bits of the stream.
//
// An entry is 32 bits and says all about its codeword:
//   bits 0-7    bits to remove: the codeword's, and the extra bits that follow it
//   bits 8-11   length of the codeword (in this level); for a pointer the bits that index its second table
//   bits 16-30  literal byte, base of a length, or place of the second table; bits 16-31 base of a distance
// with the kinds below as flags. Bits removed never exceed 31.
#pragma once

#include <array>
#include <cstdint>
#include <span>

namespace kestrun::deflate {

using Entry = uint32_t;

inline constexpr Entry kLiteral = 0x80000000U;
// Any of the next three; what has none of the four flags is a length or a distance.
inline constexpr Entry kExceptional = 0x8000U;
inline constexpr Entry kPointer = 0x4000U;
inline constexpr Entry kEndOfBlock = 0x2000U;
// A codeword that the code does not have, or one of a symbol that means nothing.
inline constexpr Entry kInvalid = 0x1000U;

[[nodiscard]] constexpr unsigned BitsOf(Entry entry) { return entry & 63; }
[[nodiscard]] constexpr unsigned CodewordBits(Entry entry) { return (entry >> 8) & 15; }
[[nodiscard]] constexpr unsigned ValueOf(Entry entry) { return (entry >> 16) & 0x7FFF; }

inline constexpr int kMaxCodeBits = 15;

// Index bits of the first level, and the most entries that both levels can take for a code of that many symbols.
inline constexpr unsigned kLiteralTableBits = 11;
inline constexpr size_t kLiteralTableEntries = 2342;  // 288 symbols
inline constexpr unsigned kDistanceTableBits = 8;
inline constexpr size_t kDistanceTableEntries = 402;  // 32 symbols
inline constexpr unsigned kLengthsTableBits = 7;
inline constexpr size_t kLengthsTableEntries = 128;  // 19 symbols of at most 7 bits

// What a symbol stands for: its entry without bits and codeword length. Extra bits go into bits 0-7.
using SymbolMeanings = std::span<const Entry>;

enum class CodeKind {
  kComplete,
  kSingle,  // one codeword of one bit; the other bit means nothing
  kEmpty,   // no codeword
  kBroken,  // no prefix code: too many short codewords, or so few that some bits mean nothing
};

// Fills a table for codewords of the given lengths, at most 15, one for each symbol, 0 for a symbol without one. What a
// single or an empty code leaves open is kInvalid; of a broken one no table is made. Gives the longest length in
// `longest`.
[[nodiscard]] CodeKind BuildTable(std::span<const uint8_t> lengths, SymbolMeanings meanings, unsigned table_bits,
                                  std::span<Entry> table, int& longest);

}  // namespace kestrun::deflate
