#pragma once

#include <cstdint>
#include <string>

namespace sched {

using CalendarHandle = std::uint32_t;

// The calendar library that knows the named holidays of a country file.
class HolidayCalendar {
 public:
  virtual ~HolidayCalendar() = default;
  // 0 on success with the handle stored; non-zero when the file is missing or invalid.
  virtual int SorCalender_InitFunction(const std::string& countryFilePath,
                                       CalendarHandle& handle) = 0;
  // 0 when the date is a named holiday, with its name (at most 99 bytes); else non-zero.
  virtual int SorCalender_GetHolidayName(CalendarHandle handle, int year, int month, int day,
                                         std::string& name) = 0;
  virtual void SorCalender_EndFunction(CalendarHandle handle) = 0;
};

}  // namespace sched
