// The controls that move the current date: the month tab's combos and arrows, the day tab's
// calendar and arrows, the Today command and the change of tab.
#include <algorithm>

#include "core/calendar.h"
#include "views/calendar_views.h"

namespace sched {
namespace {

bool IsFirstMonth(int year, int month) {
  return year == kFirstYear && month == 1;
}
bool IsLastMonth(int year, int month) {
  return year == kLastYear && month == 12;
}

}  // namespace

void CalendarViews::Combo1_Click() {
  if (ViewsReady == -1) return;
  list_.Visible = false;
  const int month = Combo1Index + 1;
  if (month == (BackFromDay != 0 ? s_.doc.CurMonth : month_.ShownMonth)) return;
  TurnToComboMonth({Combo2Index + kFirstYear, month, 1}, false);
}

void CalendarViews::Combo2_Click() {
  if (ViewsReady == -1) return;
  list_.Visible = false;
  const int year = Combo2Index + kFirstYear;
  if (year == (BackFromDay != 0 ? s_.doc.CurYear : month_.ShownYear)) return;
  TurnToComboMonth({year, Combo1Index + 1, 1}, true);
}

void CalendarViews::TurnToComboMonth(const CivilDate& date, bool newYear) {
  s_.doc.SetShownDate(date);
  DateHelper = date;
  WriteDateLabel(date);
  if (FillOnCombo == 0) return;
  // Another year: no mask of the former years may colour the new grid.
  if (newYear) ZeroHolidayArrays();
  FillMonthGrid();
  FillMonthLists();
  UpdateDeleteMenus();
}

void CalendarViews::SetCombo1(int index) {
  Combo1Index = std::clamp(index, 0, 11);
  Combo1_Click();
}

void CalendarViews::SetCombo2(int index) {
  Combo2Index = std::clamp(index, 0, kLastYear - kFirstYear);
  Combo2_Click();
}

void CalendarViews::Command1_Click(int index) {
  const int year = Combo2Index + kFirstYear;
  const int month = Combo1Index + 1;
  if (index == 0 || index == 1) {
    const bool atLimit = index == 0 ? IsFirstMonth(year, month) : IsLastMonth(year, month);
    ArrowMoved = atLimit ? 0 : -1;
    if (!atLimit) {
      const CivilDate target = AddMonths({year, month, 1}, index == 0 ? -1 : 1);
      if (target.year == year) {
        SetCombo1(target.month - 1);
      } else {
        SetCombo2(target.year - kFirstYear);
        SetCombo1(target.month - 1);
      }
    }
  }
  UpdateDeleteMenus();
  SetFocusToView(false);
}

void CalendarViews::ComMM_Click(int index) {
  const CivilDate& date = day_.CalendarDate;
  if (index == 0 && !IsFirstMonth(date.year, date.month)) CSCal4_Change(AddMonths(date, -1));
  if (index == 1 && !IsLastMonth(date.year, date.month)) CSCal4_Change(AddMonths(date, 1));
  SetFocusToView(false);
}

void CalendarViews::ComYY_Click(int index) {
  const CivilDate& date = day_.CalendarDate;
  if (index == 0 && date.year != kFirstYear) CSCal4_Change(AddMonths(date, -12));
  if (index == 1 && date.year != kLastYear) CSCal4_Change(AddMonths(date, 12));
  SetFocusToView(false);
}

void CalendarViews::CSCal4_Change(const CivilDate& date) {
  day_.CalendarDate = date;
  WriteDateLabel(date);
  const CivilDate old = CurrentDate();
  s_.doc.SetShownDate(date);
  ZeroHolidayArrays();
  if (Tab == 1) {
    UpdateDeleteMenus();
    menus_.YearHolidays = true;
    day_.Pict.Blank();
  }
  if (old.year == date.year && old.month == date.month) {
    RefreshDayList();
  } else {
    ShowDayList();
  }
  UpdateToolbar();
}

void CalendarViews::GoToday() {
  list_.Visible = false;
  const DateTime now = s_.clock.Now();
  const CivilDate today{now.year, now.month, now.day};
  s_.doc.SetShownDate(today);
  month_.ShownYear = today.year;
  month_.ShownMonth = today.month;
  if (Tab == 1) {
    day_.CalendarDate = today;
  } else {
    DateHelper = today;
  }
  WriteDateLabel(today);
  if (Tab == 0) {
    SetCombo2(today.year - kFirstYear);
    SetCombo1(today.month - 1);
    FillMonthGrid();
    FillMonthLists();
  } else {
    ShowDayList();
  }
  UpdateDeleteMenus();
  UpdateToolbar();
  SetFocusToView(false);
  PopupActive = 0;
}

bool CalendarViews::SSTab1_Click(int tab) {
  Tab = tab;
  const bool resize = LayoutPending;
  LayoutPending = false;
  day_.Timer1Enabled = false;
  list_.Visible = false;
  if (tab == 1) {
    UpdateDeleteMenus();
    day_.CalendarDate = CurrentDate();
    ShowDayList();
    menus_.DelSchDat = menus_.UpdSchDat = day_.List1Rows() > 0;
    UpdateToolbar();
    Focus = FocusTarget::CSCal4;
    return resize;
  }
  Focus = FocusTarget::Text1;
  BackFromDay = -1;
  DateHelper = CurrentDate();
  SetCombo2(s_.doc.CurYear - kFirstYear);
  SetCombo1(s_.doc.CurMonth - 1);
  BackFromDay = 0;
  // The combos compare with the current date here and leave the grid alone; the grid follows
  // the date the day tab moved to, keeping its day.
  const CivilDate cur = CurrentDate();
  if (gridStale_ || month_.ShownYear != cur.year || month_.ShownMonth != cur.month) {
    FillMonthGrid();
    FillMonthLists();
  } else {
    const int cell = month_.CellOfDate(cur.month, cur.day);
    if (cell != -1 && cell != month_.SelectedCell) month_.MoveSelection(cell);
    WriteDateLabel(cur);
    list_.FillDayIndex(s_.doc.Tables, cur, true, 0);
  }
  UpdateDeleteMenus();
  UpdateToolbar();
  return resize;
}

void CalendarViews::SetFocusToView(bool toList) {
  if (Tab == 0) {
    Focus = FocusTarget::Text1;
  } else {
    Focus = toList ? FocusTarget::List1 : FocusTarget::CSCal4;
  }
}

}  // namespace sched
