// Feeds arbitrary bytes to the schedule loader.
//
// Any input must either load or be refused with an empty document, never crash, hang or grow
// without bound. An input that loads is then saved, and the saved bytes loaded again: the live
// rows must come back as they were, and after a few more rounds of saving and loading the
// bytes must stop changing. Everything happens in memory.
//
// Inputs of odd size are loaded as the cached copy of a device file whose user has a private
// level, so that the dropping of private records is covered too. Inputs whose size leaves 2 or
// 3 over 4 have their texts in the Japanese code page, where a broken byte sequence loads as
// U+FFFD and is saved as '?'.

#include <algorithm>
#include <array>
#include <compare>
#include <cstddef>
#include <cstdint>
#include <cstdio>
#include <map>
#include <set>
#include <string>
#include <tuple>
#include <vector>

#include "core/calendar.h"
#include "store/schedule_store.h"
#include "tests/support/test_store.h"

namespace sched {
namespace {

constexpr std::int16_t kDevicePrivateLevel = 2;
// A byte of text in the file makes at most three bytes of UTF-8 or two of a line break, and an
// item over several dates is read once for each of up to 31 days of a month.
constexpr std::size_t kTextGrowth = 3 * 31;
// Save and load rounds in which the saved file must come to rest.
constexpr int kSettleRounds = 4;

[[noreturn]] void Fail(const char* what) {
  std::fprintf(stderr, "scl_load_fuzz: %s\n", what);
  __builtin_trap();
}

void Require(bool condition, const char* what) {
  if (!condition) Fail(what);
}

// A store over fakes, fresh for each load.
struct StoreUnderTest : FakeStore {
  StoreUnderTest(int onPc, CodePage page) {
    doc.ScheduleOnPc = onPc;
    doc.PrivateLevel = kDevicePrivateLevel;
    doc.FileCodePage = page;
  }
};

// A refused input leaves an empty document.
void CheckRefused(const StoreUnderTest& s) {
  const SchDatCTL& t = s.doc.Tables;
  Require(t.RowCount == 0 && t.YearCount == 0 && t.MonthCount == 0 && t.AncYY.IsEmpty() &&
              t.AncMM.IsEmpty() && t.SchDatList.IsEmpty(),
          "a failed load left rows behind");
}

// A live row as the user sees it, with the date of the chain that holds it. Links and VarLen
// are left out: the save makes them anew.
struct LiveRow {
  std::array<std::int32_t, 17> numbers{};
  std::string title;
  std::string place;
  std::string memo;
  std::string sound;
  auto operator<=>(const LiveRow&) const = default;
};

struct PlacedRow {
  int row;
  int year;      // year, month and day of the chain that holds the row
  int monthRow;  // the AncMM row of that chain
  int month;
  int day;
};

std::vector<PlacedRow> PlacedLiveRows(const SchDatCTL& t) {
  std::vector<PlacedRow> rows;
  const auto& list = t.SchDatList;
  for (int y = 0; y < t.YearCount; ++y) {
    const AncYYRow& year = t.AncYY.At(y);
    int m = year.FirstMonth;
    for (int steps = 0; m >= 0 && m < t.AncMM.Rows() && steps < t.AncMM.Rows(); ++steps) {
      const AncMMRow& month = t.AncMM.At(m);
      for (int d = 0; d < 31; ++d) {
        int r = month.DayHead[static_cast<std::size_t>(d)];
        for (int n = 0; r >= 0 && r < list.Rows() && n < list.Rows(); ++n) {
          if (list.At(r).IsLive()) rows.push_back({r, year.Year, m, month.Month, d + 1});
          r = list.At(r).Next;
        }
      }
      m = month.NextMonth;
    }
  }
  return rows;
}

std::size_t TextBytes(const SchDatCTL& t) {
  std::size_t bytes = 0;
  const auto& list = t.SchDatList;
  for (int row = 0; row < list.Rows(); ++row) {
    const RowTexts texts = list.Texts(row);
    bytes += texts.Title.size() + texts.Place.size() + texts.Memo.size() + texts.AlarmSound.size();
  }
  return bytes;
}

// A text as a save and a load give it back: what could not be read is written as '?'.
std::string AsSaved(std::string text) {
  constexpr std::string_view kUnread = "\uFFFD";
  for (std::size_t at = text.find(kUnread); at != std::string::npos; at = text.find(kUnread, at)) {
    text.replace(at, kUnread.size(), "?");
  }
  return text;
}

bool IsRepeat(const SchDatRow& r) {
  return r.RepeatKind != 0 && r.RepeatKind != kMultiDayKind;
}

struct SeriesLess {
  bool operator()(const SeriesKey& a, const SeriesKey& b) const {
    return std::tie(a.parentSubNo, a.parentStamp) < std::tie(b.parentSubNo, b.parentStamp);
  }
};
using SeriesSet = std::set<SeriesKey, SeriesLess>;

// GetSeriesRange of every series that holds a live row, worked out once.
std::map<SeriesKey, SeriesRange, SeriesLess> SeriesRanges(const SchDatCTL& t) {
  std::map<SeriesKey, SeriesRange, SeriesLess> ranges;
  const auto& list = t.SchDatList;
  if (list.IsEmpty()) return ranges;
  for (int row = 0; row < list.Rows(); ++row) {
    if (list.At(row).IsLive()) ranges[list.At(row).Series()].Add(list.At(row));
  }
  return ranges;
}

// What every row of an item over several dates shares.
auto MultiDayPayload(const SchDatTable& list, const SchDatRow& r) {
  return std::make_tuple(r.EndDay, r.EndMonth, r.EndYear, r.StartTime, r.EndTime, r.Stamp,
                         r.ParentSubNo, r.ParentStamp, r.RepeatKind, r.Private, list.Texts(r),
                         r.AlarmOn, r.AlarmLead);
}

// A series holding an item over several dates is written as one record a month with its whole
// span, and read back as one row for each day of the span in that month. That gives back the
// same rows only when the rows were such a run to begin with; a file can hold anything else
// (gaps, a day twice, rows that differ, other kinds in the series), which the save then
// reshapes. Those series are left out of the comparison with the first load; the saved file
// must still come to rest.
SeriesSet ReshapedSeries(const SchDatCTL& t, const std::vector<PlacedRow>& placed,
                         const std::map<SeriesKey, SeriesRange, SeriesLess>& ranges) {
  SeriesSet reshaped;
  std::map<SeriesKey, std::vector<PlacedRow>, SeriesLess> series;
  const auto& list = t.SchDatList;
  for (const PlacedRow& p : placed) series[list.At(p.row).Series()].push_back(p);
  for (const auto& [key, rows] : series) {
    const bool hasMultiDay = std::any_of(rows.begin(), rows.end(), [&](const PlacedRow& p) {
      return list.At(p.row).RepeatKind == kMultiDayKind;
    });
    if (!hasMultiDay) continue;
    const SeriesRange& range = ranges.at(key);
    if (range.firstCode == range.lastCode) continue;  // written row by row, as plain records
    struct MonthDays {
      int year = 0;
      int month = 0;
      std::set<int> days;
    };
    bool run = true;
    std::map<int, MonthDays> byMonthRow;
    const SchDatRow& first = list.At(rows.front().row);
    for (const PlacedRow& p : rows) {
      const SchDatRow& r = list.At(p.row);
      const std::int32_t code = DateCode(p.year, p.month, p.day);
      MonthDays& month = byMonthRow[p.monthRow];
      month.year = p.year;
      month.month = p.month;
      run = run && r.RepeatKind == kMultiDayKind && r.StartCode() == code &&
            r.EndCode() == range.lastCode && code >= range.firstCode && code <= range.lastCode &&
            MultiDayPayload(list, r) == MultiDayPayload(list, first) &&
            month.days.insert(p.day).second;
    }
    // Every day of the span in each of those months, and no other.
    for (const auto& entry : byMonthRow) {
      const MonthDays& m = entry.second;
      for (int d = 1; d <= DaysInMonth(m.year, m.month); ++d) {
        const std::int32_t code = DateCode(m.year, m.month, d);
        const bool inSpan = code >= range.firstCode && code <= range.lastCode;
        run = run && inSpan == (m.days.count(d) > 0);
      }
    }
    if (!run) reshaped.insert(key);
  }
  return reshaped;
}

// The live rows, each with the date of its chain, in a canonical order. The end date of a
// repeat occurrence is the series' last date and an item over several dates carries the
// lowest SubNo of its series, as the save writes them.
std::vector<LiveRow> Snapshot(const SchDatCTL& t, const std::vector<PlacedRow>& placed,
                              const SeriesSet& skip) {
  const auto ranges = SeriesRanges(t);
  std::vector<LiveRow> rows;
  for (const PlacedRow& p : placed) {
    const SchDatRow& r = t.SchDatList.At(p.row);
    if (skip.count(r.Series()) > 0) continue;
    const SeriesRange& range = ranges.at(r.Series());
    std::int32_t endCode = r.EndCode();
    std::int32_t subNo = r.SubNo;
    if (IsRepeat(r)) endCode = range.lastCode;
    if (r.RepeatKind == kMultiDayKind && range.firstCode != range.lastCode) {
      subNo = range.lowestSubNo;
    }
    LiveRow row;
    row.numbers = {p.year,        p.month,      p.day,     r.Day,     r.Month,    r.Year,
                   endCode,       r.StartTime,  r.EndTime, subNo,     r.Stamp,    r.ParentSubNo,
                   r.ParentStamp, r.RepeatKind, r.Private, r.AlarmOn, r.AlarmLead};
    const RowTexts texts = t.SchDatList.Texts(r);
    row.title = AsSaved(std::string(texts.Title));
    row.place = AsSaved(std::string(texts.Place));
    row.memo = AsSaved(std::string(texts.Memo));
    row.sound = AsSaved(std::string(texts.AlarmSound));
    rows.push_back(std::move(row));
  }
  std::sort(rows.begin(), rows.end());
  return rows;
}

// The years a save keeps (those with a holiday mask or a live row), in table order. Rows of the
// skipped series do not count: the save may move them out of their year.
std::vector<std::array<std::int32_t, 25>> KeptYears(const SchDatCTL& t,
                                                    const std::vector<PlacedRow>& placed,
                                                    const SeriesSet& skip) {
  std::set<int> monthRowsWithRows;
  for (const PlacedRow& p : placed) {
    if (skip.count(t.SchDatList.At(p.row).Series()) == 0) monthRowsWithRows.insert(p.monthRow);
  }
  std::vector<std::array<std::int32_t, 25>> years;
  for (int y = 0; y < t.YearCount; ++y) {
    const AncYYRow& row = t.AncYY.At(y);
    bool hasRows = false;
    int m = row.FirstMonth;
    for (int steps = 0; m >= 0 && m < t.AncMM.Rows() && steps < t.AncMM.Rows(); ++steps) {
      hasRows = hasRows || monthRowsWithRows.count(m) > 0;
      m = t.AncMM.At(m).NextMonth;
    }
    if (!row.HasHolidayMask() && !hasRows) continue;
    std::array<std::int32_t, 25> kept{};
    kept[0] = row.Year;
    std::copy(row.HolidayOn.begin(), row.HolidayOn.end(), kept.begin() + 1);
    std::copy(row.HolidayOff.begin(), row.HolidayOff.end(), kept.begin() + 13);
    years.push_back(kept);
  }
  return years;
}

}  // namespace
}  // namespace sched

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
  using namespace sched;
  const int onPc = size % 2 == 0 ? 1 : 0;
  const CodePage page = size / 2 % 2 == 0 ? CodePage::kWestern : CodePage::kJapanese;

  StoreUnderTest first(onPc, page);
  if (!first.store.LoadSchedule(std::vector<std::uint8_t>(data, data + size))) {
    CheckRefused(first);
    return 0;
  }
  const SchDatCTL& t1 = first.doc.Tables;
  Require(TextBytes(t1) <= kTextGrowth * size, "the load made more text than the file can hold");
  const std::vector<PlacedRow> placed1 = PlacedLiveRows(t1);
  Require(static_cast<int>(placed1.size()) == t1.RowCount, "RowCount differs from the live rows");
  const SeriesSet reshaped = ReshapedSeries(t1, placed1, SeriesRanges(t1));
  const std::vector<LiveRow> rows1 = Snapshot(t1, placed1, reshaped);
  const auto years1 = KeptYears(t1, placed1, reshaped);

  // Bytes the save made load again, and saving them again soon gives the same bytes. Until
  // then the save may still be making a reshaped series regular, or putting rows of equal
  // start time into the order a load gives them (an input's multi-day chain may hold a
  // repeat occurrence, which the save puts into day chains instead).
  std::vector<std::uint8_t> previous = first.store.BuildScheduleBytes();
  bool settled = false;
  for (int round = 0; round < kSettleRounds && !settled; ++round) {
    StoreUnderTest next(onPc, page);
    if (!next.store.LoadSchedule(previous)) Fail("saved bytes do not load again");
    const SchDatCTL& t = next.doc.Tables;
    const std::vector<PlacedRow> placed = PlacedLiveRows(t);
    Require(static_cast<int>(placed.size()) == t.RowCount, "RowCount differs after reloading");
    if (round == 0) {
      Require(Snapshot(t, placed, reshaped) == rows1, "the rows changed in a save and a load");
      Require(KeptYears(t, placed, reshaped) == years1,
              "the years or holidays changed in a save and a load");
      Require(next.doc.WeekHoliday == first.doc.WeekHoliday, "the weekly holidays changed");
    }
    std::vector<std::uint8_t> bytes = next.store.BuildScheduleBytes();
    settled = bytes == previous;
    previous = std::move(bytes);
  }
  Require(settled, "saving the file again keeps changing it");
  return 0;
}
