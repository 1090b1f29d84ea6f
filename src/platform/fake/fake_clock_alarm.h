#pragma once

#include <functional>
#include <optional>

#include "platform/clock_alarm.h"

namespace sched {

// A clock alarm that tests look at and ring by hand.
class FakeClockAlarm : public ClockAlarm {
 public:
  void SetAlarmEvent(std::function<void()> event) override { event_ = std::move(event); }
  void SetAlarmTime(int hour, int minute) override { minute_ = hour * 60 + minute; }
  void SetAlarmEnabled(bool enabled) override { enabled_ = enabled; }

  // The minute of the day it is armed for; nothing while it is not enabled.
  std::optional<int> ArmedMinute() const {
    return enabled_ ? std::optional<int>(minute_) : std::nullopt;
  }
  // The alarm event, as the clock delivers it when the armed moment comes.
  void Ring() {
    enabled_ = false;
    if (event_) event_();
  }

 private:
  std::function<void()> event_;
  int minute_ = 0;
  bool enabled_ = false;
};

}  // namespace sched
