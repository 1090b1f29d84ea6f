#include <gtest/gtest.h>

#include <cstdint>

#include "core/calendar.h"
#include "holidays/easter.h"
#include "holidays/equinox.h"

namespace sched {
namespace {

TEST(WesternEaster, KnownSundaysIncludingTheExtremes) {
  const struct {
    int year, month, day;
  } cases[] = {{1901, 4, 7},  {1913, 3, 23}, {1943, 4, 25}, {2000, 4, 23},
               {2008, 3, 23}, {2011, 4, 24}, {2019, 4, 21}, {2024, 3, 31},
               {2025, 4, 20}, {2038, 4, 25}, {2285, 3, 22}};
  for (const auto& c : cases) {
    EXPECT_EQ(WesternEaster(c.year), (CivilDate{c.year, c.month, c.day})) << c.year;
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
  const struct {
    int year, march, september;
  } cases[] = {{1900, 21, 23}, {1948, 21, 23}, {1960, 20, 23}, {1979, 21, 24},
               {1980, 20, 23}, {2012, 20, 22}, {2023, 21, 23}, {2024, 20, 22},
               {2025, 20, 23}, {2092, 19, 22}, {2099, 20, 23}};
  for (const auto& c : cases) {
    EXPECT_EQ(MarchEquinoxDay(c.year), c.march) << c.year;
    EXPECT_EQ(SeptemberEquinoxDay(c.year), c.september) << c.year;
  }
}

TEST(Equinox, NothingOutsideTheFormulasRange) {
  EXPECT_FALSE(MarchEquinoxDay(1899));
  EXPECT_FALSE(SeptemberEquinoxDay(2100));
}

}  // namespace
}  // namespace sched
