#include "cli/cli_args.h"
#include "cli/cli_store.h"
#include "cli/verb.h"
#include "link/ics_link_component.h"
#include "link/link_exchange.h"
#include "platform/std/system_clock.h"

namespace sched {
namespace {

// Every live item of the schedule into the calendar file, as Export sends it over the data
// link with the mark of "Import exported data" cleared; a calendar that is there keeps its other
// events.
int RunExportIcs(const std::vector<std::string>& args, std::ostream&, std::ostream& err,
                 CodePage page) {
  RequireArguments(args, {"IN.scl", "OUT.ics"});
  CliStore cli(err, page);
  if (!cli.Load(args[0])) return kExitRefused;
  const SystemClock clock;
  const auto file = BuildExportFile(cli.Document().Tables, false, clock.Now(), page);
  if (!file) {
    err << "No export data!\n";
    return kExitRefused;
  }
  IcsLinkComponent link({[&args] { return args[1]; }, [page] { return page; }, clock});
  if (link.Export(*file)) return kExitDone;
  err << "Export failure!\nscltool: " << args[1] << ": no iCalendar file, or not writable\n";
  return kExitRefused;
}

}  // namespace

const Verb kExportIcsVerb{"export-ics", "IN.scl OUT.ics",
                          "every item into an iCalendar file, as the data link exports them",
                          RunExportIcs, true};

}  // namespace sched
