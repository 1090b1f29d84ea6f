#include "core/calendar.h"

#include <algorithm>
#include <cstdio>

#include "core/number_text.h"

namespace sched {

// Civil-from-days and days-from-civil over the proleptic Gregorian calendar.
std::int32_t DaySerial(const CivilDate& date) {
  const int y = date.year - (date.month <= 2 ? 1 : 0);
  const int era = (y >= 0 ? y : y - 399) / 400;
  const int yoe = y - era * 400;
  const int mp = (date.month + 9) % 12;
  const int doy = (153 * mp + 2) / 5 + date.day - 1;
  const int doe = yoe * 365 + yoe / 4 - yoe / 100 + doy;
  return era * 146097 + doe - 719468;
}

CivilDate FromDaySerial(std::int32_t serial) {
  const std::int32_t z = serial + 719468;
  const std::int32_t era = (z >= 0 ? z : z - 146096) / 146097;
  const std::int32_t doe = z - era * 146097;
  const std::int32_t yoe = (doe - doe / 1460 + doe / 36524 - doe / 146096) / 365;
  const std::int32_t doy = doe - (365 * yoe + yoe / 4 - yoe / 100);
  const std::int32_t mp = (5 * doy + 2) / 153;
  const int day = static_cast<int>(doy - (153 * mp + 2) / 5 + 1);
  const int month = static_cast<int>(mp < 10 ? mp + 3 : mp - 9);
  const int year = static_cast<int>(yoe + era * 400) + (month <= 2 ? 1 : 0);
  return {year, month, day};
}

std::int32_t MakeDate(int year, int month, int day) {
  const int monthIndex = year * 12 + (month - 1);
  const int normYear = monthIndex / 12;
  const int normMonth = monthIndex % 12 + 1;
  return DaySerial({normYear, normMonth, 1}) + (day - 1);
}

int DayOfYear(const CivilDate& date) {
  return MakeDate(date.year, date.month, date.day) - MakeDate(date.year, 1, 1) + 1;
}

CivilDate AddDays(const CivilDate& date, int days) {
  return FromDaySerial(DaySerial(date) + days);
}

CivilDate AddMonths(const CivilDate& date, int months) {
  const int index = date.year * 12 + date.month - 1 + months;
  const int year = index / 12;
  const int month = index % 12 + 1;
  return {year, month, std::min(date.day, DaysInMonth(year, month))};
}

int WeekdayOf(const CivilDate& date) {
  return WeekdayOfSerial(DaySerial(date));
}

int WeekdayOfSerial(std::int32_t serial) {
  return static_cast<int>(((serial % 7) + 7 + 4) % 7);  // 1970/01/01 was a Thursday
}

std::int32_t WeekdayOnOrAfter(std::int32_t serial, int weekday) {
  return serial + (weekday - WeekdayOfSerial(serial) + 7) % 7;
}

std::int32_t WeekdayOnOrBefore(std::int32_t serial, int weekday) {
  return serial - (WeekdayOfSerial(serial) - weekday + 7) % 7;
}

std::optional<CivilDate> NthWeekdayOfMonth(int year, int month, int weekday, int nth) {
  if (nth < 1) return std::nullopt;
  const std::int32_t first = WeekdayOnOrAfter(DaySerial({year, month, 1}), weekday);
  const CivilDate date = FromDaySerial(first + 7 * (nth - 1));
  if (date.month != month) return std::nullopt;
  return date;
}

CivilDate LastWeekdayOfMonth(int year, int month, int weekday) {
  return FromDaySerial(
      WeekdayOnOrBefore(DaySerial({year, month, DaysInMonth(year, month)}), weekday));
}

std::optional<CivilDate> ParseSlashedDate(std::string_view text) {
  if (text.size() != 10 || text[4] != '/' || text[7] != '/') return std::nullopt;
  const auto year = ParseInt(text.substr(0, 4), 10, kFirstYear, kLastYear);
  const auto month = ParseInt(text.substr(5, 2), 10, 1, 12);
  const auto day = ParseInt(text.substr(8, 2), 10, 1, 31);
  if (!year || !month || !day || !IsValidDate(*year, *month, *day)) return std::nullopt;
  return CivilDate{*year, *month, *day};
}

std::string SlashedDate(const CivilDate& date) {
  char text[16];
  std::snprintf(text, sizeof text, "%04d/%02d/%02d", date.year, date.month, date.day);
  return text;
}

}  // namespace sched
