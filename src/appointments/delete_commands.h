#pragma once

#include <vector>

#include "core/calendar.h"
#include "platform/date_formatter.h"
#include "platform/messages.h"
#include "store/schedule_store.h"

namespace sched {

// The delete commands: the selected items of a list, and the four bulk commands on the
// calendar. Each asks first; a No leaves everything as it was. A removal takes the whole series
// of an item, and every removed row leaves today's alarm list through the store's alarm hooks.
class DeleteCommands {
 public:
  DeleteCommands(ScheduleStore& store, Messages& messages, const DateFormatter& dates)
      : store_(store), messages_(messages), dates_(dates) {}

  // The selected lines of a list, as their SchDatList rows in list order (the blank last line
  // left out). True when something was removed.
  bool DeleteSelection(const std::vector<int>& rows);

  // "Delete this Month", "Delete this Year", "Delete Older than selected date", "Delete Newer
  // than selected date". True when the schedule changed.
  bool DelMonth_Click(int year, int month);
  bool DelYear_Click(int year);
  bool DelBefore_Click(const CivilDate& date);
  bool DelAfter_Click(const CivilDate& date);

 private:
  ScheduleStore& store_;
  Messages& messages_;
  const DateFormatter& dates_;
};

}  // namespace sched
