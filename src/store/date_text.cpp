#include "store/date_text.h"

#include <cstdlib>

#include "store/sch_record.h"

namespace sched {

std::string FormatDateWeekday(const DateFormatter& formatter, const std::string& year,
                              const std::string& month, const std::string& day, int weekday) {
  const auto number = [](const std::string& text) { return std::atoi(text.c_str()); };
  return formatter.ShortDate(number(year), number(month), number(day)) + "(" +
         WeekdayName(weekday) + ")";
}

}  // namespace sched
