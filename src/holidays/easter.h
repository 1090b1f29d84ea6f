#pragma once

#include <chrono>

namespace sched {

// Western Easter Sunday of a Gregorian year.
std::chrono::year_month_day WesternEaster(int year);

}  // namespace sched
