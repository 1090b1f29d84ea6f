#pragma once

#include <cstdint>
#include <optional>
#include <set>
#include <string>
#include <utility>
#include <vector>

#include "interchange/csv_fields.h"
#include "interchange/csv_import.h"
#include "platform/progress_display.h"
#include "store/document.h"

namespace sched {

// The span groups (ParentSubNo, ParentStamp) already written as one row.
using ExportedGroups = std::set<std::pair<std::int32_t, std::int32_t>>;

// The field texts of a live row; nothing for a further day of a span already written.
std::optional<CsvRowFields> BuildCsvRow(const SchDatCTL& tables, const SchDatRow& row,
                                        ExportedGroups& exported);

// The last column that writes a field no earlier column writes; -1 when none does.
int LastColumn(const std::vector<std::int16_t>& map);

// Appends one line: columns 0 to `lastColumn`, every item in double quotes as it stands, the
// second column of a field empty, and CR LF.
void WriteCsvRow(std::string& out, const CsvRowFields& row, const std::vector<std::int16_t>& map,
                 int lastColumn);

// The whole schedule as CSV text in the mapping of `settings`, in the document's code page;
// the bar runs from 0 to 100 over the years.
std::string ExportCsvFile(const ScheduleDocument& doc, CsvSettings settings,
                          ProgressDisplay& progress);

}  // namespace sched
