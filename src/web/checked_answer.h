// One answer on its way to a receiver, by the rules that hold for all of them: the bodies of redirects are kept back, a
// body is held to the length that its head tells, and one that is packed is refused.
#pragma once

#include <cstdint>
#include <optional>
#include <string>

#include "platform/http.h"

namespace kestrun {

// Raises error 440 for a request that cannot be sent: a method, a header or an address with what does not belong there,
// an address that is not of http or https.
void CheckRequest(const HttpRequest& request);

class CheckedAnswer : public HttpReceiver {
 public:
  // Both have to live as long as this object.
  CheckedAnswer(const HttpRequest& request, HttpReceiver& receiver) : request_(request), receiver_(receiver) {}

  bool TakeHead(int status, const HttpHeaders& headers) override;
  bool TakePiece(ByteView piece) override;

  // Status and headers when the exchange has ended. Raises error 440 when the body is shorter than its length.
  [[nodiscard]] HttpResponse TakeResult();

  [[nodiscard]] const std::string& Url() const { return request_.url; }
  [[nodiscard]] uint64_t ReceivedBytes() const { return received_bytes_; }
  // Nothing until the server has told it, and where it never does.
  [[nodiscard]] std::optional<uint64_t> TotalBytes() const { return total_bytes_; }

 protected:
  // Runs when the head has told how much there is.
  virtual void Show() {}

 private:
  bool Leave();

  const HttpRequest& request_;
  HttpReceiver& receiver_;
  HttpResponse head_;
  uint64_t received_bytes_ = 0;
  std::optional<uint64_t> total_bytes_;
  bool has_left_ = false;
};

}  // namespace kestrun
