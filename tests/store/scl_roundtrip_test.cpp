#include <gtest/gtest.h>

#include <algorithm>
#include <map>
#include <random>

#include "store/row_order.h"
#include "tests/support/test_store.h"

namespace sched {
namespace {

// Random schedules of every kind of item, saved and loaded back: the live rows must come back
// the same. A loaded span shares the lowest SubNo of its days, so that is what it is compared
// with; VarLen is recomputed by every save.
class RandomSchedule {
 public:
  explicit RandomSchedule(unsigned seed) : random_(seed) {}

  void Fill(TestStore& s, int items) {
    for (int i = 0; i < items; ++i) {
      switch (Pick(0, 5)) {
        case 0: AddPlain(s, Pick(0, 3) == 0); break;
        case 1: AddSeries(s, 1); break;
        case 2: AddSeries(s, 7); break;
        default: AddPlain(s, false); break;
      }
    }
    for (int i = 0; i < 4; ++i) {
      const int row = s.store.FindOrAddYear(Pick(kFirstYear, kLastYear));
      auto& masks = Pick(0, 1) ? s.doc.Tables.AncYY.Edit(row).HolidayOn
                               : s.doc.Tables.AncYY.Edit(row).HolidayOff;
      masks[static_cast<std::size_t>(Pick(0, 11))] |= 1 << Pick(0, 30);
    }
    for (int w = 0; w < 7; ++w) s.doc.WeekHoliday[static_cast<std::size_t>(w)] = Pick(0, 2) == 0;
  }

 private:
  int Pick(int low, int high) { return std::uniform_int_distribution<int>(low, high)(random_); }

  CivilDate AnyDate() {
    // Mostly a few busy years, sometimes the ends of the calendar.
    const int year = Pick(0, 9) == 0 ? (Pick(0, 1) ? kFirstYear : kLastYear) : Pick(1998, 2001);
    const int month = Pick(1, 12);
    return {year, month, Pick(1, DaysInMonth(year, month))};
  }

  std::string AnyText(int maxLength) {
    static const std::vector<std::string> pieces = {
        "a", "Meeting", " ", "\u00E9", "\u20AC", "\u00DF", "\u201Cq\u201D", "\r\n", "7", "\u0178"};
    std::string text;
    const int n = Pick(0, maxLength);
    for (int i = 0; i < n; ++i) text += pieces[static_cast<std::size_t>(Pick(0, 9))];
    return text;
  }

  SchRecord Base(const CivilDate& date) {
    const bool allDay = Pick(0, 3) == 0;
    const int start = allDay ? -1 : Pick(0, 1380);
    SchRecord r = MakeItem(date.year, date.month, date.day, start,
                           allDay ? -1 : std::min(1439, start + Pick(0, 240)), AnyText(4));
    // Random items may come out alike; each entry of the schedule keeps a stamp of its own.
    r.Stamp = static_cast<std::int32_t>(0xC0000000u | ++entries_);
    r.Place = AnyText(2);
    // Titles and places are one line.
    for (std::string* line : {&r.Title, &r.Place}) {
      std::erase_if(*line, [](char c) { return c == '\r' || c == '\n'; });
    }
    if (r.Title.empty()) r.Title = "No Title";
    r.Memo = AnyText(6);
    r.Private = static_cast<std::int16_t>(Pick(0, 4) == 0);
    if (Pick(0, 3) == 0) {
      r.AlarmOn = 1;
      r.AlarmSound = Pick(0, 1) ? "SCHALARM" : "BELL";
      r.AlarmLead = static_cast<std::int16_t>(Pick(0, 999));
    }
    return r;
  }

  void AddPlain(TestStore& s, bool sameTime) {
    SchRecord r = Base(AnyDate());
    if (sameTime) r.StartTime = 540;
    s.store.InsertRecord(r);
  }

  // A span of days (`step` 1) or a weekly series (`step` 7), one record a date.
  void AddSeries(TestStore& s, int step) {
    const CivilDate first = AnyDate();
    const int count = step == 1 ? Pick(2, 30) : Pick(2, 12);
    if (DaySerial(first) + step * (count - 1) > DaySerial({kLastYear, 12, 31})) return;
    SchRecord r = Base(first);
    r.RepeatKind =
        static_cast<std::int16_t>(step == 1 ? kMultiDayKind : 0x1000 | WeekdayOf(first) * 4);
    InsertSeries(s.store, r, count, step);
  }

  std::mt19937 random_;
  std::uint32_t entries_ = 0;
};

// The live rows, as the load is expected to give them, sorted by date and then by content:
// rows of equal start time on one day may come back in another order.
std::vector<std::string> Canonical(const ScheduleDocument& doc) {
  const SchDatCTL& t = doc.Tables;
  std::vector<std::string> rows;
  for (int row : LiveRowsInDateOrder(t)) {
    SchDatRow r = t.SchDatList.At(row);
    if (r.RepeatKind == kMultiDayKind) {
      r.SubNo = GetSeriesLowestSubNo(t, r.ParentSubNo, r.ParentStamp);
    }
    r.Next = -1;
    r.VarLen = 0;
    rows.push_back(Table<SchDatRow>::LineOf(r));
  }
  std::sort(rows.begin(), rows.end());
  return rows;
}

std::map<int, std::string> Masks(const ScheduleDocument& doc) {
  std::map<int, std::string> masks;
  for (int y = 0; y < doc.Tables.YearCount; ++y) {
    const AncYYRow& row = doc.Tables.AncYY.At(y);
    std::string line = Table<AncYYRow>::LineOf(row);
    if (row.HasHolidayMask()) {
      masks[row.Year] = line.substr(line.find('\t', line.find('\t', 5) + 1));
    }
  }
  return masks;
}

TEST(SclRoundTrip, RandomSchedulesComeBackWithTheSameLiveRows) {
  for (unsigned seed = 1; seed <= 60; ++seed) {
    TestStore s;
    RandomSchedule(seed).Fill(s, 40 + static_cast<int>(seed) * 3);
    const auto rows = Canonical(s.doc);
    const auto masks = Masks(s.doc);
    const auto weekHoliday = s.doc.WeekHoliday;
    const int rowCount = s.doc.Tables.RowCount;

    ASSERT_TRUE(s.RoundTrip()) << "seed " << seed;
    EXPECT_EQ(s.doc.Tables.RowCount, rowCount) << "seed " << seed;
    const auto loaded = Canonical(s.doc);
    EXPECT_EQ(loaded.size(), rows.size()) << "seed " << seed;
    for (std::size_t i = 0; i < std::min(loaded.size(), rows.size()); ++i) {
      ASSERT_EQ(loaded[i], rows[i]) << "seed " << seed << " row " << i;
    }
    EXPECT_EQ(Masks(s.doc), masks) << "seed " << seed;
    EXPECT_EQ(s.doc.WeekHoliday, weekHoliday) << "seed " << seed;

    // Loaded and saved again, the file is the same.
    const auto first = s.SaveTo("first.scl");
    s.LoadFrom(s.dir.File("first.scl"));
    EXPECT_EQ(s.SaveTo("second.scl"), first) << "seed " << seed;
  }
}

}  // namespace
}  // namespace sched
