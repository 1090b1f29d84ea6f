#include "alarms/alarm_engine.h"

#include <exception>

namespace sched {
namespace {

std::string DesktopBody(const AlarmEntry& alarm) {
  return alarm.Place.empty() ? alarm.TimeText : alarm.TimeText + "\n" + alarm.Place;
}

}  // namespace

AlarmEngine::AlarmEngine(AlarmServices services) : s_(services) {
  SetToday(s_.clock.Now());
  s_.CurTimeCtl1.SetAlarmEnabled(false);
  s_.CurTimeCtl1.SetAlarmEvent([this] { CurTimeCtl1_Alarm(); });
}

int AlarmEngine::NowMinute() const {
  const DateTime now = s_.clock.Now();
  return now.hour * 60 + now.minute;
}

void AlarmEngine::SetToday(const DateTime& now) {
  currentDay_ = {now.year, now.month, now.day};
  todayCode_ = DateCode(now.year, now.month, now.day);
}

void AlarmEngine::RebuildTodayAlarms() {
  todayAlarms_ = BuildTodayAlarms(s_.tables, todayCode_);
  nextAlarmIndex_ = -1;
  if (!todayAlarms_.empty()) s_.CurTimeCtl1.SetAlarmEnabled(true);
  RingMidnightAlarms();
  ArmNextAlarm();
}

void AlarmEngine::WatchDayChange() {
  const DateTime now = s_.clock.Now();
  // By the day of the year alone, as a day watch that wakes every few seconds needs.
  if (DayOfYear(currentDay_) == DayOfYear({now.year, now.month, now.day})) return;
  SetToday(now);
  RebuildTodayAlarms();
}

// The clock cannot be armed for a minute the new day has already reached: the alarms of
// minute 0 ring as the list is made.
void AlarmEngine::RingMidnightAlarms() {
  pendingNotices_.clear();
  for (std::size_t i = 0; i < todayAlarms_.size() && todayAlarms_[i].AlarmMinute == 0; ++i) {
    Ring(todayAlarms_[i]);
    ++nextAlarmIndex_;
  }
}

void AlarmEngine::CurTimeCtl1_Alarm() {
  if (BeepAlarm) {
    s_.CurTimeCtl1.SetAlarmEnabled(false);
    const int now = NowMinute();
    // A failing notice must not keep the next alarm from being armed. The user is not told;
    // the error stream is.
    try {
      for (auto i = static_cast<std::size_t>(nextAlarmIndex_ + 1); i < todayAlarms_.size(); ++i) {
        // The clock rings at second 0 of the alarm's minute; an alarm whose minute went by
        // while the clock could not ring (the machine slept) is passed over.
        if (todayAlarms_[i].AlarmMinute > now) break;
        if (todayAlarms_[i].AlarmMinute == now) {
          Ring(todayAlarms_[i]);
          ++nextAlarmIndex_;
        }
      }
    } catch (const std::exception& error) {
      s_.errors << "scheduler: an alarm could not be shown: " << error.what() << '\n';
    }
  }
  AdvanceNextAlarm();
}

void AlarmEngine::Ring(const AlarmEntry& alarm) {
  s_.beep.Sound();
  s_.desktop.Post(alarm.Title, DesktopBody(alarm));
  if (NoticesHeld()) {
    pendingNotices_.push_back(NoticeOf(alarm));
    return;
  }
  s_.windows.OpenNoticeWindow(NoticeOf(alarm));
}

void AlarmEngine::FlushPendingNotices() {
  const std::vector<PendingNotice> waiting = std::move(pendingNotices_);
  pendingNotices_.clear();
  for (const PendingNotice& notice : waiting) s_.windows.OpenNoticeWindow(notice);
}

void AlarmEngine::ClearTodayAlarms() {
  s_.CurTimeCtl1.SetAlarmEnabled(false);
  s_.CurTimeCtl1.SetAlarmTime(0, 0);
  todayAlarms_.clear();
  nextAlarmIndex_ = -1;
}

void AlarmEngine::AddAlarmOfRecord(int row) {
  auto alarm = AlarmOfRow(s_.tables.SchDatList, row, todayCode_);
  // An alarm that has gone by today is not listed.
  if (alarm && alarm->AlarmMinute > NowMinute()) todayAlarms_.push_back(std::move(*alarm));
}

void AlarmEngine::RemoveAlarmOfRecord(int row) {
  const SchDatTable& list = s_.tables.SchDatList;
  if (list.At(row).AlarmOn == 0) return;
  const auto dropped = std::erase_if(
      todayAlarms_, [&](const AlarmEntry& alarm) { return IsAlarmOfRow(alarm, list, row); });
  if (dropped > 0 && todayAlarms_.empty()) nextAlarmIndex_ = -1;
  ArmNextAlarm();
}

void AlarmEngine::SortTodayAlarms() {
  sched::SortTodayAlarms(todayAlarms_);
}

void AlarmEngine::ArmNextAlarm() {
  ArmFrom(0);
}

void AlarmEngine::ArmFrom(int first) {
  s_.CurTimeCtl1.SetAlarmEnabled(false);
  const int now = NowMinute();
  for (auto i = static_cast<std::size_t>(first); i < todayAlarms_.size(); ++i) {
    const int minute = todayAlarms_[i].AlarmMinute;
    if (minute > now) {
      s_.CurTimeCtl1.SetAlarmTime(minute / 60, minute % 60);
      s_.CurTimeCtl1.SetAlarmEnabled(true);
      nextAlarmIndex_ = static_cast<int>(i) - 1;
      return;
    }
  }
}

void AlarmEngine::HoldNotices() {
  if (holds_++ == 0) pendingNotices_.clear();
}

void AlarmEngine::ReleaseNotices() {
  if (--holds_ > 0 || pendingNotices_.empty()) return;
  FlushPendingNotices();
}

}  // namespace sched
