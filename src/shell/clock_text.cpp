#include "shell/clock_text.h"

#include <cstdio>

#include "core/calendar.h"
#include "store/date_text.h"

namespace sched {
namespace {

bool InLastMinute(const DateTime& now) {
  return now.hour * 3600 + now.minute * 60 + now.second > 23 * 3600 + 59 * 60;
}

}  // namespace

std::string ClockTime(int hour, int minute) {
  char text[16];
  std::snprintf(text, sizeof text, " %d:%02d %s", (hour + 11) % 12 + 1, minute % 60,
                hour < 12 ? "AM" : "PM");
  return text;
}

std::string DateCaption(const DateFormatter& dates, const DateTime& now) {
  const int weekday = WeekdayOf({now.year, now.month, now.day});
  return FormatDateWeekday(dates, std::to_string(now.year), std::to_string(now.month),
                           std::to_string(now.day), weekday) +
         ClockTime(now.hour, now.minute);
}

int Timer2Interval(const DateTime& now) {
  return InLastMinute(now) ? 3000 : 10000;
}

int Timer2FirstInterval(const DateTime& now) {
  return InLastMinute(now) ? 3000 : 60000;
}

}  // namespace sched
