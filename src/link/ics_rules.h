#pragma once

#include <libical/ical.h>

#include <cstdint>
#include <memory>
#include <optional>
#include <string>
#include <vector>

#include "core/calendar.h"

namespace sched {

struct ComponentFree {
  void operator()(icalcomponent* c) const { icalcomponent_free(c); }
};
// An iCalendar component with all it holds, freed at the end.
using Component = std::unique_ptr<icalcomponent, ComponentFree>;

// The date, or the floating local time of a date, as iCalendar values.
icaltimetype DayOf(const CivilDate& date);
icaltimetype TimeOf(const CivilDate& date, int minutes);

// The recurrence rule that a series' rule word stands for, over `count` dates; nothing for a
// word that is no repeat rule.
std::optional<std::string> RuleOf(std::uint16_t word, int count);

// True when the rule from the first of `dates` gives exactly `dates`.
bool RuleGives(const std::string& rule, const std::vector<CivilDate>& dates);

// The rule word of a series on exactly `dates`, when a rule of the organiser's gives them: the
// kinds of the repeat dialog, each within its largest interval, its fields from the first date.
std::optional<std::uint16_t> RuleWordOf(const std::vector<CivilDate>& dates);

}  // namespace sched
