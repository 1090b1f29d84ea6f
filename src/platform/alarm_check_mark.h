#pragma once

#include <optional>

#include "platform/clock.h"

namespace sched {

// Where the alarms keep, from one run of the program to the next, the minute up to which they
// have looked at the clock.
class AlarmCheckMark {
 public:
  virtual ~AlarmCheckMark() = default;
  // The minute last looked at (its seconds 0); none before the first look.
  virtual std::optional<DateTime> ReadLastChecked() = 0;
  virtual void SaveLastChecked(const DateTime& minute) = 0;
};

}  // namespace sched
