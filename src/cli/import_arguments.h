#pragma once

#include "cli/cli_args.h"
#include "link/link_exchange.h"

namespace sched {

// The import options on scltool's line: --mode replace|add|add-new, and the period as
// --from YYYY/MM/DD --to YYYY/MM/DD or --weeks N from `today`.
ImportMerge MergeOfArguments(const CommandOptions& options);
ImportPeriod PeriodOfArguments(const CommandOptions& options, const CivilDate& today);

// The arguments of the verbs on a calendar server: the schedule file, the calendar's URL, the
// user, the seconds a request may last, and for an import its options.
struct CalDavArguments {
  std::string file;
  std::string url;
  std::string user;
  int timeoutSeconds = 60;
  ImportMerge merge = ImportMerge::kAddAll;
  ImportPeriod period;
};
CalDavArguments ParseCalDavExport(const std::vector<std::string>& args);
CalDavArguments ParseCalDavImport(const std::vector<std::string>& args, const CivilDate& today);

}  // namespace sched
