#include <algorithm>

#include "formats/inflate_stream.h"
#include "formats/inflate_ways.h"
#include "formats/zip/mod_inflate64.h"
#include "support/error_number.h"
#include "support/headless_fixture.h"

namespace kestrun {
namespace {

using Last = DeflateStream::Last;

// Expands in both fast ways and in the careful one, which have to agree in all.
class InflateTest : public HeadlessTest {
 protected:
  int32_t status = 99;

  std::string Expand(const Bytes& stream, size_t announced, bool deflate64 = false) {
    CompareWays(stream, announced, deflate64);
    Bytes data = stream;
    status = Inflate(data, static_cast<int64_t>(announced) - 1, deflate64);
    return std::string(AsChars(data));
  }
  std::string Expand(const DeflateStream& stream, size_t announced, bool deflate64 = false) {
    return Expand(stream.bytes(), announced, deflate64);
  }
  void ExpectOutOfRange(const Bytes& stream, size_t announced, bool deflate64 = false) {
    Bytes data = stream;
    EXPECT_EQ(ErrorNumberOf([&] { Inflate(data, static_cast<int64_t>(announced) - 1, deflate64); }),
              error::kSubscriptOutOfRange);
    EXPECT_EQ(data, stream) << "what cannot be expanded stays";
    for (const Way way : {&deflate::ExpandPortably, &deflate::ExpandCarefully}) {
      Bytes output(announced);
      EXPECT_EQ(ErrorNumberOf([&] { static_cast<void>(way(stream, output, deflate64)); }), error::kSubscriptOutOfRange);
    }
  }
  void ExpectNoTree(const DeflateStream& stream) {
    desktop.dialogs().ExpectBox("Error in tree creation (Static)").WithButtons(BoxButtons::kOk);
    EXPECT_EQ(Expand(stream, 100), std::string(AsChars(stream.bytes())));
    EXPECT_EQ(status, 0);
  }

