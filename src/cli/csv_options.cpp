#include "cli/csv_options.h"

#include "cli/verb.h"

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

CommandOptions ParseInOut(const std::vector<std::string>& args, std::string_view inName,
                          std::string_view outName, std::initializer_list<std::string_view> valued,
                          std::initializer_list<std::string_view> flags, std::string& out) {
  if (args.size() < 2 || args[1].starts_with("--")) {
    const std::vector<std::string> head(args.begin(), args.begin() + (args.empty() ? 0 : 1));
    RequireArguments(head, {inName, outName});
  }
  out = args[1];
  std::vector<std::string> rest = args;
  rest.erase(rest.begin() + 1);
  return ParseOptions(rest, valued, flags);
}

CsvSettings CsvSettingsOfOptions(const CommandOptions& options) {
  options.Excludes("--header", "--no-header");
  CsvSettings csv;
  if (const std::string* columns = options.Value("--columns")) {
    csv.CsvColumns = SplitCsvColumnNames(*columns);
    if (csv.CsvColumns.empty()) throw UsageError("--columns names no column");
  }
  EnsureDefaultCsvColumns(csv.CsvColumns);
  csv.CsvFirstRowIsHeader = !options.Flag("--no-header");
  return csv;
}

}  // namespace sched
