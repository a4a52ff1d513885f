#include "web/cod_base64.h"

#include <array>
#include <cstring>
#include <string_view>
#include <utility>

namespace kestrun {
namespace {

constexpr std::string_view kAlphabet = "ABCDEFGHIJKLMNOPQRSTUVWXYZabcdefghijklmnopqrstuvwxyz0123456789+/";
constexpr size_t kGroup = 3;

// The two characters of every 12-bit number, so that a group of three bytes takes two look-ups.
using Pair = std::array<char, 2>;
constexpr std::array<Pair, 4096> MakePairs() {
  std::array<Pair, 4096> pairs{};
  for (size_t at = 0; at < pairs.size(); ++at) pairs[at] = {kAlphabet[at >> 6], kAlphabet[at & 63]};
  return pairs;
}
constexpr std::array<Pair, 4096> kPairs = MakePairs();

[[gnu::always_inline]] inline void WritePair(char* out, uint64_t twelve_bits) {
  std::memcpy(out, kPairs[twelve_bits & 4095].data(), sizeof(Pair));
}

uint32_t LoadGroup(const uint8_t* in) {
  return static_cast<uint32_t>(in[0]) << 16 | static_cast<uint32_t>(in[1]) << 8 | in[2];
}

// Big-endian, whatever the machine: compilers make one load of it.
uint64_t LoadEight(const uint8_t* in) {
  uint64_t value = 0;
  for (int at = 0; at < 8; ++at) value = value << 8 | in[at];
  return value;
}

// The last one or two bytes: those beyond the end read as 0, and their characters are left out.
void WriteTail(char* out, const uint8_t* in, size_t count) {
  std::array<uint8_t, kGroup> group{};
  std::memcpy(group.data(), in, count);
  std::array<char, 4> text{};
  WritePair(text.data(), LoadGroup(group.data()) >> 12);
  WritePair(text.data() + 2, LoadGroup(group.data()));
  std::memcpy(out, text.data(), count + 1);
}

// Fills `out` with EncodedLength(in.size()) characters.
void EncodeInto(char* out, ByteView bytes) {
  const uint8_t* in = bytes.data();
  size_t left = bytes.size();
  // Two groups at a time, out of eight bytes of which the last two are read once more in the next round.
  for (; left >= 8; left -= 2 * kGroup, in += 2 * kGroup, out += 8) {
    const uint64_t value = LoadEight(in);
    WritePair(out, value >> 52);
    WritePair(out + 2, value >> 40);
    WritePair(out + 4, value >> 28);
    WritePair(out + 6, value >> 16);
  }
  for (; left >= kGroup; left -= kGroup, in += kGroup, out += 4) {
    WritePair(out, LoadGroup(in) >> 12);
    WritePair(out + 2, LoadGroup(in));
  }
  if (left > 0) WriteTail(out, in, left);
}

}  // namespace

void Cod_Base64::Encode(Bytes& bytes) {
  Bytes text(EncodedLength(bytes.size()));
  EncodeInto(reinterpret_cast<char*>(text.data()), bytes);
  bytes = std::move(text);
}

void Cod_Base64::Append(std::string& text, ByteView bytes) {
  const size_t start = text.size();
  text.resize(start + EncodedLength(bytes.size()));
  EncodeInto(text.data() + start, bytes);
}

}  // namespace kestrun
