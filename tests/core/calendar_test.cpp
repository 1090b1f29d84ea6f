#include "core/calendar.h"

#include <gtest/gtest.h>

#include "core/calendar.h"

namespace sched {
namespace {

TEST(Calendar, EveryDayOfTheRangeSurvivesTheSerialRoundTrip) {
  int serial = DaySerial({kFirstYear, 1, 1});
  int weekday = WeekdayOf({kFirstYear, 1, 1});
  for (int year = kFirstYear; year <= kLastYear; ++year) {
    for (int month = 1; month <= 12; ++month) {
      for (int day = 1; day <= DaysInMonth(year, month); ++day, ++serial) {
        const CivilDate date{year, month, day};
        ASSERT_EQ(DaySerial(date), serial) << year << "/" << month << "/" << day;
        ASSERT_EQ(FromDaySerial(serial), date);
        ASSERT_EQ(WeekdayOf(date), weekday);
        weekday = (weekday + 1) % 7;
      }
    }
  }
}

TEST(Calendar, KnownWeekdaysAndMonthLengths) {
  struct Case {
    CivilDate date;
    int weekday;
  };
  for (const Case& c : {Case{{1901, 1, 1}, 2}, Case{{1998, 7, 1}, 3}, Case{{2000, 2, 29}, 2},
                        Case{{2026, 11, 21}, 6}, Case{{2099, 12, 31}, 4}}) {
    EXPECT_EQ(WeekdayOf(c.date), c.weekday) << c.date.year;
  }
  EXPECT_EQ(DaysInMonth(1900, 2), 28);
  EXPECT_EQ(DaysInMonth(2000, 2), 29);
  EXPECT_EQ(DaysInMonth(2100, 2), 28);
  EXPECT_EQ(DaysInMonth(2024, 2), 29);
  EXPECT_EQ(DaysInMonth(2023, 4), 30);
  EXPECT_FALSE(IsValidDate(1900, 12, 31));
  EXPECT_FALSE(IsValidDate(2100, 1, 1));
  EXPECT_FALSE(IsValidDate(2023, 2, 29));
  EXPECT_TRUE(IsValidDate(2099, 12, 31));
}

TEST(Calendar, MakeDateRollsPartsOver) {
  EXPECT_EQ(MakeDate(2001, 13, 1), DaySerial({2002, 1, 1}));
  EXPECT_EQ(MakeDate(2001, 2, 30), DaySerial({2001, 3, 2}));
  EXPECT_EQ(MakeDate(2001, 3, 0), DaySerial({2001, 2, 28}));
  EXPECT_EQ(FromDaySerial(MakeDate(1999, 12, 31) + 1), (CivilDate{2000, 1, 1}));
}

TEST(Calendar, DateCodeOfTheLastDayFitsAndOrders) {
  EXPECT_EQ(DateCode(2099, 12, 31), 20991231);
  EXPECT_LT(DateCode(1901, 1, 1), DateCode(1901, 1, 2));
  EXPECT_LT(DateCode(1998, 12, 31), DateCode(1999, 1, 1));
}

}  // namespace
}  // namespace sched
