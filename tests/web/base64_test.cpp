#include "web/cod_base64.h"

#include <gtest/gtest.h>

#include <string>
#include <string_view>

namespace kestrun {
namespace {

std::string Encoded(std::string_view text) {
  Bytes bytes(AsBytes(text).begin(), AsBytes(text).end());
  Cod_Base64::Encode(bytes);
  return std::string(AsChars(bytes));
}

// One group at a time by the plain rule, without tables and without steps of several groups.
std::string EncodedByTheRule(ByteView bytes) {
  constexpr std::string_view kAlphabet = "ABCDEFGHIJKLMNOPQRSTUVWXYZabcdefghijklmnopqrstuvwxyz0123456789+/";
  std::string text;
  const auto byte = [&](size_t at) { return at < bytes.size() ? bytes[at] : 0U; };
  for (size_t at = 0; at < bytes.size(); at += 3) {
    text += kAlphabet[byte(at) >> 2];
    text += kAlphabet[(byte(at) & 3) << 4 | byte(at + 1) >> 4];
    if (at + 1 < bytes.size()) text += kAlphabet[(byte(at + 1) & 15) << 2 | byte(at + 2) >> 6];
    if (at + 2 < bytes.size()) text += kAlphabet[byte(at + 2) & 63];
  }
  return text;
}

TEST(Base64, NothingEncodesToNothing) { EXPECT_EQ(Encoded(""), ""); }

TEST(Base64, OneByteGivesTwoCharactersAndNoPadding) {
  EXPECT_EQ(Encoded("f"), "Zg");
  EXPECT_EQ(Encoded(std::string_view("\0", 1)), "AA");
  EXPECT_EQ(Encoded("\xFF"), "/w");
}

TEST(Base64, TwoBytesGiveThreeCharactersAndNoPadding) {
  EXPECT_EQ(Encoded("fo"), "Zm8");
  EXPECT_EQ(Encoded("\xFF\xFF"), "//8");
}

TEST(Base64, WholeGroupsGiveFourCharactersEach) {
  EXPECT_EQ(Encoded("foo"), "Zm9v");
  EXPECT_EQ(Encoded("foob"), "Zm9vYg");
  EXPECT_EQ(Encoded("fooba"), "Zm9vYmE");
  EXPECT_EQ(Encoded("foobar"), "Zm9vYmFy");
}

TEST(Base64, EveryCharacterOfTheAlphabetStandsAtItsNumber) {
  const std::string_view bytes(
      "\x00\x10\x83\x10\x51\x87\x20\x92\x8B\x30\xD3\x8F\x41\x14\x93\x51\x55\x97\x61\x96\x9B\x71\xD7\x9F"
      "\x82\x18\xA3\x92\x59\xA7\xA2\x9A\xAB\xB2\xDB\xAF\xC3\x1C\xB3\xD3\x5D\xB7\xE3\x9E\xBB\xF3\xDF\xBF",
      48);
  EXPECT_EQ(Encoded(bytes), "ABCDEFGHIJKLMNOPQRSTUVWXYZabcdefghijklmnopqrstuvwxyz0123456789+/");
}

TEST(Base64, NoLineBreaksHoweverLongTheInput) {
  const std::string text = Encoded(std::string(3000, 'x'));
  EXPECT_EQ(text.size(), 4000U);
  EXPECT_EQ(text.find_first_of("\r\n="), std::string::npos);
}

TEST(Base64, EveryLengthFollowsThePlainRule) {
  Bytes bytes;
  for (uint32_t length = 0; length < 700; ++length) {
    Bytes encoded = bytes;
    Cod_Base64::Encode(encoded);
    ASSERT_EQ(AsChars(encoded), EncodedByTheRule(bytes)) << length << " bytes";
    ASSERT_EQ(encoded.size(), Cod_Base64::EncodedLength(length));
    bytes.push_back(static_cast<uint8_t>((length * 2654435761U) >> 24));
  }
}

TEST(Base64, AppendingKeepsTheTextBefore) {
  std::string text = "data:";
  Cod_Base64::Append(text, AsBytes("foob"));
  Cod_Base64::Append(text, {});
  EXPECT_EQ(text, "data:Zm9vYg");
}

}  // namespace
}  // namespace kestrun
