#include <gtest/gtest.h>

#include "tests/views/views_test_support.h"

namespace sched {
namespace {

using Paint = TimeBar::Paint;

struct DayFixture : ViewsFixture {
  DayFixture() {
    views.Day().Pict.SetScale(1440, 20);  // a pixel a minute
    s.doc.CurYear = 2010;
    s.doc.CurMonth = 6;
    s.doc.CurDay = 15;
  }
  void ToDayTab() { views.SSTab1_Click(1); }
  DayView& Day() { return views.Day(); }
};

TEST(DayView, ListLinesRowsAndMarks) {
  DayFixture f;
  f.Insert(2010, 6, 15, 600, 660, "Late");
  f.Insert(2010, 6, 15, -1, -1, "Fair");
  f.Insert(2010, 6, 3, 540, 600, "Other day");
  f.Insert(2010, 6, 20, 540, 600, "Gone");
  f.s.doc.Tables.SchDatList.At(3).Deleted = kDeleted;
  f.ToDayTab();
  EXPECT_EQ(f.Day().List1,
            (std::vector<std::string>{"Allday    Fair", "10:00am - 11:00am  Late", ""}));
  EXPECT_EQ(f.Day().List2, (std::vector<int>{1, 0}));
  EXPECT_EQ(f.Day().List1Row, 0);
  EXPECT_EQ(f.Day().NoTimeCount, 1);
  EXPECT_TRUE(f.Day().Marks[2]);
  EXPECT_TRUE(f.Day().Marks[14]);
  EXPECT_FALSE(f.Day().Marks[19]);  // only a deleted row
  EXPECT_TRUE(f.views.Menus().DelSchDat);
  EXPECT_TRUE(f.views.Menus().UpdSchDat);
  EXPECT_TRUE(f.views.Menus().ToolbarDelete);
}

TEST(DayView, DayWithoutRowsInAMonthWithRows) {
  DayFixture f;
  f.Insert(2010, 6, 3, 540, 600, "Other day");
  f.ToDayTab();
  EXPECT_TRUE(f.Day().List1.empty());
  EXPECT_TRUE(f.Day().Marks[2]);
  EXPECT_FALSE(f.views.Menus().DelSchDat);
  EXPECT_FALSE(f.views.Menus().ToolbarDelete);
}

TEST(DayView, EmptyStoreLeavesTheListAsItWas) {
  DayFixture f;
  f.Day().List1 = {"old", ""};
  EXPECT_FALSE(f.Day().ShowDayList(2010, 6, 15, true));
  EXPECT_EQ(f.Day().List1.size(), 2u);
}

TEST(DayView, AllDayItemsLeaveTheBarBlankAndTimerRunning) {
  DayFixture f;
  f.Insert(2010, 6, 15, -1, -1, "Fair");
  f.ToDayTab();
  EXPECT_TRUE(f.Day().Timer1Enabled);
  f.views.Timer1_Timer();
  f.views.Timer1_Timer();
  for (Paint p : f.Day().Pict.Columns()) ASSERT_EQ(p, Paint::Ground);
}

TEST(DayView, OverlappingSpansAndTheBlinkOfTheFirst) {
  DayFixture f;
  f.Insert(2010, 6, 15, 540, 600, "A");  // 9:00-10:00
  f.Insert(2010, 6, 15, 570, 660, "B");  // 9:30-11:00
  f.ToDayTab();
  TimeBar& bar = f.Day().Pict;
  for (int x = 540; x <= 660; ++x) ASSERT_EQ(bar.At(x), Paint::Span) << x;
  EXPECT_EQ(bar.At(539), Paint::Ground);
  EXPECT_EQ(bar.At(661), Paint::Ground);

  f.views.Timer1_Timer();  // first tick: the selected span goes off
  EXPECT_EQ(f.Day().FlashState, 1);
  for (int x = 540; x <= 600; ++x) ASSERT_EQ(bar.At(x), Paint::Ground) << x;
  for (int x = 601; x <= 660; ++x) ASSERT_EQ(bar.At(x), Paint::Span) << x;
  f.views.Timer1_Timer();  // second tick: everything painted again
  for (int x = 540; x <= 660; ++x) ASSERT_EQ(bar.At(x), Paint::Span) << x;
}

TEST(DayView, BlankLineOrSeveralRowsStopTheBlink) {
  DayFixture f;
  f.Insert(2010, 6, 15, 540, 600, "A");
  f.Insert(2010, 6, 15, 700, 760, "B");
  f.ToDayTab();
  f.views.List1_SelChange(2, 2);  // the blank line
  EXPECT_FALSE(f.views.Menus().DelSchDat);
  EXPECT_FALSE(f.views.Menus().UpdSchDat);
  f.views.Timer1_Timer();
  f.views.Timer1_Timer();
  EXPECT_EQ(f.Day().Pict.At(570), Paint::Span);
  EXPECT_EQ(f.Day().Pict.At(730), Paint::Span);
  f.views.List1_SelChange(0, 1);  // two rows
  EXPECT_FALSE(f.views.Menus().UpdSchDat);
  EXPECT_EQ(f.views.List1_DblClick().command, ViewCommand::None);
  EXPECT_FALSE(f.views.List1_RightUp().popup.Update);
  f.views.List1_SelChange(1, 1);
  EXPECT_TRUE(f.views.Menus().UpdSchDat);
  const ViewAction modify = f.views.List1_DblClick();
  EXPECT_EQ(modify.command, ViewCommand::ModifySchedule);
  EXPECT_EQ(modify.row, 1);
}

TEST(DayView, MultiDayRowHasNoSpan) {
  DayFixture f;
  InsertSpan(f.s.store, {2010, 6, 14}, 3, "Trip", 5);
  f.ToDayTab();
  EXPECT_EQ(f.Day().List1[0], " 6/14 -  6/16  Trip");
  f.views.Timer1_Timer();
  for (Paint p : f.Day().Pict.Columns()) ASSERT_EQ(p, Paint::Ground);
}

TEST(DayView, ChangeOfDayWithinTheMonthKeepsTheMarks) {
  DayFixture f;
  f.Insert(2010, 6, 15, 540, 600, "A");
  f.Insert(2010, 6, 16, 540, 600, "B");
  f.ToDayTab();
  f.views.CSCal4_Change({2010, 6, 16});
  EXPECT_EQ(f.Day().List1[0], "09:00am - 10:00am  B");
  EXPECT_TRUE(f.Day().Marks[14]);
  f.views.CSCal4_Change({2010, 7, 16});
  EXPECT_TRUE(f.Day().List1.empty());
  EXPECT_FALSE(f.Day().Marks[14]);
  EXPECT_EQ(f.views.DateLabel, "2010/07/16(Fri)");
}

}  // namespace
}  // namespace sched
