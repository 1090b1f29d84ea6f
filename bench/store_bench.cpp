// Loading, saving and inserting schedules of 1k, 10k and 100k rows.

#include <benchmark/benchmark.h>

#include <array>
#include <cstdint>
#include <filesystem>
#include <map>
#include <memory>
#include <random>
#include <string>
#include <vector>

#include "core/calendar.h"
#include "tests/support/test_store.h"

namespace sched {
namespace {

// Records of a made-up but plausible schedule: timed and all-day items, items over two to six
// days (some across the end of a month or a year), weekly series of 10 to 50 occurrences;
// some private, some with an alarm, a place or a memo. Gives at least `rows` records, one a row.
class ScheduleMaker {
 public:
  explicit ScheduleMaker(std::uint32_t seed) : random_(seed) {}

  std::vector<SchRecord> Make(int rows) {
    std::vector<SchRecord> records;
    records.reserve(static_cast<std::size_t>(rows) + 64);
    while (static_cast<int>(records.size()) < rows) {
      const int kind = Pick(0, 99);
      if (kind < 40) {
        records.push_back(Timed(RandomDate()));
      } else if (kind < 55) {
        SchRecord r = Timed(RandomDate());
        r.StartTime = r.EndTime = -1;
        records.push_back(r);
      } else if (kind < 65) {
        AddMultiDay(records);
      } else {
        AddWeekly(records);
      }
    }
    return records;
  }

 private:
  int Pick(int low, int high) { return std::uniform_int_distribution<int>(low, high)(random_); }

  CivilDate RandomDate() {
    const int year = Pick(2015, 2034);
    const int month = Pick(1, 12);
    return {year, month, Pick(1, DaysInMonth(year, month))};
  }

  static void SetDate(SchRecord& r, const CivilDate& d) {
    r.Day = static_cast<std::uint8_t>(d.day);
    r.Month = static_cast<std::uint8_t>(d.month);
    r.Year = static_cast<std::uint16_t>(d.year);
  }
  static void SetEnd(SchRecord& r, const CivilDate& d) {
    r.EndDay = static_cast<std::uint8_t>(d.day);
    r.EndMonth = static_cast<std::uint8_t>(d.month);
    r.EndYear = static_cast<std::uint16_t>(d.year);
  }

  SchRecord Timed(const CivilDate& date) {
    static const std::array<const char*, 8> kTitles = {
        "Team meeting", "Dentist", "Call Anna", "Lunch with Bob",
        "Gym",          "Review",  "Flight",    "Parents' evening"};
    SchRecord r;
    SetDate(r, date);
    SetEnd(r, date);
    const int start = Pick(6 * 60, 21 * 60);
    r.StartTime = static_cast<std::int16_t>(start);
    r.EndTime = static_cast<std::int16_t>(start + 15 * Pick(1, 8));
    r.Title = std::string(kTitles[static_cast<std::size_t>(Pick(0, 7))]) + " " +
              std::to_string(Pick(1, 999));
    if (Pick(0, 3) == 0) r.Place = "Room " + std::to_string(Pick(100, 499));
    if (Pick(0, 4) == 0) r.Memo = "Bring the notes.\r\nAsk about the budget.";
    r.Private = static_cast<std::int16_t>(Pick(0, 9) == 0 ? 1 : 0);
    if (Pick(0, 4) == 0) {
      r.AlarmOn = 1;
      r.AlarmSound = kDefaultAlarmSound;
      r.AlarmLead = static_cast<std::int16_t>(5 * Pick(0, 12));
    }
    r.Stamp = NextStamp();
    return r;
  }

  // Rows of one series: SubNo 1 to n, one identity, the last date in every row.
  void AddSeries(std::vector<SchRecord>& records, const std::vector<CivilDate>& dates, SchRecord r,
                 std::int16_t kind) {
    r.Stamp = r.ParentStamp = NextStamp();
    r.ParentSubNo = 1;
    r.RepeatKind = kind;
    SetEnd(r, dates.back());
    for (std::size_t i = 0; i < dates.size(); ++i) {
      SetDate(r, dates[i]);
      r.SubNo = static_cast<std::int16_t>(i + 1);
      records.push_back(r);
    }
  }

  void AddMultiDay(std::vector<SchRecord>& records) {
    CivilDate first = RandomDate();
    // Every third one starts near the end of its month, so that it runs into the next.
    if (Pick(0, 2) == 0) first.day = DaysInMonth(first.year, first.month) - Pick(0, 2);
    if (Pick(0, 9) == 0) first = {first.year, 12, 29};
    const int days = Pick(2, 6);
    std::vector<CivilDate> dates;
    for (int i = 0; i < days; ++i) dates.push_back(AddDays(first, i));
    SchRecord r = Timed(first);
    r.StartTime = r.EndTime = -1;
    AddSeries(records, dates, r, kMultiDayKind);
  }

  void AddWeekly(std::vector<SchRecord>& records) {
    const CivilDate first = RandomDate();
    const int count = Pick(10, 50);
    std::vector<CivilDate> dates;
    for (int i = 0; i < count; ++i) dates.push_back(AddDays(first, 7 * i));
    const auto kind = static_cast<std::int16_t>(0x1000 | WeekdayOf(first) * 4);
    AddSeries(records, dates, Timed(first), kind);
  }

  std::int32_t NextStamp() { return static_cast<std::int32_t>(0xC0000000u | ++stamps_); }

  std::mt19937 random_;
  std::uint32_t stamps_ = 0;
};

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
