#include "holidays/holiday_rules.h"

#include <algorithm>
#include <map>
#include <optional>
#include <string>
#include <vector>

#include "core/calendar.h"
#include "holidays/easter.h"
#include "holidays/equinox.h"

namespace sched {
namespace {

// A substitute day is looked for this many days ahead at most, so that no file can make the
// search run on.
constexpr int kMaxSubstituteSearch = 31;

bool SpanCovers(const RuleSpan& span, int serial) {
  const CivilDate date = FromDaySerial(serial);
  return span.Covers(date.year, date.month, date.day);
}

// The date `rule` names in `year`, if any.
std::optional<int> RuleDate(const HolidayRule& rule, int year) {
  switch (rule.kind) {
    case RuleKind::kOnce:
      if (rule.year != year) return std::nullopt;
      [[fallthrough]];
    case RuleKind::kFixed:
      if (rule.day > DaysInMonth(year, rule.month)) return std::nullopt;  // February 29
      return DaySerial({year, rule.month, rule.day});
    case RuleKind::kNthWeekday: {
      const std::optional<CivilDate> date =
          NthWeekdayOfMonth(year, rule.month, rule.weekday, rule.nth);
      if (!date) return std::nullopt;  // no fifth such weekday this month
      return DaySerial(*date);
    }
    case RuleKind::kLastWeekday:
      return DaySerial(LastWeekdayOfMonth(year, rule.month, rule.weekday));
    case RuleKind::kEaster: return DaySerial(WesternEaster(year)) + rule.offset;
    case RuleKind::kEquinox: {
      const std::optional<int> day =
          rule.month == 3 ? MarchEquinoxDay(year) : SeptemberEquinoxDay(year);
      if (!day) return std::nullopt;
      return DaySerial({year, rule.month, *day});
    }
    case RuleKind::kWeekdayBefore:
    case RuleKind::kWeekdayAfter: {
      // Counted from the first of the month, so that 02-29 means March 1 in common years.
      const int anchor = MakeDate(year, rule.month, rule.day);
      if (rule.kind == RuleKind::kWeekdayBefore) return WeekdayOnOrBefore(anchor - 1, rule.weekday);
      return WeekdayOnOrAfter(anchor + 1, rule.weekday);
    }
  }
  return std::nullopt;
}

struct Day {
  std::vector<const std::string*> names;
  bool fromRule = false;
};

// The named days of a few years, by serial day.
class DayBook {
 public:
  void Add(int serial, const std::string& name, bool fromRule) {
    Day& day = days_[serial];
    day.fromRule = day.fromRule || fromRule;
    const bool known = std::any_of(day.names.begin(), day.names.end(),
                                   [&](const std::string* n) { return *n == name; });
    if (!known) day.names.push_back(&name);
  }
  bool IsHoliday(int serial) const { return days_.count(serial) != 0; }
  bool IsRuleDay(int serial) const {
    const auto it = days_.find(serial);
    return it != days_.end() && it->second.fromRule;
  }
  // The first day after `serial` that is no holiday (and a weekday when asked).
  std::optional<int> NextFree(int serial, bool weekdaysOnly) const {
    for (int next = serial + 1; next <= serial + kMaxSubstituteSearch; ++next) {
      const int weekday = WeekdayOfSerial(next);
      if (weekdaysOnly && (weekday == 0 || weekday == 6)) continue;
      if (!IsHoliday(next)) return next;
    }
    return std::nullopt;
  }
  const std::map<int, Day>& Days() const { return days_; }

