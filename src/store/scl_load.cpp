#include <algorithm>
#include <numeric>

#include "core/calendar.h"
#include "core/codepage.h"
#include "store/schedule_store.h"

namespace sched {

// Reads a schedule file held in memory into the tables. A file is a tree of offsets; the
// loader follows them, and gives up with SclFormatError at anything a well-formed file cannot
// hold: an offset outside the file, a byte read for two parts (a loop, a shared chain, or parts
// laid over each other), text running past the end, a month, day or time out of range. Each
// byte being read for one part only bounds the work, the rows and their text by the size of
// the file.
class SclLoader {
 public:
  SclLoader(ScheduleStore& store, const std::vector<std::uint8_t>& bytes)
      : store_(store),
        doc_(store.doc_),
        t_(store.doc_.Tables),
        in_(bytes),
        claimed_(bytes.size(), 0) {}

  void Run() {
    Claim(0, kHeaderSize);
    doc_.Header = ReadHeader(in_);
    std::vector<std::int32_t> years;
    for (std::int32_t at = doc_.Header.FirstYear; at != -1;) {
      Enter(at, kYearSize);
      years.push_back(at);
      at = ReadYear(in_).Next;
    }
    for (int i = 0; i < 7; ++i) {
      doc_.WeekHoliday[static_cast<std::size_t>(i)] = (doc_.Header.WeekHolidayMask >> i) & 1;
    }
    for (std::size_t i = 0; i < years.size(); ++i) {
      in_.Seek(years[i]);
      LoadYear(ReadYear(in_));
      ++t_.YearCount;
      store_.svc_.progress.SetValue(static_cast<int>((i + 1) * 100 / years.size()));
    }
  }

 private:
  // Marks the bytes of a part as read. A byte read for a second part means a loop, a shared
  // chain or parts laid over each other; without this, records laid over each other could
  // each hold a long text made of the same bytes.
  void Claim(std::int64_t offset, std::int64_t size) {
    if (offset < 0 || offset + size > in_.Size()) throw SclFormatError("offset outside the file");
    const auto first = claimed_.begin() + offset;
    const auto last = first + size;
    if (std::find(first, last, 1) != last) throw SclFormatError("a byte is read for two parts");
    std::fill(first, last, 1);
  }

  void Enter(std::int32_t offset, std::int32_t size) {
    Claim(offset, size);
    in_.Seek(offset);
  }

  // Claims the next `count` bytes of a record's variable part, unless they were claimed by an
  // earlier reading of the same record.
  void ClaimNext(std::int64_t count) {
    if (claimVarPart_) Claim(in_.Position(), count);
  }

