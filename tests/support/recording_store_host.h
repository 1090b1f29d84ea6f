#pragma once

#include <string>
#include <vector>

#include "store/store_host.h"

namespace sched {

// Records each call the store makes on its host, one text a call ("SetTitle Scheduler - ...").
// `Host` is the interface recorded: the store's host or an interface that extends it.
template <typename Host = StoreHost>
class RecordingHost : public Host {
 public:
  std::vector<std::string> calls;
  std::vector<int> alarmRows;

  bool Called(const std::string& call) const {
    for (const auto& c : calls) {
      if (c == call) return true;
    }
    return false;
  }

  void ClearDayLists() override { calls.push_back("ClearDayLists"); }
  void ShowWeekHolidayHeads() override { calls.push_back("ShowWeekHolidayHeads"); }
  void UpdateMenus() override { calls.push_back("UpdateMenus"); }
  void EnableMonthCommands() override { calls.push_back("EnableMonthCommands"); }
  void RedrawShownTab() override { calls.push_back("RedrawShownTab"); }
  void DisableSclDel() override { calls.push_back("DisableSclDel"); }
  void RefreshScheduleList() override { calls.push_back("RefreshScheduleList"); }
  void ShowFirstTab() override { calls.push_back("ShowFirstTab"); }
  void SetTitle(const std::string& title) override { calls.push_back("SetTitle " + title); }
  void ResetToToday() override { calls.push_back("ResetToToday"); }
  void StoreLastFile() override { calls.push_back("StoreLastFile"); }
  void ClearTodayAlarms() override { calls.push_back("ClearTodayAlarms"); }
  void AddAlarmOfRecord(int row) override {
    calls.push_back("AddAlarmOfRecord " + std::to_string(row));
    alarmRows.push_back(row);
  }
  void RemoveAlarmOfRecord(int row) override {
    calls.push_back("RemoveAlarmOfRecord " + std::to_string(row));
  }
  void SortTodayAlarms() override { calls.push_back("SortTodayAlarms"); }
  void ArmNextAlarm() override { calls.push_back("ArmNextAlarm"); }
};

using RecordingStoreHost = RecordingHost<>;

}  // namespace sched
