#include "appointments/repeat_rule.h"

#include <gtest/gtest.h>

#include <cstdint>
#include <optional>
#include <sstream>
#include <string>

#include "tests/support/case_file.h"

namespace sched {
namespace {

using testing::CaseRow;

std::string Shown(int value) {
  return std::to_string(value);
}
std::string Shown(bool value) {
  return value ? "yes" : "no";
}
std::string Shown(const std::string& value) {
  return value;
}

// A field of tests/data/appointments/rule-words.txt: "-" for none; nothing to check for "*".
template <class T>
void ExpectField(const std::optional<T>& value, const CaseRow& row, std::size_t i,
                 const char* what) {
  if (row[i] == "*") return;
  EXPECT_EQ(value ? Shown(*value) : "-", row[i]) << row.where << ": " << what;
}

TEST(RepeatRule, WordsReadBackAsTheKindTheyWereBuiltFor) {
  for (const CaseRow& row : testing::ReadCases("appointments/rule-words.txt", 9, 20)) {
    const std::uint16_t word = row.Hex(0);
    const DecodedRepeatKind d = DecodeRepeatKind(word);
    EXPECT_EQ(d.code, row.Int(1)) << row.where;
    ExpectField(d.option, row, 2, "option");
    ExpectField(d.intervalField, row, 3, "interval");
    ExpectField(d.ordinal, row, 4, "ordinal");
    ExpectField(d.isLast, row, 5, "last");
    const std::optional<WeekdayRule> rule = SplitWeekdayRule(word);
    ExpectField(rule ? std::optional<std::string>(std::to_string(rule->ordinal) + " " +
                                                  std::to_string(rule->weekday))
                     : std::nullopt,
                row, 6, "split");
    if (row[7].empty()) continue;
    RepeatWordParts p;
    std::istringstream(row[8]) >> p.step >> p.weekday >> p.day >> p.month >> p.ordinal;
    EXPECT_EQ(BuildRepeatWord(row.Int(7), p), word) << row.where;
  }
  EXPECT_EQ(BuildRepeatWord(kOptionNone, {}), 0);
  EXPECT_EQ(BuildRepeatWord(7, {}), 0);
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

}  // namespace
}  // namespace sched
