// Makes of a Deflate stream the Deflate64 stream of the same data: all bits stay, and a length of 258 by its own symbol
// gets the 16 bits that Deflate64 reads behind it. The stream is taken for valid.
#pragma once

#include <algorithm>
#include <array>
#include <cstdint>
#include <vector>

#include "base/bytes.h"
#include "support/bit_writer.h"

namespace kestrun {

class Deflate64Transcoder {
 public:
  explicit Deflate64Transcoder(ByteView deflate) : from_(deflate) {}

  Bytes Run() {
    while (CopyBlock()) {
    }
    return to_.bytes();
  }

 private:
  // The symbols of a prefix code in the order of their codewords, and how many codewords each length has.
  struct Code {
    explicit Code(const std::vector<uint8_t>& lengths) {
      for (uint8_t bits = 1; bits < counts.size(); ++bits) {
        for (size_t symbol = 0; symbol < lengths.size(); ++symbol) {
          if (lengths[symbol] != bits) continue;
          ++counts[bits];
          symbols.push_back(static_cast<uint32_t>(symbol));
        }
      }
    }
    std::array<uint32_t, 16> counts{};
    std::vector<uint32_t> symbols;
  };

  uint32_t Copy(int bits) {
    uint32_t value = 0;
    for (int bit = 0; bit < bits; ++bit, ++at_) value |= ((from_[at_ / 8] >> (at_ % 8)) & 1U) << bit;
    to_.Number(value, bits);
    return value;
  }

  uint32_t CopySymbol(const Code& code) {
    uint32_t codeword = 0;
    uint32_t first = 0;
    uint32_t index = 0;
    for (size_t bits = 1; bits < code.counts.size(); ++bits) {
      codeword |= Copy(1);
      if (codeword < first + code.counts[bits]) return code.symbols[index + codeword - first];
      index += code.counts[bits];
      first = (first + code.counts[bits]) << 1;
      codeword <<= 1;
    }
    return 256;
  }

  bool CopyBlock() {
    const bool is_last = Copy(1) != 0;
    switch (Copy(2)) {
      case 0: CopyStored(); break;
      case 1: CopyStatic(); break;
      default: CopyDynamic(); break;
    }
    return !is_last;
  }

  void CopyStored() {
    at_ = (at_ + 7) / 8 * 8;
    to_.Align();
    const uint32_t bytes = Copy(16);
    Copy(16);
    for (uint32_t byte = 0; byte < bytes; ++byte) Copy(8);
  }

  void CopyStatic() {
    std::vector<uint8_t> literals(288, 8);
    std::fill(literals.begin() + 144, literals.begin() + 256, 9);
    std::fill(literals.begin() + 256, literals.begin() + 280, 7);
    CopySymbols(Code(literals), Code(std::vector<uint8_t>(30, 5)));
  }

  void CopyDynamic() {
    constexpr std::array<uint8_t, 19> kOrder{16, 17, 18, 0, 8, 7, 9, 6, 10, 5, 11, 4, 12, 3, 13, 2, 14, 1, 15};
    const size_t literals = Copy(5) + 257;
    const size_t distances = Copy(5) + 1;
    const size_t count = Copy(4) + 4;
    std::vector<uint8_t> lengths_lengths(kOrder.size());
    for (size_t at = 0; at < count; ++at) lengths_lengths[kOrder[at]] = static_cast<uint8_t>(Copy(3));
    const Code lengths_code(lengths_lengths);
    std::vector<uint8_t> lengths;
    while (lengths.size() < literals + distances) {
      const uint32_t symbol = CopySymbol(lengths_code);
      if (symbol < 16) lengths.push_back(static_cast<uint8_t>(symbol));
      if (symbol == 16) lengths.insert(lengths.end(), 3 + Copy(2), uint8_t{lengths.back()});
      if (symbol == 17) lengths.insert(lengths.end(), 3 + Copy(3), 0);
      if (symbol == 18) lengths.insert(lengths.end(), 11 + Copy(7), 0);
    }
    const auto border = lengths.begin() + static_cast<ptrdiff_t>(literals);
    CopySymbols(Code({lengths.begin(), border}), Code({border, lengths.end()}));
  }

  void CopySymbols(const Code& literals, const Code& distances) {
    for (uint32_t symbol = CopySymbol(literals); symbol != 256; symbol = CopySymbol(literals)) {
      if (symbol < 256) continue;
      if (symbol == 285) {
        to_.Number(258 - 3, 16);
      } else if (symbol >= 265) {
        Copy(static_cast<int>((symbol - 261) / 4));
      }
      const uint32_t distance = CopySymbol(distances);
      if (distance >= 4) Copy(static_cast<int>(distance / 2 - 1));
    }
  }

  ByteView from_;
  size_t at_ = 0;  // in bits
  BitWriter to_;
};

}  // namespace kestrun
