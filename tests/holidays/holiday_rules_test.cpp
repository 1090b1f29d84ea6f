#include "holidays/holiday_rules.h"

#include <gtest/gtest.h>

#include <string>

#include "holiday_test_support.h"

namespace sched {
namespace {

using testing::NamedDays;

struct RuleCase {
  std::string what;
  std::string rules;
  int year;
  std::string expected;
};

void PrintTo(const RuleCase& c, std::ostream* os) {
  *os << c.what;
}

class RuleKinds : public ::testing::TestWithParam<RuleCase> {};

TEST_P(RuleKinds, NameTheExpectedDays) {
  const RuleCase& c = GetParam();
  EXPECT_EQ(NamedDays(c.rules, c.year), c.expected) << c.what << " in " << c.year;
}

INSTANTIATE_TEST_SUITE_P(
    DateKinds, RuleKinds,
    ::testing::Values(
        RuleCase{"fixed", "fixed 07-04 = I", 2023, "07-04 I"},
        RuleCase{"fixed leap day, common year", "fixed 02-29 = L", 2023, ""},
        RuleCase{"fixed leap day, leap year", "fixed 02-29 = L", 2024, "02-29 L"},
        RuleCase{"once, its year", "once 2019-05-01 = E", 2019, "05-01 E"},
        RuleCase{"once, another year", "once 2019-05-01 = E", 2020, ""},
        RuleCase{"third Monday", "nth 3 mon jan = K", 2024, "01-15 K"},
        RuleCase{"fifth Friday present", "nth 5 fri mar = F", 2023, "03-31 F"},
        RuleCase{"fifth Friday missing", "nth 5 fri mar = F", 2025, ""},
        RuleCase{"last Monday", "last mon may = M", 2021, "05-31 M"},
        RuleCase{"last Monday on the 25th", "last mon may = M", 2026, "05-25 M"},
        RuleCase{"Easter offsets", "easter -2 = G\neaster 1 = E\neaster 39 = A", 2024,
                 "03-29 G, 04-01 E, 05-09 A"},
        RuleCase{"Easter on its latest date", "easter 0 = E", 2038, "04-25 E"},
        RuleCase{"equinoxes", "equinox march = V\nequinox september = A", 2024, "03-20 V, 09-22 A"},
        RuleCase{"weekday before, date itself excluded", "before wed 11-23 = B", 2022, "11-16 B"},
        RuleCase{"weekday before", "before wed 11-23 = B", 2023, "11-22 B"},
        RuleCase{"weekday after", "after mon 01-31 = A", 2024, "02-05 A"},
        RuleCase{"weekday before, named by the next year's rule", "before fri 01-03 = X", 2024,
                 "12-27 X"}));

INSTANTIATE_TEST_SUITE_P(
    Spans, RuleKinds,
    ::testing::Values(
        RuleCase{"before first year", "fixed 01-15 from 1949 until 1999 = C", 1948, ""},
        RuleCase{"first year", "fixed 01-15 from 1949 until 1999 = C", 1949, "01-15 C"},
        RuleCase{"last year", "fixed 01-15 from 1949 until 1999 = C", 1999, "01-15 C"},
        RuleCase{"after last year", "fixed 01-15 from 1949 until 1999 = C", 2000, ""},
        RuleCase{"first date within a year",
                 "fixed 02-11 from 1973-04-12 = F\nfixed 04-30 from 1973-04-12 = S", 1973,
                 "04-30 S"},
        RuleCase{"last date within a year", "fixed 12-23 until 1989-06-30 = X", 1989, ""},
        RuleCase{"excepted year", "nth 1 mon may except 1995,2020 = E", 1995, ""},
        RuleCase{"year after an excepted one", "nth 1 mon may except 1995,2020 = E", 1996,
                 "05-06 E"},
        RuleCase{"a holiday moved for one year",
                 "nth 3 mon jul except 2020 = M\nonce 2020-07-23 = M", 2020, "07-23 M"}));

INSTANTIATE_TEST_SUITE_P(
    Observances, RuleKinds,
    ::testing::Values(
        RuleCase{"nearest, Saturday", "fixed 07-04 observe nearest = I | I obs", 2020,
                 "07-03 I obs, 07-04 I"},
        RuleCase{"nearest, Sunday", "fixed 07-04 observe nearest = I | I obs", 2021,
                 "07-04 I, 07-05 I obs"},
        RuleCase{"nearest, weekday", "fixed 07-04 observe nearest = I | I obs", 2019, "07-04 I"},
        RuleCase{"nearest, no second name", "fixed 07-04 observe nearest = I", 2020,
                 "07-03 I, 07-04 I"},
        RuleCase{"nearest, observed in the year before", "fixed 01-01 observe nearest = N | N obs",
                 2021, "01-01 N, 12-31 N obs"},
        RuleCase{"nearest, not observed in the year after",
                 "fixed 01-01 observe nearest = N | N obs", 2022, "01-01 N"},
        RuleCase{"monday, Saturday stays", "fixed 12-26 observe monday = B | B sub", 2020,
                 "12-26 B"},
        RuleCase{"monday, Sunday", "fixed 12-26 observe monday = B | B sub", 2021,
                 "12-26 B, 12-27 B sub"},
        RuleCase{"next weekday, both on the weekend",
                 "fixed 12-25 observe next-weekday = C | C sub\n"
                 "fixed 12-26 observe next-weekday = B | B sub",
                 2021, "12-25 C, 12-26 B, 12-27 C sub, 12-28 B sub"},
        RuleCase{"next weekday skips a holiday",
                 "fixed 12-25 observe next-weekday = C | C sub\n"
                 "fixed 12-26 observe next-weekday = B | B sub",
                 2022, "12-25 C, 12-26 B, 12-27 C sub"},
        RuleCase{"observed day on another holiday joins the names",
                 "fixed 07-03 = X\nfixed 07-04 observe nearest = I | I obs", 2020,
                 "07-03 X/I obs, 07-04 I"}));

INSTANTIATE_TEST_SUITE_P(
    SubstitutesAndBridges, RuleKinds,
    ::testing::Values(
        RuleCase{"next day", "fixed 04-29 = E\nsubstitute next-day = S", 1973, "04-29 E, 04-30 S"},
        RuleCase{"next day already a holiday",
                 "fixed 05-03 = C\nfixed 05-04 = G\nsubstitute next-day = S", 2020,
                 "05-03 C, 05-04 G"},
        RuleCase{"next free day",
                 "fixed 05-03 = C\nfixed 05-04 = G\nfixed 05-05 = K\nsubstitute next-free = S",
                 2020, "05-03 C, 05-04 G, 05-05 K, 05-06 S"},
        RuleCase{"holiday before the substitute span",
                 "fixed 02-11 = F\nsubstitute next-day from 1973-04-12 = S", 1973, "02-11 F"},
        RuleCase{"the first matching substitute rule wins",
                 "fixed 05-03 = C\nfixed 05-04 = G\n"
                 "substitute next-day until 2006 = Old\nsubstitute next-free from 2007 = New",
                 2020, "05-03 C, 05-04 G, 05-05 New"},
        RuleCase{"two rules on one Sunday make one substitute",
                 "fixed 05-03 = C\nfixed 05-03 = D\nsubstitute next-free = S", 2020,
                 "05-03 C/D, 05-04 S"},
        RuleCase{"bridge", "once 2019-04-29 = A\nonce 2019-05-01 = B\nbridge = Z", 2019,
                 "04-29 A, 04-30 Z, 05-01 B"},
        RuleCase{"no bridge on a Sunday", "once 2023-04-29 = A\nonce 2023-05-01 = B\nbridge = Z",
                 2023, "04-29 A, 05-01 B"},
        RuleCase{"no bridge over a substitute day",
                 "fixed 05-03 = C\nfixed 05-05 = K\nsubstitute next-day = S\nbridge = Z", 1987,
                 "05-03 C, 05-04 S, 05-05 K"},
        RuleCase{"no bridge between a holiday and a substitute day",
                 "fixed 05-01 = A\nfixed 05-02 = B\nsubstitute next-day = S\nbridge = Z", 2021,
                 "05-01 A, 05-02 B, 05-03 S"},
        RuleCase{"bridge over the new year", "fixed 12-31 = E\nfixed 01-02 = J\nbridge = Z", 2025,
                 "01-01 Z, 01-02 J, 12-31 E"},
        RuleCase{"bridge before its span",
                 "once 1985-05-03 = A\nonce 1985-05-05 = B\nbridge from 1986 = Z", 1985,
                 "05-03 A, 05-05 B"}));

INSTANTIATE_TEST_SUITE_P(
    SameDate, RuleKinds,
    ::testing::Values(
        RuleCase{"two names joined in file order", "fixed 05-01 = Labour\neaster 39 = Ascension",
                 2008, "05-01 Labour/Ascension"},
        RuleCase{"a name is not repeated", "fixed 05-01 = A\nfixed 05-01 = A", 2008, "05-01 A"},
        RuleCase{"a name that would pass 99 bytes is left out",
                 "fixed 05-01 = " + std::string(60, 'a') +
                     "\nfixed 05-01 = " + std::string(39, 'b') + "\nfixed 05-01 = c",
                 2008, "05-01 " + std::string(60, 'a') + "/c"}));

}  // namespace
}  // namespace sched
