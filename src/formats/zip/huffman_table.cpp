#include "formats/zip/huffman_table.h"

#include <algorithm>
#include <bit>
#include <cstring>

namespace kestrun::deflate {
namespace {

constexpr size_t kMostSymbols = 288;

using LengthCounts = std::array<uint16_t, kMaxCodeBits + 1>;

// The lengths in two halves. Counting and sorting walk both at once: each step in one half waits for the step before it
// when the lengths are alike, but not for the other half.
struct Halves {
  explicit Halves(std::span<const uint8_t> lengths) : first(lengths.first(lengths.size() / 2)), second(lengths) {
    second = second.subspan(first.size());
  }
  template <class Each>
  void Walk(Each&& each) const {
    for (size_t at = 0; at < first.size(); ++at) {
      each(0, first[at], at);
      each(1, second[at], first.size() + at);
    }
    if (second.size() > first.size()) each(1, second.back(), 2 * first.size());
  }
  std::span<const uint8_t> first;
  std::span<const uint8_t> second;
};

struct HalfCounts {
  explicit HalfCounts(const Halves& halves) {
    halves.Walk([this](size_t half, uint8_t bits, size_t) { ++counts[half][bits & kMaxCodeBits]; });
  }
  [[nodiscard]] LengthCounts Sum() const {
    LengthCounts sum{};
    for (size_t bits = 1; bits <= kMaxCodeBits; ++bits) {
      sum[bits] = static_cast<uint16_t>(counts[0][bits] + counts[1][bits]);
    }
    return sum;
  }
  std::array<LengthCounts, 2> counts{};
};

CodeKind Classify(const LengthCounts& counts, int longest) {
  if (longest == 0) return CodeKind::kEmpty;
  int room = 1;
  for (int bits = 1; bits <= kMaxCodeBits; ++bits) {
    room = room * 2 - counts[static_cast<size_t>(bits)];
    if (room < 0) return CodeKind::kBroken;
  }
  if (room == 0) return CodeKind::kComplete;
  return longest == 1 ? CodeKind::kSingle : CodeKind::kBroken;
}

// The symbols in the order of their codewords; those without one stand before them.
class SortedSymbols {
 public:
  SortedSymbols(const Halves& halves, const HalfCounts& count) {
    std::array<LengthCounts, 2> next{};
    uint16_t place = 0;
    for (size_t bits = 0; bits <= kMaxCodeBits; ++bits) {
      for (size_t half = 0; half < 2; ++half) {
        next[half][bits] = place;
        place = static_cast<uint16_t>(place + count.counts[half][bits]);
      }
    }
    at_ = next[0][1];
    halves.Walk([&](size_t half, uint8_t bits, size_t symbol) {
      symbols_[next[half][bits & kMaxCodeBits]++] = static_cast<uint16_t>(symbol);
    });
  }
  [[nodiscard]] uint16_t Next() { return symbols_[at_++]; }

 private:
  std::array<uint16_t, kMostSymbols> symbols_;
  size_t at_ = 0;
};

constexpr std::array<uint8_t, 256> kReversedBytes = [] {
  std::array<uint8_t, 256> reversed{};
  for (unsigned byte = 0; byte < 256; ++byte) {
    for (unsigned bit = 0; bit < 8; ++bit) reversed[byte] |= static_cast<uint8_t>(((byte >> bit) & 1) << (7 - bit));
  }
  return reversed;
}();

// Codewords come from the stream with their first bit lowest.
unsigned Reversed(unsigned codeword, unsigned bits) {
  return ((unsigned{kReversedBytes[codeword & 255]} << 8) | kReversedBytes[codeword >> 8]) >> (16 - bits);
}

Entry WithBits(Entry meaning, unsigned codeword_bits) { return meaning + codeword_bits + (codeword_bits << 8); }

class TableBuilder {
 public:
  TableBuilder(SymbolMeanings meanings, unsigned table_bits, std::span<Entry> table, const LengthCounts& counts,
               SortedSymbols& symbols)
      : meanings_(meanings), table_bits_(table_bits), table_(table), counts_(counts), symbols_(symbols) {}

