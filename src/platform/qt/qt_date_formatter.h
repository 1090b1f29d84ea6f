#pragma once

#include <QString>

#include "platform/date_formatter.h"

namespace sched {

// The short date form of the user's locale, with four-digit years always: the calendar spans
// two centuries.
QString ShortDateFormat();

// The short date form of the user's locale.
class QtDateFormatter : public DateFormatter {
 public:
  std::string ShortDate(int year, int month, int day) const override;
};

}  // namespace sched
