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

// "2024/03/04", the form the export writes of a date, written at `to`, which has room for it;
// gives the end.
inline constexpr std::size_t kCsvDateLength = 10;
char* WriteCsvDate(const CivilDate& date, char* to);
// "10:00 AM", the form the export writes of the time `minutes` after 0:00, from 0 to 1439; the
// texts of all of them are made once and kept.
std::string_view CsvTimeText(int minutes);

}  // namespace sched
