// The fast ways near the ends of both buffers, where they hand over to the careful one.
#include <gtest/gtest.h>

#include <algorithm>

#include "formats/inflate_stream.h"
#include "formats/inflate_ways.h"

namespace kestrun {
namespace {

using Last = DeflateStream::Last;

// A prefix code of fifteen lengths: the n-th symbol has n bits, all ones but the last; one more has fifteen ones.
std::string Codeword(size_t place) { return place < 15 ? std::string(place, '1') + '0' : std::string(15, '1'); }

constexpr uint32_t kEndOfBlock = 256;
constexpr std::array<uint32_t, 16> kLiteralsByLength{'a', 285, 264, 'b', 284, 'c', 'd', 'e',
                                                     257, 'f', 273, 'g', 'h', 'i', 256, 277};

// Every length of codeword, lengths with and without extra bits, in Deflate64 runs too, distances from 1 to 256.
class MixedStream {
 public:
  explicit MixedStream(bool deflate64) : deflate64_(deflate64) {
    std::vector<uint8_t> literals(286, 0);
    for (size_t at = 0; at < kLiteralsByLength.size(); ++at) literals[kLiteralsByLength[at]] = Bits(at);
    std::vector<uint8_t> distances(16, 0);
    for (size_t at = 0; at < distances.size(); ++at) distances[at] = Bits(at);
    stream_.Codes(Last::kYes, literals, distances);
    for (int at = 0; at < 260; ++at) stream_.bits().Code(Codeword(at % 3 == 0 ? 3 : 0));
    for (int at = 0; at < 250; ++at) AddSymbol(Draw(16));
    stream_.bits().Code(Codeword(14));
  }

  [[nodiscard]] const Bytes& bytes() const { return stream_.bytes(); }

 private:
  static uint8_t Bits(size_t place) { return static_cast<uint8_t>(std::min<size_t>(place + 1, 15)); }

  uint32_t Draw(uint32_t below) {
    state_ = state_ * 1664525 + 1013904223;
    return (state_ >> 16) % below;
  }

  void AddSymbol(size_t place) {
    const uint32_t symbol = kLiteralsByLength.at(place);
    if (symbol == kEndOfBlock) return;
    stream_.bits().Code(Codeword(place));
    if (symbol < kEndOfBlock) return;
    const int extra_bits = symbol == 285 || symbol < 265 ? 0 : static_cast<int>((symbol - 261) / 4);
    const uint32_t extra = Draw(1U << extra_bits);
    stream_.bits().Number(extra, extra_bits);
    const bool is_258 = symbol == 285 || (symbol == 284 && extra == 31);
    if (deflate64_ && is_258) stream_.bits().Number(Draw(700), 16);
    const uint32_t distance = Draw(16);
    const int distance_bits = distance < 4 ? 0 : static_cast<int>(distance / 2 - 1);
    stream_.bits().Code(Codeword(distance)).Number(Draw(1U << distance_bits), distance_bits);
  }

  bool deflate64_;
  DeflateStream stream_;
  uint32_t state_ = 2006;
};

class InflateEndsTest : public testing::TestWithParam<bool> {
 protected:
  static void ExpectAllWaysAgree(const Bytes& stream, size_t announced) {
    const Outcome careful = RunWay(&deflate::ExpandCarefully, stream, announced, GetParam());
    ASSERT_TRUE(RunWay(&deflate::Expand, stream, announced, GetParam()) == careful);
    ASSERT_TRUE(RunWay(&deflate::ExpandPortably, stream, announced, GetParam()) == careful);
  }

  const Bytes whole = MixedStream(GetParam()).bytes();
  const Outcome expected = RunWay(&deflate::ExpandCarefully, whole, size_t{1} << 20, GetParam());
};

TEST_P(InflateEndsTest, AWholeStreamComesOutTheSameByAllWays) {
  ASSERT_EQ(expected.error_number, 0);
  ASSERT_GT(expected.bytes.size(), 5000U);
  ExpectAllWaysAgree(whole, expected.bytes.size());
}

TEST_P(InflateEndsTest, EveryRoomAroundTheLastRoundsGivesTheSameVerdictByAllWays) {
  for (size_t missing = 0; missing <= 700; ++missing) {
    SCOPED_TRACE(missing);
    ExpectAllWaysAgree(whole, expected.bytes.size() - missing);
  }
  for (size_t more = 1; more <= 300; ++more) ExpectAllWaysAgree(whole, expected.bytes.size() + more);
}

TEST_P(InflateEndsTest, EveryCutOfTheLastBytesGivesTheSameVerdictByAllWays) {
  for (size_t missing = 1; missing <= 80; ++missing) {
    SCOPED_TRACE(missing);
    ExpectAllWaysAgree(Bytes(whole.begin(), whole.end() - static_cast<ptrdiff_t>(missing)), expected.bytes.size());
  }
}

TEST_P(InflateEndsTest, AStoredBlockBehindEveryLengthOfBlockStartsAtTheSameByteByAllWays) {
  // What the ways hold in advance of the block differs; all have to give it back.
  for (size_t literals = 0; literals <= 80; ++literals) {
    for (size_t stored = 0; stored <= 12; ++stored) {
      SCOPED_TRACE(literals);
      DeflateStream stream;
      stream.Header(Last::kNo, 1).Literals(std::string(literals, '\xFF')).EndOfBlock();
      stream.Stored(Last::kYes, std::string(stored, 's'));
      ExpectAllWaysAgree(stream.bytes(), 600);
    }
  }
}

TEST_P(InflateEndsTest, EveryBitThatFlipsGivesTheSameVerdictByAllWays) {
  for (size_t bit = 0; bit < whole.size() * 8; bit += 7) {
    SCOPED_TRACE(bit);
    Bytes damaged = whole;
    damaged[bit / 8] = static_cast<uint8_t>(damaged[bit / 8] ^ (1U << (bit % 8)));
    ExpectAllWaysAgree(damaged, expected.bytes.size());
  }
}

INSTANTIATE_TEST_SUITE_P(BothKinds, InflateEndsTest, testing::Bool(),
                         [](const auto& kind) { return std::string(kind.param ? "Deflate64" : "Deflate"); });

}  // namespace
}  // namespace kestrun
