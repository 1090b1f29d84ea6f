#pragma once

#include "core/calendar.h"
#include "store/schedule_store.h"

namespace sched {

// Fills an empty store with a realistic schedule around `today`: meetings, all-day items, a
// trip over several days, a weekly and a monthly series, yearly birthdays, alarms, memos, a
// private item and a few days set as holidays or workdays.
void BuildSampleSchedule(ScheduleStore& store, const CivilDate& today);

}  // namespace sched
