#pragma once

#include <array>
#include <cstdint>
#include <string>

#include "platform/holiday_calendar.h"

namespace sched {

// The named holidays of the country file in use: the calendar library, its handle, and
// whether a country file is open.
struct NamedHolidays {
  HolidayCalendar* calendar = nullptr;
  CalendarHandle HolidayHandle = 0;
  std::int16_t HolidayReady = 0;  // -1 while a country file is open

  // -1 with the holiday's name when the date is a named holiday of the open country file;
  // else 0 and the name left as it was.
  int GetHolidayName(int year, int month, int day, std::string& name) const;
};

using MonthMasks = std::array<std::int32_t, 12>;
using WeekFlags = std::array<std::int16_t, 7>;

// True when the date's bit is set in the month's mask.
bool IsHolidayOn(int month, int day, const MonthMasks& masks);
// True when the date's bit is set and its weekday is a weekly holiday: only then does a
// workday mark count.
bool IsHolidayOff(int month, int day, int weekday, const MonthMasks& masks,
                  const WeekFlags& weekHoliday);

// How a date is shown: a holiday or a workday, and the name of its named holiday, if any. A
// name shows even on a day that the marks make a workday.
struct DayClass {
  bool holiday = false;
  std::string name;
};

// A weekly-holiday weekday is a holiday unless marked as a workday; any other day is a
// holiday when exactly one of "named holiday" and "marked as holiday" holds.
DayClass ClassifyDate(const NamedHolidays& named, const WeekFlags& weekHoliday,
                      const MonthMasks& holidayOn, const MonthMasks& holidayOff, int year,
                      int month, int day, int weekday);

}  // namespace sched
