#include "base/sha256.h"

#include <algorithm>

namespace kestrun {
namespace {

constexpr int kLengthBytes = 8;

}  // namespace

void Sha256::Add(ByteView bytes) {
  total_bytes_ += bytes.size();
  if (waiting_bytes_ > 0) {
    const size_t count = std::min(bytes.size(), sha256::kBlockBytes - waiting_bytes_);
    std::copy_n(bytes.begin(), count, waiting_.begin() + static_cast<std::ptrdiff_t>(waiting_bytes_));
    waiting_bytes_ += count;
    bytes = bytes.subspan(count);
    if (waiting_bytes_ < sha256::kBlockBytes) return;
    sha256::AddBlocks(state_, waiting_.data(), 1);
    waiting_bytes_ = 0;
  }
  sha256::AddBlocks(state_, bytes.data(), bytes.size() / sha256::kBlockBytes);
  bytes = bytes.last(bytes.size() % sha256::kBlockBytes);
  std::copy(bytes.begin(), bytes.end(), waiting_.begin());
  waiting_bytes_ = bytes.size();
}

// FIPS 180-4, 5.1.1: a one bit, zeros up to the end of a block, and there the length in bits.
std::array<uint8_t, kSha256Bytes> Sha256::Finish() {
  const uint64_t bits = total_bytes_ * 8;
  const size_t zeros = (2 * sha256::kBlockBytes - 1 - kLengthBytes - waiting_bytes_) % sha256::kBlockBytes;
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
