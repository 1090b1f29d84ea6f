#include "appointments/repeat_caption.h"

#include <gtest/gtest.h>

#include "tests/support/case_file.h"

namespace sched {
namespace {

TEST(RepeatCaption, SentencesOfEveryOption) {
  for (const testing::CaseRow& row :
       testing::ReadCases("appointments/repeat-sentences.txt", 8, 11)) {
    const RepeatSentenceParts parts{row[1], row[2], row[3], row.Int(4), row.Int(5), row.Int(6)};
    EXPECT_EQ(BuildRepeatCaption(row.Int(0), parts), testing::Unescaped(row[7])) << row.where;
  }
  const RepeatSentenceParts parts{"3", "S", "E", 4, 5, 11};
  EXPECT_EQ(BuildRepeatCaption(-1, parts), std::nullopt);
  EXPECT_EQ(BuildRepeatCaption(7, parts), std::nullopt);
  EXPECT_EQ(MonthNameOfDayCount(0), "December");
  EXPECT_EQ(MonthNameOfDayCount(33), "February");
}

}  // namespace
}  // namespace sched
