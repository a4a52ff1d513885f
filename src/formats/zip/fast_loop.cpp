#include "formats/zip/fast_loop.h"

#include "base/runtime_error.h"

namespace kestrun::deflate {
namespace {

// Refills move on by what is removed: at most 7 bytes at first, then 87 bits in a round. Each looks 8 bytes ahead.
constexpr int64_t kInputRoom = BitReader::kCountedBytes;
// A round writes 3 literals and a match of 258 bytes, and copies run up to 32 bytes beyond their end.
constexpr int64_t kOutputRoom = 3 + 258 + 32;
constexpr size_t kCopyOverrun = 32;
// Bits of a distance whose codeword is in the first level, and of the look-up behind it.
constexpr unsigned kShortDistanceAndLookup = kDistanceTableBits + 14 + kLiteralTableBits;

[[noreturn, gnu::cold, gnu::noinline]] void RaiseOutOfRange() { Raise(error::kSubscriptOutOfRange); }

inline void CopyWord(uint8_t* to, const uint8_t* from) {
  uint64_t word = 0;
  std::memcpy(&word, from, sizeof word);
  std::memcpy(to, &word, sizeof word);
}

// Up to 31 bytes more than asked are written behind the match.
[[gnu::always_inline]] inline void CopyMatch(uint8_t* to, size_t length, size_t distance) {
  const uint8_t* from = to - distance;
  const uint8_t* end = to + length;
  if (distance >= 8) [[likely]] {
    CopyWord(to, from);
    CopyWord(to + 8, from + 8);
    CopyWord(to + 16, from + 16);
    if (length <= 24) [[likely]]
      return;
    to += 24;
    from += 24;
    do {
      CopyWord(to, from);
      to += 8;
      from += 8;
    } while (to < end);
  } else if (distance == 1) {
    const uint64_t word = 0x0101010101010101U * *from;
    do {
      std::memcpy(to, &word, sizeof word);
      to += sizeof word;
    } while (to < end);
  } else {
    // Nearer than a word only the first `distance` bytes of each are right; the next copy starts behind them.
    const size_t step = distance < sizeof(uint64_t) ? distance : sizeof(uint64_t);
    do {
      CopyWord(to, from);
      to += step;
      from += step;
    } while (to < end);
  }
}

[[gnu::always_inline]] inline uint64_t LowBits(uint64_t bits, unsigned count) {
  return bits & ((uint64_t{1} << static_cast<uint8_t>(count)) - 1);
}

// What stands behind the codeword in the bits that an entry removes.
[[gnu::always_inline]] inline unsigned ExtraBits(uint64_t bits, Entry entry) {
  return static_cast<unsigned>(LowBits(bits, entry) >> ((entry >> 8) & 63));
}

// The buffered bits in registers. `count` is right in its low 6 bits; above them it is not kept.
struct FastBits {
  const uint8_t* next;
  uint64_t bits;
  unsigned count;

