#pragma once

#include <ostream>
#include <string>
#include <vector>

namespace sched {

// `scltool holidays COUNTRYFILE FROMYEAR [TOYEAR]`: lists every named holiday of the years, one
// "yyyy/mm/dd<TAB>name" line each, in date order. Returns 0, 1 when the file does not load, and
// 2 for bad usage.
int RunHolidaysCommand(const std::vector<std::string>& args, std::ostream& out, std::ostream& err);

}  // namespace sched
