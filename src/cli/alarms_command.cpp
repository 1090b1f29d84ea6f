#include "cli/alarms_command.h"

#include "alarms/alarm_entry.h"
#include "cli/cli_args.h"
#include "cli/cli_store.h"
#include "core/time_text.h"

namespace sched {

int RunAlarmsCommand(const std::vector<std::string>& args, std::ostream& out, std::ostream& err) {
  const DateTime now = SystemClock().Now();
  std::optional<CivilDate> day = CivilDate{now.year, now.month, now.day};
  if (args.size() == 2) day = ParseDate(args[1]);
  if (args.empty() || args.size() > 2 || !day) {
    err << "usage: scltool alarms FILE.scl [YYYY/MM/DD]\n";
    return 2;
  }
  CliStore cli;
  if (!cli.Load(args[0])) return 1;
  const auto alarms =
      BuildTodayAlarms(cli.Document().Tables, DateCode(day->year, day->month, day->day));
  for (const AlarmEntry& alarm : alarms) {
    out << TwelveHourTime(alarm.AlarmMinute / 60, alarm.AlarmMinute % 60, false, " AM", " PM")
        << '\t' << alarm.TimeText << '\t' << alarm.Title << '\t' << alarm.Place << '\n';
  }
  return 0;
}

}  // namespace sched
