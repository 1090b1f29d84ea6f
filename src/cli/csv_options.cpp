#include "cli/csv_options.h"

#include "cli/verb.h"
#include "shell/settings.h"

namespace sched {

std::optional<CsvFileBytes> ReadCsvBytes(const std::string& path, std::ostream& err) {
  std::string why;
  std::optional<FileBytes> bytes = ReadWholeFile(path, &why);
  if (!bytes) {
    err << "Read error!\nscltool: " << path << ": " << why << '\n';
    return std::nullopt;
  }
  return CsvFileBytes(std::move(*bytes));
}

CsvSettings CsvSettingsOfOptions(const CommandOptions& options, SettingsStore& stored) {
  options.Excludes("--header", "--no-header");
  CsvSettings csv = LoadCsvSettings(stored, kSettingsApp);
  if (const std::string* columns = options.Value("--columns")) {
    csv.CsvColumns = SplitCsvColumnNames(*columns);
    if (csv.CsvColumns.empty()) throw UsageError("--columns names no column");
  }
  EnsureDefaultCsvColumns(csv.CsvColumns);
  if (options.Flag("--header") || options.Flag("--no-header")) {
    csv.CsvFirstRowIsHeader = options.Flag("--header");
  }
  return csv;
}

}  // namespace sched
