// Confirming the edit dialog of a weekly series of 52 occurrences in a document of 100k rows:
// the old series found and removed, the new one written. The user waits for this on OK, so it
// must follow the series' own rows, not the size of the document. Likewise the delete commands:
// the removal of that series, and "Delete this Year" and "Delete Older than" in a document of
// 100k rows, which must cost the rows of their range, and the Undo of "Delete Older than".

#include <benchmark/benchmark.h>

#include <memory>

#include "appointments/delete_commands.h"
#include "appointments/occurrences.h"
#include "bench/schedule_maker.h"
#include "platform/fake/fake_clock.h"
#include "platform/fake/fake_date_formatter.h"
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

// A document with its store over fakes, and the state it was first made in, to start again
// from.
class BenchDocument {
 public:
  int Rows() const { return doc_.Tables.RowCount; }
  int FirstRows() const { return first_->Tables.RowCount; }

 protected:
  // The indexes are in step with the tables, as after any earlier command.
  void KeepFirstState() {
    StampRows(doc_.Tables, 0);
    SeriesRows(doc_.Tables, {});
    first_ = std::make_unique<ScheduleDocument>(doc_);
  }
  void RestoreFirstState() { doc_ = *first_; }

  ScheduleDocument doc_;
  NoAlarmHooks alarms_;
  FakeProgress progress_;
  FakeClock clock_;
  ScheduleStore store_{doc_, StoreServices{alarms_, progress_, clock_}};
  FakeMessages messages_;
  FakeDateFormatter dates_;
  std::unique_ptr<ScheduleDocument> first_;
};

// A document of real use holding the weekly series, and the edit dialog's working values.
class SeriesDocument : public BenchDocument {
 public:
  SeriesDocument() {
    for (const SchRecord& r : ScheduleMaker(11).Make(kRows)) store_.InsertRecord(r);
    clock_.SetSecondsPerReading(2);  // each new series gets a stamp of its own
    SetWeeklyRule();
    maker_.Expand(WeeklyMeeting(), std::nullopt);
    series_ = maker_.Record();
    KeepFirstState();
  }

  void StartAgain() { RestoreFirstState(); }