 private:
  static void CompareWays(const Bytes& stream, size_t announced, bool deflate64) {
    const Outcome careful = RunWay(&deflate::ExpandCarefully, stream, announced, deflate64);
    EXPECT_TRUE(RunWay(&deflate::Expand, stream, announced, deflate64) == careful);
    EXPECT_TRUE(RunWay(&deflate::ExpandPortably, stream, announced, deflate64) == careful);
  }
};

// Lengths for a code over all 256 bytes and the end of the block, as flat as it goes: 255 of 8 bits, two of 9.
std::vector<uint8_t> FlatLiterals(size_t symbols) {
  std::vector<uint8_t> lengths(symbols, 0);
  std::fill_n(lengths.begin(), 255, 8);
  lengths[255] = 9;
  lengths[256] = 9;
  return lengths;
}

// A block of one 'a', which is not the last. Its code has 15 bits at its longest: reading the end of the block, of one
// bit, takes two bytes too many.
DeflateStream BlockOfLongCodes() {
  std::vector<uint8_t> literals(257, 0);
  literals[256] = 1;
  for (size_t at = 0; at < 13; ++at) literals['a' + at] = static_cast<uint8_t>(at + 2);
  literals['n'] = 15;
  literals['o'] = 15;
  DeflateStream stream;
  stream.Codes(Last::kNo, literals, {0});
  stream.bits().Code("10").Code("0");  // codewords in the order of length
  return stream;
}

// ---- stored blocks -----------------------------------------------------------------------------------------------

TEST_F(InflateTest, AStoredBlockIsCopied) {
  EXPECT_EQ(Expand(DeflateStream().Stored(Last::kYes, "BMS alpha"), 9), "BMS alpha");
  EXPECT_EQ(status, 0);
}

TEST_F(InflateTest, AnEmptyStoredBlockGivesNothingAndTheNextBlockFollows) {
  EXPECT_EQ(Expand(DeflateStream().Stored(Last::kNo, "").Stored(Last::kYes, "beta"), 4), "beta");
  EXPECT_EQ(status, 0);
}

TEST_F(InflateTest, AnEmptyStreamOfOneEmptyStoredBlockGivesNothing) {
  EXPECT_EQ(Expand(DeflateStream().Stored(Last::kYes, ""), 0), "");
  EXPECT_EQ(status, 0);
}

TEST_F(InflateTest, AStoredBlockBehindAStaticOneStartsAtTheNextByte) {
  DeflateStream stream;
  stream.Header(Last::kNo, 1).Literals("abc").EndOfBlock().Stored(Last::kYes, "0123456789");
  EXPECT_EQ(Expand(stream, 13), "abc0123456789");
  EXPECT_EQ(status, 0);
}

TEST_F(InflateTest, AStoredBlockBehindADynamicOneStartsAtTheNextByteAfterGivingBackBufferedBytes) {
  DeflateStream stream = BlockOfLongCodes();
  stream.Stored(Last::kYes, "0123456789");
  EXPECT_EQ(Expand(stream, 11), "a0123456789");
  EXPECT_EQ(status, 0);
}

TEST_F(InflateTest, ALastStoredBlockTooNearTheEndForTheBufferedBytesIsRefused) {
  DeflateStream stream = BlockOfLongCodes();
  stream.Stored(Last::kYes, "");
  EXPECT_EQ(Expand(stream, 1), "a");
  EXPECT_EQ(status, -1);
}

TEST_F(InflateTest, LengthsThatDisagreeAreToldByTheStatusAndTheBlockIsCopied) {
  DeflateStream stream;
  stream.StoredAs(Last::kNo, 4, 4, "beta").Stored(Last::kYes, "gamma");
  EXPECT_EQ(Expand(stream, 9), "betagamma");
  EXPECT_EQ(status, -2);
}

TEST_F(InflateTest, AStoredBlockWithFewerThanFourBytesBehindItsHeaderStops) {
  const Bytes cut{0x01, 0x00, 0x00, 0xFF};
  EXPECT_EQ(Expand(cut, 10), "");
  EXPECT_EQ(status, -1);
}

TEST_F(InflateTest, AStoredBlockBeyondTheInputStops) {
  DeflateStream stream;
  stream.Stored(Last::kNo, "alpha").StoredAs(Last::kYes, 6, static_cast<uint16_t>(~6), "12345");
  EXPECT_EQ(Expand(stream, 100), "alpha");
  EXPECT_EQ(status, -1);
}

TEST_F(InflateTest, AStoredBlockBeyondTheAnnouncedSizeStops) {
  EXPECT_EQ(Expand(DeflateStream().Stored(Last::kNo, "alpha").Stored(Last::kYes, "beta"), 8), "alpha");
  EXPECT_EQ(status, -1);
}

// ---- blocks and codes --------------------------------------------------------------------------------------------

TEST_F(InflateTest, BlockTypeThreeStopsWithWhatCameBefore) {
  DeflateStream stream;
  stream.Header(Last::kNo, 1).Literals("abc").EndOfBlock().Header(Last::kYes, 3);
  EXPECT_EQ(Expand(stream, 100), "abc");
  EXPECT_EQ(status, -1);
}

TEST_F(InflateTest, TheStaticCodeHoldsAllBytes) {
  std::string all;
  for (int byte = 0; byte < 256; ++byte) all += static_cast<char>(byte);
  EXPECT_EQ(Expand(DeflateStream().Header(Last::kYes, 1).Literals(all).EndOfBlock(), 256), all);
}

TEST_F(InflateTest, BlocksBehindEachOtherShareTheOutput) {
  DeflateStream stream;
  stream.Header(Last::kNo, 1).Literals("ab").EndOfBlock();
  stream.Header(Last::kYes, 1).Match(258, 0, 0, 1).EndOfBlock();  // 4 bytes from 2 back
  EXPECT_EQ(Expand(stream, 6), "ababab");
}

TEST_F(InflateTest, NothingBehindTheLastBlockIsRead) {
  DeflateStream stream;
  stream.Header(Last::kYes, 1).Literals("ab").EndOfBlock().bits().Raw("anything");
  EXPECT_EQ(Expand(stream, 2), "ab");
  EXPECT_EQ(status, 0);
}

TEST_F(InflateTest, ADynamicBlockWithoutDistancesHoldsLiteralsAlone) {
  DeflateStream stream;
  stream.Codes(Last::kYes, FlatLiterals(257), {0});
  stream.bits().Code('x', 8).Code('y', 8).Code(0x1FF, 9);
  EXPECT_EQ(Expand(stream, 2), "xy");
}

TEST_F(InflateTest, CodesForAllSymbolsThatCanBeAnnouncedAreBuilt) {
  DeflateStream stream;
  stream.Codes(Last::kYes, FlatLiterals(288), std::vector<uint8_t>(32, 5));
  stream.bits().Code('x', 8).Code('y', 8).Code(0x1FF, 9);
  EXPECT_EQ(Expand(stream, 2), "xy");
  EXPECT_EQ(status, 0);
}

TEST_F(InflateTest, AMatchInABlockWithoutDistancesReachesTheCaller) {
  DeflateStream stream;
  std::vector<uint8_t> literals(258, 0);
  literals['x'] = 1;
  literals[256] = 2;
  literals[257] = 2;
  stream.Codes(Last::kYes, literals, {0});
  stream.bits().Code("0").Code("11").Number(0, 16);
  ExpectOutOfRange(stream.bytes(), 100);
}

TEST_F(InflateTest, ASingleDistanceOfOneBitIsAllowedAndItsOtherBitReachesTheCaller) {
  std::vector<uint8_t> literals(258, 0);
  literals['x'] = 1;
  literals[256] = 2;
  literals[257] = 2;
  DeflateStream good;
  good.Codes(Last::kYes, literals, {1}).bits().Code("0").Code("11").Code("0").Code("10");
  EXPECT_EQ(Expand(good, 4), "xxxx");
  DeflateStream bad;
  bad.Codes(Last::kYes, literals, {1}).bits().Code("0").Code("11").Code("1").Code("10");
  ExpectOutOfRange(bad.bytes(), 100);
}

TEST_F(InflateTest, CodesWithTooManyShortCodewordsGiveTheMessageAndLeaveTheData) {
  std::vector<uint8_t> literals = FlatLiterals(257);
  literals[0] = 7;
  ExpectNoTree(DeflateStream().Codes(Last::kYes, literals, {0}));
}

TEST_F(InflateTest, CodesWithGapsGiveTheMessage) {
  std::vector<uint8_t> literals = FlatLiterals(257);
  literals[0] = 0;
  ExpectNoTree(DeflateStream().Codes(Last::kYes, literals, {0}));
}

TEST_F(InflateTest, DistancesWithTooManyShortCodewordsGiveTheMessage) {
  ExpectNoTree(DeflateStream().Codes(Last::kYes, FlatLiterals(257), {1, 1, 1}));
}

TEST_F(InflateTest, ABlockWithoutAnEndGivesTheMessage) {
  std::vector<uint8_t> literals(257, 0);
  literals['x'] = 1;
  literals['y'] = 1;
  ExpectNoTree(DeflateStream().Codes(Last::kYes, literals, {0}));
}

TEST_F(InflateTest, ARepeatOfNothingGivesTheMessage) {
  DeflateStream stream;
  stream.Header(Last::kYes, 2).bits().Number(0, 5).Number(0, 5).Number(0, 4);
  stream.bits().Number(1, 3).Number(1, 3).Number(0, 3).Number(0, 3);  // 16 and 17 with one bit each
  stream.bits().Code("0").Number(0, 2);
  ExpectNoTree(stream);
}

TEST_F(InflateTest, ARepeatBeyondTheLastSymbolGivesTheMessage) {
  DeflateStream stream;
  stream.Header(Last::kYes, 2).bits().Number(0, 5).Number(0, 5).Number(0, 4);
  stream.bits().Number(0, 3).Number(1, 3).Number(1, 3).Number(0, 3);  // 17 and 18
  for (int times = 0; times < 2; ++times) stream.bits().Code("1").Number(127, 7);
  ExpectNoTree(stream);
}

TEST_F(InflateTest, LengthSymbolsBeyondTheLastReachTheCaller) {
  for (const uint32_t symbol : {286U, 287U}) {
    DeflateStream stream;
    stream.Header(Last::kYes, 1).Literals("a").Symbol(symbol).bits().Number(0, 32);
    ExpectOutOfRange(stream.bytes(), 600);
  }
}

// ---- matches -----------------------------------------------------------------------------------------------------

TEST_F(InflateTest, AMatchThatOverlapsItsOutputRepeatsTheLastByte) {
  EXPECT_EQ(Expand(DeflateStream().Header(Last::kYes, 1).Literals("ab").Match(264, 0, 0, 0).EndOfBlock(), 12),
            "abbbbbbbbbbb");
}

TEST_F(InflateTest, EveryDistanceNearTheOutputRepeatsItsPattern) {
  std::string filler(1000, '.');
  for (size_t distance = 1; distance <= 40; ++distance) {
    for (const uint32_t length : {3U, 4U, 9U, 10U}) {
      const std::string pattern = std::string("abcdefghijklmnopqrstuvwxyz0123456789ABCDEF").substr(0, distance);
      DeflateStream stream;
      stream.Header(Last::kYes, 1).Literals(pattern);
      const auto [symbol, extra, bits] = [&]() -> std::tuple<uint32_t, uint32_t, int> {
        if (distance <= 4) return {static_cast<uint32_t>(distance - 1), 0U, 0};
        uint32_t base = 5;
        for (uint32_t code = 4;; ++code) {
          const int extra_bits = static_cast<int>(code / 2 - 1);
          if (distance < base + (1U << extra_bits)) return {code, static_cast<uint32_t>(distance - base), extra_bits};
          base += 1U << extra_bits;
        }
      }();
      stream.Match(254 + length, 0, 0, symbol, extra, bits).Literals(filler).EndOfBlock();
      std::string expected = pattern;
      for (uint32_t at = 0; at < length; ++at) expected += expected[expected.size() - distance];
      ASSERT_EQ(Expand(stream, distance + length + filler.size()), expected + filler) << distance << " " << length;
    }
  }
}

TEST_F(InflateTest, TheLongestMatchOfDeflateIs258BytesByTwoSymbols) {
  const std::string expected(259, 'a');
  EXPECT_EQ(Expand(DeflateStream().Header(Last::kYes, 1).Literals("a").Match(285, 0, 0, 0).EndOfBlock(), 259),
            expected);
  EXPECT_EQ(Expand(DeflateStream().Header(Last::kYes, 1).Literals("a").Match(284, 31, 5, 0).EndOfBlock(), 259),
            expected);
}

TEST_F(InflateTest, ALengthOf258ReadsSixteenMoreBitsInDeflate64) {
  DeflateStream stream;
  stream.Header(Last::kYes, 1).Literals("a").Symbol(285).bits().Number(1000, 16);
  stream.Distance(0).EndOfBlock();
  EXPECT_EQ(Expand(stream, 1004, true), std::string(1004, 'a'));
}

TEST_F(InflateTest, ALengthOf258MadeOfExtraBitsReadsSixteenMoreBitsInDeflate64Too) {
  DeflateStream stream;
  stream.Header(Last::kYes, 1).Literals("a").Symbol(284).bits().Number(31, 5).Number(0, 16);
  stream.Distance(0).EndOfBlock();
  EXPECT_EQ(Expand(stream, 4, true), "aaaa");
}

TEST_F(InflateTest, TheLongestMatchOfDeflate64) {
  DeflateStream stream;
  stream.Header(Last::kYes, 1).Literals("ab").Symbol(285).bits().Number(65535, 16);
  stream.Distance(1).Literals("end").EndOfBlock();
  std::string expected;
  while (expected.size() < 65540) expected += "ab";
  EXPECT_EQ(Expand(stream, 65543, true), expected + "end");
}

TEST_F(InflateTest, DistancesBeyond32KilobytesStandInPlainDeflateToo) {
  std::string far;
  for (int at = 0; at < 50000; ++at) far += static_cast<char>('a' + at * 7 % 26 + (at / 1000) % 3);
  for (const bool deflate64 : {false, true}) {
    DeflateStream stream;
    stream.Stored(Last::kNo, far).Header(Last::kYes, 1);
    stream.Match(257, 0, 0, 30, 100, 14).Match(257, 0, 0, 31, 7, 14).EndOfBlock();  // 32869 and 49160 back
    std::string expected = far;
    for (int at = 0; at < 3; ++at) expected += expected[expected.size() - 32869];
    for (int at = 0; at < 3; ++at) expected += expected[expected.size() - 49160];
    EXPECT_EQ(Expand(stream, expected.size(), deflate64), expected);
  }
}

TEST_F(InflateTest, ADistanceBehindTheStartReachesTheCaller) {
  ExpectOutOfRange(DeflateStream().Header(Last::kYes, 1).Literals("ab").Match(257, 0, 0, 2).EndOfBlock().bytes(), 100);
}

TEST_F(InflateTest, ADistanceBehindTheStartInTheMiddleOfALongStreamReachesTheCaller) {
  DeflateStream stream;
  const std::string filler(500, 'x');
  stream.Header(Last::kYes, 1).Literals(filler).Match(257, 0, 0, 17, 127, 7).Literals(filler).EndOfBlock();
  ExpectOutOfRange(stream.bytes(), 2000);
}

// ---- sizes -------------------------------------------------------------------------------------------------------

TEST_F(InflateTest, MoreOutputThanAnnouncedReachesTheCaller) {
  const std::string text(1000, 'x');
  const DeflateStream literals = DeflateStream().Header(Last::kYes, 1).Literals(text).EndOfBlock();
  ExpectOutOfRange(literals.bytes(), 999);
  ExpectOutOfRange(literals.bytes(), 0);
  DeflateStream match;
  match.Header(Last::kYes, 1).Literals("a").Match(285, 0, 0, 0).Literals(text).EndOfBlock();
  ExpectOutOfRange(match.bytes(), 258);
  DeflateStream long_match;
  long_match.Header(Last::kYes, 1).Literals("a").Symbol(285).bits().Number(65535, 16);
  long_match.Distance(0).Literals(text).EndOfBlock();
  ExpectOutOfRange(long_match.bytes(), 60000, true);
}

TEST_F(InflateTest, LessOutputThanAnnouncedIsTrimmed) {
  EXPECT_EQ(Expand(DeflateStream().Header(Last::kYes, 1).Literals("ab").EndOfBlock(), 5000), "ab");
  EXPECT_EQ(status, 0);
}

TEST_F(InflateTest, AnAnnouncedSizeTakesNoMemoryThatTheDataCannotFill) {
  Bytes data = DeflateStream().Header(Last::kYes, 1).Literals("ab").EndOfBlock().bytes();
  EXPECT_EQ(Inflate(data, int64_t{1} << 50, false), 0);
  EXPECT_EQ(AsChars(data), "ab");
}

// A zip of 160 KB that announced 4 GB took all of them.
TEST_F(InflateTest, MemoryFollowsWhatComesOut) {
  Bytes data = DeflateStream().Header(Last::kYes, 1).Literals("ab").EndOfBlock().bytes();
  data.resize(160'000);
  EXPECT_EQ(Inflate(data, int64_t{1} << 32, true), 0);
  EXPECT_EQ(AsChars(data), "ab");
  EXPECT_LT(data.capacity(), size_t{4} << 20);
}

TEST_F(InflateTest, AStreamThatExpandsFarGetsTheRoomItFills) {
  DeflateStream matches;
  matches.Header(Last::kYes, 1).Literals("a");
  for (int at = 0; at < 4000; ++at) matches.Match(285, 0, 0, 0);
  matches.EndOfBlock();
  const std::string plain = Expand(matches, 4000 * 258 + 1);
  EXPECT_EQ(plain, std::string(4000 * 258 + 1, 'a'));
  DeflateStream long_matches;
  long_matches.Header(Last::kYes, 1).Literals("a");
  for (int at = 0; at < 20; ++at) long_matches.Symbol(285).bits().Number(65535, 16), long_matches.Distance(0);
  long_matches.EndOfBlock();
  EXPECT_EQ(Expand(long_matches, 20 * 65538 + 1, true), std::string(20 * 65538 + 1, 'a'));
}

TEST_F(InflateTest, AStreamCutShortGivesAShortOutput) {
  // The end of the block is missing: zeros stand for it in the static code.
  Bytes stream = DeflateStream().Header(Last::kYes, 1).Literals("abcdefgh").bytes();
  EXPECT_EQ(Expand(stream, 100), "abcdefgh");
  EXPECT_EQ(status, 0);
}

TEST_F(InflateTest, HeaderAndExtraBitsBehindTheEndReachTheCaller) {
  ExpectOutOfRange({}, 10);
  // High bytes have codewords of 9 bits: 3 + 6 * 9 + 7 and 3 + 5 * 9 + 8 bits end with a byte.
  ExpectOutOfRange(DeflateStream().Header(Last::kNo, 1).Literals(std::string(6, '\xFF')).EndOfBlock().bytes(), 100);
  DeflateStream extra;
  extra.Header(Last::kYes, 1).Literals(std::string(5, '\xFF')).Symbol(284);
  ExpectOutOfRange(extra.bytes(), 1000);
}

TEST_F(InflateTest, ACutStreamWhoseZerosAreLiteralsEndsAtTheAnnouncedSize) {
  std::vector<uint8_t> literals(257, 0);
  literals['x'] = 1;
  literals[256] = 1;
  ExpectOutOfRange(DeflateStream().Codes(Last::kYes, literals, {0}).bytes(), 5000);
}

}  // namespace
}  // namespace kestrun
