#include "appointments/week_ordinal.h"

#include <gtest/gtest.h>

#include "appointments/repeat_rule.h"
#include "core/calendar.h"

namespace sched {
namespace {

TEST(WeekOrdinal, PositionsAtTheEdgesOfMonths) {
  const struct {
    CivilDate date;
    int N;
    int W;
    bool isLast;
  } cases[] = {
      {{1901, 1, 1}, 1, 2, false},   // the first day of the calendar, a Tuesday
      {{2026, 1, 30}, 5, 5, true},   // a fifth Friday
      {{2026, 1, 23}, 4, 5, false},  // a fourth that is not the last
      {{2027, 2, 26}, 4, 5, true},   // a fourth that is the last
      {{2015, 2, 28}, 4, 6, true},   // a February of exactly four weeks
      {{2015, 2, 1}, 1, 0, false},   {{2024, 2, 29}, 5, 4, true},  // a leap day, fifth Thursday
      {{2023, 2, 28}, 4, 2, true},   {{2026, 11, 21}, 3, 6, false},
      {{2099, 12, 31}, 5, 4, true},  // the last day of the calendar
      {{2099, 12, 24}, 4, 4, false},
  };
  for (const auto& c : cases) {
    const WeekPosition p = Sor_CulcNWfromYMD(c.date.year, c.date.month, c.date.day);
    const std::string at = std::to_string(DateCode(c.date.year, c.date.month, c.date.day));
    EXPECT_EQ(p.N, c.N) << at;
    EXPECT_EQ(p.W, c.W) << at;
    EXPECT_EQ(p.isLast, c.isLast) << at;
  }
}

TEST(WeekOrdinal, DaysOfOrdinalWeekdays) {
  const struct {
    int year, month, N, W, day;
  } cases[] = {
      {2026, 11, 7, 5, 27},  // the last Friday
      {2026, 11, 1, 0, 1},  {2026, 11, 1, 6, 7},  {2026, 11, 4, 1, 23},
      {2024, 2, 7, 4, 29},  // the last Thursday of a leap February
      {2023, 2, 7, 4, 23},  {2015, 2, 7, 0, 22},  {2015, 2, 4, 6, 28},
      {1901, 1, 1, 2, 1},   {2099, 12, 7, 4, 31}, {2099, 12, 7, 5, 25},
  };
  for (const auto& c : cases) {
    EXPECT_EQ(Sor_CulcDDfromYMNW(c.year, c.month, c.N, c.W), c.day)
        << c.year << "/" << c.month << " N " << c.N << " W " << c.W;
  }
}

// Every day of the calendar is found again from its position: by its ordinal up to the
// fourth, and as the last when no later such weekday follows.
TEST(WeekOrdinal, EveryDayIsFoundAgainFromItsPosition) {
  for (int year = kFirstYear; year <= kLastYear; ++year) {
    for (int month = 1; month <= 12; ++month) {
      for (int day = 1; day <= DaysInMonth(year, month); ++day) {
        const WeekPosition p = Sor_CulcNWfromYMD(year, month, day);
        ASSERT_EQ(p.W, WeekdayOf({year, month, day}));
        if (p.N <= 4) {
          ASSERT_EQ(Sor_CulcDDfromYMNW(year, month, p.N, p.W), day);
        }
        ASSERT_EQ(Sor_CulcDDfromYMNW(year, month, kLastOrdinal, p.W) == day, p.isLast)
            << year << "/" << month << "/" << day;
      }
    }
  }
}

}  // namespace
}  // namespace sched
