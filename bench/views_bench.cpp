// The month grid and the day list over documents of 1k, 10k and 100k rows: the cost of a fill
// must follow the shown month's own rows, not the size of the document.

#include <benchmark/benchmark.h>

#include <map>
#include <memory>
#include <random>
#include <string>

#include "holidays/country_calendar.h"
#include "platform/fake/fake_clock.h"
#include "platform/fake/fake_date_formatter.h"
#include "platform/fake/fake_messages.h"
#include "tests/support/test_store.h"
#include "views/calendar_views.h"

namespace sched {
namespace {

constexpr CivilDate kBusyDay{2020, 6, 17};

// A document of about `rows` rows spread over 2000 to 2039, with a busy June 2020: 20 timed
// items a day, ten trips of five days crossing its days and both its ends, and 50 items on
// one day.
struct BenchDocument {
  TestStore s;
  CountryCalendar calendar;
  NamedHolidays holidays;
  FakeDateFormatter dates;
  FakeClock clock;
  FakeMessages messages;
  CalendarViews views{{s.doc, holidays, dates, clock, messages}};

  explicit BenchDocument(int rows) {
    CalendarHandle handle = 0;
    if (calendar.SorCalender_InitFunction(std::string(SCHEDULER_DATA_DIR) + "/pcapps/holidayUK.ini",
                                          handle) == 0) {
      holidays = {&calendar, handle, -1};
    }
    std::mt19937 random(7);
    const auto pick = [&](int low, int high) {
      return std::uniform_int_distribution<int>(low, high)(random);
    };
    std::int32_t stamp = 1000;
    for (int day = 1; day <= 30; ++day) {
      for (int i = 0; i < 20; ++i) {
        const int start = pick(0, 1380);
        s.store.InsertRecord(MakeItem(2020, 6, day, start, start + 45, "Meeting"));
      }
    }
    for (int i = 0; i < 30; ++i) {
      const int start = pick(0, 1380);
      s.store.InsertRecord(
          MakeItem(kBusyDay.year, kBusyDay.month, kBusyDay.day, start, start + 30, "Extra"));
    }
    for (int trip = 0; trip < 10; ++trip) {
      InsertSpan(s.store, AddDays({2020, 5, 28}, trip * 4), 5, "Trip", ++stamp);
    }
    while (s.doc.Tables.RowCount < rows) {
      const int year = pick(2000, 2039);
      const int month = pick(1, 12);
      const int day = pick(1, DaysInMonth(year, month));
      if (pick(0, 9) == 0) {
        InsertSpan(s.store, {year, month, day}, pick(2, 6), "Away", ++stamp);
      } else {
        const int start = pick(-1, 1380);
        s.store.InsertRecord(MakeItem(year, month, day, start, start < 0 ? -1 : start + 60, "x"));
      }
    }
    s.doc.CurYear = kBusyDay.year;
    s.doc.CurMonth = kBusyDay.month;
    s.doc.CurDay = kBusyDay.day;
    views.Combo2Index = kBusyDay.year - kFirstYear;
    views.Combo1Index = kBusyDay.month - 1;
    views.Day().Pict.SetScale(800, 20);
  }
};

BenchDocument& Document(int rows) {
  static std::map<int, std::unique_ptr<BenchDocument>> made;
  auto& doc = made[rows];
  if (!doc) doc = std::make_unique<BenchDocument>(rows);
  return *doc;
}

void BM_FillMonth(benchmark::State& state) {
  BenchDocument& d = Document(static_cast<int>(state.range(0)));
  for (auto _ : state) {
    d.views.FillMonthGrid();
    d.views.FillMonthLists();
    benchmark::DoNotOptimize(d.views.Month().Cells());
  }
  state.counters["rows"] = d.s.doc.Tables.RowCount;
}
BENCHMARK(BM_FillMonth)->Arg(1000)->Arg(10000)->Arg(100000)->Unit(benchmark::kMicrosecond);

void BM_ShowDayList(benchmark::State& state) {
  BenchDocument& d = Document(static_cast<int>(state.range(0)));
  for (auto _ : state) {
    d.views.ShowDayList();
    benchmark::DoNotOptimize(d.views.Day().List1);
  }
  state.counters["items"] = d.views.Day().DayItemCount;
}
BENCHMARK(BM_ShowDayList)->Arg(1000)->Arg(10000)->Arg(100000)->Unit(benchmark::kMicrosecond);

}  // namespace
}  // namespace sched
