#pragma once

#include <cstdint>

#include "platform/clock.h"

namespace sched {

// A Stamp is the packed creation time of an item, the top two bits set:
// bits 28-25 year mod 10, 24-21 month, 20-16 day, 15-11 hour, 10-5 minute, 4-0 second / 2.
std::int32_t MakeStamp(const Clock& clock);
// The stamp of a given creation time.
std::int32_t StampOf(const DateTime& time);

// -1 when the link bit (30) is clear, that is the record has gone over the data link; else 0.
int IsLinkDone(std::int32_t stamp);
std::int32_t ClearLinkBit(std::int32_t stamp);
std::int32_t SetTopBit(std::int32_t stamp);
// The stamp with both top bits set, as every stamp the program makes has them.
std::int32_t SetTopBits(std::int32_t stamp);

// Returns when the system timer has moved on from its value on entry.
void PauseTick(const Clock& clock);

}  // namespace sched
