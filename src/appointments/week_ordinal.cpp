#include "appointments/week_ordinal.h"

#include "appointments/repeat_rule.h"
#include "core/calendar.h"

namespace sched {

WeekPosition Sor_CulcNWfromYMD(int year, int month, int day) {
  WeekPosition p;
  p.W = WeekdayOf({year, month, day});
  p.N = (day - 1) / 7 + 1;
  p.isLast = day + 7 > DaysInMonth(year, month);
  return p;
}

int Sor_CulcDDfromYMNW(int year, int month, int N, int W) {
  if (N == kLastOrdinal || N > 4) return LastWeekdayOfMonth(year, month, W).day;
  const int nth = N < 1 ? 1 : N;
  return NthWeekdayOfMonth(year, month, W, nth).value_or(LastWeekdayOfMonth(year, month, W)).day;
}

}  // namespace sched
