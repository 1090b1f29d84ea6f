#include "cli/cli_args.h"
#include "cli/import_arguments.h"
#include "cli/print_arguments.h"
#include "cli/verb.h"
#include "platform/std/child_process.h"
#include "platform/std/system_clock.h"

namespace sched {
namespace {

// Checks the arguments, then hands the exchange to the companion program beside scltool, which
// loads Qt for the network: scltool itself stays free of it.
int RunInCompanion(std::string_view verb, const std::vector<std::string>& args, std::ostream& out,
                   std::ostream& err, CodePage page) {
  const std::string program = OwnFolder() + "/" + kPrintProgram;
  std::vector<std::string> childArgs{std::string(verb)};
  childArgs.insert(childArgs.end(), args.begin(), args.end());
  childArgs.insert(childArgs.end(), {"--code-page", std::to_string(static_cast<int>(page))});
  const std::optional<int> status = RunChild(program, childArgs, out, err);
  if (!status) {
    err << "scltool " << verb << ": " << program << " did not run\n";
    return kExitRefused;
  }
  return *status;
}

int RunCalDavExport(const std::vector<std::string>& args, std::ostream& out, std::ostream& err,
                    CodePage page) {
  (void)ParseCalDavExport(args);
  return RunInCompanion("caldav-export", args, out, err, page);
}

int RunCalDavImport(const std::vector<std::string>& args, std::ostream& out, std::ostream& err,
                    CodePage page) {
  const DateTime now = SystemClock().Now();
  (void)ParseCalDavImport(args, {now.year, now.month, now.day});
  return RunInCompanion("caldav-import", args, out, err, page);
}

}  // namespace

const Verb kCalDavExportVerb{
    "caldav-export", "IN.scl URL --user USER [--timeout SECONDS]",
    "every item into a calendar on a CalDAV server, as the data link exports them", RunCalDavExport,
    true};

const Verb kCalDavImportVerb{
    "caldav-import",
    "URL OUT.scl --user USER [--timeout SECONDS] [--mode replace|add|add-new]\n"
    " [--from YYYY/MM/DD --to YYYY/MM/DD | --weeks N]",
    "the events of a calendar on a CalDAV server into a schedule, as the data link imports them",
    RunCalDavImport, true};

}  // namespace sched
