// Find in the realistic schedule of make_schedule (208k rows, opened from its file). What the
// user pays: the folded copy of the texts, made once when a search first runs after a load; the
// search after each keystroke of a word; and keeping the copy in step after an edit. The
// copy's size is reported as the counter "copy_MB".

#include <benchmark/benchmark.h>

#include <memory>
#include <string>

#include "bench/schedule_maker.h"
#include "find/find_model.h"
#include "platform/fake/fake_clock.h"
#include "platform/fake/fake_progress.h"
#include "store/alarm_hooks.h"
#include "store/schedule_store.h"

namespace sched {
namespace {

constexpr int kRows = 208000;

struct OpenSchedule {
  ScheduleDocument doc;
  NoAlarmHooks alarms;
  FakeProgress progress;
  FakeClock clock;
  ScheduleStore store{doc, StoreServices{alarms, progress, clock}};

  OpenSchedule() {
    store.ClearIndex();
    store.ResetHeader();
    for (const SchRecord& r : ScheduleMaker(20240601).Make(kRows)) store.InsertRecord(r);
    const std::vector<std::uint8_t> bytes = store.BuildScheduleBytes();
    (void)store.LoadSchedule(bytes);
  }
};

OpenSchedule& Schedule() {
  static OpenSchedule schedule;
  return schedule;
}

void ReportCopy(benchmark::State& state, const FindModel& model) {
  state.counters["copy_MB"] = static_cast<double>(model.CopyBytes()) / (1024.0 * 1024.0);
  state.counters["results"] = static_cast<double>(model.Results().size());
}

// The first search after a load: the copy is made, then searched.
void BM_FirstSearchAfterLoad(benchmark::State& state) {
  OpenSchedule& s = Schedule();
  std::unique_ptr<FindModel> model;
  for (auto _ : state) {
    model = std::make_unique<FindModel>(s.doc.Tables);
    model->Search({"m"});
  }
  ReportCopy(state, *model);
}
BENCHMARK(BM_FirstSearchAfterLoad)->Unit(benchmark::kMillisecond);

// One keystroke: the search for what is typed so far, from one letter (which most texts
// hold) to words that few hold; two words; a word whose accent is not typed.
const char* const kTyped[] = {"m", "mu", "mul", "mull", "muller", "zoe budget", "cafe", "zentral"};

void BM_Keystroke(benchmark::State& state) {
  OpenSchedule& s = Schedule();
  FindModel model(s.doc.Tables);
  const FindQuery query{kTyped[state.range(0)]};
  model.Search(query);
  for (auto _ : state) benchmark::DoNotOptimize(model.Search(query).data());
  state.SetLabel(query.text);
  ReportCopy(state, model);
}
BENCHMARK(BM_Keystroke)->DenseRange(0, std::size(kTyped) - 1)->Unit(benchmark::kMillisecond);

// After an edit: a new item of a few rows and the old one deleted, as a change of an item does;
// then the copy follows and the last search runs again.
void BM_RefreshAfterEdit(benchmark::State& state) {
  OpenSchedule& s = Schedule();
  FindModel model(s.doc.Tables);
  model.Search({"zentral"});
  SchRecord item = ScheduleMaker(5).Make(1).front();
  item.Title = "Edited in the benchmark: Café Zentral";
  for (auto _ : state) {
    state.PauseTiming();
    s.store.InsertRecord(item);
    s.store.DeleteItem(item);
    state.ResumeTiming();
    benchmark::DoNotOptimize(model.Refresh().data());
  }
  ReportCopy(state, model);
}
BENCHMARK(BM_RefreshAfterEdit)->Unit(benchmark::kMillisecond);

// The part of that which keeps the copy in step: a search of no words syncs and stops.
void BM_SyncAfterEdit(benchmark::State& state) {
  OpenSchedule& s = Schedule();
  FindModel model(s.doc.Tables);
  model.Search({"zentral"});
  SchRecord item = ScheduleMaker(6).Make(1).front();
  for (auto _ : state) {
    state.PauseTiming();
    s.store.InsertRecord(item);
    s.store.DeleteItem(item);
    state.ResumeTiming();
    benchmark::DoNotOptimize(model.Search({""}).data());
  }
  ReportCopy(state, model);
}
BENCHMARK(BM_SyncAfterEdit)->Unit(benchmark::kMicrosecond);

}  // namespace
}  // namespace sched
