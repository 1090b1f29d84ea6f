#pragma once

#include "platform/clock.h"

namespace sched {

// The machine's local time; the tick counter moves on 64 times a second, as a system timer does.
class SystemClock : public Clock {
 public:
  DateTime Now() const override;
  std::uint64_t TickCount() const override;
};

}  // namespace sched
