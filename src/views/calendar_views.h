#pragma once

#include <cstdint>
#include <string>

#include "holidays/holiday_model.h"
#include "platform/clock.h"
#include "platform/date_formatter.h"
#include "platform/messages.h"
#include "store/document.h"
#include "views/day_view_model.h"
#include "views/layout.h"
#include "views/month_view_model.h"
#include "views/schedule_list_model.h"
#include "views/view_commands.h"

namespace sched {

struct ViewServices {
  ScheduleDocument& doc;
  const NamedHolidays& holidays;
  const DateFormatter& dates;
  const Clock& clock;
  Messages& messages;
};

// What the schedule list dialog needs to place itself, in twips: the window's place, the
// layout of the last resize, the dialog's size and the part of the screen that windows may take.
struct ScheduleListFrame {
  double formLeft = 0;
  double formTop = 0;
  double dialogWidth = 5100;
  double dialogHeight = 2400;
  RectF screen{0, 0, 15360, 11520};
  DesignPlaces design;
  FormLayout layout = LayoutTwips(8880, 6600, DesignPlaces{}, 375);
};

// The outcome of a key on the grid.
struct KeyResult {
  bool consumed = false;
  ViewAction action;
};

// The two tabs of the main window as one model: the month grid, the day list, the schedule
// list dialog, the current date and the controls that move it, and the menus they enable. The
// widgets show its state and pass it their events; it owns nothing of the schedule.
class CalendarViews {
 public:
  explicit CalendarViews(ViewServices services);

  MonthView& Month() { return month_; }
  const MonthView& Month() const { return month_; }
  DayView& Day() { return day_; }
  const DayView& Day() const { return day_; }
  ScheduleList& List() { return list_; }
  const ScheduleList& List() const { return list_; }
  const MenuState& Menus() const { return menus_; }
  CivilDate CurrentDate() const;

  // Fills of the views.
  void FillMonthGrid();
  void FillMonthLists();
  void ShowDayList();
  void RefreshDayList();
  // The shown tab rebuilt from the store, then the menus.
  void RefreshViews();
  void UpdateDeleteMenus();
  void ClearDayLists() { day_.ClearLists(); }
  // The shown date moved (to today): the combos and the calendars stand on it; the fill that
  // follows shows it.
  void ShowDate(const CivilDate& date);
  // The toolbar's delete button off until the next update of the menus.
  void DisableSclDel() { menus_.ToolbarDelete = false; }
  // True when Copy holds an item that Paste can put in.
  bool ClipboardFull() const { return s_.doc.CopiedRow != -1; }

  // The item that Modify, Copy and Delete act on: the schedule list dialog's selection once the
  // user worked in it, else the day list on the day tab or the selected cell's list.
  ItemChoice SelectedItem() const;
  // The SchDatList rows of every selected item line of that list, in list order.
  std::vector<int> SelectedRows() const;
  // Selects the day list's line of a SchDatList row, when the list shows it.
  void SelectDayRow(int dataRow);
  // Selects a line of the day list, when it is an item line.
  void SelectDayLine(int line);

  // Selection in the grid.
  void SelectCell(int cell, int row = -1);
  // The schedule list dialog for the selected date, under (or above) its cell.
  void ShowScheduleList();
  // Places the schedule list dialog by the selected cell, as the frame says now.
  void PlaceList();

  // Navigation.
  void Combo1_Click();
  void Combo2_Click();
  void SetCombo1(int index);  // as a change of the list's index, which runs its handler
  void SetCombo2(int index);
  void Command1_Click(int index);
  void ComMM_Click(int index);
  void ComYY_Click(int index);
  void CSCal4_Change(const CivilDate& date);
  void GoToday();
  // The tab changed to `tab`; true when the widget must run Form_Resize now.
  bool SSTab1_Click(int tab);
  void SetFocusToView(bool toList);
  // A resize while a tab was hidden: the next tab change lays the window out.
  void MarkLayoutPending() { LayoutPending = true; }

  // Mouse and keys on the month grid.
  ViewAction Cell_Click(int cell);
  ViewAction Cell_DblClick(int cell);
  // A right click on the cell, or on line `row` of its list, which is selected first.
  ViewAction Cell_RightUp(int cell, int row = -1);
  ViewAction Grid1_MouseDown(int cell, int row);
  ViewAction Grid1_DblClick(int cell, int row);
  ViewAction ComDt_Click();
  KeyResult Text1_KeyDown(int key);
  // Keys that no control of the window may take.
  static bool Form_KeyDown(int key);

  // Mouse and keys on the day tab.
  void List1_SelChange(int row, int rowSel);
  ViewAction List1_DblClick() const;
  ViewAction List1_RightUp();
  ViewAction CSCal4_RightUp();
  ViewAction CSCal4_DblClick() const;
  static bool CSCal4_KeyDown(int key);
  void Timer1_Timer() { day_.Timer1_Timer(); }

  // The Edit menu as it opens.
  void EditCTL_Open();

  int Tab = 0;          // SSTab1: 0 the month, 1 the day
  int Combo1Index = 0;  // month list, 0 January
  int Combo2Index = 0;  // year list, 0 for kFirstYear
  std::int16_t ViewsReady = 0;
  std::int16_t ArrowMoved = 0;
  std::int16_t BackFromDay = 0;
  std::int16_t FillOnCombo = -1;
  std::int16_t PopupActive = 0;
  bool LayoutPending = false;
  CivilDate DateHelper;   // the hidden date helper of the month tab
  std::string DateLabel;  // Label6(1)
  FocusTarget Focus = FocusTarget::Text1;
  ScheduleListFrame ListFrame;  // kept current by the window

 private:
  void WriteDateLabel(const CivilDate& date);
  void ZeroHolidayArrays();
  void RefreshScheduleList();
  // Toolbar button 3: on the day tab while the day list has rows.
  void UpdateToolbar();
  // Day 1 of the month the combos stand on becomes the current date; the grid follows.
  void TurnToComboMonth(const CivilDate& date, bool newYear);
  ListSelection CellSelection(int cell) const;

  ViewServices s_;
  MonthView month_;
  DayView day_;
  ScheduleList list_;
  MenuState menus_;
  bool gridStale_ = false;  // data changed while the day tab showed
};

}  // namespace sched
