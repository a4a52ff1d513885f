#include "script/vbscript/runtime/local_time.h"

#include <chrono>
#include <ctime>

#include "base/calendar.h"
#include "platform/platform.h"

namespace kestrun::vbs {
namespace {

double SystemNow() {
  using std::chrono::system_clock;
  const system_clock::time_point now = system_clock::now();
  const std::time_t seconds = system_clock::to_time_t(now);
  const std::tm* local = std::localtime(&seconds);
  if (!local) return 0;
  const std::chrono::duration<double> fraction = now - system_clock::from_time_t(seconds);
  const int second_of_day = local->tm_hour * 3600 + local->tm_min * 60 + local->tm_sec;
  return JoinDate(DayNumber(local->tm_year + 1900, local->tm_mon + 1, local->tm_mday),
                  second_of_day + fraction.count());
}

}  // namespace

double LocalNow() {
  Platform* const machine = InstalledPlatform();
  return machine ? machine->clock().LocalDateTime() : SystemNow();
}

}  // namespace kestrun::vbs
