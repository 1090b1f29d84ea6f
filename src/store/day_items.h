#pragma once

#include "core/calendar.h"
#include "store/sch_tables.h"

namespace sched {

// The SchDatList row of the `index`th live item of a day (1 for the first), in the day's order;
// -1 when the day has fewer.
int ItemOfDay(const SchDatCTL& t, const CivilDate& date, int index);

}  // namespace sched
