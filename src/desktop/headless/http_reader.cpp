#ifndef _WIN32

#include <algorithm>
#include <array>

#include "base/code_page.h"
#include "base/runtime_error.h"
#include "base/text.h"
#include "desktop/headless/socket_http.h"

namespace kestrun {
namespace {

constexpr size_t kMostHeadBytes = size_t{64} << 10;
constexpr size_t kMostLineBytes = size_t{16} << 10;

[[noreturn]] void Refuse(const char* why) { Raise(error::kAutomationError, why); }

// The stream with what has been received and not yet taken.
class Stream {
 public:
  Stream(const ReceiveBytes& receive, const std::function<void()>& on_event) : receive_(receive), on_event_(on_event) {}

  // Tells of every piece from now on.
  void TellOfPieces() { tells_ = true; }

  // A line without its end.
  std::string Line() {
    std::string line;
    for (;;) {
      if (waiting_.empty() && !Fill()) Refuse("The answer is cut off.");
      const size_t end = waiting_.find('\n');
      line += waiting_.substr(0, end);
      if (line.size() > kMostLineBytes) Refuse("A line of the answer is too long.");
      waiting_.remove_prefix(end == std::string_view::npos ? waiting_.size() : end + 1);
      if (end == std::string_view::npos) continue;
      if (line.ends_with('\r')) line.pop_back();
      return line;
    }
  }

  // Appends so many bytes.
  void Take(uint64_t count, Bytes& body) {
    if (count > kMostResponseBytes - body.size()) Refuse("The answer is too large.");
    while (count > 0) {
      if (waiting_.empty() && !Fill()) Refuse("The answer is cut off.");
      count -= TakeWaiting(count, body);
    }
  }

  // Appends all up to the end of the stream.
  void TakeRest(Bytes& body) {
    while (!waiting_.empty() || Fill()) {
      if (waiting_.size() > kMostResponseBytes - body.size()) Refuse("The answer is too large.");
      TakeWaiting(waiting_.size(), body);
    }
  }

 private:
  bool Fill() {
    waiting_ = {buffer_.data(), receive_(buffer_)};
    if (tells_ && !waiting_.empty() && on_event_) on_event_();
    return !waiting_.empty();
  }

  size_t TakeWaiting(uint64_t most, Bytes& body) {
    const auto count = static_cast<size_t>(std::min<uint64_t>(most, waiting_.size()));
    const ByteView piece = AsBytes(waiting_.substr(0, count));
    body.insert(body.end(), piece.begin(), piece.end());
    waiting_.remove_prefix(count);
    return count;
  }

  const ReceiveBytes& receive_;
  const std::function<void()>& on_event_;
  bool tells_ = false;
  std::array<char, 16384> buffer_;
  std::string_view waiting_;
};

// "HTTP/1.1 200 OK"; the words behind the number may be missing.
int ParseStatusLine(const std::string& line) {
  constexpr size_t kNumberAt = 9;
  const bool is_http = StartsWith(line, "HTTP/1.") && line.size() >= kNumberAt + 3 && line[kNumberAt - 1] == ' ' &&
                       (line.size() == kNumberAt + 3 || line[kNumberAt + 3] == ' ');
  const std::optional<uint64_t> status =
      is_http ? ParseLength(std::string_view(line).substr(kNumberAt, 3)) : std::nullopt;
  if (!status || *status < 100) Refuse("The answer is no HTTP.");
  return static_cast<int>(*status);
}

// Header lines up to the empty one.
std::vector<HttpHeader> ReadHeaders(Stream& stream) {
  std::vector<HttpHeader> headers;
  size_t bytes = 0;
  for (std::string line = stream.Line(); !line.empty(); line = stream.Line()) {
    bytes += line.size() + kCrLf.size();
    if (bytes > kMostHeadBytes) Refuse("The answer's head is too long.");
    std::optional<HttpHeader> header = ParseHeaderLine(DecodeText(line));
    if (!header) Refuse("The answer's head is malformed.");
    headers.push_back(std::move(*header));
  }
  return headers;
}

// A chunk's size in hexadecimal digits; what stands behind ";" says nothing that matters here.
uint64_t ParseChunkSize(const std::string& line) {
  constexpr size_t kMostDigits = 15;
  const std::string_view text = TrimBlanks(std::string_view(line).substr(0, line.find(';')));
  const bool is_number = !text.empty() && text.find_first_not_of("0123456789abcdefABCDEF") == std::string_view::npos;
  if (!is_number || text.size() > kMostDigits) Refuse("A chunk of the answer has no size.");
  return std::stoull(std::string(text), nullptr, 16);
}

void ReadChunks(Stream& stream, Bytes& body) {
  for (uint64_t size = ParseChunkSize(stream.Line()); size > 0; size = ParseChunkSize(stream.Line())) {
    stream.Take(size, body);
    if (!stream.Line().empty()) Refuse("A chunk of the answer is longer than its size.");
  }
  ReadHeaders(stream);
}

// RFC 9112, 6.3.
void ReadBody(Stream& stream, HttpResponse& response) {
  if (const std::optional<std::string> coding = response.Header("Transfer-Encoding")) {
    if (!EqualsNoCase(*coding, "chunked")) Refuse("The answer is coded in an unknown way.");
    return ReadChunks(stream, response.body);
  }
  const std::optional<std::string> told = response.Header("Content-Length");
  if (!told) return stream.TakeRest(response.body);
  const std::optional<uint64_t> length = ParseLength(*told);
  if (!length) Refuse("The answer's length is no number.");
  stream.Take(*length, response.body);
}

}  // namespace

HttpResponse ReadHttpResponse(const std::string& method, const ReceiveBytes& receive,
                              const std::function<void()>& on_event) {
  Stream stream(receive, on_event);
  HttpResponse response;
  // Interim answers go before the real one.
  constexpr int kMostInterim = 10;
  for (int interim = 0; response.status < 200; ++interim) {
    if (interim > kMostInterim) Refuse("The answer never begins.");
    response.status = ParseStatusLine(stream.Line());
    response.headers = ReadHeaders(stream);
  }
  if (on_event) on_event();
  stream.TellOfPieces();
  if (!HasNoBody(method, response.status)) ReadBody(stream, response);
  return response;
}

}  // namespace kestrun

#endif  // _WIN32
