#pragma once

#include <ostream>

#include "store/document.h"

namespace sched {

// A readable summary of what a loaded schedule holds.
void WriteInfo(const ScheduleDocument& doc, std::ostream& out);

}  // namespace sched
