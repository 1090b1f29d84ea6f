#pragma once

#include <optional>
#include <string>

#include "core/calendar.h"
#include "platform/date_formatter.h"

namespace sched {

// A date as the repeat dialog shows it: the short form and the weekday in brackets.
std::string RepeatDateText(const DateFormatter& dates, const CivilDate& date);

// The English name of the month of the day `days` after 1899/12/30, which is what a plain
// number gives when it is formatted as a month name.
std::string MonthNameOfDayCount(int days);

// The texts of the repeat dialog that describe its rule.
struct RepeatSentenceParts {
  std::string interval;  // ImNumber2
  std::string start;     // Label6(0)
  std::string end;       // Label6(1)
  int ordinalIndex = 0;  // the list index of Combo2
  int weekdayIndex = 0;  // the list index of Combo1
  int month = 1;         // the month of the start (ImDate2(5)) of a yearly rule by weekday
};

// The sentence of Label2 for the rule of `option` (0 to 6), lines separated by a carriage
// return; nothing for another option, which leaves the sentence as it was.
std::optional<std::string> BuildRepeatCaption(int option, const RepeatSentenceParts& parts);

}  // namespace sched
