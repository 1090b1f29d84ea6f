#include "cli/cli_args.h"
#include "cli/cli_store.h"
#include "cli/verb.h"
#include "shell/sample_schedule.h"

namespace sched {
namespace {

// The sample reaches back a year and forward five from its date.
constexpr int kSampleFirstYear = kFirstYear + 1;
constexpr int kSampleLastYear = kLastYear - 5;

int RunSample(const std::vector<std::string>& args, std::ostream&, std::ostream& err,
              CodePage page) {
  RequireArguments(args, {"OUT.scl"}, {"YYYY", "MM", "DD"});
  const DateTime now = SystemClock().Now();
  CivilDate date{now.year, now.month, now.day};
  if (args.size() > 1) {
    date = {RequireInt("YYYY", args[1], kSampleFirstYear, kSampleLastYear),
            RequireInt("MM", args[2], 1, 12), RequireInt("DD", args[3], 1, 31)};
    if (!IsValidDate(date.year, date.month, date.day)) {
      throw UsageError(args[1] + " " + args[2] + " " + args[3] + " is not a date");
    }
  }
  CliStore cli(err, page);
  BuildSampleSchedule(cli.Store(), date);
  return cli.Save(args[0]) ? kExitDone : kExitRefused;
}

}  // namespace

const Verb kSampleVerb{"sample", "OUT.scl [YYYY MM DD]",
                       "writes the sample schedule around a date (today when none is given)",
                       RunSample, true};

}  // namespace sched
