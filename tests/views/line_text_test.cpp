#include "views/line_text.h"

#include <gtest/gtest.h>

#include "tests/views/views_test_support.h"

namespace sched {
namespace {

struct TimeCase {
  int minutes;
  const char* shortText;
  const char* paddedText;
};

class TimeTexts : public ::testing::TestWithParam<TimeCase> {};

TEST_P(TimeTexts, TwelveHourClock) {
  EXPECT_EQ(ShortTimeText(GetParam().minutes), GetParam().shortText);
  EXPECT_EQ(PaddedTimeText(GetParam().minutes), GetParam().paddedText);
}

INSTANTIATE_TEST_SUITE_P(
    Clock, TimeTexts,
    ::testing::Values(TimeCase{0, "12:00am", "12:00am"}, TimeCase{5, "12:05am", "12:05am"},
                      TimeCase{545, "9:05am", "09:05am"}, TimeCase{719, "11:59am", "11:59am"},
                      TimeCase{720, "12:00pm", "12:00pm"}, TimeCase{780, "1:00pm", "01:00pm"},
                      TimeCase{1439, "11:59pm", "11:59pm"}, TimeCase{1440, "12:00am", "12:00am"}));

TEST(LineText, MonthDayPadsEachNumber) {
  EXPECT_EQ(MonthDayText(5, 3), " 5/ 3");
  EXPECT_EQ(MonthDayText(12, 31), "12/31");
  EXPECT_EQ(MonthDayText(1, 10), " 1/10");
}

TEST(LineText, ThreeKindsOfRowInEachList) {
  TestStore s;
  s.store.InsertRecord(MakeItem(2010, 5, 2, 540, 630, "Meet"));
  s.store.InsertRecord(MakeItem(2010, 5, 2, -1, -1, "Fair"));
  InsertSpan(s.store, {2010, 5, 1}, 3, "Trip", 42);
  const SchDatCTL& t = s.doc.Tables;
  // Rows: 0 Meet, 1 Fair, 2..4 the trip.
  EXPECT_EQ(MonthLineText(t, 0), "9:00am Meet");
  EXPECT_EQ(MonthLineText(t, 1), "Allday Fair");
  EXPECT_EQ(MonthLineText(t, 3), " 5/ 3 Trip");
  EXPECT_EQ(DayLineText(t, 0), "09:00am - 10:30am  Meet");
  EXPECT_EQ(DayLineText(t, 1), "Allday    Fair");
  EXPECT_EQ(DayLineText(t, 3), " 5/ 1 -  5/ 3  Trip");
  EXPECT_EQ(ListLineText(t, 0), "9:00am-10:30am Meet");
  EXPECT_EQ(ListLineText(t, 1), "Allday  Fair");
  EXPECT_EQ(ListLineText(t, 3), " 5/ 1- 5/ 3 Trip");
}

TEST(LineText, MultiDayDatesFollowTheLiveRows) {
  TestStore s;
  InsertSpan(s.store, {2010, 12, 30}, 4, "Turn", 9);  // to 2 January 2011
  const SchDatCTL& t = s.doc.Tables;
  EXPECT_EQ(DayLineText(t, 0), "12/30 -  1/ 2  Turn");
  s.doc.Tables.SchDatList.At(3).Deleted = kDeleted;  // the last day's row
  // The end date comes from the row with the highest SubNo left, which still carries the end.
  EXPECT_EQ(MonthLineText(t, 0), " 1/ 2 Turn");
  s.doc.Tables.SchDatList.At(0).Deleted = kDeleted;
  EXPECT_EQ(DayLineText(t, 1), "12/31 -  1/ 2  Turn");
}

}  // namespace
}  // namespace sched
