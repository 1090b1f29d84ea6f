#include <algorithm>
#include <cstdint>
#include <cstring>
#include <optional>
#include <span>
#include <string>
#include <string_view>
#include <vector>

#include "core/byte_lanes.h"
#include "core/calendar.h"
#include "core/codepage.h"
#include "store/row_order.h"
#include "store/schedule_store.h"
#include "store/series_check.h"
#include "store/spent_pages.h"

namespace sched {
namespace {

// One bit for each byte of a file, set once the byte is read for a part.
class ClaimedBytes {
 public:
  explicit ClaimedBytes(std::size_t size) : words_((size + 63) / 64) {}

  // Sets the bits of bytes [first, last); false, setting none, when one of them is set.
  bool Claim(std::size_t first, std::size_t last) {
    if (first >= last) return true;
    const std::size_t firstWord = first / 64;
    const std::size_t lastWord = (last - 1) / 64;
    for (std::size_t w = firstWord; w <= lastWord; ++w) {
      if ((words_[w] & Mask(w, first, last)) != 0) return false;
    }
    for (std::size_t w = firstWord; w <= lastWord; ++w) words_[w] |= Mask(w, first, last);
    return true;
  }

 private:
  // The bits of word `w` that bytes [first, last) cover.
  static std::uint64_t Mask(std::size_t w, std::size_t first, std::size_t last) {
    const std::size_t low = w == first / 64 ? first % 64 : 0;
    const std::size_t high = w == (last - 1) / 64 ? (last - 1) % 64 : 63;
    return (~std::uint64_t{0} >> (63 - high)) & (~std::uint64_t{0} << low);
  }

  std::vector<std::uint64_t> words_;
};

// Whether the file's text is the same in the tables: ASCII without a tab or a line break.
// Eight bytes are looked at a time, as most texts are plain.
bool IsPlainText(std::string_view bytes) {
  std::size_t i = 0;
  for (; i + 8 <= bytes.size(); i += 8) {
    const std::uint64_t word = WordAt(bytes.data() + i);
    if ((High(word) | Matches(word, '\t') | Matches(word, '\r') | Matches(word, '\n')) != 0) {
      return false;
    }
  }
  return std::none_of(bytes.begin() + static_cast<std::ptrdiff_t>(i), bytes.end(), [](char c) {
    return (c & 0x80) != 0 || c == '\t' || c == '\r' || c == '\n';
  });
}

// A text of the file as the tables hold it: UTF-8, every line break CR LF, each tab a blank.
// Text that needs no change is given as it stands in the file; else it is made in `scratch`,
// in one pass. Tabs and line breaks are never part of a double-byte character, so the text
// between them converts on its own.
std::string_view TableText(std::string_view bytes, CodePage page, std::string& scratch) {
  if (IsPlainText(bytes)) return bytes;
  scratch.clear();
  std::size_t run = 0;  // the start of the text not yet converted
  for (std::size_t i = 0; i < bytes.size(); ++i) {
    const char c = bytes[i];
    if (c != '\t' && c != '\r' && c != '\n') continue;
    AppendToUtf8(scratch, bytes.substr(run, i - run), page);
    if (c == '\t') {
      scratch += ' ';
    } else {
      // A CR, an LF or a CR LF.
      scratch += "\r\n";
      if (c == '\r' && i + 1 < bytes.size() && bytes[i + 1] == '\n') ++i;
    }
    run = i + 1;
  }
  if (run < bytes.size()) AppendToUtf8(scratch, bytes.substr(run), page);
  return scratch;
}

// The name of an alarm sound as the tables hold it: UTF-8, every other byte as it stands.
std::string_view SoundName(std::string_view bytes, CodePage page, std::string& scratch) {
  if (IsAscii(bytes)) return bytes;
  scratch = ToUtf8(bytes, page);
  return scratch;
}

// The fewest bytes a record takes in a file: its fixed part, three empty texts, no alarm.
constexpr std::size_t kSmallestRecord = kRecordFixedSize + 8;
// The most rows reserved ahead, so that a large damaged file asks for no great block of memory
// before it is found out.
constexpr std::size_t kMostRowsReserved = 1 << 20;

}  // namespace

// Reads a schedule file held in memory into the tables. A file is a tree of offsets; the
// loader follows them, and gives up with SclFormatError at anything a well-formed file cannot
// hold: a link outside the file, a part cut by the end of the file, a byte read for two parts (a
// loop, a shared chain, or parts laid over each other), a year, month, day, date or time out of
// range. Each byte being read for one part only bounds the work, the rows and their text by the
// size of the file.
class SclLoader {
 public:
  // `owned` is the buffer of `bytes` when the loader may give its pages back as it reads
  // through them, else null.
  SclLoader(ScheduleStore& store, std::span<const std::uint8_t> bytes, std::uint8_t* owned)
      : store_(store),
        doc_(store.doc_),
        t_(store.doc_.Tables),
        bytes_(bytes),
        in_(bytes),
        claimed_(bytes.size()),
        spent_(owned, bytes.size()) {
    // Room for a row of each record the file can hold, so that the rows are placed once; the
    // days of items over several dates may still add more.
    t_.SchDatList.Reserve(std::min(bytes.size() / kSmallestRecord + 1, kMostRowsReserved));
  }

