#include <cctype>

#include "appointments/sch_edit_model.h"
#include "core/text_case.h"
#include "core/time_text.h"

namespace sched {

std::string TimeComboText(int minutes) {
  return TwelveHourTime(minutes / 60, minutes % 60, false, " AM", " PM");
}

const std::vector<TimeComboItem>& TimeComboItems() {
  static const std::vector<TimeComboItem> items = [] {
    std::vector<TimeComboItem> list;
    const auto add = [&list](int minutes) { list.push_back({TimeComboText(minutes), minutes}); };
    for (int minutes = 0; minutes < 24 * 60; minutes += 30) add(minutes);
    add(23 * 60 + 59);
    return list;
  }();
  return items;
}

std::optional<int> ParseTimeText(const std::string& text) {
  const std::string rest(Trim(text));
  const std::size_t colon = rest.find(':');
  if (colon == std::string::npos || colon == 0 || colon > 2) return std::nullopt;
  const auto digits = [](std::string_view part) {
    if (part.empty()) return -1;
    int value = 0;
    for (char c : part) {
      if (!std::isdigit(static_cast<unsigned char>(c))) return -1;
      value = value * 10 + (c - '0');
    }
    return value;
  };
  int hours = digits(std::string_view(rest).substr(0, colon));
  std::string tail(Trim(std::string_view(rest).substr(colon + 1)));
  std::string mark;
  if (tail.size() > 2 && std::isalpha(static_cast<unsigned char>(tail.back()))) {
    mark = ToLowerAscii(Trim(std::string_view(tail).substr(2)));
    tail = tail.substr(0, 2);
  }
  const int minutes = tail.size() == 2 ? digits(tail) : -1;
  if (hours < 0 || minutes < 0 || minutes > 59) return std::nullopt;
  if (!mark.empty()) {
    if ((mark != "am" && mark != "pm") || hours < 1 || hours > 12) return std::nullopt;
    hours = hours % 12 + (mark == "pm" ? 12 : 0);
  }
  if (hours > 23) return std::nullopt;
  return hours * 60 + minutes;
}

}  // namespace sched
