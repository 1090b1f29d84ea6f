#include "views/month_view_model.h"

#include "store/chains.h"
#include "views/line_text.h"

namespace sched {

int FirstLiveRow(const SchDatCTL& ctl, int row) {
  for (int at : DayChain(ctl.SchDatList, row)) {
    if (ctl.SchDatList.At(at).IsLive()) return at;
  }
  return -1;
}

void MonthView::FillMonthGrid(int shownYear, int shownMonth) {
  ShownYear = shownYear;
  ShownMonth = shownMonth;
  FirstCell = WeekdayOf({shownYear, shownMonth, 1});
  DaysInMonth = sched::DaysInMonth(shownYear, shownMonth);
  LastCell = DaysInMonth + FirstCell - 1;

  PrevYear = PrevMonth = -1;
  FirstPrevDay = -1;
  if (shownYear != kFirstYear || shownMonth != 1) {
    PrevYear = shownMonth == 1 ? shownYear - 1 : shownYear;
    PrevMonth = shownMonth == 1 ? 12 : shownMonth - 1;
    FirstPrevDay = sched::DaysInMonth(PrevYear, PrevMonth) + 1 - FirstCell;
  }
  NextYear = NextMonth = -1;
  FirstNextDay = -1;
  if (shownYear != kLastYear || shownMonth != 12) {
    NextYear = shownMonth == 12 ? shownYear + 1 : shownYear;
    NextMonth = shownMonth == 12 ? 1 : shownMonth + 1;
    FirstNextDay = 1;
  }

  FindYearRows();

  for (MonthCell& cell : cells_) {
    // The holiday name stays: only a head replaces it.
    cell.dayText.clear();
    cell.back = CellBack::Window;
    cell.enabled = true;
    cell.hasItems = false;
    cell.lines.clear();
    cell.rows.clear();
    cell.rowHighlight = false;
    cell.selectedRow = 0;
    cell.date = {0, 0, 0};
  }
  for (int c = 0; c < kMonthCells; ++c) {
    if (!IsSpillCell(c)) continue;
    Cell(c).back = CellBack::Grey;
    Cell(c).enabled = c < FirstCell ? PrevYear != -1 : NextYear != -1;
  }

  int prevDay = FirstPrevDay;
  int day = 1;
  int nextDay = FirstNextDay;
  for (int c = 0; c < kMonthCells; ++c) {
    const int weekday = c % 7;
    if (c < FirstCell) {
      if (PrevYear == -1) continue;
      FillCellHead(weekday, c, PrevYear, PrevMonth, prevDay++, doc_.PrevYearMasks);
    } else if (c <= LastCell) {
      FillCellHead(weekday, c, ShownYear, ShownMonth, day++, doc_.ShownYearMasks);
    } else {
      if (NextYear == -1) continue;
      FillCellHead(weekday, c, NextYear, NextMonth, nextDay++, doc_.NextYearMasks);
    }
  }
  LastPrevDay = PrevYear != -1 ? prevDay - 1 : -1;
  LastNextDay = NextYear != -1 ? nextDay - 1 : -1;

  if (SelectedCell != -1) Cell(SelectedCell).rowHighlight = false;
  ComDtVisible = false;
  SelectedCell = CellOfDate(doc_.CurMonth, doc_.CurDay);
  if (SelectedCell != -1) {
    Cell(SelectedCell).back = CellBack::Selection;
    Cell(SelectedCell).rowHighlight = true;
  }
  UpdateComDt();
}

void MonthView::FindYearRows() {
  ShownYearRow = PrevYearRow = NextYearRow = -1;
  const SchDatCTL& t = doc_.Tables;
  if (t.AncYY.IsEmpty()) return;
  const auto take = [&](int row, int year, int& yearRow, YearMasks& masks) {
    if (yearRow != -1 || year == -1 || t.AncYY.At(row).Year != year) return;
    yearRow = row;
    masks.HolidayOn = t.AncYY.At(row).HolidayOn;
    masks.HolidayOff = t.AncYY.At(row).HolidayOff;
  };
  for (int row = 0; row < t.AncYY.Rows(); ++row) {
    take(row, ShownYear, ShownYearRow, doc_.ShownYearMasks);
    take(row, PrevYear, PrevYearRow, doc_.PrevYearMasks);
    take(row, NextYear, NextYearRow, doc_.NextYearMasks);
  }
}

void MonthView::FillCellHead(int weekday, int cell, int year, int month, int day,
                             const YearMasks& masks) {
  const DayClass dayClass = ClassifyDate(holidays_, doc_.WeekHoliday, masks.HolidayOn,
                                         masks.HolidayOff, year, month, day, weekday);
  // Every cell repaints its column's head; the weekly flags make it the same each time.
  heads_[static_cast<std::size_t>(weekday)] =
      doc_.WeekHoliday[static_cast<std::size_t>(weekday)] == 1 ? DayColor::Red : DayColor::Black;
  MonthCell& c = Cell(cell);
  c.dayColor = dayClass.holiday ? DayColor::Red : DayColor::Black;
  c.dayText = std::to_string(day);
  c.holidayName = dayClass.name;
  c.date = {year, month, day};
}

int MonthView::CellOfDate(int month, int day) const {
  int cell = 0;
  if (month == ShownMonth) {
    cell = day + FirstCell - 1;
  } else if (month != PrevMonth) {
    cell = day + LastCell;
  } else {
    cell = day - LastPrevDay + FirstCell - 1;
  }
  return cell >= 0 && cell < kMonthCells ? cell : -1;
}

void MonthView::FillMonthLists() {
  if (ShownYearRow != -1) FillDays(ShownYearRow, ShownMonth, 1, DaysInMonth, FirstCell);
  if (PrevYearRow != -1) FillDays(PrevYearRow, PrevMonth, FirstPrevDay, LastPrevDay, 0);
  if (NextYearRow != -1) {
    FillDays(NextYearRow, NextMonth, FirstNextDay, LastNextDay, LastCell + 1);
  }
  UpdateComDt();
}

void MonthView::FillDays(int yearRow, int month, int firstDay, int lastDay, int firstCell) {
  const SchDatCTL& t = doc_.Tables;
  const int monthRow = FindMonthRow(t, yearRow, month);
  if (monthRow == -1) return;
  const auto& list = t.SchDatList;
  for (int day = firstDay; day <= lastDay; ++day) {
    const int first = FirstLiveRow(t, GetDayHead(t, monthRow, day));
    if (first == -1) continue;
    MonthCell& cell = Cell(firstCell + day - firstDay);
    cell.hasItems = true;
    for (int row : DayChain(list, first)) {
      if (!list.At(row).IsLive()) continue;
      cell.lines.push_back(MonthLineText(t, row));
      cell.rows.push_back(row);
    }
    cell.lines.emplace_back();
  }
}

void MonthView::UpdateComDt() {
  ComDtVisible = SelectedCell != -1 && Cell(SelectedCell).ListRows() >= 2;
}

void MonthView::MoveSelection(int cell) {
  if (SelectedCell != -1) {
    MonthCell& old = Cell(SelectedCell);
    old.rowHighlight = false;
    old.back = IsSpillCell(SelectedCell) ? CellBack::Grey : CellBack::Window;
  }
  SelectedCell = cell;
  Cell(cell).back = CellBack::Selection;
  Cell(cell).rowHighlight = true;
  UpdateComDt();
}

}  // namespace sched