  void Run() {
    Claim(0, kHeaderSize, "header");
    doc_.Header = ReadHeader(in_);
    std::vector<std::pair<std::int32_t, SclYear>> years;
    for (std::int32_t at = doc_.Header.FirstYear; at != -1;) {
      Enter(at, kYearSize, "year");
      years.emplace_back(at, ReadYear(in_));
      at = years.back().second.Next;
    }
    for (int i = 0; i < 7; ++i) {
      doc_.WeekHoliday[static_cast<std::size_t>(i)] = (doc_.Header.WeekHolidayMask >> i) & 1;
    }
    for (std::size_t i = 0; i < years.size(); ++i) {
      LoadYear(years[i].first, years[i].second);
      ++t_.YearCount;
      store_.svc_.progress.SetValue(static_cast<int>((i + 1) * 100 / years.size()));
    }
  }

 private:
  // Marks the bytes of a part as read; `part` names it in the reason of a failure. A byte read
  // for a second part means a loop, a shared chain or parts laid over each other; without
  // this, records laid over each other could each hold a long text made of the same bytes.
  void Claim(std::int64_t offset, std::int64_t size, std::string_view part) {
    if (offset < 0 || offset > in_.Size()) {
      throw SclFormatError(offset, std::string(part) + " outside the file");
    }
    if (offset + size > in_.Size()) {
      throw SclFormatError(offset, std::string(part) + " cut by the end of the file");
    }
    if (!claimed_.Claim(static_cast<std::size_t>(offset),
                        static_cast<std::size_t>(offset + size))) {
      throw SclFormatError(offset, "a byte is read for two parts");
    }
    spent_.Read(static_cast<std::size_t>(offset), static_cast<std::size_t>(offset + size));
  }

  void Enter(std::int32_t offset, std::int32_t size, std::string_view part) {
    Claim(offset, size, part);
    in_.Seek(offset);
  }

  void LoadYear(std::int32_t offset, const SclYear& year) {
    if (year.Year < kFirstYear || year.Year > kLastYear) {
      throw SclFormatError(offset, "year out of range");
    }
    AncYYRow row;
    row.Year = year.Year;
    // As the file's tree has no use in memory, this link only records the table's size.
    row.NextYear = year.Next == -1 ? -1 : t_.AncYY.Rows();
    row.FirstMonth = -1;
    if (year.FirstMonth != -1) {
      const int firstRow = t_.AncMM.IsEmpty() ? 0 : t_.AncMM.Rows();
      row.FirstMonth = firstRow;
      int index = 0;
      for (std::int32_t at = year.FirstMonth; at != -1; ++index) {
        Enter(at, kMonthSize, "month");
        const SclMonth month = ReadMonth(in_);
        LoadMonth(at, firstRow, index, month, year.Year);
        ++t_.MonthCount;
        at = month.Next;
      }
    }
    row.HolidayOn = year.HolidayOn;
    row.HolidayOff = year.HolidayOff;
    if (t_.YearCount == 0) {
      t_.AncYY.PutFirst(row);
    } else {
      t_.AncYY.Append(row);
    }
  }

  // A record's variable part: its texts in the table's text arena and its alarm.
  struct VariablePart {
    TextArena::Handle texts = TextArena::kEmpty;
    std::int16_t alarmOn = 0;
    std::int16_t alarmLead = 0;
  };

  // An item over several dates has one record and one row a day, which share its texts.
  struct MultiDayRecord {
    SchRecord fixed;
    std::int32_t offset;
    std::optional<VariablePart> variable;  // once read
  };

