#pragma once

#include "store/sch_tables.h"

namespace sched {

// A repeating row whose series has no other live row becomes a plain item.
void CheckSeries(SchDatCTL& ctl);

}  // namespace sched
