#include "cli/cli_store.h"
#include "cli/csv_options.h"
#include "cli/verb.h"
#include "interchange/csv_import.h"
#include "interchange/csv_reader.h"
#include "platform/std/user_settings_file.h"

namespace sched {
namespace {

int RunImportCsv(const std::vector<std::string>& args, std::ostream&, std::ostream& err,
                 CodePage page) {
  std::string target;
  const CommandOptions options =
      ParseInOut(args, "IN.csv", "OUT.scl", {"--columns"},
                 {"--header", "--no-header", "--columns-from-header"}, target);
  options.Excludes("--columns", "--columns-from-header");
  options.Excludes("--no-header", "--columns-from-header");
  UserSettingsFile stored(UserSettingsFile::WindowSettingsPath());
  CsvSettings csv = CsvSettingsOfOptions(options, stored);
  const std::optional<CsvFileBytes> bytes = ReadCsvBytes(options.file, err);
  if (!bytes) return kExitRefused;
  if (options.Flag("--columns-from-header")) {
    std::optional<std::vector<std::string>> columns;
    try {
      columns = CsvColumnsFromHeader(CsvReader(bytes->Text(), page).ReadCsvRow().items);
    } catch (const CsvReadFailure&) {
    }
    if (!columns) {
      err << "scltool: " << options.file << ": the first row names no known column\n";
      return kExitRefused;
    }
    csv.CsvColumns = *columns;
  }
  CliStore cli(err, page);
  SilentProgress progress;
  SystemClock clock;
  if (!ImportCsvFile({cli.Store(), progress, clock}, bytes->Text(), csv)) {
    err << "Read error!\n";
    return kExitRefused;
  }
  return cli.Save(target) ? kExitDone : kExitRefused;
}

}  // namespace

const Verb kImportCsvVerb{
    "import-csv",
    "IN.csv OUT.scl [--columns \"Title,Start Date,...\"] [--header|--no-header]\n"
    "                [--columns-from-header]",
    "makes a schedule file of a CSV file's rows, as the window's import does", RunImportCsv, true};

}  // namespace sched
