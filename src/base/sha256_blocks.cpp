#include "base/sha256_blocks.h"

#include <cpuid.h>
#include <immintrin.h>

#include <bit>

namespace kestrun::sha256 {
namespace {

// FIPS 180-4, 4.2.2: the first 32 bits of the fractional parts of the cube roots of the first 64 primes.
alignas(16) constexpr std::array<uint32_t, 64> kRoundConstants{
    0x428A2F98, 0x71374491, 0xB5C0FBCF, 0xE9B5DBA5, 0x3956C25B, 0x59F111F1, 0x923F82A4, 0xAB1C5ED5,
    0xD807AA98, 0x12835B01, 0x243185BE, 0x550C7DC3, 0x72BE5D74, 0x80DEB1FE, 0x9BDC06A7, 0xC19BF174,
    0xE49B69C1, 0xEFBE4786, 0x0FC19DC6, 0x240CA1CC, 0x2DE92C6F, 0x4A7484AA, 0x5CB0A9DC, 0x76F988DA,
    0x983E5152, 0xA831C66D, 0xB00327C8, 0xBF597FC7, 0xC6E00BF3, 0xD5A79147, 0x06CA6351, 0x14292967,
    0x27B70A85, 0x2E1B2138, 0x4D2C6DFC, 0x53380D13, 0x650A7354, 0x766A0ABB, 0x81C2C92E, 0x92722C85,
    0xA2BFE8A1, 0xA81A664B, 0xC24B8B70, 0xC76C51A3, 0xD192E819, 0xD6990624, 0xF40E3585, 0x106AA070,
    0x19A4C116, 0x1E376C08, 0x2748774C, 0x34B0BCB5, 0x391C0CB3, 0x4ED8AA4A, 0x5B9CCA4F, 0x682E6FF3,
    0x748F82EE, 0x78A5636F, 0x84C87814, 0x8CC70208, 0x90BEFFFA, 0xA4506CEB, 0xBEF9A3F7, 0xC67178F2};

uint32_t LoadBigEndian(const uint8_t* at) {
  return uint32_t{at[0]} << 24 | uint32_t{at[1]} << 16 | uint32_t{at[2]} << 8 | uint32_t{at[3]};
}

// FIPS 180-4, 4.1.2.
uint32_t Choose(uint32_t x, uint32_t y, uint32_t z) { return (x & y) ^ (~x & z); }
uint32_t Majority(uint32_t x, uint32_t y, uint32_t z) { return (x & y) ^ (x & z) ^ (y & z); }
uint32_t BigSigma0(uint32_t x) { return std::rotr(x, 2) ^ std::rotr(x, 13) ^ std::rotr(x, 22); }
uint32_t BigSigma1(uint32_t x) { return std::rotr(x, 6) ^ std::rotr(x, 11) ^ std::rotr(x, 25); }
uint32_t SmallSigma0(uint32_t x) { return std::rotr(x, 7) ^ std::rotr(x, 18) ^ (x >> 3); }
uint32_t SmallSigma1(uint32_t x) { return std::rotr(x, 17) ^ std::rotr(x, 19) ^ (x >> 10); }

void AddBlockByWords(State& state, const uint8_t* block) {
  std::array<uint32_t, 64> schedule;
  for (size_t t = 0; t < 16; ++t) schedule[t] = LoadBigEndian(block + 4 * t);
  for (size_t t = 16; t < schedule.size(); ++t) {
    schedule[t] = SmallSigma1(schedule[t - 2]) + schedule[t - 7] + SmallSigma0(schedule[t - 15]) + schedule[t - 16];
  }
  auto [a, b, c, d, e, f, g, h] = state;
  for (size_t t = 0; t < schedule.size(); ++t) {
    const uint32_t first = h + BigSigma1(e) + Choose(e, f, g) + kRoundConstants[t] + schedule[t];
    const uint32_t second = BigSigma0(a) + Majority(a, b, c);
    h = g, g = f, f = e, e = d + first;
    d = c, c = b, b = a, a = first + second;
  }
  const State added{a, b, c, d, e, f, g, h};
  for (size_t word = 0; word < state.size(); ++word) state[word] += added[word];
}

[[gnu::target("sha,ssse3,sse4.1"), gnu::always_inline]] inline __m128i Load(const void* from) {
  return _mm_loadu_si128(static_cast<const __m128i*>(from));
}

// Words 4t + 16 to 4t + 19 of the schedule from the 16 words before them, four to a lane.
[[gnu::target("sha,ssse3,sse4.1"), gnu::always_inline]] inline __m128i NextWords(__m128i first, __m128i second,
                                                                                 __m128i third, __m128i fourth) {
  const __m128i seven_back = _mm_alignr_epi8(fourth, third, 4);
  return _mm_sha256msg2_epu32(_mm_add_epi32(_mm_sha256msg1_epu32(first, second), seven_back), fourth);
}

// The instructions keep the state in two lanes, a b e f and c d g h, highest word first.
[[gnu::target("sha,ssse3,sse4.1")]] void AddBlocksByInstructions(State& state, const uint8_t* block, size_t count) {
  const __m128i big_endian = _mm_set_epi64x(0x0C0D0E0F08090A0B, 0x0405060700010203);
  const __m128i cdab = _mm_shuffle_epi32(Load(state.data()), 0xB1);
  const __m128i efgh = _mm_shuffle_epi32(Load(state.data() + 4), 0x1B);
  __m128i abef = _mm_alignr_epi8(cdab, efgh, 8);
  __m128i cdgh = _mm_blend_epi16(efgh, cdab, 0xF0);
  for (; count > 0; --count, block += kBlockBytes) {
    const __m128i abef_before = abef;
    const __m128i cdgh_before = cdgh;
    __m128i words[4];
    for (ptrdiff_t lane = 0; lane < 4; ++lane) words[lane] = _mm_shuffle_epi8(Load(block + 16 * lane), big_endian);
#pragma GCC unroll 16
    for (ptrdiff_t group = 0; group < 16; ++group) {
      const __m128i now = words[group % 4];
      __m128i sum = _mm_add_epi32(now, Load(kRoundConstants.data() + 4 * group));
      cdgh = _mm_sha256rnds2_epu32(cdgh, abef, sum);
      sum = _mm_shuffle_epi32(sum, 0x0E);
      abef = _mm_sha256rnds2_epu32(abef, cdgh, sum);
      words[group % 4] = NextWords(now, words[(group + 1) % 4], words[(group + 2) % 4], words[(group + 3) % 4]);
    }
    abef = _mm_add_epi32(abef, abef_before);
    cdgh = _mm_add_epi32(cdgh, cdgh_before);
  }
  const __m128i feba = _mm_shuffle_epi32(abef, 0x1B);
  const __m128i dchg = _mm_shuffle_epi32(cdgh, 0xB1);
  _mm_storeu_si128(reinterpret_cast<__m128i*>(state.data()), _mm_blend_epi16(feba, dchg, 0xF0));
  _mm_storeu_si128(reinterpret_cast<__m128i*>(state.data() + 4), _mm_alignr_epi8(dchg, feba, 8));
}

// Leaf 7 of CPUID: bit 29 of EBX stands for the SHA extensions.
bool HasInstructions() {
  constexpr unsigned kShaBit = 1U << 29;
  unsigned eax = 0;
  unsigned ebx = 0;
  unsigned ecx = 0;
  unsigned edx = 0;
  if (__get_cpuid_count(7, 0, &eax, &ebx, &ecx, &edx) == 0 || (ebx & kShaBit) == 0) return false;
  return __builtin_cpu_supports("ssse3") != 0 && __builtin_cpu_supports("sse4.1") != 0;
}

}  // namespace

void AddBlocksByWords(State& state, const uint8_t* blocks, size_t count) {
  for (; count > 0; --count, blocks += kBlockBytes) AddBlockByWords(state, blocks);
}

void AddBlocks(State& state, const uint8_t* blocks, size_t count) {
  static const bool has_instructions = HasInstructions();
  (has_instructions ? AddBlocksByInstructions : AddBlocksByWords)(state, blocks, count);
}

}  // namespace kestrun::sha256
