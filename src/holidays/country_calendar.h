#pragma once

#include <map>
#include <memory>

#include "holidays/holiday_table.h"
#include "platform/holiday_calendar.h"

namespace sched {

// The calendar library of the country files: each successful init opens a handle of its own
// on a parsed file, until it is ended. Handle 0 is never given out.
class CountryCalendar : public HolidayCalendar {
 public:
  int SorCalender_InitFunction(const std::string& countryFilePath, CalendarHandle& handle) override;
  int SorCalender_GetHolidayName(CalendarHandle handle, int year, int month, int day,
                                 std::string& name) override;
  void SorCalender_EndFunction(CalendarHandle handle) override;

 private:
  std::map<CalendarHandle, std::unique_ptr<HolidayTable>> open_;
  CalendarHandle nextHandle_ = 1;
};

}  // namespace sched
