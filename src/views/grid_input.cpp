// Mouse and keys on the views: what a click, double click, right click or key does, and which
// command the widget runs after it.
#include "views/calendar_views.h"

namespace sched {

ViewAction CalendarViews::Cell_Click(int cell) {
  SelectCell(cell);
  return {};
}

ViewAction CalendarViews::Cell_DblClick(int cell) {
  if (!month_.Cell(cell).enabled) return {};
  return {ViewCommand::AddSchedule, -1, {}};
}

ViewAction CalendarViews::Cell_RightUp(int cell, int row) {
  if (!month_.Cell(cell).enabled) return {};
  SelectCell(cell, row);
  PopupActive = -1;
  return {ViewCommand::ShowPopupMenu2, -1, PopupItemsFor(CellSelection(cell), ClipboardFull())};
}

ViewAction CalendarViews::Grid1_MouseDown(int cell, int row) {
  SelectCell(cell, row);
  return {};
}

ViewAction CalendarViews::Grid1_DblClick(int cell, int row) {
  const MonthCell& c = month_.Cell(cell);
  if (!c.enabled) return {};
  list_.Visible = false;
  if (row >= 0 && row < static_cast<int>(c.rows.size())) {
    return {ViewCommand::ModifySchedule, c.rows[static_cast<std::size_t>(row)], {}};
  }
  return {ViewCommand::AddSchedule, -1, {}};
}

ViewAction CalendarViews::ComDt_Click() {
  const int cell = month_.SelectedCell;
  if (cell == -1) return {};
  const int row = month_.Cell(cell).selectedRow;
  SelectCell(cell, row >= 0 ? row : 0);
  ShowScheduleList();
  return {};
}

KeyResult CalendarViews::Text1_KeyDown(int key) {
  const int cell = month_.SelectedCell;
  int step = 0;
  bool crosses = false;
  switch (key) {
    case kKeyUp: step = -7, crosses = cell < 7; break;
    case kKeyDown: step = 7, crosses = cell >= 35; break;
    case kKeyLeft: step = -1, crosses = cell == 0; break;
    case kKeyRight: step = 1, crosses = cell == kMonthCells - 1; break;
    case kKeyEnter:
      if (list_.Visible) return {true, {ViewCommand::FocusScheduleList, -1, {}}};
      ShowScheduleList();
      return {true, {}};
    case kKeyDelete: return {true, {ViewCommand::DeleteSchedule, -1, {}}};
    default: return {};
  }
  if (cell == -1) return {true, {}};
  if (!crosses) {
    SelectCell(cell + step);
    return {true, {}};
  }
  // Past the grid's edge: the month turns, and the date the key reaches is selected.
  const CivilDate target = AddDays(CurrentDate(), step);
  Command1_Click(step < 0 ? 0 : 1);
  if (ArrowMoved == -1) {
    const int next = month_.CellOfDate(target.month, target.day);
    if (next != -1) SelectCell(next);
  }
  return {true, {}};
}

bool CalendarViews::Form_KeyDown(int key) {
  return key == kKeyPageUp || key == kKeyPageDown || key == kKeyHome || key == kKeyEnd;
}

void CalendarViews::List1_SelChange(int row, int rowSel) {
  menus_.DelSchDat = menus_.UpdSchDat = day_.List1_SelChange(row, rowSel);
}

ViewAction CalendarViews::List1_DblClick() const {
  if (day_.List1Row != day_.List1RowSel || !day_.ItemRowSelected()) return {};
  return {ViewCommand::ModifySchedule, day_.SelectedDataRow(), {}};
}

ViewAction CalendarViews::List1_RightUp() {
  const ListSelection selection{day_.List1Rows(), day_.List1Row, day_.List1RowSel};
  PopupItems items = PopupItemsFor(selection, ClipboardFull());
  items.Hctl = true;
  PopupActive = -1;
  return {ViewCommand::ShowPopupMenu2, -1, items};
}

ViewAction CalendarViews::CSCal4_RightUp() {
  PopupItems items;
  items.Paste = ClipboardFull();
  PopupActive = -1;
  return {ViewCommand::ShowPopupMenu3, -1, items};
}

ViewAction CalendarViews::CSCal4_DblClick() const {
  return {ViewCommand::AddSchedule, -1, {}};
}

bool CalendarViews::CSCal4_KeyDown(int key) {
  return key == kKeyLeft || key == kKeyRight || key == kKeyUp || key == kKeyDown;
}

}  // namespace sched
