#include <filesystem>

#include "cli/cli_args.h"
#include "cli/cli_store.h"
#include "cli/verb.h"
#include "link/ics_link_component.h"
#include "link/link_exchange.h"
#include "link/link_records.h"
#include "platform/std/system_clock.h"

namespace sched {
namespace {

ImportMerge MergeOf(const CommandOptions& options) {
  const std::string* mode = options.Value("--mode");
  if (mode == nullptr || *mode == "add") return ImportMerge::kAddAll;
  if (*mode == "replace") return ImportMerge::kReplaceAll;
  if (*mode == "add-new") return ImportMerge::kReplaceLinked;
  throw UsageError("--mode takes replace, add or add-new");
}

ImportPeriod PeriodOf(const CommandOptions& options, const CivilDate& today) {
  options.Excludes("--weeks", "--from");
  options.Needs("--from", "--to");
  options.Needs("--to", "--from");
  if (const std::optional<int> weeks = options.Int("--weeks", 1, 99)) {
    return {today, AddDays(today, 7 * *weeks - 1)};
  }
  return {options.Date("--from"), options.Date("--to")};
}

// The events of a calendar file into a schedule file, made when missing, as Import takes them
// over the data link: the merge of the import options, the period, every alarm with the sound
// SCHALARM.
int RunImportIcs(const std::vector<std::string>& args, std::ostream&, std::ostream& err,
                 CodePage page) {
  std::string out;
  const CommandOptions options =
      ParseInOut(args, "IN.ics", "OUT.scl", {"--mode", "--from", "--to", "--weeks"}, {}, out);
  const ImportMerge merge = MergeOf(options);
  const DateTime now = SystemClock().Now();
  const CivilDate today{now.year, now.month, now.day};
  const ImportPeriod period = PeriodOf(options, today);
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
