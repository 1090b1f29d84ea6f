#include "appointments/repeat_rule.h"

#include <gtest/gtest.h>

#include <cstdint>
#include <optional>

namespace sched {
namespace {

// A rule word as it is built and as it reads back.
struct WordCase {
  const char* name;
  int option;
  RepeatWordParts parts;
  std::uint16_t word;
  int code;
  std::optional<int> ordinal;
  std::optional<bool> isLast;
};

TEST(RepeatRule, WordsAreBuiltAndReadBackByKind) {
  // parts: step, weekday, day, month, ordinal
  const WordCase cases[] = {
      {"every day", kOptionDaily, {0, 0, 1, 1, 1}, 0x0800, kCodeDaily, {}, {}},
      {"every 30 days", kOptionDaily, {29, 0, 1, 1, 1}, 0x0F40, kCodeDaily, {}, {}},
      {"every 2 weeks on Wednesday", kOptionWeekly, {1, 3, 1, 1, 1}, 0x102C, kCodeWeekly, {}, {}},
      {"every 6 weeks on Saturday", kOptionWeekly, {5, 6, 1, 1, 1}, 0x10B8, kCodeWeekly, {}, {}},
      {"monthly on the 31st", kOptionMonthly, {0, 0, 31, 1, 1}, 0x203E, kCodeMonthly, {}, {}},
      {"every 11 months on the 1st",
       kOptionMonthly,
       {10, 0, 1, 1, 1},
       0x2502,
       kCodeMonthly,
       {},
       {}},
      {"yearly on February 29", kOptionYearly, {0, 0, 29, 2, 1}, 0x40BA, kCodeYearly, {}, {}},
      {"every 7 years on December 31",
       kOptionYearly,
       {6, 0, 31, 12, 1},
       0x733E,
       kCodeYearly,
       {},
       {}},
      {"monthly on the last Friday",
       kOptionMonthlyWeekday,
       {0, 5, 1, 1, 7},
       0x207D,
       kCodeMonthlyWeekday,
       7,
       true},
      {"every 3 months on the 2nd Sunday",
       kOptionMonthlyWeekday,
       {2, 0, 1, 1, 2},
       0x2150,
       kCodeMonthlyWeekday,
       2,
       false},
      {"yearly on the 1st Monday of January",
       kOptionYearlyWeekday,
       {0, 1, 1, 1, 1},
       0x4449,
       kCodeYearlyWeekday,
       1,
       false},
      {"every 7 years on the last Saturday of December",
       kOptionYearlyWeekday,
       {6, 6, 1, 12, 7},
       0x773E,
       kCodeYearlyWeekday,
       7,
       true},
  };
  for (const WordCase& c : cases) {
    EXPECT_EQ(BuildRepeatWord(c.option, c.parts), c.word) << c.name;
    const DecodedRepeatKind d = DecodeRepeatKind(c.word);
    EXPECT_EQ(d.code, c.code) << c.name;
    EXPECT_EQ(d.option, c.option) << c.name;
    EXPECT_EQ(d.intervalField, c.parts.step) << c.name;
    EXPECT_EQ(d.ordinal, c.ordinal) << c.name;
    EXPECT_EQ(d.isLast, c.isLast) << c.name;
  }
  EXPECT_EQ(BuildRepeatWord(kOptionNone, {}), 0);
  EXPECT_EQ(BuildRepeatWord(7, {}), 0);
}

TEST(RepeatRule, TheYearBitIsReadBeforeTheMonthBitBeforeTheWeekBit) {
  const struct {
    std::uint16_t word;
    int code;
    std::optional<int> option;
    std::optional<int> intervalField;
  } cases[] = {
      {0x0000, kCodeNone, kOptionNone, {}},
      {0x8000, kCodeOverDays, {}, {}},
      {0x0800, kCodeDaily, kOptionDaily, 0},
      {0x0001, kCodeDaily, kOptionDaily, 0},  // no mark at all reads as daily
      {0x8001, kCodeDaily, kOptionDaily, 0},
      {0x7000, kCodeYearly, kOptionYearly, 6},  // the month and week bits lie in the interval
      {0x6040, kCodeYearly, kOptionYearly, 4},  // the month's weekday bit is not the year's
      {0x3000, kCodeMonthly, kOptionMonthly, 0},
      {0x2400, kCodeMonthly, kOptionMonthly, 0x400 / 128},  // the year's weekday bit neither
      {0x3040, kCodeMonthlyWeekday, kOptionMonthlyWeekday, 0},
      {0x1040, kCodeWeekly, kOptionWeekly, 0x40 / 32},
      {0xC400, kCodeYearlyWeekday, kOptionYearlyWeekday, 0},
  };
  for (const auto& c : cases) {
    const DecodedRepeatKind d = DecodeRepeatKind(c.word);
    EXPECT_EQ(d.code, c.code) << std::hex << c.word;
    EXPECT_EQ(d.option, c.option) << std::hex << c.word;
    EXPECT_EQ(d.intervalField, c.intervalField) << std::hex << c.word;
  }
}

TEST(RepeatRule, TheWorkingValuesTakeWhatTheWordHoldsAndKeepTheRest) {
  RepeatWork work;
  work.RepeatStep = 4;
  work.RepeatOption = 3;
  work.Decode(kOverDaysWord);
  EXPECT_EQ(work.RepeatCode, kCodeOverDays);
  EXPECT_EQ(work.RepeatStep, 4);
  EXPECT_EQ(work.RepeatOption, 3);
  work.Decode(0x207D);
  EXPECT_EQ(work.RepeatCode, kCodeMonthlyWeekday);
  EXPECT_EQ(work.RepeatOption, kOptionMonthlyWeekday);
  EXPECT_EQ(work.RepeatStep, 0);
  EXPECT_EQ(work.RepeatOrdinal, 7);
  EXPECT_EQ(work.RepeatIsLast, -1);
  work.Decode(0x102C);
  EXPECT_EQ(work.RepeatStep, 1);
  EXPECT_EQ(work.RepeatOrdinal, 7);  // a weekly word holds no ordinal
}

TEST(RepeatRule, OnlyRulesByWeekdaySplitIntoOrdinalAndWeekday) {
  const struct {
    std::uint16_t word;
    std::optional<int> ordinal;
    std::optional<int> weekday;
  } cases[] = {
      {0x207D, 7, 5},   {0x4449, 1, 1},   {0x773E, 7, 6},   {0x2150, 2, 0},   {0x102C, {}, {}},
      {0x40BA, {}, {}}, {0x203E, {}, {}}, {0x0800, {}, {}}, {0x8000, {}, {}}, {0x0000, {}, {}},
  };
  for (const auto& c : cases) {
    const std::optional<WeekdayRule> rule = SplitWeekdayRule(c.word);
    ASSERT_EQ(rule.has_value(), c.ordinal.has_value()) << std::hex << c.word;
    if (!rule) continue;
    EXPECT_EQ(rule->ordinal, c.ordinal) << std::hex << c.word;
    EXPECT_EQ(rule->weekday, c.weekday) << std::hex << c.word;
  }
}

}  // namespace
}  // namespace sched
