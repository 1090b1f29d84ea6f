#include "core/time_text.h"

namespace sched {

std::string TwelveHourTime(int hour, int minute, bool padHour, std::string_view amMark,
                           std::string_view pmMark) {
  const int hour12 = hour % 12 == 0 ? 12 : hour % 12;
  std::string text;
  if (padHour && hour12 < 10) text += '0';
  text += std::to_string(hour12);
  text += ':';
  if (minute < 10) text += '0';
  text += std::to_string(minute);
  text += hour < 12 ? amMark : pmMark;
  return text;
}

}  // namespace sched
