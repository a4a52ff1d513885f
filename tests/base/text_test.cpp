#include "base/text.h"

#include <gtest/gtest.h>

namespace kestrun {
namespace {

TEST(Text, LowerAndUpperReachBeyondAscii) {
  EXPECT_EQ(ToLower("MAP Ä Ж Ω Ź"), "map ä ж ω ź");
  EXPECT_EQ(ToUpper("map ä ж ω ź ÿ"), "MAP Ä Ж Ω Ź Ÿ");
}

TEST(Text, AccentedGreekAndUkrainianLettersHaveTwoCases) {
  EXPECT_EQ(ToLower("ΆΈΉΊΌΎΏΪΫ Ґ Ә Ӑ"), "άέήίόύώϊϋ ґ ә ӑ");
  EXPECT_EQ(ToUpper("άέήίόύώϊϋ ґ ә ӑ"), "ΆΈΉΊΌΎΏΪΫ Ґ Ә Ӑ");
}

TEST(Text, EveryCaseMappingGoesBothWays) {
  for (char32_t code_point = 0; code_point < 0x600; ++code_point) {
    if (LowerCodePoint(code_point) != code_point) {
      EXPECT_EQ(UpperCodePoint(LowerCodePoint(code_point)), code_point);
    }
    if (UpperCodePoint(code_point) != code_point) {
      EXPECT_EQ(LowerCodePoint(UpperCodePoint(code_point)), code_point);
    }
  }
}

TEST(Text, PatternMatchesNamesWithoutRegardToCase) {
  EXPECT_TRUE(MatchesPattern("Desert.BMS", "*.bms"));
  EXPECT_TRUE(MatchesPattern("a", "?"));
  EXPECT_FALSE(MatchesPattern("Desert.BMS.old", "*.bms"));
}

TEST(Text, Utf16RoundTripKeepsPairsAndLoneSurrogates) {
  const std::u16string text = u"a\u00e9\u5730\U0001F600";
  EXPECT_EQ(ToUtf16(ToUtf8(text)), text);
  const std::u16string lone(1, static_cast<char16_t>(0xD800));
  EXPECT_EQ(ToUtf16(ToUtf8(lone)), lone);
}

TEST(Text, BytesThatAreNoUtf8BecomeReplacementCharacters) { EXPECT_EQ(ToUtf16("\xFFz\xC3"), u"\uFFFDz\uFFFD"); }

TEST(Text, TrimTakesBlanksOnly) { EXPECT_EQ(TrimBlanks("  \ta b  "), "\ta b"); }

TEST(Text, ReplaceAllDoesNotVisitWhatItPutIn) { EXPECT_EQ(ReplaceAll("aXbX", "X", "XX"), "aXXbXX"); }

}  // namespace
}  // namespace kestrun
