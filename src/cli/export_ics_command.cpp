#include <ctime>
#include <fstream>
#include <sstream>

#include "cli/cli_args.h"
#include "cli/cli_store.h"
#include "cli/verb.h"
#include "link/ics_export.h"
#include "link/link_exchange.h"
#include "link/link_records.h"
#include "platform/std/safe_file.h"
#include "platform/std/system_clock.h"

namespace sched {
namespace {

DateTime UtcNow() {
  const std::time_t now = std::time(nullptr);
  std::tm utc{};
  gmtime_r(&now, &utc);
  return {utc.tm_year + 1900, utc.tm_mon + 1, utc.tm_mday, utc.tm_hour, utc.tm_min, utc.tm_sec};
}

// Every live item of the schedule into the calendar file, as Export sends it over the data
// link with the mark of "Import exported data" cleared; a calendar that is there keeps its other
// events.
int RunExportIcs(const std::vector<std::string>& args, std::ostream&, std::ostream& err,
                 CodePage page) {
  RequireArguments(args, {"IN.scl", "OUT.ics"});
  CliStore cli(err, page);
  if (!cli.Load(args[0])) return kExitRefused;
  const auto file = BuildExportFile(cli.Document().Tables, false, SystemClock().Now(), page);
  if (!file) {
    err << "No export data!\n";
    return kExitRefused;
  }
  std::ostringstream existing;
  existing << std::ifstream(args[1], std::ios::binary).rdbuf();
  const std::optional<std::string> calendar =
      MergeIntoCalendar(ReadExportRecords(*file, page).records, existing.str(), UtcNow());
  if (!calendar) {
    err << "Export failure!\nscltool: " << args[1] << ": not an iCalendar file\n";
    return kExitRefused;
  }
  const std::span<const std::uint8_t> bytes(reinterpret_cast<const std::uint8_t*>(calendar->data()),
                                            calendar->size());
  if (WriteFileSafely(args[1], bytes)) return kExitDone;
  err << "Export failure!\n";
  return kExitRefused;
}

}  // namespace

const Verb kExportIcsVerb{"export-ics", "IN.scl OUT.ics",
                          "every item into an iCalendar file, as the data link exports them",
                          RunExportIcs, true};

}  // namespace sched
