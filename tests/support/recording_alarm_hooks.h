#pragma once

#include <string>
#include <vector>

#include "store/alarm_hooks.h"

namespace sched {

// Records each call the store makes on today's alarm list, one text a call
// ("AddAlarmOfRecord 3", ...).
class RecordingAlarmHooks : public AlarmHooks {
 public:
  std::vector<std::string> calls;
  std::vector<int> alarmRows;  // the rows added

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

}  // namespace sched
