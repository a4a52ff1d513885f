// Virtual time: it stands still until somebody sleeps or turns it, and timers fire at their exact moments. For a
// platform without a screen, and for a night that is played in advance.
#pragma once

#include <cstdint>
#include <deque>
#include <functional>
#include <map>
#include <optional>

#include "platform/clock.h"

namespace kestrun {

class VirtualClock final : public Clock {
 public:
  [[nodiscard]] uint64_t NowMs() override { return now_ms_; }
  [[nodiscard]] double LocalDateTime() override;
  // Moves the time and fires the timers that come due on the way, in order. Posted tasks wait, and so does a timer
  // whose own tick is the one that sleeps.
  void SleepMs(uint32_t milliseconds) override;
  // One pass of the message loop: the tasks posted before it, and the timers that are due. Time stands still.
  void RunPendingEvents() override;
  // An interval of 0 counts as 1.
  [[nodiscard]] TimerId StartTimer(uint32_t interval_ms, std::function<void()> tick) override;
  void StopTimer(TimerId timer) override;
  void Post(std::function<void()> task) override;

  // Lets the message loop run for so long: timers at their moments, tasks between them.
  void AdvanceMs(uint64_t milliseconds);
  // Turns the time without running anything; never back.
  void MoveTo(uint64_t moment_ms);
  // Forgets all timers and tasks.
  void Clear();
  // The date and time of now, in days since 1899-12-30; it goes on from there.
  void SetLocalDateTime(double days);

  // Nothing when no timer runs.
  [[nodiscard]] std::optional<uint64_t> NextDueMs() const;
  [[nodiscard]] bool HasTasks() const { return !tasks_.empty(); }
  [[nodiscard]] size_t TimerCount() const { return timers_.size(); }

 private:
  struct Timer {
    uint32_t interval_ms;
    uint64_t due_ms;
    uint64_t order;  // of two that are due at once, the one that was armed first fires first
    int running = 0;
    std::function<void()> tick;
  };

  enum class Reentry { kAllowed, kSkipped };
  void FireTimersUntil(uint64_t end_ms, Reentry reentry);
  [[nodiscard]] std::optional<TimerId> NextTimer(uint64_t end_ms, Reentry reentry) const;
  void Fire(TimerId id);
  void RunTasks();

  uint64_t now_ms_ = 0;
  double date_at_zero_ = 36892.5;  // 2001-01-01, noon
  TimerId last_timer_ = 0;
  uint64_t last_order_ = 0;
  std::map<TimerId, Timer> timers_;
  std::deque<std::function<void()>> tasks_;
};

}  // namespace kestrun
