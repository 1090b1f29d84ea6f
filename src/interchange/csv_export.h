#pragma once

#include <cstdint>
#include <memory>
#include <span>
#include <string>
#include <string_view>
#include <vector>

#include "interchange/csv_date_time.h"
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

  // The span of a live row as a number of the groups; -1 for a row of no span.
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

// Room for the dates of a row's fields, which the table does not hold as text. It is kept from
// row to row, and a date that a field held in the row before is not made again: rows come day
// by day.
struct CsvRowRoom {
  std::array<std::array<char, kCsvDateLength>, kCsvFieldCount> dates;
  // The date code of each date field's text; -2 for none.
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
// valid until the next row is built; the title, the place and the memo are the table's texts,
// whose CRs the writing drops.
bool BuildCsvRow(const SchDatTable& list, int at, SpanGroups& spans, CsvRowRoom& room,
                 CsvRowFields& fields);

// The last column that writes a field no earlier column writes; -1 when none does.
int LastColumn(const std::vector<std::int16_t>& map);

// The field that each column from 0 to LastColumn writes; -1 for a column that writes none, as
// the second column of a field does.
std::vector<std::int16_t> WrittenFields(const std::vector<std::int16_t>& map);

// Lines of text made for a file: room is made ahead of them and written over, never cleared
// first, as lines are many and short.
class CsvLines {
 public:
  // Room for at least `most` more bytes at the end, for the caller to write and then End.
  char* Room(std::size_t most) {
    if (most > capacity_ - size_) Grow(most);
    return bytes_.get() + size_;
  }
  // The text now ends at `end`, inside the room made last.
  void End(const char* end) { size_ = static_cast<std::size_t>(end - bytes_.get()); }
  std::span<const std::uint8_t> Bytes() const {
    return {reinterpret_cast<const std::uint8_t*>(bytes_.get()), size_};
  }
  void Clear() { size_ = 0; }

 private:
  void Grow(std::size_t most);

  std::unique_ptr<char[]> bytes_;
  std::size_t size_ = 0;
  std::size_t capacity_ = 0;
};

// Appends one line in the code page: a column for each of `written`, every item in double
// quotes as it stands, the texts of title, place and memo without CRs, and CR LF.
void WriteCsvRow(CsvLines& out, const CsvRowFields& row, const std::vector<std::int16_t>& written,
                 CodePage page);

// The whole schedule as CSV text in the mapping of `settings`, in the document's code page,
// handed to `sink` a piece at a time so that a large export is never held whole; the bar
// runs from 0 to 100 over the years. False when the sink refused a piece.
[[nodiscard]] bool ExportCsvFile(const ScheduleDocument& doc, CsvSettings settings,
                                 ProgressDisplay& progress, FileSink& sink);

// The same written safely to the file at `path`; false when it could not be written.
[[nodiscard]] bool ExportCsvFile(const ScheduleDocument& doc, const CsvSettings& settings,
                                 ProgressDisplay& progress, const std::string& path);

}  // namespace sched
