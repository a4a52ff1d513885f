// How the parts of HTTP messages are written.
#include "formats/http/http_syntax.h"

#include <gtest/gtest.h>

namespace kestrun {
namespace {

TEST(HttpSyntax, HeaderLinesAreNameColonValue) {
  EXPECT_EQ(ParseHeaderLine("Name:value"), (HttpHeader{"Name", "value"}));
  EXPECT_EQ(ParseHeaderLine("Name: \t a: b \t"), (HttpHeader{"Name", "a: b"}));
  EXPECT_EQ(ParseHeaderLine("Name:"), (HttpHeader{"Name", ""}));
  for (const char* line : {"", "Name", ":value", "Na me: x", "Name : x", " Name: x", "N\xE4me: x"}) {
    EXPECT_EQ(ParseHeaderLine(line), std::nullopt) << line;
  }
}

TEST(HttpSyntax, LengthsAreDecimalDigits) {
  EXPECT_EQ(ParseLength("0"), 0U);
  EXPECT_EQ(ParseLength("999999999999999999"), 999999999999999999U);
  for (const char* text : {"", "-1", "+1", " 1", "1 ", "0x1", "1000000000000000000"}) {
    EXPECT_EQ(ParseLength(text), std::nullopt) << text;
  }
}

TEST(HttpSyntax, RequestsThatCouldBeReadInTwoWaysAreMalformed) {
  EXPECT_TRUE(IsWellFormed({"POST", "http://x/a b", {{"Content-Type", "a/b"}}, {}}));
  EXPECT_FALSE(IsWellFormed({"", "http://x/", {}, {}}));
  EXPECT_FALSE(IsWellFormed({"GET x", "http://x/", {}, {}}));
  EXPECT_FALSE(IsWellFormed({"GET", "http://x/\r\nA: b", {}, {}}));
  EXPECT_FALSE(IsWellFormed({"GET", "http://x/", {{"A: b\r\nC", "d"}}, {}}));
  EXPECT_FALSE(IsWellFormed({"GET", "http://x/", {{"A", "b\r\nC: d"}}, {}}));
}

TEST(HttpSyntax, SomeAnswersHaveNoBodyWhateverTheySay) {
  EXPECT_TRUE(HasNoBody("HEAD", 200));
  for (const int status : {100, 101, 204, 304}) EXPECT_TRUE(HasNoBody("GET", status)) << status;
  for (const int status : {200, 302, 404, 500}) EXPECT_FALSE(HasNoBody("GET", status)) << status;
}

}  // namespace
}  // namespace kestrun
