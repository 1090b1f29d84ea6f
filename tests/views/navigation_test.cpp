#include <gtest/gtest.h>

#include "tests/views/views_test_support.h"

namespace sched {
namespace {

CivilDate Cur(const ViewsFixture& f) {
  return {f.s.doc.CurYear, f.s.doc.CurMonth, f.s.doc.CurDay};
}

struct ArrowCase {
  int year;
  int month;
  int index;
  int moved;  // ArrowMoved afterwards
  int shownYear;
  int shownMonth;
};

class MonthArrows : public ::testing::TestWithParam<ArrowCase> {};

TEST_P(MonthArrows, StopSilentlyAtTheLimits) {
  const ArrowCase& c = GetParam();
  ViewsFixture f;
  f.ShowMonth(c.year, c.month);
  f.views.SelectCell(f.views.Month().FirstCell + 4);
  const CivilDate before = Cur(f);
  f.views.Command1_Click(c.index);
  EXPECT_EQ(f.views.ArrowMoved, c.moved);
  EXPECT_EQ(f.views.Month().ShownYear, c.shownYear);
  EXPECT_EQ(f.views.Month().ShownMonth, c.shownMonth);
  EXPECT_EQ(f.views.Combo2Index + kFirstYear, c.shownYear);
  EXPECT_EQ(f.views.Combo1Index + 1, c.shownMonth);
  if (c.moved == 0) {
    EXPECT_EQ(Cur(f), before);
  } else {
    EXPECT_EQ(Cur(f), (CivilDate{c.shownYear, c.shownMonth, 1}));
    EXPECT_EQ(f.views.Month().SelectedCell, f.views.Month().FirstCell);
  }
}

INSTANTIATE_TEST_SUITE_P(
    Limits, MonthArrows,
    ::testing::Values(ArrowCase{2099, 12, 1, 0, 2099, 12}, ArrowCase{1901, 1, 0, 0, 1901, 1},
                      ArrowCase{2099, 12, 0, -1, 2099, 11}, ArrowCase{1901, 1, 1, -1, 1901, 2},
                      ArrowCase{2000, 1, 0, -1, 1999, 12}, ArrowCase{1999, 12, 1, -1, 2000, 1},
                      ArrowCase{2000, 2, 1, -1, 2000, 3}));

TEST(Navigation, ComboOnTheShownMonthChangesNothing) {
  ViewsFixture f;
  f.ShowMonth(2010, 6);
  f.views.SelectCell(16);
  f.views.Month().Cell(20).dayText = "untouched";
  f.views.SetCombo1(5);
  EXPECT_EQ(f.s.doc.CurDay, 15);
  EXPECT_EQ(f.views.Month().Cell(20).dayText, "untouched");
  f.views.SetCombo1(6);  // July
  EXPECT_EQ(Cur(f), (CivilDate{2010, 7, 1}));
  EXPECT_EQ(f.views.Month().SelectedCell, f.views.Month().FirstCell);
  EXPECT_EQ(f.views.DateLabel, "2010/07/01(Thu)");
}

TEST(Navigation, CombosDoNotReactWhileViewsAreNotReady) {
  ViewsFixture f;
  f.ShowMonth(2010, 6);
  f.views.ViewsReady = -1;
  f.views.SetCombo2(50);
  EXPECT_EQ(f.views.Month().ShownYear, 2010);
  EXPECT_EQ(f.s.doc.CurYear, 2010);
}

struct CalendarArrowCase {
  CivilDate from;
  bool monthArrow;  // ComMM, else ComYY
  int index;
  CivilDate to;
};

class CalendarArrows : public ::testing::TestWithParam<CalendarArrowCase> {};

TEST_P(CalendarArrows, MoveOrStopAtTheLimits) {
  const CalendarArrowCase& c = GetParam();
  ViewsFixture f;
  f.s.doc.CurYear = c.from.year;
  f.s.doc.CurMonth = c.from.month;
  f.s.doc.CurDay = c.from.day;
  f.views.SSTab1_Click(1);
  if (c.monthArrow) {
    f.views.ComMM_Click(c.index);
  } else {
    f.views.ComYY_Click(c.index);
  }
  EXPECT_EQ(f.views.Day().CalendarDate, c.to);
  EXPECT_EQ(Cur(f), c.to);
  EXPECT_EQ(f.views.Focus, FocusTarget::CSCal4);
}

INSTANTIATE_TEST_SUITE_P(
    DayTab, CalendarArrows,
    ::testing::Values(CalendarArrowCase{{1901, 6, 10}, false, 0, {1901, 6, 10}},
                      CalendarArrowCase{{2099, 1, 10}, false, 1, {2099, 1, 10}},
                      CalendarArrowCase{{1901, 2, 10}, true, 0, {1901, 1, 10}},
                      CalendarArrowCase{{1901, 1, 10}, true, 0, {1901, 1, 10}},
                      CalendarArrowCase{{2099, 12, 10}, true, 1, {2099, 12, 10}},
                      CalendarArrowCase{{2000, 1, 31}, true, 1, {2000, 2, 29}},
                      CalendarArrowCase{{2001, 1, 31}, true, 1, {2001, 2, 28}},
                      CalendarArrowCase{{2000, 2, 29}, false, 1, {2001, 2, 28}},
                      CalendarArrowCase{{2000, 3, 31}, true, 0, {2000, 2, 29}}));

TEST(Navigation, BackFromTheDayTabShowsTheMovedMonthWithItsDay) {
  ViewsFixture f;
  f.ShowMonth(2010, 6);
  f.views.SSTab1_Click(1);
  f.views.ComMM_Click(1);
  f.views.CSCal4_Change({2010, 7, 20});
  f.views.SSTab1_Click(0);
  EXPECT_EQ(f.views.Month().ShownMonth, 7);
  EXPECT_EQ(Cur(f), (CivilDate{2010, 7, 20}));
  EXPECT_EQ(f.views.Month().SelectedCell, 23);  // 1 July 2010 is a Thursday
  EXPECT_EQ(f.views.Combo1Index, 6);
  EXPECT_EQ(f.views.BackFromDay, 0);
}

TEST(Navigation, BackFromTheDayTabInTheSameMonthDoesNotRefill) {
  ViewsFixture f;
  f.ShowMonth(2010, 6);
  f.views.SSTab1_Click(1);
  f.views.CSCal4_Change({2010, 6, 9});
  f.views.Month().Cell(30).dayText = "untouched";
  f.views.SSTab1_Click(0);
  EXPECT_EQ(f.views.Month().Cell(30).dayText, "untouched");
  EXPECT_EQ(f.views.Month().SelectedCell, 10);
  EXPECT_EQ(f.views.Month().Cell(2).back, CellBack::Window);
}

TEST(Navigation, GoTodayOnEitherTab) {
  ViewsFixture f;
  f.ShowMonth(1950, 3);
  f.views.GoToday();  // the clock says 2010/06/15
  EXPECT_EQ(f.views.Month().ShownYear, 2010);
  EXPECT_EQ(f.views.Month().ShownMonth, 6);
  EXPECT_EQ(f.views.Month().SelectedCell, 16);
  EXPECT_EQ(f.views.Combo2Index, 109);
  EXPECT_EQ(f.views.DateLabel, "2010/06/15(Tue)");

  f.views.SSTab1_Click(1);
  f.views.CSCal4_Change({2011, 1, 1});
  f.views.GoToday();
  EXPECT_EQ(f.views.Day().CalendarDate, (CivilDate{2010, 6, 15}));
  EXPECT_EQ(f.views.Focus, FocusTarget::CSCal4);
}

struct KeyCase {
  int year;
  int month;
  int startCell;
  int key;
  CivilDate date;  // the date selected afterwards
  int shownMonth;
};

class GridKeys : public ::testing::TestWithParam<KeyCase> {};

TEST_P(GridKeys, MoveAndCrossMonths) {
  const KeyCase& c = GetParam();
  ViewsFixture f;
  f.ShowMonth(c.year, c.month);
  f.views.SelectCell(c.startCell);
  EXPECT_TRUE(f.views.Text1_KeyDown(c.key).consumed);
  EXPECT_EQ(Cur(f), c.date);
  EXPECT_EQ(f.views.Month().ShownMonth, c.shownMonth);
  const int cell = f.views.Month().SelectedCell;
  ASSERT_NE(cell, -1);
  EXPECT_EQ(f.views.Month().Cell(cell).date, c.date);
  EXPECT_EQ(f.views.Month().Cell(cell).back, CellBack::Selection);
}

// June 2010 starts on Tuesday: cell 0 is 30 May, cell 41 is 10 July.
INSTANTIATE_TEST_SUITE_P(Keys, GridKeys,
                         ::testing::Values(KeyCase{2010, 6, 16, kKeyUp, {2010, 6, 8}, 6},
                                           KeyCase{2010, 6, 16, kKeyDown, {2010, 6, 22}, 6},
                                           KeyCase{2010, 6, 16, kKeyLeft, {2010, 6, 14}, 6},
                                           KeyCase{2010, 6, 16, kKeyRight, {2010, 6, 16}, 6},
                                           KeyCase{2010, 6, 3, kKeyUp, {2010, 5, 26}, 5},
                                           KeyCase{2010, 6, 0, kKeyUp, {2010, 5, 23}, 5},
                                           KeyCase{2010, 6, 36, kKeyDown, {2010, 7, 12}, 7},
                                           KeyCase{2010, 6, 0, kKeyLeft, {2010, 5, 29}, 5},
                                           KeyCase{2010, 6, 41, kKeyRight, {2010, 7, 11}, 7},
                                           KeyCase{2010, 12, 40, kKeyDown, {2011, 1, 14}, 1},
                                           KeyCase{1901, 1, 2, kKeyUp, {1901, 1, 1}, 1},
                                           KeyCase{2099, 12, 32, kKeyDown, {2099, 12, 31}, 12},
                                           KeyCase{2099, 12, 32, kKeyRight, {2099, 12, 31}, 12}));

TEST(GridKeysEnter, ShowsTheListOnlyForADayWithItems) {
  ViewsFixture f;
  f.Insert(2010, 6, 2, 540, 600, "A");
  f.ShowMonth(2010, 6);
  EXPECT_TRUE(f.views.Text1_KeyDown(kKeyEnter).consumed);
  EXPECT_FALSE(f.views.List().Visible);
  f.views.SelectCell(3);
  f.views.Text1_KeyDown(kKeyEnter);
  EXPECT_TRUE(f.views.List().Visible);
  EXPECT_EQ(f.views.List().Caption, "2010/06/02(Wed)");
  EXPECT_EQ(f.views.Text1_KeyDown(kKeyEnter).action.command, ViewCommand::FocusScheduleList);
  EXPECT_FALSE(f.views.Text1_KeyDown('A').consumed);
}

TEST(GridKeysEnter, PageKeysAreSwallowed) {
  for (int key : {kKeyPageUp, kKeyPageDown, kKeyHome, kKeyEnd}) {
    EXPECT_TRUE(CalendarViews::Form_KeyDown(key));
  }
  EXPECT_FALSE(CalendarViews::Form_KeyDown(kKeyF1));
  EXPECT_TRUE(CalendarViews::CSCal4_KeyDown(kKeyLeft));
}

}  // namespace
}  // namespace sched
