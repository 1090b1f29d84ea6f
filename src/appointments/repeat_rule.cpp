#include "appointments/repeat_rule.h"

namespace sched {

DecodedRepeatKind DecodeRepeatKind(std::uint16_t word) {
  DecodedRepeatKind d;
  if (word == kOverDaysWord) {
    d.code = kCodeOverDays;
    return d;
  }
  if (word == 0) {
    d.code = kCodeNone;
    d.option = kOptionNone;
    return d;
  }
  const auto readOrdinal = [&] {
    d.ordinal = (word & 0x38) / 8;
    d.isLast = *d.ordinal == kLastOrdinal;
  };
  if ((word & 0x4000) != 0) {
    d.intervalField = (word & 0x3800) / 2048;
    if ((word & 0x0400) != 0) {
      d.code = kCodeYearlyWeekday;
      d.option = kOptionYearlyWeekday;
      readOrdinal();
    } else {
      d.code = kCodeYearly;
      d.option = kOptionYearly;
    }
  } else if ((word & 0x2000) != 0) {
    d.intervalField = (word & 0x780) / 128;
    if ((word & 0x0040) != 0) {
      d.code = kCodeMonthlyWeekday;
      d.option = kOptionMonthlyWeekday;
      readOrdinal();
    } else {
      d.code = kCodeMonthly;
      d.option = kOptionMonthly;
    }
  } else if ((word & 0x1000) != 0) {
    d.intervalField = (word & 0x7E0) / 32;
    d.code = kCodeWeekly;
    d.option = kOptionWeekly;
  } else {
    d.intervalField = (word & 0x7C0) / 64;
    d.code = kCodeDaily;
    d.option = kOptionDaily;
  }
  return d;
}

std::optional<WeekdayRule> SplitWeekdayRule(std::uint16_t word) {
  const int option = DecodeRepeatKind(word).option.value_or(-1);
  if (word == kOverDaysWord ||
      (option != kOptionMonthlyWeekday && option != kOptionYearlyWeekday)) {
    return std::nullopt;
  }
  return WeekdayRule{(word & 0x38) / 8, word & 7};
}

std::uint16_t BuildRepeatWord(int option, const RepeatWordParts& p) {
  const auto word = [](int value) { return static_cast<std::uint16_t>(value); };
  switch (option) {
    case kOptionDaily: return word(0x0800 | p.step * 64);
    case kOptionWeekly: return word(0x1000 | p.step * 32 | p.weekday * 4);
    case kOptionMonthly: return word(0x2000 | p.step * 128 | p.day * 2);
    case kOptionYearly: return word(0x4000 | p.step * 2048 | p.month * 64 | p.day * 2);
    case kOptionMonthlyWeekday: return word(0x2040 | p.step * 128 | p.ordinal * 8 | p.weekday);
    case kOptionYearlyWeekday:
      return word(0x4400 | p.step * 2048 | p.month * 64 | p.ordinal * 8 | p.weekday);
    default: return 0;
  }
}

RepeatUnit UnitOfOption(int option) {
  switch (option) {
    case kOptionDaily: return RepeatUnit::Day;
    case kOptionWeekly: return RepeatUnit::Week;
    case kOptionMonthly:
    case kOptionMonthlyWeekday: return RepeatUnit::Month;
    default: return RepeatUnit::Year;
  }
}

CivilDate AddUnits(const CivilDate& date, RepeatUnit unit, int count) {
  switch (unit) {
    case RepeatUnit::Day: return AddDays(date, count);
    case RepeatUnit::Week: return AddDays(date, 7 * count);
    case RepeatUnit::Month: return AddMonths(date, count);
    case RepeatUnit::Year: return AddMonths(date, 12 * count);
  }
  return date;
}

int UnitsBetween(const CivilDate& from, const CivilDate& to, RepeatUnit unit) {
  switch (unit) {
    case RepeatUnit::Day: return DaySerial(to) - DaySerial(from);
    case RepeatUnit::Week: return (DaySerial(to) - DaySerial(from)) / 7;
    case RepeatUnit::Month: return (to.year - from.year) * 12 + to.month - from.month;
    case RepeatUnit::Year: return to.year - from.year;
  }
  return 0;
}

void RepeatWork::Decode(std::uint16_t word) {
  const DecodedRepeatKind d = DecodeRepeatKind(word);
  RepeatCode = static_cast<std::int16_t>(d.code);
  if (d.option) RepeatOption = static_cast<std::int16_t>(*d.option);
  if (d.intervalField) RepeatStep = static_cast<std::int16_t>(*d.intervalField);
  if (d.ordinal) RepeatOrdinal = static_cast<std::int16_t>(*d.ordinal);
  if (d.isLast) RepeatIsLast = *d.isLast ? -1 : 0;
}

void RepeatWork::SetAvailability(const CivilDate& start) {
  const bool lastYear = start.year == kLastYear;
  const bool lastMonth = lastYear && start.month == 12;
  CanYearly = CanYearlyWeekday = !lastYear;
  CanMonthly = CanMonthlyWeekday = !lastMonth;
  const int daysLeft = DaySerial({kLastYear, 12, 31}) - DaySerial(start);
  CanWeekly = daysLeft >= 7;
  CanDaily = daysLeft >= 1;
}

bool& RepeatWork::CanOption(int option) {
  switch (option) {
    case kOptionDaily: return CanDaily;
    case kOptionWeekly: return CanWeekly;
    case kOptionMonthly: return CanMonthly;
    case kOptionYearly: return CanYearly;
    case kOptionMonthlyWeekday: return CanMonthlyWeekday;
    default: return CanYearlyWeekday;
  }
}

}  // namespace sched
