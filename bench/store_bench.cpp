// Loading, saving and inserting schedules of 1k, 10k and 100k rows with the texts of real use.

#include <benchmark/benchmark.h>

#include <array>
#include <cstdint>
#include <filesystem>
#include <map>
#include <memory>
#include <random>
#include <string>
#include <vector>

#include "bench/schedule_maker.h"
#include "tests/support/test_store.h"

namespace sched {
namespace {

void InsertAll(ScheduleStore& store, const std::vector<SchRecord>& records) {
  for (const SchRecord& r : records) store.InsertRecord(r);
}

// One saved file for each size, made once.
class SavedSchedules {
 public:
  const std::string& FileOf(int rows) {
    auto it = files_.find(rows);
    if (it != files_.end()) return it->second;
    TestStore s;
    InsertAll(s.store, ScheduleMaker(static_cast<std::uint32_t>(rows)).Make(rows));
    s.SaveTo("keep.scl");
    const std::string path = dir_.File(std::to_string(rows) + ".scl");
    WriteBytes(path, ReadBytes(s.doc.ScheduleFile));
    return files_.emplace(rows, path).first->second;
  }

 private:
  TempDir dir_;
  std::map<int, std::string> files_;
};

SavedSchedules& Saved() {
  static SavedSchedules saved;
  return saved;
}

void BM_LoadScheduleFile(benchmark::State& state) {
  const auto rows = static_cast<int>(state.range(0));
  const std::string& file = Saved().FileOf(rows);
  TestStore s;
  bool loaded = true;
  for (auto _ : state) {
    loaded = s.LoadFrom(file) && loaded;
    benchmark::DoNotOptimize(s.doc.Tables.RowCount);
  }
  if (!loaded || s.doc.Tables.RowCount < rows) {
    state.SkipWithError("the schedule did not load");
  }
  state.counters["rows"] = s.doc.Tables.RowCount;
  state.counters["file_kb"] = static_cast<double>(std::filesystem::file_size(file)) / 1024.0;
  state.SetItemsProcessed(state.iterations() * rows);
}

void BM_SaveScheduleFile(benchmark::State& state) {
  const auto rows = static_cast<int>(state.range(0));
  TestStore s;
  s.LoadFrom(Saved().FileOf(rows));
  s.doc.ScheduleFile = s.dir.File("out.scl");
  for (auto _ : state) {
    if (!s.store.SaveScheduleFile(s.doc.ScheduleFile)) state.SkipWithError("the save failed");
  }
  state.SetItemsProcessed(state.iterations() * rows);
}

void BM_InsertRecord(benchmark::State& state) {
  const auto rows = static_cast<int>(state.range(0));
  const std::vector<SchRecord> records = ScheduleMaker(7).Make(rows);
  auto s = std::make_unique<TestStore>();
  for (auto _ : state) {
    state.PauseTiming();
    s->store.ClearIndex();
    s->store.ResetHeader();
    state.ResumeTiming();
    InsertAll(s->store, records);
    benchmark::DoNotOptimize(s->doc.Tables.RowCount);
  }
  state.SetItemsProcessed(state.iterations() * static_cast<std::int64_t>(records.size()));
}

BENCHMARK(BM_LoadScheduleFile)->Arg(1000)->Arg(10000)->Arg(100000)->Unit(benchmark::kMillisecond);
BENCHMARK(BM_SaveScheduleFile)->Arg(1000)->Arg(10000)->Arg(100000)->Unit(benchmark::kMillisecond);
BENCHMARK(BM_InsertRecord)->Arg(100000)->Unit(benchmark::kMillisecond);

}  // namespace
}  // namespace sched
