#include <gtest/gtest.h>

#include <cstdio>
#include <fstream>
#include <string>

#include "holiday_test_support.h"
#include "holidays/country_calendar.h"

namespace sched {
namespace {

// Every line of the table, "yyyy/mm/dd<TAB>name", against the shipped file through the
// calendar port, as the month view looks days up.
TEST(UsSaturdayDaysOff, MatchTheKnownDays) {
  const std::string table =
      std::string(SCHEDULER_TEST_DATA_DIR) + "/holidays/us-saturday-days-off.txt";
  std::ifstream in(table);
  ASSERT_TRUE(in) << table;
  CountryCalendar calendar;
  CalendarHandle handle = 0;
  ASSERT_EQ(calendar.SorCalender_InitFunction(testing::ShippedFile("holidayUS.ini"), handle), 0);

  int checked = 0;
  std::string line;
  while (std::getline(in, line)) {
    if (line.empty() || line[0] == '#') continue;
    int year = 0, month = 0, day = 0;
    ASSERT_EQ(std::sscanf(line.c_str(), "%4d/%2d/%2d", &year, &month, &day), 3) << line;
    const std::size_t tab = line.find('\t');
    ASSERT_EQ(tab, 10u) << line;
    std::string name;
    const int result = calendar.SorCalender_GetHolidayName(handle, year, month, day, name);
    EXPECT_EQ(result == 0 ? name : std::string(), line.substr(tab + 1)) << line;
    ++checked;
  }
  EXPECT_GT(checked, 0);
  calendar.SorCalender_EndFunction(handle);
}

}  // namespace
}  // namespace sched
