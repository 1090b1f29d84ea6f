#include <algorithm>
#include <cstring>

#include "core/codepage.h"
#include "core/key_table.h"
#include "core/radix_sort.h"
#include "platform/std/safe_file.h"
#include "store/chains.h"
#include "store/schedule_store.h"
#include "store/stamp.h"

namespace sched {
namespace {

// A text in its 8-bit form for the file, without CRs when `dropReturns`: the text as it stands
// when it is plain ASCII, else made in `room`.
std::string_view FileText(std::string_view text, bool dropReturns, CodePage page,
                          std::string& room) {
  const bool returns =
      dropReturns && !text.empty() && std::memchr(text.data(), '\r', text.size()) != nullptr;
  // Leaving out CRs keeps a text plain or not: it is looked at once.
  const bool ascii = IsAscii(text);
  if (!returns && ascii) return text;
  room.resize(text.size());
  char* const start = room.data();
  char* end = start;
  if (returns) {
    end = CopyWithoutReturns(text, start);
    text = {start, static_cast<std::size_t>(end - start)};
  }
  // A character takes no more bytes in the code page than in UTF-8, so the text converts over
  // itself.
  if (!ascii) end = WriteCodePage(text, page, start);
  room.resize(static_cast<std::size_t>(end - start));
  return room;
}

// The first bytes of 8-bit text, at most `limit` of them, cut between two characters.
std::string_view CutToBytes(std::string_view text, std::size_t limit, CodePage page) {
  return text.substr(0, FittingBytes(text, limit, page));
}

// The variable part's size must fit its signed 16-bit count, which a reader may use to find
// the next record: the memo gives way first, then the place, then the title.
void FitVariablePart(RowTexts& texts, CodePage page) {
  constexpr std::size_t kMaxTexts = 32767 - 8 - 10;
  for (std::string_view* text : {&texts.Memo, &texts.Place, &texts.Title}) {
    const std::size_t total = texts.Title.size() + texts.Place.size() + texts.Memo.size();
    if (total <= kMaxTexts) return;
    *text = CutToBytes(*text, text->size() - std::min(text->size(), total - kMaxTexts), page);
  }
}

void SetDate(std::int32_t code, std::uint8_t& day, std::uint8_t& month, std::uint16_t& year) {
  day = static_cast<std::uint8_t>(code % 100);
  month = static_cast<std::uint8_t>(code / 100 % 100);
  year = static_cast<std::uint16_t>(code / 10000);
}

}  // namespace

std::uint16_t WeekHolidayMask(const std::array<std::int16_t, 7>& weekHoliday) {
  unsigned mask = 0;
  for (unsigned i = 0; i < 7; ++i) {
    if (weekHoliday[i] != 0) mask |= 1u << i;
  }
  return static_cast<std::uint16_t>(mask);
}

// Builds the bytes of a schedule file from the tables, leaves first: each month's records,
// then the month, and behind a year's last month the year; links to parts written later are
// patched in when those parts are placed.
class SclWriter {
 public:
  SclWriter(ScheduleStore& store, ByteWriter& out)
      : store_(store), doc_(store.doc_), t_(store.doc_.Tables), out_(out) {
    CollectSeriesRanges();
  }

  // No file of the tables is larger: every live row written as a record of its own, each text
  // as long as its UTF-8 form with CR LF line ends.
  std::size_t LargestSize() const {
    std::size_t size = kHeaderSize + static_cast<std::size_t>(t_.YearCount) * kYearSize +
                       static_cast<std::size_t>(t_.MonthCount) * kMonthSize;
    const auto& list = t_.SchDatList;
    for (int row = 0; !list.IsEmpty() && row < list.Rows(); ++row) {
      const SchDatRow& r = list.At(row);
      if (r.Deleted == kDeleted) continue;
      const RowTexts texts = list.Texts(r);
      size +=
          kRecordFixedSize + 8 + 10 + texts.Title.size() + texts.Place.size() + texts.Memo.size();
    }
    return size;
  }

