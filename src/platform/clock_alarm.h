#pragma once

#include <functional>

namespace sched {

// The clock alarm: one wall-clock minute of the day at a time, at which the alarm event comes.
// It rings at second 0 of that minute by the wall clock (within a second), whatever the clock
// did meanwhile: sleep, a change of time or of time zone.
class ClockAlarm {
 public:
  virtual ~ClockAlarm() = default;
  // The routine the alarm event runs, on the program's thread.
  virtual void SetAlarmEvent(std::function<void()> event) = 0;
  // The alarm moment: `hour`:`minute`:00, the next time the wall clock shows it.
  virtual void SetAlarmTime(int hour, int minute) = 0;
  // An alarm that is not enabled never rings; enabling it arms it for its moment.
  virtual void SetAlarmEnabled(bool enabled) = 0;
};

}  // namespace sched
