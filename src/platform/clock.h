// Time and the message loop of the one thread.
#pragma once

#include <cstdint>
#include <functional>

namespace kestrun {

using TimerId = uint32_t;

class Clock {
 public:
  virtual ~Clock() = default;
  // Milliseconds since some fixed moment; never goes back.
  [[nodiscard]] virtual uint64_t NowMs() = 0;
  // Local date and time as days since 1899-12-30.
  [[nodiscard]] virtual double LocalDateTime() = 0;
  // Waits. Events do not run meanwhile, except that the headless clock fires timers that come due.
  virtual void SleepMs(uint32_t milliseconds) = 0;
  // Handles the messages that wait now, timers that are due among them, and returns.
  virtual void RunPendingEvents() = 0;
  // Calls `tick` every interval until stopped; ticks that were missed are not made up for.
  [[nodiscard]] virtual TimerId StartTimer(uint32_t interval_ms, std::function<void()> tick) = 0;
  virtual void StopTimer(TimerId timer) = 0;
  // Runs `task` in a later pass of the message loop.
  virtual void Post(std::function<void()> task) = 0;
};

}  // namespace kestrun
