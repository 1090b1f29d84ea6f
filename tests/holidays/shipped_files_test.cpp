#include <gtest/gtest.h>

#include <chrono>
#include <map>
#include <string>

#include "holiday_test_support.h"
#include "holidays/country_calendar.h"
#include "holidays/country_file.h"
#include "holidays/holiday_rules.h"
#include "tests/support/case_file.h"

namespace sched {
namespace {

using testing::CaseRow;
using testing::ReadCases;
using testing::ShippedFile;

const char* const kShippedFiles[] = {"holidayUS.ini", "holidayUK.ini", "holidayJP.ini",
                                     "holidayDE.ini", "holidayFR.ini"};

// Every known day of tests/data/holidays/known-days.txt, looked up through the calendar port as
// the month view does.
TEST(ShippedFiles, KnownDays) {
  CountryCalendar calendar;
  std::map<std::string, CalendarHandle> handles;
  for (const CaseRow& row : ReadCases("holidays/known-days.txt", 3, 200)) {
    if (!handles.contains(row[0])) {
      ASSERT_EQ(calendar.SorCalender_InitFunction(ShippedFile(row[0]), handles[row[0]]), 0)
          << row.where;
    }
    const CivilDate date = row.Date(1);
    std::string name;
    const int result =
        calendar.SorCalender_GetHolidayName(handles[row[0]], date.year, date.month, date.day, name);
    EXPECT_EQ(result == 0 ? name : std::string(), row[2]) << row.where;
  }
}

// Every year of every shipped file evaluates to real dates of that year, each once, with names
// that fit the 100-byte buffer of the calendar library.
TEST(ShippedFiles, EveryYearIsWellFormed) {
  for (const char* fileName : kShippedFiles) {
    CountryFile file;
    CountryFileError error;
    ASSERT_TRUE(LoadCountryFile(ShippedFile(fileName), file, error))
        << fileName << " line " << error.line << ": " << error.message;
    for (int year = 1901; year <= 2099; ++year) {
      int previous = 0;
      for (const NamedDay& named : EvaluateYear(file, year)) {
        const std::chrono::year_month_day date{std::chrono::year{year},
                                               std::chrono::month{unsigned(named.month)},
                                               std::chrono::day{unsigned(named.day)}};
        EXPECT_TRUE(date.ok()) << fileName << " " << year << "/" << named.month << "/" << named.day;
        const int code = named.month * 100 + named.day;
        EXPECT_GT(code, previous) << fileName << " " << year << ": dates out of order or twice";
        previous = code;
        EXPECT_FALSE(named.name.empty()) << fileName << " " << year;
        EXPECT_LE(named.name.size(), kMaxHolidayNameBytes) << fileName << " " << year;
      }
    }
  }
}

// From 1978 England and Wales have eight bank holidays on weekdays every year: substitute days
// make up for those that fall on a weekend.
TEST(ShippedFiles, EnglandHasEightWeekdayBankHolidaysAYear) {
  CountryFile file;
  CountryFileError error;
  ASSERT_TRUE(LoadCountryFile(ShippedFile("holidayUK.ini"), file, error));
  for (int year = 1978; year <= 2099; ++year) {
    int weekdays = 0;
    for (const NamedDay& named : EvaluateYear(file, year)) {
      const std::chrono::weekday weekday{std::chrono::sys_days{std::chrono::year_month_day{
          std::chrono::year{year}, std::chrono::month{unsigned(named.month)},
          std::chrono::day{unsigned(named.day)}}}};
      if (weekday != std::chrono::Saturday && weekday != std::chrono::Sunday) ++weekdays;
    }
    EXPECT_GE(weekdays, 8) << year;
  }
}

}  // namespace
}  // namespace sched
