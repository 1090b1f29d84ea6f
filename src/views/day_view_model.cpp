#include "views/day_view_model.h"

#include "store/chains.h"
#include "views/line_text.h"
#include "views/month_view_model.h"

namespace sched {

bool DayView::ShowDayList(int year, int month, int day, bool onDayTab) {
  return Fill(year, month, day, onDayTab, true);
}

bool DayView::RefreshDayList(int year, int month, int day, bool onDayTab) {
  return Fill(year, month, day, onDayTab, false);
}

void DayView::EmptyLists() {
  List1.clear();
  List2.clear();
  List1Row = List1RowSel = -1;
  List1TopRow = 0;
  List2Index = -1;
  DaySpans.clear();
}

void DayView::ClearLists() {
  EmptyLists();
  DayItemCount = 0;
}

bool DayView::Fill(int year, int month, int day, bool onDayTab, bool withMarks) {
  NoTimeCount = 0;
  FlashState = -1;
  if (withMarks) Marks.fill(false);
  const SchDatCTL& t = doc_.Tables;
  // A store without years leaves the list as it was.
  if (t.AncYY.IsEmpty()) return false;
  const int yearRow = FindYearRow(t, year);
  if (yearRow == -1) {
    EmptyLists();
    return false;
  }
  if (withMarks) {
    doc_.ShownYearMasks.HolidayOn = t.AncYY.At(yearRow).HolidayOn;
    doc_.ShownYearMasks.HolidayOff = t.AncYY.At(yearRow).HolidayOff;
    MarkDays(yearRow, month);
  }
  const int monthRow = FindMonthRow(t, yearRow, month);
  const int head = monthRow == -1 ? -1 : GetDayHead(t, monthRow, day);
  EmptyLists();
  Pict.Blank();
  if (head == -1) return false;

  TimeBarColor = 1;
  DayItemCount = 0;
  const auto& list = t.SchDatList;
  for (int row : DayChain(list, head)) {
    const SchDatRow& r = list.At(row);
    if (!r.IsLive()) continue;
    List1.push_back(DayLineText(t, row));
    List2.push_back(row);
    DaySpans.push_back({r.StartTime, r.EndTime});
    Pict.DrawTimeSpan(r.StartTime, r.EndTime);
    if (r.StartTime == -1) ++NoTimeCount;
    if (FlashState == -1) {
      FlashState = 0;
      Timer1Enabled = true;
    }
    ++DayItemCount;
  }
  if (DayItemCount != 0) {
    List1.emplace_back();
    List1TopRow = 0;
  }
  if (List1.empty()) return false;
  List1Row = List1RowSel = 0;
  List2Index = 0;
  return onDayTab;
}

void DayView::MarkDays(int yearRow, int month) {
  const SchDatCTL& t = doc_.Tables;
  const int monthRow = FindMonthRow(t, yearRow, month);
  if (monthRow == -1) return;
  for (int day = 1; day <= 31; ++day) {
    Marks[static_cast<std::size_t>(day - 1)] = FirstLiveRow(t, GetDayHead(t, monthRow, day)) != -1;
  }
}

bool DayView::ItemRowSelected() const {
  return List1Row >= 0 && List1Row == List1RowSel && List1Row < List1Rows() - 1;
}

int DayView::SelectedDataRow() const {
  return ItemRowSelected() ? List2[static_cast<std::size_t>(List1Row)] : -1;
}

void DayView::Timer1_Timer() {
  TimeBarColor = 1;
  for (const DaySpan& span : DaySpans) Pict.DrawTimeSpan(span.StartTime, span.EndTime);
  // Only one item row blinks: none on the blank line, none for a selection of several rows.
  if (!ItemRowSelected() || List1Row >= static_cast<int>(DaySpans.size())) return;
  const DaySpan& span = DaySpans[static_cast<std::size_t>(List1Row)];
  if (span.StartTime == -1) return;
  FlashState = 1;
  if (FlashOff != 0) {
    Pict.DrawTimeSpan(span.StartTime, span.EndTime);
    FlashOff = 0;
  } else {
    Pict.EraseTimeSpan(span.StartTime, span.EndTime);
    FlashOff = -1;
  }
}

bool DayView::List1_SelChange(int row, int rowSel) {
  List1Row = row;
  List1RowSel = rowSel;
  if (!ItemRowSelected()) return false;
  List2Index = row;
  Timer1Enabled = true;
  return true;
}

}  // namespace sched
