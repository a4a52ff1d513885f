// A small encoder of the Reduce methods, made from their published description, and what the reader makes of its work.
#include "formats/zip/reduce.h"

#include <gtest/gtest.h>

#include <bit>
#include <map>
#include <set>

#include "formats/zip_sample.h"
#include "support/bit_writer.h"

namespace kestrun {
namespace {

constexpr uint8_t kDle = 144;

int IndexBits(size_t followers) { return std::max(1, static_cast<int>(std::bit_width(followers - 1))); }

// Second stage first: escapes for the byte 144, and matches where they pay.
Bytes Escape(std::string_view text, int factor) {
  const int low_bits = 8 - factor;
  const size_t low_mask = (size_t{1} << low_bits) - 1;
  const size_t farthest = (size_t{1} << (factor + 8));
  Bytes out;
  for (size_t at = 0; at < text.size();) {
    size_t best = 0;
    size_t best_distance = 0;
    const size_t window = std::min({at, farthest, size_t{600}});
    for (size_t distance = 1; distance <= window; ++distance) {
      size_t length = 0;
      while (at + length < text.size() && length < low_mask + 255 + 3 &&
             text[at + length] == text[at + length - distance])
        ++length;
      if (length > best) {
        best = length;
        best_distance = distance;
      }
    }
    // A first byte of 0 would be an escape.
    const size_t coded = best < 3 ? 0 : best - 3;
    const size_t high = ((best_distance - 1) / 256) << low_bits;
    const auto first = static_cast<uint8_t>(high | std::min(coded, low_mask));
    if (best > 4 && first != 0) {
      out.push_back(kDle);
      out.push_back(first);
      if (coded >= low_mask) out.push_back(static_cast<uint8_t>(coded - low_mask));
      out.push_back(static_cast<uint8_t>((best_distance - 1) % 256));
      at += best;
      continue;
    }
    out.push_back(static_cast<uint8_t>(text[at]));
    if (out.back() == kDle) out.push_back(0);
    ++at;
  }
  return out;
}

// First stage: up to `most` followers for each byte.
Bytes Pack(const Bytes& stage, size_t most) {
  std::map<uint8_t, std::set<uint8_t>> sets;
  uint8_t last = 0;
  for (const uint8_t byte : stage) {
    if (sets[last].size() < most) sets[last].insert(byte);
    last = byte;
  }
  BitWriter bits;
  for (int set = 255; set >= 0; --set) {
    const std::set<uint8_t>& followers = sets[static_cast<uint8_t>(set)];
    bits.Number(static_cast<uint32_t>(followers.size()), 6);
    for (const uint8_t one : followers) bits.Number(one, 8);
  }
  last = 0;
  for (const uint8_t byte : stage) {
    const std::set<uint8_t>& followers = sets[last];
    const auto found = followers.find(byte);
    if (followers.empty()) {
      bits.Number(byte, 8);
    } else if (found == followers.end()) {
      bits.Number(1, 1).Number(byte, 8);
    } else {
      bits.Number(0, 1).Number(static_cast<uint32_t>(std::distance(followers.begin(), found)),
                               IndexBits(followers.size()));
    }
    last = byte;
  }
  return bits.bytes();
}

Bytes ReduceText(std::string_view text, int factor, size_t most = 16) { return Pack(Escape(text, factor), most); }

std::string Expand(const Bytes& data, int factor, size_t announced, int32_t expected_status = 0) {
  Bytes output;
  EXPECT_EQ(zip::Reduce(data, factor + 1, static_cast<int64_t>(announced) - 1, output), expected_status);
  return std::string(AsChars(output));
}

class ReduceFactorTest : public testing::TestWithParam<int> {};

TEST_P(ReduceFactorTest, WhatTheEncoderReducedComesOutWhole) {
  for (const auto& [name, content] : SampleFiles()) {
    const std::string text = content.substr(0, 8000);
    EXPECT_TRUE(Expand(ReduceText(text, GetParam()), GetParam(), text.size()) == text) << name;
  }
}

TEST_P(ReduceFactorTest, SetsOfOneFollowerAndOfThe63ThatFitAreRead) {
  const std::string text = SampleFiles().at("readme.txt").substr(0, 3000);
  for (const size_t most : {0U, 1U, 2U, 3U, 5U, 32U, 33U, 63U}) {
    EXPECT_TRUE(Expand(ReduceText(text, GetParam(), most), GetParam(), text.size()) == text) << most;
  }
}

TEST_P(ReduceFactorTest, ALongMatchTakesItsSecondLengthByte) {
  const std::string text = "abcdef" + std::string(380, 'x') + "end";
  EXPECT_EQ(Expand(ReduceText(text, GetParam()), GetParam(), text.size()), text);
}

INSTANTIATE_TEST_SUITE_P(AllFactors, ReduceFactorTest, testing::Range(1, 5));

// Without followers each byte of the second stage stands as it is.
Bytes Plain(const Bytes& stage) { return Pack(stage, 0); }

TEST(ReduceTest, TheEscapeFollowedByZeroIsTheByteItself) {
  EXPECT_EQ(Expand(Plain({'a', kDle, 0, 'b'}), 1, 3),
            "a\x90"
            "b");
}

TEST(ReduceTest, WhatLiesBeforeTheFirstByteIsZeros) {
  EXPECT_EQ(Expand(Plain({'a', kDle, 1, 4}), 1, 5), std::string("a\0\0\0\0", 5));
}

TEST(ReduceTest, TheFactorDividesLengthAndDistance) {
  // 0x81: distance 1 * 256 and length 1 + 3 for factor 1; for factor 4 length 1 + 3 and distance 8 * 256.
  Bytes stage;
  for (int at = 0; at < 300; ++at) stage.push_back(static_cast<uint8_t>('0' + at % 10));
  stage.insert(stage.end(), {kDle, 0x81, 4});
  EXPECT_EQ(Expand(Plain(stage), 1, 304).substr(300), "9012");  // 261 back
  EXPECT_EQ(Expand(Plain(stage), 4, 304).substr(300), std::string(4, '\0'));
}

TEST(ReduceTest, MoreThanAnnouncedIsNotKept) { EXPECT_EQ(Expand(Plain({'a', 'b', 'c'}), 1, 2), "ab"); }

TEST(ReduceTest, DataThatEndEarlyAreToldAndWhatCameStays) {
  EXPECT_EQ(Expand(Plain({'a', 'b', 'c'}), 1, 5, zip::kReduceCutShort).substr(0, 3), "abc");
  EXPECT_EQ(Expand({}, 1, 5, zip::kReduceCutShort), "");
  EXPECT_EQ(Expand({}, 1, 0, 0), "");
}

TEST(ReduceTest, AnAnnouncedSizeTakesNoMemoryThatTheDataDoNotFill) {
  Bytes output;
  EXPECT_EQ(zip::Reduce(Plain({'a'}), 2, int64_t{1} << 50, output), zip::kReduceCutShort);
  EXPECT_LT(output.capacity(), 10000U);
}

}  // namespace
}  // namespace kestrun
