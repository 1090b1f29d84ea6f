#include "interchange/csv_import.h"

#include <algorithm>

#include "core/byte_lanes.h"
#include "core/text_case.h"
#include "interchange/csv_date_time.h"
#include "interchange/csv_row_feed.h"
#include "store/scl_format.h"
#include "store/series_check.h"
#include "store/stamp.h"

namespace sched {
namespace {

constexpr int kTitleLimit = 56;  // characters
constexpr std::int32_t kLastSeq = 32767;
constexpr int kMinutesOfDay = 1440;
constexpr int kLeadLimit = 999;
constexpr std::int16_t kTimedSpanKind = 2048;
constexpr int kAllDaySpanLimit = 30;
constexpr int kTimedSpanLimit = 31;

bool Holds(std::string_view text, char c) {
  return FirstOf(text, 0, c, c) != text.size();
}

// Whether the text holds a byte below 0x20, as a tab, a CR and a LF are: most fields hold none,
// and are not looked through for each of them.
bool HasControl(std::string_view text) {
  constexpr std::size_t kWord = sizeof(std::uint64_t);
  if (text.size() < kWord) {
    return std::any_of(text.begin(), text.end(),
                       [](char c) { return static_cast<unsigned char>(c) < 0x20; });
  }
  for (std::size_t i = 0; i + kWord <= text.size(); i += kWord) {
    if (Below(WordAt(text.data() + i), 0x20) != 0) return true;
  }
  // The last word ends with the text, over bytes looked at already.
  return Below(WordAt(text.data() + text.size() - kWord), 0x20) != 0;
}

bool HasLineBreak(std::string_view text) {
  return HasControl(text) && FirstOf(text, 0, '\r', '\n') != text.size();
}

// CR becomes a blank, LF goes, and at most the first characters of the limit stay; a text
// that needs a change is made in `room`.
std::string_view OneLine(std::string_view text, int limit, std::string& room) {
  if (text.size() <= static_cast<std::size_t>(limit) && !HasLineBreak(text)) {
    return text;  // the common case, left as it is
  }
  room.clear();
  int characters = 0;
  for (const char c : text) {
    if (c == '\n') continue;
    if ((static_cast<unsigned char>(c) & 0xC0) != 0x80 && ++characters > limit) break;
    room += c == '\r' ? ' ' : c;
  }
  return room;
}

std::int32_t CodeOf(const CivilDate& date) {
  return DateCode(date.year, date.month, date.day);
}

int DaysBetween(const CivilDate& from, const CivilDate& to) {
  return DaySerial(to) - DaySerial(from);
}

// Whether the number at the start of a text is 1, as a number is read there: blanks are passed
// over, then a sign, digits and a decimal part; false when no digit comes.
bool LeadingNumberIsOne(std::string_view text) {
  bool negative = false;
  bool signSeen = false;
  bool pointSeen = false;
  bool digitSeen = false;
  bool wholeIsOne = false;  // the digits before the point make 1
  bool wholeNonZero = false;
  bool fractionNonZero = false;
  for (const char c : text) {
    if (c == ' ' || c == '\t') continue;
    if ((c == '-' || c == '+') && !signSeen && !digitSeen && !pointSeen) {
      signSeen = true;
      negative = c == '-';
    } else if (c == '.' && !pointSeen) {
      pointSeen = true;
    } else if (c >= '0' && c <= '9') {
      digitSeen = true;
      if (pointSeen) {
        fractionNonZero = fractionNonZero || c != '0';
      } else if (c != '0') {
        wholeIsOne = !wholeNonZero && c == '1';
        wholeNonZero = true;
      } else {
        wholeIsOne = false;
      }
    } else {
      break;
    }
  }
  return digitSeen && !negative && wholeIsOne && !fractionNonZero;
}

const CivilDate kFirstDate{kFirstYear, 1, 1};
const CivilDate kLastDate{kLastYear, 12, 31};

}  // namespace

std::int16_t CsvBoolean(std::string_view text) {
  // "0" and "1", as the export writes them, at once.
  if (text.size() == 1) return text[0] == '1' ? 1 : 0;
  if (text == "真" || text == "True" || text == "TRUE") return 1;
  return LeadingNumberIsOne(text) ? 1 : 0;
}

bool ConvertCsvRow(CsvRowFields& row, CsvTextRoom& room, CsvConverted& c) {
  for (std::size_t i = 0; i < row.size(); ++i) {
    if (!HasControl(row[i]) || !Holds(row[i], '\t')) continue;
    room.untabbed[i].assign(row[i]);
    std::replace(room.untabbed[i].begin(), room.untabbed[i].end(), '\t', ' ');
    row[i] = room.untabbed[i];
  }
  c = {};
  c.title = OneLine(row[kCsvTitle], kTitleLimit, room.title);
  c.place = OneLine(row[kCsvPlace], kTitleLimit, room.place);
  const std::string_view memo = row[kCsvMemo];
  c.memo = memo;
  if (HasLineBreak(memo)) {
    room.memo.clear();
    AppendLfToCrLf(room.memo, memo);
    c.memo = room.memo;
  }
  c.Private = CsvBoolean(row[kCsvPrivate]);
  c.AlarmOn = CsvBoolean(row[kCsvAlarmOn]);
  c.allDay = CsvBoolean(row[kCsvAllDay]) != 0;

  const auto start = ParseCsvDate(row[kCsvStartDate]);
  if (!start) return false;
  c.start = *start;
  // All-day rows need a start time too.
  const auto startTime = ParseCsvTime(row[kCsvStartTime]);
  if (!startTime) return false;
  c.startTime = *startTime;
  c.end = ParseCsvDate(row[kCsvEndDate]).value_or(c.start);
  c.endTime = ParseCsvTime(row[kCsvEndTime]).value_or(c.startTime);
  if (c.AlarmOn != 0) {
    c.alarmDate = ParseCsvDate(row[kCsvAlarmDate]).value_or(c.start);
    c.alarmTime = ParseCsvTime(row[kCsvAlarmTime]).value_or(c.startTime);
  }

  if (c.title.empty()) c.title = "Untitled";
  if (CodeOf(c.start) < CodeOf(kFirstDate) || CodeOf(c.start) > CodeOf(kLastDate)) {
    return false;
  }
  c.endValid = CodeOf(c.end) >= CodeOf(kFirstDate);
  if (c.endValid && CodeOf(c.end) < CodeOf(c.start)) return false;
  if (CodeOf(c.end) > CodeOf(kLastDate)) c.end = kLastDate;
  if (c.AlarmOn != 0) {
    if (CodeOf(c.alarmDate) < CodeOf(kFirstDate)) {
      c.AlarmOn = 0;
    } else if (CodeOf(c.alarmDate) > CodeOf(c.start)) {
      c.alarmDate = c.start;
    }
    if (c.alarmDate == c.start && c.startTime < c.alarmTime) c.alarmTime = c.startTime;
  }
  return true;
}

std::int16_t ComputeCsvLead(const CivilDate& start, int startTime, const CivilDate& alarmDate,
                            int alarmTime) {
  const int lead = CodeOf(start) <= CodeOf(alarmDate) ? startTime - alarmTime
                                                      : kMinutesOfDay - alarmTime + startTime;
  return static_cast<std::int16_t>(std::min(lead, kLeadLimit));
}

std::int32_t CsvImporter::UnusedStamp(std::int32_t candidate) const {
  while (std::find(heldStamps_.begin(), heldStamps_.end(), candidate) != heldStamps_.end()) {
    candidate = SetTopBits(candidate + 1);
  }
  return candidate;
}

void CsvImporter::Insert(const SchDatRow& line) {
  s_.store.InsertLine(line);
  if (heldStamps_.empty() || heldStamps_.back() != ImportStamp) heldStamps_.push_back(ImportStamp);
}

void CsvImporter::TakeClockStamp() {
  // The stamp has a grain of two seconds, and rows come in by the thousand a millisecond: the
  // clock is read once every so many rows.
  if (rowsSinceClock_++ % kRowsPerClockReading != 0) return;
  const std::int32_t stamp = MakeStamp(s_.clock);
  if (stamp == clockStamp_) return;
  clockStamp_ = stamp;
  ImportStamp = UnusedStamp(stamp);
  ImportSeq = 1;
}

void CsvImporter::ReserveSeq(int count) {
  if (ImportSeq + count - 1 <= kLastSeq) return;
  ImportStamp = UnusedStamp(ImportStamp);
  ImportSeq = 1;
}

void CsvImporter::SetTimes(SchRecord& record, const CsvConverted& row) const {
  record.StartTime = static_cast<std::int16_t>(row.allDay ? -1 : row.startTime);
  record.EndTime = static_cast<std::int16_t>(row.allDay ? -1 : row.endTime);
}

void CsvImporter::AddCsvRecord(std::optional<CsvConverted>& converted) {
  TakeClockStamp();
  if (!converted) return;
  CsvConverted& row = *converted;
  SchRecord& record = record_;
  texts_ = {row.title, row.place, row.memo, {}};
  record.Private = row.Private;
  record.AlarmOn = row.AlarmOn;
  record.AlarmLead = 0;
  record.Prev = -1;
  record.Next = -1;
  record.RepeatKind = 0;
  const int days = DaysBetween(row.start, row.end);
  // Other calendars write a one-day event as running to the next midnight.
  if (row.allDay && days == 1 && row.startTime == 0 && row.endTime == 0) row.end = row.start;
  if (!row.allDay && days >= 1) {
    if (row.startTime == 0 && row.endTime == 0) {
      row.allDay = true;
      record.RepeatKind = kMultiDayKind;
    } else {
      record.RepeatKind = kTimedSpanKind;
    }
  }
  SetEndDate(record, row.end);
  if (record.AlarmOn != 0) {
    record.AlarmLead = ComputeCsvLead(row.start, row.startTime, row.alarmDate, row.alarmTime);
    texts_.AlarmSound = kDefaultAlarmSound;
  }
  SetTimes(record, row);
  if (record.RepeatKind == 0 && row.start == row.end) {
    AddCsvSingleDay(record, row);
  } else {
    AddCsvSpan(record, row, DaysBetween(row.start, row.end) + 1);
  }
}

SchDatRow CsvImporter::LineOf(const SchRecord& record) {
  SchDatRow line = RecordNumbers(record);
  line.TextHandle = s_.store.Document().Tables.SchDatList.AddTexts(texts_);
  return line;
}

void CsvImporter::AddCsvSingleDay(SchRecord& record, const CsvConverted& row) {
  ReserveSeq(1);
  SetStartDate(record, row.start);
  record.SubNo = static_cast<std::int16_t>(ImportSeq & 0xFFFF);
  ++ImportSeq;
  record.Stamp = ImportStamp;
  record.ParentSubNo = 0;
  record.ParentStamp = 0;
  record.VarLen = VarLenOf(texts_, record.AlarmOn, s_.store.Document().FileCodePage);
  Insert(LineOf(record));
}

void CsvImporter::AddCsvSpan(SchRecord& record, const CsvConverted& row, int days) {
  if (days > kAllDaySpanLimit && record.RepeatKind == kMultiDayKind) days = kAllDaySpanLimit;
  if (days > kTimedSpanLimit && record.RepeatKind != kMultiDayKind) days = kTimedSpanLimit;
  if (days <= 0) return;
  ReserveSeq(days);
  SetEndDate(record, AddDays(row.start, days - 1));
  const auto groupId = static_cast<std::int16_t>(ImportSeq);
  record.VarLen = VarLenOf(texts_, record.AlarmOn, s_.store.Document().FileCodePage);
  // The days share one copy of the texts.
  SchDatRow line = LineOf(record);
  CivilDate date = row.start;
  for (int i = 0; i < days; ++i) {
    SetStartDate(line, date);
    line.SubNo = static_cast<std::int16_t>(ImportSeq);
    ++ImportSeq;
    line.Stamp = ImportStamp;
    line.ParentSubNo = groupId;
    line.ParentStamp = ImportStamp;
    Insert(line);
    date = AddDays(date, 1);
    if (CodeOf(date) > CodeOf(kLastDate)) break;
  }
}

bool ImportCsvFile(CsvImportServices services, std::string_view bytes, CsvSettings settings) {
  ScheduleStore& store = services.store;
  ScheduleDocument& doc = store.Document();
  const CivilDate shown{doc.CurYear, doc.CurMonth, doc.CurDay};
  store.ClearIndex();
  store.ResetHeader();
  // Room for as many rows as a file of real texts holds, so that the table does not move as it
  // grows: room that stays unused is never touched, and costs no memory.
  constexpr std::size_t kShortRowBytes = 40;
  constexpr std::size_t kMostRowsReserved = 1 << 21;
  doc.Tables.SchDatList.Reserve(std::min(bytes.size() / kShortRowBytes + 1, kMostRowsReserved));
  EnsureDefaultCsvColumns(settings.CsvColumns);
  // The file is read and its rows converted on a thread of their own while the rows before
  // are added.
  CsvRowFeed feed(bytes, doc.FileCodePage, BuildCsvColumnMap(settings.CsvColumns),
                  settings.CsvFirstRowIsHeader);
  CsvImporter importer(services);
  int shownProgress = -1;
  // The bar follows the read position at the start of each read.
  const auto show = [&](std::int64_t pos) {
    const auto length = std::max<std::int64_t>(static_cast<std::int64_t>(bytes.size()), 1);
    const int progress = static_cast<int>(pos * 100 / length);
    if (progress != shownProgress) services.progress.SetValue(shownProgress = progress);
  };
  while (CsvRowFeed::Row* const row = feed.Next()) {
    show(row->posBefore);
    if (!row->header) importer.AddCsvRecord(row->converted);
  }
  if (const std::optional<std::int64_t> pos = feed.EndingPos()) show(*pos);
  const bool whole = feed.Whole();
  doc.SetShownDate(shown);
  services.progress.SetValue(100);
  if (whole) CheckSeries(doc.Tables);
  return whole;
}

}  // namespace sched
