#include "web/cls_http.h"

#include <utility>

#include "base/code_page.h"
#include "base/member_rows.h"
#include "base/text.h"
#include "platform/platform.h"
#include "web/cod_base64.h"
#include "web/usable_request.h"
#include "web/web_request.h"

namespace kestrun {
namespace {

// The delimiter of RFC 2046 would be closed once, at the body's end. The service reads parts that are each closed.
constexpr std::string_view kContentType = "multipart/form-data; boundary=Xu02=$";
constexpr std::string_view kOpening = "--Xu02=$\r\n";
constexpr std::string_view kClosing = "\r\n--Xu02=$--\r\n";
constexpr std::string_view kFileNameMark = "; filename=";

// How many characters the bytes are: as many as bytes, but for pages that have characters of two bytes.
size_t CountCharacters(std::string_view utf8, std::string_view bytes) {
  const size_t count = CodePointCount(utf8);
  return count == bytes.size() ? count : CodePointCount(DecodeText(bytes));
}

}  // namespace

void ClsHTTP::AddParameter(std::string_view name, std::string_view value, bool encode, std::string_view content_type) {
  std::string bytes = EncodeText(value);
  const size_t characters = CountCharacters(value, bytes);
  parameters_.push_back({EncodeText(name), std::move(bytes), encode, EncodeText(content_type), characters});
}

void ClsHTTP::AddFile(std::string_view name, ByteView bytes, std::string_view content_type) {
  parameters_.push_back({EncodeText(name), std::string(AsChars(bytes)), true, EncodeText(content_type), bytes.size()});
}

std::string ClsHTTP::PartHead(const Parameter& parameter) {
  const size_t length = parameter.encode ? Cod_Base64::EncodedLength(parameter.value.size()) : parameter.characters;
  return std::string(kOpening) + "Content-Disposition: form-data; name=\"" + parameter.name +
         "\"\r\n"
         "Content-type: " +
         parameter.content_type +
         "\r\n"
         "Content-Length: " +
         std::to_string(length) + "\r\n\r\n";
}

size_t ClsHTTP::PartBytes(const Parameter& parameter) {
  const size_t value = parameter.value.size();
  return PartHead(parameter).size() + (parameter.encode ? Cod_Base64::EncodedLength(value) : value) + kClosing.size();
}

std::string ClsHTTP::Body() const {
  size_t bytes = 0;
  for (const Parameter& parameter : parameters_) bytes += PartBytes(parameter);
  // All of it at once, so that a large value is never in memory more than twice: here and as the parameter.
  std::string body;
  body.reserve(bytes);
  for (const Parameter& parameter : parameters_) {
    body += PartHead(parameter);
    if (parameter.encode) {
      Cod_Base64::Append(body, AsBytes(parameter.value));
    } else {
      body += parameter.value;
    }
    body += kClosing;
  }
  return body;
}

std::optional<HttpResponse> ClsHTTP::Send(const std::string& url, const std::string& method, Wanted wanted) const {
  const std::string body = Body();
  HttpRequest request{method, url, {}, AsBytes(body)};
  if (!parameters_.empty()) request.headers.push_back({"Content-Type", std::string(kContentType)});
  if (goes_on_ && wanted == Wanted::kAnswer) return SendWhileUsable(request, goes_on_);
  std::function<void()> on_event;
  if (runs_events_) on_event = [] { RunPendingEvents(); };
  return wanted == Wanted::kHead ? SendRequestForHead(request, on_event) : SendRequest(request, on_event);
}

std::string ClsHTTP::GetURLHeader(const std::string& url, const std::string& header, const std::string& method) {
  const std::optional<HttpResponse> response = Send(url, method, Wanted::kHead);
  return response ? response->Header(header).value_or("") : std::string();
}

std::string ClsHTTP::DownloadURl(const std::string& url, const std::string& method) {
  const std::optional<HttpResponse> response = Send(url, method, Wanted::kAnswer);
  return response ? ResponseText(*response) : std::string();
}

std::string ClsHTTP::GetURLFileName(const std::string& url, const std::string& method) {
  const std::string disposition = GetURLHeader(url, "Content-Disposition", method);
  const size_t mark = disposition.find(kFileNameMark);
  return mark == std::string::npos ? std::string() : disposition.substr(mark + kFileNameMark.size());
}

std::string ClsHTTP::EncodeBase64(const std::string& text) {
  const std::string bytes = EncodeText(text);
  std::string encoded;
  Cod_Base64::Append(encoded, AsBytes(bytes));
  return encoded;
}

const MemberTable& ClsHTTP::Members() const {
  static constexpr Member kRows[]{
      MethodRow<&ClsHTTP::AddParameter>("AddParameter"),     MethodRow<&ClsHTTP::ClearParameters>("ClearParameters"),
      MethodRow<&ClsHTTP::GetURLFileName>("GetURLFileName"), MethodRow<&ClsHTTP::GetURLHeader>("GetURLHeader"),
      MethodRow<&ClsHTTP::DownloadURl>("DownloadURl"),       MethodRow<&ClsHTTP::EncodeBase64>("EncodeBase64"),
  };
  static constexpr MemberTable kTable{nullptr, kRows};
  return kTable;
}

}  // namespace kestrun
