#include "store/date_text.h"

#include "core/number_text.h"
#include "store/sch_record.h"

namespace sched {

std::string FormatDateWeekday(const DateFormatter& formatter, const std::string& year,
                              const std::string& month, const std::string& day, int weekday) {
  // A part that is no number counts as 0.
  const auto number = [](const std::string& text) { return ParseInt(text).value_or(0); };
  return formatter.ShortDate(number(year), number(month), number(day)) + "(" +
         WeekdayName(weekday) + ")";
}

}  // namespace sched
