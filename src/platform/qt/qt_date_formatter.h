#pragma once

#include "platform/date_formatter.h"

namespace sched {

// The short date form of the user's locale.
class QtDateFormatter : public DateFormatter {
 public:
  std::string ShortDate(int year, int month, int day) const override;
};

}  // namespace sched
