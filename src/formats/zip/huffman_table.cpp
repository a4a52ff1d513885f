#include "formats/zip/huffman_table.h"

#include <algorithm>
#include <bit>
#include <cstring>

namespace kestrun::deflate {
namespace {

constexpr size_t kMostSymbols = 288;

using LengthCounts = std::array<uint16_t, kMaxCodeBits + 1>;

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

// The symbols that have a codeword, in the order of their codewords.
class SortedSymbols {
 public:
  SortedSymbols(std::span<const uint8_t> lengths, const LengthCounts& counts) {
    std::array<uint16_t, kMaxCodeBits + 2> next{};
    for (size_t bits = 1; bits <= kMaxCodeBits; ++bits) {
      next[bits + 1] = static_cast<uint16_t>(next[bits] + counts[bits]);
    }
    for (size_t symbol = 0; symbol < lengths.size(); ++symbol) {
      if (lengths[symbol] != 0) symbols_[next[lengths[symbol]]++] = static_cast<uint16_t>(symbol);
    }
  }
  [[nodiscard]] uint16_t Next() { return symbols_[at_++]; }

 private:
  std::array<uint16_t, kMostSymbols> symbols_;
  size_t at_ = 0;
};

// Codewords come from the stream with their first bit lowest; counting up then carries from the top bit down.
unsigned NextReversed(unsigned codeword, unsigned bits) {
  const unsigned all = (1U << bits) - 1;
  if (codeword == all) return 0;
  const unsigned carry = std::bit_floor(codeword ^ all);
  return (codeword & (carry - 1)) | carry;
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
      for (unsigned left = counts_[bits]; left > 0; --left) {
        table_[codeword_] = WithBits(meanings_[symbols_.Next()], bits);
        codeword_ = NextReversed(codeword_, bits);
      }
    }
  }

  void FillSecondLevel(unsigned longest) {
    const unsigned prefix_mask = (1U << table_bits_) - 1;
    size_t free = size_t{1} << table_bits_;
    size_t start = 0;
    unsigned prefix = ~0U;
    for (unsigned bits = table_bits_ + 1; bits <= longest; ++bits) {
      for (unsigned left = counts_[bits]; left > 0; --left) {
        if ((codeword_ & prefix_mask) != prefix) {
          prefix = codeword_ & prefix_mask;
          start = free;
          const unsigned index_bits = SecondLevelBits(bits, left);
          free += size_t{1} << index_bits;
          table_[prefix] = kExceptional | kPointer | static_cast<Entry>(start << 16) | (index_bits << 8) | table_bits_;
          end_ = free;
        }
        FillSecond(start, bits);
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

  void FillSecond(size_t start, unsigned bits) {
    const unsigned own_bits = bits - table_bits_;
    const Entry entry = WithBits(meanings_[symbols_.Next()], own_bits);
    for (size_t at = start + (codeword_ >> table_bits_); at < end_; at += size_t{1} << own_bits) table_[at] = entry;
    codeword_ = NextReversed(codeword_, bits);
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
  LengthCounts counts{};
  for (const uint8_t bits : lengths) {
    if (bits > kMaxCodeBits) return CodeKind::kBroken;
    ++counts[bits];
  }
  longest = kMaxCodeBits;
  while (longest > 0 && counts[static_cast<size_t>(longest)] == 0) --longest;
  const CodeKind kind = Classify(counts, longest);
  if (kind == CodeKind::kBroken) return kind;
  counts[0] = 0;
  if (kind != CodeKind::kComplete) {
    std::fill_n(table.begin(), size_t{1} << table_bits, kExceptional | kInvalid);
  }
  SortedSymbols symbols(lengths, counts);
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
