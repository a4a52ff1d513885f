// Writes the bits of a compressed stream, lowest first, as RFC 1951 and APPNOTE have them.
#pragma once

#include <cstdint>
#include <string_view>

#include "base/bytes.h"

namespace kestrun {

class BitWriter {
 public:
  // A number, its lowest bit first.
  BitWriter& Number(uint32_t value, int bits) {
    for (int bit = 0; bit < bits; ++bit) Bit((value >> bit) & 1);
    return *this;
  }
  // A codeword as it is written down, "1011": its first bit first.
  BitWriter& Code(std::string_view codeword) {
    for (const char bit : codeword) Bit(bit == '1');
    return *this;
  }
  // A codeword given as a number of so many bits, its highest bit first.
  BitWriter& Code(uint32_t codeword, int bits) {
    while (bits > 0) Bit((codeword >> --bits) & 1);
    return *this;
  }
  BitWriter& Align() {
    used_ = 8;
    return *this;
  }
  BitWriter& Raw(std::string_view bytes) {
    Align();
    bytes_.insert(bytes_.end(), bytes.begin(), bytes.end());
    return *this;
  }
  [[nodiscard]] const Bytes& bytes() const { return bytes_; }

 private:
  void Bit(uint32_t bit) {
    if (used_ == 8) {
      bytes_.push_back(0);
      used_ = 0;
    }
    bytes_.back() = static_cast<uint8_t>(bytes_.back() | (bit << used_++));
  }

  Bytes bytes_;
  int used_ = 8;
};

}  // namespace kestrun