  void Write() {
    SclHeader header = doc_.Header;
    header.Magic = kSclMagic;
    header.WeekHolidayMask = WeekHolidayMask(doc_.WeekHoliday);
    header.FirstYear = -1;
    WriteHeader(out_, header);
    std::int32_t previousYear = -1;
    for (int i = 0; i < t_.YearCount; ++i) {
      store_.svc_.progress.SetValue(i * 100 / t_.YearCount);
      const AncYYRow& row = t_.AncYY.At(i);
      SclYear year;
      year.Year = static_cast<std::uint16_t>(row.Year);
      year.FirstMonth = WriteMonths(row.FirstMonth);
      year.HolidayOn = row.HolidayOn;
      year.HolidayOff = row.HolidayOff;
      if (!row.HasHolidayMask() && year.FirstMonth == -1) continue;  // nothing left in the year
      const std::int32_t at = out_.Position();
      WriteYear(out_, year);
      if (previousYear == -1) {
        header.FirstYear = at;
      } else {
        out_.PatchI32(previousYear + kYearNextOffset, at);
      }
      previousYear = at;
    }
    header.PrivateCount = privateCount_;
    PatchHeader(out_, header);
    doc_.Header = header;
  }

 private:
  // The first and last date and the lowest SubNo of every series with a repeating row or an
  // item over several dates, over all its live rows.
  void CollectSeriesRanges() {
    const auto& list = t_.SchDatList;
    if (list.IsEmpty()) return;
    rangeOfRow_.assign(static_cast<std::size_t>(list.Rows()), -1);
    std::vector<std::uint64_t> series;
    for (int row = 0; row < list.Rows(); ++row) {
      const SchDatRow& r = list.At(row);
      if (r.IsLive() && r.RepeatKind != 0) series.push_back(r.Series().Packed());
    }
    if (series.empty()) return;
    RadixSort(series, [](std::uint64_t key) { return key; });
    series.erase(std::unique(series.begin(), series.end()), series.end());
    const KeyTable table(std::move(series));
    ranges_.resize(table.Size());
    for (int row = 0; row < list.Rows(); ++row) {
      const SchDatRow& r = list.At(row);
      if (!r.IsLive()) continue;
      const int range = table.Find(r.Series().Packed());
      if (range == -1) continue;
      ranges_[static_cast<std::size_t>(range)].Add(r);
      rangeOfRow_[static_cast<std::size_t>(row)] = range;
    }
    monthWritten_.assign(ranges_.size(), -1);
  }

  std::int32_t WriteMonths(int firstMonth) {
    std::int32_t first = -1;
    std::int32_t previousMonth = -1;
    for (int row : MonthChain(t_.AncMM, firstMonth)) {
      const AncMMRow& m = t_.AncMM.At(row);
      const std::int32_t start = out_.Position();
      SclMonth month;
      month.Month = static_cast<std::uint16_t>(m.Month);
      month.DayHead = m.DayHead;
      ++months_;
      lastMultiDay_ = -1;
      for (std::int32_t& head : month.DayHead) {
        if (head != -1) head = WriteDay(head, month);
      }
      if (out_.Position() == start && month.MultiDayHead == -1) continue;  // an empty month
      const std::int32_t at = out_.Position();
      WriteMonth(out_, month);
      if (previousMonth == -1) {
        first = at;
      } else {
        out_.PatchI32(previousMonth + kMonthNextOffset, at);
      }
      previousMonth = at;
      out_.Spill();
    }
    return first;
  }

  // Writes the live rows of a day's chain and gives the offset of the first, -1 for none. An
  // item over several dates goes once into the month's multi-day chain instead.
  std::int32_t WriteDay(int head, SclMonth& month) {
    std::int32_t first = -1;
    std::int32_t previous = -1;
    for (int row : DayChain(t_.SchDatList, head)) {
      const SchDatRow& r = t_.SchDatList.At(row);
      if (r.Deleted == kDeleted) continue;
      const int rangeIndex = rangeOfRow_[static_cast<std::size_t>(row)];
      const SeriesRange* range =
          rangeIndex != -1 ? &ranges_[static_cast<std::size_t>(rangeIndex)] : nullptr;
      if (r.RepeatKind == kMultiDayKind && range->firstCode != range->lastCode) {
        WriteMultiDay(row, rangeIndex, month);
        continue;
      }
      SchRecord& rec = BuildDiskRecord(row);
      if (r.RepeatKind != 0 && r.RepeatKind != kMultiDayKind) {
        SetDate(range->firstCode, rec.Day, rec.Month, rec.Year);
        SetDate(range->lastCode, rec.EndDay, rec.EndMonth, rec.EndYear);
      }
      const std::int32_t at = out_.Position();
      rec.Prev = previous;
      rec.Next = -1;
      if (previous == -1) {
        first = at;
      } else {
        out_.PatchI32(previous + kRecordNextOffset, at);
      }
      WriteRecord(out_, rec, diskTexts_);
      previous = at;
    }
    return first;
  }

