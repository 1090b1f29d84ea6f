#pragma once

namespace sched {

// What the store tells today's alarm list as rows come and go. The alarm engine implements it;
// programs that ring no alarms (scltool, the set-up step) use NoAlarmHooks.
class AlarmHooks {
 public:
  virtual ~AlarmHooks() = default;
  // The document is emptied: no alarm is left.
  virtual void ClearTodayAlarms() = 0;
  // A row whose alarm rings later today was added.
  virtual void AddAlarmOfRecord(int row) = 0;
  // A row was deleted; its alarm, if listed, goes.
  virtual void RemoveAlarmOfRecord(int row) = 0;
  // After a batch of additions: the list in ringing order, and the next alarm armed.
  virtual void SortTodayAlarms() = 0;
  virtual void ArmNextAlarm() = 0;
};

// For programs that ring no alarms.
class NoAlarmHooks final : public AlarmHooks {
 public:
  void ClearTodayAlarms() override {}
  void AddAlarmOfRecord(int) override {}
  void RemoveAlarmOfRecord(int) override {}
  void SortTodayAlarms() override {}
  void ArmNextAlarm() override {}
};

}  // namespace sched
