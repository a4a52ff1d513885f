// The bits of a deflate stream, lowest first (RFC 1951, section 3.1.1).
//
// How far the reader has taken bytes from the input is visible at one place: a stored block is refused when fewer than
// 4 bytes remain behind them. Near the end of the input the reader therefore takes byte after byte, only as many as a
// request needs; before that it takes as many as it can hold.
#pragma once

#include <bit>
#include <cstdint>
#include <cstring>

#include "base/bytes.h"
#include "base/runtime_error.h"

namespace kestrun::deflate {

static_assert(std::endian::native == std::endian::little);

[[nodiscard]] inline uint64_t LoadWord(const uint8_t* from) {
  uint64_t word = 0;
  std::memcpy(&word, from, sizeof word);
  return word;
}

struct BitReader {
  explicit BitReader(ByteView input) : next(input.data()), end(input.data() + input.size()) {}

  // From here to the end of the input bytes are counted.
  static constexpr int64_t kCountedBytes = 32;

  const uint8_t* next;
  const uint8_t* end;
  uint64_t bits = 0;   // not yet removed; above `count` zero
  unsigned count = 0;  // of valid bits, at most 63

  [[nodiscard]] int64_t Remaining() const { return end - next; }

  // Has at least `wanted` bits, up to 48, unless the input ends; then what is missing reads as 0.
  void Fill(unsigned wanted) {
    if (count >= wanted) return;
    if (Remaining() >= kCountedBytes) {
      const unsigned bytes = (63 - count) / 8;
      bits |= (LoadWord(next) & ((uint64_t{1} << (8 * bytes)) - 1)) << count;
      next += bytes;
      count += 8 * bytes;
      return;
    }
    while (count < wanted && next != end) {
      bits |= uint64_t{*next++} << count;
      count += 8;
    }
  }

  // Codewords may be completed by zeros behind the end of the input.
  void Remove(unsigned used) {
    bits >>= used;
    count = count > used ? count - used : 0;
  }

  // Header fields and extra bits have to be there: error 9 where the input ends before.
  [[nodiscard]] unsigned Read(unsigned wanted) {
    Fill(wanted);
    if (count < wanted) Raise(error::kSubscriptOutOfRange);
    const auto value = static_cast<unsigned>(bits & ((uint64_t{1} << wanted) - 1));
    Remove(wanted);
    return value;
  }

  // To the next whole byte; whole bytes go back.
  void AlignToByte() {
    next -= count / 8;
    bits = 0;
    count = 0;
  }
};

}  // namespace kestrun::deflate
