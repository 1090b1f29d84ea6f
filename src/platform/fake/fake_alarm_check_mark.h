#pragma once

#include <optional>

#include "platform/alarm_check_mark.h"

namespace sched {

// The minute last looked at, kept in memory as the settings keep it between runs.
class FakeAlarmCheckMark : public AlarmCheckMark {
 public:
  std::optional<DateTime> stored;
  std::optional<DateTime> ReadLastChecked() override { return stored; }
  void SaveLastChecked(const DateTime& minute) override { stored = minute; }
};

}  // namespace sched
