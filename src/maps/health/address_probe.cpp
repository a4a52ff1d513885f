#include "maps/health/address_probe.h"

#include <algorithm>

#include "base/runtime_error.h"
#include "platform/platform.h"
#include "web/background_request.h"
#include "web/redirect.h"

namespace kestrun {
namespace {

constexpr uint64_t kMostWaitMs = 20'000;

bool IsSuccess(int status) { return status >= 200 && status <= 299; }

}  // namespace

// Keeps the first bytes of the answer and leaves the rest.
class AddressProbe::Receiver final : public HttpReceiver {
 public:
  bool TakeHead(int status, const HttpHeaders&) override {
    status_ = status;
    head_.clear();
    return IsSuccess(status);
  }
  bool TakePiece(ByteView piece) override {
    const size_t wanted = std::min(piece.size(), kMapHeadBytes - head_.size());
    head_.insert(head_.end(), piece.begin(), piece.begin() + static_cast<ptrdiff_t>(wanted));
    return head_.size() < kMapHeadBytes;
  }

  [[nodiscard]] int status() const { return status_; }
  [[nodiscard]] const Bytes& head() const { return head_; }

 private:
  int status_ = 0;
  Bytes head_;
};

AddressProbe::AddressProbe(const std::string& url)
    : began_ms_(platform().clock().NowMs()), receiver_(std::make_unique<Receiver>()) {
  facts_.state = MapFacts::State::kNotAsked;
  if (!IsHttpUrl(url)) return;
  Attempt(
      [&] {
        request_ = std::make_unique<BackgroundRequest>(HttpRequest{"GET", url, {}, {}}, *receiver_);
      },
      [this](const RuntimeError& failure) { Fail(failure.description()); });
}

AddressProbe::~AddressProbe() = default;

bool AddressProbe::HasServerSpoken() const { return receiver_->status() != 0; }

void AddressProbe::Fail(const std::string& why) {
  facts_.state = MapFacts::State::kNoAnswer;
  facts_.failure = why;
  request_.reset();
}

bool AddressProbe::Advance() {
  if (!request_) return false;
  bool is_more = false;
  Attempt([&] { is_more = request_->Advance(); }, [this](const RuntimeError& failure) { Fail(failure.description()); });
  if (!request_) return false;
  if (!is_more) {
    TakeEnd();
  } else if (platform().clock().NowMs() - began_ms_ >= kMostWaitMs) {
    Fail("nothing has come after 20 seconds.");
  }
  return request_ != nullptr;
}

void AddressProbe::TakeEnd() {
  if (!IsSuccess(receiver_->status())) return Fail("the server says " + std::to_string(receiver_->status()) + ".");
  facts_.state = MapFacts::State::kThere;
  facts_.bytes = std::max<uint64_t>(receiver_->head().size(), request_->TotalBytes().value_or(0));
  ReadMapHead(receiver_->head(), facts_);
  request_.reset();
}

}  // namespace kestrun
