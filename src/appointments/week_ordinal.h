#pragma once

namespace sched {

// Where a date stands among the same weekdays of its month.
struct WeekPosition {
  int N = 1;            // 1 for the first such weekday of the month, up to 5
  int W = 0;            // the weekday, 0 Sunday to 6 Saturday
  bool isLast = false;  // no later such weekday in the month
};
WeekPosition Sor_CulcNWfromYMD(int year, int month, int day);

// The day of the month of the `N`th (1 to 4, or 7 for the last) weekday `W` of a month.
int Sor_CulcDDfromYMNW(int year, int month, int N, int W);

}  // namespace sched
