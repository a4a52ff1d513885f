#include "styles/check/unseen_clock.h"

#include <algorithm>
#include <vector>

namespace kestrun {
namespace {

constexpr uint32_t kStepMs = 10;

}  // namespace

TimerId UnseenClock::StartTimer(uint32_t interval_ms, std::function<void()> tick) {
  const uint32_t interval = std::max(interval_ms, 1U);
  timers_.emplace(++last_timer_, Timer{interval, now_ms_ + interval, std::move(tick)});
  return last_timer_;
}

void UnseenClock::RunPendingEvents() {
  RunTasks();
  RunTimers();
}

// Tasks that are posted meanwhile wait for the next pass.
void UnseenClock::RunTasks() {
  for (size_t left = tasks_.size(); left > 0 && !tasks_.empty(); --left) {
    const std::function<void()> task = std::move(tasks_.front());
    tasks_.pop_front();
    task();
  }
}

// Each timer that is due fires once; a tick may stop timers and start others.
void UnseenClock::RunTimers() {
  std::vector<TimerId> due;
  for (const auto& [id, timer] : timers_) {
    if (timer.due_ms <= now_ms_) due.push_back(id);
  }
  for (const TimerId id : due) {
    const auto found = timers_.find(id);
    if (found == timers_.end()) continue;
    found->second.due_ms = now_ms_ + found->second.interval_ms;
    const std::function<void()> tick = found->second.tick;
    tick();
  }
}

void UnseenClock::Advance(uint32_t milliseconds) {
  RunPendingEvents();
  for (uint32_t passed = 0; passed < milliseconds; passed += kStepMs) {
    now_ms_ += kStepMs;
    RunPendingEvents();
  }
}

// What a task holds may post another one as it goes.
void UnseenClock::Clear() {
  timers_.clear();
  while (!tasks_.empty()) const auto dropped = std::exchange(tasks_, {});
}

}  // namespace kestrun
