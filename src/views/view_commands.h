#pragma once

#include "platform/key_codes.h"

namespace sched {

// What the widget must run after a mouse or key event on the views. The views decide; the
// commands themselves (edit, delete, copy and paste dialogs, help, popups) live elsewhere.
enum class ViewCommand {
  None,
  AddSchedule,       // a new item for the current date
  ModifySchedule,    // the edit dialog on `row`
  DeleteSchedule,    // the selected items deleted, as the Delete command does
  ShowPopupMenu2,    // the popup of a cell or the day list, entries as in `popup`
  ShowPopupMenu3,    // the popup of the day tab's calendar
  FocusScheduleList  // the schedule list dialog takes the focus
};

// The enablement of the popup's item entries: Copy, Modify, Delete (Pop2Copy, Pop2Update,
// Pop2Del and their twins) and Paste.
struct PopupItems {
  bool Copy = false;
  bool Update = false;
  bool Del = false;
  bool Paste = false;
  bool Hctl = false;  // the holiday entries, shown on the day list only
};

struct ViewAction {
  ViewCommand command = ViewCommand::None;
  int row = -1;  // the SchDatList row for ModifySchedule
  PopupItems popup;
};

// The selection of a list: its rows (the blank last line included), the selected row (-1 for
// none) and the other end of a selection of several rows.
struct ListSelection {
  int rows = 0;
  int row = -1;
  int rowSel = -1;
};

// True when the selection is one item row: not several rows, not the blank last line or below,
// not nothing.
constexpr bool IsItemSelection(const ListSelection& s) {
  return s.row >= 0 && s.row == s.rowSel && s.row < s.rows - 1;
}

// The item entries by the list's selection; Paste by the clipboard.
constexpr PopupItems PopupItemsFor(const ListSelection& s, bool clipboardFull) {
  const bool item = IsItemSelection(s);
  return {item, item, item, clipboardFull, false};
}

// What a list's selection gives the item commands: several rows, or one item's SchDatList row
// (-1 when the selection is no item).
struct ItemChoice {
  bool multiple = false;
  int row = -1;
};

// The menus and toolbar buttons the views enable.
struct MenuState {
  // Menu DelCTRL and its entries.
  bool DelCTRL = false;
  bool DelMonth = false;
  bool DelYear = false;
  bool DelBefore = false;
  bool DelAfter = false;
  // Menu EditCTL.
  bool CopySchdat = false;
  bool PasteSchdat = false;
  bool UpdSchDat = false;
  bool DelSchDat = false;
  // Set_YearH and the YearH entries of the popups.
  bool YearHolidays = true;
  // Toolbar button 3 (delete an item).
  bool ToolbarDelete = false;
};

// Where the keyboard focus goes after a move of the date.
enum class FocusTarget { Text1, List1, CSCal4 };

}  // namespace sched
