// The body of an answer as text.
#include <gtest/gtest.h>

#include "web/web_request.h"

namespace kestrun {
namespace {

std::string Text(std::string_view content_type, std::string_view body) {
  const ByteView bytes = AsBytes(body);
  return ResponseText({200, {{"content-type", std::string(content_type)}}, Bytes(bytes.begin(), bytes.end())});
}

TEST(ResponseTextTest, TextIsUtf8OnlyWhereItSaysSo) {
  for (const char* type : {"text/html; charset=utf-8", "text/html;charset=UTF8", "x; a=b; Charset=\"utf-8\" ; c"}) {
    EXPECT_EQ(Text(type, "\xC3\xA9"), "é") << type;
  }
  for (const char* type : {"", "text/html", "charset=utf-8", "text/html; charset=", "text/html; charset=utf-16",
                           "text/html; xcharset=utf-8", "text/html; charset"}) {
    EXPECT_EQ(Text(type, "\xC3\xA9"), "Ã©") << type;
  }
}

TEST(ResponseTextTest, BytesThatAreNoUtf8DoNotTravelOn) { EXPECT_EQ(Text("x; charset=utf-8", "a\xFFz"), "a\uFFFDz"); }

}  // namespace
}  // namespace kestrun
