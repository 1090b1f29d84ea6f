#include <filesystem>

#include "cli/cli_args.h"
#include "cli/cli_store.h"
#include "cli/import_arguments.h"
#include "cli/verb.h"
#include "link/ics_link_component.h"
#include "link/link_exchange.h"
#include "link/link_records.h"
#include "platform/std/system_clock.h"

namespace sched {
namespace {

// The events of a calendar file into a schedule file, made when missing, as Import takes them
// over the data link: the merge of the import options, the period, every alarm with the sound
// SCHALARM.
int RunImportIcs(const std::vector<std::string>& args, std::ostream&, std::ostream& err,
                 CodePage page) {
  std::string out;
  const CommandOptions options =
      ParseInOut(args, "IN.ics", "OUT.scl", {"--mode", "--from", "--to", "--weeks"}, {}, out);
  const ImportMerge merge = MergeOfArguments(options);
  const DateTime now = SystemClock().Now();
  const CivilDate today{now.year, now.month, now.day};
  const ImportPeriod period = PeriodOfArguments(options, today);
  CliStore cli(err, page);
  if (std::filesystem::exists(out) && !cli.Load(out)) return kExitRefused;
  const SystemClock clock;
  IcsLinkComponent link({[&options] { return options.file; }, [page] { return page; }, clock});
  const std::optional<std::vector<std::uint8_t>> file = link.Import();
  if (!file) {
    err << "Import failure!\nscltool: " << options.file << ": no iCalendar file\n";
    return kExitRefused;
  }
  MergeImportedRecords(cli.Store(), ReadImportRecords(*file, page).records, merge, period,
                       kDefaultAlarmSound);
  return cli.Save(out) ? kExitDone : kExitRefused;
}

}  // namespace

const Verb kImportIcsVerb{
    "import-ics",
    "IN.ics OUT.scl [--mode replace|add|add-new]\n [--from YYYY/MM/DD --to YYYY/MM/DD | --weeks N]",
    "the events of an iCalendar file into a schedule, as the data link imports them", RunImportIcs,
    true};

}  // namespace sched
