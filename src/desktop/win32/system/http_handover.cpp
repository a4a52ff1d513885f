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

// Tells the thread that asks when this one goes, however it does.
class Listener {
 public:
  explicit Listener(HttpHandover& handover) : handover_(handover) {}
  ~Listener() { handover_.Leave(); }
  Listener(const Listener&) = delete;
  Listener& operator=(const Listener&) = delete;

 private:
  HttpHandover& handover_;
};

// Gives whether there is more to come.
bool HandOn(HttpHandover::Item item, HttpReceiver& receiver) {
  if (item.failure) Raise(error::kAutomationError, *item.failure);
  if (item.is_end) return false;
  if (item.status != 0) return receiver.TakeHead(item.status, item.headers);
  return receiver.TakePiece(item.piece);
}

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

void ReceiveThroughThread(std::function<void(HttpHandover& handover)> exchange, HttpReceiver& receiver) {
  using Clock = std::chrono::steady_clock;
  const auto handover = std::make_shared<HttpHandover>();
  const Listener listener(*handover);
  Waiting waiting;
  std::thread([handover, exchange = std::move(exchange)] { RunOnThread(exchange, *handover); }).detach();
  Clock::time_point next = Clock::now();
  for (bool goes_on = true; goes_on;) {
    if (Clock::now() >= next) {
      receiver.StillWaiting(waiting.PaintAndListen());
      next = Clock::now() + std::chrono::milliseconds(kTellEveryMs);
    }
    std::optional<HttpHandover::Item> item = handover->Take(kTellEveryMs / 2);
    if (item) goes_on = HandOn(std::move(*item), receiver);
  }
}

}  // namespace kestrun