  void LoadMonth(std::int32_t offset, int firstRow, int index, const SclMonth& month, int year) {
    if (month.Month < 1 || month.Month > 12) throw SclFormatError(offset, "month out of range");
    AncMMRow row;
    row.Month = month.Month;
    row.NextMonth = month.Next == -1 ? -1 : firstRow + index + 1;

    std::vector<MultiDayRecord> multiDay;
    for (std::int32_t at = month.MultiDayHead; at != -1;) {
      MultiDayRecord rec{{}, at, std::nullopt};
      ReadFixedAt(at, rec.fixed);
      at = rec.fixed.Next;
      multiDay.push_back(rec);
    }

    const int daysInMonth = DaysInMonth(year, month.Month);
    for (int d = 0; d < 31; ++d) {
      const std::int32_t head = month.DayHead[static_cast<std::size_t>(d)];
      if (head != -1 && d >= daysInMonth) {
        throw SclFormatError(offset + kMonthDayHeadOffset + 4 * d, "day out of range");
      }
      if (head == -1 && multiDay.empty()) continue;  // the row's head stays -1

      auto& list = t_.SchDatList;
      const int first = list.Rows() - (list.IsEmpty() && t_.RowCount == 0 ? 1 : 0);
      int added = 0;
      for (std::int32_t at = head; at != -1;) {
        const std::int32_t recordAt = at;
        SchRecord fixed;
        ReadFixedAt(at, fixed);
        at = fixed.Next;
        // A repeat occurrence is dated by the day through which it is reached.
        if (fixed.RepeatKind != 0 && fixed.RepeatKind != kMultiDayKind) {
          fixed.Day = static_cast<std::uint8_t>(d + 1);
          fixed.Month = static_cast<std::uint8_t>(month.Month);
          fixed.Year = static_cast<std::uint16_t>(year);
        }
        CheckRecord(recordAt, fixed);
        if (AddRow(fixed, ReadVariablePart(fixed))) ++added;
      }
      // An item over several dates has one row on each of its days of this month.
      const std::int32_t dayCode = DateCode(year, month.Month, d + 1);
      for (MultiDayRecord& rec : multiDay) {
        if (d >= daysInMonth) break;
        const SchRecord& f = rec.fixed;
        if (dayCode < DateCode(f.Year, f.Month, f.Day) ||
            dayCode > DateCode(f.EndYear, f.EndMonth, f.EndDay)) {
          continue;
        }
        SchRecord fixed = f;
        fixed.Day = static_cast<std::uint8_t>(d + 1);
        fixed.Month = static_cast<std::uint8_t>(month.Month);
        fixed.Year = static_cast<std::uint16_t>(year);
        CheckRecord(rec.offset, fixed);
        if (!rec.variable) {
          in_.Seek(rec.offset + kRecordFixedSize);
          rec.variable = ReadVariablePart(fixed);
        }
        if (AddRow(fixed, *rec.variable)) ++added;
      }
      if (added > 0) row.DayHead[static_cast<std::size_t>(d)] = SortDayChain(t_, first, added);
    }
    if (t_.MonthCount == 0) {
      t_.AncMM.PutFirst(row);
    } else {
      t_.AncMM.Append(row);
    }
    spent_.Release();
  }

  void ReadFixedAt(std::int32_t offset, SchRecord& fixed) {
    Enter(offset, kRecordFixedSize, "record");
    ReadRecordFixed(in_, fixed);
    ++doc_.LoadedRecords;
  }

  // One of a record's texts as the file holds it, its length first; `part` names it. Its bytes
  // are claimed here unless they were with the whole variable part.
  std::string_view ReadText(std::string_view part, bool claimed) {
    if (!claimed) Claim(in_.Position(), 2, part);
    const std::uint16_t length = in_.U16();
    if (length == 0) return {};
    if (!claimed) Claim(in_.Position(), length, part);
    return in_.Bytes(length);
  }

  // Claims the variable part at the file position at once when it lies whole in the file and
  // none of its bytes was read before, as in every well-formed file. False, claiming nothing,
  // when not: its pieces are then claimed one by one, to find what is wrong with it.
  bool ClaimVariablePart() {
    const std::size_t start = static_cast<std::size_t>(in_.Position());
    std::size_t at = start;
    const auto number = [this, &at]() -> std::optional<std::uint16_t> {
      if (at + 2 > bytes_.size()) return std::nullopt;
      at += 2;
      return static_cast<std::uint16_t>(bytes_[at - 2] | bytes_[at - 1] << 8);
    };
    for (int text = 0; text < 3; ++text) {
      const std::optional<std::uint16_t> length = number();
      if (!length) return false;
      at += *length;
    }
    const std::optional<std::uint16_t> alarmOn = number();
    if (!alarmOn) return false;
    if (*alarmOn == 1) at += kAlarmSoundBytes + 2;
    if (at > bytes_.size() || !claimed_.Claim(start, at)) return false;
    spent_.Read(start, at);
    return true;
  }

