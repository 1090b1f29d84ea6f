#include "platform/std/console.h"

#include <cstdio>

namespace sched {

std::string IsoDateFormatter::ShortDate(int year, int month, int day) const {
  char text[16];
  std::snprintf(text, sizeof text, "%04d/%02d/%02d", year % 10000, month % 100, day % 100);
  return text;
}

}  // namespace sched
