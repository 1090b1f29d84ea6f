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

}  // namespace
}  // namespace sched
