#pragma once

#include <vector>

#include "store/sch_tables.h"

namespace sched {

// The live rows of the tables by date, year, month and day ascending, each day in the order of
// its chain.
std::vector<int> LiveRowsInDateOrder(const SchDatCTL& ctl);

}  // namespace sched
