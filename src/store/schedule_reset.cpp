#include "store/schedule_store.h"

namespace sched {

void ScheduleStore::ClearIndex() {
  ClearTables(doc_.Tables);
}

void ScheduleStore::ResetHeader() {
  doc_.Header = SclHeader{};
  doc_.WeekHoliday = {1, 0, 0, 0, 0, 0, 0};
  svc_.alarms.ClearTodayAlarms();
  doc_.Tables.YearCount = 0;
  doc_.Tables.MonthCount = 0;
  doc_.Tables.RowCount = 0;
  doc_.Dirty = false;
  doc_.ShownYearMasks = doc_.PrevYearMasks = doc_.NextYearMasks = YearMasks{};
}

}  // namespace sched
