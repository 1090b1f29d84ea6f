#include "platform/qt/qt_clock_alarm.h"

#include <gtest/gtest.h>

#include <QDateTime>
#include <QTest>
#include <algorithm>
#include <utility>
#include <vector>

namespace sched {
namespace {

// An alarm that notes the wall-clock millisecond of each ring.
struct RecordingAlarm {
  QtClockAlarm alarm;
  std::vector<qint64> rings;

  RecordingAlarm() {
    alarm.SetAlarmEvent([this] { rings.push_back(QDateTime::currentMSecsSinceEpoch()); });
  }
};

TEST(QtClockAlarm, RingsWithinASecondAfterTheMomentNeverBeforeNorWhenDisarmed) {
  // Several alarms at once, their moments just beyond, on and just before the alarm's own
  // wake-ups, where an early or a missed last stretch would show; a moment already past rings
  // at once.
  const int aheadMs[] = {-90000, 250, 990, 1005, 1020, 1500, 2000};
  std::vector<RecordingAlarm> recordings(std::size(aheadMs));
  std::vector<QDateTime> moments;
  const QDateTime now = QDateTime::currentDateTime();
  for (std::size_t i = 0; i < std::size(aheadMs); ++i) {
    moments.push_back(now.addMSecs(aheadMs[i]));
    recordings[i].alarm.ArmAt(moments[i]);
  }
  // Disarmed, or armed again with no moment, an alarm never rings.
  RecordingAlarm disabled;
  disabled.alarm.ArmAt(now.addMSecs(500));
  disabled.alarm.SetAlarmEnabled(false);
  RecordingAlarm invalid;
  invalid.alarm.ArmAt(now.addMSecs(500));
  invalid.alarm.ArmAt(QDateTime());
  ASSERT_TRUE(QTest::qWaitFor(
      [&] {
        for (const RecordingAlarm& r : recordings) {
          if (r.rings.empty()) return false;
        }
        return true;
      },
      10000));
  QTest::qWait(1500);
  for (std::size_t i = 0; i < std::size(aheadMs); ++i) {
    const RecordingAlarm& r = recordings[i];
    ASSERT_EQ(r.rings.size(), 1u) << aheadMs[i] << " ms ahead";
    const qint64 late = r.rings[0] - std::max(moments[i], now).toMSecsSinceEpoch();
    EXPECT_GE(late, 0) << aheadMs[i] << " ms ahead";
    EXPECT_LE(late, 1000) << aheadMs[i] << " ms ahead";
    // Once only: disarmed after the ring.
    EXPECT_FALSE(r.alarm.ArmedMoment()) << aheadMs[i] << " ms ahead";
  }
  for (const RecordingAlarm* never : {&disabled, &invalid}) {
    EXPECT_TRUE(never->rings.empty());
    EXPECT_FALSE(never->alarm.ArmedMoment());
  }
}

TEST(QtClockAlarm, TheEventMayArmTheAlarmAgain) {
  QtClockAlarm alarm;
  std::vector<qint64> rings;
  alarm.SetAlarmEvent([&] {
    rings.push_back(QDateTime::currentMSecsSinceEpoch());
    if (rings.size() == 1) alarm.ArmAt(QDateTime::currentDateTime().addMSecs(300));
  });
  alarm.ArmAt(QDateTime::currentDateTime().addMSecs(300));
  ASSERT_TRUE(QTest::qWaitFor([&] { return rings.size() >= 2; }, 5000));
  EXPECT_GE(rings[1] - rings[0], 300);
}

// The minute `offset` minutes from `now`, as hour and minute of the day.
QTime MinuteFrom(const QDateTime& now, int offset) {
  const QTime shifted = now.time().addSecs(offset * 60);
  return QTime(shifted.hour(), shifted.minute());
}

TEST(QtClockAlarm, EnablingArmsForTheNextTimeTheClockShowsTheMinuteIfAny) {
  struct Case {
    const char* what;
    int offsetMinutes;
    // Bounds of the wait from now, in seconds; a day may be an hour longer or shorter when the
    // clocks change.
    qint64 fewestSeconds;
    qint64 mostSeconds;
  };
  const Case cases[] = {
      {"the next minute", 1, 0, 60},
      {"two minutes ahead", 2, 60, 120},
      {"the current minute, already begun", 0, 23 * 3600 - 60, 25 * 3600},
      {"a minute past, tomorrow", -1, 23 * 3600 - 120, 25 * 3600},
      {"three hours past", -180, 20 * 3600 - 120, 22 * 3600},
  };
  // One alarm for all, rung once before: each enabling arms it for the latest time set.
  RecordingAlarm recording;
  recording.alarm.ArmAt(QDateTime::currentDateTime().addSecs(-1));
  ASSERT_EQ(recording.rings.size(), 1u);
  QtClockAlarm& alarm = recording.alarm;
  for (const Case& c : cases) {
    const QDateTime now = QDateTime::currentDateTime();
    const QTime minute = MinuteFrom(now, c.offsetMinutes);
    alarm.SetAlarmTime(minute.hour(), minute.minute());
    alarm.SetAlarmEnabled(true);
    const std::optional<QDateTime> armed = alarm.ArmedMoment();
    ASSERT_TRUE(armed) << c.what;
    EXPECT_EQ(armed->time(), minute) << c.what;
    const qint64 wait = now.secsTo(*armed);
    EXPECT_GE(wait, c.fewestSeconds) << c.what;
    EXPECT_LE(wait, c.mostSeconds) << c.what;
  }
  // A time that is no time of day disarms it.
  for (const auto& [hour, minute] : {std::pair{24, 0}, {12, 60}, {-1, 30}}) {
    alarm.SetAlarmTime(hour, minute);
    alarm.SetAlarmEnabled(true);
    EXPECT_FALSE(alarm.ArmedMoment()) << hour << ":" << minute;
  }
}

}  // namespace
}  // namespace sched
