#include <gtest/gtest.h>

#include <map>
#include <string>

#include "tests/support/case_file.h"
#include "tests/views/views_test_support.h"

namespace sched {
namespace {

using testing::CaseRow;
using testing::ReadCases;

TEST(MonthGridShape, CellsFilledToTheEnd) {
  for (const CaseRow& row : ReadCases("views/month-grid-shapes.txt", 8, 7)) {
    const int year = row.Int(0), month = row.Int(1), firstCell = row.Int(2), lastCell = row.Int(3),
              blankBefore = row.Int(6), blankAfter = row.Int(7);
    ViewsFixture f;
    f.ShowMonth(year, month);
    const MonthView& m = f.views.Month();
    EXPECT_EQ(m.FirstCell, firstCell) << row.where;
    EXPECT_EQ(m.LastCell, lastCell) << row.where;
    EXPECT_EQ(m.FirstPrevDay, row.Int(4)) << row.where;
    EXPECT_EQ(m.LastNextDay, row.Int(5)) << row.where;
    for (int c = 0; c < kMonthCells; ++c) {
      const MonthCell& cell = f.Cell(c);
      const bool blank = c < blankBefore || c >= kMonthCells - blankAfter;
      EXPECT_EQ(cell.enabled, !blank) << row.where << " cell " << c;
      EXPECT_EQ(cell.dayText.empty(), blank) << row.where << " cell " << c;
      if (c == firstCell) {
        EXPECT_EQ(cell.back, CellBack::Selection) << row.where;  // day 1 is selected
        EXPECT_EQ(cell.dayText, "1") << row.where;
      } else if (c < firstCell || c > lastCell) {
        EXPECT_EQ(cell.back, CellBack::Grey) << row.where << " cell " << c;
      } else {
        EXPECT_EQ(cell.back, CellBack::Window) << row.where << " cell " << c;
      }
    }
    EXPECT_EQ(f.Cell(lastCell).dayText, std::to_string(DaysInMonth(year, month))) << row.where;
  }
}

TEST(MonthView, SpillCellsCarryTheirOwnDates) {
  ViewsFixture f;
  f.ShowMonth(2000, 3);  // 1 March 2000 is a Wednesday
  EXPECT_EQ(f.Cell(0).date, (CivilDate{2000, 2, 27}));
  EXPECT_EQ(f.Cell(2).date, (CivilDate{2000, 2, 29}));
  EXPECT_EQ(f.Cell(3).date, (CivilDate{2000, 3, 1}));
  EXPECT_EQ(f.Cell(41).date, (CivilDate{2000, 4, 8}));
}

TEST(MonthView, SelectedSpillDateSurvivesARefill) {
  ViewsFixture f;
  f.ShowMonth(2000, 3);
  f.views.SelectCell(40);  // 7 April, grey
  EXPECT_EQ(f.s.doc.CurMonth, 4);
  EXPECT_EQ(f.s.doc.CurDay, 7);
  f.views.RefreshViews();
  EXPECT_EQ(f.views.Month().ShownMonth, 3);
  EXPECT_EQ(f.views.Month().SelectedCell, 40);
  EXPECT_EQ(f.Cell(40).back, CellBack::Selection);
  f.views.SelectCell(1);  // 28 February, grey as well
  EXPECT_EQ(f.Cell(40).back, CellBack::Grey);
  f.views.RefreshViews();
  EXPECT_EQ(f.views.Month().SelectedCell, 1);
}

// 2010/06/06 is a Sunday, cell 7 of June 2010.
TEST(DayNumberColour, ByWeekNameAndMarks) {
  const std::map<std::string, DayColor> colours = {{"black", DayColor::Black},
                                                   {"red", DayColor::Red}};
  for (const CaseRow& row : ReadCases("views/day-number-colours.txt", 7, 10)) {
    ASSERT_TRUE(colours.contains(row[5]) && colours.contains(row[6])) << row.where;
    const bool named = row.YesNo(2);
    ViewsFixture f;
    f.s.doc.WeekHoliday[0] = std::int16_t(row.Int(1));
    if (named) f.calendar.Add(2010, 6, 6, "Feast");
    f.SetMasks(2010, 6, row.Int(3) ? Bit(6) : 0, row.Int(4) ? Bit(6) : 0);
    f.ShowMonth(2010, 6);
    EXPECT_EQ(f.Cell(7).dayText, "6") << row.where;
    EXPECT_EQ(f.Cell(7).dayColor, colours.at(row[5])) << row.where << ": " << row[0];
    EXPECT_EQ(f.views.Month().Heads()[0], colours.at(row[6])) << row.where << ": " << row[0];
    EXPECT_EQ(f.Cell(7).holidayName, named ? "Feast" : "") << row.where << ": " << row[0];
  }
}

TEST(MonthView, MaskBitsReachDayThirtyOne) {
  ViewsFixture f;
  f.SetMasks(2010, 3, Bit(31), 0);
  f.ShowMonth(2010, 3);  // 1 March 2010 is a Monday: day 31 in cell 31
  EXPECT_EQ(f.Cell(31).dayText, "31");
  EXPECT_EQ(f.Cell(31).dayColor, DayColor::Red);
  EXPECT_EQ(f.Cell(30).dayColor, DayColor::Black);
}

TEST(MonthView, SpillCellsUseTheirYearsMasks) {
  ViewsFixture f;
  f.SetMasks(2009, 12, Bit(31), 0);  // a Thursday
  f.SetMasks(2010, 2, Bit(1), 0);    // a Monday
  f.ShowMonth(2010, 1);              // 1 January 2010 is a Friday
  EXPECT_EQ(f.Cell(4).date, (CivilDate{2009, 12, 31}));
  EXPECT_EQ(f.Cell(4).dayColor, DayColor::Red);
  EXPECT_EQ(f.Cell(36).date, (CivilDate{2010, 2, 1}));
  EXPECT_EQ(f.Cell(36).dayColor, DayColor::Red);
}

// A year without a row keeps the masks of the former fill after a change of month; a change
// of year clears them.
TEST(MonthView, StaleMasksOfAYearWithoutRow) {
  ViewsFixture f;
  f.SetMasks(2000, 1, Bit(29), 0);
  f.ShowMonth(2001, 1);  // the previous year, 2000, loads its masks
  EXPECT_EQ(f.s.doc.PrevYearMasks.HolidayOn[0], Bit(29));
  f.views.SetCombo1(1);  // February 2001: the previous month is January of 2001, without row
  EXPECT_EQ(f.Cell(1).date, (CivilDate{2001, 1, 29}));  // a Monday
  EXPECT_EQ(f.Cell(1).dayColor, DayColor::Red);
  f.views.SetCombo2(102);  // 2003: a change of year zeroes all six
  EXPECT_EQ(f.s.doc.PrevYearMasks.HolidayOn[0], 0);
  EXPECT_EQ(f.Cell(1).dayColor, DayColor::Black);
}

TEST(MonthView, StaleMaskColoursAMonthOfAYearWithoutRow) {
  ViewsFixture f;
  f.SetMasks(2000, 3, Bit(15), 0);         // 2000/03/15
  f.ShowMonth(2000, 4);                    // March 2000 is the previous month: masks of 2000 loaded
  f.s.doc.Tables.AncYY.At(0).Year = 1999;  // the year loses its row, the arrays stay
  f.views.SetCombo1(2);                    // March 2000 by change of month only
  EXPECT_EQ(f.views.Month().ShownYearRow, -1);
  EXPECT_EQ(f.Cell(17).date, (CivilDate{2000, 3, 15}));
  EXPECT_EQ(f.Cell(17).dayColor, DayColor::Red);
}

TEST(MonthView, BlankCellKeepsTheNameOfTheFormerFill) {
  ViewsFixture f;
  f.calendar.Add(1901, 1, 27, "Late");
  f.ShowMonth(1901, 2);  // cells 0 to 4 are 27 to 31 January
  EXPECT_EQ(f.Cell(0).holidayName, "Late");
  f.ShowMonth(1901, 1);  // cells 0 and 1 are blank now
  EXPECT_TRUE(f.Cell(0).dayText.empty());
  EXPECT_EQ(f.Cell(0).holidayName, "Late");
}

TEST(MonthView, ListsInChainOrderWithoutDeletedRows) {
  ViewsFixture f;
  f.Insert(2010, 6, 15, 600, 660, "Late");
  f.Insert(2010, 6, 15, -1, -1, "Day");
  f.Insert(2010, 6, 15, 540, 600, "Early");
  f.Insert(2010, 6, 16, 540, 600, "Gone");
  f.s.doc.Tables.SchDatList.At(3).Deleted = kDeleted;
  f.ShowMonth(2010, 6);
  const MonthCell& day15 = f.Cell(16);
  ASSERT_EQ(day15.date, (CivilDate{2010, 6, 15}));
  EXPECT_EQ(day15.lines,
            (std::vector<std::string>{"Allday Day", "9:00am Early", "10:00am Late", ""}));
  EXPECT_EQ(day15.rows, (std::vector<int>{1, 2, 0}));
  EXPECT_TRUE(day15.hasItems);
  EXPECT_TRUE(f.Cell(17).lines.empty());
  EXPECT_FALSE(f.Cell(17).hasItems);
}

TEST(MonthView, MultiDayLineInEveryCellOfThePeriodAlsoGrey) {
  ViewsFixture f;
  InsertSpan(f.s.store, {2010, 5, 30}, 5, "Trip", 77);  // 30 May to 3 June
  f.ShowMonth(2010, 6);
  for (int c = 0; c <= 4; ++c) {
    ASSERT_EQ(f.Cell(c).lines.size(), 2u) << c;
    EXPECT_EQ(f.Cell(c).lines[0], " 6/ 3 Trip") << c;
  }
  EXPECT_EQ(f.Cell(0).back, CellBack::Grey);
}

TEST(MonthView, ComDtShowsForASelectedDayWithItems) {
  ViewsFixture f;
  f.Insert(2010, 6, 1, 540, 600, "One");
  f.ShowMonth(2010, 6);
  EXPECT_TRUE(f.views.Month().ComDtVisible);
  EXPECT_EQ(f.Cell(2).ListRows(), 2);
  f.views.SelectCell(3);
  EXPECT_FALSE(f.views.Month().ComDtVisible);
  f.views.SelectCell(2);
  EXPECT_TRUE(f.views.Month().ComDtVisible);
}

TEST(MonthView, DisabledCellsTakeNoSelection) {
  ViewsFixture f;
  f.ShowMonth(1901, 1);
  f.views.SelectCell(1);
  EXPECT_EQ(f.views.Month().SelectedCell, 2);
  EXPECT_EQ(f.s.doc.CurDay, 1);
  EXPECT_EQ(f.views.Cell_DblClick(0).command, ViewCommand::None);
}

}  // namespace
}  // namespace sched
