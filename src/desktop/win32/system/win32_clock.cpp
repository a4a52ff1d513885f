#include "desktop/win32/system/win32_clock.h"

#include "desktop/win32/system/message_window.h"
#include "desktop/win32/window/message_loop.h"

namespace kestrun {
namespace {

constexpr const wchar_t* kWindowClass = L"KestrunClock";
constexpr UINT kRunPosted = WM_APP + 1;

}  // namespace

Win32Clock::Win32Clock() : window_(MakeMessageWindow(kWindowClass, &Win32Clock::Handle, this)) {}

LRESULT CALLBACK Win32Clock::Handle(HWND window, UINT message, WPARAM first, LPARAM second) {
  auto* clock = reinterpret_cast<Win32Clock*>(GetWindowLongPtrW(window, GWLP_USERDATA));
  if (clock && message == WM_TIMER) {
    clock->RunTimer(static_cast<TimerId>(first));
    return 0;
  }
  if (clock && message == kRunPosted) {
    clock->RunPosted();
    return 0;
  }
  return DefWindowProcW(window, message, first, second);
}

uint64_t Win32Clock::NowMs() { return GetTickCount64(); }

double Win32Clock::LocalDateTime() {
  FILETIME now{};
  GetSystemTimeAsFileTime(&now);
  FILETIME local{};
  FileTimeToLocalFileTime(&now, &local);
  constexpr double kTicksPerDay = 864e9;         // of 100 nanoseconds
  constexpr double kDaysBefore1899End = 109205;  // from 1601-01-01 to 1899-12-30
  const uint64_t ticks = (static_cast<uint64_t>(local.dwHighDateTime) << 32) | local.dwLowDateTime;
  return static_cast<double>(ticks) / kTicksPerDay - kDaysBefore1899End;
}

void Win32Clock::SleepMs(uint32_t milliseconds) { ::Sleep(milliseconds); }

void Win32Clock::RunPendingEvents() { DispatchWaiting(); }

TimerId Win32Clock::StartTimer(uint32_t interval_ms, std::function<void()> tick) {
  const TimerId timer = ++last_timer_;
  timers_.emplace(timer, std::move(tick));
  SetTimer(window_.get(), timer, interval_ms, nullptr);
  return timer;
}

void Win32Clock::StopTimer(TimerId timer) {
  if (timers_.erase(timer) != 0) KillTimer(window_.get(), timer);
}

void Win32Clock::Post(std::function<void()> task) {
  posted_.push_back(std::move(task));
  PostMessageW(window_.get(), kRunPosted, 0, 0);
}

void Win32Clock::RunPosted() {
  if (posted_.empty()) return;
  const auto task = std::move(posted_.front());
  posted_.pop_front();
  task();
}

void Win32Clock::RunTimer(TimerId timer) {
  const auto found = timers_.find(timer);
  if (found == timers_.end()) return;
  const auto tick = found->second;  // the tick may stop its own timer
  tick();
}

}  // namespace kestrun
