#include "desktop/win32/system/http_handover.h"

#include <chrono>
#include <memory>
#include <thread>
#include <utility>

#include "base/runtime_error.h"
#include "desktop/win32/system/waiting.h"

namespace kestrun {
namespace {

constexpr size_t kMostWaitingBytes = size_t{1} << 20;
constexpr int kTellEveryMs = 100;

void RunOnThread(const std::function<void(HttpHandover& handover)>& exchange, HttpHandover& handover) {
  try {
    exchange(handover);
    handover.End(std::nullopt);
  } catch (const std::exception&) {
    handover.End(CurrentError().description());
  }
}

// Gives whether there is more to come.
bool HandOn(HttpHandover::Item item, HttpReceiver& receiver) {
  if (item.failure) Raise(error::kAutomationError, *item.failure);
  if (item.is_end) return false;
  if (item.status != 0) return receiver.TakeHead(item.status, item.headers);
  return receiver.TakePiece(item.piece);
}

// Hands on what the thread has put.
class ThreadExchange final : public HttpExchange {
 public:
  explicit ThreadExchange(std::shared_ptr<HttpHandover> handover) : handover_(std::move(handover)) {}
  ~ThreadExchange() override { handover_->Leave(); }
  ThreadExchange(const ThreadExchange&) = delete;
  ThreadExchange& operator=(const ThreadExchange&) = delete;

  bool Advance(HttpReceiver& receiver, int wait_ms) override {
    for (int taken = 0; taken < kMostItems; ++taken) {
      std::optional<HttpHandover::Item> item = handover_->Take(taken == 0 ? wait_ms : 0);
      if (!item) return true;
      if (!HandOn(std::move(*item), receiver)) return false;
    }
    return true;
  }

 private:
  // A server that is quicker than the disk must not hold up the windows.
  static constexpr int kMostItems = 64;

  std::shared_ptr<HttpHandover> handover_;
};

}  // namespace

bool HttpHandover::Put(Item item) {
  std::unique_lock lock(mutex_);
  changed_.wait(lock, [this] { return is_left_ || waiting_bytes_ < kMostWaitingBytes; });
  if (is_left_) return false;
  waiting_bytes_ += item.piece.size();
  items_.push_back(std::move(item));
  changed_.notify_all();
  return true;
}

bool HttpHandover::PutHead(int status, HttpHeaders headers) {
  Item item;
  item.status = status;
  item.headers = std::move(headers);
  return Put(std::move(item));
}

bool HttpHandover::PutPiece(Bytes piece) {
  Item item;
  item.piece = std::move(piece);
  return Put(std::move(item));
}

void HttpHandover::End(std::optional<std::string> failure) {
  Item item;
  item.is_end = true;
  item.failure = std::move(failure);
  static_cast<void>(Put(std::move(item)));
}

std::optional<HttpHandover::Item> HttpHandover::Take(int wait_ms) {
  std::unique_lock lock(mutex_);
  changed_.wait_for(lock, std::chrono::milliseconds(wait_ms), [this] { return !items_.empty(); });
  if (items_.empty()) return std::nullopt;
  Item item = std::move(items_.front());
  items_.pop_front();
  waiting_bytes_ -= item.piece.size();
  changed_.notify_all();
  return item;
}

void HttpHandover::Leave() {
  const std::lock_guard lock(mutex_);
  is_left_ = true;
  changed_.notify_all();
}

std::unique_ptr<HttpExchange> StartOnThread(std::function<void(HttpHandover& handover)> exchange) {
  const auto handover = std::make_shared<HttpHandover>();
  std::thread([handover, exchange = std::move(exchange)] { RunOnThread(exchange, *handover); }).detach();
  return std::make_unique<ThreadExchange>(handover);
}

void WaitForAnswer(HttpExchange& exchange, HttpReceiver& receiver) {
  using Clock = std::chrono::steady_clock;
  Waiting waiting;
  Clock::time_point next = Clock::now();
  do {
    if (Clock::now() < next) continue;
    receiver.StillWaiting(waiting.PaintAndListen());
    next = Clock::now() + std::chrono::milliseconds(kTellEveryMs);
  } while (exchange.Advance(receiver, kTellEveryMs / 2));
}

}  // namespace kestrun