  static void CheckRecord(std::int64_t offset, const SchRecord& f) {
    if (!IsValidDate(f.Year, f.Month, f.Day)) {
      throw SclFormatError(offset, "start date out of range");
    }
    if (!IsValidDate(f.EndYear, f.EndMonth, f.EndDay)) {
      throw SclFormatError(offset, "end date out of range");
    }
    const auto timeOk = [](std::int16_t minutes) { return minutes >= -1 && minutes < 1440; };
    if (!timeOk(f.StartTime)) throw SclFormatError(offset, "start time out of range");
    if (!timeOk(f.EndTime)) throw SclFormatError(offset, "end time out of range");
  }

  // Whether the record is a private record of the device above the user's level, which the
  // tables leave out.
  bool Hidden(const SchRecord& f) const {
    return f.Private != 0 && doc_.ScheduleOnPc == 0 && f.Private < doc_.PrivateLevel;
  }

  // Reads the variable part of the record at the file position; its texts go to the arena
  // unless the record is left out.
  VariablePart ReadVariablePart(const SchRecord& f) {
    const bool claimed = ClaimVariablePart();
    const std::string_view title = ReadText("title", claimed);
    const std::string_view place = ReadText("place", claimed);
    const std::string_view memo = ReadText("memo", claimed);
    VariablePart part;
    if (!claimed) Claim(in_.Position(), 2, "alarm flag");
    part.alarmOn = in_.I16();
    std::string_view sound;
    if (part.alarmOn == 1) {
      if (!claimed)
        Claim(in_.Position(), static_cast<std::int64_t>(kAlarmSoundBytes), "alarm sound");
      sound = in_.Bytes(kAlarmSoundBytes);
      sound = sound.substr(0, sound.find('\0'));
      if (!claimed) Claim(in_.Position(), 2, "alarm lead");
      part.alarmLead = in_.I16();
    }
    if (Hidden(f)) return part;
    const CodePage page = doc_.FileCodePage;
    part.texts = t_.SchDatList.AddTexts(
        {TableText(title, page, scratch_[0]), TableText(place, page, scratch_[1]),
         TableText(memo, page, scratch_[2]), SoundName(sound, page, scratch_[3])});
    return part;
  }

  // Adds the row of a record unless the record is left out.
  bool AddRow(const SchRecord& f, const VariablePart& part) {
    if (Hidden(f)) return false;
    SchDatRow row = RecordNumbers(f);
    row.TextHandle = part.texts;
    row.AlarmOn = part.alarmOn;
    row.AlarmLead = part.alarmLead;
    auto& list = t_.SchDatList;
    const int at = list.Put(row);
    ++t_.RowCount;
    if (store_.AlarmDueToday(list.At(at))) store_.svc_.alarms.AddAlarmOfRecord(at);
    return true;
  }

  ScheduleStore& store_;
  ScheduleDocument& doc_;
  SchDatCTL& t_;
  std::span<const std::uint8_t> bytes_;
  ByteReader in_;
  ClaimedBytes claimed_;
  SpentPages spent_;
  std::string scratch_[4];
};

SclLoadResult ScheduleStore::LoadSchedule(std::span<const std::uint8_t> bytes) {
  return LoadBytes(bytes, nullptr);
}

SclLoadResult ScheduleStore::LoadBytes(std::span<const std::uint8_t> bytes, std::uint8_t* owned) {
  ClearIndex();
  ResetHeader();
  doc_.LoadedRecords = 0;
  try {
    SclLoader(*this, bytes, owned).Run();
  } catch (const SclFormatError& error) {
    ClearIndex();
    ResetHeader();
    return {SclLoadError{error.Offset(), error.what()}};
  }
  CheckSeries(doc_.Tables);
  return {};
}

SclLoadResult ScheduleStore::LoadScheduleFile(const std::string& path) {
  std::string why;
  auto bytes = ReadWholeFile(path, &why);
  if (!bytes) {
    ClearIndex();
    ResetHeader();
    return {SclLoadError{-1, why}};
  }
  return LoadFileBytes(std::move(*bytes));
}

SclLoadResult ScheduleStore::LoadFileBytes(FileBytes bytes) {
  // The bytes are the loader's to give back as it goes.
  return LoadBytes(bytes.Span(), bytes.data.get());
}

}  // namespace sched
