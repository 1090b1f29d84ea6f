#pragma once

#include <vector>

#include "store/sch_tables.h"

namespace sched {

// The live rows of the tables by date, year, month and day ascending, each day in the order of
// its chain.
std::vector<int> LiveRowsInDateOrder(const SchDatCTL& ctl);

// Gives the first row of a day chain after sorting rows first .. first+count-1 by StartTime,
// keeping equal times in their order, and relinks them.
int SortDayChain(SchDatCTL& ctl, int first, int count);

}  // namespace sched
