#pragma once

#include <ostream>
#include <string>
#include <vector>

namespace sched {

// `scltool delete FILE.scl --date YYYY/MM/DD --index K` removes the K-th item of the day, in
// the day's order, with its whole series, as Delete on one line of the list does.
// `--month YYYY/MM`, `--year YYYY`, `--older-than YYYY/MM/DD` and `--newer-than YYYY/MM/DD` run
// the bulk commands. Every question is answered Yes, except whether to leave the repeating
// items, which `--keep-repeats` answers. The questions go to `err` in their words. Returns 0
// when the file was written, 1 when there was nothing to delete or the file could not be read
// or written, 2 for bad usage.
int RunDeleteCommand(const std::vector<std::string>& args, std::ostream& err);

}  // namespace sched
