#pragma once

#include <cstdio>
#include <string>

#include "core/calendar.h"

namespace sched {

// Dates as the case files write them, YYYY-MM-DD.
inline std::string DateText(int year, int month, int day) {
  char text[40];
  std::snprintf(text, sizeof text, "%04d-%02d-%02d", year, month, day);
  return text;
}
inline std::string DateText(const CivilDate& date) {
  return DateText(date.year, date.month, date.day);
}

}  // namespace sched