  void Build(unsigned longest) {
    FillFirstLevel();
    if (longest > table_bits_) FillSecondLevel(longest);
  }

 private:
  // Shorter codewords repeat in the table: each doubling copies what stands, then the next length fills its places.
  void FillFirstLevel() {
    size_t filled = 1;
    for (unsigned bits = 1; bits <= table_bits_; ++bits) {
      std::memcpy(&table_[filled], &table_[0], filled * sizeof(Entry));
      filled *= 2;
      codeword_ <<= 1;
      for (unsigned left = counts_[bits]; left > 0; --left) {
        table_[Reversed(codeword_++, bits)] = WithBits(meanings_[symbols_.Next()], bits);
      }
    }
  }

  void FillSecondLevel(unsigned longest) {
    const unsigned prefix_mask = (1U << table_bits_) - 1;
    size_t free = size_t{1} << table_bits_;
    size_t start = 0;
    unsigned prefix = ~0U;
    for (unsigned bits = table_bits_ + 1; bits <= longest; ++bits) {
      codeword_ <<= 1;
      for (unsigned left = counts_[bits]; left > 0; --left) {
        const unsigned reversed = Reversed(codeword_++, bits);
        if ((reversed & prefix_mask) != prefix) {
          prefix = reversed & prefix_mask;
          start = free;
          const unsigned index_bits = SecondLevelBits(bits, left);
          free += size_t{1} << index_bits;
          table_[prefix] = kExceptional | kPointer | static_cast<Entry>(start << 16) | (index_bits << 8) | table_bits_;
          end_ = free;
        }
        FillSecond(start + (reversed >> table_bits_), bits);
      }
    }
  }

  // The second table of a prefix is as deep as it takes until the codewords from here on fill it.
  [[nodiscard]] unsigned SecondLevelBits(unsigned bits, unsigned left) const {
    unsigned index_bits = bits - table_bits_;
    for (unsigned space = left; space < (1U << index_bits);) {
      ++index_bits;
      space = (space << 1) + counts_[table_bits_ + index_bits];
    }
    return index_bits;
  }

  void FillSecond(size_t first, unsigned bits) {
    const unsigned own_bits = bits - table_bits_;
    const Entry entry = WithBits(meanings_[symbols_.Next()], own_bits);
    for (size_t at = first; at < end_; at += size_t{1} << own_bits) table_[at] = entry;
  }

  SymbolMeanings meanings_;
  unsigned table_bits_;
  std::span<Entry> table_;
  const LengthCounts& counts_;
  SortedSymbols& symbols_;
  unsigned codeword_ = 0;
  size_t end_ = 0;
};

}  // namespace

CodeKind BuildTable(std::span<const uint8_t> lengths, SymbolMeanings meanings, unsigned table_bits,
                    std::span<Entry> table, int& longest) {
  const Halves halves(lengths);
  const HalfCounts half_counts(halves);
  const LengthCounts counts = half_counts.Sum();
  longest = kMaxCodeBits;
  while (longest > 0 && counts[static_cast<size_t>(longest)] == 0) --longest;
  const CodeKind kind = Classify(counts, longest);
  if (kind == CodeKind::kBroken) return kind;
  if (kind != CodeKind::kComplete) {
    std::fill_n(table.begin(), size_t{1} << table_bits, kExceptional | kInvalid);
  }
  SortedSymbols symbols(halves, half_counts);
  if (kind == CodeKind::kSingle) {
    const Entry entry = WithBits(meanings[symbols.Next()], 1);
    for (size_t at = 0; at < size_t{1} << table_bits; at += 2) table[at] = entry;
  }
  if (kind == CodeKind::kComplete) {
    TableBuilder(meanings, table_bits, table, counts, symbols).Build(static_cast<unsigned>(longest));
  }
  return kind;
}

}  // namespace kestrun::deflate
