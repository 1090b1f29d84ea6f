#include "appointments/copy_paste.h"

#include "appointments/series_writer.h"
#include "appointments/texts.h"
#include "core/app_texts.h"

namespace sched {

namespace t = appointment_texts;

bool CopyPaste::CopySchedule(bool multiple, int row) {
  if (multiple) {
    ShowWarning(messages_, t::kCannotCopyMultiple);
    return false;
  }
  ScheduleDocument& doc = store_.Document();
  if (row < 0 || row >= doc.Tables.SchDatList.Rows()) {
    ShowWarning(messages_, t::kCannotCopyNoSchedule);
    return false;
  }
  doc.CopiedRow = row;
  const SchRecord copied = LoadCopiedRecord(row);
  if (copied.RepeatKind != 0) {
    // The bounds are taken now: a paste still knows them when the series has gone meanwhile.
    const SeriesRange range = GetSeriesRange(doc.Tables, copied.ParentSubNo, copied.ParentStamp);
    doc.CopiedFirstDate = DateOfCode(range.firstCode);
    doc.CopiedLastDate = DateOfCode(range.lastCode);
  }
  return true;
}

bool CopyPaste::PasteSchedule() {
  const int row = store_.Document().CopiedRow;
  if (row < 0 || row >= store_.Document().Tables.SchDatList.Rows()) return false;
  const DecodedRepeatKind kind =
      DecodeRepeatKind(static_cast<std::uint16_t>(LoadCopiedRecord(row).RepeatKind));
  if (kind.code == kCodeOverDays) {
    PasteOverDays(row);
  } else if (kind.code != kCodeNone &&
             messages_.Show({t::kKeepRegular, kAppTitle, MsgIcon::Exclamation,
                             MsgButtons::YesNo}) == MsgAnswer::Yes) {
    PasteRepeat(row, kind);
  } else {
    PasteSingle(row);
  }
  return true;
}

SchRecord CopyPaste::LoadCopiedRecord(int row) const {
  return RowToRecord(store_.Document().Tables.SchDatList, row);
}

SchRecord CopyPaste::LoadCopiedAsSingle(int row) const {
  SchRecord record = LoadCopiedRecord(row);
  record.RepeatKind = 0;
  return record;
}

CivilDate CopyPaste::ShownDate() const {
  const ScheduleDocument& doc = store_.Document();
  return {doc.CurYear, doc.CurMonth, doc.CurDay};
}

void CopyPaste::PasteSingle(int row) {
  SeriesIdentity identity = NewSingleIdentity(store_);
  const CivilDate shown = ShownDate();
  WriteSeries(store_, LoadCopiedAsSingle(row), EveryDayFrom(shown), 0, shown, identity);
}

void CopyPaste::PasteOverDays(int row) {
  const ScheduleDocument& doc = store_.Document();
  SchRecord record = LoadCopiedRecord(row);
  record.StartTime = -1;
  const int days = DaySerial(doc.CopiedLastDate) - DaySerial(doc.CopiedFirstDate) + 1;
  SeriesIdentity identity = NewSeriesIdentity(store_);
  const SeriesDates dates = EveryDayFrom(ShownDate());
  const int last = dates.LastFitting(days - 1);
  WriteSeries(store_, record, dates, last, dates.Plain(last), identity);
  if (last < days - 1) ShowWarning(messages_, t::kPasteDaysBeyond2099);
}

void CopyPaste::PasteRepeat(int row, const DecodedRepeatKind& kind) {
  const ScheduleDocument& doc = store_.Document();
  SchRecord record = LoadCopiedRecord(row);
  const int option = kind.option.value_or(kOptionDaily);
  const int step = kind.intervalField.value_or(0);
  const int units = UnitsBetween(doc.CopiedFirstDate, doc.CopiedLastDate, UnitOfOption(option));
  SeriesIdentity identity = NewSeriesIdentity(store_);
  RuleOnDate rule = RuleFromDate(option, step, ShownDate());
  // A daily word holds nothing of a date: the copy keeps it as it was.
  if (option == kOptionDaily) rule.word = static_cast<std::uint16_t>(record.RepeatKind);
  const int last = CutAtEndLimit(rule.dates, units / (step + 1) + 1, t::kPasteSeriesBeyond2099,
                                 rule.word, messages_);
  record.RepeatKind = static_cast<std::int16_t>(rule.word);
  WriteSeries(store_, record, rule.dates, last, rule.dates.Plain(last), identity);
}

}  // namespace sched
