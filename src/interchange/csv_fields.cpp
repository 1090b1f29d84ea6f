#include "interchange/csv_fields.h"

#include <algorithm>
#include <utility>

#include "core/text_case.h"
#include "shell/settings.h"

namespace sched {
namespace {

constexpr const char* kColumnsKey = "CSVfields";
constexpr const char* kHeaderKey = "CSV1line";

// The column names that mail programs write, beside the fields' own names.
constexpr std::pair<std::string_view, CsvField> kMailNames[] = {
    {"Subject", kCsvTitle},           {"All day event", kCsvAllDay},
    {"Reminder on/off", kCsvAlarmOn}, {"Reminder Date", kCsvAlarmDate},
    {"Reminder Time", kCsvAlarmTime}, {"Location", kCsvPlace},
    {"Description", kCsvMemo}};

std::optional<int> FieldOfHeaderName(std::string_view name) {
  for (int f = 0; f < kCsvFieldCount; ++f) {
    if (EqualsIgnoringCase(name, CsvFieldNames[f])) return f;
  }
  for (const auto& [mailName, field] : kMailNames) {
    if (EqualsIgnoringCase(name, mailName)) return field;
  }
  return std::nullopt;
}

}  // namespace

std::vector<std::string> SplitCsvColumnNames(std::string_view text) {
  std::vector<std::string> names;
  while (!text.empty()) {
    const std::size_t comma = std::min(text.find(','), text.size());
    const std::string_view name = Trim(text.substr(0, comma));
    if (!name.empty()) names.emplace_back(name);
    text.remove_prefix(std::min(comma + 1, text.size()));
  }
  return names;
}

CsvSettings LoadCsvSettings(SettingsStore& settings, const std::string& appKey) {
  CsvSettings csv;
  csv.CsvColumns =
      SplitCsvColumnNames(settings.GetSetting(appKey, kDayviewSection, kColumnsKey, ""));
  csv.CsvFirstRowIsHeader = settings.GetSetting(appKey, kDayviewSection, kHeaderKey, "1") != "0";
  return csv;
}

void SaveCsvSettings(SettingsStore& settings, const std::string& appKey, const CsvSettings& csv) {
  std::string names;
  for (const std::string& name : csv.CsvColumns) names += name + ",";
  settings.SaveSetting(appKey, kDayviewSection, kColumnsKey, names);
  settings.SaveSetting(appKey, kDayviewSection, kHeaderKey, csv.CsvFirstRowIsHeader ? "1" : "0");
}

void EnsureDefaultCsvColumns(std::vector<std::string>& columns) {
  if (!columns.empty()) return;
  columns.assign(CsvFieldNames.begin(), CsvFieldNames.end());
}

std::vector<std::int16_t> BuildCsvColumnMap(const std::vector<std::string>& columns) {
  std::vector<std::int16_t> map;
  map.reserve(columns.size());
  for (const std::string& name : columns) {
    const auto found = std::find(CsvFieldNames.begin(), CsvFieldNames.end(), name);
    map.push_back(found == CsvFieldNames.end()
                      ? std::int16_t{-1}
                      : static_cast<std::int16_t>(found - CsvFieldNames.begin()));
  }
  return map;
}

std::optional<std::vector<std::string>> CsvColumnsFromHeader(
    const std::vector<std::string>& header) {
  std::vector<std::string> columns;
  int known = 0;
  for (const std::string& item : header) {
    const std::optional<int> field = FieldOfHeaderName(Trim(item));
    if (field) ++known;
    columns.emplace_back(field ? CsvFieldNames[*field] : kCsvNotUsed);
  }
  if (known < 2) return std::nullopt;
  return columns;
}

}  // namespace sched
