#pragma once

#include <cstdint>
#include <optional>
#include <ostream>
#include <vector>

#include "alarms/alarm_entry.h"
#include "alarms/notice_gate.h"
#include "alarms/notice_host.h"
#include "platform/alarm_check_mark.h"
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
  ClockAlarm& CurTimeCtl1;  // rings at the minute of the next alarm or snoozed notice
  Beep& beep;
  DesktopNotices& desktop;
  NoticeHost& windows;      // the notice windows
  AlarmCheckMark& checked;  // the minute last looked at, kept for the next run
  std::ostream& errors;     // a line for each alarm whose notice failed
};

// A notice that rang and waits for an answer: what it shows, and the alarm it is of.
struct RungNotice {
  PendingNotice notice;
  AlarmEntry alarm;
};

// A notice put off until `due`.
struct SnoozedNotice {
  RungNotice rung;
  RingMoment due = 0;
};

// Today's alarms, rung on the PC: the list of the day's alarms in ringing order, the clock alarm
// armed for the next of them, and the notices that wait for a dialog. The store tells it of
// every row that comes and goes; the day watch rebuilds the list when a new day begins.
// No alarm is lost: the engine keeps the minute up to which it has looked at the clock, and an
// alarm whose minute went by unwatched (the program closed, the machine asleep, the clock put
// forward) shows as missed at the next look, unless it is more than a day old; an alarm never
// rings twice when the clock is put back. A notice can be snoozed, and rings again later.
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
  const std::vector<SnoozedNotice>& SnoozedNotices() const { return snoozed_; }
  std::optional<RingMoment> LastChecked() const { return lastChecked_; }

  // The menu switch "&Ring an alarm on PC": while off, no alarm beeps or shows.
  bool BeepAlarm = true;

  // The list anew from every row, for the current day; alarms of minute 0 ring at once.
  void RebuildTodayAlarms();
  // Timer2's watch: what went by unwatched shows as missed, snoozed notices that are due ring,
  // and when the day of the year has changed, the list is rebuilt for the new day.
  void WatchDayChange();
  // The clock alarm's event: rings the alarms of the present minute and arms the next one.
  void CurTimeCtl1_Alarm();
  // Opens the windows of the notices that waited.
  void FlushPendingNotices();

  // At start, once the document is open: the alarms that went by while the program was closed,
  // up to the present minute, show as missed.
  void ShowAlarmsMissedWhileClosed();
  // At shut-down: keeps the minute last looked at for the next run.
  void SaveLastChecked();

  // The user's answers to a rung notice: put off for some minutes, or done with. Either closes
  // its window; a notice already answered is left alone.
  void SnoozeNotice(int id, int minutes);
  void DismissNotice(int id);

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
  // Arms the clock for the first entry from `first` on that is later than now and than the
  // minute last looked at, or for the first snoozed notice when that comes sooner.
  void ArmFrom(int first);
  void AdvanceNextAlarm() { ArmFrom(nextAlarmIndex_ + 1); }
  void RingMidnightAlarms();
  void Ring(const AlarmEntry& alarm, std::optional<RingMoment> missedAt = std::nullopt);
  void Ring(RungNotice rung);
  // A look at the clock at `now`: the alarms after the last look up to `through` show as
  // missed, and the snoozed notices due by `now` ring.
  void CatchUp(RingMoment through, RingMoment now);
  void MarkChecked(RingMoment minute);
  // Runs `ring`, telling the error stream rather than the user when a notice fails.
  template <class Ringing>
  void Guarded(Ringing ring);
  std::optional<RungNotice> TakeRung(int id);

  AlarmServices s_;
  std::vector<AlarmEntry> todayAlarms_;
  int nextAlarmIndex_ = -1;
  std::vector<PendingNotice> pendingNotices_;
  int holds_ = 0;  // dialogs open one inside the other
  CivilDate currentDay_;
  std::int32_t todayCode_ = 0;
  std::optional<RingMoment> lastChecked_;  // every alarm up to this minute has been seen
  std::optional<RingMoment> savedMark_;    // what the settings were last given
  std::vector<RungNotice> rung_;           // rung and not answered yet
  std::vector<SnoozedNotice> snoozed_;
  int lastNoticeId_ = 0;
};

}  // namespace sched
