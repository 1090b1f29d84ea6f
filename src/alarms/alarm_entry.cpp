#include "alarms/alarm_entry.h"

#include <algorithm>
#include <cmath>

#include "core/time_text.h"
#include "store/sch_record.h"
#include "store/schedule_store.h"

namespace sched {
namespace {

constexpr int kMinutesPerDay = 24 * 60;

// Moments count from a day before the calendar's first, so that they are never negative.
std::int32_t FirstDay() {
  static const std::int32_t first = DaySerial({kFirstYear - 1, 1, 1});
  return first;
}

std::string TwoDigits(int value) {
  const std::string digits = std::to_string(std::abs(value));
  return (value < 0 ? "-" : "") + std::string(digits.size() < 2 ? "0" : "") + digits;
}

// The alarm of a row and when it rings; nothing for a blank or deleted row or a row without an
// alarm.
std::optional<DocumentAlarm> AnyAlarmOfRow(const SchDatTable& list, int at) {
  const SchDatRow& row = list.At(at);
  if (row.blank || row.Deleted == kDeleted || row.AlarmOn <= 0) return std::nullopt;
  const AlarmMoment moment =
      AlarmDateCodeOfStart(row.Year, row.Month, row.Day, row.StartTime, row.AlarmLead);
  const SchRecord r = RowToRecord(list, at);
  return DocumentAlarm{
      MomentOf(moment.dateCode, moment.minute),
      AlarmEntry{
          moment.minute, r.Title, r.Place,
          std::to_string(r.Year) + "/" + std::to_string(r.Month) + "/" + std::to_string(r.Day),
          AlarmClockText(r.StartTime) + " - " + AlarmClockText(r.EndTime), r.Memo, r.StartTime,
          r.EndTime, r.Day, r.Month, static_cast<std::int16_t>(r.Year), r.AlarmLead}};
}

}  // namespace

std::string AlarmClockText(int time) {
  // The hour rounded down and the minute keeping the time's sign, as the alarm moment takes them.
  const int hour = static_cast<int>(std::floor(time / 60.0));
  const int minute = time % 60;
  if (hour < 0 || hour > 23 || minute < 0) {
    return std::to_string(hour) + ":" + TwoDigits(minute);
  }
  return TwelveHourTime(hour, minute, false, "am", "pm");
}

RingMoment MomentOf(std::int32_t dateCode, int minute) {
  const std::int32_t day = DaySerial(DateOfCode(dateCode)) - FirstDay();
  return static_cast<RingMoment>(day) * kMinutesPerDay + minute;
}

RingMoment MomentOf(const DateTime& time) {
  return MomentOf(DateCode(time.year, time.month, time.day), time.hour * 60 + time.minute);
}

DateTime DateTimeOf(RingMoment moment) {
  const CivilDate date =
      FromDaySerial(static_cast<std::int32_t>(moment / kMinutesPerDay) + FirstDay());
  const int minute = static_cast<int>(moment % kMinutesPerDay);
  return {date.year, date.month, date.day, minute / 60, minute % 60, 0};
}

std::optional<AlarmEntry> AlarmOfRow(const SchDatTable& list, int row, std::int32_t todayCode) {
  std::optional<DocumentAlarm> alarm = AnyAlarmOfRow(list, row);
  const RingMoment dayStart = MomentOf(todayCode, 0);
  if (!alarm || alarm->moment < dayStart || alarm->moment >= dayStart + kMinutesPerDay) {
    return std::nullopt;
  }
  return std::move(alarm->alarm);
}

std::vector<DocumentAlarm> AlarmsBetween(const SchDatCTL& tables, RingMoment after,
                                         RingMoment through) {
  std::vector<DocumentAlarm> alarms;
  const auto& list = tables.SchDatList;
  for (int row = 0; row < list.Rows(); ++row) {
    std::optional<DocumentAlarm> alarm = AnyAlarmOfRow(list, row);
    if (alarm && alarm->moment > after && alarm->moment <= through) {
      alarms.push_back(std::move(*alarm));
    }
  }
  std::stable_sort(alarms.begin(), alarms.end(),
                   [](const auto& a, const auto& b) { return a.moment < b.moment; });
  return alarms;
}

bool HasAlarmOf(const SchDatCTL& tables, const AlarmEntry& alarm) {
  const auto& list = tables.SchDatList;
  for (int row = 0; row < list.Rows(); ++row) {
    const SchDatRow& r = list.At(row);
    if (r.IsLive() && r.AlarmOn > 0 && IsAlarmOfRow(alarm, list, row)) return true;
  }
  return false;
}

std::vector<AlarmEntry> BuildTodayAlarms(const SchDatCTL& tables, std::int32_t todayCode) {
  std::vector<AlarmEntry> alarms;
  const auto& list = tables.SchDatList;
  for (int row = 0; row < list.Rows(); ++row) {
    if (auto alarm = AlarmOfRow(list, row, todayCode)) alarms.push_back(std::move(*alarm));
  }
  SortTodayAlarms(alarms);
  return alarms;
}

void SortTodayAlarms(std::vector<AlarmEntry>& alarms) {
  std::stable_sort(alarms.begin(), alarms.end(), [](const AlarmEntry& a, const AlarmEntry& b) {
    return a.AlarmMinute < b.AlarmMinute;
  });
}

bool IsAlarmOfRow(const AlarmEntry& alarm, const SchDatTable& list, int at) {
  const SchDatRow& row = list.At(at);
  const RowTexts texts = list.Texts(row);
  return alarm.Title == texts.Title && alarm.Place == texts.Place && alarm.Memo == texts.Memo &&
         alarm.Day == row.Day && alarm.Month == row.Month && alarm.Year == row.Year &&
         alarm.StartTime == row.StartTime && alarm.EndTime == row.EndTime &&
         alarm.Lead == row.AlarmLead;
}

PendingNotice NoticeOf(const AlarmEntry& alarm, std::optional<RingMoment> missedAt) {
  PendingNotice notice{alarm.Title, alarm.DateText, alarm.Memo, alarm.TimeText, alarm.Place, "", 0};
  if (missedAt) {
    const DateTime at = DateTimeOf(*missedAt);
    notice.MissedAt = TwelveHourTime(at.hour, at.minute, false, " AM", " PM");
  }
  return notice;
}

}  // namespace sched
