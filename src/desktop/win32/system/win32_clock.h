// Time and timers over a message-only window.
#pragma once

#include <deque>
#include <map>

#include "desktop/win32/system/handles.h"
#include "platform/clock.h"

namespace kestrun {

class Win32Clock final : public Clock {
 public:
  Win32Clock();
  [[nodiscard]] uint64_t NowMs() override;
  [[nodiscard]] double LocalDateTime() override;
  void SleepMs(uint32_t milliseconds) override;
  void RunPendingEvents() override;
  [[nodiscard]] TimerId StartTimer(uint32_t interval_ms, std::function<void()> tick) override;
  void StopTimer(TimerId timer) override;
  void Post(std::function<void()> task) override;

 private:
  static LRESULT CALLBACK Handle(HWND window, UINT message, WPARAM first, LPARAM second);
  void RunPosted();
  void RunTimer(TimerId timer);

  std::map<TimerId, std::function<void()>> timers_;
  std::deque<std::function<void()>> posted_;
  TimerId last_timer_ = 0;
  WindowHandle window_;
};

}  // namespace kestrun
