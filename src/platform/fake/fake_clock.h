#pragma once

#include "core/calendar.h"
#include "platform/clock.h"

namespace sched {

// A clock that tests set. Each reading can move it on by some seconds, so that code which
// waits for the clock comes to an end; the tick counter moves on at every reading.
class FakeClock : public Clock {
 public:
  explicit FakeClock(DateTime now = {2026, 11, 21, 10, 0, 0}) : now_(now) {}
  void Set(const DateTime& now) { now_ = now; }
  void SetSecondsPerReading(int seconds) { secondsPerReading_ = seconds; }
  // Moves the clock on by some seconds, into the next days when it runs past midnight.
  void MoveOn(int seconds) { Advance(seconds); }
  int Readings() const { return readings_; }

  DateTime Now() const override {
    ++readings_;
    const DateTime result = now_;
    Advance(secondsPerReading_);
    return result;
  }
  std::uint64_t TickCount() const override { return ++ticks_; }

 private:
  void Advance(int seconds) const {
    int total = now_.hour * 3600 + now_.minute * 60 + now_.second + seconds;
    if (total >= 86400) {
      const CivilDate next = AddDays({now_.year, now_.month, now_.day}, total / 86400);
      now_.year = next.year;
      now_.month = next.month;
      now_.day = next.day;
      total %= 86400;
    }
    now_.hour = total / 3600;
    now_.minute = total / 60 % 60;
    now_.second = total % 60;
  }

  mutable DateTime now_;
  int secondsPerReading_ = 0;
  mutable int readings_ = 0;
  mutable std::uint64_t ticks_ = 0;
};

}  // namespace sched
