#include "holidays/holiday_model.h"

namespace sched {
namespace {

bool BitOf(int month, int day, const MonthMasks& masks) {
  if (month < 1 || month > 12 || day < 1 || day > 31) return false;
  const auto mask = static_cast<std::uint32_t>(masks[static_cast<std::size_t>(month - 1)]);
  return ((mask >> (day - 1)) & 1u) != 0;
}

}  // namespace

int NamedHolidays::GetHolidayName(int year, int month, int day, std::string& name) const {
  if (HolidayReady != -1 || calendar == nullptr) return 0;
  std::string found;
  if (calendar->SorCalender_GetHolidayName(HolidayHandle, year, month, day, found) != 0) return 0;
  name = found;
  return -1;
}

bool IsHolidayOn(int month, int day, const MonthMasks& masks) {
  return BitOf(month, day, masks);
}

bool IsHolidayOff(int month, int day, int weekday, const MonthMasks& masks,
                  const WeekFlags& weekHoliday) {
  return BitOf(month, day, masks) && weekday >= 0 && weekday < 7 &&
         weekHoliday[static_cast<std::size_t>(weekday)] != 0;
}

DayClass ClassifyDate(const NamedHolidays& named, const WeekFlags& weekHoliday,
                      const MonthMasks& holidayOn, const MonthMasks& holidayOff, int year,
                      int month, int day, int weekday) {
  DayClass result;
  const bool isNamed = named.GetHolidayName(year, month, day, result.name) == -1;
  if (weekHoliday[static_cast<std::size_t>(weekday)] == 1) {
    result.holiday = !IsHolidayOff(month, day, weekday, holidayOff, weekHoliday);
  } else {
    result.holiday = isNamed != IsHolidayOn(month, day, holidayOn);
  }
  return result;
}

}  // namespace sched
