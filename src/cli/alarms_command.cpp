#include "alarms/alarm_entry.h"
#include "cli/cli_args.h"
#include "cli/cli_store.h"
#include "cli/verb.h"
#include "core/time_text.h"

namespace sched {
namespace {

// The alarms that ring on the date, in ringing order, one a line: the ringing time "h:mm AM",
// then the times, the title and the place as the notice window shows them, tab-separated. An
// alarm whose lead reaches into the day before rings, and is listed, on that day.
int RunAlarms(const std::vector<std::string>& args, std::ostream& out, std::ostream& err,
              CodePage page) {
  RequireArguments(args, {"FILE.scl"}, {"YYYY/MM/DD"});
  const DateTime now = SystemClock().Now();
  const CivilDate day =
      args.size() == 2 ? RequireDate(args[1]) : CivilDate{now.year, now.month, now.day};
  CliStore cli(err, page);
  if (!cli.Load(args[0])) return kExitRefused;
  const auto alarms =
      BuildTodayAlarms(cli.Document().Tables, DateCode(day.year, day.month, day.day));
  for (const AlarmEntry& alarm : alarms) {
    out << TwelveHourTime(alarm.AlarmMinute / 60, alarm.AlarmMinute % 60, false, " AM", " PM")
        << '\t' << alarm.TimeText << '\t' << alarm.Title << '\t' << alarm.Place << '\n';
  }
  return kExitDone;
}

}  // namespace

const Verb kAlarmsVerb{"alarms", "FILE.scl [YYYY/MM/DD]",
                       "the alarms that ring on a date (today when none is given), in order",
                       RunAlarms, true};

}  // namespace sched
