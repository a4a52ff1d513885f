#include "formats/zip/block_codes.h"

#include <algorithm>
#include <cstdlib>

namespace kestrun::deflate {
namespace {

constexpr size_t kLiteralSymbols = 288;
constexpr size_t kDistanceSymbols = 32;
constexpr size_t kLengthsSymbols = 19;
constexpr size_t kEndOfBlockSymbol = 256;
constexpr Entry kMeaningless = kExceptional | kInvalid;

struct Range {
  uint16_t base;
  uint8_t extra_bits;
};

constexpr std::array<Range, 29> kLengths{{{3, 0},   {4, 0},   {5, 0},   {6, 0},   {7, 0},  {8, 0},  {9, 0},  {10, 0},
                                          {11, 1},  {13, 1},  {15, 1},  {17, 1},  {19, 2}, {23, 2}, {27, 2}, {31, 2},
                                          {35, 3},  {43, 3},  {51, 3},  {59, 3},  {67, 4}, {83, 4}, {99, 4}, {115, 4},
                                          {131, 5}, {163, 5}, {195, 5}, {227, 5}, {258, 0}}};

constexpr std::array<Entry, kLiteralSymbols> kLiteralMeanings = [] {
  std::array<Entry, kLiteralSymbols> meanings{};
  for (Entry symbol = 0; symbol < kEndOfBlockSymbol; ++symbol) meanings[symbol] = kLiteral | (symbol << 16);
  meanings[kEndOfBlockSymbol] = kExceptional | kEndOfBlock;
  for (size_t at = 0; at < kLengths.size(); ++at) {
    meanings[kEndOfBlockSymbol + 1 + at] = (Entry{kLengths[at].base} << 16) | kLengths[at].extra_bits;
  }
  meanings[286] = kMeaningless;
  meanings[287] = kMeaningless;
  return meanings;
}();

// Two codes for each number of extra bits, from two of none up; the last two reach behind 32 KB.
constexpr std::array<Entry, kDistanceSymbols> kDistanceMeanings = [] {
  std::array<Entry, kDistanceSymbols> meanings{};
  Entry base = 1;
  for (Entry symbol = 0; symbol < kDistanceSymbols; ++symbol) {
    const Entry extra_bits = symbol < 2 ? 0 : symbol / 2 - 1;
    meanings[symbol] = (base << 16) | extra_bits;
    base += Entry{1} << extra_bits;
  }
  return meanings;
}();

constexpr std::array<Entry, kLengthsSymbols> kLengthsMeanings = [] {
  std::array<Entry, kLengthsSymbols> meanings{};
  for (Entry symbol = 0; symbol < kLengthsSymbols; ++symbol) meanings[symbol] = symbol << 16;
  return meanings;
}();

bool BuildCodes(std::span<const uint8_t> literals, std::span<const uint8_t> distances, BlockCodes& codes) {
  const CodeKind literal_kind =
      BuildTable(literals, kLiteralMeanings, kLiteralTableBits, codes.literals, codes.longest_literal);
  const CodeKind distance_kind =
      BuildTable(distances, kDistanceMeanings, kDistanceTableBits, codes.distances, codes.longest_distance);
  return literal_kind != CodeKind::kBroken && distance_kind != CodeKind::kBroken;
}

// The lengths of both codes in one row, themselves coded.
class LengthsReader {
 public:
  explicit LengthsReader(BitReader& reader) : reader_(reader) {}

  [[nodiscard]] bool ReadCode(size_t count) {
    constexpr std::array<uint8_t, kLengthsSymbols> kOrder{16, 17, 18, 0, 8,  7, 9,  6, 10, 5,
                                                          11, 4,  12, 3, 13, 2, 14, 1, 15};
    std::array<uint8_t, kLengthsSymbols> lengths{};
    for (size_t at = 0; at < count; ++at) lengths[kOrder[at]] = static_cast<uint8_t>(reader_.Read(3));
    return BuildTable(lengths, kLengthsMeanings, kLengthsTableBits, table_, longest_) == CodeKind::kComplete;
  }

  [[nodiscard]] bool ReadLengths(std::span<uint8_t> lengths) {
    for (size_t at = 0; at < lengths.size();) {
      reader_.Fill(static_cast<unsigned>(longest_));
      const Entry entry = table_[reader_.bits & (kLengthsTableEntries - 1)];
      reader_.Remove(BitsOf(entry));
      const auto symbol = static_cast<uint8_t>(ValueOf(entry));
      if (symbol <= kMaxCodeBits) {
        lengths[at++] = symbol;
        continue;
      }
      if (symbol == 16 && at == 0) return false;
      const uint8_t repeated = symbol == 16 ? lengths[at - 1] : uint8_t{0};
      const size_t times = ReadTimes(symbol);
      if (times > lengths.size() - at) return false;
      std::fill_n(lengths.begin() + static_cast<ptrdiff_t>(at), times, repeated);
      at += times;
    }
    return true;
  }

 private:
  [[nodiscard]] size_t ReadTimes(uint8_t symbol) {
    if (symbol == 16) return 3 + reader_.Read(2);
    return symbol == 17 ? 3 + reader_.Read(3) : 11 + reader_.Read(7);
  }

  BitReader& reader_;
  std::array<Entry, kLengthsTableEntries> table_;
  int longest_ = 0;
};

}  // namespace

const BlockCodes& StaticCodes() {
  static const BlockCodes codes = [] {
    std::array<uint8_t, kLiteralSymbols> literals{};
    std::fill_n(literals.begin(), 144, 8);
    std::fill_n(literals.begin() + 144, 112, 9);
    std::fill_n(literals.begin() + 256, 24, 7);
    std::fill_n(literals.begin() + 280, 8, 8);
    std::array<uint8_t, kDistanceSymbols> distances{};
    distances.fill(5);
    BlockCodes built;
    if (!BuildCodes(literals, distances, built)) std::abort();
    return built;
  }();
  return codes;
}

bool ReadCodes(BitReader& reader, BlockCodes& codes) {
  const size_t literals = 257 + reader.Read(5);
  const size_t distances = 1 + reader.Read(5);
  const size_t length_codes = 4 + reader.Read(4);
  LengthsReader lengths_reader(reader);
  std::array<uint8_t, kLiteralSymbols + kDistanceSymbols> lengths;
  const std::span<uint8_t> row(lengths.data(), literals + distances);
  if (!lengths_reader.ReadCode(length_codes) || !lengths_reader.ReadLengths(row)) return false;
  if (row[kEndOfBlockSymbol] == 0) return false;
  return BuildCodes(row.first(literals), row.subspan(literals), codes);
}

}  // namespace kestrun::deflate
