#pragma once

#include <cstddef>
#include <string>
#include <string_view>
#include <vector>

namespace sched {

// A parsed country holiday file. Every text is kept in the file's 8-bit form (Windows-1252), so
// that its length in bytes is the length that counts against the 99-byte limit.

inline constexpr std::size_t kMaxHolidayNameBytes = 99;
inline constexpr std::size_t kMaxCountryFileBytes = 1 << 20;

// The dates a rule applies to: from `firstDate` to `lastDate` (yyyymmdd, both inclusive), less
// the years listed in `exceptYears`. Bounds are tested against the holiday's own date.
struct RuleSpan {
  int firstDate = 0;
  int lastDate = 99991231;
  std::vector<int> exceptYears;

  bool Covers(int year, int month, int day) const;
};

enum class RuleKind {
  kFixed,          // month/day every year
  kOnce,           // year/month/day, that year only
  kNthWeekday,     // the nth weekday of month
  kLastWeekday,    // the last weekday of month
  kEaster,         // offset days after Western Easter Sunday
  kEquinox,        // March (month 3) or September (month 9) equinox day
  kWeekdayBefore,  // the last weekday strictly before month/day
  kWeekdayAfter,   // the first weekday strictly after month/day
};

// What happens when the holiday falls on a weekend: another day is named as well.
enum class Observance {
  kNone,
  kNearestWeekday,  // Saturday: the Friday before; Sunday: the Monday after
  kSundayToMonday,  // Sunday: the Monday after; Saturday stays as it is
  kNextWeekday,     // Saturday or Sunday: the next Monday-Friday that is not yet a holiday
};

struct HolidayRule {
  RuleKind kind = RuleKind::kFixed;
  int year = 0;     // kOnce
  int month = 0;    // every kind but kEaster
  int day = 0;      // kFixed, kOnce, kWeekdayBefore, kWeekdayAfter
  int nth = 0;      // kNthWeekday: 1 to 5
  int weekday = 0;  // 0 Sunday to 6 Saturday
  int offset = 0;   // kEaster
  RuleSpan span;
  Observance observance = Observance::kNone;
  std::string name;
  std::string observedName;  // the name of the day named instead; empty: the holiday's name
};

// A holiday on a Sunday makes the next day (kNextDay), or the next day that is no holiday
// (kNextFree), a holiday of its own.
enum class SubstituteMode { kNextDay, kNextFree };

struct SubstituteRule {
  SubstituteMode mode = SubstituteMode::kNextFree;
  RuleSpan span;  // tested against the date of the holiday that falls on the Sunday
  std::string name;
};

// A working day other than a Sunday between two holidays named by rules becomes a holiday.
struct BridgeRule {
  RuleSpan span;  // tested against the date of the bridged day
  std::string name;
};

struct CountryFile {
  std::string title;
  std::vector<HolidayRule> rules;
  std::vector<SubstituteRule> substitutes;
  std::vector<BridgeRule> bridges;
};

struct CountryFileError {
  int line = 0;  // 1-based; 0 when the file as a whole is at fault
  std::string message;
};

// Parses the bytes of a country file. Returns false and fills `error` when the text is not a
// valid country file; never throws for any input.
bool ParseCountryFile(std::string_view bytes, CountryFile& file, CountryFileError& error);

// Reads and parses the file at `path` (at most kMaxCountryFileBytes).
bool LoadCountryFile(const std::string& path, CountryFile& file, CountryFileError& error);

}  // namespace sched
