// Any bytes as a server's answer: "Name: value" lines up to an empty one, then the body. What is waited for and what
// comes in the background are judged alike, however large the pieces are.
#include <cstddef>
#include <cstdint>
#include <cstdlib>
#include <optional>

#include "base/bytes.h"
#include "base/runtime_error.h"
#include "base/text.h"
#include "desktop/headless/headless_platform.h"
#include "formats/http/http_syntax.h"
#include "fuzz_files.h"
#include "web/background_request.h"
#include "web/web_request.h"

namespace {

using kestrun::HttpResponse;

constexpr const char* kUrl = "http://site.example/";

class Keeper final : public kestrun::HttpReceiver {
 public:
  bool TakeHead(int status, const kestrun::HttpHeaders& headers) override {
    response = {status, headers, {}};
    return true;
  }
  bool TakePiece(kestrun::ByteView piece) override {
    response.body.insert(response.body.end(), piece.begin(), piece.end());
    return true;
  }
  HttpResponse response;
};

// The first byte chooses the status and the size of the pieces.
HttpResponse AnswerFrom(uint8_t choice, std::string_view text) {
  constexpr int kStatuses[]{200, 302, 404, 204, 307, 301, 500, 206};
  HttpResponse answer{kStatuses[choice % 8], {}, {}};
  while (!text.empty()) {
    const size_t end = std::min(text.find('\n'), text.size());
    const std::string_view line = text.substr(0, end);
    text.remove_prefix(std::min(end + 1, text.size()));
    if (line.empty()) break;
    if (std::optional<kestrun::HttpHeader> header = kestrun::ParseHeaderLine(line)) answer.headers.push_back(*header);
  }
  const kestrun::ByteView body = kestrun::AsBytes(text);
  answer.body.assign(body.begin(), body.end());
  return answer;
}

std::optional<HttpResponse> InBackground() {
  Keeper keeper;
  const bool worked = kestrun::Attempt([&] {
    kestrun::BackgroundRequest request({"GET", kUrl, {}, {}}, keeper);
    while (request.Advance()) continue;
  });
  if (!worked) return std::nullopt;
  return keeper.response;
}

}  // namespace

extern "C" int LLVMFuzzerTestOneInput(const uint8_t* data, size_t size) {
  if (size == 0) return 0;
  kestrun::MemoryFiles files;
  kestrun::HeadlessPlatform platform(files);
  const kestrun::PlatformInstallation installation(platform);
  const std::string_view text(reinterpret_cast<const char*>(data + 1), size - 1);
  platform.internet().piece_bytes = size_t{data[0]} / 8 + 1;
  platform.internet().Answer(kUrl, AnswerFrom(data[0], text));
  const std::optional<HttpResponse> waited = kestrun::SendRequest({"GET", kUrl, {}, {}});
  const std::optional<HttpResponse> background = InBackground();
  if (waited.has_value() != background.has_value()) std::abort();
  if (!waited) return 0;
  if (waited->body != background->body || waited->body.size() > size) std::abort();
  static_cast<void>(kestrun::ResponseText(*waited));
  return 0;
}
