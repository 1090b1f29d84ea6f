#pragma once

#include <cstdint>
#include <string>

#include "core/calendar.h"

namespace sched {

// The working schedule record: one occurrence of an item on one day, as the commands compose
// it and as the loader and saver move it between file and tables.
struct SchRecord {
  std::int32_t Prev = -1;
  std::int32_t Next = -1;
  std::uint8_t Day = 1;
  std::uint8_t Month = 1;
  std::uint16_t Year = kFirstYear;
  std::uint8_t EndDay = 1;
  std::uint8_t EndMonth = 1;
  std::uint16_t EndYear = kFirstYear;
  std::int16_t StartTime = -1;  // minutes after 0:00, -1 all day
  std::int16_t EndTime = -1;
  std::int16_t SubNo = 0;
  std::int32_t Stamp = 0;
  std::int16_t ParentSubNo = 0;
  std::int32_t ParentStamp = 0;
  std::int16_t RepeatKind = 0;  // 0 plain, kMultiDayKind, else the packed repeat rule
  std::int16_t Private = 0;
  std::int16_t VarLen = 0;
  std::string Title;
  std::string Place;
  std::string Memo;
  std::int16_t AlarmOn = 0;
  std::string AlarmSound;
  std::int16_t AlarmLead = 0;

  friend bool operator==(const SchRecord&, const SchRecord&) = default;
};

// The record's or row's own date (Day, Month, Year) and the date its item or series ends.
template <typename Record>
void SetStartDate(Record& record, const CivilDate& date) {
  record.Day = static_cast<std::uint8_t>(date.day);
  record.Month = static_cast<std::uint8_t>(date.month);
  record.Year = static_cast<std::uint16_t>(date.year);
}
template <typename Record>
void SetEndDate(Record& record, const CivilDate& date) {
  record.EndDay = static_cast<std::uint8_t>(date.day);
  record.EndMonth = static_cast<std::uint8_t>(date.month);
  record.EndYear = static_cast<std::uint16_t>(date.year);
}

// RepeatKind of an item over multiple days (the bit pattern 0x8000).
inline constexpr std::int16_t kMultiDayKind = -32768;
inline constexpr const char* kDefaultAlarmSound = "SCHALARM";

struct AlarmMoment {
  std::int32_t dateCode;  // the day on which the alarm rings
  std::int16_t minute;    // the minute of that day
};

// The day and minute at which an alarm rings, `lead` minutes before the start; a lead that
// reaches before midnight rings on the day before. Only one day is ever stepped back.
AlarmMoment AlarmDateCode(int year, int month, int day, int startHour, int startMinute, int lead);

// The same for a start time in minutes, split into hour and minute as the alarm lists do
// (the hour rounded down, the minute keeping the sign of the time).
AlarmMoment AlarmDateCodeOfStart(int year, int month, int day, int startTime, int lead);

// "Sun" to "Sat" for 0 to 6.
std::string WeekdayName(int weekday);

// Every tab becomes one blank: tabs separate the cells of a table line.
std::string TabToBlank(std::string text);
std::string StripCR(std::string_view text);
// Copies the text to `to` without its CRs and gives the end of the copy.
char* CopyWithoutReturns(std::string_view text, char* to);
// Every line break becomes CR LF, whether it was LF, CR or CR LF.
std::string LfToCrLf(std::string_view text);
// The same added at the end of `out`.
void AppendLfToCrLf(std::string& out, std::string_view text);

}  // namespace sched
