#pragma once

#include <cstdint>

#include "core/calendar.h"

namespace sched {

struct DateTime {
  int year = kFirstYear;
  int month = 1;
  int day = 1;
  int hour = 0;
  int minute = 0;
  int second = 0;
};

// The wall clock and the system timer's tick counter.
class Clock {
 public:
  virtual ~Clock() = default;
  virtual DateTime Now() const = 0;
  // A counter that moves on with the system timer; only its changes matter.
  virtual std::uint64_t TickCount() const = 0;
};

}  // namespace sched
