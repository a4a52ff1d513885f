#include "base/sha256.h"

#include <algorithm>
#include <bit>

namespace kestrun {
namespace {

// FIPS 180-4, 4.2.2: the first 32 bits of the fractional parts of the cube roots of the first 64 primes.
constexpr std::array<uint32_t, 64> kRoundConstants{
    0x428A2F98, 0x71374491, 0xB5C0FBCF, 0xE9B5DBA5, 0x3956C25B, 0x59F111F1, 0x923F82A4, 0xAB1C5ED5,
    0xD807AA98, 0x12835B01, 0x243185BE, 0x550C7DC3, 0x72BE5D74, 0x80DEB1FE, 0x9BDC06A7, 0xC19BF174,
    0xE49B69C1, 0xEFBE4786, 0x0FC19DC6, 0x240CA1CC, 0x2DE92C6F, 0x4A7484AA, 0x5CB0A9DC, 0x76F988DA,
    0x983E5152, 0xA831C66D, 0xB00327C8, 0xBF597FC7, 0xC6E00BF3, 0xD5A79147, 0x06CA6351, 0x14292967,
    0x27B70A85, 0x2E1B2138, 0x4D2C6DFC, 0x53380D13, 0x650A7354, 0x766A0ABB, 0x81C2C92E, 0x92722C85,
    0xA2BFE8A1, 0xA81A664B, 0xC24B8B70, 0xC76C51A3, 0xD192E819, 0xD6990624, 0xF40E3585, 0x106AA070,
    0x19A4C116, 0x1E376C08, 0x2748774C, 0x34B0BCB5, 0x391C0CB3, 0x4ED8AA4A, 0x5B9CCA4F, 0x682E6FF3,
    0x748F82EE, 0x78A5636F, 0x84C87814, 0x8CC70208, 0x90BEFFFA, 0xA4506CEB, 0xBEF9A3F7, 0xC67178F2};

constexpr int kLengthBytes = 8;

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

}  // namespace

// FIPS 180-4, 6.2.2.
void Sha256::AddBlock(const uint8_t* block) {
  std::array<uint32_t, 64> schedule;
  for (size_t t = 0; t < 16; ++t) schedule[t] = LoadBigEndian(block + 4 * t);
  for (size_t t = 16; t < schedule.size(); ++t) {
    schedule[t] = SmallSigma1(schedule[t - 2]) + schedule[t - 7] + SmallSigma0(schedule[t - 15]) + schedule[t - 16];
  }
  auto [a, b, c, d, e, f, g, h] = state_;
  for (size_t t = 0; t < schedule.size(); ++t) {
    const uint32_t first = h + BigSigma1(e) + Choose(e, f, g) + kRoundConstants[t] + schedule[t];
    const uint32_t second = BigSigma0(a) + Majority(a, b, c);
    h = g, g = f, f = e, e = d + first;
    d = c, c = b, b = a, a = first + second;
  }
  const std::array<uint32_t, kWords> added{a, b, c, d, e, f, g, h};
  for (size_t word = 0; word < kWords; ++word) state_[word] += added[word];
}

void Sha256::Add(ByteView bytes) {
  total_bytes_ += bytes.size();
  if (waiting_bytes_ > 0) {
    const size_t count = std::min(bytes.size(), kBlockBytes - waiting_bytes_);
    std::copy_n(bytes.begin(), count, waiting_.begin() + static_cast<std::ptrdiff_t>(waiting_bytes_));
    waiting_bytes_ += count;
    bytes = bytes.subspan(count);
    if (waiting_bytes_ < kBlockBytes) return;
    AddBlock(waiting_.data());
    waiting_bytes_ = 0;
  }
  for (; bytes.size() >= kBlockBytes; bytes = bytes.subspan(kBlockBytes)) AddBlock(bytes.data());
  std::copy(bytes.begin(), bytes.end(), waiting_.begin());
  waiting_bytes_ = bytes.size();
}

// FIPS 180-4, 5.1.1: a one bit, zeros up to the end of a block, and there the length in bits.
std::array<uint8_t, kSha256Bytes> Sha256::Finish() {
  const uint64_t bits = total_bytes_ * 8;
  const size_t zeros = (2 * kBlockBytes - 1 - kLengthBytes - waiting_bytes_) % kBlockBytes;
  Bytes padding(1 + zeros + kLengthBytes);
  padding[0] = 0x80;
  for (int byte = 0; byte < kLengthBytes; ++byte) {
    padding[1 + zeros + static_cast<size_t>(byte)] = static_cast<uint8_t>(bits >> (8 * (kLengthBytes - 1 - byte)));
  }
  Add(padding);
  std::array<uint8_t, kSha256Bytes> digest;
  for (size_t byte = 0; byte < digest.size(); ++byte) {
    digest[byte] = static_cast<uint8_t>(state_[byte / 4] >> (8 * (3 - byte % 4)));
  }
  return digest;
}

std::string HexOf(ByteView bytes) {
  constexpr std::string_view kDigits = "0123456789abcdef";
  std::string text;
  text.reserve(2 * bytes.size());
  for (const uint8_t byte : bytes) {
    text += kDigits[byte >> 4];
    text += kDigits[byte & 0xF];
  }
  return text;
}

std::string Sha256Hex(ByteView bytes) {
  Sha256 hash;
  hash.Add(bytes);
  return HexOf(hash.Finish());
}

bool IsSha256Hex(std::string_view text) {
  return text.size() == kSha256HexLength && text.find_first_not_of("0123456789abcdef") == std::string_view::npos;
}

}  // namespace kestrun
