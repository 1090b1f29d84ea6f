#pragma once

#include <cstdint>

#include "appointments/repeat_limits.h"
#include "core/calendar.h"
#include "platform/messages.h"
#include "store/schedule_store.h"

namespace sched {

// Where the occurrences of a series fall: every `stride` units of the plan's kind from its
// start, each reckoned from the start so that a short month does not shorten the later ones.
// An item over several dates is a daily plan.
struct SeriesDates {
  RepeatPlan plan;
  int stride = 1;

  // The date occurrence i falls on.
  CivilDate Of(int i) const { return LastOccurrence(plan, i + 1, stride); }
  // The start plus i strides, the day clamped to the month's end but not moved to a weekday:
  // the end date of every record of a series whose last occurrence is i.
  CivilDate Plain(int i) const;
  // The highest i, `last` at most and 0 at least, whose occurrence is not past kEndLimit.
  int LastFitting(int last) const;
};
// One occurrence a day from `first`: a plain item, or the days of an item over several dates.
SeriesDates EveryDayFrom(const CivilDate& first);

// A repeat rule set on a date: the word stored and the dates of the occurrences.
struct RuleOnDate {
  std::uint16_t word = 0;
  SeriesDates dates;
};
// The rule of the kind `option` (1 to 6), every `step + 1` units from `first`, which gives the
// rule its weekday, day and month. A fifth weekday is stored as the last one, and so is a
// weekday that is the month's last when the rule replaces one that was "Last".
RuleOnDate RuleFromDate(int option, int step, const CivilDate& first,
                        std::uint16_t replacedWord = 0);

// Cuts a repeating item of `count` occurrences at kEndLimit and tells the user: `shortened`
// when more than the first occurrence is left; when only the first is, the item loses its rule
// (`word` becomes 0) with "Removing regular information.". Gives the last occurrence's index.
int CutAtEndLimit(const SeriesDates& dates, int count, const char* shortened, std::uint16_t& word,
                  Messages& messages);

// Who the records of one write are. The SubNo counter is moved on before each record, so it
// starts one below the first SubNo.
struct SeriesIdentity {
  std::int16_t subNo = 0;
  std::int32_t stamp = 0;
  std::int16_t parentSubNo = 0;
  std::int32_t parentStamp = 0;
};
// A new series (SubNo from 1, ParentSubNo 1) and a new plain item (SubNo 0, no parent), each
// under a stamp of its own.
SeriesIdentity NewSeriesIdentity(ScheduleStore& store);
SeriesIdentity NewSingleIdentity(ScheduleStore& store);

// Writes `record` on occurrences 0 to `last` of `dates`, every record ending on `end` and taking
// the next SubNo of `identity`; its times, texts, flags and rule word are the record's. An alarm
// brings today's alarm list in order, once for the whole write. Gives the first record written.
SchRecord WriteSeries(ScheduleStore& store, SchRecord record, const SeriesDates& dates, int last,
                      const CivilDate& end, SeriesIdentity& identity);

// A warning of the program: the text, the exclamation icon, an OK button.
void ShowWarning(Messages& messages, const char* text);

}  // namespace sched
