#pragma once

#include <string>

#include "platform/clock.h"
#include "platform/date_formatter.h"

namespace sched {

// " h:nn AM" / " h:nn PM": a time of day on the twelve-hour clock, with a leading blank.
std::string ClockTime(int hour, int minute);

// The date frame's text: the date with its weekday, then the time.
std::string DateCaption(const DateFormatter& dates, const DateTime& now);

// The day watch's next interval in milliseconds: every ten seconds, every three in the last
// minute of the day, so that a new day is seen within three seconds.
int Timer2Interval(const DateTime& now);
// Its first interval after start-up: a minute, or three seconds in the last minute of the day.
int Timer2FirstInterval(const DateTime& now);

}  // namespace sched
