#include "base/url_escapes.h"

#include <gtest/gtest.h>

namespace kestrun {
namespace {

TEST(UrlEscapesTest, EscapesBecomeTheirBytes) {
  EXPECT_EQ(WithoutUrlEscapes("a%20b%22%C3%a9"), "a b\"\xC3\xA9");
  EXPECT_EQ(WithoutUrlEscapes(""), "");
}

TEST(UrlEscapesTest, APercentSignThatBeginsNoneStays) {
  EXPECT_EQ(WithoutUrlEscapes("100%"), "100%");
  EXPECT_EQ(WithoutUrlEscapes("%4"), "%4");
  EXPECT_EQ(WithoutUrlEscapes("%zz%2g%%41"), "%zz%2g%A");
}

TEST(UrlEscapesTest, OneLayerIsTakenOff) { EXPECT_EQ(WithoutUrlEscapes("%2541"), "%41"); }

}  // namespace
}  // namespace kestrun
