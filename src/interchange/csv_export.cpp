#include "interchange/csv_export.h"

#include <algorithm>
#include <array>
#include <bit>
#include <condition_variable>
#include <cstring>
#include <exception>
#include <mutex>
#include <optional>
#include <system_error>
#include <thread>

#include "appointments/repeat_rule.h"
#include "core/byte_lanes.h"
#include "core/key_table.h"
#include "core/radix_sort.h"
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

bool Hand(FileSink& sink, CsvLines& lines) {
  const bool taken = sink.Append(lines.Bytes());
  lines.Clear();
  return taken;
}

// The lanes of a word of text that hold a byte from 0x80 up or a CR, which are more than
// copied; the lowest one marked is the first such byte.
std::uint64_t Special(std::uint64_t word) {
  return High(word) | Matches(word, '\r');
}

// Writes a text of the item at `to` as the file takes it, without CRs and in the code page, and
// gives the end. Plain text is copied eight bytes at a time: a word with a CR or a character
// beyond ASCII is copied up to it, and the text goes on behind it.
char* WriteCsvText(std::string_view text, CodePage page, char* to) {
  constexpr std::size_t kWord = sizeof(std::uint64_t);
  // The byte at `pos`, a CR or the first of a character beyond ASCII.
  const auto special = [&](std::size_t& pos) {
    if (text[pos] == '\r') {
      ++pos;
    } else {
      to = WriteCodePageCharacter(text, pos, page, to);
    }
  };
  std::size_t pos = 0;
  while (pos + kWord <= text.size()) {
    const std::uint64_t word = WordAt(text.data() + pos);
    // Written whole: the bytes behind the first special one are written over after it. The
    // text takes no more room than it has bytes, so the word fits.
    std::memcpy(to, &word, kWord);
    const std::uint64_t marks = Special(word);
    if (marks == 0) {
      to += kWord;
      pos += kWord;
      continue;
    }
    const auto plain = static_cast<std::size_t>(std::countr_zero(marks)) / kWord;
    to += plain;
    pos += plain;
    special(pos);
  }
  if (pos == text.size()) return to;
  if (text.size() >= kWord) {
    // The last word ends with the text, over bytes written already.
    const std::size_t last = text.size() - kWord;
    const std::uint64_t word = WordAt(text.data() + last);
    if (Special(word) == 0) {
      std::memcpy(to - (pos - last), &word, kWord);
      return to + (text.size() - pos);
    }
  }
  while (pos < text.size()) {
    if (static_cast<unsigned char>(text[pos]) < 0x80 && text[pos] != '\r') {
      *to++ = text[pos++];
    } else {
      special(pos);
    }
  }
  return to;
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
  // The rows of spans are marked first, with a group of 0, and given their group after.
  std::vector<std::uint64_t> spans;
  for (int at = 0; at < list.Rows(); ++at) {
    const SchDatRow& row = list.At(at);
    if (!row.IsLive() || !IsSpan(row.RepeatKind)) continue;
    spans.push_back(row.Series().Packed());
    groupOfRow_[static_cast<std::size_t>(at)] = 0;
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
    std::int32_t& groupOfRow = groupOfRow_[static_cast<std::size_t>(at)];
    if (groupOfRow == -1) continue;
    groupOfRow = group;
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
  const int group = spans.Of(at);
  const bool span = group != -1;
  if (span && !spans.TakeWrite(group, row)) return false;
  const auto groupRange = [&] {
    const SeriesRange& range = spans.Range(group);
    return range.found ? std::pair{DateOfCode(range.firstCode), DateOfCode(range.lastCode)}
                       : std::pair{StartOf(row), StartOf(row)};
  };
  // A date made in the field's room, unless the room holds it already.
  const auto date = [&](CsvField field, const CivilDate& value) {
    char* const text = room.dates[field].data();
    if (const std::int32_t code = DateCode(value.year, value.month, value.day);
        room.made[field] != code) {
      WriteCsvDate(value, text);
      room.made[field] = code;
    }
    fields[field] = {text, kCsvDateLength};
  };
  const auto time = [&](CsvField field, int minutes) { fields[field] = CsvTimeText(minutes); };
  const RowTexts texts = list.Texts(row);
  fields[kCsvTitle] = texts.Title;
  fields[kCsvPlace] = texts.Place;
  fields[kCsvMemo] = texts.Memo;
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
  // A date, a time, a flag or a name: a few bytes, copied in two pieces that may overlap.
  const auto put = [&to](std::string_view item) {
    const char* from = item.data();
    const std::size_t size = item.size();
    const auto pair = [&](auto piece) {
      std::memcpy(&piece, from, sizeof piece);
      std::memcpy(to, &piece, sizeof piece);
      std::memcpy(&piece, from + size - sizeof piece, sizeof piece);
      std::memcpy(to + size - sizeof piece, &piece, sizeof piece);
    };
    if (size >= 8 && size <= 16) {
      pair(std::uint64_t{});
    } else if (size >= 4 && size < 8) {
      pair(std::uint32_t{});
    } else {
      std::copy(from, from + size, to);
    }
    to += size;
  };
  // Only the texts of the item can hold more than ASCII or a CR: the names, dates and flags
  // are the program's own.
  constexpr unsigned kTexts = 1u << kCsvTitle | 1u << kCsvPlace | 1u << kCsvMemo;
  if (written.empty()) return to;
  *to++ = '"';
  for (const int field : written) {
    if (field >= 0) {
      const std::string_view item = row[static_cast<std::size_t>(field)];
      if ((kTexts >> field & 1u) != 0) {
        to = WriteCsvText(item, page, to);
      } else {
        put(item);
      }
    }
    std::memcpy(to, "\",\"", 3);
    to += 3;
  }
  // The line ends in a quote and CR LF instead of the next item's comma and quote.
  std::memcpy(to - 2, "\r\n", 2);
  return to;
}

}  // namespace

