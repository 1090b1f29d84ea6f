#pragma once

#include <string>
#include <vector>

namespace sched {

// `scltool caldav-export` and `caldav-import` over Qt Network, with the arguments behind the
// verb's name; the exit status.
int RunCalDavExport(std::vector<std::string> args);
int RunCalDavImport(std::vector<std::string> args);

}  // namespace sched
