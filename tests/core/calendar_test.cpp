#include "core/calendar.h"

#include <gtest/gtest.h>

#include <cstdint>
#include <optional>

#include "tests/support/case_file.h"

namespace sched {
namespace {

using testing::CaseRow;
using testing::ReadCases;

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

TEST(Calendar, AddMonthsClampsTheDayToTheEndOfTheTargetMonth) {
  for (const CaseRow& row : ReadCases("core/add-months.txt", 3, 15)) {
    EXPECT_EQ(AddMonths(row.Date(0), row.Int(1)), row.Date(2)) << row.where;
  }
}

TEST(Calendar, NthAndLastWeekdayOfKnownMonths) {
  for (const CaseRow& row : ReadCases("core/weekdays-of-month.txt", 5, 20)) {
    const int year = row.Int(0), month = row.Int(1), weekday = row.Int(2);
    const std::optional<CivilDate> date = row[3] == "last"
                                              ? LastWeekdayOfMonth(year, month, weekday)
                                              : NthWeekdayOfMonth(year, month, weekday, row.Int(3));
    ASSERT_EQ(date.has_value(), !row[4].empty()) << row.where;
    if (date) {
      EXPECT_EQ(*date, (CivilDate{year, month, row.Int(4)})) << row.where;
    }
  }
}

TEST(Calendar, WeekdayOnOrAfterAndOnOrBefore) {
  for (const CaseRow& row : ReadCases("core/weekday-on-or-after.txt", 4, 6)) {
    const std::int32_t serial = DaySerial(row.Date(0));
    EXPECT_EQ(FromDaySerial(WeekdayOnOrAfter(serial, row.Int(1))), row.Date(2)) << row.where;
    EXPECT_EQ(FromDaySerial(WeekdayOnOrBefore(serial, row.Int(1))), row.Date(3)) << row.where;
  }
}

// Over the whole range: the nth weekdays of a month are that weekday, a week apart from the
// first (within the month's first seven days) on, and the last of them is LastWeekdayOfMonth.
TEST(Calendar, NthWeekdaysStepByWeeksAndEndAtTheLast) {
  for (int year = kFirstYear; year <= kLastYear; ++year) {
    for (int month = 1; month <= 12; ++month) {
      for (int weekday = 0; weekday < 7; ++weekday) {
        const std::optional<CivilDate> first = NthWeekdayOfMonth(year, month, weekday, 1);
        ASSERT_TRUE(first);
        ASSERT_LE(first->day, 7);
        CivilDate last = *first;
        for (int nth = 1; nth <= 5; ++nth) {
          const std::optional<CivilDate> date = NthWeekdayOfMonth(year, month, weekday, nth);
          const CivilDate expected = AddDays(*first, 7 * (nth - 1));
          if (expected.month != month) {
            ASSERT_FALSE(date) << year << "/" << month << " #" << nth;
            continue;
          }
          ASSERT_EQ(date, expected);
          ASSERT_EQ(WeekdayOf(*date), weekday);
          last = *date;
        }
        ASSERT_EQ(LastWeekdayOfMonth(year, month, weekday), last) << year << "/" << month;
      }
    }
  }
}

}  // namespace
}  // namespace sched
