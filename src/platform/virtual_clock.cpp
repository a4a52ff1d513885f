#include "platform/virtual_clock.h"

#include <algorithm>
#include <utility>

namespace kestrun {
namespace {

constexpr double kMsPerDay = 24.0 * 60 * 60 * 1000;

}  // namespace

double VirtualClock::LocalDateTime() { return date_at_zero_ + static_cast<double>(now_ms_) / kMsPerDay; }

void VirtualClock::SetLocalDateTime(double days) { date_at_zero_ = days - static_cast<double>(now_ms_) / kMsPerDay; }

void VirtualClock::MoveTo(uint64_t moment_ms) { now_ms_ = std::max(now_ms_, moment_ms); }

void VirtualClock::Clear() {
  timers_.clear();
  // What a task holds may post another one as it goes.
  while (!tasks_.empty()) const auto dropped = std::exchange(tasks_, {});
}

void VirtualClock::SleepMs(uint32_t milliseconds) {
  // A tick that sleeps itself may have moved the time further than this sleep asked for.
  const uint64_t end_ms = now_ms_ + milliseconds;
  FireTimersUntil(end_ms, Reentry::kSkipped);
  MoveTo(end_ms);
}

void VirtualClock::RunPendingEvents() {
  RunTasks();
  FireTimersUntil(now_ms_, Reentry::kAllowed);
}

TimerId VirtualClock::StartTimer(uint32_t interval_ms, std::function<void()> tick) {
  const uint32_t interval = std::max(interval_ms, 1U);
  timers_.emplace(++last_timer_, Timer{interval, now_ms_ + interval, ++last_order_, 0, std::move(tick)});
  return last_timer_;
}

void VirtualClock::StopTimer(TimerId timer) { timers_.erase(timer); }

void VirtualClock::Post(std::function<void()> task) { tasks_.push_back(std::move(task)); }

void VirtualClock::AdvanceMs(uint64_t milliseconds) {
  const uint64_t end_ms = now_ms_ + milliseconds;
  RunPendingEvents();
  while (const auto next_ms = NextDueMs()) {
    if (*next_ms > end_ms) break;
    MoveTo(*next_ms);
    RunPendingEvents();
  }
  MoveTo(end_ms);
  RunTasks();
}

std::optional<uint64_t> VirtualClock::NextDueMs() const {
  std::optional<uint64_t> next_ms;
  for (const auto& [id, timer] : timers_) next_ms = std::min(next_ms.value_or(timer.due_ms), timer.due_ms);
  return next_ms;
}

std::optional<TimerId> VirtualClock::NextTimer(uint64_t end_ms, Reentry reentry) const {
  std::optional<TimerId> next;
  std::pair<uint64_t, uint64_t> next_key;
  for (const auto& [id, timer] : timers_) {
    const std::pair key{timer.due_ms, timer.order};
    if (timer.due_ms > end_ms || (timer.running > 0 && reentry == Reentry::kSkipped)) continue;
    if (next && next_key < key) continue;
    next = id;
    next_key = key;
  }
  return next;
}

void VirtualClock::FireTimersUntil(uint64_t end_ms, Reentry reentry) {
  while (const auto next = NextTimer(end_ms, reentry)) Fire(*next);
}

void VirtualClock::Fire(TimerId id) {
  Timer& timer = timers_.at(id);
  MoveTo(timer.due_ms);
  timer.due_ms = now_ms_ + timer.interval_ms;
  timer.order = ++last_order_;
  ++timer.running;
  // The tick may stop its own timer, and with it the function that runs.
  const std::function<void()> tick = timer.tick;
  const auto finish = [this, id] {
    if (const auto still_there = timers_.find(id); still_there != timers_.end()) --still_there->second.running;
  };
  try {
    tick();
  } catch (...) {
    finish();
    throw;
  }
  finish();
}

void VirtualClock::RunTasks() {
  // Tasks that are posted meanwhile wait for the next pass.
  for (size_t left = tasks_.size(); left > 0 && !tasks_.empty(); --left) {
    const std::function<void()> task = std::move(tasks_.front());
    tasks_.pop_front();
    task();
  }
}

}  // namespace kestrun
