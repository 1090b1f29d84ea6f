#pragma once

#include <compare>
#include <cstdint>
#include <optional>
#include <string>
#include <string_view>

namespace sched {

// The calendar this program knows: 1901/01/01 to 2099/12/31, Gregorian.
inline constexpr int kFirstYear = 1901;
inline constexpr int kLastYear = 2099;

struct CivilDate {
  int year = kFirstYear;
  int month = 1;
  int day = 1;
  friend auto operator<=>(const CivilDate&, const CivilDate&) = default;
};

constexpr bool IsLeapYear(int year) {
  return (year % 4 == 0 && year % 100 != 0) || year % 400 == 0;
}

// The days of the months of a year that is not a leap year.
inline constexpr int kDaysOfMonths[12] = {31, 28, 31, 30, 31, 30, 31, 31, 30, 31, 30, 31};

constexpr int DaysInMonth(int year, int month) {
  if (month < 1 || month > 12) return 0;
  return month == 2 && IsLeapYear(year) ? 29 : kDaysOfMonths[month - 1];
}

// The number by which dates are compared: yyyymmdd.
constexpr std::int32_t DateCode(int year, int month, int day) {
  return year * 10000 + month * 100 + day;
}
// The date of a DateCode.
constexpr CivilDate DateOfCode(std::int32_t code) {
  return {code / 10000, code / 100 % 100, code % 100};
}

// True for a real date of the program's calendar range.
constexpr bool IsValidDate(int year, int month, int day) {
  return year >= kFirstYear && year <= kLastYear && month >= 1 && month <= 12 && day >= 1 &&
         day <= DaysInMonth(year, month);
}

// Days since 1970/01/01 (negative before): the date value used for arithmetic in days,
// weeks, months and years.
std::int32_t DaySerial(const CivilDate& date);
CivilDate FromDaySerial(std::int32_t serial);

// The date value of a year, month and day; months and days past their end roll over
// (2001/13/1 is 2002/1/1, 2001/2/30 is 2001/3/2), as date arithmetic on the parts does.
std::int32_t MakeDate(int year, int month, int day);

CivilDate AddDays(const CivilDate& date, int days);

// The day of the year, 1 to 366.
int DayOfYear(const CivilDate& date);

// The date moved by whole months, its day clamped to the end of the target month: January 31
// plus one month is February 28 (29 in a leap year), February 29 plus twelve months is
// February 28 in a common year, and a day that exists in the target month is kept.
CivilDate AddMonths(const CivilDate& date, int months);

// 0 Sunday to 6 Saturday.
int WeekdayOf(const CivilDate& date);
int WeekdayOfSerial(std::int32_t serial);

// The serial day of the first `weekday` (0 Sunday to 6 Saturday) on or after, or on or before,
// the serial day `serial`; `serial` itself when it is that weekday.
std::int32_t WeekdayOnOrAfter(std::int32_t serial, int weekday);
std::int32_t WeekdayOnOrBefore(std::int32_t serial, int weekday);

// The `nth` (1 for the first) `weekday` (0 Sunday to 6 Saturday) of a month; nothing when the
// month has fewer such weekdays, as most months have no fifth Monday.
std::optional<CivilDate> NthWeekdayOfMonth(int year, int month, int weekday, int nth);

// The last `weekday` (0 Sunday to 6 Saturday) of a month.
CivilDate LastWeekdayOfMonth(int year, int month, int weekday);

// The date "yyyy/mm/dd" of the calendar that `text` writes; nothing for other text.
std::optional<CivilDate> ParseSlashedDate(std::string_view text);
// The date as "yyyy/mm/dd".
std::string SlashedDate(const CivilDate& date);

}  // namespace sched