  // To 56 bits or more, without a branch: bits beyond the count are those that a later refill puts there again.
  [[gnu::always_inline]] void Refill() {
    bits |= LoadWord(next) << (count & 63);
    next += 7 - ((count >> 3) & 7);
    count |= 56;
  }
  // Gives the bits as they were.
  [[gnu::always_inline]] uint64_t Remove(Entry entry) {
    const uint64_t before = bits;
    bits >>= entry & 63;
    count -= entry;
    return before;
  }
};

[[gnu::always_inline]] inline void GiveBack(BitReader& reader, const FastBits& fast) {
  reader.next = fast.next;
  reader.count = fast.count & 63;
  reader.bits = LowBits(fast.bits, reader.count);
}

// An entry's bits are removed before it is asked what it is: when the processor has guessed that wrong, the bits are
// already there.
template <bool kDeflate64>
[[gnu::always_inline]] inline BlockEnd Loop(BitReader& reader, const BlockCodes& codes, const uint8_t* begin,
                                            uint8_t*& position, const uint8_t* end) {
  constexpr uint64_t kLiteralMask = (1U << kLiteralTableBits) - 1;
  constexpr uint64_t kDistanceMask = (1U << kDistanceTableBits) - 1;
  if (reader.Remaining() < kInputRoom || end - position < kOutputRoom) return BlockEnd::kNotYet;
  const Entry* const literals = codes.literals.data();
  const Entry* const distances = codes.distances.data();
  const uint8_t* const last_next = reader.end - kInputRoom;
  const uint8_t* const last_out = end - kOutputRoom;
  uint8_t* out = position;
  FastBits in{reader.next, reader.bits, reader.count};
  BlockEnd block_end = BlockEnd::kNotYet;

  in.Refill();
  Entry entry = literals[in.bits & kLiteralMask];
  do {
    uint64_t before = in.Remove(entry);
    if ((entry & kLiteral) != 0) {
      // Two literals of the first level leave enough bits for a length, and to look its distance up.
      *out++ = static_cast<uint8_t>(entry >> 16);
      entry = literals[in.bits & kLiteralMask];
      before = in.Remove(entry);
      if ((entry & kLiteral) != 0) {
        *out++ = static_cast<uint8_t>(entry >> 16);
        entry = literals[in.bits & kLiteralMask];
        before = in.Remove(entry);
        if ((entry & kLiteral) != 0) {
          *out++ = static_cast<uint8_t>(entry >> 16);
          entry = literals[in.bits & kLiteralMask];
          in.Refill();
          continue;
        }
      }
    }
    if ((entry & kExceptional) != 0) [[unlikely]] {
      if ((entry & kPointer) != 0) {
        entry = literals[ValueOf(entry) + LowBits(in.bits, CodewordBits(entry))];
        before = in.Remove(entry);
        if ((entry & kLiteral) != 0) {
          *out++ = static_cast<uint8_t>(entry >> 16);
          entry = literals[in.bits & kLiteralMask];
          in.Refill();
          continue;
        }
      }
      if ((entry & kExceptional) != 0) {
        if ((entry & kInvalid) != 0) RaiseOutOfRange();
        block_end = BlockEnd::kReached;
        break;
      }
    }
    size_t length = ValueOf(entry) + ExtraBits(before, entry);
    if (kDeflate64 && length == 258) [[unlikely]] {
      in.Refill();
      length = LowBits(in.Remove(16), 16) + 3;
    }
    entry = distances[in.bits & kDistanceMask];
    if ((in.count & 63) < kShortDistanceAndLookup) [[unlikely]]
      in.Refill();
    if ((entry & kExceptional) != 0) [[unlikely]] {
      if ((entry & kInvalid) != 0) RaiseOutOfRange();
      in.Refill();
      in.Remove(kDistanceTableBits);
      entry = distances[ValueOf(entry) + LowBits(in.bits, CodewordBits(entry))];
    }
    before = in.Remove(entry);
    const size_t distance = (entry >> 16) + ExtraBits(before, entry);
    if (distance > static_cast<size_t>(out - begin)) [[unlikely]]
      RaiseOutOfRange();
    entry = literals[in.bits & kLiteralMask];
    in.Refill();
    uint8_t* const to = out;
    // Only in Deflate64 is a match longer than the room that a round starts with.
    if (kDeflate64 && static_cast<ptrdiff_t>(length + kCopyOverrun) > end - to) [[unlikely]] {
      if (static_cast<ptrdiff_t>(length) > end - to) RaiseOutOfRange();
      for (; length > 0; --length, ++out) *out = *(out - distance);
      break;
    }
    out += length;
    CopyMatch(to, length, distance);
  } while (in.next <= last_next && out <= last_out);
  GiveBack(reader, in);
  position = out;
  return block_end;
}

// Shifts and masks by a variable take one instruction where the processor has BMI2.
template <bool kDeflate64>
[[gnu::target("bmi,bmi2")]] BlockEnd LoopBmi2(BitReader& reader, const BlockCodes& codes, const uint8_t* begin,
                                              uint8_t*& out, const uint8_t* end) {
  return Loop<kDeflate64>(reader, codes, begin, out, end);
}

}  // namespace

template <bool kDeflate64>
BlockEnd RunFastPortably(BitReader& reader, const BlockCodes& codes, const uint8_t* begin, uint8_t*& out,
                         const uint8_t* end) {
  return Loop<kDeflate64>(reader, codes, begin, out, end);
}

template BlockEnd RunFastPortably<false>(BitReader&, const BlockCodes&, const uint8_t*, uint8_t*&, const uint8_t*);
template BlockEnd RunFastPortably<true>(BitReader&, const BlockCodes&, const uint8_t*, uint8_t*&, const uint8_t*);

template <bool kDeflate64>
BlockEnd RunFast(BitReader& reader, const BlockCodes& codes, const uint8_t* begin, uint8_t*& out, const uint8_t* end) {
  static const bool has_bmi2 = __builtin_cpu_supports("bmi2") != 0;
  if (has_bmi2) return LoopBmi2<kDeflate64>(reader, codes, begin, out, end);
  return RunFastPortably<kDeflate64>(reader, codes, begin, out, end);
}

template BlockEnd RunFast<false>(BitReader&, const BlockCodes&, const uint8_t*, uint8_t*&, const uint8_t*);
template BlockEnd RunFast<true>(BitReader&, const BlockCodes&, const uint8_t*, uint8_t*&, const uint8_t*);

}  // namespace kestrun::deflate
