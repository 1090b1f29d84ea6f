#include "holidays/country_calendar.h"

#include <utility>

#include "holidays/country_file.h"

namespace sched {
namespace {

constexpr int kOk = 0;
constexpr int kFailed = 1;

}  // namespace

int CountryCalendar::SorCalender_InitFunction(const std::string& countryFilePath,
                                              CalendarHandle& handle) {
  CountryFile file;
  CountryFileError error;
  if (!LoadCountryFile(countryFilePath, file, error)) return kFailed;
  while (nextHandle_ == 0 || open_.count(nextHandle_) != 0) ++nextHandle_;
  handle = nextHandle_++;
  open_[handle] = std::make_unique<HolidayTable>(std::move(file));
  return kOk;
}

int CountryCalendar::SorCalender_GetHolidayName(CalendarHandle handle, int year, int month, int day,
                                                std::string& name) {
  const auto it = open_.find(handle);
  if (it == open_.end()) return kFailed;
  const std::string* found = it->second->Find(year, month, day);
  if (found == nullptr) return kFailed;
  name = *found;
  return kOk;
}

void CountryCalendar::SorCalender_EndFunction(CalendarHandle handle) {
  open_.erase(handle);
}

}  // namespace sched
