#include "web/checked_answer.h"

#include "base/runtime_error.h"
#include "base/text.h"
#include "formats/http/http_syntax.h"
#include "web/redirect.h"

namespace kestrun {
namespace {

// How many bytes the body has by its head; nothing where the head does not say, or says it in another way.
std::optional<uint64_t> ToldLength(const std::string& method, int status, const HttpHeaders& headers) {
  if (HasNoBody(method, status) || FindHeader(headers, "Transfer-Encoding")) return std::nullopt;
  const std::optional<std::string> told = FindHeader(headers, "Content-Length");
  if (!told) return std::nullopt;
  const std::optional<uint64_t> length = ParseLength(*told);
  if (!length) RefuseExchange("The answer's length is no number.");
  return length;
}

// No request asks for a packed body, and what is in it would be taken for the file.
bool IsPacked(const HttpHeaders& headers) {
  const std::string coding = FindHeader(headers, "Content-Encoding").value_or("");
  return !coding.empty() && !EqualsNoCase(coding, "identity");
}

// Libraries differ on "http:///path": some take the path for the server.
bool NamesServer(std::string_view url) {
  const size_t host = url.find("//") + 2;
  return url.find_first_of("/?#", host) != host && host < url.size();
}

}  // namespace

void CheckRequest(const HttpRequest& request) {
  if (!IsWellFormed(request)) RefuseExchange("The request is malformed.");
  if (!IsHttpUrl(request.url)) RefuseExchange("Only http addresses can be asked for.");
  if (!NamesServer(request.url)) RefuseExchange("The address names no server.");
}

bool CheckedAnswer::TakeHead(int status, const HttpHeaders& headers) {
  head_ = {status, headers, {}};
  if (IsRedirect(status, headers)) return Leave();
  total_bytes_ = ToldLength(request_.method, status, headers);
  Show();
  if (!receiver_.TakeHead(status, headers)) return Leave();
  // Who wants the head alone has it.
  if (IsPacked(headers)) RefuseExchange("The answer is packed, which nobody asked for.");
  return true;
}

bool CheckedAnswer::TakePiece(ByteView piece) {
  const bool is_more = total_bytes_ && piece.size() > *total_bytes_ - received_bytes_;
  if (is_more) piece = piece.first(static_cast<size_t>(*total_bytes_ - received_bytes_));
  received_bytes_ += piece.size();
  if (!piece.empty() && !receiver_.TakePiece(piece)) return Leave();
  return !is_more;
}

HttpResponse CheckedAnswer::TakeResult() {
  if (!has_left_ && total_bytes_ && received_bytes_ < *total_bytes_) RefuseExchange("The answer is cut off.");
  return std::move(head_);
}

bool CheckedAnswer::Leave() {
  has_left_ = true;
  return false;
}

}  // namespace kestrun
