#include "link/ics_rules.h"

#include "appointments/repeat_rule.h"

namespace sched {
namespace {

constexpr const char* kWeekdays[] = {"SU", "MO", "TU", "WE", "TH", "FR", "SA"};
// The largest interval of each kind of the repeat dialog, by option.
constexpr int kLargestInterval[] = {0, 30, 6, 11, 7, 11, 7};

// The days of the month from 28 to `day`, the last of which a month has: a rule on a day that
// a short month lacks falls on that month's last day.
std::string MonthDay(int day) {
  if (day <= 28) return "BYMONTHDAY=" + std::to_string(day);
  std::string days = "BYMONTHDAY=28";
  for (int d = 29; d <= day; ++d) days += "," + std::to_string(d);
  return days + ";BYSETPOS=-1";
}

// The weekday and its ordinal in the month; nothing when the word holds no such pair.
std::optional<std::string> WeekdayOrdinal(std::uint16_t word) {
  const std::optional<WeekdayRule> rule = SplitWeekdayRule(word);
  const bool ordinalOk =
      rule && ((rule->ordinal >= 1 && rule->ordinal <= 4) || rule->ordinal == kLastOrdinal);
  if (!ordinalOk || rule->weekday > 6) return std::nullopt;
  const int ordinal = rule->ordinal == kLastOrdinal ? -1 : rule->ordinal;
  return "BYDAY=" + std::to_string(ordinal) + kWeekdays[rule->weekday];
}

}  // namespace

icaltimetype DayOf(const CivilDate& d) {
  icaltimetype t = icaltime_null_date();
  t.year = d.year, t.month = d.month, t.day = d.day;
  return t;
}

icaltimetype TimeOf(const CivilDate& d, int minutes) {
  icaltimetype t = icaltime_null_time();
  t.year = d.year, t.month = d.month, t.day = d.day;
  t.hour = minutes / 60, t.minute = minutes % 60;
  return t;
}

std::optional<std::string> RuleOf(std::uint16_t word, int count) {
  const DecodedRepeatKind kind = DecodeRepeatKind(word);
  if (!kind.intervalField) return std::nullopt;
  const int day = (word >> 1) & 0x1F;
  const int month = (word >> 6) & 0xF;
  const int weekday = (word >> 2) & 7;
  const std::string byMonth = "BYMONTH=" + std::to_string(month) + ";";
  const bool dayOk = day >= 1 && day <= 31;
  const bool monthOk = month >= 1 && month <= 12;
  const std::optional<std::string> byWeekday = WeekdayOrdinal(word);
  std::optional<std::string> rule;
  switch (kind.code) {
    case kCodeDaily: rule = "FREQ=DAILY"; break;
    case kCodeWeekly:
      if (weekday <= 6) rule = std::string("FREQ=WEEKLY;BYDAY=") + kWeekdays[weekday];
      break;
    case kCodeMonthly:
      if (dayOk) rule = "FREQ=MONTHLY;" + MonthDay(day);
      break;
    case kCodeYearly:
      if (dayOk && monthOk) rule = "FREQ=YEARLY;" + byMonth + MonthDay(day);
      break;
    case kCodeMonthlyWeekday:
      if (byWeekday) rule = "FREQ=MONTHLY;" + *byWeekday;
      break;
    case kCodeYearlyWeekday:
      if (byWeekday && monthOk) rule = "FREQ=YEARLY;" + byMonth + *byWeekday;
      break;
    default: break;
  }
  if (!rule) return std::nullopt;
  return *rule + ";INTERVAL=" + std::to_string(*kind.intervalField + 1) +
         ";COUNT=" + std::to_string(count);
}

bool RuleGives(const std::string& rule, const std::vector<CivilDate>& dates) {
  const icalrecurrencetype recur = icalrecurrencetype_from_string(rule.c_str());
  if (recur.freq == ICAL_NO_RECURRENCE) return false;
  // The iterator steps weekly rules wrongly from a date alone: it starts at midnight.
  icalrecur_iterator* it = icalrecur_iterator_new(recur, TimeOf(dates.front(), 0));
  if (it == nullptr) return false;
  std::size_t matched = 0;
  for (icaltimetype t = icalrecur_iterator_next(it); !icaltime_is_null_time(t);
       t = icalrecur_iterator_next(it)) {
    if (matched == dates.size() || CivilDate{t.year, t.month, t.day} != dates[matched]) {
      matched = dates.size() + 1;
      break;
    }
    ++matched;
  }
  icalrecur_iterator_free(it);
  return matched == dates.size();
}

std::optional<std::uint16_t> RuleWordOf(const std::vector<CivilDate>& dates) {
  if (dates.size() < 2) return std::nullopt;
  const CivilDate& first = dates.front();
  const int nth = (first.day - 1) / 7 + 1;
  const bool lastWeek = first.day + 7 > DaysInMonth(first.year, first.month);
  std::vector<int> ordinals;
  if (nth <= 4) ordinals.push_back(nth);
  if (lastWeek) ordinals.push_back(kLastOrdinal);
  // The kinds of the longest steps first, by date before by weekday, so that a series every
  // two weeks becomes weekly, not daily.
  for (int option : {kOptionYearly, kOptionYearlyWeekday, kOptionMonthly, kOptionMonthlyWeekday,
                     kOptionWeekly, kOptionDaily}) {
    const int interval = UnitsBetween(first, dates[1], UnitOfOption(option));
    if (interval < 1 || interval > kLargestInterval[option]) continue;
    const bool byWeekday = option == kOptionMonthlyWeekday || option == kOptionYearlyWeekday;
    for (int ordinal : byWeekday ? ordinals : std::vector<int>{1}) {
      const RepeatWordParts parts{interval - 1, WeekdayOf(first), first.day, first.month, ordinal};
      const std::uint16_t word = BuildRepeatWord(option, parts);
      const std::optional<std::string> rule = RuleOf(word, static_cast<int>(dates.size()));
      if (rule && RuleGives(*rule, dates)) return word;
    }
  }
  return std::nullopt;
}

}  // namespace sched
