// One HTTP request at a time, with named parameters as a multipart body in the form that the upload service reads
// (docs/web.md). A request holds up its caller until it ends. Every failure is an empty string and shows nothing.
#pragma once

#include <functional>
#include <optional>
#include <string>
#include <string_view>
#include <utility>
#include <vector>

#include "base/object.h"
#include "platform/http.h"

namespace kestrun {

class ClsHTTP final : public TableObject {
 public:
  // Appends a parameter: a field name, its value, whether the value is sent in base64, and the content type of its
  // part. The value crosses to the wire in the code page. Parameters stay from request to request.
  void AddParameter(std::string_view name, std::string_view value, bool encode, std::string_view content_type);
  // The same for the bytes of a file, which go to the wire as they are, in base64.
  void AddFile(std::string_view name, ByteView bytes, std::string_view content_type);
  void ClearParameters() { parameters_.clear(); }

  // What stands behind the first "; filename=" of the response's Content-Disposition, quotes included.
  [[nodiscard]] std::string GetURLFileName(const std::string& url, const std::string& method);
  // The value of one response header, found in any case. The body is left unread: what it is about may be a large map.
  [[nodiscard]] std::string GetURLHeader(const std::string& url, const std::string& header, const std::string& method);
  // The response's body as text, whatever its status: the page of a 404 is a result like any other.
  [[nodiscard]] std::string DownloadURl(const std::string& url, const std::string& method);

  // The text's code page bytes in base64.
  [[nodiscard]] std::string EncodeBase64(const std::string& text);

  // Lets the message loop run once at the start of a response and at each piece of data. Off at first, and then the
  // window waits with the request.
  void RunEventsWhileWaiting(bool run) { runs_events_ = run; }

  // Requests no longer hold up the windows: the message loop runs while they wait. `goes_on` is asked again and again;
  // false leaves the request as a failure.
  void StayUsable(std::function<bool()> goes_on) { goes_on_ = std::move(goes_on); }

  // The body of the next request, as bytes; empty without parameters.
  [[nodiscard]] std::string Body() const;

  [[nodiscard]] std::string TypeName() const override { return "ClsHTTP"; }
  [[nodiscard]] const MemberTable& Members() const override;

 private:
  // All but the encode flag as code page bytes, ready for the wire.
  struct Parameter {
    std::string name;
    std::string value;
    bool encode;
    std::string content_type;
    size_t characters;  // of the value
  };

  [[nodiscard]] static std::string PartHead(const Parameter& parameter);
  [[nodiscard]] static size_t PartBytes(const Parameter& parameter);
  // Whether the body of an answer is wanted as well.
  enum class Wanted { kHead, kAnswer };
  [[nodiscard]] std::optional<HttpResponse> Send(const std::string& url, const std::string& method,
                                                 Wanted wanted) const;

  std::vector<Parameter> parameters_;
  bool runs_events_ = false;
  std::function<bool()> goes_on_;
};

}  // namespace kestrun
