#include "store/chains.h"
#include "store/schedule_store.h"
#include "store/stamp.h"

namespace sched {

SchDatRow RecordNumbers(const SchRecord& record) {
  SchDatRow row;
  row.Day = record.Day;
  row.Month = record.Month;
  row.Year = record.Year;
  row.EndDay = record.EndDay;
  row.EndMonth = record.EndMonth;
  row.EndYear = record.EndYear;
  row.StartTime = record.StartTime;
  row.EndTime = record.EndTime;
  row.SubNo = record.SubNo;
  row.Stamp = record.Stamp;
  row.ParentSubNo = record.ParentSubNo;
  row.ParentStamp = record.ParentStamp;
  row.RepeatKind = record.RepeatKind;
  row.Private = record.Private != 0 ? 1 : 0;
  row.VarLen = record.VarLen;
  row.AlarmOn = record.AlarmOn;
  row.AlarmLead = record.AlarmLead;
  return row;
}

SchDatRow BuildRecordLine(SchDatTable& list, const SchRecord& record) {
  SchDatRow row = RecordNumbers(record);
  const std::string title = TabToBlank(record.Title);
  const std::string place = TabToBlank(record.Place);
  const std::string memo = TabToBlank(record.Memo);
  list.SetTexts(row, {title, place, memo, record.AlarmSound});
  return row;
}

SchRecord RowToRecord(const SchDatTable& list, int row) {
  SchRecord rec;
  const SchDatRow& r = list.At(row);
  CopyRowNumbers(r, rec);
  const RowTexts texts = list.Texts(r);
  rec.Title = texts.Title;
  rec.Place = texts.Place;
  rec.Memo = texts.Memo;
  rec.AlarmSound = texts.AlarmSound;
  return rec;
}

void CopyRowNumbers(const SchDatRow& r, SchRecord& rec) {
  rec.Day = r.Day;
  rec.Month = r.Month;
  rec.Year = r.Year;
  rec.EndDay = r.EndDay;
  rec.EndMonth = r.EndMonth;
  rec.EndYear = r.EndYear;
  rec.StartTime = r.StartTime;
  rec.EndTime = r.EndTime;
  rec.SubNo = static_cast<std::int16_t>(r.SubNo);
  rec.Stamp = r.Stamp;
  rec.ParentSubNo = static_cast<std::int16_t>(r.ParentSubNo);
  rec.ParentStamp = r.ParentStamp;
  rec.RepeatKind = r.RepeatKind;
  rec.Private = static_cast<std::int16_t>(r.Private != 0 ? 1 : 0);
  rec.VarLen = r.VarLen;
  rec.AlarmOn = r.AlarmOn;
  rec.AlarmLead = r.AlarmLead;
}

void ScheduleStore::InsertRecord(const SchRecord& record) {
  InsertLine(BuildRecordLine(doc_.Tables.SchDatList, record));
}

void ScheduleStore::InsertLine(SchDatRow line) {
  const int yearRow = FindOrAddYear(line.Year);
  const int monthRow = FindOrAddMonth(line.Month, yearRow);
  const int head = GetDayHead(doc_.Tables, monthRow, line.Day);
  InsertRow(head, monthRow, line.Day, std::move(line));
}

int ScheduleStore::FindOrAddYear(int year) {
  SchDatCTL& t = doc_.Tables;
  AncYYRow row;
  row.Year = year;
  if (const int found = t.YearCount == 0 ? -1 : FindYearRow(t, year); found >= 0) {
    const AncYYRow& existing = t.AncYY.At(found);
    doc_.ShownYearMasks.HolidayOn = existing.HolidayOn;
    doc_.ShownYearMasks.HolidayOff = existing.HolidayOff;
    return found;
  }
  // A new year has no holiday marks yet.
  doc_.ShownYearMasks = YearMasks{};
  if (t.YearCount == 0) {
    t.YearCount = 1;
    t.AncYY.PutFirst(row);
    return 0;
  }
  ++t.YearCount;
  t.AncYY.Edit(t.YearCount - 2).NextYear = t.YearCount - 1;
  return t.AncYY.Append(row);
}

int ScheduleStore::FindOrAddMonth(int month, int yearRow) {
  SchDatCTL& t = doc_.Tables;
  AncMMRow row;
  row.Month = month;
  AncYYRow& year = t.AncYY.Edit(yearRow);
  if (year.FirstMonth == -1) {
    const int added = t.MonthCount == 0 ? t.AncMM.Put(row) : t.AncMM.Append(row);
    ++t.MonthCount;
    year.FirstMonth = added;
    return added;
  }
  int last = year.FirstMonth;
  for (int at : MonthChain(t.AncMM, year.FirstMonth)) {
    if (t.AncMM.At(at).Month == month) return at;
    last = at;
  }
  ++t.MonthCount;
  const int added = t.AncMM.Append(row);
  t.AncMM.Edit(last).NextMonth = added;
  return added;
}

int ScheduleStore::InsertRow(int head, int monthRow, int day, SchDatRow line) {
  SchDatCTL& t = doc_.Tables;
  auto& list = t.SchDatList;
  int newRow = 0;
  if (t.RowCount == 0 && list.IsEmpty()) {
    list.PutFirst(std::move(line));
  } else {
    newRow = list.Append(std::move(line));
  }
  ++t.RowCount;
  std::int32_t& dayHead = t.AncMM.Edit(monthRow).DayHead[static_cast<std::size_t>(day - 1)];
  if (head == -1) {
    dayHead = newRow;
  } else {
    // Behind every row that starts no later: equal times keep their order of entry.
    const std::int32_t start = list.At(newRow).StartTime;
    int prev = -1;
    for (int at : DayChain(list, head)) {
      if (list.At(at).StartTime > start) break;
      prev = at;
    }
    if (prev == -1) {
      list.Edit(newRow).Next = head;
      dayHead = newRow;
    } else {
      list.Edit(newRow).Next = list.At(prev).Next;
      list.Edit(prev).Next = newRow;
    }
  }
  if (AlarmDueToday(list.At(newRow))) svc_.alarms.AddAlarmOfRecord(newRow);
  return newRow;
}

void ScheduleStore::Undo() {
  FollowAlarms(history_.Undo());
}

void ScheduleStore::Redo() {
  FollowAlarms(history_.Redo());
}

void ScheduleStore::FollowAlarms(const UndoStep* step) {
  if (step == nullptr) return;
  const SchDatTable& list = doc_.Tables.SchDatList;
  for (const auto& [row, image] : step->items.after) {
    svc_.alarms.RemoveAlarmOfRecord(row);
    if (list.At(row).IsLive() && AlarmDueToday(list.At(row))) svc_.alarms.AddAlarmOfRecord(row);
  }
  svc_.alarms.SortTodayAlarms();
  svc_.alarms.ArmNextAlarm();
}

void ScheduleStore::DeleteItem(const SchRecord& record) {
  SchDatCTL& t = doc_.Tables;
  if (t.SchDatList.IsEmpty()) return;
  if (record.RepeatKind != 0) {
    for (int row : SeriesRows(t, {record.ParentSubNo, record.ParentStamp})) {
      if (t.SchDatList.At(row).Stamp == record.Stamp) RemoveRow(row);
    }
    return;
  }
  for (int row : StampRows(t, record.Stamp)) {
    if (t.SchDatList.At(row).SubNo == record.SubNo) RemoveRow(row);
  }
}

void ScheduleStore::RemoveRow(int row) {
  SchDatCTL& t = doc_.Tables;
  SchDatRow& r = t.SchDatList.Edit(row);
  if (r.Deleted != kDeleted) --t.RowCount;
  r.Deleted = kDeleted;
  svc_.alarms.RemoveAlarmOfRecord(row);
}

std::int32_t ScheduleStore::NewUniqueStamp() {
  std::int32_t candidate = MakeStamp(svc_.clock);
  if (doc_.Tables.RowCount < 1) return candidate;
  const auto taken = [&](std::int32_t stamp) { return !StampRows(doc_.Tables, stamp).empty(); };
  while (taken(candidate)) {
    // The stamp's grain is two seconds: wait for the clock to give another one.
    svc_.progress.SetWaitPointer(true);
    const std::int32_t old = candidate;
    while (candidate == old) {
      PauseTick(svc_.clock);
      candidate = MakeStamp(svc_.clock);
    }
    svc_.progress.SetWaitPointer(false);
  }
  return candidate;
}

MonthData ScheduleStore::MonthHasData(int year, int month) const {
  const SchDatCTL& t = doc_.Tables;
  MonthData data;
  const int yearRow = FindYearRow(t, year);
  if (yearRow < 0) return data;
  const AncYYRow& y = t.AncYY.At(yearRow);
  const auto index = static_cast<std::size_t>(month - 1);
  data.hasData = y.HolidayOn[index] > 0 || y.HolidayOff[index] > 0;
  data.monthRow = FindMonthRow(t, yearRow, month);
  if (data.monthRow < 0 || data.hasData) return data;
  const auto& list = t.SchDatList;
  for (std::int32_t head : t.AncMM.At(data.monthRow).DayHead) {
    for (int row : DayChain(list, head)) {
      if (list.At(row).IsLive()) {
        data.hasData = true;
        return data;
      }
    }
  }
  return data;
}

bool ScheduleStore::AlarmDueToday(const SchDatRow& row) const {
  if (row.AlarmOn <= 0) return false;
  const DateTime now = svc_.clock.Now();
  const AlarmMoment alarm =
      AlarmDateCodeOfStart(row.Year, row.Month, row.Day, row.StartTime, row.AlarmLead);
  return alarm.dateCode == DateCode(now.year, now.month, now.day) &&
         alarm.minute > now.hour * 60 + now.minute;
}

}  // namespace sched
