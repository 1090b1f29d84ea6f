#pragma once

#include <cstdint>
#include <optional>
#include <string_view>
#include <vector>

#include "core/calendar.h"
#include "store/sch_record.h"

namespace sched {

// The events of an iCalendar calendar as records of an import link file, a record a day of
// each occurrence, in the PC's local time:
// - times of a time zone (the file's own or a known one) and UTC times are turned into local
//   time; a time zone nobody knows leaves the time as it stands;
// - a repeating event is expanded by its rules and dates, less its exceptions and the
//   occurrences that other events of its UID replace; up to its own end, 2099/12/31, and no
//   further than five years after `today` when its rule has no end;
// - a repeating event whose occurrences are exactly what a rule of the organiser's gives
//   becomes a series with that rule word; other occurrences become single items; an occurrence
//   over several days becomes an item over those days;
// - the location goes at the head of the memo as "Place: " and the location, then a line
//   break; CLASS:PRIVATE or CONFIDENTIAL makes the item private; the first alarm before the
//   start gives its lead, at most 999 minutes.
// Records of one import share `stamp` (the next stamps when their numbers run out) and are told
// apart by their SubNo. Nothing when the text is no calendar.
std::optional<std::vector<SchRecord>> RecordsOfCalendar(std::string_view ics,
                                                        const CivilDate& today, std::int32_t stamp);

}  // namespace sched
