#pragma once

#include <ostream>
#include <string>
#include <vector>

namespace sched {

// `scltool month FILE.scl YYYY MM [COUNTRYFILE]`: the 42 cells of the month grid as the month
// tab shows them with day 1 selected, one line a cell (cell, day, colour, background, enabled
// or disabled, holiday name, tab-separated) and the cell's list lines indented below. Returns
// 0, 1 when a file does not load, and 2 for bad usage.
int RunMonthCommand(const std::vector<std::string>& args, std::ostream& out, std::ostream& err);

}  // namespace sched
