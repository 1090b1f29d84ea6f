#pragma once

#include <array>
#include <string>
#include <vector>

#include "core/calendar.h"
#include "store/document.h"
#include "views/time_bar.h"

namespace sched {

// The times of one item of the day list; StartTime -1 for an item without time.
struct DaySpan {
  int StartTime = -1;
  int EndTime = -1;
};

// The day tab: the month calendar with its day marks, the list of the shown date's items, and
// the time bar on which the selected item's span blinks.
class DayView {
 public:
  explicit DayView(ScheduleDocument& doc) : doc_(doc) {}

  // The whole fill: the calendar's marks for the month and the list of the date. Gives whether
  // the Delete and Modify entries of the Edit menu are enabled.
  bool ShowDayList(int year, int month, int day, bool onDayTab);
  // The list and the bar only, for a change of day within the calendar's month.
  bool RefreshDayList(int year, int month, int day, bool onDayTab);

  // One tick of Timer1: repaints every span, then shows or hides the selected one.
  void Timer1_Timer();
  // A new selection in the list, from `row` to `rowSel`. Gives whether Delete and Modify are
  // enabled: not on the blank last line, nor for several rows.
  bool List1_SelChange(int row, int rowSel);

  // Empties both lists, as clearing the store does.
  void ClearLists();

  // True when the list's selection is one item row.
  bool ItemRowSelected() const;
  // The SchDatList row of the selected line, -1 on the blank line or without a selection.
  int SelectedDataRow() const;
  int List1Rows() const { return static_cast<int>(List1.size()); }

  // The calendar: its date and a mark for each day of its month that has items.
  CivilDate CalendarDate;
  std::array<bool, 31> Marks{};

  std::vector<std::string> List1;  // the lines, then one blank line
  std::vector<int> List2;          // the SchDatList row of each line but the blank one
  int List1Row = -1;               // the selected row, -1 for none
  int List1RowSel = -1;            // the other end of the selection
  int List1TopRow = 0;
  int List2Index = -1;

  int DayItemCount = 0;
  std::vector<DaySpan> DaySpans;
  int NoTimeCount = 0;
  int FlashState = -1;
  int FlashOff = 0;
  int TimeBarColor = 1;
  bool Timer1Enabled = false;
  TimeBar Pict;

 private:
  bool Fill(int year, int month, int day, bool onDayTab, bool withMarks);
  void MarkDays(int yearRow, int month);
  void EmptyLists();

  ScheduleDocument& doc_;
};

}  // namespace sched
