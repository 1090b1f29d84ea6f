#pragma once

#include "core/calendar.h"

namespace sched {

// Western Easter Sunday of a Gregorian year.
CivilDate WesternEaster(int year);

}  // namespace sched
