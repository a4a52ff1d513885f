#include "base/number.h"

#include <gtest/gtest.h>

#include <cmath>
#include <limits>

#include "support/error_number.h"

namespace kestrun {
namespace {

TEST(NumberTest, TiesGoToTheEvenNeighbour) {
  EXPECT_EQ(RoundToInt(0.5), 0);
  EXPECT_EQ(RoundToInt(1.5), 2);
  EXPECT_EQ(RoundToInt(2.5), 2);
  EXPECT_EQ(RoundToInt(-0.5), 0);
  EXPECT_EQ(RoundToInt(-1.5), -2);
  EXPECT_EQ(RoundToInt(-2.5), -2);
}

TEST(NumberTest, OtherFractionsGoToTheNearest) {
  EXPECT_EQ(RoundToInt(2.4999999), 2);
  EXPECT_EQ(RoundToInt(2.5000001), 3);
  EXPECT_EQ(RoundToInt(-2.5000001), -3);
  EXPECT_EQ(RoundToInt(0.49999999999999994), 0);
}

TEST(NumberTest, EdgesOfTheRangeStillFit) {
  EXPECT_EQ(RoundToInt(2147483647.4), 2147483647);
  EXPECT_EQ(RoundToInt(-2147483648.5), std::numeric_limits<int32_t>::min());
  EXPECT_EQ(RoundToShort(32767.4), 32767);
  EXPECT_EQ(RoundToShort(-32768.5), -32768);
}

TEST(NumberTest, OutOfRangeIsAnOverflow) {
  EXPECT_EQ(ErrorNumberOf([] { return RoundToInt(2147483647.5); }), error::kOverflow);
  EXPECT_EQ(ErrorNumberOf([] { return RoundToInt(-2147483649.0); }), error::kOverflow);
  EXPECT_EQ(ErrorNumberOf([] { return RoundToShort(32767.5); }), error::kOverflow);
  EXPECT_EQ(ErrorNumberOf([] { return RoundToShort(-32769.0); }), error::kOverflow);
}

TEST(NumberTest, WhatIsNoNumberIsAnOverflow) {
  EXPECT_EQ(ErrorNumberOf([] { return RoundToInt(std::nan("")); }), error::kOverflow);
  EXPECT_EQ(ErrorNumberOf([] { return RoundToInt(HUGE_VAL); }), error::kOverflow);
}

TEST(NumberTest, DrawLiesBetweenZeroAndBelowOneAndIsUniform) {
  constexpr int kDraws = 20'000;
  double sum = 0;
  int quarters[4]{};
  for (int draw = 0; draw < kDraws; ++draw) {
    const double value = RandomDraw();
    ASSERT_GE(value, 0.0);
    ASSERT_LT(value, 1.0);
    sum += value;
    ++quarters[static_cast<int>(value * 4)];
  }
  EXPECT_NEAR(sum / kDraws, 0.5, 0.02);
  for (const int count : quarters) EXPECT_NEAR(count, kDraws / 4, kDraws / 40);
}

}  // namespace
}  // namespace kestrun
