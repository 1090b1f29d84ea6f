#pragma once

#include <string>

namespace sched {

// What loading, saving and the record operations ask of the rest of the program: the views,
// the menus, the caption, the settings and today's alarm list. Each call does nothing unless
// the program that hosts the store overrides it.
class StoreHost {
 public:
  virtual ~StoreHost() = default;

  // Views and window.
  virtual void ClearDayLists() {}
  virtual void ShowWeekHolidayHeads() {}
  virtual void UpdateMenus() {}
  virtual void EnableMonthCommands() {}
  virtual void RedrawShownTab() {}
  virtual void DisableSclDel() {}
  virtual void RefreshScheduleList() {}
  virtual void ShowFirstTab() {}
  virtual void SetTitle(const std::string& /*title*/) {}
  virtual void ResetToToday() {}

  // Settings: remember the open file as the last one.
  virtual void StoreLastFile() {}

  // Today's alarms.
  virtual void ClearTodayAlarms() {}
  virtual void AddAlarmOfRecord(int /*row*/) {}
  virtual void RemoveAlarmOfRecord(int /*row*/) {}
  virtual void SortTodayAlarms() {}
  virtual void ArmNextAlarm() {}
};

}  // namespace sched
