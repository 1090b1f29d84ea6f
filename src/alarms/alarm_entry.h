#pragma once

#include <cstdint>
#include <optional>
#include <string>
#include <vector>

#include "core/calendar.h"
#include "platform/clock.h"
#include "store/sch_tables.h"

namespace sched {

// One alarm of today.
struct AlarmEntry {
  std::int16_t AlarmMinute = 0;  // the minute of the day at which it rings, 0 to 1439
  std::string Title;
  std::string Place;
  std::string DateText;  // the item's date, "yyyy/m/d" without padding
  std::string TimeText;  // "9:05am - 10:00am"
  std::string Memo;
  std::int16_t StartTime = -1;
  std::int16_t EndTime = -1;
  std::uint8_t Day = 1;
  std::uint8_t Month = 1;
  std::int16_t Year = kFirstYear;
  std::int16_t Lead = 0;
};

// A notice that waits for a dialog to close.
struct PendingNotice {
  std::string Title;
  std::string DateText;
  std::string Memo;
  std::string TimeText;
  std::string Place;
  std::string MissedAt;  // "9:00 AM" of an alarm that went by unseen; empty for one on time
  int Id = 0;            // the number the engine gave this ring, by which it is answered
};

// A minute of the calendar, counted from the start of the year before its first: the moment an
// alarm rings.
using RingMoment = std::int64_t;
RingMoment MomentOf(std::int32_t dateCode, int minute);
// The minute the time falls in.
RingMoment MomentOf(const DateTime& time);
DateTime DateTimeOf(RingMoment moment);

// An alarm of the document, whatever day it rings on.
struct DocumentAlarm {
  RingMoment moment = 0;
  AlarmEntry alarm;
};

// "9:05am": a start or end time (minutes after 0:00) as the notices write it. A time that is no
// time of day (-1 of an all-day item) stays as its hour and minute were written, "-1:-01".
std::string AlarmClockText(int time);

// The alarm of a row when it rings on the day `todayCode`; nothing for a blank or deleted row,
// a row without an alarm, or an alarm of another day.
std::optional<AlarmEntry> AlarmOfRow(const SchDatTable& list, int row, std::int32_t todayCode);

// Every alarm of the table that rings after `after` and no later than `through`, in ringing
// order; alarms of the same minute in the order of their rows.
std::vector<DocumentAlarm> AlarmsBetween(const SchDatCTL& tables, RingMoment after,
                                         RingMoment through);

// Whether the table still has a live item whose alarm this is.
bool HasAlarmOf(const SchDatCTL& tables, const AlarmEntry& alarm);

// Today's alarms from the whole table, top to bottom, in ringing order.
std::vector<AlarmEntry> BuildTodayAlarms(const SchDatCTL& tables, std::int32_t todayCode);

// Puts the alarms in order of their minute; alarms of the same minute keep their order.
void SortTodayAlarms(std::vector<AlarmEntry>& alarms);

// Whether the alarm is the row's by all it shows and when it rings: title, place, memo, date,
// start, end and lead. Two items alike in all of them share one alarm entry's fate.
bool IsAlarmOfRow(const AlarmEntry& alarm, const SchDatTable& list, int row);

// What the notice window shows of an alarm; "Missed at 9:00 AM" above the title when
// `missedAt` is given.
PendingNotice NoticeOf(const AlarmEntry& alarm, std::optional<RingMoment> missedAt = std::nullopt);

}  // namespace sched
