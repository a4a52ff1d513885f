// Any bytes as a server's answer. The first byte says how large the pieces are in which they arrive; the answer does
// not depend on it.
#include <algorithm>
#include <cstddef>
#include <cstdint>
#include <cstdlib>
#include <optional>

#include "base/runtime_error.h"
#include "desktop/headless/socket_http.h"
#include "web/web_request.h"

namespace {

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
  kestrun::HttpResponse response;
};

std::optional<kestrun::HttpResponse> Read(kestrun::ByteView input, size_t most) {
  const auto receive = [&input, most](std::span<char> buffer) {
    const size_t count = std::min({buffer.size(), most, input.size()});
    std::copy_n(input.begin(), count, buffer.begin());
    input = input.subspan(count);
    return count;
  };
  Keeper keeper;
  if (!kestrun::Attempt([&] { kestrun::ReadHttpAnswer("GET", receive, keeper); })) return std::nullopt;
  return keeper.response;
}

}  // namespace

extern "C" int LLVMFuzzerTestOneInput(const uint8_t* data, size_t size) {
  if (size == 0) return 0;
  const kestrun::ByteView input(data + 1, size - 1);
  const std::optional<kestrun::HttpResponse> whole = Read(input, size);
  const std::optional<kestrun::HttpResponse> pieces = Read(input, size_t{data[0]} + 1);
  if (whole.has_value() != pieces.has_value()) std::abort();
  if (!whole) return 0;
  if (whole->body != pieces->body || whole->headers != pieces->headers || whole->body.size() > size) std::abort();
  static_cast<void>(kestrun::ResponseText(*whole));
  return 0;
}