  void WriteMultiDay(int row, int rangeIndex, SclMonth& month) {
    // Written once in a month.
    int& written = monthWritten_[static_cast<std::size_t>(rangeIndex)];
    if (written == months_) return;
    written = months_;
    const SeriesRange& range = ranges_[static_cast<std::size_t>(rangeIndex)];
    SchRecord& rec = BuildDiskRecord(row);
    SetDate(range.firstCode, rec.Day, rec.Month, rec.Year);
    SetDate(range.lastCode, rec.EndDay, rec.EndMonth, rec.EndYear);
    rec.SubNo = static_cast<std::int16_t>(range.lowestSubNo);
    const std::int32_t at = out_.Position();
    rec.Prev = lastMultiDay_;
    rec.Next = -1;
    if (lastMultiDay_ == -1) {
      month.MultiDayHead = at;
    } else {
      out_.PatchI32(lastMultiDay_ + kRecordNextOffset, at);
    }
    WriteRecord(out_, rec, diskTexts_);
    lastMultiDay_ = at;
  }

  // The record of a row as the file holds it: 8-bit text, memo lines ending in LF alone, the
  // private flag replaced by the device's private level. The numbers go to one record kept for
  // every row, and the texts are given apart in the writer's room, so that neither allocates.
  SchRecord& BuildDiskRecord(int row) {
    const SchDatRow& r = t_.SchDatList.At(row);
    SchRecord& rec = disk_;
    CopyRowNumbers(r, rec);
    if (r.Private != 0) {
      rec.Private = doc_.PrivateLevel;
      ++privateCount_;
    } else {
      rec.Private = 0;
    }
    const CodePage page = doc_.FileCodePage;
    const RowTexts texts = t_.SchDatList.Texts(r);
    RowTexts& file = diskTexts_;
    file.Title = FileText(texts.Title, false, page, room_[0]);
    file.Place = FileText(texts.Place, false, page, room_[1]);
    file.Memo = FileText(texts.Memo, true, page, room_[2]);
    file.AlarmSound =
        CutToBytes(FileText(texts.AlarmSound, false, page, room_[3]), kAlarmSoundBytes, page);
    FitVariablePart(file, page);
    rec.VarLen =
        VariablePartLength(file.Title.size() + file.Place.size() + file.Memo.size(), rec.AlarmOn);
    return rec;
  }

  ScheduleStore& store_;
  ScheduleDocument& doc_;
  const SchDatCTL& t_;
  ByteWriter& out_;
  std::vector<SeriesRange> ranges_;
  std::vector<int> rangeOfRow_;    // the range of each live row of such a series, else -1
  std::vector<int> monthWritten_;  // for each range, the month its item was last written in
  int months_ = 0;                 // months written so far
  SchRecord disk_;                 // the numbers of the row being written
  RowTexts diskTexts_;             // and its texts in the file's form
  std::string room_[4];            // where those texts are made when they change
  std::int32_t lastMultiDay_ = -1;
  std::uint16_t privateCount_ = 0;
};

std::vector<std::uint8_t> ScheduleStore::BuildScheduleBytes() {
  ByteWriter out;
  SclWriter writer(*this, out);
  out.Reserve(writer.LargestSize());
  writer.Write();
  return out.Take();
}

bool ScheduleStore::SaveScheduleFile(const std::string& path) {
  // The file is handed on in pieces as it is made, never held whole.
  return WriteFileSafely(path, [this](FileSink& sink) {
    ByteWriter out(sink);
    SclWriter(*this, out).Write();
    return out.Finish();
  });
}

}  // namespace sched
