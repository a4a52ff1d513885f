#include "formats/zip/reduce.h"

#include <algorithm>
#include <array>
#include <bit>
#include <optional>

namespace kestrun::zip {
namespace {

constexpr uint8_t kEscape = 144;
constexpr size_t kShortestMatch = 3;

// Bits of the stream, lowest first; nothing once they have run out.
class Bits {
 public:
  explicit Bits(ByteView data) : data_(data) {}

  [[nodiscard]] std::optional<uint8_t> Read(unsigned wanted) {
    while (count_ < wanted) {
      if (next_ == data_.size()) return std::nullopt;
      bits_ |= uint32_t{data_[next_++]} << count_;
      count_ += 8;
    }
    const auto value = static_cast<uint8_t>(bits_ & ((1U << wanted) - 1));
    bits_ >>= wanted;
    count_ -= wanted;
    return value;
  }

 private:
  ByteView data_;
  size_t next_ = 0;
  uint32_t bits_ = 0;
  unsigned count_ = 0;
};

// The first stage: after each byte only a few others are likely, and those have short numbers.
class Followers {
 public:
  // False when the stream ends in the middle of the sets.
  [[nodiscard]] bool ReadSets(Bits& bits) {
    for (size_t set = sets_.size(); set-- > 0;) {
      const std::optional<uint8_t> count = bits.Read(6);
      if (!count) return false;
      sets_[set].count = *count;
      for (size_t at = 0; at < *count; ++at) {
        const std::optional<uint8_t> byte = bits.Read(8);
        if (!byte) return false;
        sets_[set].bytes[at] = *byte;
      }
    }
    return true;
  }

  [[nodiscard]] std::optional<uint8_t> Next(Bits& bits) {
    const std::optional<uint8_t> byte = ReadAfter(sets_[last_], bits);
    if (byte) last_ = *byte;
    return byte;
  }

 private:
  struct Set {
    uint8_t count = 0;
    std::array<uint8_t, 64> bytes{};  // a number behind the count stands for 0
  };

  [[nodiscard]] static std::optional<uint8_t> ReadAfter(const Set& set, Bits& bits) {
    if (set.count == 0) return bits.Read(8);
    const std::optional<uint8_t> is_other = bits.Read(1);
    if (!is_other) return std::nullopt;
    if (*is_other != 0) return bits.Read(8);
    // A set of one still has a number of one bit.
    const auto number_bits = static_cast<unsigned>(std::bit_width(std::max(set.count - 1U, 1U)));
    const std::optional<uint8_t> number = bits.Read(number_bits);
    if (!number) return std::nullopt;
    return set.bytes[*number];
  }

  std::array<Set, 256> sets_;
  uint8_t last_ = 0;
};

// The second stage: bytes, and behind the escape the repeats of what has come out.
class Repeats {
 public:
  Repeats(int method, uint64_t limit, Bytes& output)
      : length_bits_(static_cast<unsigned>(9 - method)), limit_(limit), output_(output) {}

  void Take(uint8_t byte) {
    switch (state_) {
      case State::kByte:
        if (byte == kEscape) {
          state_ = State::kStart;
        } else {
          Put(byte);
        }
        return;
      case State::kStart: return Start(byte);
      case State::kLength:
        length_ += byte;
        state_ = State::kDistance;
        return;
      case State::kDistance:
        Copy((size_t{start_} >> length_bits_) * 256 + byte + 1);
        state_ = State::kByte;
        return;
    }
  }

 private:
  enum class State { kByte, kStart, kLength, kDistance };

  void Start(uint8_t byte) {
    if (byte == 0) {
      Put(kEscape);
      state_ = State::kByte;
      return;
    }
    const size_t longest = (size_t{1} << length_bits_) - 1;
    start_ = byte;
    length_ = byte & longest;
    state_ = length_ == longest ? State::kLength : State::kDistance;
  }

  void Put(uint8_t byte) {
    if (output_.size() < limit_) output_.push_back(byte);
  }

  // What lies before the first byte counts as zeros.
  void Copy(size_t distance) {
    for (size_t left = length_ + kShortestMatch; left > 0; --left) {
      Put(distance > output_.size() ? uint8_t{0} : output_[output_.size() - distance]);
    }
  }

  unsigned length_bits_;
  uint64_t limit_;
  Bytes& output_;
  State state_ = State::kByte;
  uint8_t start_ = 0;
  size_t length_ = 0;
};

}  // namespace

int32_t Reduce(ByteView data, int method, int64_t last, Bytes& output) {
  output.clear();
  const auto limit = static_cast<uint64_t>(std::max<int64_t>(last + 1, 0));
  Bits bits(data);
  Followers followers;
  if (!followers.ReadSets(bits)) return limit == 0 ? 0 : kReduceCutShort;
  Repeats repeats(method, limit, output);
  while (output.size() < limit) {
    const std::optional<uint8_t> byte = followers.Next(bits);
    if (!byte) return kReduceCutShort;
    repeats.Take(*byte);
  }
  return 0;
}

}  // namespace kestrun::zip
