#include "store/sch_record.h"

#include <algorithm>
#include <array>
#include <cmath>
#include <cstring>

#include "core/byte_lanes.h"
#include "core/calendar.h"

namespace sched {

AlarmMoment AlarmDateCode(int year, int month, int day, int startHour, int startMinute, int lead) {
  auto minute = static_cast<std::int16_t>(startHour * 60 - lead + startMinute);
  if (minute >= 0) return {DateCode(year, month, day), minute};
  minute = static_cast<std::int16_t>(minute + 1440);
  const CivilDate before = FromDaySerial(MakeDate(year, month, day) - 1);
  return {DateCode(before.year, before.month, before.day), minute};
}

AlarmMoment AlarmDateCodeOfStart(int year, int month, int day, int startTime, int lead) {
  const int hour = static_cast<int>(std::floor(startTime / 60.0));
  return AlarmDateCode(year, month, day, hour, startTime % 60, lead);
}

std::string WeekdayName(int weekday) {
  static constexpr std::array<const char*, 7> kNames = {"Sun", "Mon", "Tue", "Wed",
                                                        "Thu", "Fri", "Sat"};
  return weekday >= 0 && weekday < 7 ? kNames[static_cast<std::size_t>(weekday)] : "";
}

std::string TabToBlank(std::string text) {
  for (char& c : text) {
    if (c == '\t') c = ' ';
  }
  return text;
}

char* CopyWithoutReturns(std::string_view text, char* to) {
  while (!text.empty()) {
    const void* cr = std::memchr(text.data(), '\r', text.size());
    const std::size_t run =
        cr != nullptr ? static_cast<std::size_t>(static_cast<const char*>(cr) - text.data())
                      : text.size();
    std::memcpy(to, text.data(), run);
    to += run;
    text.remove_prefix(std::min(run + 1, text.size()));
  }
  return to;
}

std::string StripCR(std::string_view text) {
  std::string out(text.size(), '\0');
  out.resize(static_cast<std::size_t>(CopyWithoutReturns(text, out.data()) - out.data()));
  return out;
}

void AppendLfToCrLf(std::string& out, std::string_view text) {
  std::size_t run = 0;  // the start of the text not yet copied
  for (std::size_t i = FirstOf(text, 0, '\r', '\n'); i < text.size();
       i = FirstOf(text, i + 1, '\r', '\n')) {
    const char c = text[i];
    out.append(text.substr(run, i - run));
    run = i + 1;
    if (c == '\n') {
      if (i == 0 || text[i - 1] != '\r') out += '\r';
      out += '\n';
    } else {
      out += '\r';
      if (i + 1 >= text.size() || text[i + 1] != '\n') out += '\n';
    }
  }
  out.append(text.substr(run));
}

std::string LfToCrLf(std::string_view text) {
  std::string out;
  out.reserve(text.size() + text.size() / 8);
  AppendLfToCrLf(out, text);
  return out;
}

}  // namespace sched
