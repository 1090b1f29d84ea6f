#pragma once

#include <array>
#include <cstdint>
#include <optional>
#include <string>
#include <string_view>
#include <vector>

#include "platform/settings_store.h"

namespace sched {

// The twelve fields of a CSV row, in the order of their indexes.
inline constexpr int kCsvFieldCount = 12;
inline constexpr std::array<std::string_view, kCsvFieldCount> CsvFieldNames = {
    "Title",        "Start Date", "Start Time", "End Date", "End Time", "All Day Event",
    "Alarm On/Off", "Alarm Date", "Alarm Time", "Place",    "Memo",     "Private"};

enum CsvField : int {
  kCsvTitle,
  kCsvStartDate,
  kCsvStartTime,
  kCsvEndDate,
  kCsvEndTime,
  kCsvAllDay,
  kCsvAlarmOn,
  kCsvAlarmDate,
  kCsvAlarmTime,
  kCsvPlace,
  kCsvMemo,
  kCsvPrivate
};

// The twelve field texts of one row, indexed as CsvFieldNames: views into the file, the table
// or the room of whoever fills them.
using CsvRowFields = std::array<std::string_view, kCsvFieldCount>;

// A column that is read and dropped.
inline constexpr std::string_view kCsvNotUsed = "Not Used";

// The user's mapping: one field name a file column, and whether the first row is a header.
struct CsvSettings {
  std::vector<std::string> CsvColumns;
  bool CsvFirstRowIsHeader = true;
};

// Reads the stored mapping; the columns stay empty when none is stored. A missing header flag
// is on: files of other programs begin with a header row.
CsvSettings LoadCsvSettings(SettingsStore& settings, const std::string& appKey);
void SaveCsvSettings(SettingsStore& settings, const std::string& appKey, const CsvSettings& csv);
// No columns at all become the twelve fields in their order.
void EnsureDefaultCsvColumns(std::vector<std::string>& columns);

// The field index of each column, -1 for a name that is no field ("Not Used" among them).
std::vector<std::int16_t> BuildCsvColumnMap(const std::vector<std::string>& columns);

// "Title,Start Date,..." as a list of names; blanks around a name are dropped.
std::vector<std::string> SplitCsvColumnNames(std::string_view text);

// The columns of a header row written by a mail program or by this program: each known name
// on its field, any other column "Not Used". Nothing when fewer than two names are known, so a
// row of data is not taken for a header.
std::optional<std::vector<std::string>> CsvColumnsFromHeader(
    const std::vector<std::string>& header);

}  // namespace sched
