#pragma once

#include <optional>
#include <string>
#include <string_view>
#include <vector>

#include "platform/clock.h"
#include "store/sch_record.h"

namespace sched {

// The records of an export link file as events of an iCalendar calendar (RFC 5545), put into
// the calendar `existing` holds (empty for none): its events of other origins stay as they are,
// and an event of ours comes in place of the one with its UID. Nothing is taken out because the
// records lack it.
//
// A repeat series is one event: with a rule when its dates are exactly what the rule gives,
// else with its further dates listed. An item over several days is one all-day event; a single
// item one event. Times are floating local times; `stampUtc` is the time of the writing.
// Nothing when `existing` is no calendar.
std::optional<std::string> MergeIntoCalendar(const std::vector<SchRecord>& records,
                                             std::string_view existing, const DateTime& stampUtc);

// The stable UID of the event of a record: the identity of its series or item, the stamp
// without its two link bits.
std::string EventUid(const SchRecord& record);

}  // namespace sched
