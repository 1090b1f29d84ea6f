#include "views/calendar_views.h"

#include <algorithm>

#include "store/date_text.h"
#include "views/delete_menus.h"

namespace sched {

CalendarViews::CalendarViews(ViewServices services)
    : s_(services), month_(services.doc, services.holidays), day_(services.doc) {
  const CivilDate today = CurrentDate();
  Combo1Index = today.month - 1;
  Combo2Index = today.year - kFirstYear;
  DateHelper = today;
  day_.CalendarDate = today;
}

CivilDate CalendarViews::CurrentDate() const {
  return {s_.doc.CurYear, s_.doc.CurMonth, s_.doc.CurDay};
}

void CalendarViews::WriteDateLabel(const CivilDate& date) {
  DateLabel = FormatDateWeekday(s_.dates, std::to_string(date.year), std::to_string(date.month),
                                std::to_string(date.day), WeekdayOf(date));
}

void CalendarViews::ZeroHolidayArrays() {
  s_.doc.ShownYearMasks = {};
  s_.doc.PrevYearMasks = {};
  s_.doc.NextYearMasks = {};
}

void CalendarViews::ShowDate(const CivilDate& date) {
  Combo1Index = date.month - 1;
  Combo2Index = date.year - kFirstYear;
  DateHelper = date;
  if (Tab == 1) {
    CSCal4_Change(date);
  } else {
    day_.CalendarDate = date;
  }
}

void CalendarViews::FillMonthGrid() {
  month_.FillMonthGrid(Combo2Index + kFirstYear, Combo1Index + 1);
  DateHelper = CurrentDate();
  WriteDateLabel(DateHelper);
  list_.FillDayIndex(s_.doc.Tables, CurrentDate(), true, 0);
  gridStale_ = false;
}

void CalendarViews::FillMonthLists() {
  month_.FillMonthLists();
}

void CalendarViews::ShowDayList() {
  const CivilDate d = CurrentDate();
  menus_.DelSchDat = menus_.UpdSchDat = day_.ShowDayList(d.year, d.month, d.day, Tab == 1);
}

void CalendarViews::RefreshDayList() {
  const CivilDate d = CurrentDate();
  menus_.DelSchDat = menus_.UpdSchDat = day_.RefreshDayList(d.year, d.month, d.day, Tab == 1);
}

void CalendarViews::RefreshViews() {
  if (Tab == 0) {
    FillMonthGrid();
    FillMonthLists();
  } else {
    ShowDayList();
    gridStale_ = true;
  }
  UpdateDeleteMenus();
  UpdateToolbar();
}

void CalendarViews::UpdateToolbar() {
  menus_.ToolbarDelete = Tab == 1 && day_.List1Rows() > 0;
}

void CalendarViews::UpdateDeleteMenus() {
  const SchDatCTL& t = s_.doc.Tables;
  const int cell = month_.SelectedCell;
  const bool onCell = Tab == 0 && cell != -1 && month_.Cell(cell).date.year != 0;
  DateHelper = onCell ? month_.Cell(cell).date : CurrentDate();
  const CivilDate& date = DateHelper;

  MenuState& m = menus_;
  m.DelMonth = m.DelYear = true;
  const int yearRow = FindYearRow(t, date.year);
  const bool yearMask = yearRow != -1 && t.AncYY.At(yearRow).HasHolidayMask();
  if (!YearHasData(t, date.year) && !yearMask) m.DelMonth = m.DelYear = false;
  if (!MonthHasLiveData(t, date.year, date.month)) m.DelMonth = false;
  if (onCell && month_.IsSpillCell(cell)) {
    // The commands by month act on the shown month only.
    m.DelMonth = m.DelYear = m.DelAfter = m.DelBefore = false;
  } else {
    m.DelAfter = HasDataAfter(t, date);
    m.DelBefore = HasDataBefore(t, date);
  }
  m.DelCTRL = m.DelMonth || m.DelYear || m.DelAfter || m.DelBefore;
}

ListSelection CalendarViews::CellSelection(int cell) const {
  if (cell == -1) return {};
  const MonthCell& c = month_.Cell(cell);
  return {c.ListRows(), c.selectedRow, c.selectedRow};
}

void CalendarViews::SelectCell(int cell, int row) {
  if (cell < 0 || cell >= kMonthCells || !month_.Cell(cell).enabled) return;
  month_.MoveSelection(cell);
  UpdateDeleteMenus();
  WriteDateLabel(DateHelper);
  s_.doc.SetShownDate(DateHelper);
  menus_.YearHolidays = true;
  if (list_.Visible) RefreshScheduleList();
  if (row != -1) month_.Cell(cell).selectedRow = row;
  UpdateToolbar();
  PopupActive = 0;
  list_.Active = false;
}

void CalendarViews::PlaceList() {
  const int cell = month_.SelectedCell;
  if (cell == -1) return;
  const ScheduleListFrame& f = ListFrame;
  ScheduleListPlace place;
  place.formLeft = f.formLeft;
  place.formTop = f.formTop;
  place.tab = f.layout.SSTab1;
  place.tabStripHeight = f.design.tabStripHeight;
  place.cell = f.layout.Label9[static_cast<std::size_t>(cell)];
  place.headHeight = f.layout.Label8[0].height;
  place.dialogHeight = f.dialogHeight;
  place.screenHeight = f.screen.Bottom();
  const DialogPosition at = PlaceScheduleList(place);
  // Wholly on the screen, moved no further than it takes.
  const RectF kept = KeepOnArea({at.left, at.top, f.dialogWidth, f.dialogHeight}, f.screen);
  list_.Position = {kept.left, kept.top, at.flipped};
}

void CalendarViews::RefreshScheduleList() {
  list_.FillDayIndex(s_.doc.Tables, CurrentDate(), false, 0);
  list_.Caption = DateLabel;
  PlaceList();
}

void CalendarViews::ShowScheduleList() {
  const int count = list_.FillDayIndex(s_.doc.Tables, CurrentDate(), false, 0);
  list_.Caption = DateLabel;
  if (count == 0) return;
  list_.Visible = false;
  PlaceList();
  list_.Visible = true;
  list_.Active = false;
}

ItemChoice CalendarViews::SelectedItem() const {
  if (Tab == 1) {
    return {day_.List1Row != day_.List1RowSel, day_.SelectedDataRow()};
  }
  if (list_.Visible && list_.Active) {
    const ListSelection s = list_.Selection();
    const bool item = IsItemSelection(s);
    return {s.row != s.rowSel, item ? list_.List3[static_cast<std::size_t>(s.row)] : -1};
  }
  const int cell = month_.SelectedCell;
  if (cell == -1) return {};
  const MonthCell& c = month_.Cell(cell);
  const bool item = IsItemSelection(CellSelection(cell));
  return {false, item ? c.rows[static_cast<std::size_t>(c.selectedRow)] : -1};
}

std::vector<int> CalendarViews::SelectedRows() const {
  // The lines from the selection's one end to its other, without the blank last line.
  const auto linesOf = [](const std::vector<int>& rows, int row, int rowSel) {
    std::vector<int> selected;
    if (row < 0 || rowSel < 0) return selected;
    const int last = std::min(std::max(row, rowSel), static_cast<int>(rows.size()) - 1);
    for (int line = std::min(row, rowSel); line <= last; ++line) {
      selected.push_back(rows[static_cast<std::size_t>(line)]);
    }
    return selected;
  };
  if (Tab == 1) return linesOf(day_.List2, day_.List1Row, day_.List1RowSel);
  if (list_.Visible && list_.Active) return linesOf(list_.List3, list_.Row, list_.RowSel);
  const ItemChoice item = SelectedItem();
  return item.row < 0 ? std::vector<int>{} : std::vector<int>{item.row};
}

void CalendarViews::SelectDayRow(int dataRow) {
  const auto found = std::find(day_.List2.begin(), day_.List2.end(), dataRow);
  if (found != day_.List2.end()) SelectDayLine(static_cast<int>(found - day_.List2.begin()));
}

void CalendarViews::SelectDayLine(int line) {
  if (line >= 0 && line < static_cast<int>(day_.List2.size())) List1_SelChange(line, line);
}

void CalendarViews::EditCTL_Open() {
  const ListSelection selection =
      Tab == 1 ? ListSelection{day_.List1Rows(), day_.List1Row, day_.List1RowSel}
               : CellSelection(month_.SelectedCell);
  const PopupItems items = PopupItemsFor(selection, ClipboardFull());
  menus_.PasteSchdat = items.Paste;
  menus_.CopySchdat = items.Copy;
  menus_.DelSchDat = items.Del;
  menus_.UpdSchDat = items.Update;
}

}  // namespace sched
