#include "platform/std/system_clock.h"

#include <chrono>
#include <ctime>

namespace sched {

DateTime SystemClock::Now() const {
  // The precise clock: time() may read a coarse one that lags the timers by a few milliseconds,
  // so that an alarm woken at second 0 of its minute would read the minute before.
  const std::time_t now = std::chrono::system_clock::to_time_t(std::chrono::system_clock::now());
  std::tm local{};
  localtime_r(&now, &local);
  return {local.tm_year + 1900, local.tm_mon + 1, local.tm_mday,
          local.tm_hour,        local.tm_min,     local.tm_sec};
}

std::uint64_t SystemClock::TickCount() const {
  const auto since = std::chrono::steady_clock::now().time_since_epoch();
  return static_cast<std::uint64_t>(
             std::chrono::duration_cast<std::chrono::milliseconds>(since).count()) /
         16;
}

}  // namespace sched
