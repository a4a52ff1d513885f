#ifndef _WIN32

#include <algorithm>
#include <array>

#include "base/code_page.h"
#include "base/runtime_error.h"
#include "base/text.h"
#include "desktop/headless/socket_http.h"
#include "formats/http/http_syntax.h"

namespace kestrun {
namespace {

constexpr size_t kMostHeadBytes = size_t{64} << 10;
constexpr size_t kMostLineBytes = size_t{16} << 10;

[[noreturn]] void Refuse(const char* why) { Raise(error::kAutomationError, why); }

// The stream with what has been received and not yet taken.
class Stream {
 public:
  explicit Stream(const ReceiveBytes& receive) : receive_(receive) {}

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

  // The next bytes, at most so many, valid until the next call; none at the end of the stream.
  ByteView Piece(uint64_t most) {
    if (waiting_.empty()) Fill();
    const std::string_view piece = waiting_.substr(0, static_cast<size_t>(std::min<uint64_t>(most, waiting_.size())));
    waiting_.remove_prefix(piece.size());
    return AsBytes(piece);
  }

 private:
  bool Fill() {
    waiting_ = {buffer_.data(), receive_(buffer_)};
    return !waiting_.empty();
  }

  const ReceiveBytes& receive_;
  std::array<char, 16384> buffer_;
  std::string_view waiting_;
};

// These hand bytes on and give whether the receiver goes on. So many bytes, which have to be there:
bool HandOn(Stream& stream, uint64_t count, HttpReceiver& receiver) {
  while (count > 0) {
    const ByteView piece = stream.Piece(count);
    if (piece.empty()) Refuse("The answer is cut off.");
    if (!receiver.TakePiece(piece)) return false;
    count -= piece.size();
  }
  return true;
}

// All up to the end of the stream:
void HandOnRest(Stream& stream, HttpReceiver& receiver) {
  for (ByteView piece = stream.Piece(UINT64_MAX); !piece.empty(); piece = stream.Piece(UINT64_MAX)) {
    if (!receiver.TakePiece(piece)) return;
  }
}

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
HttpHeaders ReadHeaders(Stream& stream) {
  HttpHeaders headers;
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

void ReadChunks(Stream& stream, HttpReceiver& receiver) {
  for (uint64_t size = ParseChunkSize(stream.Line()); size > 0; size = ParseChunkSize(stream.Line())) {
    if (!HandOn(stream, size, receiver)) return;
    if (!stream.Line().empty()) Refuse("A chunk of the answer is longer than its size.");
  }
  ReadHeaders(stream);
}

// RFC 9112, 6.3.
void ReadBody(Stream& stream, const HttpHeaders& headers, HttpReceiver& receiver) {
  if (const std::optional<std::string> coding = FindHeader(headers, "Transfer-Encoding")) {
    if (!EqualsNoCase(*coding, "chunked")) Refuse("The answer is coded in an unknown way.");
    return ReadChunks(stream, receiver);
  }
  const std::optional<std::string> told = FindHeader(headers, "Content-Length");
  if (!told) return HandOnRest(stream, receiver);
  const std::optional<uint64_t> length = ParseLength(*told);
  if (!length) Refuse("The answer's length is no number.");
  static_cast<void>(HandOn(stream, *length, receiver));
}

}  // namespace

void ReadHttpAnswer(const std::string& method, const ReceiveBytes& receive, HttpReceiver& receiver) {
  Stream stream(receive);
  int status = 0;
  HttpHeaders headers;
  // Interim answers go before the real one.
  constexpr int kMostInterim = 10;
  for (int interim = 0; status < 200; ++interim) {
    if (interim > kMostInterim) Refuse("The answer never begins.");
    status = ParseStatusLine(stream.Line());
    headers = ReadHeaders(stream);
  }
  if (receiver.TakeHead(status, headers) && !HasNoBody(method, status)) ReadBody(stream, headers, receiver);
}

}  // namespace kestrun

#endif  // _WIN32
