#include "shell/clock_text.h"

#include <string>

#include "core/calendar.h"
#include "core/time_text.h"
#include "store/date_text.h"

namespace sched {
namespace {

bool InLastMinute(const DateTime& now) {
  return now.hour * 3600 + now.minute * 60 + now.second > 23 * 3600 + 59 * 60;
}

}  // namespace

std::string ClockTime(int hour, int minute) {
  return " " + TwelveHourTime(hour, minute % 60, false, " AM", " PM");
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
