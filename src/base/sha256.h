// SHA-256 as FIPS 180-4 defines it: the name under which content is kept.
#pragma once

#include <array>
#include <cstddef>
#include <cstdint>
#include <string>
#include <string_view>

#include "base/bytes.h"
#include "base/sha256_blocks.h"

namespace kestrun {

inline constexpr size_t kSha256Bytes = 32;
inline constexpr size_t kSha256HexLength = 2 * kSha256Bytes;

// Bytes that come in pieces. Finish is called once, after the last piece.
class Sha256 {
 public:
  void Add(ByteView bytes);
  [[nodiscard]] std::array<uint8_t, kSha256Bytes> Finish();

 private:
  sha256::State state_{0x6A09E667, 0xBB67AE85, 0x3C6EF372, 0xA54FF53A, 0x510E527F, 0x9B05688C, 0x1F83D9AB, 0x5BE0CD19};
  std::array<uint8_t, sha256::kBlockBytes> waiting_{};
  size_t waiting_bytes_ = 0;
  uint64_t total_bytes_ = 0;
};

// 64 hexadecimal digits in lower case.
[[nodiscard]] std::string Sha256Hex(ByteView bytes);
[[nodiscard]] std::string HexOf(ByteView bytes);
// True for 64 digits as Sha256Hex writes them.
[[nodiscard]] bool IsSha256Hex(std::string_view text);

}  // namespace kestrun