  void LoadYear(const SclYear& year) {
    if (year.Year < kFirstYear || year.Year > kLastYear) throw SclFormatError("year out of range");
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
        Enter(at, kMonthSize);
        const SclMonth month = ReadMonth(in_);
        LoadMonth(firstRow, index, month, year.Year);
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

  struct MultiDayRecord {
    SchRecord fixed;
    std::int64_t varPos;
    bool varPartClaimed = false;  // the variable part is read again for each day
  };

  void LoadMonth(int firstRow, int index, const SclMonth& month, int year) {
    if (month.Month < 1 || month.Month > 12) throw SclFormatError("month out of range");
    AncMMRow row;
    row.Month = month.Month;
    row.NextMonth = month.Next == -1 ? -1 : firstRow + index + 1;

    std::vector<MultiDayRecord> multiDay;
    for (std::int32_t at = month.MultiDayHead; at != -1;) {
      MultiDayRecord rec{{}, static_cast<std::int64_t>(at) + kRecordFixedSize, false};
      ReadFixedAt(at, rec.fixed);
      at = rec.fixed.Next;
      multiDay.push_back(rec);
    }

    const int daysInMonth = DaysInMonth(year, month.Month);
    for (int d = 0; d < 31; ++d) {
      const std::int32_t head = month.DayHead[static_cast<std::size_t>(d)];
      if (head != -1 && d >= daysInMonth) throw SclFormatError("day out of range");
      if (head == -1 && multiDay.empty()) continue;  // the row's head stays -1

      auto& list = t_.SchDatList;
      const int first = list.Rows() - (list.IsEmpty() && t_.RowCount == 0 ? 1 : 0);
      int added = 0;
      for (std::int32_t at = head; at != -1;) {
        SchRecord fixed;
        ReadFixedAt(at, fixed);
        at = fixed.Next;
        // A repeat occurrence is dated by the day through which it is reached.
        if (fixed.RepeatKind != 0 && fixed.RepeatKind != kMultiDayKind) {
          fixed.Day = static_cast<std::uint8_t>(d + 1);
          fixed.Month = static_cast<std::uint8_t>(month.Month);
          fixed.Year = static_cast<std::uint16_t>(year);
        }
        if (LoadRecord(fixed)) ++added;
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
        in_.Seek(rec.varPos);
        claimVarPart_ = !rec.varPartClaimed;
        rec.varPartClaimed = true;
        const bool loaded = LoadRecord(fixed);
        claimVarPart_ = true;
        if (loaded) ++added;
      }
      if (added > 0) row.DayHead[static_cast<std::size_t>(d)] = SortDayChain(t_, first, added);
    }
    if (t_.MonthCount == 0) {
      t_.AncMM.PutFirst(row);
    } else {
      t_.AncMM.Append(row);
    }
  }

  void ReadFixedAt(std::int32_t offset, SchRecord& fixed) {
    Enter(offset, kRecordFixedSize);
    ReadRecordFixed(in_, fixed);
    ++doc_.LoadedRecords;
  }

  std::string ReadText() {
    ClaimNext(2);
    const std::uint16_t length = in_.U16();
    if (length == 0) return {};
    ClaimNext(length);
    return TabToBlank(LfToCrLf(Cp1252ToUtf8(in_.Bytes(length))));
  }

  static void CheckRecord(const SchRecord& f) {
    if (!IsValidDate(f.Year, f.Month, f.Day) || !IsValidDate(f.EndYear, f.EndMonth, f.EndDay)) {
      throw SclFormatError("date out of range");
    }
    const auto timeOk = [](std::int16_t minutes) { return minutes >= -1 && minutes < 1440; };
    if (!timeOk(f.StartTime) || !timeOk(f.EndTime)) throw SclFormatError("time out of range");
  }

  // Adds the record's row unless it is a private record of the device above the user's level;
  // the file position is at the record's variable part.
  bool LoadRecord(const SchRecord& f) {
    CheckRecord(f);
    // The fixed part fills the row as a working record would; the texts follow from the file.
    SchDatRow row = BuildRecordLine(f);
    const bool dropped = f.Private != 0 && doc_.ScheduleOnPc == 0 && f.Private < doc_.PrivateLevel;
    row.Title = ReadText();
    row.Place = ReadText();
    row.Memo = ReadText();
    ClaimNext(2);
    row.AlarmOn = in_.I16();
    if (row.AlarmOn == 1) {
      ClaimNext(static_cast<std::int64_t>(kAlarmSoundBytes) + 2);
      std::string sound = Cp1252ToUtf8(in_.Bytes(kAlarmSoundBytes));
      row.AlarmSound = sound.substr(0, sound.find('\0'));
      row.AlarmLead = in_.I16();
    }
    if (dropped) return false;
    auto& list = t_.SchDatList;
    const int at = list.Put(std::move(row));
    ++t_.RowCount;
    if (store_.AlarmDueToday(list.At(at))) store_.svc_.alarms.AddAlarmOfRecord(at);
    return true;
  }

  ScheduleStore& store_;
  ScheduleDocument& doc_;
  SchDatCTL& t_;
  ByteReader in_;
  std::vector<std::uint8_t> claimed_;  // 1 for each byte read for a part
  bool claimVarPart_ = true;
};

int SortDayChain(SchDatCTL& ctl, int first, int count) {
  auto& list = ctl.SchDatList;
  std::vector<int> order(static_cast<std::size_t>(count));
  std::iota(order.begin(), order.end(), first);
  std::stable_sort(order.begin(), order.end(),
                   [&](int a, int b) { return list.At(a).StartTime < list.At(b).StartTime; });
  for (std::size_t i = 0; i < order.size(); ++i) {
    list.At(order[i]).Next = i + 1 < order.size() ? order[i + 1] : -1;
  }
  return order.front();
}

void CheckSeries(SchDatCTL& ctl) {
  if (ctl.RowCount <= 0) return;
  auto& list = ctl.SchDatList;
  ctl.Series.Sync(list, [](const SchDatRow& row) { return row.Series(); });
  for (int i = 0; i < list.Rows(); ++i) {
    SchDatRow& row = list.At(i);
    if (row.RepeatKind == 0 || row.Deleted != kLive) {
      if (row.Deleted == kSeriesMark) row.Deleted = kLive;
      continue;
    }
    bool found = false;
    for (int j : ctl.Series.RowsOf(row.Series())) {
      SchDatRow& other = list.At(j);
      if (j > i && other.Deleted == kLive && other.RepeatKind != 0) {
        other.Deleted = kSeriesMark;
        found = true;
      }
    }
    // A series of one is a plain item.
    if (!found) row.RepeatKind = 0;
  }
}

std::string FormatLocation(const std::string& path, int onPc) {
  const std::size_t slash = path.find_last_of("/\\");
  const std::string name = slash == std::string::npos ? path : path.substr(slash + 1);
  return (onPc == 1 ? "PC:" : "Tarvex:") + name;
}

void ScheduleStore::ClearIndex() {
  ClearTables(doc_.Tables);
}

void ScheduleStore::ResetHeader() {
  doc_.Header = SclHeader{};
  doc_.WeekHoliday = {1, 0, 0, 0, 0, 0, 0};
  svc_.alarms.ClearTodayAlarms();
  doc_.Tables.YearCount = 0;
  doc_.Tables.MonthCount = 0;
  doc_.Tables.RowCount = 0;
  doc_.Dirty = false;
  doc_.ShownYearMasks = doc_.PrevYearMasks = doc_.NextYearMasks = YearMasks{};
}

bool ScheduleStore::LoadScheduleBytes(const std::vector<std::uint8_t>& bytes) {
  ClearIndex();
  ResetHeader();
  doc_.LoadedRecords = 0;
  try {
    SclLoader(*this, bytes).Run();
  } catch (const SclFormatError&) {
    ClearIndex();
    ResetHeader();
    return false;
  }
  CheckSeries(doc_.Tables);
  return true;
}

bool ScheduleStore::LoadScheduleFile(const std::string& path) {
  const auto bytes = ReadWholeFile(path);
  if (!bytes) {
    ClearIndex();
    ResetHeader();
    return false;
  }
  return LoadScheduleBytes(*bytes);
}

}  // namespace sched
