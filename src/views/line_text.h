#pragma once

#include <string>

#include "store/sch_tables.h"

namespace sched {

// A time of day in minutes as "h:nnam" / "h:nnpm": 12-hour clock, no leading zero on the hour.
std::string ShortTimeText(int minutes);
// The same with a two-digit hour: "09:05am".
std::string PaddedTimeText(int minutes);
// A date as month and day, each padded with a leading blank to two characters: " 5/ 3".
std::string MonthDayText(int month, int day);

// The line of a row in a month cell's list.
std::string MonthLineText(const SchDatCTL& ctl, int row);
// The line of a row in the day view's list.
std::string DayLineText(const SchDatCTL& ctl, int row);
// The line of a row in the schedule list dialog.
std::string ListLineText(const SchDatCTL& ctl, int row);

}  // namespace sched
