#include "interchange/csv_export.h"

#include <algorithm>

#include "appointments/repeat_rule.h"
#include "interchange/csv_date_time.h"
#include "store/chains.h"

namespace sched {
namespace {

constexpr int kLastMinute = 23 * 60 + 59;

bool IsTimedSpan(std::int32_t repeatKind) {
  const DecodedRepeatKind decoded = DecodeRepeatKind(static_cast<std::uint16_t>(repeatKind));
  return decoded.code == kCodeDaily && decoded.intervalField.value_or(0) == 0;
}

CivilDate StartOf(const SchDatRow& row) {
  return {row.Year, row.Month, row.Day};
}

// The text goes to the sink in pieces of about this size.
constexpr std::size_t kPieceSize = std::size_t{1} << 18;

bool Hand(FileSink& sink, std::string& text) {
  const bool taken = sink.Append({reinterpret_cast<const std::uint8_t*>(text.data()), text.size()});
  text.clear();
  return taken;
}

const char* Flag(bool on) {
  return on ? "1" : "0";
}

}  // namespace

bool BuildCsvRow(const SchDatCTL& tables, const SchDatRow& row, ExportedGroups& exported,
                 CsvRowFields& fields) {
  const bool multiDay = row.RepeatKind == kMultiDayKind;
  const bool span = multiDay || IsTimedSpan(row.RepeatKind);
  if (span && !exported.insert(row.Series()).second) return false;
  const auto groupRange = [&] {
    const SeriesRange range = GetSeriesRange(tables, row.ParentSubNo, row.ParentStamp);
    return range.found ? std::pair{DateOfCode(range.firstCode), DateOfCode(range.lastCode)}
                       : std::pair{StartOf(row), StartOf(row)};
  };
  for (std::string& field : fields) field.clear();
  const RowTexts texts = tables.SchDatList.Texts(row);
  for (const CsvField text : {kCsvTitle, kCsvPlace, kCsvMemo}) {
    const std::string_view from = text == kCsvTitle   ? texts.Title
                                  : text == kCsvPlace ? texts.Place
                                                      : texts.Memo;
    if (from.find('\r') == std::string_view::npos) {
      fields[text].assign(from);
    } else {
      fields[text] = StripCR(from);
    }
  }
  fields[kCsvPrivate] = Flag(row.Private != 0);
  fields[kCsvAlarmOn] = Flag(row.AlarmLead != 0);
  CivilDate first = StartOf(row);
  CivilDate last = first;
  if (row.StartTime == -1) {
    fields[kCsvStartTime] = fields[kCsvEndTime] = FormatCsvTime(0);
    if (multiDay) {
      fields[kCsvAllDay] = "0";
      std::tie(first, last) = groupRange();
    } else if (first == CivilDate{kLastYear, 12, 31}) {
      // No next day to end on: the day ends at its last minute.
      fields[kCsvAllDay] = "0";
      fields[kCsvEndTime] = FormatCsvTime(kLastMinute);
    } else {
      fields[kCsvAllDay] = "1";
      last = AddDays(first, 1);
    }
  } else {
    fields[kCsvAllDay] = "0";
    if (span) std::tie(first, last) = groupRange();
    fields[kCsvStartTime] = FormatCsvTime(row.StartTime);
    fields[kCsvEndTime] = FormatCsvTime(std::max<int>(row.EndTime, 0));
    if (row.AlarmLead != 0) {
      const AlarmMoment alarm =
          AlarmDateCodeOfStart(row.Year, row.Month, row.Day, row.StartTime, row.AlarmLead);
      fields[kCsvAlarmDate] = FormatCsvDate(DateOfCode(alarm.dateCode));
      fields[kCsvAlarmTime] = FormatCsvTime(alarm.minute);
    }
  }
  fields[kCsvStartDate] = FormatCsvDate(first);
  fields[kCsvEndDate] = FormatCsvDate(last);
  return true;
}

int LastColumn(const std::vector<std::int16_t>& map) {
  int last = -1;
  std::vector<bool> taken(kCsvFieldCount, false);
  for (std::size_t i = 0; i < map.size(); ++i) {
    if (map[i] < 0 || taken[static_cast<std::size_t>(map[i])]) continue;
    taken[static_cast<std::size_t>(map[i])] = true;
    last = static_cast<int>(i);
  }
  return last;
}

void WriteCsvRow(std::string& out, const CsvRowFields& row, const std::vector<std::int16_t>& map,
                 int lastColumn, CodePage page) {
  std::array<bool, kCsvFieldCount> written{};
  for (int i = 0; i <= lastColumn; ++i) {
    const int field = map[static_cast<std::size_t>(i)];
    out += '"';
    if (field >= 0 && !written[static_cast<std::size_t>(field)]) {
      written[static_cast<std::size_t>(field)] = true;
      const std::string& item = row[static_cast<std::size_t>(field)];
      // Only the texts of the item can hold more than ASCII: the names, dates and flags are
      // the program's own.
      const bool text = field == kCsvTitle || field == kCsvPlace || field == kCsvMemo;
      if (text && !IsAscii(item)) {
        out += ToCodePage(item, page);
      } else {
        out += item;
      }
    }
    out += '"';
    out += i == lastColumn ? "\r\n" : ",";
  }
}

bool ExportCsvFile(const ScheduleDocument& doc, CsvSettings settings, ProgressDisplay& progress,
                   FileSink& sink) {
  EnsureDefaultCsvColumns(settings.CsvColumns);
  const std::vector<std::int16_t> map = BuildCsvColumnMap(settings.CsvColumns);
  const int lastColumn = LastColumn(map);
  const SchDatCTL& t = doc.Tables;
  std::string text;
  text.reserve(2 * kPieceSize);
  if (settings.CsvFirstRowIsHeader) {
    CsvRowFields names;
    for (std::size_t i = 0; i < map.size(); ++i) {
      if (map[i] >= 0) names[static_cast<std::size_t>(map[i])] = settings.CsvColumns[i];
    }
    WriteCsvRow(text, names, map, lastColumn, doc.FileCodePage);
  }
  ExportedGroups exported;
  CsvRowFields fields;
  for (int i = 0; i < t.YearCount; ++i) {
    progress.SetValue(i * 100 / t.YearCount);
    for (const int monthRow : MonthChain(t.AncMM, t.AncYY.At(i).FirstMonth)) {
      for (const int head : t.AncMM.At(monthRow).DayHead) {
        for (const int r : DayChain(t.SchDatList, head)) {
          const SchDatRow& row = t.SchDatList.At(r);
          if (row.Deleted == kDeleted) continue;
          if (BuildCsvRow(t, row, exported, fields)) {
            WriteCsvRow(text, fields, map, lastColumn, doc.FileCodePage);
          }
        }
      }
      if (text.size() >= kPieceSize && !Hand(sink, text)) return false;
    }
  }
  progress.SetValue(100);
  return Hand(sink, text);
}

bool ExportCsvFile(const ScheduleDocument& doc, const CsvSettings& settings,
                   ProgressDisplay& progress, const std::string& path) {
  return WriteFileSafely(
      path, [&](FileSink& sink) { return ExportCsvFile(doc, settings, progress, sink); });
}

}  // namespace sched
