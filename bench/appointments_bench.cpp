// Confirming the edit dialog of a weekly series of 52 occurrences in a document of 100k rows:
// the old series found and removed, the new one written. The user waits for this on OK, so it
// must follow the series' own rows, not the size of the document.

#include <benchmark/benchmark.h>

#include <memory>

#include "appointments/occurrences.h"
#include "bench/schedule_maker.h"
#include "platform/fake/fake_clock.h"
#include "platform/fake/fake_messages.h"
#include "platform/fake/fake_progress.h"

namespace sched {
namespace {

constexpr int kRows = 100000;
constexpr int kWeeks = 52;
// Each confirmation leaves 52 deleted rows in the series' day chains; the document starts
// again from its first state this often, so that the chains stay those of real use.
constexpr int kConfirmationsPerDocument = 200;

AppointmentInput WeeklyMeeting() {
  AppointmentInput input;
  input.start = input.end = {2020, 3, 4};
  input.startMinutes = 600;
  input.endMinutes = 660;
  input.title = "Review with the team: release plan";
  input.place = "Conference room “Harbour”";
  input.memo = "Agenda: 1. minutes 2. figures 3. any other business\r\nBring the printed notes.";
  return input;
}

// A document of real use holding the weekly series, and the edit dialog's working values.
class SeriesDocument {
 public:
  SeriesDocument() {
    for (const SchRecord& r : ScheduleMaker(11).Make(kRows)) store_.InsertRecord(r);
    clock_.SetSecondsPerReading(2);  // each new series gets a stamp of its own
    SetWeeklyRule();
    maker_.Expand(WeeklyMeeting(), std::nullopt);
    series_ = maker_.Record();
    // The indexes are in step with the tables, as after any earlier command.
    GetSeriesRange(doc_.Tables, series_.ParentSubNo, series_.ParentStamp);
    StampRows(doc_.Tables, series_.Stamp);
    first_ = std::make_unique<ScheduleDocument>(doc_);
  }

  void StartAgain() { doc_ = *first_; }

  // OK on the opened series: its lowest SubNo noted, the series removed and written anew.
  bool ConfirmSeries() {
    const SchDatCTL& t = doc_.Tables;
    const std::int32_t lowest = GetSeriesLowestSubNo(t, series_.ParentSubNo, series_.ParentStamp);
    RemoveSeries(store_, series_);
    SetWeeklyRule();
    const ReplacedItem replaced{static_cast<std::int16_t>(lowest), series_.Stamp,
                                series_.ParentSubNo};
    return maker_.Expand(WeeklyMeeting(), replaced);
  }

  // OK on a new weekly series.
  bool ConfirmNewSeries() {
    SetWeeklyRule();
    return maker_.Expand(WeeklyMeeting(), std::nullopt);
  }

  int Rows() const { return doc_.Tables.RowCount; }

 private:
  void SetWeeklyRule() {
    work_.RepeatCode = kCodeWeekly;
    work_.RepeatStep = 0;
    work_.RepeatCount = kWeeks;
    work_.WorkRepeatKind = static_cast<std::uint16_t>(series_.RepeatKind);
  }

  ScheduleDocument doc_;
  NoAlarmHooks alarms_;
  FakeProgress progress_;
  FakeClock clock_;
  ScheduleStore store_{doc_, StoreServices{alarms_, progress_, clock_}};
  FakeMessages messages_;
  RepeatWork work_;
  OccurrenceMaker maker_{store_, messages_, work_};
  SchRecord series_;
  std::unique_ptr<ScheduleDocument> first_;
};

SeriesDocument& Document() {
  static SeriesDocument document;
  return document;
}

template <bool (SeriesDocument::*Confirm)()>
void Confirmations(benchmark::State& state) {
  SeriesDocument& document = Document();
  document.StartAgain();
  int confirmations = 0;
  for (auto _ : state) {
    if (++confirmations % kConfirmationsPerDocument == 0) {
      state.PauseTiming();
      document.StartAgain();
      state.ResumeTiming();
    }
    if (!(document.*Confirm)()) state.SkipWithError("the series was not written");
  }
  state.counters["rows"] = document.Rows();
  state.SetItemsProcessed(state.iterations() * kWeeks);
}

void BM_ConfirmWeeklySeries(benchmark::State& state) {
  Confirmations<&SeriesDocument::ConfirmSeries>(state);
}

void BM_ConfirmNewWeeklySeries(benchmark::State& state) {
  Confirmations<&SeriesDocument::ConfirmNewSeries>(state);
}

BENCHMARK(BM_ConfirmWeeklySeries)->Unit(benchmark::kMicrosecond);
BENCHMARK(BM_ConfirmNewWeeklySeries)->Unit(benchmark::kMicrosecond);

}  // namespace
}  // namespace sched
