// Today's alarms in a document of years of real use (100k rows, an alarm on some items, 40 of
// them today). What the user pays: opening the file with the alarm list made on the way, the
// rebuild of the list when the day changes, and a ringing minute.

#include <benchmark/benchmark.h>

#include <functional>
#include <iostream>

#include "alarms/alarm_engine.h"
#include "bench/schedule_maker.h"
#include "platform/fake/fake_alarm_check_mark.h"
#include "platform/fake/fake_beep.h"
#include "platform/fake/fake_clock.h"
#include "platform/fake/fake_clock_alarm.h"
#include "platform/fake/fake_desktop_notices.h"
#include "platform/fake/fake_progress.h"
#include "store/schedule_store.h"

namespace sched {
namespace {

constexpr int kRows = 100000;
constexpr int kTodaysAlarms = 40;

class NoWindows final : public NoticeHost {
 public:
  int opened = 0;
  void OpenNoticeWindow(const PendingNotice&) override { ++opened; }
  void CloseNoticeWindow(int) override {}
  void SetAnswerEvent(std::function<void(int, int)>) override {}
};

// The program's store and alarm engine over fakes, at 6:00 of 2026-11-23.
struct AlarmedDocument {
  ScheduleDocument doc;
  FakeProgress progress;
  FakeClock clock{{2026, 11, 23, 6, 0, 0}};
  FakeClockAlarm clockAlarm;
  FakeBeep beep;
  FakeDesktopNotices desktop;
  NoWindows windows;
  FakeAlarmCheckMark mark;
  AlarmEngine engine{
      AlarmServices{doc.Tables, clock, clockAlarm, beep, desktop, windows, mark, std::cerr}};
  ScheduleStore store{doc, StoreServices{engine, progress, clock}};

  AlarmedDocument() {
    store.ClearIndex();
    store.ResetHeader();
    std::vector<SchRecord> records = ScheduleMaker(11).Make(kRows);
    for (int i = 0; i < kTodaysAlarms; ++i) {
      SchRecord& r = records[static_cast<std::size_t>(i) * 97];
      SetStartDate(r, {2026, 11, 23});
      SetEndDate(r, {2026, 11, 23});
      r.StartTime = static_cast<std::int16_t>(420 + i * 15);
      r.EndTime = static_cast<std::int16_t>(r.StartTime + 30);
      r.RepeatKind = 0;
      r.AlarmOn = 1;
      r.AlarmSound = kDefaultAlarmSound;
      r.AlarmLead = 10;
    }
    for (const SchRecord& r : records) store.InsertRecord(r);
    bytes = store.BuildScheduleBytes();
  }

  std::vector<std::uint8_t> bytes;
};

AlarmedDocument& Document() {
  static AlarmedDocument document;
  return document;
}

// Opening the file: every row read, today's alarms listed, put in order and the first armed.
void BM_LoadWithTodaysAlarms(benchmark::State& state) {
  AlarmedDocument& d = Document();
  for (auto _ : state) {
    if (!d.store.LoadSchedule(d.bytes)) state.SkipWithError("the schedule did not load");
    d.engine.SortTodayAlarms();
    d.engine.ArmNextAlarm();
  }
  if (d.engine.TodayAlarmCount() < kTodaysAlarms) state.SkipWithError("not all alarms listed");
  state.counters["rows"] = d.doc.Tables.RowCount;
  state.counters["alarms"] = d.engine.TodayAlarmCount();
}

// The day watch at midnight: the list made anew from all rows.
void BM_RebuildTodayAlarms(benchmark::State& state) {
  AlarmedDocument& d = Document();
  for (auto _ : state) {
    d.engine.RebuildTodayAlarms();
    benchmark::DoNotOptimize(d.engine.TodayAlarmCount());
  }
  if (d.engine.TodayAlarmCount() < kTodaysAlarms) state.SkipWithError("not all alarms listed");
}

// The clock alarm's event in a minute with an alarm: the ring and the next alarm armed. The
// clock goes on through the day's alarms, one each time, as a minute once looked at is not
// looked at again.
void BM_AlarmEvent(benchmark::State& state) {
  AlarmedDocument& d = Document();
  d.clock.Set({2026, 11, 23, 6, 0, 0});
  d.engine.WatchDayChange();
  std::size_t next = 0;
  for (auto _ : state) {
    state.PauseTiming();
    const int minute = d.engine.TodayAlarms().at(next++).AlarmMinute;
    d.clock.Set({2026, 11, 23, (minute - 1) / 60, (minute - 1) % 60, 59});
    d.engine.WatchDayChange();  // the day watch has looked a moment before
    d.clock.Set({2026, 11, 23, minute / 60, minute % 60, 0});
    state.ResumeTiming();
    d.clockAlarm.Ring();
  }
  if (d.windows.opened == 0) state.SkipWithError("nothing rang");
}

// A wake after an hour's sleep: every row looked through for the alarms that went by.
void BM_WakeAfterSleep(benchmark::State& state) {
  AlarmedDocument& d = Document();
  d.clock.Set({2026, 11, 23, 6, 0, 0});
  d.engine.WatchDayChange();
  for (auto _ : state) {
    d.clock.MoveOn(60 * 60);
    d.engine.WatchDayChange();
  }
  if (d.windows.opened == 0) state.SkipWithError("nothing shown");
}

BENCHMARK(BM_LoadWithTodaysAlarms)->Unit(benchmark::kMillisecond);
BENCHMARK(BM_RebuildTodayAlarms)->Unit(benchmark::kMillisecond);
BENCHMARK(BM_WakeAfterSleep)->Unit(benchmark::kMillisecond)->Iterations(48);
BENCHMARK(BM_AlarmEvent)->Unit(benchmark::kMicrosecond)->Iterations(kTodaysAlarms);

}  // namespace
}  // namespace sched
