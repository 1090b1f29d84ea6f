// scltool: reads, checks and rewrites schedule files from the command line.
#include <cstdlib>
#include <iostream>
#include <string>
#include <vector>

#include "cli/add_command.h"
#include "cli/alarms_command.h"
#include "cli/cli_store.h"
#include "cli/delete_command.h"
#include "cli/dump_command.h"
#include "cli/holidays_command.h"
#include "cli/info_command.h"
#include "cli/month_command.h"
#include "cli/paste_command.h"
#include "cli/rule_command.h"
#include "platform/std/huge_pages.h"
#include "platform/std/system_clock.h"
#include "shell/sample_schedule.h"

namespace {

constexpr const char* kUsage =
    "usage: scltool info FILE.scl\n"
    "       scltool dump FILE.scl\n"
    "       scltool resave IN.scl OUT.scl\n"
    "       scltool sample OUT.scl [YYYY MM DD]\n"
    "       scltool holidays COUNTRYFILE FROMYEAR [TOYEAR]\n"
    "       scltool month FILE.scl YYYY MM [COUNTRYFILE]\n"
    "       scltool add FILE.scl --title T --date YYYY/MM/DD [options]\n"
    "       scltool delete FILE.scl --date YYYY/MM/DD --index K\n"
    "       scltool delete FILE.scl --month YYYY/MM | --year YYYY | --older-than YYYY/MM/DD\n"
    "         | --newer-than YYYY/MM/DD [--keep-repeats]\n"
    "       scltool paste FILE.scl --from YYYY/MM/DD --index K --to YYYY/MM/DD [--single]\n"
    "       scltool rule WORD [YYYY/MM/DD COUNT]\n"
    "       scltool alarms FILE.scl [YYYY/MM/DD]\n"
    "       scltool --help | --version\n";

int Usage() {
  std::cerr << kUsage;
  return 2;
}

int Run(const std::vector<std::string>& args) {
  if (args.empty()) return Usage();
  const std::string& command = args[0];
  if ((command == "--help" || command == "-h") && args.size() == 1) {
    std::cout << kUsage;
    return 0;
  }
  if (command == "--version" && args.size() == 1) {
    std::cout << "scltool " SCHEDULER_VERSION "\n";
    return 0;
  }
  if ((command == "info" || command == "dump") && args.size() == 2) {
    sched::CliStore cli;
    if (!cli.Load(args[1])) return 1;
    if (command == "info") {
      std::cout << "File: " << args[1] << '\n';
      sched::WriteInfo(cli.Document(), std::cout);
    } else {
      sched::WriteDumpJson(cli.Document(), std::cout);
    }
    return 0;
  }
  if (command == "resave" && args.size() == 3) {
    sched::CliStore cli;
    if (!cli.Load(args[1])) return 1;
    return cli.Save(args[2]) ? 0 : 1;
  }
  if (command == "month") {
    return sched::RunMonthCommand({args.begin() + 1, args.end()}, std::cout, std::cerr);
  }
  if (command == "add") return sched::RunAddCommand({args.begin() + 1, args.end()}, std::cerr);
  if (command == "delete") {
    return sched::RunDeleteCommand({args.begin() + 1, args.end()}, std::cerr);
  }
  if (command == "paste") return sched::RunPasteCommand({args.begin() + 1, args.end()}, std::cerr);
  if (command == "rule") {
    return sched::RunRuleCommand({args.begin() + 1, args.end()}, std::cout, std::cerr);
  }
  if (command == "alarms") {
    return sched::RunAlarmsCommand({args.begin() + 1, args.end()}, std::cout, std::cerr);
  }
  if (command == "holidays") {
    return sched::RunHolidaysCommand({args.begin() + 1, args.end()}, std::cout, std::cerr);
  }
  if (command == "sample" && (args.size() == 2 || args.size() == 5)) {
    const sched::DateTime now = sched::SystemClock().Now();
    sched::CivilDate today{now.year, now.month, now.day};
    if (args.size() == 5) {
      today = {std::atoi(args[2].c_str()), std::atoi(args[3].c_str()), std::atoi(args[4].c_str())};
      // The sample reaches a year on either side of its date.
      if (!sched::IsValidDate(today.year, today.month, today.day) ||
          today.year <= sched::kFirstYear || today.year + 5 > sched::kLastYear) {
        return Usage();
      }
    }
    sched::CliStore cli;
    sched::BuildSampleSchedule(cli.Store(), today);
    return cli.Save(args[1]) ? 0 : 1;
  }
  return Usage();
}

}  // namespace

int main(int argc, char** argv) {
  sched::StartWithHugePages(argv);
  return Run(std::vector<std::string>(argv + 1, argv + argc));
}
