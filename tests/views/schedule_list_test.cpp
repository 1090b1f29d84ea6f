#include <gtest/gtest.h>

#include "tests/support/case_file.h"
#include "tests/views/views_test_support.h"

namespace sched {
namespace {

using testing::CaseRow;
using testing::ReadCases;

TEST(ScheduleList, FillDayIndex) {
  ViewsFixture f;
  ScheduleList list;
  EXPECT_EQ(list.FillDayIndex(f.s.doc.Tables, {2010, 6, 1}, false, 0), 0);
  EXPECT_TRUE(list.Lines.empty());  // no years: nothing touched

  f.Insert(2010, 6, 1, 600, 660, "B");
  f.Insert(2010, 6, 1, -1, -1, "A");
  f.Insert(2010, 6, 1, 700, 720, "C");
  f.s.doc.Tables.SchDatList.At(2).Deleted = kDeleted;
  EXPECT_EQ(list.FillDayIndex(f.s.doc.Tables, {2010, 6, 1}, false, 1), 2);
  EXPECT_EQ(list.Lines, (std::vector<std::string>{"Allday  A", "10:00am-11:00am B", ""}));
  EXPECT_EQ(list.List3, (std::vector<int>{1, 0}));
  EXPECT_EQ(list.Row, 1);
  EXPECT_EQ(list.List3Index, 1);

  list.Lines = {"kept"};
  EXPECT_EQ(list.FillDayIndex(f.s.doc.Tables, {2010, 6, 2}, true, 0), 0);
  EXPECT_EQ(list.Lines, (std::vector<std::string>{"kept"}));
  EXPECT_TRUE(list.List3.empty());
  EXPECT_EQ(list.List3Index, -1);
}

TEST(ScheduleListPlacement, HangsBelowOrStandsAbove) {
  for (const CaseRow& row : ReadCases("views/schedule-list-places.txt", 3, 4)) {
    const double cellTop = row.Int(0);
    const bool flipped = row.YesNo(2);
    ScheduleListPlace p;
    p.formLeft = 1000;
    p.formTop = 500;
    p.tab = {120, 660, 8640, 4920};
    p.tabStripHeight = 360;
    p.cell = {1300, cellTop, 1200, 700};
    p.headHeight = 270;
    p.dialogHeight = 3000;
    p.screenHeight = row.Int(1);
    const DialogPosition pos = PlaceScheduleList(p);
    const double below = 660 + 360 + cellTop + 500 + 270 + 700;
    EXPECT_EQ(pos.flipped, flipped) << row.where;
    EXPECT_DOUBLE_EQ(pos.top, flipped ? below - 3000 - 700 : below) << row.where;
    EXPECT_DOUBLE_EQ(pos.left, 120 + 1300 + 1000) << row.where;
  }
}

TEST(ScheduleList, SeveralRowsBringAWarning) {
  ViewsFixture f;
  ScheduleList list;
  list.List1_Click(0, 0, f.messages);
  EXPECT_TRUE(f.messages.Shown().empty());
  list.List1_Click(0, 2, f.messages);
  ASSERT_EQ(f.messages.Shown().size(), 1u);
  EXPECT_EQ(f.messages.Shown()[0].text, "Cannot modify multiple rows.");
  EXPECT_EQ(f.messages.Shown()[0].title, "Scheduler");
  EXPECT_EQ(f.messages.Shown()[0].icon, MsgIcon::Exclamation);
}

TEST(ScheduleList, FollowsTheSelectionAndHidesOnEscape) {
  ViewsFixture f;
  f.Insert(2010, 6, 1, 540, 600, "One");
  f.Insert(2010, 6, 2, 540, 600, "Two");
  f.ShowMonth(2010, 6);
  EXPECT_EQ(f.views.ComDt_Click().command, ViewCommand::None);
  ASSERT_TRUE(f.views.List().Visible);
  EXPECT_EQ(f.views.List().Lines[0], "9:00am-10:00am One");
  const double firstLeft = f.views.List().Position.left;
  f.views.SelectCell(3);
  EXPECT_EQ(f.views.List().Lines[0], "9:00am-10:00am Two");
  EXPECT_EQ(f.views.List().Caption, "2010/06/02(Wed)");
  EXPECT_GT(f.views.List().Position.left, firstLeft);
  const ViewAction modify = f.views.List().List1_DblClick();
  EXPECT_EQ(modify.command, ViewCommand::ModifySchedule);
  EXPECT_EQ(modify.row, 1);
  EXPECT_FALSE(f.views.List().Popup(false).Paste);
  f.views.List().Form_KeyDown(kKeyEscape);
  EXPECT_FALSE(f.views.List().Visible);
  EXPECT_EQ(f.views.Month().SelectedCell, 3);
  f.views.ComDt_Click();
  f.views.SetCombo1(6);  // a change of month hides it
  EXPECT_FALSE(f.views.List().Visible);
}

}  // namespace
}  // namespace sched
