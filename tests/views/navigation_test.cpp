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

TEST(CalendarArrows, MoveOrStopAtTheLimits) {
  for (const CaseRow& row : ReadCases("views/calendar-arrows.txt", 4, 9)) {
    ViewsFixture f;
    const CivilDate from = row.Date(0), to = row.Date(3);
    f.s.doc.SetShownDate(from);
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

TEST(GridKeysEnter, PageKeysAreSwallowed) {
  for (int key : {kKeyPageUp, kKeyPageDown, kKeyHome, kKeyEnd}) {
    EXPECT_TRUE(CalendarViews::Form_KeyDown(key));
  }
  EXPECT_FALSE(CalendarViews::Form_KeyDown(kKeyF1));
  EXPECT_TRUE(CalendarViews::CSCal4_KeyDown(kKeyLeft));
}

}  // namespace
}  // namespace sched
