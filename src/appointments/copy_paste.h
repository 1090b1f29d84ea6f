#pragma once

#include "appointments/repeat_rule.h"
#include "core/calendar.h"
#include "platform/messages.h"
#include "store/schedule_store.h"

namespace sched {

// Copy remembers one item by its SchDatList row (the document's CopiedRow, and for a series
// its first and last date); Paste writes a new item, or a new series, on the shown date. The
// program's own clipboard: the system's is not used.
class CopyPaste {
 public:
  CopyPaste(ScheduleStore& store, Messages& messages) : store_(store), messages_(messages) {}

  // Copies the item of a list's selection: `multiple` for a selection of several rows, `row`
  // the SchDatList row of the selected item or -1. False, after telling the user, when there
  // is nothing to copy ("Cannot copy multiple rows.", "Cannot copy this day that no
  // schedule."); the old copy then stays.
  bool CopySchedule(bool multiple, int row);

  // Pastes the copy on the shown date (CurYear, CurMonth, CurDay): a series keeps its interval
  // and count when the user keeps the rule, and takes its weekday, day or month from the
  // shown date. False when nothing was written.
  bool PasteSchedule();

 private:
  // The copied row's cells as the working record: what the row holds, deleted or not.
  SchRecord LoadCopiedRecord(int row) const;
  // The same as a plain item, without its rule.
  SchRecord LoadCopiedAsSingle(int row) const;
  CivilDate ShownDate() const;

  // One plain item on the shown date, under a new stamp.
  void PasteSingle(int row);
  // An item over several dates: as many days from the shown date as the copy spans, cut at
  // kEndLimit.
  void PasteOverDays(int row);
  // A series of the copy's kind, interval and count from the shown date, which gives the rule
  // its weekday, day and month; cut at kEndLimit. It stands for PasteDaily, PasteWeekly,
  // PasteMonthly, PasteYearly, PasteMonthlyWeekday and PasteYearlyWeekday alike.
  void PasteRepeat(int row, const DecodedRepeatKind& kind);

  ScheduleStore& store_;
  Messages& messages_;
};

}  // namespace sched
