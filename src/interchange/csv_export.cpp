#include "interchange/csv_export.h"

#include <algorithm>
#include <condition_variable>
#include <cstring>
#include <exception>
#include <mutex>
#include <system_error>
#include <thread>

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
  std::uint64_t word = 0;
  if (text.size() < sizeof word) {
    for (std::size_t i = 0; i < text.size(); ++i) {
      high |= static_cast<unsigned char>(text[i]);
      to[i] = text[i];
    }
  } else {
    std::size_t i = 0;
    for (; i + sizeof word <= text.size(); i += sizeof word) {
      std::memcpy(&word, text.data() + i, sizeof word);
      std::memcpy(to + i, &word, sizeof word);
      high |= word;
    }
    // The last word ends with the text, over bytes copied already.
    i = text.size() - sizeof word;
    std::memcpy(&word, text.data() + i, sizeof word);
    std::memcpy(to + i, &word, sizeof word);
    high |= word;
  }
  if ((high & kHighBits) != 0) return false;
  to += text.size();
  return true;
}

const char* Flag(bool on) {
  return on ? "1" : "0";
}

}  // namespace

SpanGroups::SpanGroups(const SchDatCTL& tables)
    : groupOfRow_(static_cast<std::size_t>(tables.SchDatList.Rows()), -1) {
  const SchDatTable& list = tables.SchDatList;
  yearIndex_.fill(-1);
  for (int i = 0; i < tables.YearCount; ++i) {
    const int year = tables.AncYY.At(i).Year;
    if (year >= kFirstYear && year <= kLastYear) {
      yearIndex_[static_cast<std::size_t>(year - kFirstYear)] = static_cast<std::int16_t>(i);
    }
  }
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
  firstYear_.assign(table.Size(), tables.YearCount);
  // Other rows of a span's series count too.
  for (int at = 0; at < list.Rows(); ++at) {
    const SchDatRow& row = list.At(at);
    if (!row.IsLive()) continue;
    const int group = table.Find(row.Series().Packed());
    if (group == -1) continue;
    ranges_[static_cast<std::size_t>(group)].Add(row, at);
    if (!IsSpan(row.RepeatKind)) continue;
    groupOfRow_[static_cast<std::size_t>(at)] = group;
    if (const int year = YearIndex(row.Year); year != -1) {
      int& first = firstYear_[static_cast<std::size_t>(group)];
      first = std::min(first, year);
    }
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
    if (!spans.TakeWrite(group, row)) return false;
  }
  const auto groupRange = [&] {
    const SeriesRange& range = spans.Range(group);
    return range.found ? std::pair{DateOfCode(range.firstCode), DateOfCode(range.lastCode)}
                       : std::pair{StartOf(row), StartOf(row)};
  };
  // A date or time made in the field's room, unless the field's room holds it already.
  // A date or time made in the field's room by `write`, unless the room holds it already:
  // `key` tells the value the room was made of.
  const auto make = [&](CsvField field, std::int32_t key, std::size_t length, auto write) {
    std::string& text = room.texts[field];
    if (room.made[field] != key) {
      text.resize(length);
      text.resize(static_cast<std::size_t>(write(text.data()) - text.data()));
      room.made[field] = key;
    }
    fields[field] = text;
  };
  const auto date = [&](CsvField field, const CivilDate& value) {
    make(field, DateCode(value.year, value.month, value.day), kCsvDateLength,
         [&](char* to) { return WriteCsvDate(value, to); });
  };
  const auto time = [&](CsvField field, int minutes) {
    make(field, minutes, kCsvTimeLength, [&](char* to) { return WriteCsvTime(minutes, to); });
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
      const char* end = CopyWithoutReturns(from, stripped.data());
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

namespace {

// Writes the line at `to`, which has room for its longest form, and gives its end.
char* WriteCsvLine(char* to, const CsvRowFields& row, const std::vector<std::int16_t>& written,
                   CodePage page) {
  // A date, a time or a flag: a few bytes, copied in two words that may overlap.
  const auto put = [&to](std::string_view bytes) {
    constexpr std::size_t kWord = 8;
    if (bytes.size() >= kWord && bytes.size() <= 2 * kWord) {
      std::memcpy(to, bytes.data(), kWord);
      std::memcpy(to + bytes.size() - kWord, bytes.data() + bytes.size() - kWord, kWord);
      to += bytes.size();
      return;
    }
    for (const char c : bytes) *to++ = c;
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
  return to;
}

}  // namespace

void WriteCsvRow(std::string& out, const CsvRowFields& row,
                 const std::vector<std::int16_t>& written, CodePage page) {
  // The line is written into room made for its longest form: an item takes no more bytes in
  // the code page than in UTF-8, and every column adds two quotes and a comma, the last one a
  // line end of two bytes instead.
  std::size_t most = 1;
  for (const std::int16_t field : written) {
    most += 3 + (field >= 0 ? row[static_cast<std::size_t>(field)].size() : 0);
  }
  // Most lines are made on the stack and added at once; a longer one in room made at the end.
  constexpr std::size_t kShortLine = 2048;
  if (most <= kShortLine) {
    std::array<char, kShortLine> line;
    out.append(line.data(), WriteCsvLine(line.data(), row, written, page));
    return;
  }
  const std::size_t start = out.size();
  out.resize(start + most);
  char* const end = WriteCsvLine(out.data() + start, row, written, page);
  out.resize(static_cast<std::size_t>(end - out.data()));
}

namespace {

// Years are turned into text in runs of about this many rows, two runs side by side.
constexpr std::size_t kRunRows = std::size_t{1} << 13;

// Runs of the years table's rows [first, end) of some kRunRows rows each, in table order.
std::vector<std::pair<int, int>> YearRuns(const SchDatCTL& t, const SpanGroups& spans) {
  std::vector<std::size_t> rowsOfYear(static_cast<std::size_t>(t.YearCount));
  const SchDatTable& list = t.SchDatList;
  for (int at = 0; !list.IsEmpty() && at < list.Rows(); ++at) {
    const SchDatRow& row = list.At(at);
    const int year = spans.YearIndex(row.Year);
    if (row.IsLive() && year != -1) ++rowsOfYear[static_cast<std::size_t>(year)];
  }
  std::vector<std::pair<int, int>> runs;
  std::size_t rows = 0;
  for (int i = 0; i < t.YearCount; ++i) {
    if (runs.empty() || rows >= kRunRows) {
      runs.emplace_back(i, i);
      rows = 0;
    }
    ++runs.back().second;
    rows += rowsOfYear[static_cast<std::size_t>(i)];
  }
  return runs;
}

// Appends the lines of the rows of the years table's rows [first, end).
void WriteYears(const ScheduleDocument& doc, std::pair<int, int> years, SpanGroups& spans,
                const std::vector<std::int16_t>& written, std::string& text) {
  const SchDatCTL& t = doc.Tables;
  CsvRowRoom room;
  CsvRowFields fields;
  for (int i = years.first; i < years.second; ++i) {
    for (const int monthRow : MonthChain(t.AncMM, t.AncYY.At(i).FirstMonth)) {
      for (const int head : t.AncMM.At(monthRow).DayHead) {
        for (const int r : DayChain(t.SchDatList, head)) {
          if (t.SchDatList.At(r).Deleted == kDeleted) continue;
          if (BuildCsvRow(t.SchDatList, r, spans, room, fields)) {
            WriteCsvRow(text, fields, written, doc.FileCodePage);
          }
        }
      }
    }
  }
}

}  // namespace

namespace {

// The turns of the runs at the file: a run's text goes to the file once the runs before it have.
class RunTurns {
 public:
  // Waits until run `run` may be written; false once a write has failed or a thread gave up.
  bool Await(std::size_t run) {
    std::unique_lock lock(mutex_);
    changed_.wait(lock, [&] { return next_ == run || stopped_; });
    return !stopped_;
  }
  // The run whose turn it was is written, or could not be.
  void Written(bool taken) {
    {
      const std::lock_guard lock(mutex_);
      if (taken) {
        ++next_;
      } else {
        stopped_ = true;
      }
    }
    changed_.notify_all();
  }
  void Stop() { Written(false); }
  bool Stopped() {
    const std::lock_guard lock(mutex_);
    return stopped_;
  }

 private:
  std::mutex mutex_;
  std::condition_variable changed_;
  std::size_t next_ = 0;
  bool stopped_ = false;
};

}  // namespace

bool ExportCsvFile(const ScheduleDocument& doc, CsvSettings settings, ProgressDisplay& progress,
                   FileSink& sink) {
  EnsureDefaultCsvColumns(settings.CsvColumns);
  const std::vector<std::int16_t> map = BuildCsvColumnMap(settings.CsvColumns);
  const std::vector<std::int16_t> written = WrittenFields(map);
  const SchDatCTL& t = doc.Tables;
  std::string text;
  if (settings.CsvFirstRowIsHeader) {
    CsvRowFields names;
    for (std::size_t i = 0; i < map.size(); ++i) {
      if (map[i] >= 0) names[static_cast<std::size_t>(map[i])] = settings.CsvColumns[i];
    }
    WriteCsvRow(text, names, written, doc.FileCodePage);
  }
  SpanGroups spans(t);
  const std::vector<std::pair<int, int>> runs = YearRuns(t, spans);
  // Two threads take the runs in turn: each makes the text of its run and writes it once the
  // run before is written, while the other makes its next. Each item over several days is
  // written by the run of its first year only, so runs need nothing of each other. The bar is
  // moved by this thread alone, over the years written.
  RunTurns turns;
  int yearsShown = 0;
  const auto show = [&](int years) {
    for (; yearsShown < years; ++yearsShown) progress.SetValue(yearsShown * 100 / t.YearCount);
  };
  const auto work = [&](std::size_t first, std::size_t step, std::string& lines, bool shows) {
    for (std::size_t r = first; r < runs.size(); r += step) {
      WriteYears(doc, runs[r], spans, written, lines);
      if (!turns.Await(r)) return;
      if (shows) show(runs[r].second);
      turns.Written(Hand(sink, lines));
    }
  };
  std::string other;
  std::exception_ptr failure;
  std::thread helper;
  std::size_t step = 1;
  if (runs.size() > 1) {
    try {
      helper = std::thread([&] {
        try {
          work(1, 2, other, false);
        } catch (...) {
          failure = std::current_exception();
          turns.Stop();
        }
      });
      step = 2;
    } catch (const std::system_error&) {
      // No second thread to be had: this one takes every run.
    }
  }
  try {
    work(0, step, text, true);
  } catch (...) {
    turns.Stop();
    if (helper.joinable()) helper.join();
    throw;
  }
  if (helper.joinable()) helper.join();
  if (failure) std::rethrow_exception(failure);
  if (turns.Stopped()) return false;
  show(t.YearCount);
  progress.SetValue(100);
  return Hand(sink, text);
}

bool ExportCsvFile(const ScheduleDocument& doc, const CsvSettings& settings,
                   ProgressDisplay& progress, const std::string& path) {
  return WriteFileSafely(
      path, [&](FileSink& sink) { return ExportCsvFile(doc, settings, progress, sink); });
}

}  // namespace sched
