#pragma once

#include <ostream>

#include "store/document.h"

namespace sched {

// The loaded tables as JSON: weekly holidays, the years with their masks in table order, and
// the live rows in date order.
void WriteDumpJson(const ScheduleDocument& doc, std::ostream& out);

}  // namespace sched
