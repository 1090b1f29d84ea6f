#pragma once

#include <cstdint>
#include <string>
#include <string_view>
#include <unordered_set>
#include <vector>

#include "interchange/csv_fields.h"
#include "platform/progress_display.h"
#include "platform/std/safe_file.h"
#include "store/document.h"
#include "store/row_index.h"

namespace sched {

// The span groups (ParentSubNo, ParentStamp) already written as one row.
using ExportedGroups = std::unordered_set<SeriesKey, SeriesKeyHash>;

// The field texts of a live row into `fields`; false, and `fields` as they were, for a further
// day of a span already written. The fields are filled anew, so one set serves every row.
bool BuildCsvRow(const SchDatCTL& tables, const SchDatRow& row, ExportedGroups& exported,
                 CsvRowFields& fields);

// The last column that writes a field no earlier column writes; -1 when none does.
int LastColumn(const std::vector<std::int16_t>& map);

// Appends one line in the code page: columns 0 to `lastColumn`, every item in double quotes as
// it stands, the second column of a field empty, and CR LF.
void WriteCsvRow(std::string& out, const CsvRowFields& row, const std::vector<std::int16_t>& map,
                 int lastColumn, CodePage page);

// The whole schedule as CSV text in the mapping of `settings`, in the document's code page,
// handed to `sink` a piece at a time so that a large export is never held whole; the bar
// runs from 0 to 100 over the years. False when the sink refused a piece.
[[nodiscard]] bool ExportCsvFile(const ScheduleDocument& doc, CsvSettings settings,
                                 ProgressDisplay& progress, FileSink& sink);

// The same written safely to the file at `path`; false when it could not be written.
[[nodiscard]] bool ExportCsvFile(const ScheduleDocument& doc, const CsvSettings& settings,
                                 ProgressDisplay& progress, const std::string& path);

}  // namespace sched
