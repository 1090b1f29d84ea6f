#include "holidays/equinox.h"

namespace sched {
namespace {

// The usual approximation of the equinox day in Japan Standard Time: a mean day that drifts by
// 0.242194 days a year, set back by one day every leap year. The base day and the leap-year
// reference differ before and after 1980. Integer division truncates toward zero on purpose:
// for the years before 1980 the leap-year term is negative and must round toward zero.
std::optional<int> EquinoxDay(int year, double baseBefore1980, double baseFrom1980) {
  if (year < 1900 || year > 2099) return std::nullopt;
  const bool early = year < 1980;
  const double base = early ? baseBefore1980 : baseFrom1980;
  const int leapYears = early ? (year - 1983) / 4 : (year - 1980) / 4;
  return static_cast<int>(base + 0.242194 * (year - 1980) - leapYears);
}

}  // namespace

std::optional<int> MarchEquinoxDay(int year) {
  return EquinoxDay(year, 20.8357, 20.8431);
}

std::optional<int> SeptemberEquinoxDay(int year) {
  return EquinoxDay(year, 23.2588, 23.2488);
}

}  // namespace sched
