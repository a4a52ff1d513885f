#include "base/code_page.h"

#include <gtest/gtest.h>

#include <array>

namespace kestrun {
namespace {

TEST(CodePageTest, AsciiStaysAsItIs) {
  EXPECT_EQ(EncodeText("dflw.pff ~\x7F"), "dflw.pff ~\x7F");
  EXPECT_EQ(DecodeText("dflw.pff ~\x7F"), "dflw.pff ~\x7F");
}

TEST(CodePageTest, WesternLettersAreOneByte) {
  EXPECT_EQ(EncodeText("é€ÿ"), "\xE9\x80\xFF");
  EXPECT_EQ(DecodeText("\xE9\x80\xFF"), "é€ÿ");
}

TEST(CodePageTest, CharacterWithoutAByteBecomesAQuestionMark) { EXPECT_EQ(EncodeText("Карта 地😀"), "????? ??"); }

TEST(CodePageTest, EveryByteComesBackFromItsCharacter) {
  for (int value = 0; value < 256; ++value) {
    const std::string byte(1, static_cast<char>(value));
    EXPECT_EQ(EncodeText(DecodeText(byte)), byte) << value;
  }
}

TEST(CodePageTest, BytesThatAreNoUtf8BecomeQuestionMarks) { EXPECT_EQ(EncodeText("a\xFF\xC3"), "a??"); }

TEST(CodePageTest, FirstCharacterThatCannotBeStoredIsNamed) {
  EXPECT_EQ(FirstUnencodable("é地x図"), "地");
  EXPECT_EQ(FirstUnencodable("all é€ fine?"), std::nullopt);
  EXPECT_EQ(FirstUnencodable(""), std::nullopt);
}

class UpperCasePage final : public CodePage {
 public:
  [[nodiscard]] std::string Encode(std::string_view) const override { return "ENCODED"; }
  [[nodiscard]] std::string Decode(std::string_view) const override { return "DECODED"; }
};

TEST(CodePageTest, InstalledPageIsUsedUntilItIsTakenAwayAgain) {
  const UpperCasePage page;
  InstallCodePage(&page);
  EXPECT_EQ(EncodeText("x"), "ENCODED");
  EXPECT_EQ(DecodeText("x"), "DECODED");
  InstallCodePage(nullptr);
  EXPECT_EQ(EncodeText("x"), "x");
}

}  // namespace
}  // namespace kestrun
