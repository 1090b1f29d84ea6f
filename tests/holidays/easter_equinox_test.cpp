#include <gtest/gtest.h>

#include <cstdint>

#include "core/calendar.h"
#include "holidays/easter.h"
#include "holidays/equinox.h"
#include "tests/support/case_file.h"

namespace sched {
namespace {

using testing::CaseRow;
using testing::ReadCases;

TEST(WesternEaster, KnownSundaysIncludingTheExtremes) {
  for (const CaseRow& row : ReadCases("holidays/easter-sundays.txt", 1, 10)) {
    EXPECT_EQ(WesternEaster(row.Date(0).year), row.Date(0)) << row.where;
  }
}

TEST(WesternEaster, AlwaysASundayBetweenMarch22AndApril25) {
  for (int year = 1900; year <= 2100; ++year) {
    const CivilDate easter = WesternEaster(year);
    EXPECT_EQ(WeekdayOf(easter), 0) << year;
    const std::int32_t code = DateCode(easter.year, easter.month, easter.day);
    EXPECT_GE(code, DateCode(year, 3, 22)) << year;
    EXPECT_LE(code, DateCode(year, 4, 25)) << year;
  }
}

TEST(Equinox, JapaneseEquinoxDays) {
  for (const CaseRow& row : ReadCases("holidays/equinox-days.txt", 3, 10)) {
    EXPECT_EQ(MarchEquinoxDay(row.Int(0)), row.Int(1)) << row.where;
    EXPECT_EQ(SeptemberEquinoxDay(row.Int(0)), row.Int(2)) << row.where;
  }
}

TEST(Equinox, NothingOutsideTheFormulasRange) {
  EXPECT_FALSE(MarchEquinoxDay(1899));
  EXPECT_FALSE(SeptemberEquinoxDay(2100));
}

}  // namespace
}  // namespace sched
