#include "platform/qt/qt_clock_alarm.h"

#include <algorithm>
#include <utility>

namespace sched {
namespace {

// The longest single wait: also how late the alarm may notice a jump of the wall clock or the
// end of a sleep.
constexpr qint64 kLongestWaitMs = 1000;
constexpr qint64 kMsPerDay = 24 * 60 * 60 * 1000;

// Milliseconds from the wall-clock reading `now` until `date` `time`, counted on the face of the
// clock; zero or less once it shows that moment or a later one.
qint64 MsUntil(const QDateTime& now, const QDate& date, const QTime& time) {
  return now.date().daysTo(date) * kMsPerDay + now.time().msecsTo(time);
}

}  // namespace

QtClockAlarm::QtClockAlarm(QObject* parent) : QObject(parent) {
  timer_.setSingleShot(true);
  connect(&timer_, &QTimer::timeout, this, &QtClockAlarm::WaitOrRing);
}

void QtClockAlarm::SetAlarmEvent(std::function<void()> event) {
  event_ = std::move(event);
}

void QtClockAlarm::SetAlarmTime(int hour, int minute) {
  hour_ = hour;
  minute_ = minute;
}

void QtClockAlarm::SetAlarmEnabled(bool enabled) {
  const QTime time(hour_, minute_);
  if (!enabled || !time.isValid()) {
    Disarm();
    return;
  }
  // Today while the clock has not shown that minute yet, else tomorrow.
  const QDateTime now = QDateTime::currentDateTime();
  const QDate date = now.time() < time ? now.date() : now.date().addDays(1);
  armedDate_ = date;
  armedTime_ = time;
  WaitOrRing();
}

void QtClockAlarm::ArmAt(const QDateTime& moment) {
  if (!moment.isValid()) {
    Disarm();
    return;
  }
  const QDateTime local = moment.toLocalTime();
  armedDate_ = local.date();
  armedTime_ = local.time();
  WaitOrRing();
}

std::optional<QDateTime> QtClockAlarm::ArmedMoment() const {
  if (!armedDate_.isValid()) return std::nullopt;
  return QDateTime(armedDate_, armedTime_);
}

void QtClockAlarm::Disarm() {
  timer_.stop();
  armedDate_ = QDate();
  armedTime_ = QTime();
}

void QtClockAlarm::WaitOrRing() {
  if (!armedDate_.isValid()) return;
  const qint64 left = MsUntil(QDateTime::currentDateTime(), armedDate_, armedTime_);
  if (left <= 0) {
    // Disarmed before the event runs, so that the event may arm the alarm again.
    Disarm();
    if (event_) event_();
    return;
  }
  // The last stretch on a precise timer, one millisecond beyond, so that it lands on or after
  // the moment rather than a little before.
  const bool lastStretch = left < kLongestWaitMs;
  timer_.setTimerType(lastStretch ? Qt::PreciseTimer : Qt::CoarseTimer);
  timer_.start(static_cast<int>(std::min(left + 1, kLongestWaitMs)));
}

}  // namespace sched
