#include "interchange/csv_date_time.h"

#include <algorithm>
#include <array>
#include <cstdint>

#include "core/text_case.h"

namespace sched {
namespace {

// Up to three whole numbers of `text` between its separators.
struct NumberParts {
  std::array<int, 3> values{};
  std::size_t count = 0;
};

// The numbers; nothing when a part is empty, is no number, has more than `maxDigits` digits,
// or there are more than three.
std::optional<NumberParts> SplitNumbers(std::string_view text, char separator,
                                        std::size_t maxDigits) {
  NumberParts parts;
  std::size_t digits = 0;
  for (std::size_t i = 0; i <= text.size(); ++i) {
    if (i == text.size() || text[i] == separator) {
      if (digits == 0 || parts.count == parts.values.size()) return std::nullopt;
      ++parts.count;
      digits = 0;
      continue;
    }
    if (text[i] < '0' || text[i] > '9' || ++digits > maxDigits) return std::nullopt;
    int& value = parts.values[parts.count];
    value = value * 10 + (text[i] - '0');
  }
  return parts;
}

std::optional<CivilDate> RealDate(int year, int month, int day) {
  if (year < 100 || month < 1 || month > 12 || day < 1 || day > DaysInMonth(year, month)) {
    return std::nullopt;
  }
  return CivilDate{year, month, day};
}

bool IsDigit(char c) {
  return c >= '0' && c <= '9';
}

int Digits(std::string_view text, std::size_t from, std::size_t count) {
  int value = 0;
  for (std::size_t i = from; i < from + count; ++i) value = value * 10 + (text[i] - '0');
  return value;
}

// "2024/03/04", the form the export writes and most rows hold, read at once; nothing for any
// other text, which the general reading then takes.
std::optional<CivilDate> ExportedDate(std::string_view text) {
  const auto digit = [&](std::size_t i) { return IsDigit(text[i]); };
  if (text.size() != 10 || text[4] != '/' || text[7] != '/' ||
      !(digit(0) && digit(1) && digit(2) && digit(3) && digit(5) && digit(6) && digit(8) &&
        digit(9))) {
    return std::nullopt;
  }
  return RealDate(Digits(text, 0, 4), Digits(text, 5, 2), Digits(text, 8, 2));
}

// "9:30 AM" and "10:00 PM", the forms the export writes, read at once; nothing for any other
// text.
std::optional<int> ExportedTime(std::string_view text) {
  const std::size_t hourDigits = text.size() == 7 ? 1 : text.size() == 8 ? 2 : 0;
  if (hourDigits == 0 || text[hourDigits] != ':' || text[hourDigits + 3] != ' ' ||
      text[hourDigits + 5] != 'M' || (text[hourDigits + 4] != 'A' && text[hourDigits + 4] != 'P')) {
    return std::nullopt;
  }
  if (!IsDigit(text[0]) || !IsDigit(text[hourDigits - 1]) || !IsDigit(text[hourDigits + 1]) ||
      !IsDigit(text[hourDigits + 2])) {
    return std::nullopt;
  }
  const int hour = Digits(text, 0, hourDigits);
  const int minute = Digits(text, hourDigits + 1, 2);
  if (hour > 12 || minute > 59) return std::nullopt;
  return (hour % 12 + (text[hourDigits + 4] == 'P' ? 12 : 0)) * 60 + minute;
}

}  // namespace

std::optional<CivilDate> ParseCsvDate(std::string_view text) {
  if (const auto date = ExportedDate(text)) return date;
  text = Trim(text);
  const char separator = text.find('-') != std::string_view::npos ? '-' : '/';
  const auto parts = SplitNumbers(text, separator, 4);
  if (!parts || parts->count != 3) return std::nullopt;
  const std::array<int, 3>& p = parts->values;
  const bool yearFirst = text.find(separator) > 2;
  if (yearFirst) return RealDate(p[0], p[1], p[2]);
  if (separator == '-' || text.size() - text.rfind(separator) - 1 != 4) return std::nullopt;
  return RealDate(p[2], p[0], p[1]);
}

std::optional<int> ParseCsvTime(std::string_view text) {
  if (const auto time = ExportedTime(text)) return time;
  text = Trim(text);
  std::optional<bool> afternoon;
  if (text.size() >= 2) {
    const std::string_view mark = text.substr(text.size() - 2);
    if (EqualsIgnoringCase(mark, "AM") || EqualsIgnoringCase(mark, "PM")) {
      afternoon = EqualsIgnoringCase(mark, "PM");
      text = Trim(text.substr(0, text.size() - 2));
    }
  }
  const auto parts = SplitNumbers(text, ':', 2);
  if (!parts || parts->count < 2) return std::nullopt;
  int hour = parts->values[0];
  const int minute = parts->values[1];
  if (minute > 59 || parts->values[2] > 59) return std::nullopt;
  if (afternoon) {
    if (hour > 12) return std::nullopt;
    hour = hour % 12 + (*afternoon ? 12 : 0);
  } else if (hour > 23) {
    return std::nullopt;
  }
  return hour * 60 + minute;
}

// Written by hand: an export writes up to three a row.
char* WriteCsvDate(const CivilDate& date, char* to) {
  const auto digit = [](int value) { return static_cast<char>('0' + value % 10); };
  *to++ = digit(date.year / 1000);
  *to++ = digit(date.year / 100);
  *to++ = digit(date.year / 10);
  *to++ = digit(date.year);
  *to++ = '/';
  *to++ = digit(date.month / 10);
  *to++ = digit(date.month);
  *to++ = '/';
  *to++ = digit(date.day / 10);
  *to++ = digit(date.day);
  return to;
}

std::string_view CsvTimeText(int minutes) {
  constexpr int kMinutesOfDay = 24 * 60;
  struct Times {
    std::array<std::array<char, 8>, kMinutesOfDay> texts;
    std::array<std::uint8_t, kMinutesOfDay> lengths;
  };
  static const Times times = [] {
    Times made{};
    for (int m = 0; m < kMinutesOfDay; ++m) {
      const auto i = static_cast<std::size_t>(m);
      char* to = made.texts[i].data();
      const int hour = m / 60;
      const int hour12 = hour % 12 == 0 ? 12 : hour % 12;
      if (hour12 >= 10) *to++ = '1';
      *to++ = static_cast<char>('0' + hour12 % 10);
      *to++ = ':';
      *to++ = static_cast<char>('0' + m % 60 / 10);
      *to++ = static_cast<char>('0' + m % 10);
      *to++ = ' ';
      *to++ = hour < 12 ? 'A' : 'P';
      *to++ = 'M';
      made.lengths[i] = static_cast<std::uint8_t>(to - made.texts[i].data());
    }
    return made;
  }();
  const auto i = static_cast<std::size_t>(std::clamp(minutes, 0, kMinutesOfDay - 1));
  return {times.texts[i].data(), times.lengths[i]};
}

}  // namespace sched
