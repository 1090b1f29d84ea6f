#include <gtest/gtest.h>

#include <map>
#include <string>

#include "tests/support/case_file.h"
#include "tests/views/views_test_support.h"

namespace sched {
namespace {

using testing::CaseRow;
using testing::ReadCases;

CivilDate Cur(const ViewsFixture& f) {
  return {f.s.doc.CurYear, f.s.doc.CurMonth, f.s.doc.CurDay};
}

TEST(MonthArrows, StopSilentlyAtTheLimits) {
  for (const CaseRow& row : ReadCases("views/month-arrows.txt", 6, 7)) {
    const int moved = row.Int(3), shownYear = row.Int(4), shownMonth = row.Int(5);
    ViewsFixture f;
    f.ShowMonth(row.Int(0), row.Int(1));
    f.views.SelectCell(f.views.Month().FirstCell + 4);
    const CivilDate before = Cur(f);
    f.views.Command1_Click(row.Int(2));
    EXPECT_EQ(f.views.ArrowMoved, moved) << row.where;
    EXPECT_EQ(f.views.Month().ShownYear, shownYear) << row.where;
    EXPECT_EQ(f.views.Month().ShownMonth, shownMonth) << row.where;
    EXPECT_EQ(f.views.Combo2Index + kFirstYear, shownYear) << row.where;
    EXPECT_EQ(f.views.Combo1Index + 1, shownMonth) << row.where;
    if (moved == 0) {
      EXPECT_EQ(Cur(f), before) << row.where;
    } else {
      EXPECT_EQ(Cur(f), (CivilDate{shownYear, shownMonth, 1})) << row.where;
      EXPECT_EQ(f.views.Month().SelectedCell, f.views.Month().FirstCell) << row.where;
    }
  }
}

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

TEST(CalendarArrows, MoveOrStopAtTheLimits) {
  for (const CaseRow& row : ReadCases("views/calendar-arrows.txt", 4, 9)) {
    ViewsFixture f;
    const CivilDate from = row.Date(0), to = row.Date(3);
    f.s.doc.CurYear = from.year;
    f.s.doc.CurMonth = from.month;
    f.s.doc.CurDay = from.day;
    f.views.SSTab1_Click(1);
    ASSERT_TRUE(row[1] == "month" || row[1] == "year") << row.where;
    if (row[1] == "month") {
      f.views.ComMM_Click(row.Int(2));
    } else {
      f.views.ComYY_Click(row.Int(2));
    }
    EXPECT_EQ(f.views.Day().CalendarDate, to) << row.where;
    EXPECT_EQ(Cur(f), to) << row.where;
    EXPECT_EQ(f.views.Focus, FocusTarget::CSCal4) << row.where;
  }
}

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

TEST(GridKeys, MoveAndCrossMonths) {
  const std::map<std::string, int> keys = {
      {"up", kKeyUp}, {"down", kKeyDown}, {"left", kKeyLeft}, {"right", kKeyRight}};
  for (const CaseRow& row : ReadCases("views/grid-keys.txt", 6, 13)) {
    ASSERT_TRUE(keys.contains(row[3])) << row.where << ": unknown key";
    const CivilDate date = row.Date(4);
    ViewsFixture f;
    f.ShowMonth(row.Int(0), row.Int(1));
    f.views.SelectCell(row.Int(2));
    EXPECT_TRUE(f.views.Text1_KeyDown(keys.at(row[3])).consumed) << row.where;
    EXPECT_EQ(Cur(f), date) << row.where;
    EXPECT_EQ(f.views.Month().ShownMonth, row.Int(5)) << row.where;
    const int cell = f.views.Month().SelectedCell;
    ASSERT_NE(cell, -1) << row.where;
    EXPECT_EQ(f.views.Month().Cell(cell).date, date) << row.where;
    EXPECT_EQ(f.views.Month().Cell(cell).back, CellBack::Selection) << row.where;
  }
}

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
