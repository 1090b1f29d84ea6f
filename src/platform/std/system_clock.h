#pragma once

#include "platform/clock.h"

namespace sched {

// The machine's local time; the tick counter counts 16-millisecond steps of the monotonic
// clock, about 62 a second, as a system timer does.
class SystemClock : public Clock {
 public:
  DateTime Now() const override;
  std::uint64_t TickCount() const override;
};

}  // namespace sched
