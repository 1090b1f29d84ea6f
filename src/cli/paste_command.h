#pragma once

#include <ostream>
#include <string>
#include <vector>

namespace sched {

// `scltool paste FILE.scl --from YYYY/MM/DD --index K --to YYYY/MM/DD [--single]`: copies the
// Kth item of a day, in the day's order, and pastes it on another date as the window does,
// keeping a series' rule unless `--single` answers No; then saves the file. The messages go to
// `err` in their words. Returns 0 when the paste was written, 1 when there was nothing to copy
// or the file could not be read or written, 2 for bad usage.
int RunPasteCommand(const std::vector<std::string>& args, std::ostream& err);

}  // namespace sched
