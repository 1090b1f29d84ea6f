#include "views/line_text.h"

#include <gtest/gtest.h>

#include "tests/support/case_file.h"
#include "tests/views/views_test_support.h"

namespace sched {
namespace {

using testing::CaseRow;
using testing::ReadCases;

TEST(TimeTexts, TwelveHourClock) {
  for (const CaseRow& row : ReadCases("views/time-texts.txt", 3, 8)) {
    EXPECT_EQ(ShortTimeText(row.Int(0)), row[1]) << row.where;
    EXPECT_EQ(PaddedTimeText(row.Int(0)), row[2]) << row.where;
  }
}

TEST(LineText, MultiDayDatesFollowTheLiveRows) {
  TestStore s;
  InsertSpan(s.store, {2010, 12, 30}, 4, "Turn", 9);  // to 2 January 2011
  const SchDatCTL& t = s.doc.Tables;
  EXPECT_EQ(DayLineText(t, 0), "12/30 -  1/ 2  Turn");
  EXPECT_EQ(ListLineText(t, 0), "12/30- 1/ 2 Turn");
  s.doc.Tables.SchDatList.Edit(3).Deleted = kDeleted;  // the last day's row
  // The end date comes from the row with the highest SubNo left, which still carries the end.
  EXPECT_EQ(MonthLineText(t, 0), " 1/ 2 Turn");
  s.doc.Tables.SchDatList.Edit(0).Deleted = kDeleted;
  EXPECT_EQ(DayLineText(t, 1), "12/31 -  1/ 2  Turn");
}

}  // namespace
}  // namespace sched
