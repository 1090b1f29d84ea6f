#pragma once

#include <array>
#include <string>
#include <vector>

#include "core/calendar.h"
#include "holidays/holiday_model.h"
#include "store/document.h"
#include "views/view_colors.h"

namespace sched {

inline constexpr int kMonthCells = 42;

// What one cell of the month grid shows: its back plate, day number, holiday name and list.
struct MonthCell {
  std::string dayText;  // the day number, "" for a blank cell
  DayColor dayColor = DayColor::Black;
  // The holiday name, always red. It changes only when the cell gets a head, so a blank cell
  // keeps the name of the former fill.
  std::string holidayName;
  CellBack back = CellBack::Window;
  bool enabled = true;
  bool hasItems = false;           // the day has live rows: the back plate carries its marker
  std::vector<std::string> lines;  // the list: one line a live row, then one blank line
  std::vector<int> rows;           // the SchDatList row of each line but the blank one
  bool rowHighlight = false;       // the list shows its selected row
  int selectedRow = 0;             // the list's current row
  CivilDate date;                  // the date the cell stands for; year 0 for a blank cell

  // Rows of the list, the blank last line included.
  int ListRows() const { return static_cast<int>(lines.size()); }
};

// The month grid: 42 cells, Sunday first, filled to the end with the tail of the month before
// and the head of the month after. The numbers below are those of the last fill.
class MonthView {
 public:
  MonthView(ScheduleDocument& doc, const NamedHolidays& holidays)
      : doc_(doc), holidays_(holidays) {}

  // Heads and numbers of all cells for the month, the selection of the current date, and the
  // lists emptied. Loads the holiday masks of the three years that have a row.
  void FillMonthGrid(int shownYear, int shownMonth);
  // The lists of the three months' days, and whether ComDt shows.
  void FillMonthLists();

  // The cell that shows a date of the grid's three months, found as the grid finds the
  // selected cell; -1 when the result lies outside the grid.
  int CellOfDate(int month, int day) const;
  // Moves the selection colour to `cell` (the old cell turns grey or window again).
  void MoveSelection(int cell);

  const std::array<MonthCell, kMonthCells>& Cells() const { return cells_; }
  MonthCell& Cell(int cell) { return cells_[static_cast<std::size_t>(cell)]; }
  const MonthCell& Cell(int cell) const { return cells_[static_cast<std::size_t>(cell)]; }
  const std::array<DayColor, 7>& Heads() const { return heads_; }
  bool IsSpillCell(int cell) const { return cell < FirstCell || cell > LastCell; }

  // ComDt: shown in the selected cell's lower right corner when its list has items.
  bool ComDtVisible = false;

  int SelectedCell = -1;
  int ShownYear = -1;
  int ShownMonth = -1;
  int FirstCell = 0;
  int DaysInMonth = 0;
  int LastCell = 0;
  int PrevYear = -1;
  int PrevMonth = -1;
  int NextYear = -1;
  int NextMonth = -1;
  int FirstPrevDay = -1;
  int LastPrevDay = -1;
  int FirstNextDay = -1;
  int LastNextDay = -1;
  int ShownYearRow = -1;
  int PrevYearRow = -1;
  int NextYearRow = -1;

 private:
  void FindYearRows();
  void FillCellHead(int weekday, int cell, int year, int month, int day, const YearMasks& masks);
  void FillDays(int yearRow, int month, int firstDay, int lastDay, int firstCell);
  void UpdateComDt();

  ScheduleDocument& doc_;
  const NamedHolidays& holidays_;
  std::array<MonthCell, kMonthCells> cells_;
  std::array<DayColor, 7> heads_{DayColor::Red,   DayColor::Black, DayColor::Black, DayColor::Black,
                                 DayColor::Black, DayColor::Black, DayColor::Black};
};

// The first live row of a chain from `row` on, -1 when there is none.
int FirstLiveRow(const SchDatCTL& ctl, int row);

}  // namespace sched
