#include "interchange/csv_date_time.h"

#include <cstdio>
#include <vector>

#include "core/text_case.h"
#include "core/time_text.h"

namespace sched {
namespace {

// The whole numbers of `text` between its separators; nothing when a part is empty, is no
// number or has more than `maxDigits` digits.
std::optional<std::vector<int>> NumberParts(std::string_view text, char separator,
                                            std::size_t maxDigits) {
  std::vector<int> parts;
  for (;;) {
    const std::size_t end = std::min(text.find(separator), text.size());
    const std::string_view part = text.substr(0, end);
    if (part.empty() || part.size() > maxDigits) return std::nullopt;
    int value = 0;
    for (const char c : part) {
      if (c < '0' || c > '9') return std::nullopt;
      value = value * 10 + (c - '0');
    }
    parts.push_back(value);
    if (end == text.size()) return parts;
    text.remove_prefix(end + 1);
  }
}

std::optional<CivilDate> RealDate(int year, int month, int day) {
  if (year < 100 || month < 1 || month > 12 || day < 1 || day > DaysInMonth(year, month)) {
    return std::nullopt;
  }
  return CivilDate{year, month, day};
}

}  // namespace

std::optional<CivilDate> ParseCsvDate(std::string_view text) {
  text = Trim(text);
  const char separator = text.find('-') != std::string_view::npos ? '-' : '/';
  const auto parts = NumberParts(text, separator, 4);
  if (!parts || parts->size() != 3) return std::nullopt;
  const std::vector<int>& p = *parts;
  const bool yearFirst = text.find(separator) > 2;
  if (yearFirst) return RealDate(p[0], p[1], p[2]);
  if (separator == '-' || text.size() - text.rfind(separator) - 1 != 4) return std::nullopt;
  return RealDate(p[2], p[0], p[1]);
}

std::optional<int> ParseCsvTime(std::string_view text) {
  text = Trim(text);
  std::optional<bool> afternoon;
  if (text.size() >= 2) {
    const std::string_view mark = text.substr(text.size() - 2);
    if (EqualsIgnoringCase(mark, "AM") || EqualsIgnoringCase(mark, "PM")) {
      afternoon = EqualsIgnoringCase(mark, "PM");
      text = Trim(text.substr(0, text.size() - 2));
    }
  }
  const auto parts = NumberParts(text, ':', 2);
  if (!parts || parts->size() < 2 || parts->size() > 3) return std::nullopt;
  int hour = (*parts)[0];
  const int minute = (*parts)[1];
  if (minute > 59 || (parts->size() == 3 && (*parts)[2] > 59)) return std::nullopt;
  if (afternoon) {
    if (hour > 12) return std::nullopt;
    hour = hour % 12 + (*afternoon ? 12 : 0);
  } else if (hour > 23) {
    return std::nullopt;
  }
  return hour * 60 + minute;
}

std::string FormatCsvDate(const CivilDate& date) {
  char text[16];
  std::snprintf(text, sizeof text, "%04d/%02d/%02d", date.year, date.month, date.day);
  return text;
}

std::string FormatCsvTime(int minutes) {
  return TwelveHourTime(minutes / 60, minutes % 60, false, " AM", " PM");
}

}  // namespace sched
