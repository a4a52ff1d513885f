#include "base/crc32.h"

#include <immintrin.h>

#include <array>
#include <cstring>

namespace kestrun::crc32 {
namespace {

constexpr size_t kWordBytes = 8;
// Long buffers are walked in blocks of so many words, each word with a state of its own: none waits for the others.
constexpr size_t kBraids = 5;
constexpr size_t kBlockBytes = kBraids * kWordBytes;
constexpr size_t kLeastForBraids = 4 * kBlockBytes;
constexpr size_t kSlices = kBlockBytes;  // no byte is carried further
using Table = std::array<uint32_t, 256>;

// Slice n gives what a byte does that is followed by n zero bytes.
constexpr std::array<Table, kSlices> kTables = [] {
  std::array<Table, kSlices> tables{};
  for (uint32_t at = 0; at < 256; ++at) {
    uint32_t value = at;
    for (int bit = 0; bit < 8; ++bit) value = (value >> 1) ^ ((value & 1) != 0 ? kPolynomial : 0U);
    tables[0][at] = value;
  }
  for (size_t slice = 1; slice < kSlices; ++slice) {
    for (uint32_t at = 0; at < 256; ++at) {
      const uint32_t shorter = tables[slice - 1][at];
      tables[slice][at] = (shorter >> 8) ^ tables[0][shorter & 255];
    }
  }
  return tables;
}();

[[gnu::always_inline]] inline uint64_t LoadWord(const uint8_t* from) {
  uint64_t word = 0;
  std::memcpy(&word, from, sizeof word);
  return word;
}

// The eight bytes of a word that is followed by the given number of bytes in its block.
[[gnu::always_inline]] inline uint32_t Slice8(uint64_t word, size_t followed_by) {
  uint32_t sum = 0;
#pragma GCC unroll 8
  for (size_t byte = 0; byte < 8; ++byte) sum ^= kTables[followed_by + 7 - byte][(word >> (8 * byte)) & 255];
  return sum;
}

// Moves on over all whole blocks, of which there is at least one. A state is carried over the words of the others to
// its word in the next block; in the last one each joins the next word.
uint32_t UpdateByBraids(uint32_t state, const uint8_t*& from, size_t& left) {
  std::array<uint32_t, kBraids> states{state};
  for (; left >= 2 * kBlockBytes; left -= kBlockBytes, from += kBlockBytes) {
#pragma GCC unroll 5
    for (size_t braid = 0; braid < kBraids; ++braid) {
      states[braid] = Slice8(LoadWord(from + braid * kWordBytes) ^ states[braid], kBlockBytes - kWordBytes);
    }
  }
  state = 0;
  for (const uint32_t braid : states) {
    state = Slice8(LoadWord(from) ^ braid ^ state, 0);
    from += kWordBytes;
  }
  left -= kBlockBytes;
  return state;
}

uint32_t UpdateByteByByte(uint32_t state, const uint8_t* from, size_t bytes) {
  for (; bytes > 0; --bytes) state = (state >> 8) ^ kTables[0][(state ^ *from++) & 255];
  return state;
}

// x to the power n modulo the polynomial, reflected, as a factor for reflected operands, whose product comes out one
// bit lower.
constexpr uint64_t Power(size_t exponent) {
  uint32_t remainder = 0x80000000;  // x to the power 0
  for (size_t at = 0; at < exponent; ++at) remainder = (remainder >> 1) ^ ((remainder & 1) != 0 ? kPolynomial : 0U);
  return uint64_t{remainder} << 1;
}

constexpr size_t kLaneBytes = 16;
constexpr size_t kLanes = 4;
constexpr size_t BitsOf(size_t lanes) { return 8 * kLaneBytes * lanes; }

// Moves a lane by the distance whose two factors are given, onto another.
[[gnu::target("pclmul,sse4.1"), gnu::always_inline]] inline __m128i Fold(__m128i lane, __m128i onto, __m128i factors) {
  const __m128i low = _mm_clmulepi64_si128(lane, factors, 0x00);
  const __m128i high = _mm_clmulepi64_si128(lane, factors, 0x11);
  return _mm_xor_si128(_mm_xor_si128(low, high), onto);
}

[[gnu::target("pclmul,sse4.1"), gnu::always_inline]] inline __m128i LoadLane(const uint8_t* from) {
  return _mm_loadu_si128(reinterpret_cast<const __m128i*>(from));
}

[[gnu::target("pclmul,sse4.1"), gnu::always_inline]] inline __m128i Factors(uint64_t low, uint64_t high) {
  return _mm_set_epi64x(static_cast<long long>(high), static_cast<long long>(low));
}

// The two factors that carry a lane over so many lanes.
template <size_t kDistance>
constexpr uint64_t kLowFactor = Power(BitsOf(kDistance) + 32);
template <size_t kDistance>
constexpr uint64_t kHighFactor = Power(BitsOf(kDistance) - 32);

// x to the power 64 divided by the polynomial, reflected in 33 bits: with it a remainder is found without dividing.
constexpr uint64_t kQuotient = [] {
  constexpr uint64_t kNormal = 0x04C11DB7;  // the polynomial the other way round, without its highest term
  uint64_t quotient = 1;
  uint64_t remainder = kNormal;
  for (int bit = 1; bit <= 32; ++bit) {
    remainder <<= 1;
    const uint64_t carry = remainder >> 32;
    if (carry != 0) remainder = (remainder ^ kNormal) & 0xFFFFFFFF;
    quotient |= carry << bit;
  }
  return quotient;
}();

// The state that a lane stands for.
[[gnu::target("pclmul,sse4.1"), gnu::always_inline]] inline uint32_t Reduce(__m128i lane) {
  constexpr uint64_t kWholePolynomial = (uint64_t{kPolynomial} << 1) | 1;
  const __m128i low_halves = _mm_setr_epi32(-1, 0, -1, 0);
  constexpr uint64_t kOver64 = Power(64);
  const __m128i powers = Factors(kHighFactor<1>, kOver64);
  const __m128i divisor = Factors(kWholePolynomial, kQuotient);
  // 128 bits to 96, to 64, to the remainder.
  lane = _mm_xor_si128(_mm_srli_si128(lane, 8), _mm_clmulepi64_si128(lane, powers, 0x00));
  lane = _mm_xor_si128(_mm_srli_si128(lane, 4), _mm_clmulepi64_si128(_mm_and_si128(lane, low_halves), powers, 0x10));
  __m128i times = _mm_clmulepi64_si128(_mm_and_si128(lane, low_halves), divisor, 0x10);
  times = _mm_clmulepi64_si128(_mm_and_si128(times, low_halves), divisor, 0x00);
  return static_cast<uint32_t>(_mm_extract_epi32(_mm_xor_si128(lane, times), 1));
}

[[gnu::target("pclmul,sse4.1"), gnu::always_inline]] inline __m128i FoldByOne(__m128i lane, __m128i onto) {
  return Fold(lane, onto, Factors(kLowFactor<1>, kHighFactor<1>));
}

// The lane and what is left behind it.
[[gnu::target("pclmul,sse4.1"), gnu::always_inline]] inline uint32_t FinishLane(__m128i lane, const uint8_t* from,
                                                                                size_t bytes) {
  for (; bytes >= kLaneBytes; from += kLaneBytes, bytes -= kLaneBytes) lane = FoldByOne(lane, LoadLane(from));
  return UpdateByTables(Reduce(lane), {from, bytes});
}

// Takes at least one lane.
[[gnu::target("pclmul,sse4.1")]] uint32_t UpdateByMultiplication(uint32_t state, const uint8_t* from, size_t bytes) {
  __m128i lane = _mm_xor_si128(LoadLane(from), _mm_cvtsi32_si128(static_cast<int>(state)));
  constexpr size_t kBlock = kLanes * kLaneBytes;
  if (bytes < 2 * kBlock) return FinishLane(lane, from + kLaneBytes, bytes - kLaneBytes);
  const __m128i by_four = Factors(kLowFactor<kLanes>, kHighFactor<kLanes>);
  __m128i lane1 = LoadLane(from + kLaneBytes);
  __m128i lane2 = LoadLane(from + 2 * kLaneBytes);
  __m128i lane3 = LoadLane(from + 3 * kLaneBytes);
  for (from += kBlock, bytes -= kBlock; bytes >= kBlock; from += kBlock, bytes -= kBlock) {
    lane = Fold(lane, LoadLane(from), by_four);
    lane1 = Fold(lane1, LoadLane(from + kLaneBytes), by_four);
    lane2 = Fold(lane2, LoadLane(from + 2 * kLaneBytes), by_four);
    lane3 = Fold(lane3, LoadLane(from + 3 * kLaneBytes), by_four);
  }
  return FinishLane(FoldByOne(FoldByOne(FoldByOne(lane, lane1), lane2), lane3), from, bytes);
}

// Four lanes in one register, where the processor multiplies them at once, and four such registers. Everything here
// stays in registers: GCC does not align the stack of Windows for values of that width.
constexpr size_t kWideBytes = kLanes * kLaneBytes;
constexpr size_t kWideBlock = 4 * kWideBytes;
constexpr size_t kLeastForWide = 2 * kWideBlock;
#define KESTRUN_WIDE_TARGET "avx512f,vpclmulqdq,pclmul,sse4.1"

[[gnu::target(KESTRUN_WIDE_TARGET), gnu::always_inline]] inline __m512i FoldWide(__m512i lanes, __m512i onto,
                                                                                 __m512i factors) {
  constexpr int kSumOfThree = 0x96;
  return _mm512_ternarylogic_epi64(_mm512_clmulepi64_epi128(lanes, factors, 0x00),
                                   _mm512_clmulepi64_epi128(lanes, factors, 0x11), onto, kSumOfThree);
}

template <size_t kDistance>
[[gnu::target(KESTRUN_WIDE_TARGET), gnu::always_inline]] inline __m512i WideFactors() {
  constexpr auto kLow = static_cast<long long>(kLowFactor<kDistance>);
  constexpr auto kHigh = static_cast<long long>(kHighFactor<kDistance>);
  return _mm512_set_epi64(kHigh, kLow, kHigh, kLow, kHigh, kLow, kHigh, kLow);
}

// Takes at least kLeastForWide bytes.
[[gnu::target(KESTRUN_WIDE_TARGET)]] uint32_t UpdateByWideMultiplication(uint32_t state, const uint8_t* from,
                                                                         size_t bytes) {
  const __m512i by_sixteen = WideFactors<4 * kLanes>();
  const __m512i before = _mm512_zextsi128_si512(_mm_cvtsi32_si128(static_cast<int>(state)));
  __m512i lanes = _mm512_xor_si512(_mm512_loadu_si512(from), before);
  __m512i lanes1 = _mm512_loadu_si512(from + kWideBytes);
  __m512i lanes2 = _mm512_loadu_si512(from + 2 * kWideBytes);
  __m512i lanes3 = _mm512_loadu_si512(from + 3 * kWideBytes);
  for (from += kWideBlock, bytes -= kWideBlock; bytes >= kWideBlock; from += kWideBlock, bytes -= kWideBlock) {
    lanes = FoldWide(lanes, _mm512_loadu_si512(from), by_sixteen);
    lanes1 = FoldWide(lanes1, _mm512_loadu_si512(from + kWideBytes), by_sixteen);
    lanes2 = FoldWide(lanes2, _mm512_loadu_si512(from + 2 * kWideBytes), by_sixteen);
    lanes3 = FoldWide(lanes3, _mm512_loadu_si512(from + 3 * kWideBytes), by_sixteen);
  }
  const __m512i by_four = WideFactors<kLanes>();
  lanes = FoldWide(FoldWide(FoldWide(lanes, lanes1, by_four), lanes2, by_four), lanes3, by_four);
  uint8_t last[kWideBytes];
  _mm512_storeu_si512(last, lanes);
  _mm256_zeroupper();  // which GCC leaves out for Windows: what follows in narrower registers would be slow
  __m128i lane = LoadLane(last);
  for (size_t at = kLaneBytes; at < kWideBytes; at += kLaneBytes) lane = FoldByOne(lane, LoadLane(last + at));
  return FinishLane(lane, from, bytes);
}

}  // namespace

uint32_t TableEntry(uint8_t index) { return kTables[0][index]; }

uint32_t UpdateByTables(uint32_t state, ByteView bytes) {
  const uint8_t* from = bytes.data();
  size_t left = bytes.size();
  if (left >= kLeastForBraids) state = UpdateByBraids(state, from, left);
  for (; left >= 2 * kWordBytes; left -= 2 * kWordBytes, from += 2 * kWordBytes) {
    state = Slice8(LoadWord(from) ^ state, kWordBytes) ^ Slice8(LoadWord(from + kWordBytes), 0);
  }
  if (left >= kWordBytes) {
    state = Slice8(LoadWord(from) ^ state, 0);
    from += kWordBytes;
    left -= kWordBytes;
  }
  return UpdateByteByByte(state, from, left);
}

uint32_t Update(uint32_t state, ByteView bytes) {
  static const bool can_multiply = __builtin_cpu_supports("pclmul") != 0 && __builtin_cpu_supports("sse4.1") != 0;
  static const bool can_multiply_wide =
      can_multiply && __builtin_cpu_supports("avx512f") != 0 && __builtin_cpu_supports("vpclmulqdq") != 0;
  if (can_multiply_wide && bytes.size() >= kLeastForWide) {
    return UpdateByWideMultiplication(state, bytes.data(), bytes.size());
  }
  if (can_multiply && bytes.size() >= kLaneBytes) {
    return UpdateByMultiplication(state, bytes.data(), bytes.size());
  }
  return UpdateByTables(state, bytes);
}

}  // namespace kestrun::crc32
