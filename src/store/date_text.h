#pragma once

#include <string>

#include "platform/date_formatter.h"

namespace sched {

// The date in the system's short form followed by the weekday in brackets: "1998/07/01(Wed)".
// The date comes as text parts, as the views hold it.
std::string FormatDateWeekday(const DateFormatter& formatter, const std::string& year,
                              const std::string& month, const std::string& day, int weekday);

}  // namespace sched
