#include <gtest/gtest.h>

#include "formats/profile/profile_text.h"

namespace kestrun {
namespace {

constexpr size_t kNoLimit = std::string::npos;

std::string Read(std::string_view content, std::string_view section, std::string_view key, size_t limit = kNoLimit) {
  return FindProfileValue(AsBytes(content), section, key, limit).value_or("(missing)");
}

std::string Write(std::string_view content, std::string_view section, std::string_view key, std::string_view value) {
  const auto changed = WithProfileValue(AsBytes(content), section, key, value);
  return changed ? std::string(AsChars(*changed)) : "(unchanged)";
}

std::string Utf16(std::u16string_view text, bool is_big_endian) {
  std::string bytes;
  for (const char16_t unit : text) {
    const char low = static_cast<char>(unit & 0xFF);
    const char high = static_cast<char>(unit >> 8);
    bytes += is_big_endian ? high : low;
    bytes += is_big_endian ? low : high;
  }
  return bytes;
}

TEST(ProfileReadTest, SectionAndKeyCompareWithoutRegardToCase) {
  EXPECT_EQ(Read("[launcher]\r\nSTYLE=dark\r\n", "LAUNCHER", "style"), "dark");
  EXPECT_EQ(Read("[LAUNCHER]\r\nstyle=dark\r\n", "launcher", "STYLE"), "dark");
}

TEST(ProfileReadTest, LettersBeyondAsciiCompareWithoutRegardToCaseToo) {
  EXPECT_EQ(Read("[\xC4]\r\n\xD6=1\r\n", "\xC3\xA4", "\xC3\xB6"), "1");
  EXPECT_EQ(Read("[\xC4]\r\n\xD6=1\r\n", "\xC3\xA4", "o"), "(missing)");
}

TEST(ProfileReadTest, AMissingSectionKeyOrFileContentGivesNothing) {
  EXPECT_EQ(Read("", "a", "k"), "(missing)");
  EXPECT_EQ(Read("[b]\r\nk=1\r\n", "a", "k"), "(missing)");
  EXPECT_EQ(Read("[a]\r\nj=1\r\n", "a", "k"), "(missing)");
}

TEST(ProfileReadTest, AnEmptyValueIsThereButALineWithoutAnEqualsSignIsNot) {
  EXPECT_EQ(Read("[a]\r\nk=\r\n", "a", "k"), "");
  EXPECT_EQ(Read("[a]\r\nk\r\n", "a", "k"), "(missing)");
}

TEST(ProfileReadTest, BlanksAroundSectionsKeysAndValuesAreTrimmed) {
  EXPECT_EQ(Read("  [ a ]  x\r\n  k \t=\t v w \t\r\n", "a", "k"), "v w");
  EXPECT_EQ(Read("[a]\r\nk=v\r\n", " a ", " k "), "v");
  EXPECT_EQ(Read("[a]\r\nk=v\x1A", "a", "k"), "v");
}

TEST(ProfileReadTest, OnePairOfMatchingQuotesIsTakenOff) {
  EXPECT_EQ(Read("[a]\nk=\" v \"\n", "a", "k"), " v ");
  EXPECT_EQ(Read("[a]\nk='v'\n", "a", "k"), "v");
  EXPECT_EQ(Read("[a]\nk=\"\"v\"\"\n", "a", "k"), "\"v\"");
  EXPECT_EQ(Read("[a]\nk=\"v'\n", "a", "k"), "\"v'");
  EXPECT_EQ(Read("[a]\nk=\"v\n", "a", "k"), "\"v");
  EXPECT_EQ(Read("[a]\nk=\"\n", "a", "k"), "\"");
  EXPECT_EQ(Read("[a]\nk=\"\"\n", "a", "k"), "");
}

TEST(ProfileReadTest, ASemicolonStartsACommentAndANumberSignDoesNot) {
  EXPECT_EQ(Read("[a]\r\n;k=1\r\n  ;k=2\r\nk=3;4\r\n", "a", "k"), "3;4");
  EXPECT_EQ(Read("[a]\r\n;k=1\r\n", "a", ";k"), "(missing)");
  EXPECT_EQ(Read("[a]\r\n#k=1\r\n", "a", "#k"), "1");
}

TEST(ProfileReadTest, TheFirstOfTwoEqualKeysWins) { EXPECT_EQ(Read("[a]\r\nk=1\r\nK=2\r\n", "a", "k"), "1"); }

TEST(ProfileReadTest, ASecondSectionOfTheSameNameIsNotRead) {
  EXPECT_EQ(Read("[a]\r\nj=1\r\n[b]\r\n[a]\r\nk=2\r\n", "a", "k"), "(missing)");
}

TEST(ProfileReadTest, EachKindOfLineEndIsTaken) {
  EXPECT_EQ(Read("[a]\nj=1\nk=2", "a", "k"), "2");
  EXPECT_EQ(Read("[a]\rj=1\rk=2\r", "a", "k"), "2");
  EXPECT_EQ(Read("[a]\r\n\r\r\nj=1\n\n\rk=2\r\n", "a", "k"), "2");
}

TEST(ProfileReadTest, TheValueGoesOnBehindASecondEqualsSign) { EXPECT_EQ(Read("[a]\nk=1=2\n", "a", "k"), "1=2"); }

TEST(ProfileReadTest, ASectionEndsAtItsLastBracketAndOneWithoutIsAKeyLine) {
  EXPECT_EQ(Read("[a]]\nk=1\n", "a]", "k"), "1");
  EXPECT_EQ(Read("[a\nk=1\n", "a", "k"), "(missing)");
  EXPECT_EQ(Read("[b]\n[a\nk=1\n", "b", "k"), "1");
}

TEST(ProfileReadTest, LinesBeforeTheFirstSectionBelongToTheEmptyName) {
  EXPECT_EQ(Read("k=1\n[a]\nk=2\n", "", "k"), "1");
  EXPECT_EQ(Read("[]\nk=1\n", "", "k"), "(missing)");
}

TEST(ProfileReadTest, TheValueIsCutByBytesOfTheCodePage) {
  const std::string umlauts(300, '\xE4');
  std::string expected;
  for (int i = 0; i < 254; ++i) expected += "\xC3\xA4";
  EXPECT_EQ(Read("[a]\nk=" + umlauts + "\n", "a", "k", 254), expected);
  EXPECT_EQ(Read("[a]\nk=\"" + std::string(300, 'x') + "\"\n", "a", "k", 254), std::string(254, 'x'));
}

TEST(ProfileReadTest, AValueAndANameEndAtANul) {
  using namespace std::string_view_literals;
  EXPECT_EQ(Read("[a]\nk=1\0 2\n"sv, "a", "k"), "1");
  EXPECT_EQ(Read("[a]\nk=1\n"sv, "a"sv, "k\0j"sv), "1");
}

TEST(ProfileReadTest, AFileWithAUnicodeMarkIsReadAsItSays) {
  const std::u16string text = u"\uFEFF[Карты]\r\nПУТЬ=C:\\地図\\é😀\r\n";
  EXPECT_EQ(Read(Utf16(text, false), "карты", "путь"), "C:\\地図\\é😀");
  EXPECT_EQ(Read(Utf16(text, true), "карты", "путь"), "C:\\地図\\é😀");
  EXPECT_EQ(Read("\xEF\xBB\xBF[Карты]\r\nПУТЬ=C:\\地図\\é😀\r\n", "карты", "путь"), "C:\\地図\\é😀");
}

TEST(ProfileReadTest, AUnicodeValueIsCutBetweenCharacters) {
  std::string value;
  for (int i = 0; i < 300; ++i) value += "地";
  EXPECT_EQ(Read("\xEF\xBB\xBF[a]\nk=" + value + "\n", "a", "k", 254), value.substr(0, 254 * 3));
}

TEST(ProfileReadTest, BinaryContentIsReadWithoutAFault) {
  std::string content;
  uint32_t state = 1;
  for (int i = 0; i < 100'000; ++i) content += static_cast<char>((state = state * 1664525 + 1013904223) >> 24);
  EXPECT_EQ(Read(content, "launcher", "STYLE"), "(missing)");
  EXPECT_EQ(Read(content + "\r\n[launcher]\r\nSTYLE=dark\r\n", "launcher", "STYLE"), "dark");
}

TEST(ProfileReadTest, ALineOfTenMegabytesIsPassedOverOrCut) {
  const std::string line(10'000'000, 'x');
  EXPECT_EQ(Read("[a]\r\n" + line + "\r\nk=1\r\n", "a", "k"), "1");
  EXPECT_EQ(Read("[a]\r\nk=" + line + "\r\n", "a", "k", 254), std::string(254, 'x'));
  EXPECT_EQ(Read("[" + line + "]\r\n[a]\r\nk=1\r\n", "a", "k"), "1");
  EXPECT_EQ(Read("[" + line, "a", "k"), "(missing)");
}

TEST(ProfileReadTest, TenMegabytesOfOneLineEndTakeNoLongerThanOfAnother) {
  // Looking for the other line end again at each line would take hours here.
  EXPECT_EQ(Read(std::string(10'000'000, '\r') + "[a]\rk=1\r", "a", "k"), "1");
  EXPECT_EQ(Read(std::string(10'000'000, '\n') + "[a]\nk=1\n", "a", "k"), "1");
}

TEST(ProfileWriteTest, EmptyContentGetsSectionAndKey) { EXPECT_EQ(Write("", "a", "k", "v"), "[a]\r\nk=v\r\n"); }

TEST(ProfileWriteTest, AChangedKeyKeepsItsSpellingAndTheOtherLinesTheirBytes) {
  EXPECT_EQ(Write("; c \r\n\r\n [a] x\n  j =  1 \r\n\tKey = 'old'\r\nlast", "A", "KEY", "v"),
            "; c \r\n\r\n [a] x\n  j =  1 \r\nKey=v\r\nlast");
}

TEST(ProfileWriteTest, OnlyTheFirstOfTwoEqualKeysIsChanged) {
  EXPECT_EQ(Write("[a]\r\nk=1\r\nk=2\r\n", "a", "k", "v"), "[a]\r\nk=v\r\nk=2\r\n");
}

TEST(ProfileWriteTest, ANewKeyGoesBehindTheLastLineOfItsSectionThatIsNotBlank) {
  EXPECT_EQ(Write("[a]\r\nj=1\r\n;c\r\n\r\n \r\n[b]\r\nz=1\r\n", "a", "k", "v"),
            "[a]\r\nj=1\r\n;c\r\nk=v\r\n\r\n \r\n[b]\r\nz=1\r\n");
  EXPECT_EQ(Write("[a]\r\n[b]\r\n", "a", "k", "v"), "[a]\r\nk=v\r\n[b]\r\n");
}

TEST(ProfileWriteTest, ANewSectionGoesToTheEndOfTheFile) {
  EXPECT_EQ(Write("[a]\r\nj=1\r\n\r\n", "b", "k", "v"), "[a]\r\nj=1\r\n\r\n[b]\r\nk=v\r\n");
}

TEST(ProfileWriteTest, ALastLineWithoutALineEndGetsOneBeforeANewLine) {
  EXPECT_EQ(Write("[a]\r\nj=1", "a", "k", "v"), "[a]\r\nj=1\r\nk=v\r\n");
  EXPECT_EQ(Write("[a]", "b", "k", "v"), "[a]\r\n[b]\r\nk=v\r\n");
}

TEST(ProfileWriteTest, NewLinesTakeTheLineEndOfTheFile) {
  EXPECT_EQ(Write("[a]\nj=1\n", "a", "k", "v"), "[a]\nj=1\nk=v\n");
  EXPECT_EQ(Write("[a]\rj=1", "b", "k", "v"), "[a]\rj=1\r[b]\rk=v\r");
}

TEST(ProfileWriteTest, AKeyLineWithoutAnEqualsSignGetsItsValue) {
  EXPECT_EQ(Write("[a]\r\nk\r\n", "a", "k", "v"), "[a]\r\nk=v\r\n");
}

TEST(ProfileWriteTest, AValueGoesInAsItStandsLineBreaksIncluded) {
  EXPECT_EQ(Write("[a]\r\n", "a", "k", "one\r\ntwo"), "[a]\r\nk=one\r\ntwo\r\n");
  EXPECT_EQ(Write("[a]\r\n", "a", "k", " 'v' "), "[a]\r\nk= 'v' \r\n");
  EXPECT_EQ(Write("[a]\r\nk=1\r\n", "a", "k", ""), "[a]\r\nk=\r\n");
}

TEST(ProfileWriteTest, TheSameValueChangesNothing) {
  EXPECT_EQ(Write("[a]\r\n k =  v \r\n", "a", "k", "v"), "(unchanged)");
  EXPECT_EQ(Write("[a]\r\nk='v'\r\n", "a", "k", "v"), "[a]\r\nk=v\r\n");
}

TEST(ProfileWriteTest, ANameThatCouldNotBeFoundAgainIsNotWritten) {
  EXPECT_EQ(Write("[a]\r\n", "a", "k=l", "v"), "(unchanged)");
  EXPECT_EQ(Write("[a]\r\n", "a", ";k", "v"), "(unchanged)");
  EXPECT_EQ(Write("[a]\r\n", "a", "[k]", "v"), "(unchanged)");
  EXPECT_EQ(Write("[a]\r\n", "a", "k\nl", "v"), "(unchanged)");
  EXPECT_EQ(Write("[a]\r\n", "b\r\n[c", "k", "v"), "(unchanged)");
}

TEST(ProfileWriteTest, ACharacterOutsideTheCodePageBecomesAQuestionMark) {
  EXPECT_EQ(Write("", "a", "\xC3\xA4", "é地"), "[a]\r\n\xE4=\xE9?\r\n");
}

TEST(ProfileWriteTest, AFileWithAUnicodeMarkKeepsItsEncoding) {
  for (const bool is_big_endian : {false, true}) {
    EXPECT_EQ(Write(Utf16(u"\uFEFF[a]\r\nj=é😀\r\n", is_big_endian), "a", "k", "地"),
              Utf16(u"\uFEFF[a]\r\nj=é😀\r\nk=地\r\n", is_big_endian));
  }
  EXPECT_EQ(Write("\xEF\xBB\xBF[a]\r\nj=1\r\n", "a", "k", "地"), "\xEF\xBB\xBF[a]\r\nj=1\r\nk=地\r\n");
}

TEST(ProfileWriteTest, ALineOfTenMegabytesIsKept) {
  const std::string line(10'000'000, 'x');
  EXPECT_TRUE(Write("[a]\r\n" + line + "\r\nk=1\r\n", "a", "k", "v") == "[a]\r\n" + line + "\r\nk=v\r\n");
}

TEST(ProfileWriteTest, WhatWasWrittenIsRead) {
  std::string content = "# junk\n[x\n";
  for (int i = 0; i < 50; ++i) {
    const std::string number = std::to_string(i);
    content = Write(content, "s" + std::to_string(i % 7), "key " + number, "value = " + number);
  }
  for (int i = 0; i < 50; ++i) {
    const std::string number = std::to_string(i);
    EXPECT_EQ(Read(content, "S" + std::to_string(i % 7), "KEY " + number), "value = " + number);
  }
}

// ---- UTF-8 without a mark, as today's editors save it --------------------------------------------------------------

TEST(ProfileUtf8Test, BytesThatAllFormUtf8AreReadAsIt) {
  EXPECT_EQ(Read("[a]\r\nk=C:\\Карты 地図 é😀\r\n", "a", "k"), "C:\\Карты 地図 é😀");
  EXPECT_EQ(Read("[Карты]\r\nключ=1\r\n", "карты", "КЛЮЧ"), "1");
}

TEST(ProfileUtf8Test, OneByteThatDoesNotMakesItTheCodePage) {
  EXPECT_EQ(Read("[a]\r\nk=\xC3\xA9\r\nj=\xE9\r\n", "a", "k"), "Ã©");
  EXPECT_EQ(Read("[a]\r\nk=\xC3\xA9\r\nj=\xE9\r\n", "a", "j"), "é");
}

TEST(ProfileUtf8Test, WhatLooksLikeUtf8ButIsNoneIsTheCodePage) {
  for (const char* text : {"\xC3", "\xC0\xAF", "\xE0\x80\xAF", "\xED\xA0\x80", "\xF4\x90\x80\x80", "\xF5\x80\x80\x80",
                           "\xE5\x9C", "\xF0\x9F\x98", "\xA9"}) {
    EXPECT_EQ(DetectProfileEncoding(AsBytes(text)), ProfileEncoding::kCodePage) << text;
  }
  for (const char* text :
       {"\xC3\xA9", "\xE0\xA0\x80", "\xED\x9F\xBF", "\xF0\x90\x80\x80", "\xF4\x8F\xBF\xBF", "a\xC3\xA9z"}) {
    EXPECT_EQ(DetectProfileEncoding(AsBytes(text)), ProfileEncoding::kUnmarkedUtf8) << text;
  }
  EXPECT_EQ(DetectProfileEncoding(AsBytes("[a]\r\nk=plain\r\n")), ProfileEncoding::kCodePage);
}

TEST(ProfileUtf8Test, ItIsWrittenAsUtf8WithoutAMark) {
  EXPECT_EQ(Write("[a]\r\nk=é\r\n", "a", "j", "地図"), "[a]\r\nk=é\r\nj=地図\r\n");
  EXPECT_EQ(Write("[a]\r\nk=é\r\n", "a", "k", "plain"), "[a]\r\nk=plain\r\n");
}

// Its bytes would read as another text from then on: the mark says what they are.
TEST(ProfileUtf8Test, ACodePageFileThatWouldPassForUtf8GetsTheMark) {
  EXPECT_EQ(Write("[a]\r\nk=1\r\n", "a", "k", "Ã©"), "\xEF\xBB\xBF[a]\r\nk=Ã©\r\n");
  EXPECT_EQ(Write("[a]\r\nk=\xE9\r\nj=\xC3\xA9\r\n", "a", "k", "e"), "\xEF\xBB\xBF[a]\r\nk=e\r\nj=Ã©\r\n");
}

TEST(CodePageCutTest, CountsBytesAndNeverSplitsACharacter) {
  EXPECT_EQ(CutToCodePageBytes("äöü", 2), "äö");
  EXPECT_EQ(CutToCodePageBytes("äöü", 3), "äöü");
  EXPECT_EQ(CutToCodePageBytes("", 0), "");
}

}  // namespace
}  // namespace kestrun
