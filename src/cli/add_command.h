#pragma once

#include <ostream>
#include <string>
#include <vector>

namespace sched {

// `scltool add FILE.scl --title T --date YYYY/MM/DD ...`: fills the edit dialog, and the repeat
// dialog when a rule is asked for, as a user would, presses OK and saves the file (made when
// missing). The dialogs' messages go to `err` in their words. Returns 0 when the item was
// written, 1 when a check refused it or the file could not be read or written, 2 for bad usage.
int RunAddCommand(const std::vector<std::string>& args, std::ostream& err);

}  // namespace sched
