#pragma once

#include <cstdint>
#include <optional>
#include <string>
#include <unordered_set>
#include <vector>

#include "core/calendar.h"
#include "platform/date_formatter.h"
#include "platform/messages.h"
#include "store/schedule_store.h"

namespace sched {

// The delete commands: the selected items of a list, and the four bulk commands on the
// calendar. Each asks first; a No leaves everything as it was. A removal takes the whole series
// of an item, and every removed row leaves today's alarm list through the store's alarm hooks.
// On true the caller marks the document changed and refreshes the views.
class DeleteCommands {
 public:
  DeleteCommands(ScheduleStore& store, Messages& messages, const DateFormatter& dates)
      : store_(store), messages_(messages), dates_(dates) {}

  // The selected lines of a list, as their SchDatList rows in list order (the blank last line
  // left out). True when something was removed.
  bool DeleteSelection(const std::vector<int>& rows);

  // "Delete this Month", "Delete this Year", "Delete Older than selected date", "Delete Newer
  // than selected date". True when the schedule changed. A month or year without a row of its
  // own is passed over without a question.
  bool DelMonth_Click(int year, int month);
  bool DelYear_Click(int year);
  bool DelBefore_Click(const CivilDate& date);
  bool DelAfter_Click(const CivilDate& date);

 private:
  // The days a bulk command covers, as DateCodes, both ends included. Days 29 to 31 count in
  // every month, so that a month is whole when all of its 31 day heads are in the range.
  struct DayRange {
    std::int32_t first = 0;
    std::int32_t last = 0;
    bool Holds(int year, int month, int day) const {
      const std::int32_t code = DateCode(year, month, day);
      return code >= first && code <= last;
    }
  };
  // What one bulk command has done so far.
  struct BulkRun {
    std::optional<bool> leaveRepeats;  // the answer to the repeat question, once it was asked
    std::unordered_set<SeriesKey, SeriesKeyHash> cutSeries;  // series that lost rows
    bool removedRows = false;
    bool clearedMarks = false;
  };

  // A Yes/No question with the exclamation icon; true for Yes.
  bool Ask(const std::string& text);
  // Confirmed bulk removal: the holiday marks of the days in range, then the rows of their day
  // chains; the series it cut end on their last remaining row.
  bool DeleteDays(const DayRange& range);
  void ClearHolidayMarks(AncYYRow& year, const DayRange& range, BulkRun& run);
  // Removes a live row unless it belongs to a series that the user chose to leave.
  void BulkRemoveRow(int row, BulkRun& run);
  // The remaining rows of a series take the date of its last remaining row as their end.
  void RepairSeriesEnds(const SeriesKey& series);

  ScheduleStore& store_;
  Messages& messages_;
  const DateFormatter& dates_;
};

}  // namespace sched
