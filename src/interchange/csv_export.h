#pragma once

#include <cstdint>
#include <string>
#include <string_view>
#include <vector>

#include "interchange/csv_fields.h"
#include "platform/progress_display.h"
#include "platform/std/safe_file.h"
#include "store/document.h"
#include "store/row_index.h"

namespace sched {

// The items over several days (ParentSubNo, ParentStamp) of a table, each written as one row:
// the first of its rows that the export meets, which lies in the first of the years table's
// years that holds one. Years can so be turned into text apart, side by side.
class SpanGroups {
 public:
  explicit SpanGroups(const SchDatCTL& tables);

  // The span of a live row of a span, as a number of the groups.
  int Of(int row) const { return groupOfRow_[static_cast<std::size_t>(row)]; }
  // The range of a group over the live rows of the item's series.
  const SeriesRange& Range(int group) const { return ranges_[static_cast<std::size_t>(group)]; }
  // Marks the group written when `row`, one of its rows, is the one to write it; false when
  // it is not, or the group was written before.
  bool TakeWrite(int group, const SchDatRow& row) {
    const auto g = static_cast<std::size_t>(group);
    // Only the run of the group's first year looks at its flag.
    if (YearIndex(row.Year) != firstYear_[g] || written_[g] != 0) return false;
    written_[g] = 1;
    return true;
  }
  // The row of a year in the years table; -1 for a year it does not hold.
  int YearIndex(int year) const {
    return year < kFirstYear || year > kLastYear
               ? -1
               : yearIndex_[static_cast<std::size_t>(year - kFirstYear)];
  }

 private:
  std::array<std::int16_t, kLastYear - kFirstYear + 1> yearIndex_;
  std::vector<SeriesRange> ranges_;
  std::vector<int> firstYear_;  // the first year row of each group's rows
  // Kept apart from the ranges, which only a group's first row reads: every row of a span asks
  // for its flag.
  std::vector<std::uint8_t> written_;
  std::vector<std::int32_t> groupOfRow_;  // -1 for a row of no span
};

// Room for the field texts that the table does not hold as they are written: dates, times and
// texts without their CRs. It is kept from row to row, and a date or time that a field held in
// the row before is not made again: rows come day by day.
struct CsvRowRoom {
  std::array<std::string, kCsvFieldCount> texts;
  // The date code or the minutes of each date or time field's text; -2 for none.
  std::array<std::int32_t, kCsvFieldCount> made = MadeNone();

 private:
  static std::array<std::int32_t, kCsvFieldCount> MadeNone() {
    std::array<std::int32_t, kCsvFieldCount> none{};
    none.fill(-2);
    return none;
  }
};

// The field texts of the live row at `at` into `fields`; false, and `fields` as they were, for
// a further day of a span already written. The fields are views into the table and `room`,
// valid until the next row is built.
bool BuildCsvRow(const SchDatTable& list, int at, SpanGroups& spans, CsvRowRoom& room,
                 CsvRowFields& fields);

// The last column that writes a field no earlier column writes; -1 when none does.
int LastColumn(const std::vector<std::int16_t>& map);

// The field that each column from 0 to LastColumn writes; -1 for a column that writes none, as
// the second column of a field does.
std::vector<std::int16_t> WrittenFields(const std::vector<std::int16_t>& map);

// Appends one line in the code page: a column for each of `written`, every item in double
// quotes as it stands, and CR LF.
void WriteCsvRow(std::string& out, const CsvRowFields& row,
                 const std::vector<std::int16_t>& written, CodePage page);

// The whole schedule as CSV text in the mapping of `settings`, in the document's code page,
// handed to `sink` a piece at a time so that a large export is never held whole; the bar
// runs from 0 to 100 over the years. False when the sink refused a piece.
[[nodiscard]] bool ExportCsvFile(const ScheduleDocument& doc, CsvSettings settings,
                                 ProgressDisplay& progress, FileSink& sink);

// The same written safely to the file at `path`; false when it could not be written.
[[nodiscard]] bool ExportCsvFile(const ScheduleDocument& doc, const CsvSettings& settings,
                                 ProgressDisplay& progress, const std::string& path);

}  // namespace sched
