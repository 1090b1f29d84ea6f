#pragma once

#include "appointments/repeat_rule.h"
#include "core/calendar.h"

namespace sched {

// The last date any occurrence may fall on.
inline constexpr CivilDate kEndLimit{kLastYear, 12, 31};

// The smallest count and interval of a rule, and the largest by the unit of its kind.
inline constexpr int kMinRepeatCount = 2;
inline constexpr int kMinRepeatInterval = 1;
int MaxRepeatCount(RepeatUnit unit);     // 31, 52, 12, 10
int MaxRepeatInterval(RepeatUnit unit);  // 30, 6, 11, 7

// True for the monthly and yearly kinds by weekday.
bool ByWeekday(int option);

// One rule of the repeat dialog: its kind (`option` 1 to 6), its first occurrence and, for
// the kinds by weekday, the weekday of the month its occurrences fall on.
struct RepeatPlan {
  int option = kOptionDaily;
  CivilDate start;
  WeekdayRule weekday;
};

// The last of `count` occurrences `interval` units apart. Months and years keep the start's
// day, clamped to the month's end; the kinds by weekday take their weekday of the month.
CivilDate LastOccurrence(const RepeatPlan& plan, int count, int interval);

// True when the last of `count` occurrences falls on kEndLimit or before.
bool FitsInCalendar(const RepeatPlan& plan, int count, int interval);

// The largest value from `from` up to `to` for which `fits` holds; `from` when none above it
// does.
template <typename Fits>
int LargestFitting(int from, int to, Fits fits) {
  for (int value = to; value > from; --value) {
    if (fits(value)) return value;
  }
  return from;
}

}  // namespace sched
