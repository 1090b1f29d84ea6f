#include <gtest/gtest.h>

#include <algorithm>

#include "store/row_order.h"
#include "tests/support/test_store.h"

namespace sched {
namespace {

// "yyyy/m/d title" of every live row, by date and chain.
std::vector<std::string> Rows(const ScheduleDocument& doc) {
  std::vector<std::string> rows;
  for (int row : LiveRowsInDateOrder(doc.Tables)) {
    const SchDatRow& r = doc.Tables.SchDatList.At(row);
    rows.push_back(std::to_string(r.Year) + "/" + std::to_string(r.Month) + "/" +
                   std::to_string(r.Day) + " " + r.Title);
  }
  return rows;
}

TEST(SclLoad, ASpanAcrossTwoMonthsKeepsItsFirstDayThroughSavesAndLoads) {
  TestStore s;
  s.store.InsertRecord(MakeItem(1998, 8, 20, 540, 600, "August first"));  // August leads the chain
  InsertSpan(s.store, {1998, 7, 28}, 7, "Span", 0x77);
  for (int pass = 0; pass < 2; ++pass) {
    ASSERT_TRUE(s.RoundTrip("span" + std::to_string(pass) + ".scl"));
    EXPECT_EQ(Rows(s.doc),
              (std::vector<std::string>{"1998/7/28 Span", "1998/7/29 Span", "1998/7/30 Span",
                                        "1998/7/31 Span", "1998/8/1 Span", "1998/8/2 Span",
                                        "1998/8/3 Span", "1998/8/20 August first"}))
        << "pass " << pass;
    const SeriesRange range = GetSeriesRange(s.doc.Tables, 1, 0x77);
    EXPECT_EQ(range.firstCode, 19980728);
    EXPECT_EQ(range.lastCode, 19980803);
  }
}

TEST(SclLoad, ASpanIsExpandedOnlyOverTheDaysThatExist) {
  struct Case {
    CivilDate first;
    int days;
    int rowsInFirstMonth;
  };
  for (const Case& c :
       {Case{{1998, 6, 28}, 6, 3}, Case{{1999, 2, 27}, 4, 2}, Case{{2000, 2, 27}, 4, 3},
        Case{{1998, 12, 30}, 4, 2}, Case{{2099, 12, 29}, 3, 3}}) {
    TestStore s;
    InsertSpan(s.store, c.first, c.days, "Span", 0x99);
    s.RoundTrip();
    EXPECT_EQ(s.doc.Tables.RowCount, c.days) << c.first.year << "/" << c.first.month;
    int inFirstMonth = 0;
    for (int row : LiveRowsInDateOrder(s.doc.Tables)) {
      const SchDatRow& r = s.doc.Tables.SchDatList.At(row);
      ASSERT_TRUE(IsValidDate(r.Year, r.Month, r.Day));
      if (r.Month == c.first.month) ++inFirstMonth;
      EXPECT_EQ(r.SubNo, 1);  // a loaded span shares the SubNo of its record
    }
    EXPECT_EQ(inFirstMonth, c.rowsInFirstMonth) << c.first.year << "/" << c.first.month;
  }
}

TEST(SclLoad, RepeatOccurrencesTakeTheirDateFromTheirDayAndKeepTheSeriesEnd) {
  TestStore s;
  for (int i = 0; i < 3; ++i) {
    SchRecord r = MakeItem(1998, 7, 1 + 7 * i, 600, 660, "Weekly");
    r.EndDay = 15;
    r.SubNo = static_cast<std::int16_t>(i + 1);
    r.ParentSubNo = 1;
    r.Stamp = r.ParentStamp = 0x123;
    r.RepeatKind = 0x1000 | 3 * 4;
    s.store.InsertRecord(r);
  }
  s.RoundTrip();
  EXPECT_EQ(Rows(s.doc),
            (std::vector<std::string>{"1998/7/1 Weekly", "1998/7/8 Weekly", "1998/7/15 Weekly"}));
  for (int row : LiveRowsInDateOrder(s.doc.Tables)) {
    EXPECT_EQ(s.doc.Tables.SchDatList.At(row).EndCode(), 19980715);
    EXPECT_EQ(s.doc.Tables.SchDatList.At(row).RepeatKind, 0x1000 | 3 * 4);
  }
}

TEST(SclLoad, ASeriesWithOneOccurrenceLeftBecomesAPlainItem) {
  TestStore s;
  for (int i = 0; i < 3; ++i) {
    SchRecord r = MakeItem(1998, 7, 1 + i, 600, 660, "Daily");
    r.SubNo = static_cast<std::int16_t>(i + 1);
    r.ParentSubNo = 1;
    r.Stamp = r.ParentStamp = 0x456;
    r.RepeatKind = 0x0800;
    s.store.InsertRecord(r);
  }
  s.doc.Tables.SchDatList.At(0).Deleted = kDeleted;
  s.doc.Tables.SchDatList.At(2).Deleted = kDeleted;
  s.doc.Tables.RowCount = 1;
  s.RoundTrip();
  ASSERT_EQ(s.doc.Tables.RowCount, 1);
  EXPECT_EQ(s.doc.Tables.SchDatList.Cell(0, kColRepeatKind), "0");
  EXPECT_EQ(s.doc.Tables.SchDatList.Cell(0, kColDeleted), "0");
}

TEST(SclLoad, RowsOfADayAreSortedByStartTimeWhateverTheFilesOrder) {
  TestStore s;
  for (const auto& [start, title] : std::vector<std::pair<int, std::string>>{
           {600, "ten"}, {540, "nine"}, {-1, "all day"}, {540, "nine too"}}) {
    s.store.InsertRecord(MakeItem(1998, 7, 9, start, start, title));
  }
  // Relink the day in the order of entry, as another writer could leave it.
  SchDatCTL& t = s.doc.Tables;
  for (int row = 0; row < 4; ++row) t.SchDatList.At(row).Next = row < 3 ? row + 1 : -1;
  t.AncMM.At(0).DayHead[8] = 0;
  s.RoundTrip();
  EXPECT_EQ(Rows(s.doc), (std::vector<std::string>{"1998/7/9 all day", "1998/7/9 nine",
                                                   "1998/7/9 nine too", "1998/7/9 ten"}));
}

TEST(SclLoad, TextsComeBackWithTheirLineEndsAndWithoutTabs) {
  TestStore s;
  SchRecord r = MakeItem(1998, 7, 9, 540, 600, "Caf\u00E9 \u20AC5");
  r.Place = "Room\t2";
  r.Memo = "line one\r\nline two\r\n";
  s.store.InsertRecord(r);
  s.doc.Tables.SchDatList.At(0).Title = "Tab\tin title";  // as no entry path would leave it
  s.RoundTrip();
  const SchDatRow& row = s.doc.Tables.SchDatList.At(0);
  EXPECT_EQ(row.Title, "Tab in title");
  EXPECT_EQ(row.Place, "Room 2");
  EXPECT_EQ(row.Memo, "line one\r\nline two\r\n");

  s.doc.Tables.SchDatList.At(0).Title = "Caf\u00E9 \u20AC5";
  s.RoundTrip();
  EXPECT_EQ(s.doc.Tables.SchDatList.At(0).Title, "Caf\u00E9 \u20AC5");
}

TEST(SclLoad, PrivateRecordsBelowTheDevicesLevelAreLeftOutOfADeviceFileOnly) {
  TestStore s;
  for (int level : {1, 2, 3}) {
    s.doc.PrivateLevel = static_cast<std::int16_t>(level);
    SchRecord r = MakeItem(1998, 7, 9, 540 + level, 600, "level " + std::to_string(level));
    r.Private = 1;
    s.store.InsertRecord(r);
    s.SaveTo("level" + std::to_string(level) + ".scl");
    s.store.DeleteItem(r);
  }
  s.store.InsertRecord(MakeItem(1998, 7, 9, 700, 720, "public"));
  s.SaveTo("public.scl");

  // The user's level now is 2: records written at level 1 stay hidden on the device.
  struct Case {
    std::string file;
    int onPc;
    int rows;
  };
  for (const Case& c :
       {Case{"level1.scl", 0, 0}, Case{"level2.scl", 0, 1}, Case{"level3.scl", 0, 1},
        Case{"level1.scl", 1, 1}, Case{"public.scl", 0, 1}}) {
    s.doc.PrivateLevel = 2;
    EXPECT_TRUE(s.LoadFrom(s.dir.File(c.file), c.onPc));
    EXPECT_EQ(s.doc.Tables.RowCount, c.rows) << c.file << " on PC " << c.onPc;
  }
}

TEST(SclLoad, ALoadRunsTheBarOverTheYearsAndKeepsTheWeeklyHolidays) {
  TestStore s;
  s.doc.WeekHoliday = {1, 0, 0, 0, 0, 1, 1};
  s.store.InsertRecord(MakeItem(1998, 7, 9, 540, 600, "A"));
  s.store.InsertRecord(MakeItem(1999, 7, 9, 540, 600, "B"));
  s.SaveTo("two years.scl");
  s.progress.values.clear();
  s.alarms.calls.clear();
  ASSERT_TRUE(s.LoadFrom(s.dir.File("two years.scl")));
  EXPECT_EQ(s.progress.values, (std::vector<int>{50, 100}));
  EXPECT_EQ(s.doc.WeekHoliday, (std::array<std::int16_t, 7>{1, 0, 0, 0, 0, 1, 1}));
  EXPECT_EQ(s.alarms.calls, std::vector<std::string>{"ClearTodayAlarms"});
  EXPECT_EQ(s.doc.LoadedRecords, 2);
  EXPECT_EQ(s.doc.Tables.RowCount, 2);
}

TEST(SclLoad, AlarmsStillAheadTodayEnterTodaysList) {
  TestStore s;
  s.clock.Set({1998, 7, 9, 8, 0, 0});
  SchRecord later = MakeItem(1998, 7, 9, 540, 600, "later");
  later.AlarmOn = 1;
  later.AlarmSound = "SCHALARM";
  later.AlarmLead = 30;
  SchRecord earlier = MakeItem(1998, 7, 9, 420, 480, "earlier");
  earlier.AlarmOn = 1;
  earlier.AlarmSound = "BELL";
  s.store.InsertRecord(later);
  s.store.InsertRecord(earlier);
  s.alarms.alarmRows.clear();
  ASSERT_TRUE(s.RoundTrip());
  ASSERT_EQ(s.alarms.alarmRows.size(), 1u);
  const SchDatRow& row = s.doc.Tables.SchDatList.At(s.alarms.alarmRows[0]);
  EXPECT_EQ(row.Title, "later");
  EXPECT_EQ(row.AlarmSound, "SCHALARM");
  EXPECT_EQ(row.AlarmLead, 30);
  EXPECT_EQ(s.doc.Tables.SchDatList.At(0).AlarmSound, "BELL");  // cut at its first zero byte
}

}  // namespace
}  // namespace sched