void CsvLines::Grow(std::size_t most) {
  capacity_ = std::max(2 * capacity_, size_ + most);
  auto bytes = std::make_unique_for_overwrite<char[]>(capacity_);
  if (size_ != 0) std::memcpy(bytes.get(), bytes_.get(), size_);
  bytes_ = std::move(bytes);
}

void WriteCsvRow(CsvLines& out, const CsvRowFields& row, const std::vector<std::int16_t>& written,
                 CodePage page) {
  // The line is written into room made for its longest form: an item takes no more bytes in
  // the code page than in UTF-8, a field is written once at most, and every column adds two
  // quotes and a comma, the last one a line end of two bytes instead.
  std::size_t most = 1 + 3 * written.size();
  for (const std::string_view item : row) most += item.size();
  out.End(WriteCsvLine(out.Room(most), row, written, page));
}

namespace {

// Years are turned into text in runs of about this many rows, which two threads take.
constexpr std::size_t kRunRows = std::size_t{1} << 13;
// Room made at once for the text of a run, so that it is not moved as it grows: more than twice
// what the rows of a run take with texts of common length.
constexpr std::size_t kRunRoom = kRunRows * 256;

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
                const std::vector<std::int16_t>& written, CsvLines& text) {
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

// Runs made ahead of the file at most: each has a room of its own until it is written. Three
// keep two threads busy while one of them writes, and few rooms are few pages to fill.
constexpr std::size_t kRooms = 3;

// The runs of an export, taken in order by whichever thread is free and written to the file in
// order: a run's text goes to the file once the runs before it have, by the thread that finds
// it ready. A thread that would wait for its turn takes the next run instead.
class RunQueue {
 public:
  RunQueue(std::size_t runs, FileSink& sink) : runs_(runs), sink_(sink) {}

  // The next run to make, once its room is free; nothing when every run is taken or the export
  // has stopped.
  std::optional<std::size_t> Take() {
    std::unique_lock lock(mutex_);
    if (stopped_ || taken_ == runs_) return std::nullopt;
    const std::size_t run = taken_++;
    changed_.wait(lock, [&] { return stopped_ || run < written_ + kRooms; });
    if (stopped_) return std::nullopt;
    return run;
  }
  // The room for the text of `run`.
  CsvLines& Room(std::size_t run) { return rooms_[run % kRooms]; }
  // The text of `run` is made: it is written with every made run behind it whose turn has come,
  // here or by the thread that is writing already.
  void Made(std::size_t run) {
    std::unique_lock lock(mutex_);
    made_[run % kRooms] = true;
    if (writing_) return;
    writing_ = true;
    while (!stopped_ && written_ < runs_ && made_[written_ % kRooms]) {
      const std::size_t next = written_;
      lock.unlock();
      const bool taken = Hand(sink_, Room(next));
      lock.lock();
      made_[next % kRooms] = false;
      if (taken) {
        ++written_;
      } else {
        stopped_ = true;
      }
      changed_.notify_all();
    }
    writing_ = false;
  }
  void Stop() {
    {
      const std::lock_guard lock(mutex_);
      stopped_ = true;
    }
    changed_.notify_all();
  }
  bool Stopped() {
    const std::lock_guard lock(mutex_);
    return stopped_;
  }
  // The runs written so far.
  std::size_t Written() {
    const std::lock_guard lock(mutex_);
    return written_;
  }

 private:
  std::mutex mutex_;
  std::condition_variable changed_;
  const std::size_t runs_;
  std::size_t taken_ = 0;
  std::size_t written_ = 0;
  std::array<bool, kRooms> made_{};  // of the run that holds each room
  bool writing_ = false;
  bool stopped_ = false;
  std::array<CsvLines, kRooms> rooms_;
  FileSink& sink_;
};

}  // namespace