  // OK on the opened series: its lowest SubNo noted, the series removed and written anew.
  bool ConfirmSeries() {
    const SchDatCTL& t = doc_.Tables;
    const std::int32_t lowest = GetSeriesLowestSubNo(t, series_.ParentSubNo, series_.ParentStamp);
    store_.DeleteItem(series_);
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

  // Delete on a line of the series, answered Yes: every occurrence goes.
  bool DeleteSeries() {
    DeleteCommands commands(store_, messages_, dates_);
    return commands.DeleteSelection({*SeriesRows(doc_.Tables, Key()).begin()});
  }
  // The series' rows live again, as before the delete.
  void UndeleteSeries() {
    for (int row : SeriesRows(doc_.Tables, Key())) doc_.Tables.SchDatList.Edit(row).Deleted = kLive;
    doc_.Tables.RowCount += kWeeks;
  }

 private:
  SeriesKey Key() const { return {series_.ParentSubNo, series_.ParentStamp}; }

  void SetWeeklyRule() {
    work_.RepeatCode = kCodeWeekly;
    work_.RepeatStep = 0;
    work_.RepeatCount = kWeeks;
    work_.WorkRepeatKind = static_cast<std::uint16_t>(series_.RepeatKind);
  }

  RepeatWork work_;
  OccurrenceMaker maker_{store_, messages_, work_};
  SchRecord series_;
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

void BM_DeleteWeeklySeries(benchmark::State& state) {
  SeriesDocument& document = Document();
  document.StartAgain();
  for (auto _ : state) {
    if (!document.DeleteSeries()) state.SkipWithError("the series was not removed");
    state.PauseTiming();
    document.UndeleteSeries();
    state.ResumeTiming();
  }
  state.SetItemsProcessed(state.iterations() * kWeeks);
}

// One year holds about 10k of the 100k rows; "Older than" takes about half of the document.
constexpr int kDenseYear = 2024;
constexpr int kDenseYearExtraRows = 6000;
constexpr CivilDate kMiddleDate{2020, 1, 1};

// The document of the bulk commands, made again from its first state before each command.
class BulkDocument : public BenchDocument {
 public:
  BulkDocument() {
    ScheduleMaker maker(23);
    for (const SchRecord& r : maker.Make(kRows - kDenseYearExtraRows)) store_.InsertRecord(r);
    maker.SetYears(kDenseYear, kDenseYear);
    for (const SchRecord& r : maker.Make(kDenseYearExtraRows)) store_.InsertRecord(r);
    KeepFirstState();
  }

  // The first state, and the answers of a user who deletes the repeating items too.
  void StartAgain() {
    RestoreFirstState();
    messages_ = FakeMessages();
    messages_.QueueAnswer(MsgAnswer::Yes);
    messages_.QueueAnswer(MsgAnswer::No);
  }

  bool DeleteYear() { return commands_.DelYear_Click(kDenseYear); }
  bool DeleteOlder() { return commands_.DelBefore_Click(kMiddleDate); }

  // The same command in the window, which keeps it as a step to undo.
  bool DeleteOlderAsStep() {
    const bool removed = DeleteOlder();
    store_.History().Seal("Delete Older");
    return removed;
  }
  void StartAgainRecording() {
    StartAgain();
    store_.History().Record(true);
  }
  std::size_t StepBytes() const { return store_.History().LastStepBytes(); }
  void Undo() { store_.Undo(); }

 private:
  DeleteCommands commands_{store_, messages_, dates_};
};

BulkDocument& BulkDocumentOf() {
  static BulkDocument document;
  return document;
}

template <bool (BulkDocument::*Delete)()>
void BulkDeletes(benchmark::State& state) {
  BulkDocument& document = BulkDocumentOf();
  for (auto _ : state) {
    state.PauseTiming();
    document.StartAgain();
    state.ResumeTiming();
    if (!(document.*Delete)()) state.SkipWithError("nothing was removed");
  }
  state.counters["rows"] = document.FirstRows();
  state.counters["removed"] = document.FirstRows() - document.Rows();
}

void BM_DeleteYear(benchmark::State& state) {
  BulkDeletes<&BulkDocument::DeleteYear>(state);
}

void BM_DeleteOlderThanMiddle(benchmark::State& state) {
  BulkDeletes<&BulkDocument::DeleteOlder>(state);
}

// "Delete Older than" the middle date with the window's undo history recording it, then its
// Undo; the step's memory is reported as "step_MB".
void BM_DeleteOlderAsStep(benchmark::State& state) {
  BulkDocument& document = BulkDocumentOf();
  for (auto _ : state) {
    state.PauseTiming();
    document.StartAgainRecording();
    state.ResumeTiming();
    if (!document.DeleteOlderAsStep()) state.SkipWithError("nothing was removed");
  }
  state.counters["step_MB"] = static_cast<double>(document.StepBytes()) / (1024.0 * 1024.0);
}

void BM_UndoDeleteOlder(benchmark::State& state) {
  BulkDocument& document = BulkDocumentOf();
  for (auto _ : state) {
    state.PauseTiming();
    document.StartAgainRecording();
    document.DeleteOlderAsStep();
    state.ResumeTiming();
    document.Undo();
  }
  state.counters["rows"] = document.Rows();
  state.counters["step_MB"] = static_cast<double>(document.StepBytes()) / (1024.0 * 1024.0);
}

BENCHMARK(BM_ConfirmWeeklySeries)->Unit(benchmark::kMicrosecond);
BENCHMARK(BM_ConfirmNewWeeklySeries)->Unit(benchmark::kMicrosecond);
BENCHMARK(BM_DeleteWeeklySeries)->Unit(benchmark::kMicrosecond);
BENCHMARK(BM_DeleteYear)->Unit(benchmark::kMillisecond);
BENCHMARK(BM_DeleteOlderThanMiddle)->Unit(benchmark::kMillisecond);
BENCHMARK(BM_DeleteOlderAsStep)->Unit(benchmark::kMillisecond);
BENCHMARK(BM_UndoDeleteOlder)->Unit(benchmark::kMillisecond);

}  // namespace
}  // namespace sched
