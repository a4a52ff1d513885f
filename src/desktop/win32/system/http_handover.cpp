#include "desktop/win32/system/http_handover.h"

#include <chrono>
#include <utility>

#include "base/runtime_error.h"
#include "desktop/win32/system/waiting.h"

namespace kestrun {
namespace {

constexpr size_t kMostWaitingBytes = size_t{1} << 20;
constexpr int kTellEveryMs = 100;

}  // namespace

void HttpHandover::Put(Item item) {
  const std::lock_guard lock(mutex_);
  waiting_bytes_ += item.piece.size();
  items_.push_back(std::move(item));
  changed_.notify_all();
}

void HttpHandover::PutHead(int status, HttpHeaders headers) {
  Item item;
  item.status = status;
  item.headers = std::move(headers);
  Put(std::move(item));
}

void HttpHandover::PutPiece(Bytes piece) {
  Item item;
  item.piece = std::move(piece);
  Put(std::move(item));
}

void HttpHandover::End(std::optional<std::string> failure) {
  Item item;
  item.is_end = true;
  item.failure = std::move(failure);
  Put(std::move(item));
}

bool HttpHandover::HasRoom() {
  const std::lock_guard lock(mutex_);
  return waiting_bytes_ < kMostWaitingBytes;
}

std::optional<HttpHandover::Item> HttpHandover::Take(int wait_ms) {
  std::unique_lock lock(mutex_);
  changed_.wait_for(lock, std::chrono::milliseconds(wait_ms), [this] { return !items_.empty(); });
  if (items_.empty()) return std::nullopt;
  Item item = std::move(items_.front());
  items_.pop_front();
  waiting_bytes_ -= item.piece.size();
  return item;
}

bool HandOn(HttpHandover::Item item, HttpReceiver& receiver) {
  if (item.failure) Raise(error::kAutomationError, *item.failure);
  if (item.is_end) return false;
  if (item.status != 0) return receiver.TakeHead(item.status, item.headers);
  return receiver.TakePiece(item.piece);
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
