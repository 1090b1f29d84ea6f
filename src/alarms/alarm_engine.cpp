#include "alarms/alarm_engine.h"

#include <algorithm>
#include <exception>

#include "alarms/texts.h"

namespace sched {
namespace {

constexpr RingMoment kMinutesPerDay = 24 * 60;

std::string DesktopBody(const PendingNotice& notice) {
  std::string body = notice.TimeText;
  if (!notice.MissedAt.empty()) body = alarm_texts::kMissedAt + notice.MissedAt + "\n" + body;
  return notice.Place.empty() ? body : body + "\n" + notice.Place;
}

}  // namespace

AlarmEngine::AlarmEngine(AlarmServices services) : s_(services) {
  SetToday(s_.clock.Now());
  if (const std::optional<DateTime> mark = s_.checked.ReadLastChecked()) {
    lastChecked_ = MomentOf(*mark);
  }
  s_.CurTimeCtl1.SetAlarmEnabled(false);
  s_.CurTimeCtl1.SetAlarmEvent([this] { CurTimeCtl1_Alarm(); });
  s_.windows.SetAnswerEvent([this](int id, int snoozeMinutes) {
    if (snoozeMinutes > 0) {
      SnoozeNotice(id, snoozeMinutes);
    } else {
      DismissNotice(id);
    }
  });
  s_.desktop.SetActionEvent([this](int id, const std::string& key) {
    if (key == alarm_texts::kSnoozeAction) SnoozeNotice(id, alarm_texts::kSnoozeActionMinutes);
    if (key == alarm_texts::kDismissAction) DismissNotice(id);
  });
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
  const RingMoment minute = MomentOf(now);
  CatchUp(minute - 1, minute);
  // By the day of the year alone, as a day watch that wakes every few seconds needs.
  if (DayOfYear(currentDay_) != DayOfYear({now.year, now.month, now.day})) {
    SetToday(now);
    RebuildTodayAlarms();
  }
  MarkChecked(minute);
}

// The clock cannot be armed for a minute the new day has already reached: the alarms of
// minute 0 ring as the list is made, unless that minute was seen before (the clock was put
// back over midnight, or they showed as missed after a sleep).
void AlarmEngine::RingMidnightAlarms() {
  pendingNotices_.clear();
  const bool seen = lastChecked_ && MomentOf(todayCode_, 0) <= *lastChecked_;
  for (std::size_t i = 0; i < todayAlarms_.size() && todayAlarms_[i].AlarmMinute == 0; ++i) {
    if (!seen) Ring(todayAlarms_[i]);
    ++nextAlarmIndex_;
  }
}

void AlarmEngine::CurTimeCtl1_Alarm() {
  const RingMoment minute = MomentOf(s_.clock.Now());
  // The clock rings at second 0 of the alarm's minute; what went by while it could not ring
  // (the machine slept, the clock was put forward) shows as missed first.
  CatchUp(minute - 1, minute);
  if (BeepAlarm) {
    s_.CurTimeCtl1.SetAlarmEnabled(false);
    Guarded([&] {
      for (auto i = static_cast<std::size_t>(nextAlarmIndex_ + 1); i < todayAlarms_.size(); ++i) {
        const RingMoment at = MomentOf(todayCode_, todayAlarms_[i].AlarmMinute);
        if (at > minute) break;
        if (at == minute) {
          Ring(todayAlarms_[i]);
          ++nextAlarmIndex_;
        }
      }
    });
  }
  MarkChecked(minute);
  AdvanceNextAlarm();
}

void AlarmEngine::ShowAlarmsMissedWhileClosed() {
  // The present minute too: a document opened in it lists only the alarms after it.
  const RingMoment minute = MomentOf(s_.clock.Now());
  CatchUp(minute, minute);
  MarkChecked(minute);
}

void AlarmEngine::CatchUp(RingMoment through, RingMoment now) {
  // A mark more than a day ahead is of a clock that was wrong; kept, it would silence a day.
  if (lastChecked_ && *lastChecked_ > now + kMinutesPerDay) lastChecked_.reset();
  const auto due = std::stable_partition(snoozed_.begin(), snoozed_.end(),
                                         [&](const SnoozedNotice& s) { return s.due > now; });
  std::vector<SnoozedNotice> ringing(std::make_move_iterator(due),
                                     std::make_move_iterator(snoozed_.end()));
  snoozed_.erase(due, snoozed_.end());
  if (BeepAlarm) {
    Guarded([&] {
      if (lastChecked_) {
        // Alarms more than a day old are let go.
        const RingMoment after = std::max(*lastChecked_, now - kMinutesPerDay - 1);
        if (through > after) {
          for (const DocumentAlarm& missed : AlarmsBetween(s_.tables, after, through)) {
            Ring(missed.alarm, missed.moment);
          }
        }
      }
      // A snoozed notice whose item has gone meanwhile, or is not in the open document, is
      // dropped.
      for (SnoozedNotice& snoozed : ringing) {
        if (HasAlarmOf(s_.tables, snoozed.rung.alarm)) Ring(std::move(snoozed.rung));
      }
    });
  }
  if (!lastChecked_ || *lastChecked_ < through) lastChecked_ = through;
}

void AlarmEngine::MarkChecked(RingMoment minute) {
  if (!lastChecked_ || *lastChecked_ < minute) lastChecked_ = minute;
  // Once a minute, not at every look.
  if (savedMark_ != lastChecked_) SaveLastChecked();
}

void AlarmEngine::SaveLastChecked() {
  if (!lastChecked_) return;
  s_.checked.SaveLastChecked(DateTimeOf(*lastChecked_));
  savedMark_ = lastChecked_;
}

template <class Ringing>
void AlarmEngine::Guarded(Ringing ring) {
  // A failing notice must not keep the next alarm from being armed. The user is not told;
  // the error stream is.
  try {
    ring();
  } catch (const std::exception& error) {
    s_.errors << "scheduler: an alarm could not be shown: " << error.what() << '\n';
  }
}

void AlarmEngine::Ring(const AlarmEntry& alarm, std::optional<RingMoment> missedAt) {
  Ring(RungNotice{NoticeOf(alarm, missedAt), alarm});
}

void AlarmEngine::Ring(RungNotice rung) {
  rung.notice.Id = ++lastNoticeId_;
  const PendingNotice& notice = rung.notice;
  s_.beep.Sound();
  s_.desktop.Post({notice.Id,
                   notice.Title,
                   DesktopBody(notice),
                   {{alarm_texts::kSnoozeAction, alarm_texts::kSnoozeActionLabel},
                    {alarm_texts::kDismissAction, alarm_texts::kDismissActionLabel}}});
  rung_.push_back(rung);
  if (NoticesHeld()) {
    pendingNotices_.push_back(rung.notice);
    return;
  }
  s_.windows.OpenNoticeWindow(rung.notice);
}

void AlarmEngine::FlushPendingNotices() {
  const std::vector<PendingNotice> waiting = std::move(pendingNotices_);
  pendingNotices_.clear();
  for (const PendingNotice& notice : waiting) s_.windows.OpenNoticeWindow(notice);
}

std::optional<RungNotice> AlarmEngine::TakeRung(int id) {
  const auto found = std::find_if(rung_.begin(), rung_.end(),
                                  [&](const RungNotice& r) { return r.notice.Id == id; });
  if (found == rung_.end()) return std::nullopt;
  RungNotice rung = std::move(*found);
  rung_.erase(found);
  // Answered from the desktop while a dialog held its window back: the window never opens.
  std::erase_if(pendingNotices_, [&](const PendingNotice& n) { return n.Id == id; });
  return rung;
}

void AlarmEngine::SnoozeNotice(int id, int minutes) {
  std::optional<RungNotice> rung = TakeRung(id);
  if (!rung) return;
  const DateTime now = s_.clock.Now();
  // At the start of a minute, as alarms ring, and never sooner than asked.
  const RingMoment due = MomentOf(now) + minutes + (now.second > 0 ? 1 : 0);
  snoozed_.push_back({std::move(*rung), due});
  s_.windows.CloseNoticeWindow(id);
  ArmNextAlarm();
}

void AlarmEngine::DismissNotice(int id) {
  if (TakeRung(id)) s_.windows.CloseNoticeWindow(id);
}

// Snoozed notices outlive the list: a document opened again keeps them.
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
  std::erase_if(snoozed_,
                [&](const SnoozedNotice& s) { return IsAlarmOfRow(s.rung.alarm, list, row); });
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
  const RingMoment now = MomentOf(s_.clock.Now());
  // Minutes already looked at stay behind a clock that was put back: nothing rings twice.
  const RingMoment after = std::max(now, lastChecked_.value_or(now));
  std::optional<RingMoment> at;
  for (auto i = static_cast<std::size_t>(first); i < todayAlarms_.size(); ++i) {
    const RingMoment moment = MomentOf(todayCode_, todayAlarms_[i].AlarmMinute);
    if (moment > after) {
      at = moment;
      nextAlarmIndex_ = static_cast<int>(i) - 1;
      break;
    }
  }
  // The clock takes a minute of the day: a notice snoozed till tomorrow may ring it once today
  // too, which finds nothing due and arms it again.
  for (const SnoozedNotice& snoozed : snoozed_) {
    if (snoozed.due > now && (!at || snoozed.due < *at)) at = snoozed.due;
  }
  if (!at) return;
  const DateTime when = DateTimeOf(*at);
  s_.CurTimeCtl1.SetAlarmTime(when.hour, when.minute);
  s_.CurTimeCtl1.SetAlarmEnabled(true);
}

void AlarmEngine::HoldNotices() {
  if (holds_++ == 0) pendingNotices_.clear();
}

void AlarmEngine::ReleaseNotices() {
  if (--holds_ > 0 || pendingNotices_.empty()) return;
  FlushPendingNotices();
}

}  // namespace sched
