#include "cli/cli_args.h"
#include "cli/cli_store.h"
#include "cli/verb.h"

namespace sched {
namespace {

int RunResave(const std::vector<std::string>& args, std::ostream&, std::ostream& err,
              CodePage page) {
  RequireArguments(args, {"IN.scl", "OUT.scl"});
  CliStore cli(err, page);
  if (!cli.Load(args[0])) return kExitRefused;
  return cli.Save(args[1]) ? kExitDone : kExitRefused;
}

}  // namespace

const Verb kResaveVerb{"resave", "IN.scl OUT.scl",
                       "loads a file and saves it again, as the program does", RunResave, true};

}  // namespace sched
