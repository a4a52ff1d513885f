// Time for windows that nobody sees: it goes on only as far as it is turned, so that no wait takes any.
#pragma once

#include <deque>
#include <functional>
#include <map>
#include <utility>

#include "platform/clock.h"

namespace kestrun {

class UnseenClock final : public Clock {
 public:
  // Begins at the time of the other one.
  explicit UnseenClock(Clock& start) : now_ms_(start.NowMs()), date_(start.LocalDateTime()) {}

  [[nodiscard]] uint64_t NowMs() override { return now_ms_; }
  [[nodiscard]] double LocalDateTime() override { return date_; }
  void SleepMs(uint32_t milliseconds) override { now_ms_ += milliseconds; }
  void RunPendingEvents() override;
  [[nodiscard]] TimerId StartTimer(uint32_t interval_ms, std::function<void()> tick) override;
  void StopTimer(TimerId timer) override { timers_.erase(timer); }
  void Post(std::function<void()> task) override { tasks_.push_back(std::move(task)); }

  // Lets the message loop run for so long, in steps of ten milliseconds.
  void Advance(uint32_t milliseconds);
  // Forgets all timers and tasks.
  void Clear();

 private:
  struct Timer {
    uint32_t interval_ms;
    uint64_t due_ms;
    std::function<void()> tick;
  };

  void RunTasks();
  void RunTimers();

  uint64_t now_ms_;
  double date_;
  TimerId last_timer_ = 0;
  std::map<TimerId, Timer> timers_;
  std::deque<std::function<void()>> tasks_;
};

}  // namespace kestrun
