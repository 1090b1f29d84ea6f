#pragma once

#include <map>
#include <string>
#include <utility>

#include "platform/holiday_calendar.h"

namespace sched {

// A calendar library that names the dates it is given, whatever country file it opens. Dates
// are keyed year * 10000 + month * 100 + day. It hands out one handle and names nothing under
// any other, so that a test sees whether the handle travels.
class FakeHolidayCalendar : public HolidayCalendar {
 public:
  explicit FakeHolidayCalendar(std::map<int, std::string> names = {}, CalendarHandle handle = 1)
      : names_(std::move(names)), handle_(handle) {}

  void Add(int year, int month, int day, const std::string& name) {
    names_[year * 10000 + month * 100 + day] = name;
  }

  int SorCalender_InitFunction(const std::string&, CalendarHandle& handle) override {
    handle = handle_;
    return 0;
  }
  int SorCalender_GetHolidayName(CalendarHandle handle, int year, int month, int day,
                                 std::string& name) override {
    const auto it = names_.find(year * 10000 + month * 100 + day);
    if (handle != handle_ || it == names_.end()) return 1;
    name = it->second;
    return 0;
  }
  void SorCalender_EndFunction(CalendarHandle) override {}

 private:
  std::map<int, std::string> names_;
  CalendarHandle handle_;
};

}  // namespace sched
