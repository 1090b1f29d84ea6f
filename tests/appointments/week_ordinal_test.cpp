#include "appointments/week_ordinal.h"

#include <gtest/gtest.h>

#include "appointments/repeat_rule.h"
#include "core/calendar.h"
#include "tests/support/case_file.h"

namespace sched {
namespace {

TEST(WeekOrdinal, KnownPositions) {
  for (const testing::CaseRow& row : testing::ReadCases("appointments/week-positions.txt", 4, 15)) {
    const CivilDate d = row.Date(0);
    const WeekPosition p = Sor_CulcNWfromYMD(d.year, d.month, d.day);
    EXPECT_EQ(p.N, row.Int(1)) << row.where;
    EXPECT_EQ(p.W, row.Int(2)) << row.where;
    EXPECT_EQ(p.isLast, row.YesNo(3)) << row.where;
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
