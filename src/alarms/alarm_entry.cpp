#include "alarms/alarm_entry.h"

#include <algorithm>
#include <cmath>

#include "core/time_text.h"
#include "store/sch_record.h"
#include "store/schedule_store.h"

namespace sched {
namespace {

std::string TwoDigits(int value) {
  const std::string digits = std::to_string(std::abs(value));
  return (value < 0 ? "-" : "") + std::string(digits.size() < 2 ? "0" : "") + digits;
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

std::optional<AlarmEntry> AlarmOfRow(const SchDatTable& list, int at, std::int32_t todayCode) {
  const SchDatRow& row = list.At(at);
  if (row.blank || row.Deleted == kDeleted || row.AlarmOn <= 0) return std::nullopt;
  const AlarmMoment moment =
      AlarmDateCodeOfStart(row.Year, row.Month, row.Day, row.StartTime, row.AlarmLead);
  if (moment.dateCode != todayCode) return std::nullopt;
  const SchRecord r = RowToRecord(list, at);
  return AlarmEntry{
      moment.minute,
      r.Title,
      r.Place,
      std::to_string(r.Year) + "/" + std::to_string(r.Month) + "/" + std::to_string(r.Day),
      AlarmClockText(r.StartTime) + " - " + AlarmClockText(r.EndTime),
      r.Memo,
      r.StartTime,
      r.EndTime,
      r.Day,
      r.Month,
      static_cast<std::int16_t>(r.Year),
      r.AlarmLead};
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

PendingNotice NoticeOf(const AlarmEntry& alarm) {
  return {alarm.Title, alarm.DateText, alarm.Memo, alarm.TimeText, alarm.Place};
}

}  // namespace sched
