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
  f.s.doc.Tables.SchDatList.Edit(2).Deleted = kDeleted;
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

}  // namespace
}  // namespace sched
