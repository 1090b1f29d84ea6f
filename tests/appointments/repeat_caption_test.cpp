#include "appointments/repeat_caption.h"

#include <gtest/gtest.h>

#include "platform/fake/fake_date_formatter.h"

namespace sched {
namespace {

TEST(RepeatCaption, SentencesOfEveryOption) {
  const RepeatSentenceParts parts{"3", "2026/11/20(Fri)", "2027/05/21(Fri)", 4, 5, 11};
  const struct {
    int option;
    const char* sentence;
  } cases[] = {
      {0, " No Repeat "},
      {1, " The item repeats every 3 day(s)\rfrom 2026/11/20(Fri) to 2027/05/21(Fri)."},
      {2, " The item repeats every 3 week(s)\rfrom 2026/11/20(Fri) to 2027/05/21(Fri)."},
      {3, " The item repeats every 3 month(s)\rfrom 2026/11/20(Fri) to 2027/05/21(Fri)."},
      {4, " The item repeats every 3 year(s)\rfrom 2026/11/20(Fri) to 2027/05/21(Fri)."},
      {5,
       " The item repeats on Last Friday every 3 month(s)\r"
       "from 2026/11/20(Fri) to 2027/05/21(Fri)."},
      // The yearly rule by weekday says "month(s)", and names November "January".
      {6,
       " The item repeats on Last Friday in January every 3 month(s)\r"
       "from 2026/11/20(Fri) to 2027/05/21(Fri)."},
  };
  for (const auto& c : cases) {
    EXPECT_EQ(BuildRepeatCaption(c.option, parts), c.sentence) << c.option;
  }
  EXPECT_EQ(BuildRepeatCaption(-1, parts), std::nullopt);
  EXPECT_EQ(BuildRepeatCaption(7, parts), std::nullopt);
}

TEST(RepeatCaption, MonthNumbersReadAsDayCounts) {
  const struct {
    int month;
    const char* name;
  } cases[] = {{1, "December"}, {2, "January"}, {7, "January"}, {12, "January"}};
  for (const auto& c : cases) {
    EXPECT_EQ(MonthNameOfDayCount(c.month), c.name) << c.month;
    const RepeatSentenceParts parts{"1", "S", "E", 0, 0, c.month};
    EXPECT_EQ(BuildRepeatCaption(6, parts), std::string(" The item repeats on 1st Sunday in ") +
                                                c.name + " every 1 month(s)\rfrom S to E.");
  }
  EXPECT_EQ(MonthNameOfDayCount(0), "December");
  EXPECT_EQ(MonthNameOfDayCount(33), "February");
}

TEST(RepeatCaption, DatesInShortFormWithTheWeekday) {
  const FakeDateFormatter dates;
  EXPECT_EQ(RepeatDateText(dates, {1901, 1, 1}), "1901/01/01(Tue)");
  EXPECT_EQ(RepeatDateText(dates, {2024, 2, 29}), "2024/02/29(Thu)");
  EXPECT_EQ(RepeatDateText(dates, {2099, 12, 31}), "2099/12/31(Thu)");
}

}  // namespace
}  // namespace sched
