#include <benchmark/benchmark.h>

#include <string>

#include "holidays/country_calendar.h"

namespace {

const std::string kJapan = std::string(SCHEDULER_DATA_DIR) + "/pcapps/holidayJP.ini";

// Looks up every day of 1901-2099; returns how many were named.
int LookUpCentury(sched::CountryCalendar& calendar, sched::CalendarHandle handle) {
  int named = 0;
  std::string name;
  for (int year = 1901; year <= 2099; ++year) {
    for (int month = 1; month <= 12; ++month) {
      for (int day = 1; day <= 31; ++day) {
        if (calendar.SorCalender_GetHolidayName(handle, year, month, day, name) == 0) ++named;
      }
    }
  }
  return named;
}

// Opens the Japanese country file; a benchmark without it reports the error and stops.
bool OpenJapan(sched::CountryCalendar& calendar, sched::CalendarHandle& handle,
               benchmark::State& state) {
  if (calendar.SorCalender_InitFunction(kJapan, handle) == 0) return true;
  state.SkipWithError("cannot open the country file");
  return false;
}

// A fresh handle each time: every year is evaluated on its first lookup.
void BM_CenturyColdCache(benchmark::State& state) {
  for (auto _ : state) {
    sched::CountryCalendar calendar;
    sched::CalendarHandle handle = 0;
    if (!OpenJapan(calendar, handle, state)) return;
    benchmark::DoNotOptimize(LookUpCentury(calendar, handle));
  }
}
BENCHMARK(BM_CenturyColdCache)->Unit(benchmark::kMillisecond);

void BM_CenturyWarmCache(benchmark::State& state) {
  sched::CountryCalendar calendar;
  sched::CalendarHandle handle = 0;
  if (!OpenJapan(calendar, handle, state)) return;
  LookUpCentury(calendar, handle);
  for (auto _ : state) benchmark::DoNotOptimize(LookUpCentury(calendar, handle));
}
BENCHMARK(BM_CenturyWarmCache)->Unit(benchmark::kMicrosecond);

// The 42 cells of the month grid of May 2019: the end of April, May, the start of June.
void BM_MonthGrid(benchmark::State& state) {
  sched::CountryCalendar calendar;
  sched::CalendarHandle handle = 0;
  if (!OpenJapan(calendar, handle, state)) return;
  std::string name;
  for (auto _ : state) {
    int named = 0;
    for (int cell = 0; cell < 42; ++cell) {
      const int month = cell < 3 ? 4 : (cell < 34 ? 5 : 6);
      const int day = cell < 3 ? 28 + cell : (cell < 34 ? cell - 2 : cell - 33);
      if (calendar.SorCalender_GetHolidayName(handle, 2019, month, day, name) == 0) ++named;
    }
    benchmark::DoNotOptimize(named);
  }
}
BENCHMARK(BM_MonthGrid)->Unit(benchmark::kNanosecond);

// One year evaluated from the rules, as on a first lookup.
void BM_MonthGridColdYear(benchmark::State& state) {
  for (auto _ : state) {
    sched::CountryCalendar calendar;
    sched::CalendarHandle handle = 0;
    if (!OpenJapan(calendar, handle, state)) return;
    std::string name;
    benchmark::DoNotOptimize(calendar.SorCalender_GetHolidayName(handle, 2019, 5, 1, name));
  }
}
BENCHMARK(BM_MonthGridColdYear)->Unit(benchmark::kMicrosecond);

}  // namespace
