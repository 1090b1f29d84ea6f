#include "core/calendar.h"

#include <gtest/gtest.h>

#include <cstdint>
#include <optional>

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

TEST(Calendar, AddMonthsClampsTheDayToTheEndOfTheTargetMonth) {
  struct Case {
    CivilDate from;
    int months;
    CivilDate to;
  };
  const Case cases[] = {
      {{2001, 5, 15}, 0, {2001, 5, 15}},
      {{2001, 1, 31}, 1, {2001, 2, 28}},
      {{1904, 1, 31}, 1, {1904, 2, 29}},
      {{2000, 1, 30}, 1, {2000, 2, 29}},
      {{2000, 2, 29}, 12, {2001, 2, 28}},
      {{2092, 2, 29}, 48, {2096, 2, 29}},
      {{2096, 2, 29}, -12, {2095, 2, 28}},
      {{2001, 3, 31}, -1, {2001, 2, 28}},
      {{2001, 8, 31}, 1, {2001, 9, 30}},
      {{2001, 12, 31}, 2, {2002, 2, 28}},
      {{2001, 1, 31}, -2, {2000, 11, 30}},
      {{1901, 2, 28}, -1, {1901, 1, 28}},
      {{2099, 12, 31}, -1, {2099, 11, 30}},
      {{2099, 11, 30}, 1, {2099, 12, 30}},
      {{1901, 1, 31}, (kLastYear - kFirstYear) * 12 + 11, {2099, 12, 31}},
  };
  for (const Case& c : cases) {
    EXPECT_EQ(AddMonths(c.from, c.months), c.to)
        << c.from.year << "/" << c.from.month << "/" << c.from.day << " + " << c.months;
  }
}

TEST(Calendar, NthAndLastWeekdayOfKnownMonths) {
  struct Case {
    int year, month, weekday, nth;
    std::optional<int> day;  // nothing: the month has no such weekday
  };
  const Case cases[] = {
      {1901, 1, 2, 1, 1},   {1901, 1, 2, 5, 29},  {1901, 1, 1, 1, 7},  {1901, 1, 1, 5, {}},
      {2099, 12, 4, 5, 31}, {2099, 12, 5, 5, {}}, {2000, 2, 2, 5, 29}, {1904, 2, 1, 5, 29},
      {2096, 2, 3, 5, 29},  {2001, 2, 4, 4, 22},  {2001, 2, 4, 5, {}}, {2001, 2, 4, 0, {}},
  };
  for (const Case& c : cases) {
    const std::optional<CivilDate> date = NthWeekdayOfMonth(c.year, c.month, c.weekday, c.nth);
    ASSERT_EQ(date.has_value(), c.day.has_value()) << c.year << "/" << c.month << " #" << c.nth;
    if (date) {
      EXPECT_EQ(*date, (CivilDate{c.year, c.month, *c.day})) << c.year << "/" << c.month;
    }
  }
  struct LastCase {
    int year, month, weekday, day;
  };
  const LastCase lastCases[] = {{1901, 1, 2, 29},  {1901, 1, 4, 31},  {2099, 12, 4, 31},
                                {2099, 12, 3, 30}, {2099, 12, 5, 25}, {2000, 2, 2, 29},
                                {1904, 2, 1, 29},  {2001, 2, 3, 28},  {2001, 2, 4, 22}};
  for (const LastCase& c : lastCases) {
    EXPECT_EQ(LastWeekdayOfMonth(c.year, c.month, c.weekday), (CivilDate{c.year, c.month, c.day}))
        << c.year << "/" << c.month << " weekday " << c.weekday;
  }
}

TEST(Calendar, WeekdayOnOrAfterAndOnOrBefore) {
  struct Case {
    CivilDate from;
    int weekday;
    CivilDate after, before;
  };
  // 1901/01/01 was a Tuesday, 2099/12/31 a Thursday, 2000/02/29 a Tuesday.
  const Case cases[] = {
      {{1901, 1, 1}, 2, {1901, 1, 1}, {1901, 1, 1}},
      {{1901, 1, 1}, 1, {1901, 1, 7}, {1900, 12, 31}},
      {{1901, 1, 1}, 3, {1901, 1, 2}, {1900, 12, 26}},
      {{2099, 12, 31}, 5, {2100, 1, 1}, {2099, 12, 25}},
      {{2000, 2, 28}, 2, {2000, 2, 29}, {2000, 2, 22}},
      {{2000, 3, 1}, 2, {2000, 3, 7}, {2000, 2, 29}},
  };
  for (const Case& c : cases) {
    const std::int32_t serial = DaySerial(c.from);
    EXPECT_EQ(FromDaySerial(WeekdayOnOrAfter(serial, c.weekday)), c.after) << c.from.year;
    EXPECT_EQ(FromDaySerial(WeekdayOnOrBefore(serial, c.weekday)), c.before) << c.from.year;
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
