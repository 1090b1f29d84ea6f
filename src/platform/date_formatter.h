#pragma once

#include <string>

namespace sched {

// The system's short date form ("ddddd"), in which every date is shown to the user.
class DateFormatter {
 public:
  virtual ~DateFormatter() = default;
  virtual std::string ShortDate(int year, int month, int day) const = 0;
};

}  // namespace sched