 private:
  std::map<int, Day> days_;
};

struct RuleDay {
  int serial = 0;
  const HolidayRule* rule = nullptr;
};

std::optional<int> ObservedDay(const DayBook& book, const RuleDay& holiday) {
  const int weekday = WeekdayOfSerial(holiday.serial);
  switch (holiday.rule->observance) {
    case Observance::kNone: return std::nullopt;
    case Observance::kNearestWeekday:
      if (weekday == 6) return holiday.serial - 1;
      if (weekday == 0) return holiday.serial + 1;
      return std::nullopt;
    case Observance::kSundayToMonday:
      if (weekday == 0) return holiday.serial + 1;
      return std::nullopt;
    case Observance::kNextWeekday:
      if (weekday == 0 || weekday == 6) return book.NextFree(holiday.serial, true);
      return std::nullopt;
  }
  return std::nullopt;
}

std::optional<int> SubstituteDay(const DayBook& book, const SubstituteRule& rule, int serial) {
  if (rule.mode == SubstituteMode::kNextFree) return book.NextFree(serial, false);
  if (book.IsHoliday(serial + 1)) return std::nullopt;
  return serial + 1;
}

// Names the substitute days of the holidays in `ruleDays` (in date order).
void AddSubstitutes(const CountryFile& file, const std::vector<RuleDay>& ruleDays, DayBook& book) {
  std::optional<int> lastSunday;
  for (const RuleDay& holiday : ruleDays) {
    if (const std::optional<int> observed = ObservedDay(book, holiday)) {
      const HolidayRule& rule = *holiday.rule;
      book.Add(*observed, rule.observedName.empty() ? rule.name : rule.observedName, false);
    }
    if (WeekdayOfSerial(holiday.serial) != 0 || lastSunday == holiday.serial) continue;
    lastSunday = holiday.serial;  // two rules on one Sunday make one substitute day
    for (const SubstituteRule& substitute : file.substitutes) {
      if (!SpanCovers(substitute.span, holiday.serial)) continue;
      if (const std::optional<int> day = SubstituteDay(book, substitute, holiday.serial)) {
        book.Add(*day, substitute.name, false);
      }
      break;
    }
  }
}

void AddBridges(const CountryFile& file, const std::vector<RuleDay>& ruleDays, DayBook& book) {
  for (const RuleDay& holiday : ruleDays) {
    const int between = holiday.serial + 1;
    if (!book.IsRuleDay(holiday.serial + 2) || book.IsHoliday(between) ||
        WeekdayOfSerial(between) == 0) {
      continue;
    }
    for (const BridgeRule& bridge : file.bridges) {
      if (!SpanCovers(bridge.span, between)) continue;
      book.Add(between, bridge.name, false);
      break;
    }
  }
}

std::string JoinNames(const Day& day) {
  std::string joined;
  for (const std::string* name : day.names) {
    const std::size_t extra = joined.empty() ? name->size() : name->size() + 1;
    if (joined.size() + extra > kMaxHolidayNameBytes) continue;
    if (!joined.empty()) joined += '/';
    joined += *name;
  }
  return joined;
}

}  // namespace

std::vector<NamedDay> EvaluateYear(const CountryFile& file, int year) {
  std::vector<RuleDay> ruleDays;
  for (int y = year - 1; y <= year + 1; ++y) {
    for (const HolidayRule& rule : file.rules) {
      const std::optional<int> serial = RuleDate(rule, y);
      if (serial && SpanCovers(rule.span, *serial)) ruleDays.push_back({*serial, &rule});
    }
  }
  // Date order, and file order within a date (the rules sit in one vector).
  std::sort(ruleDays.begin(), ruleDays.end(), [](const RuleDay& a, const RuleDay& b) {
    return a.serial != b.serial ? a.serial < b.serial : a.rule < b.rule;
  });
  DayBook book;
  for (const RuleDay& holiday : ruleDays) book.Add(holiday.serial, holiday.rule->name, true);
  AddSubstitutes(file, ruleDays, book);
  AddBridges(file, ruleDays, book);

  std::vector<NamedDay> named;
  for (const auto& [serial, day] : book.Days()) {
    const CivilDate date = FromDaySerial(serial);
    if (date.year != year) continue;
    named.push_back({date.month, date.day, JoinNames(day)});
  }
  return named;
}

}  // namespace sched
