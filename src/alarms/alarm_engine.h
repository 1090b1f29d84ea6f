#pragma once

#include <cstdint>
#include <ostream>
#include <vector>

#include "alarms/alarm_entry.h"
#include "alarms/notice_gate.h"
#include "alarms/notice_host.h"
#include "platform/beep.h"
#include "platform/clock.h"
#include "platform/clock_alarm.h"
#include "platform/desktop_notices.h"
#include "store/alarm_hooks.h"
#include "store/sch_tables.h"

namespace sched {

// What the alarm engine works with.
struct AlarmServices {
  const SchDatCTL& tables;  // the open schedule's rows
  const Clock& clock;
  ClockAlarm& CurTimeCtl1;  // rings at the minute of the next alarm
  Beep& beep;
  DesktopNotices& desktop;
  NoticeHost& windows;   // the notice windows
  std::ostream& errors;  // a line for each alarm whose notice failed
};

// Today's alarms, rung on the PC: the list of the day's alarms in ringing order, the clock alarm
// armed for the next of them, and the notices that wait for a dialog. The store tells it of
// every row that comes and goes; the day watch rebuilds the list when a new day begins.
class AlarmEngine final : public AlarmHooks, public NoticeGate {
 public:
  explicit AlarmEngine(AlarmServices services);

  const std::vector<AlarmEntry>& TodayAlarms() const { return todayAlarms_; }
  int TodayAlarmCount() const { return static_cast<int>(todayAlarms_.size()); }
  // The last entry already passed; the next alarm is searched from the one after it.
  int NextAlarmIndex() const { return nextAlarmIndex_; }
  const std::vector<PendingNotice>& PendingNotices() const { return pendingNotices_; }
  bool NoticesHeld() const { return holds_ > 0; }
  std::int32_t TodayCode() const { return todayCode_; }

  // The menu switch "&Ring an alarm on PC": while off, no alarm beeps or shows.
  bool BeepAlarm = true;

  // The list anew from every row, for the current day; alarms of minute 0 ring at once.
  void RebuildTodayAlarms();
  // Timer2's watch: when the day of the year has changed, the list is rebuilt for the new day.
  void WatchDayChange();
  // The clock alarm's event: rings the alarms of the present minute and arms the next one.
  void CurTimeCtl1_Alarm();
  // Opens the windows of the notices that waited.
  void FlushPendingNotices();

  // AlarmHooks
  void ClearTodayAlarms() override;
  void AddAlarmOfRecord(int row) override;
  void RemoveAlarmOfRecord(int row) override;
  void SortTodayAlarms() override;
  void ArmNextAlarm() override;

  // NoticeGate
  void HoldNotices() override;
  void ReleaseNotices() override;

 private:
  int NowMinute() const;
  void SetToday(const DateTime& now);
  // Arms the clock for the first entry from `first` on that is later than now.
  void ArmFrom(int first);
  void AdvanceNextAlarm() { ArmFrom(nextAlarmIndex_ + 1); }
  void RingMidnightAlarms();
  void Ring(const AlarmEntry& alarm);

  AlarmServices s_;
  std::vector<AlarmEntry> todayAlarms_;
  int nextAlarmIndex_ = -1;
  std::vector<PendingNotice> pendingNotices_;
  int holds_ = 0;  // dialogs open one inside the other
  CivilDate currentDay_;
  std::int32_t todayCode_ = 0;
};

}  // namespace sched
