// A 6 MB map as the upload sends it: in base64, and as a part of a request's body, beside OpenSSL's base64 of the same
// bytes in the same run. Neither may take longer than OpenSSL.
#include <openssl/evp.h>

#include <cstdio>
#include <cstdlib>
#include <random>
#include <string>
#include <vector>

#include "base/code_page.h"
#include "timing.h"
#include "web/cls_http.h"
#include "web/cod_base64.h"

namespace kestrun {
namespace {

constexpr size_t kMapBytes = 6000000;  // a multiple of three, so that no padding stands at the end
constexpr int kRounds = 41;
constexpr double kMostOfPeer = 1.0;

Bytes MakeMap() {
  std::mt19937 random(1);
  Bytes map(kMapBytes);
  for (uint8_t& byte : map) byte = static_cast<uint8_t>(random());
  return map;
}

// OpenSSL writes into bytes that are there already; what is measured here makes the memory for its text as well.
std::string OpenSslBuffer() { return std::string(Cod_Base64::EncodedLength(kMapBytes) + 1, '\0'); }

void EncodeByOpenSsl(const Bytes& map, std::string& buffer) {
  EVP_EncodeBlock(reinterpret_cast<unsigned char*>(buffer.data()), map.data(), static_cast<int>(map.size()));
}

std::string OwnText(const Bytes& map) {
  std::string text;
  Cod_Base64::Append(text, map);
  return text;
}

bool Report(const char* what, double ms, double peer) {
  const double ratio = ms / peer;
  const bool passed = ratio <= kMostOfPeer;
  std::printf("  %-26s %8.3f ms  %6.0f MB/s  %5.2f of OpenSSL's time   at most %.1f   %s\n", what, ms,
              kMapBytes / ms / 1e3, ratio, kMostOfPeer, passed ? "PASS" : "FAIL");
  return passed;
}

bool Run() {
  const Bytes map = MakeMap();
  std::string buffer = OpenSslBuffer();
  EncodeByOpenSsl(map, buffer);
  const std::string expected = buffer.substr(0, Cod_Base64::EncodedLength(kMapBytes));
  if (OwnText(map) != expected) {
    std::printf("the texts differ   FAIL\n");
    return false;
  }
  ClsHTTP http;
  http.AddParameter("map", DecodeText(AsChars(map)), true, "application/zip");
  std::vector<double> peer;
  std::vector<double> text;
  std::vector<double> in_place;
  std::vector<double> body;
  // In turns, so that what else the machine does falls on all alike.
  for (int round = 0; round < kRounds; ++round) {
    peer.push_back(Milliseconds([&] { EncodeByOpenSsl(map, buffer); }));
    text.push_back(Milliseconds([&] { static_cast<void>(OwnText(map)); }));
    Bytes copy = map;
    in_place.push_back(Milliseconds([&] { Cod_Base64::Encode(copy); }));
    body.push_back(Milliseconds([&] { static_cast<void>(http.Body()); }));
  }
  if (http.Body().find(expected) == std::string::npos) {
    std::printf("the body does not hold the text   FAIL\n");
    return false;
  }
  const double openssl = Median(peer);
  std::printf("a map of 6 MB (OpenSSL %.3f ms, %.0f MB/s)\n", openssl, kMapBytes / openssl / 1e3);
  const bool text_passed = Report("as a text", Median(text), openssl);
  const bool in_place_passed = Report("in the bytes' place", Median(in_place), openssl);
  const bool body_passed = Report("as a part of a body", Median(body), openssl);
  return text_passed && in_place_passed && body_passed;
}

}  // namespace
}  // namespace kestrun

int main() { return kestrun::Run() ? EXIT_SUCCESS : EXIT_FAILURE; }
