#pragma once

#include "core/calendar.h"
#include "store/sch_tables.h"

namespace sched {

// True when the year has a live row in any of its months.
bool YearHasData(const SchDatCTL& ctl, int year);
// True when the month has a live row or a holiday mask.
bool MonthHasLiveData(const SchDatCTL& ctl, int year, int month);

// True at the first thing found after (before) the date: in a later (earlier) year a holiday
// mask or a live row; in the date's year a mask of a later (earlier) month, or a live row of a
// later (earlier) month or day.
bool HasDataAfter(const SchDatCTL& ctl, const CivilDate& date);
bool HasDataBefore(const SchDatCTL& ctl, const CivilDate& date);

}  // namespace sched
