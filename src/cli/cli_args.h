#pragma once

#include <optional>
#include <string>

#include "core/calendar.h"

namespace sched {

// A whole number in `base` from `low` to `high`; nothing for other text.
std::optional<int> ParseInt(const std::string& text, int base, int low, int high);
// A date "YYYY/MM/DD" of the calendar; nothing for other text.
std::optional<CivilDate> ParseDate(const std::string& text);

}  // namespace sched
