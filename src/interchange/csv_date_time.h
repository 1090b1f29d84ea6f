#pragma once

#include <optional>
#include <string>
#include <string_view>

#include "core/calendar.h"

namespace sched {

// A date as a CSV file gives it: "2024/03/04", "2024/3/4", "2024-03-04" or the US form
// "3/4/2024". The year may lie outside the program's calendar, which its callers check.
std::optional<CivilDate> ParseCsvDate(std::string_view text);
// Minutes after 0:00 of "10:00", "10:00:00", "23:15", "10:00 AM" or "10:00:00 PM"; seconds
// are dropped.
std::optional<int> ParseCsvTime(std::string_view text);

// "2024/03/04" and "10:00 AM", the forms the export writes, written at `to`, which has room for
// the longest form; they give the end.
inline constexpr std::size_t kCsvDateLength = 10;
inline constexpr std::size_t kCsvTimeLength = 8;
char* WriteCsvDate(const CivilDate& date, char* to);
char* WriteCsvTime(int minutes, char* to);

}  // namespace sched
