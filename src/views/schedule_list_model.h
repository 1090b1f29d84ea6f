#pragma once

#include <string>
#include <vector>

#include "core/calendar.h"
#include "platform/messages.h"
#include "store/sch_tables.h"
#include "views/layout.h"
#include "views/view_commands.h"

namespace sched {

// Where the schedule list dialog stands, in twips: the window, its tab, the selected cell's
// plate, the heads' height, the dialog's height and the screen's height.
struct ScheduleListPlace {
  double formLeft = 0;
  double formTop = 0;
  RectF tab;
  double tabStripHeight = 0;
  RectF cell;
  double headHeight = 270;
  double dialogHeight = 0;
  double screenHeight = 0;
};

struct DialogPosition {
  double left = 0;
  double top = 0;
  bool flipped = false;  // the dialog stands above the cell
};

// The dialog hangs from the cell's bottom edge, or stands above the cell when it would reach
// too far down the screen.
DialogPosition PlaceScheduleList(const ScheduleListPlace& place);

// The schedule list dialog SchDT and the hidden list List3 of its rows.
class ScheduleList {
 public:
  // Fills the hidden list, and unless `indexOnly` the dialog's lines, with the date's items.
  // Gives the count of items.
  int FillDayIndex(const SchDatCTL& ctl, const CivilDate& date, bool indexOnly, int rowToSelect);

  // A click on the dialog's list selects from `row` to `rowSel`; several rows bring a warning.
  void List1_Click(int row, int rowSel, Messages& messages);
  // The user selects from `row` to `rowSel`: the item commands act on this list from now on.
  void Select(int row, int rowSel);
  // Double click or Enter: the modify command on the selected line's row; from now on the item
  // commands act on this list, whatever the cell's list selects.
  ViewAction List1_DblClick();
  // The popup's entries for the dialog's selection.
  PopupItems Popup(bool clipboardFull) const;
  // Escape hides the dialog.
  void Form_KeyDown(int key);

  ListSelection Selection() const { return {static_cast<int>(Lines.size()), Row, RowSel}; }

  std::vector<int> List3;          // the SchDatList row of each item line
  int List3Index = -1;             // the hidden list's selection
  std::vector<std::string> Lines;  // SchDT.List1: a line an item, then one blank line
  int Row = -1;                    // the dialog list's selected row
  int RowSel = -1;
  std::string Caption;
  bool Visible = false;
  bool Active = false;  // the user worked in the list since it was shown or the cell changed
  DialogPosition Position;
};

}  // namespace sched
