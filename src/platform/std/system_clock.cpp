#include "platform/std/system_clock.h"

#include <chrono>
#include <ctime>

namespace sched {

DateTime SystemClock::Now() const {
  const std::time_t now = std::time(nullptr);
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
