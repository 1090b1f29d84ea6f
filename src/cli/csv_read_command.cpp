#include "cli/cli_args.h"
#include "cli/csv_options.h"
#include "cli/json_text.h"
#include "cli/verb.h"
#include "interchange/csv_reader.h"

namespace sched {
namespace {

// One line for each row the import would read, then why it stopped reading.
int RunCsvRead(const std::vector<std::string>& args, std::ostream& out, std::ostream& err,
               CodePage page) {
  RequireArguments(args, {"IN.csv"});
  const std::optional<CsvFileBytes> bytes = ReadCsvBytes(args[0], err);
  if (!bytes) return kExitRefused;
  CsvReader reader(bytes->Text(), page);
  std::string stop = "end_of_file";
  try {
    while (reader.CsvReadPos() < reader.CsvFileLength()) {
      const CsvRow row = reader.ReadCsvRow();
      out << "{\"items\":[";
      for (std::size_t i = 0; i < row.items.size(); ++i) {
        out << (i > 0 ? "," : "") << JsonString(row.items[i]);
      }
      out << "],\"lineEnd\":" << (row.atLineEnd ? "true" : "false")
          << ",\"error\":" << row.errorCode << ",\"pos\":" << reader.CsvReadPos() << "}\n";
      if (row.items.empty() && row.atLineEnd) {
        stop = "empty_line";
        break;
      }
    }
  } catch (const CsvReadFailure&) {
    stop = "failure";
  }
  out << "{\"stop\":\"" << stop << "\"}\n";
  return kExitDone;
}

}  // namespace

const Verb kCsvReadVerb{"csv-read", "IN.csv",
                        "shows how a CSV file's rows are read: one JSON line a row, then why "
                        "reading stopped",
                        RunCsvRead, true};

}  // namespace sched
