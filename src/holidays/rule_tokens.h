#pragma once

#include <string>
#include <string_view>
#include <vector>

#include "core/calendar.h"
#include "core/text_case.h"

namespace sched::rule_tokens {

// The small lexical pieces of a country file line. Each parser throws SyntaxError with a
// message for the user; the country file parser catches it and reports the line.

struct SyntaxError {
  std::string message;
};

[[noreturn]] void Fail(std::string message);

// `text` in single quotes, for messages.
std::string Quoted(std::string_view text);

using ::sched::Trim;
std::vector<std::string_view> SplitWords(std::string_view text);

// A decimal number of digits only, within [min, max].
int ParseNumber(std::string_view text, int min, int max, std::string_view what);
// An optionally signed decimal number within [min, max].
int ParseSigned(std::string_view text, int min, int max, std::string_view what);

struct MonthDay {
  int month = 0;
  int day = 0;
};
// "MM-DD"; February 29 is accepted.
MonthDay ParseMonthDay(std::string_view text);

// "YYYY-MM-DD", a real date.
CivilDate ParseDate(std::string_view text);
// "YYYY" (its first or, with `endOfYear`, its last day) or "YYYY-MM-DD", as yyyymmdd.
int ParseBound(std::string_view text, bool endOfYear);
// "YYYY,YYYY,...".
std::vector<int> ParseYearList(std::string_view text);

// "sun" to "sat" or the full English name: 0 Sunday to 6 Saturday.
int ParseWeekday(std::string_view text);
// 1 to 12, "jan" to "dec" or the full English name.
int ParseMonth(std::string_view text);

}  // namespace sched::rule_tokens
