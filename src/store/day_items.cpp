#include "store/day_items.h"

#include "store/chains.h"

namespace sched {

int ItemOfDay(const SchDatCTL& t, const CivilDate& date, int index) {
  const int yearRow = FindYearRow(t, date.year);
  const int monthRow = yearRow < 0 ? -1 : FindMonthRow(t, yearRow, date.month);
  if (monthRow < 0) return -1;
  for (int row : DayChain(t.SchDatList, GetDayHead(t, monthRow, date.day))) {
    if (t.SchDatList.At(row).IsLive() && --index == 0) return row;
  }
  return -1;
}

}  // namespace sched
