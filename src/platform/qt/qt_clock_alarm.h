#pragma once

#include <QDate>
#include <QDateTime>
#include <QObject>
#include <QTime>
#include <QTimer>
#include <functional>
#include <optional>

#include "platform/clock_alarm.h"

namespace sched {

// The clock alarm over the wall clock. It never waits on one long timer: the timers' clock stops
// while the machine sleeps and does not follow a change of the time, so the alarm wakes at least
// once a second, reads the wall clock again and waits for what is left. It rings once, then stays
// disarmed until it is enabled again.
class QtClockAlarm : public QObject, public ClockAlarm {
 public:
  explicit QtClockAlarm(QObject* parent = nullptr);

  void SetAlarmEvent(std::function<void()> event) override;
  void SetAlarmTime(int hour, int minute) override;
  void SetAlarmEnabled(bool enabled) override;

  // Arms the alarm for the moment the wall clock shows `moment`'s local date and time; a moment
  // already past rings at once. An invalid moment disarms it.
  void ArmAt(const QDateTime& moment);
  // The local date and time the alarm waits for, none while it is disarmed.
  std::optional<QDateTime> ArmedMoment() const;

 private:
  void Disarm();
  void WaitOrRing();

  std::function<void()> event_;
  int hour_ = 0;
  int minute_ = 0;
  // The wall-clock reading to wait for, kept as date and time of day rather than as an instant,
  // so that a change of time zone moves the alarm with the wall clock.
  QDate armedDate_;
  QTime armedTime_;
  QTimer timer_;
};

}  // namespace sched
