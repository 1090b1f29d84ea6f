#include "holidays/rule_tokens.h"

#include <algorithm>
#include <array>
#include <optional>
#include <string>
#include <utility>

#include "core/number_text.h"
#include "core/text_case.h"

namespace sched::rule_tokens {
namespace {

constexpr std::array<std::string_view, 7> kWeekdays = {"sunday",   "monday", "tuesday", "wednesday",
                                                       "thursday", "friday", "saturday"};
constexpr std::array<std::string_view, 12> kMonths = {
    "january", "february", "march",     "april",   "may",      "june",
    "july",    "august",   "september", "october", "november", "december"};

bool IsDigits(std::string_view text) {
  return !text.empty() &&
         std::all_of(text.begin(), text.end(), [](char c) { return c >= '0' && c <= '9'; });
}

// The index of `text` in `names`, matching the full name or its first three letters.
int FindName(std::string_view text, const auto& names) {
  const std::string lower = ToLowerAscii(text);
  for (std::size_t i = 0; i < names.size(); ++i) {
    if (lower == names[i] || (lower.size() == 3 && names[i].substr(0, 3) == lower)) {
      return static_cast<int>(i);
    }
  }
  return -1;
}

// Splits "A-B" or "A-B-C" at '-', requiring digits in every part.
std::vector<std::string_view> DateParts(std::string_view text, std::size_t count,
                                        std::string_view what) {
  std::vector<std::string_view> parts;
  std::size_t start = 0;
  while (true) {
    const std::size_t dash = text.find('-', start);
    parts.push_back(text.substr(start, dash == std::string_view::npos ? dash : dash - start));
    if (dash == std::string_view::npos) break;
    start = dash + 1;
  }
  if (parts.size() != count || !std::all_of(parts.begin(), parts.end(), IsDigits)) {
    Fail("bad " + std::string(what) + " " + Quoted(text));
  }
  return parts;
}

void CheckDay(int year, int month, int day) {
  if (month < 1 || month > 12) Fail("month " + std::to_string(month) + " out of range");
  if (day < 1 || day > DaysInMonth(year, month)) {
    Fail("day " + std::to_string(day) + " out of range for month " + std::to_string(month));
  }
}

}  // namespace

void Fail(std::string message) {
  throw SyntaxError{std::move(message)};
}

std::string Quoted(std::string_view text) {
  std::string quoted(1, '\'');
  quoted.append(text);
  quoted += '\'';
  return quoted;
}

std::vector<std::string_view> SplitWords(std::string_view text) {
  std::vector<std::string_view> words;
  std::size_t pos = 0;
  while ((pos = text.find_first_not_of(" \t", pos)) != std::string_view::npos) {
    const std::size_t end = text.find_first_of(" \t", pos);
    words.push_back(text.substr(pos, end == std::string_view::npos ? end : end - pos));
    pos = end;
  }
  return words;
}

int ParseNumber(std::string_view text, int min, int max, std::string_view what) {
  // Digits alone: a sign is for ParseSigned to take.
  const std::optional<int> number = IsDigits(text) ? ParseInt(text) : std::nullopt;
  if (!number) Fail("bad " + std::string(what) + " " + Quoted(text));
  const int value = *number;
  if (value < min || value > max) {
    Fail(std::string(what) + " " + Quoted(text) + " out of range " + std::to_string(min) + " to " +
         std::to_string(max));
  }
  return value;
}

int ParseSigned(std::string_view text, int min, int max, std::string_view what) {
  const bool negative = !text.empty() && text[0] == '-';
  const bool signedText = negative || (!text.empty() && text[0] == '+');
  const int magnitude = ParseNumber(text.substr(signedText ? 1 : 0), 0, std::max(-min, max), what);
  const int value = negative ? -magnitude : magnitude;
  if (value < min || value > max) {
    Fail(std::string(what) + " " + Quoted(text) + " out of range " + std::to_string(min) + " to " +
         std::to_string(max));
  }
  return value;
}

MonthDay ParseMonthDay(std::string_view text) {
  const auto parts = DateParts(text, 2, "month-day");
  if (parts[0].size() > 2 || parts[1].size() > 2) Fail("bad month-day " + Quoted(text));
  const MonthDay md{ParseNumber(parts[0], 0, 99, "month"), ParseNumber(parts[1], 0, 99, "day")};
  CheckDay(2000, md.month, md.day);  // a leap year, so that 02-29 is accepted
  return md;
}

CivilDate ParseDate(std::string_view text) {
  const auto parts = DateParts(text, 3, "date");
  if (parts[0].size() != 4 || parts[1].size() > 2 || parts[2].size() > 2) {
    Fail("bad date " + Quoted(text));
  }
  const CivilDate date{ParseNumber(parts[0], 1000, 9999, "year"),
                       ParseNumber(parts[1], 0, 99, "month"), ParseNumber(parts[2], 0, 99, "day")};
  CheckDay(date.year, date.month, date.day);
  return date;
}

int ParseBound(std::string_view text, bool endOfYear) {
  if (text.find('-') != std::string_view::npos) {
    const CivilDate date = ParseDate(text);
    return DateCode(date.year, date.month, date.day);
  }
  if (text.size() != 4) Fail("bad year " + Quoted(text));
  const int year = ParseNumber(text, 1000, 9999, "year");
  return endOfYear ? DateCode(year, 12, 31) : DateCode(year, 1, 1);
}

std::vector<int> ParseYearList(std::string_view text) {
  std::vector<int> years;
  std::size_t start = 0;
  while (true) {
    const std::size_t comma = text.find(',', start);
    const auto item = text.substr(start, comma == std::string_view::npos ? comma : comma - start);
    if (item.size() != 4) Fail("bad year " + Quoted(item) + " in 'except'");
    years.push_back(ParseNumber(item, 1000, 9999, "year"));
    if (comma == std::string_view::npos) return years;
    start = comma + 1;
  }
}

int ParseWeekday(std::string_view text) {
  const int index = FindName(text, kWeekdays);
  if (index < 0) Fail("unknown weekday " + Quoted(text));
  return index;
}

int ParseMonth(std::string_view text) {
  if (IsDigits(text)) {
    const int month = ParseNumber(text, 0, 99, "month");
    if (month < 1 || month > 12) Fail("month " + std::to_string(month) + " out of range");
    return month;
  }
  const int index = FindName(text, kMonths);
  if (index < 0) Fail("unknown month " + Quoted(text));
  return index + 1;
}

}  // namespace sched::rule_tokens
