#include "base/result_codes.h"

#include <gtest/gtest.h>

namespace kestrun {
namespace {

constexpr int Result(unsigned code) { return static_cast<int>(code); }

TEST(ResultCodesTest, ACommonResultStandsForTheNumberOfARunTimeError) {
  EXPECT_EQ(NumberOfResult(Result(0x80020005)), 13);
  EXPECT_EQ(NumberOfResult(Result(0x80040154)), 429);
  EXPECT_EQ(NumberOfResult(Result(0x800706BA)), 462);
}

TEST(ResultCodesTest, AScriptLanguagesResultCarriesTheNumberInItsLowHalf) {
  EXPECT_EQ(NumberOfResult(Result(0x800A01A8)), 424);
  EXPECT_EQ(ResultOfNumber(424), Result(0x800A01A8));
}

TEST(ResultCodesTest, AnyOtherNumberStays) {
  EXPECT_EQ(NumberOfResult(Result(0x80001234)), Result(0x80001234));
  EXPECT_EQ(NumberOfResult(1030), 1030);
  EXPECT_EQ(ResultOfNumber(Result(0x80001234)), Result(0x80001234));
}

}  // namespace
}  // namespace kestrun
