#include "appointments/repeat_limits.h"

#include <array>

#include "appointments/week_ordinal.h"

namespace sched {

namespace {

constexpr std::array<int, 4> kMaxCount = {31, 52, 12, 10};
constexpr std::array<int, 4> kMaxInterval = {30, 6, 11, 7};

}  // namespace

bool ByWeekday(int option) {
  return option == kOptionMonthlyWeekday || option == kOptionYearlyWeekday;
}

int MaxRepeatCount(RepeatUnit unit) {
  return kMaxCount[static_cast<std::size_t>(unit)];
}

int MaxRepeatInterval(RepeatUnit unit) {
  return kMaxInterval[static_cast<std::size_t>(unit)];
}

CivilDate LastOccurrence(const RepeatPlan& plan, int count, int interval) {
  CivilDate last = AddUnits(plan.start, UnitOfOption(plan.option), (count - 1) * interval);
  if (ByWeekday(plan.option)) {
    last.day =
        Sor_CulcDDfromYMNW(last.year, last.month, plan.weekday.ordinal, plan.weekday.weekday);
  }
  return last;
}

bool FitsInCalendar(const RepeatPlan& plan, int count, int interval) {
  const CivilDate last = LastOccurrence(plan, count, interval);
  return DateCode(last.year, last.month, last.day) <=
         DateCode(kEndLimit.year, kEndLimit.month, kEndLimit.day);
}

}  // namespace sched
