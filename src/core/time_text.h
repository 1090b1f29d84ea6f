#pragma once

#include <string>
#include <string_view>

namespace sched {

// A time of day on the twelve-hour clock: the hour 1 to 12 (with a leading zero below 10 when
// `padHour`), a colon, two-digit minutes, then `amMark` before noon and `pmMark` from noon on.
// `hour` is 0 to 23 and `minute` 0 to 59.
std::string TwelveHourTime(int hour, int minute, bool padHour, std::string_view amMark,
                           std::string_view pmMark);

}  // namespace sched
