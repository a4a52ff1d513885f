// Deflate streams built block by block for the tests, independently of the reader.
#pragma once

#include <array>
#include <string>
#include <vector>

#include "support/bit_writer.h"

namespace kestrun {

class DeflateStream {
 public:
  enum class Last { kNo, kYes };

  DeflateStream& Header(Last last, uint32_t type) {
    bits_.Number(last == Last::kYes ? 1 : 0, 1).Number(type, 2);
    return *this;
  }
  DeflateStream& Stored(Last last, std::string_view bytes) {
    return StoredAs(last, static_cast<uint16_t>(bytes.size()), static_cast<uint16_t>(~bytes.size()), bytes);
  }
  // With lengths that may be lies.
  DeflateStream& StoredAs(Last last, uint16_t length, uint16_t complement, std::string_view bytes) {
    Header(last, 0);
    bits_.Align().Number(length, 16).Number(complement, 16).Raw(bytes);
    return *this;
  }

  // ---- symbols of the static code ----
  DeflateStream& Literals(std::string_view text) {
    for (const char one : text) Symbol(static_cast<uint8_t>(one));
    return *this;
  }
  DeflateStream& Symbol(uint32_t symbol) {
    if (symbol < 144) {
      bits_.Code(0x30 + symbol, 8);
    } else if (symbol < 256) {
      bits_.Code(0x190 + symbol - 144, 9);
    } else if (symbol < 280) {
      bits_.Code(symbol - 256, 7);
    } else {
      bits_.Code(0xC0 + symbol - 280, 8);
    }
    return *this;
  }
  DeflateStream& EndOfBlock() { return Symbol(256); }
  DeflateStream& Match(uint32_t length_symbol, uint32_t extra, int extra_bits, uint32_t distance_symbol,
                       uint32_t distance_extra = 0, int distance_bits = 0) {
    Symbol(length_symbol);
    bits_.Number(extra, extra_bits);
    return Distance(distance_symbol, distance_extra, distance_bits);
  }
  DeflateStream& Distance(uint32_t symbol, uint32_t extra = 0, int extra_bits = 0) {
    bits_.Code(symbol, 5).Number(extra, extra_bits);
    return *this;
  }

  // The front of a dynamic block whose codes have these lengths. The lengths are sent as they are, by a code in which
  // 0 to 15 have 4 bits each: no repeats.
  DeflateStream& Codes(Last last, const std::vector<uint8_t>& literals, const std::vector<uint8_t>& distances) {
    Header(last, 2);
    bits_.Number(static_cast<uint32_t>(literals.size() - 257), 5);
    bits_.Number(static_cast<uint32_t>(distances.size() - 1), 5);
    bits_.Number(19 - 4, 4);
    constexpr int kRepeats = 3;  // 16, 17, 18 come first and have no codeword
    for (int at = 0; at < kRepeats; ++at) bits_.Number(0, 3);
    for (int at = kRepeats; at < 19; ++at) bits_.Number(4, 3);
    for (const uint8_t bits : literals) bits_.Code(bits, 4);
    for (const uint8_t bits : distances) bits_.Code(bits, 4);
    return *this;
  }

  [[nodiscard]] BitWriter& bits() { return bits_; }
  [[nodiscard]] const Bytes& bytes() const { return bits_.bytes(); }

 private:
  BitWriter bits_;
};

}  // namespace kestrun
