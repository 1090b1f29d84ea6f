#pragma once

#include "platform/std/console.h"

namespace sched {

// Tests use the fixed "yyyy/mm/dd" form as the system's short date.
using FakeDateFormatter = IsoDateFormatter;

}  // namespace sched
