#include "interchange/csv_export.h"

#include <algorithm>
#include <cstring>

#include "appointments/repeat_rule.h"
#include "core/key_table.h"
#include "core/radix_sort.h"
#include "interchange/csv_date_time.h"
#include "store/chains.h"

namespace sched {
namespace {

constexpr int kLastMinute = 23 * 60 + 59;

bool IsTimedSpan(std::int32_t repeatKind) {
  const DecodedRepeatKind decoded = DecodeRepeatKind(static_cast<std::uint16_t>(repeatKind));
  return decoded.code == kCodeDaily && decoded.intervalField.value_or(0) == 0;
}

bool IsSpan(std::int32_t repeatKind) {
  return repeatKind != 0 && (repeatKind == kMultiDayKind || IsTimedSpan(repeatKind));
}

CivilDate StartOf(const SchDatRow& row) {
  return {row.Year, row.Month, row.Day};
}

// The text goes to the sink in pieces of about this size.
constexpr std::size_t kPieceSize = std::size_t{1} << 20;

bool Hand(FileSink& sink, std::string& text) {
  const bool taken = sink.Append({reinterpret_cast<const std::uint8_t*>(text.data()), text.size()});
  text.clear();
  return taken;
}

// Copies the text to `to` and moves `to` behind it when it is all ASCII; false, with nothing
// moved, when it is not. Eight bytes go at a time.
bool CopyAscii(std::string_view text, char*& to) {
  constexpr std::uint64_t kHighBits = 0x8080808080808080;
  std::uint64_t high = 0;
  std::size_t i = 0;
  for (std::uint64_t word = 0; i + sizeof word <= text.size(); i += sizeof word) {
    std::memcpy(&word, text.data() + i, sizeof word);
    std::memcpy(to + i, &word, sizeof word);
    high |= word;
  }
  for (; i < text.size(); ++i) {
    high |= static_cast<unsigned char>(text[i]);
    to[i] = text[i];
  }
  if ((high & kHighBits) != 0) return false;
  to += text.size();
  return true;
}

const char* Flag(bool on) {
  return on ? "1" : "0";
}

}  // namespace

SpanGroups::SpanGroups(const SchDatTable& list)
    : groupOfRow_(static_cast<std::size_t>(list.Rows()), -1) {
  std::vector<std::uint64_t> spans;
  for (int at = 0; at < list.Rows(); ++at) {
    const SchDatRow& row = list.At(at);
    if (row.IsLive() && IsSpan(row.RepeatKind)) spans.push_back(row.Series().Packed());
  }
  if (spans.empty()) return;
  RadixSort(spans, [](std::uint64_t key) { return key; });
  spans.erase(std::unique(spans.begin(), spans.end()), spans.end());
  const KeyTable table(std::move(spans));
  ranges_.resize(table.Size());
  written_.resize(table.Size());
  // Other rows of a span's series count too.
  for (int at = 0; at < list.Rows(); ++at) {
    const SchDatRow& row = list.At(at);
    if (!row.IsLive()) continue;
    const int group = table.Find(row.Series().Packed());
    if (group == -1) continue;
    ranges_[static_cast<std::size_t>(group)].Add(row, at);
    if (IsSpan(row.RepeatKind)) groupOfRow_[static_cast<std::size_t>(at)] = group;
  }
}

bool BuildCsvRow(const SchDatTable& list, int at, SpanGroups& spans, CsvRowRoom& room,
                 CsvRowFields& fields) {
  const SchDatRow& row = list.At(at);
  const bool multiDay = row.RepeatKind == kMultiDayKind;
  const bool span = IsSpan(row.RepeatKind);
  int group = -1;
  if (span) {
    group = spans.Of(at);
    if (!spans.TakeWrite(group)) return false;
  }
  const auto groupRange = [&] {
    const SeriesRange& range = spans.Range(group);
    return range.found ? std::pair{DateOfCode(range.firstCode), DateOfCode(range.lastCode)}
                       : std::pair{StartOf(row), StartOf(row)};
  };
  // A date or time made in the field's room, unless the field's room holds it already.
  const auto date = [&](CsvField field, const CivilDate& value) {
    std::string& text = room.texts[field];
    if (const std::int32_t code = DateCode(value.year, value.month, value.day);
        room.made[field] != code) {
      text.resize(kCsvDateLength);
      text.resize(static_cast<std::size_t>(WriteCsvDate(value, text.data()) - text.data()));
      room.made[field] = code;
    }
    fields[field] = text;
  };
  const auto time = [&](CsvField field, int minutes) {
    std::string& text = room.texts[field];
    if (room.made[field] != minutes) {
      text.resize(kCsvTimeLength);
      text.resize(static_cast<std::size_t>(WriteCsvTime(minutes, text.data()) - text.data()));
      room.made[field] = minutes;
    }
    fields[field] = text;
  };
  const RowTexts texts = list.Texts(row);
  for (const CsvField text : {kCsvTitle, kCsvPlace, kCsvMemo}) {
    const std::string_view from = text == kCsvTitle   ? texts.Title
                                  : text == kCsvPlace ? texts.Place
                                                      : texts.Memo;
    if (from.empty() || std::memchr(from.data(), '\r', from.size()) == nullptr) {
      fields[text] = from;
    } else {
      std::string& stripped = room.texts[text];
      stripped.resize(from.size());
      const char* end = std::remove_copy(from.begin(), from.end(), stripped.data(), '\r');
      fields[text] = {stripped.data(), end};
    }
  }
  fields[kCsvPrivate] = Flag(row.Private != 0);
  fields[kCsvAlarmOn] = Flag(row.AlarmLead != 0);
  fields[kCsvAlarmDate] = {};
  fields[kCsvAlarmTime] = {};
  CivilDate first = StartOf(row);
  CivilDate last = first;
  if (row.StartTime == -1) {
    time(kCsvStartTime, 0);
    fields[kCsvEndTime] = fields[kCsvStartTime];
    if (multiDay) {
      fields[kCsvAllDay] = "0";
      std::tie(first, last) = groupRange();
    } else if (first == CivilDate{kLastYear, 12, 31}) {
      // No next day to end on: the day ends at its last minute.
      fields[kCsvAllDay] = "0";
      time(kCsvEndTime, kLastMinute);
    } else {
      fields[kCsvAllDay] = "1";
      last = AddDays(first, 1);
    }
  } else {
    fields[kCsvAllDay] = "0";
    if (span) std::tie(first, last) = groupRange();
    time(kCsvStartTime, row.StartTime);
    time(kCsvEndTime, std::max<int>(row.EndTime, 0));
    if (row.AlarmLead != 0) {
      const AlarmMoment alarm =
          AlarmDateCodeOfStart(row.Year, row.Month, row.Day, row.StartTime, row.AlarmLead);
      date(kCsvAlarmDate, DateOfCode(alarm.dateCode));
      time(kCsvAlarmTime, alarm.minute);
    }
  }
  date(kCsvStartDate, first);
  date(kCsvEndDate, last);
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

std::vector<std::int16_t> WrittenFields(const std::vector<std::int16_t>& map) {
  std::vector<std::int16_t> written;
  std::array<bool, kCsvFieldCount> taken{};
  const int last = LastColumn(map);
  for (int i = 0; i <= last; ++i) {
    const std::int16_t field = map[static_cast<std::size_t>(i)];
    const bool first = field >= 0 && !taken[static_cast<std::size_t>(field)];
    if (first) taken[static_cast<std::size_t>(field)] = true;
    written.push_back(first ? field : std::int16_t{-1});
  }
  return written;
}

void WriteCsvRow(std::string& out, const CsvRowFields& row,
                 const std::vector<std::int16_t>& written, CodePage page) {
  // The line is written into room made for its longest form: an item takes no more bytes in
  // the code page than in UTF-8, and every column adds two quotes and a comma, the last one a
  // line end of two bytes instead.
  std::size_t most = 1;
  for (const std::int16_t field : written) {
    most += 3 + (field >= 0 ? row[static_cast<std::size_t>(field)].size() : 0);
  }
  const std::size_t start = out.size();
  out.resize(start + most);
  char* to = out.data() + start;
  const auto put = [&to](std::string_view bytes) {
    for (const char c : bytes) *to++ = c;  // a date, a time or a flag: a few bytes
  };
  for (std::size_t i = 0; i < written.size(); ++i) {
    const int field = written[i];
    *to++ = '"';
    if (field >= 0) {
      const std::string_view item = row[static_cast<std::size_t>(field)];
      // Only the texts of the item can hold more than ASCII: the names, dates and flags are
      // the program's own. A text is copied as it stands, and converted when it is not ASCII.
      if (field == kCsvTitle || field == kCsvPlace || field == kCsvMemo) {
        if (!CopyAscii(item, to)) to = WriteCodePage(item, page, to);
      } else {
        put(item);
      }
    }
    *to++ = '"';
    if (i + 1 == written.size()) {
      put("\r\n");
    } else {
      *to++ = ',';
    }
  }
  out.resize(static_cast<std::size_t>(to - out.data()));
}

bool ExportCsvFile(const ScheduleDocument& doc, CsvSettings settings, ProgressDisplay& progress,
                   FileSink& sink) {
  EnsureDefaultCsvColumns(settings.CsvColumns);
  const std::vector<std::int16_t> map = BuildCsvColumnMap(settings.CsvColumns);
  const std::vector<std::int16_t> written = WrittenFields(map);
  const SchDatCTL& t = doc.Tables;
  std::string text;
  text.reserve(2 * kPieceSize);
  if (settings.CsvFirstRowIsHeader) {
    CsvRowFields names;
    for (std::size_t i = 0; i < map.size(); ++i) {
      if (map[i] >= 0) names[static_cast<std::size_t>(map[i])] = settings.CsvColumns[i];
    }
    WriteCsvRow(text, names, written, doc.FileCodePage);
  }
  SpanGroups spans(t.SchDatList);
  CsvRowRoom room;
  CsvRowFields fields;
  for (int i = 0; i < t.YearCount; ++i) {
    progress.SetValue(i * 100 / t.YearCount);
    for (const int monthRow : MonthChain(t.AncMM, t.AncYY.At(i).FirstMonth)) {
      for (const int head : t.AncMM.At(monthRow).DayHead) {
        for (const int r : DayChain(t.SchDatList, head)) {
          const SchDatRow& row = t.SchDatList.At(r);
          if (row.Deleted == kDeleted) continue;
          if (BuildCsvRow(t.SchDatList, r, spans, room, fields)) {
            WriteCsvRow(text, fields, written, doc.FileCodePage);
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
