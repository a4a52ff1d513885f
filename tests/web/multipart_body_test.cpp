// What ClsHTTP sends: the parameters as a body, byte for byte, and the headers with it. The answers are laid down.
#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include "base/code_page.h"
#include "support/headless_fixture.h"
#include "web/cls_http.h"

namespace kestrun {
namespace {

using testing::ElementsAre;
using testing::IsEmpty;

constexpr const char* kUrl = "http://site/script.php";

class MultipartBodyTest : public HeadlessTest {
 protected:
  MultipartBodyTest() { desktop.internet().Answer(kUrl, {200, {}, {}}); }

  [[nodiscard]] SentRequest Posted() {
    EXPECT_EQ(http.DownloadURl(kUrl, "POST"), "");
    return desktop.internet().requests.empty() ? SentRequest() : desktop.internet().requests.back();
  }

  ClsHTTP http;
};

// One parameter as it stands in the body, all bytes of it.
std::string Part(const std::string& name, const std::string& type, size_t length, const std::string& value) {
  return "--Xu02=$\r\nContent-Disposition: form-data; name=\"" + name + "\"\r\nContent-type: " + type +
         "\r\nContent-Length: " + std::to_string(length) + "\r\n\r\n" + value + "\r\n--Xu02=$--\r\n";
}

TEST_F(MultipartBodyTest, WithoutParametersThePlainRequestHasNoBodyAndNoContentType) {
  const SentRequest sent = Posted();
  EXPECT_EQ(sent.method, "POST");
  EXPECT_EQ(sent.url, kUrl);
  EXPECT_THAT(sent.headers, IsEmpty());
  EXPECT_EQ(sent.body, "");
}

TEST_F(MultipartBodyTest, OneParameterIsOneClosedPart) {
  http.AddParameter("game", "Land Warrior", false, "text/plain");
  const SentRequest sent = Posted();
  EXPECT_THAT(sent.headers, ElementsAre(HttpHeader{"Content-Type", "multipart/form-data; boundary=Xu02=$"}));
  EXPECT_EQ(sent.body,
            "--Xu02=$\r\n"
            "Content-Disposition: form-data; name=\"game\"\r\n"
            "Content-type: text/plain\r\n"
            "Content-Length: 12\r\n"
            "\r\n"
            "Land Warrior\r\n"
            "--Xu02=$--\r\n");
}

TEST_F(MultipartBodyTest, TheEncodeFlagCountsTheEncodedCharacters) {
  http.AddParameter("map", "foob", true, "application/zip");
  EXPECT_EQ(Posted().body, Part("map", "application/zip", 6, "Zm9vYg"));
}

TEST_F(MultipartBodyTest, TwoParametersHoldTheClosingDelimiterTwice) {
  http.AddParameter("a", "1", false, "text/plain");
  http.AddParameter("b", "", false, "text/html");
  EXPECT_EQ(Posted().body, Part("a", "text/plain", 1, "1") + Part("b", "text/html", 0, ""));
}

TEST_F(MultipartBodyTest, AnEmptyEncodedValueIsEmpty) {
  http.AddParameter("map", "", true, "x/y");
  EXPECT_THAT(Posted().body, testing::HasSubstr("Content-Length: 0\r\n\r\n\r\n--Xu02=$--"));
}

TEST_F(MultipartBodyTest, CharactersAreOneByteEachAndCountedAsSuch) {
  http.AddParameter("näme", "é€", false, "text/plain");
  EXPECT_EQ(Posted().body, Part("n\xE4me", "text/plain", 2, "\xE9\x80"));
}

TEST_F(MultipartBodyTest, ACharacterThatThePageLacksIsAQuestionMark) {
  http.AddParameter("a", "地図😀", false, "text/plain");
  EXPECT_THAT(Posted().body, testing::HasSubstr("Content-Length: 3\r\n\r\n???\r\n"));
}

TEST_F(MultipartBodyTest, EncodedValuesAreTheBytesOfTheCodePage) {
  http.AddParameter("a", "é", true, "text/plain");
  EXPECT_THAT(Posted().body, testing::HasSubstr("Content-Length: 2\r\n\r\n6Q\r\n"));
}

// A page whose characters above 127 take two bytes, as the far-eastern pages of Windows do.
class DoubleBytePage final : public CodePage {
 public:
  [[nodiscard]] std::string Encode(std::string_view utf8) const override {
    std::string bytes;
    for (size_t at = 0; at < utf8.size();) {
      const char32_t code_point = NextCodePoint(utf8, at);
      bytes += code_point < 128 ? std::string(1, static_cast<char>(code_point)) : "\x83\x41";
    }
    return bytes;
  }
  [[nodiscard]] std::string Decode(std::string_view bytes) const override {
    return ReplaceAll(bytes, "\x83\x41", "ア");
  }
};

TEST_F(MultipartBodyTest, ACharacterOfTwoBytesCountsOnce) {
  const DoubleBytePage page;
  InstallCodePage(&page);
  http.AddParameter("a", "xア", false, "text/plain");
  InstallCodePage(nullptr);
  EXPECT_THAT(Posted().body, testing::HasSubstr("Content-Length: 2\r\n\r\nx\x83\x41\r\n"));
}

TEST_F(MultipartBodyTest, EveryByteOfAMapTravelsUnchanged) {
  std::string bytes;
  for (int at = 0; at < 256; ++at) bytes += static_cast<char>(at);
  http.AddParameter("map", DecodeText(bytes), false, "application/octet-stream");
  EXPECT_THAT(Posted().body, testing::HasSubstr("Content-Length: 256\r\n\r\n" + bytes + "\r\n--Xu02=$--\r\n"));
}

TEST_F(MultipartBodyTest, ParametersStayFromRequestToRequest) {
  http.AddParameter("a", "1", false, "text/plain");
  const SentRequest first = Posted();
  EXPECT_EQ(Posted(), first);
}

TEST_F(MultipartBodyTest, ParametersStayBehindAFailedRequest) {
  http.AddParameter("a", "1", false, "text/plain");
  EXPECT_EQ(http.DownloadURl("http://nowhere/", "POST"), "");
  EXPECT_THAT(Posted().body, testing::HasSubstr("name=\"a\""));
}

TEST_F(MultipartBodyTest, ClearedParametersAreGone) {
  http.AddParameter("a", "1", false, "text/plain");
  http.ClearParameters();
  const SentRequest sent = Posted();
  EXPECT_THAT(sent.headers, IsEmpty());
  EXPECT_EQ(sent.body, "");
}

TEST_F(MultipartBodyTest, TheBodyIsReservedOnce) {
  http.AddParameter("map", std::string(100000, 'x'), true, "application/zip");
  http.AddParameter("text", std::string(100000, 'x'), false, "text/plain");
  const std::string body = http.Body();
  EXPECT_EQ(body.capacity(), body.size());
}

}  // namespace
}  // namespace kestrun
