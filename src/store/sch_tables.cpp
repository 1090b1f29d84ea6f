#include "store/sch_tables.h"

#include <algorithm>

#include "store/chains.h"
#include "store/sch_record.h"

namespace sched {
namespace {

std::string Num(std::int32_t value) {
  return std::to_string(value);
}

}  // namespace

std::string AncYYRow::Cell(int col) const {
  switch (col) {
    case 0: return Num(Year);
    case 1: return Num(NextYear);
    case 2: return Num(FirstMonth);
    default:
      if (col >= 3 && col <= 14) return Num(HolidayOn[static_cast<std::size_t>(col - 3)]);
      if (col >= 15 && col <= 26) return Num(HolidayOff[static_cast<std::size_t>(col - 15)]);
      return {};
  }
}

void AncYYRow::SetCell(int col, std::string_view text) {
  const std::int32_t value = CellNumber(text);
  switch (col) {
    case 0: Year = value; break;
    case 1: NextYear = value; break;
    case 2: FirstMonth = value; break;
    default:
      if (col >= 3 && col <= 14) HolidayOn[static_cast<std::size_t>(col - 3)] = value;
      if (col >= 15 && col <= 26) HolidayOff[static_cast<std::size_t>(col - 15)] = value;
  }
}

bool AncYYRow::HasHolidayMask() const {
  const auto nonZero = [](std::int32_t mask) { return mask != 0; };
  return std::any_of(HolidayOn.begin(), HolidayOn.end(), nonZero) ||
         std::any_of(HolidayOff.begin(), HolidayOff.end(), nonZero);
}

std::string AncMMRow::Cell(int col) const {
  if (col == 0) return Num(Month);
  if (col == 1) return Num(NextMonth);
  if (col >= 2 && col <= 32) return Num(DayHead[static_cast<std::size_t>(col - 2)]);
  return {};
}

void AncMMRow::SetCell(int col, std::string_view text) {
  const std::int32_t value = CellNumber(text);
  if (col == 0) Month = value;
  if (col == 1) NextMonth = value;
  if (col >= 2 && col <= 32) DayHead[static_cast<std::size_t>(col - 2)] = value;
}

std::string SchDatRow::Cell(int col) const {
  switch (col) {
    case kColPrev: return Num(-1);  // rows are chained forwards only
    case kColNext: return Num(Next);
    case kColDay: return Num(Day);
    case kColMonth: return Num(Month);
    case kColYear: return Num(Year);
    case kColEndDay: return Num(EndDay);
    case kColEndMonth: return Num(EndMonth);
    case kColEndYear: return Num(EndYear);
    case kColStartTime: return Num(StartTime);
    case kColEndTime: return Num(EndTime);
    case kColSubNo: return Num(SubNo);
    case kColStamp: return Num(Stamp);
    case kColParentSubNo: return Num(ParentSubNo);
    case kColParentStamp: return Num(ParentStamp);
    case kColRepeatKind: return Num(RepeatKind);
    case kColPrivate: return Num(Private);
    case kColVarLen: return Num(VarLen);
    case kColAlarmOn: return Num(AlarmOn);
    case kColAlarmLead: return Num(AlarmLead);
    case kColDeleted: return Num(Deleted);
    default: return {};
  }
}

void SchDatRow::SetCell(int col, std::string_view text) {
  const std::int32_t value = CellNumber(text);
  const auto u8 = static_cast<std::uint8_t>(value);
  const auto u16 = static_cast<std::uint16_t>(value);
  const auto i16 = static_cast<std::int16_t>(value);
  switch (col) {
    case kColNext: Next = value; return;
    case kColDay: Day = u8; return;
    case kColMonth: Month = u8; return;
    case kColYear: Year = u16; return;
    case kColEndDay: EndDay = u8; return;
    case kColEndMonth: EndMonth = u8; return;
    case kColEndYear: EndYear = u16; return;
    case kColStartTime: StartTime = i16; return;
    case kColEndTime: EndTime = i16; return;
    case kColSubNo: SubNo = value; return;
    case kColStamp: Stamp = value; return;
    case kColParentSubNo: ParentSubNo = value; return;
    case kColParentStamp: ParentStamp = value; return;
    case kColRepeatKind: RepeatKind = i16; return;
    case kColPrivate: Private = i16; return;
    case kColVarLen: VarLen = i16; return;
    case kColAlarmOn: AlarmOn = i16; return;
    case kColAlarmLead: AlarmLead = i16; return;
    case kColDeleted: Deleted = u8; return;
    default: return;
  }
}

namespace {

// The text of a text column, nothing for another column.
std::string_view* TextOfColumn(RowTexts& texts, int col) {
  switch (col) {
    case kColTitle: return &texts.Title;
    case kColPlace: return &texts.Place;
    case kColMemo: return &texts.Memo;
    case kColAlarmSound: return &texts.AlarmSound;
    default: return nullptr;
  }
}

}  // namespace

std::string SchDatTable::Cell(int row, int col) const {
  const SchDatRow& r = At(row);
  if (r.blank) return {};
  RowTexts texts = Texts(r);
  if (const std::string_view* text = TextOfColumn(texts, col)) return std::string(*text);
  return r.Cell(col);
}

void SchDatTable::SetCell(int row, int col, std::string_view text) {
  SchDatRow& r = Edit(row);
  r.blank = false;
  RowTexts texts = Texts(r);
  if (std::string_view* cell = TextOfColumn(texts, col)) {
    *cell = text;
    SetTexts(r, texts);
  } else {
    r.SetCell(col, text);
  }
  CountEdit();
}

void SchDatTable::AddItem(std::string_view line) {
  SchDatRow row{};
  RowTexts texts;
  int col = 0;
  for (std::string_view cell : SplitLine(line)) {
    if (col >= SchDatRow::kColumns) break;
    if (std::string_view* text = TextOfColumn(texts, col)) {
      *text = cell;
    } else {
      row.SetCell(col, cell);
    }
    ++col;
  }
  SetTexts(row, texts);
  Append(row);
}

std::string SchDatTable::Line(int row) const {
  std::string line;
  for (int col = 0; col < SchDatRow::kColumns; ++col) {
    if (col > 0) line += '\t';
    line += Cell(row, col);
  }
  return line;
}

std::int32_t SchDatRow::StartCode() const {
  return DateCode(Year, Month, Day);
}
std::int32_t SchDatRow::EndCode() const {
  return DateCode(EndYear, EndMonth, EndDay);
}

void ClearTables(SchDatCTL& ctl) {
  ctl.AncYY.Clear();
  ctl.AncMM.Clear();
  ctl.SchDatList.Clear();
  ctl.SchHlist.Clear();
  ctl.YearCount = 0;
  ctl.MonthCount = 0;
  ctl.RowCount = 0;
}

int GetDayHead(const SchDatCTL& ctl, int monthRow, int day) {
  return ctl.AncMM.At(monthRow).DayHead[static_cast<std::size_t>(day - 1)];
}

int FindYearRow(const SchDatCTL& ctl, int year) {
  for (int row = 0; row < ctl.YearCount; ++row) {
    if (ctl.AncYY.At(row).Year == year) return row;
  }
  return -1;
}

int FindMonthRow(const SchDatCTL& ctl, int yearRow, int month) {
  for (int row : MonthChain(ctl.AncMM, ctl.AncYY.At(yearRow).FirstMonth)) {
    if (ctl.AncMM.At(row).Month == month) return row;
  }
  return -1;
}

RowList SeriesRows(const SchDatCTL& ctl, const SeriesKey& key) {
  ctl.Series.Sync(ctl.SchDatList, [](const SchDatRow& row) { return row.Series(); });
  return ctl.Series.RowsOf(key);
}

RowList StampRows(const SchDatCTL& ctl, std::int32_t stamp) {
  ctl.Stamps.Sync(ctl.SchDatList, [](const SchDatRow& row) { return row.Stamp; });
  return ctl.Stamps.RowsOf(stamp);
}

void SeriesRange::Add(const SchDatRow& row, int at) {
  const std::int32_t start = row.StartCode();
  const std::int32_t end = row.EndCode();
  if (!found || row.SubNo < lowestSubNo || (row.SubNo == lowestSubNo && start < firstCode)) {
    firstCode = start;
    lowestSubNo = row.SubNo;
    firstRow = at;
  }
  if (!found || row.SubNo > highestSubNo || (row.SubNo == highestSubNo && end > lastCode)) {
    lastCode = end;
    highestSubNo = row.SubNo;
  }
  found = true;
}

SeriesRange GetSeriesRange(const SchDatCTL& ctl, std::int32_t parentSubNo,
                           std::int32_t parentStamp) {
  SeriesRange range;
  for (int row : SeriesRows(ctl, {parentSubNo, parentStamp})) {
    const SchDatRow& r = ctl.SchDatList.At(row);
    if (r.IsLive()) range.Add(r, row);
  }
  return range;
}

std::int32_t GetSeriesLowestSubNo(const SchDatCTL& ctl, std::int32_t parentSubNo,
                                  std::int32_t parentStamp) {
  return GetSeriesRange(ctl, parentSubNo, parentStamp).lowestSubNo;
}

}  // namespace sched
