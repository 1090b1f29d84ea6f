#include "views/schedule_list_model.h"

#include "core/app_texts.h"
#include "store/chains.h"
#include "store/schedule_store.h"
#include "views/line_text.h"
#include "views/view_texts.h"

namespace sched {

DialogPosition PlaceScheduleList(const ScheduleListPlace& p) {
  DialogPosition pos;
  pos.top = p.tab.top + p.tabStripHeight + p.cell.top + p.formTop + p.headHeight + p.cell.height;
  if (p.dialogHeight / 1.5 + pos.top >= p.screenHeight) {
    pos.top = pos.top - p.dialogHeight - p.cell.height;
    pos.flipped = true;
  }
  pos.left = p.tab.left + p.cell.left + p.formLeft;
  return pos;
}

int ScheduleList::FillDayIndex(const SchDatCTL& ctl, const CivilDate& date, bool indexOnly,
                               int rowToSelect) {
  if (ctl.YearCount == 0) return 0;
  const int yearRow = FindYearRow(ctl, date.year);
  const int monthRow = yearRow == -1 ? -1 : FindMonthRow(ctl, yearRow, date.month);
  const int head = monthRow == -1 ? -1 : GetDayHead(ctl, monthRow, date.day);
  if (!indexOnly) {
    Lines.clear();
    Row = RowSel = -1;
  }
  List3.clear();
  List3Index = -1;
  int count = 0;
  const auto& list = ctl.SchDatList;
  for (int row : DayChain(list, head)) {
    const SchDatRow& r = list.At(row);
    if (r.blank || r.Deleted == kDeleted) continue;
    if (!indexOnly) Lines.push_back(ListLineText(ctl, row));
    List3.push_back(row);
    ++count;
  }
  if (!indexOnly) {
    Lines.emplace_back();
    if (count != 0) Row = RowSel = rowToSelect;
  }
  if (rowToSelect < count && count != 0) List3Index = rowToSelect;
  return count;
}

void ScheduleList::List1_Click(int row, int rowSel, Messages& messages) {
  Select(row, rowSel);
  if (row == rowSel) return;
  messages.Show({texts::kCannotModifyMultiple, kAppTitle, MsgIcon::Exclamation, MsgButtons::Ok});
}

void ScheduleList::Select(int row, int rowSel) {
  Row = row;
  RowSel = rowSel;
  Active = true;
}

ViewAction ScheduleList::List1_DblClick() {
  Active = true;
  if (!IsItemSelection(Selection())) return {};
  return {ViewCommand::ModifySchedule, List3[static_cast<std::size_t>(Row)], {}};
}

PopupItems ScheduleList::Popup(bool clipboardFull) const {
  return PopupItemsFor(Selection(), clipboardFull);
}

void ScheduleList::Form_KeyDown(int key) {
  if (key == kKeyEscape) Visible = false;
}

}  // namespace sched
