#pragma once

#include <cstdint>
#include <optional>

#include "core/calendar.h"

namespace sched {

// RepeatCode: the kind of an item as the expansion, paste and delete texts tell it apart.
inline constexpr int kCodeNone = 0;
inline constexpr int kCodeYearly = 1;
inline constexpr int kCodeMonthly = 2;
inline constexpr int kCodeWeekly = 4;
inline constexpr int kCodeDaily = 8;
inline constexpr int kCodeOverDays = 16;
inline constexpr int kCodeMonthlyWeekday = 22;
inline constexpr int kCodeYearlyWeekday = 50;

// RepeatOption: the kinds in the order of the repeat dialog.
inline constexpr int kOptionNone = 0;
inline constexpr int kOptionDaily = 1;
inline constexpr int kOptionWeekly = 2;
inline constexpr int kOptionMonthly = 3;
inline constexpr int kOptionYearly = 4;
inline constexpr int kOptionMonthlyWeekday = 5;
inline constexpr int kOptionYearlyWeekday = 6;

// The word of an item over several dates.
inline constexpr std::uint16_t kOverDaysWord = 0x8000;
// The week ordinal that stands for the last such weekday of the month.
inline constexpr int kLastOrdinal = 7;

// What a rule word says; what the word does not hold stays empty.
struct DecodedRepeatKind {
  int code = kCodeNone;
  std::optional<int> option;
  std::optional<int> intervalField;  // the interval minus 1
  std::optional<int> ordinal;
  std::optional<bool> isLast;
};

// Reads a rule word. The year bit is tested before the month bit before the week bit, and a
// word with none of them reads as daily.
DecodedRepeatKind DecodeRepeatKind(std::uint16_t word);

struct WeekdayRule {
  int ordinal = 1;  // 1 to 4, or kLastOrdinal
  int weekday = 0;  // 0 Sunday to 6 Saturday
};
// The ordinal and weekday of a monthly or yearly rule by weekday; nothing for another word.
std::optional<WeekdayRule> SplitWeekdayRule(std::uint16_t word);

// What a rule word is built from: the interval minus 1 and the fields of the kind.
struct RepeatWordParts {
  int step = 0;
  int weekday = 0;
  int day = 1;
  int month = 1;
  int ordinal = 1;
};
// The word of the kind `option` (1 to 6); 0 for any other option.
std::uint16_t BuildRepeatWord(int option, const RepeatWordParts& parts);

// The units the interval counts for a kind, and their use in date steps.
enum class RepeatUnit { Day, Week, Month, Year };
RepeatUnit UnitOfOption(int option);
// `date` moved on by `count` units; months and years clamp the day to the month's end.
CivilDate AddUnits(const CivilDate& date, RepeatUnit unit, int count);
// Whole units from `from` to `to` (days, weeks, calendar months, calendar years).
int UnitsBetween(const CivilDate& from, const CivilDate& to, RepeatUnit unit);

// The working values of the rule being composed, shared by the open edit dialog, its repeat
// dialog and the making of occurrences. One set belongs to each edit session.
struct RepeatWork {
  std::uint16_t WorkRepeatKind = 0;
  std::int16_t RepeatStep = 0;
  std::int16_t RepeatStepUsed = 0;
  std::int16_t RepeatCount = 0;
  std::int16_t RepeatOption = -1;
  std::int16_t RepeatCode = kCodeNone;
  std::int16_t RepeatOrdinal = 0;
  std::int16_t RepeatIsLast = 0;
  std::int16_t RepeatFree = -1;  // -1 while no rule is chosen and the dates may span days
  std::int32_t RepeatLastCode = -1;
  std::int32_t RepeatStartCode = 0;
  std::int16_t RepeatLastYear = 0;
  std::int16_t RepeatLastMonth = 0;
  std::int16_t RepeatLastDay = 0;
  bool CanDaily = true;
  bool CanWeekly = true;
  bool CanMonthly = true;
  bool CanYearly = true;
  bool CanMonthlyWeekday = true;
  bool CanYearlyWeekday = true;

  // Reads the word into RepeatCode and whatever else it holds: RepeatStep (the interval
  // field), RepeatOption, RepeatOrdinal, RepeatIsLast.
  void Decode(std::uint16_t word);
  // Which kinds still fit before kEndLimit from the start date.
  void SetAvailability(const CivilDate& start);
  // The flag of a kind (`option` 1 to 6).
  bool& CanOption(int option);
};

}  // namespace sched
