#include "cli/cli_store.h"
#include "cli/csv_options.h"
#include "cli/verb.h"
#include "interchange/csv_export.h"
#include "platform/std/user_settings_file.h"

namespace sched {
namespace {

int RunExportCsv(const std::vector<std::string>& args, std::ostream&, std::ostream& err,
                 CodePage page) {
  std::string target;
  const CommandOptions options =
      ParseInOut(args, "IN.scl", "OUT.csv", {"--columns"}, {"--header", "--no-header"}, target);
  UserSettingsFile stored(UserSettingsFile::WindowSettingsPath());
  const CsvSettings csv = CsvSettingsOfOptions(options, stored);
  CliStore cli(err, page);
  if (!cli.Load(options.file)) return kExitRefused;
  SilentProgress progress;
  if (!ExportCsvFile(cli.Document(), csv, progress, target)) {
    err << "Write error!\n";
    return kExitRefused;
  }
  return kExitDone;
}

}  // namespace

const Verb kExportCsvVerb{
    "export-csv", "IN.scl OUT.csv [--columns \"Title,Start Date,...\"] [--header|--no-header]",
    "writes a schedule file's items as a CSV file, as the window's export does", RunExportCsv,
    true};

}  // namespace sched