bool ExportCsvFile(const ScheduleDocument& doc, CsvSettings settings, ProgressDisplay& progress,
                   FileSink& sink) {
  EnsureDefaultCsvColumns(settings.CsvColumns);
  const std::vector<std::int16_t> map = BuildCsvColumnMap(settings.CsvColumns);
  const std::vector<std::int16_t> written = WrittenFields(map);
  const SchDatCTL& t = doc.Tables;
  SpanGroups spans(t);
  const std::vector<std::pair<int, int>> runs = YearRuns(t, spans);
  RunQueue queue(runs.size(), sink);
  // The header goes at the head of the first run's text, or alone.
  CsvLines header;
  CsvLines& head = runs.empty() ? header : queue.Room(0);
  if (settings.CsvFirstRowIsHeader) {
    CsvRowFields names;
    for (std::size_t i = 0; i < map.size(); ++i) {
      if (map[i] >= 0) names[static_cast<std::size_t>(map[i])] = settings.CsvColumns[i];
    }
    WriteCsvRow(head, names, written, doc.FileCodePage);
  }
  // Two threads take the runs. Each item over several days is written by the run of its first
  // year only, so runs need nothing of each other. The bar is moved by this thread alone, over
  // the years written.
  int yearsShown = 0;
  const auto show = [&](int years) {
    for (; yearsShown < years; ++yearsShown) progress.SetValue(yearsShown * 100 / t.YearCount);
  };
  const auto work = [&](bool shows) {
    while (const std::optional<std::size_t> run = queue.Take()) {
      CsvLines& lines = queue.Room(*run);
      lines.Room(kRunRoom);
      WriteYears(doc, runs[*run], spans, written, lines);
      queue.Made(*run);
      if (const std::size_t done = queue.Written(); shows && done != 0) {
        show(runs[done - 1].second);
      }
    }
  };
  std::exception_ptr failure;
  std::thread helper;
  if (runs.size() > 1) {
    try {
      helper = std::thread([&] {
        try {
          work(false);
        } catch (...) {
          failure = std::current_exception();
          queue.Stop();
        }
      });
    } catch (const std::system_error&) {
      // No second thread to be had: this one takes every run.
    }
  }
  try {
    work(true);
  } catch (...) {
    queue.Stop();
    if (helper.joinable()) helper.join();
    throw;
  }
  if (helper.joinable()) helper.join();
  if (failure) std::rethrow_exception(failure);
  if (queue.Stopped()) return false;
  show(t.YearCount);
  progress.SetValue(100);
  return Hand(sink, header);
}

bool ExportCsvFile(const ScheduleDocument& doc, const CsvSettings& settings,
                   ProgressDisplay& progress, const std::string& path) {
  return WriteFileSafely(
      path, [&](FileSink& sink) { return ExportCsvFile(doc, settings, progress, sink); });
}

}  // namespace sched
