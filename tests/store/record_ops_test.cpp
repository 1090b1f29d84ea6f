#include <gtest/gtest.h>

#include <algorithm>

#include "store/stamp.h"
#include "tests/support/test_store.h"

namespace sched {
namespace {

std::vector<std::string> ChainTitles(const ScheduleDocument& doc, int year, int month, int day) {
  const SchDatCTL& t = doc.Tables;
  std::vector<std::string> titles;
  const int monthRow = FindMonthRow(t, FindYearRow(t, year), month);
  for (int row = GetDayHead(t, monthRow, day); row != -1; row = t.SchDatList.At(row).Next) {
    if (t.SchDatList.At(row).IsLive()) titles.push_back(t.SchDatList.At(row).Title);
  }
  return titles;
}

// The rows of a series as entered: one record an occurrence, SubNo rising from 1.
std::vector<SchRecord> Series(const std::vector<CivilDate>& dates, std::int16_t repeatKind,
                              const std::string& title) {
  std::vector<SchRecord> rows;
  const CivilDate last = dates.back();
  for (std::size_t i = 0; i < dates.size(); ++i) {
    SchRecord r = MakeItem(dates[i].year, dates[i].month, dates[i].day, 600, 660, title);
    r.EndDay = static_cast<std::uint8_t>(last.day);
    r.EndMonth = static_cast<std::uint8_t>(last.month);
    r.EndYear = static_cast<std::uint16_t>(last.year);
    r.SubNo = static_cast<std::int16_t>(i + 1);
    r.ParentSubNo = 1;
    r.RepeatKind = repeatKind;
    rows.push_back(r);
  }
  for (SchRecord& r : rows) r.Stamp = r.ParentStamp = rows.front().Stamp;
  return rows;
}

TEST(RecordOps, TheFirstItemOfANewDocumentLandsInRowZeroOfEachTable) {
  TestStore s;
  s.store.InsertRecord(MakeItem(1998, 7, 9, 540, 600, "First"));
  const SchDatCTL& t = s.doc.Tables;
  EXPECT_EQ(t.YearCount, 1);
  EXPECT_EQ(t.MonthCount, 1);
  EXPECT_EQ(t.RowCount, 1);
  EXPECT_EQ(t.AncYY.Rows(), 1);
  EXPECT_EQ(t.AncYY.Cell(0, 0), "1998");
  EXPECT_EQ(t.AncYY.Cell(0, 2), "0");  // first month: row 0, a true link
  EXPECT_EQ(t.AncMM.Cell(0, 0), "7");
  EXPECT_EQ(t.AncMM.Cell(0, 9 + 1), "0");  // day 9's head: row 0
  EXPECT_EQ(t.AncMM.Cell(0, 8 + 1), "-1");
  EXPECT_EQ(t.SchDatList.Rows(), 1);
  EXPECT_EQ(t.SchDatList.Cell(0, kColTitle), "First");
}

TEST(RecordOps, DayChainsRunByStartTimeAndKeepTheOrderOfEntryOnEqualTimes) {
  TestStore s;
  s.store.InsertRecord(MakeItem(1998, 7, 9, 540, 600, "A at 9"));
  s.store.InsertRecord(MakeItem(1998, 7, 9, 540, 570, "B at 9"));
  s.store.InsertRecord(MakeItem(1998, 7, 9, 480, 500, "at 8"));
  s.store.InsertRecord(MakeItem(1998, 7, 9, 1439, 1439, "last"));
  s.store.InsertRecord(MakeItem(1998, 7, 9, -1, -1, "all day"));
  s.store.InsertRecord(MakeItem(1998, 7, 9, -1, -1, "all day 2"));
  EXPECT_EQ(ChainTitles(s.doc, 1998, 7, 9),
            (std::vector<std::string>{"all day", "all day 2", "at 8", "A at 9", "B at 9", "last"}));
}

TEST(RecordOps, ANewMonthGoesToTheEndOfItsYearsChain) {
  TestStore s;
  for (int month : {7, 3, 12, 1}) s.store.InsertRecord(MakeItem(1998, month, 1, -1, -1, "x"));
  s.store.InsertRecord(MakeItem(1999, 2, 1, -1, -1, "y"));
  const SchDatCTL& t = s.doc.Tables;
  std::vector<int> chain;
  for (int row = t.AncYY.At(0).FirstMonth; row != -1; row = t.AncMM.At(row).NextMonth) {
    chain.push_back(t.AncMM.At(row).Month);
  }
  EXPECT_EQ(chain, (std::vector<int>{7, 3, 12, 1}));
  EXPECT_EQ(t.YearCount, 2);
  EXPECT_EQ(t.AncYY.At(0).NextYear, 1);
  EXPECT_EQ(t.AncYY.At(1).FirstMonth, 4);
}

TEST(RecordOps, DeleteMarksRowsThatStayInTheirChains) {
  TestStore s;
  const SchRecord a = MakeItem(1998, 7, 9, 540, 600, "A");
  s.store.InsertRecord(a);
  s.store.InsertRecord(MakeItem(1998, 7, 9, 600, 660, "B"));
  s.store.DeleteItem(a);
  EXPECT_EQ(s.doc.Tables.RowCount, 1);
  EXPECT_EQ(s.doc.Tables.SchDatList.Cell(0, kColDeleted), "1");
  EXPECT_TRUE(s.alarms.Called("RemoveAlarmOfRecord 0"));

  s.store.DeleteItem(a);  // already deleted: the count stays
  EXPECT_EQ(s.doc.Tables.RowCount, 1);

  SchRecord changed = a;  // a change is a delete and an insert: new row, old one kept
  changed.Title = "A changed";
  s.store.InsertRecord(changed);
  EXPECT_EQ(s.doc.Tables.SchDatList.Rows(), 3);
  EXPECT_EQ(s.doc.Tables.RowCount, 2);
  EXPECT_EQ(ChainTitles(s.doc, 1998, 7, 9), (std::vector<std::string>{"A changed", "B"}));
  // The deleted row is still linked: the chain runs through it to the new row.
  EXPECT_EQ(s.doc.Tables.SchDatList.At(0).Next, 2);
  EXPECT_EQ(s.doc.Tables.SchDatList.At(2).Next, 1);
}

TEST(RecordOps, DeletingAnOccurrenceRemovesItsWholeSeries) {
  TestStore s;
  const auto weekly = Series({{1998, 7, 1}, {1998, 7, 8}, {1998, 7, 15}}, 0x1000 | 3 * 4, "Weekly");
  for (const SchRecord& r : weekly) s.store.InsertRecord(r);
  const SchRecord other = MakeItem(1998, 7, 8, 540, 600, "Other");
  s.store.InsertRecord(other);
  s.store.DeleteItem(weekly[1]);
  EXPECT_EQ(s.doc.Tables.RowCount, 1);
  EXPECT_EQ(ChainTitles(s.doc, 1998, 7, 8), (std::vector<std::string>{"Other"}));
}

TEST(RecordOps, DeletingAPlainItemLeavesItemsOfTheSameStampWithOtherSubNos) {
  // Items imported together share one stamp and tell themselves apart by SubNo.
  TestStore s;
  s.clock.Set({1998, 7, 9, 8, 0, 0});
  std::vector<SchRecord> imported;
  for (int i = 1; i <= 3; ++i) {
    SchRecord r = MakeItem(1998, 7, 9 + i, 540, 600, "Imported " + std::to_string(i));
    r.SubNo = static_cast<std::int16_t>(i);
    r.Stamp = MakeStamp(FakeClock({1998, 7, 9, 8, 0, 0}));
    imported.push_back(r);
    s.store.InsertRecord(r);
  }
  s.store.DeleteItem(imported[1]);
  EXPECT_EQ(s.doc.Tables.RowCount, 2);
  EXPECT_EQ(ChainTitles(s.doc, 1998, 7, 11), std::vector<std::string>{});

  // After a load the rows are others: the lookups follow them.
  ASSERT_TRUE(s.RoundTrip());
  s.store.DeleteItem(imported[2]);
  EXPECT_EQ(s.doc.Tables.RowCount, 1);
  EXPECT_EQ(ChainTitles(s.doc, 1998, 7, 10), std::vector<std::string>{"Imported 1"});
  s.clock.SetSecondsPerReading(1);
  EXPECT_NE(s.store.NewUniqueStamp(), imported[0].Stamp);
}

TEST(RecordOps, SeriesRangeAndLowestSubNo) {
  TestStore s;
  // Entered out of order: the range follows SubNo, not the place of the rows.
  auto weekly = Series({{1998, 7, 1}, {1998, 7, 8}, {1998, 7, 15}}, 0x1000, "Weekly");
  s.store.InsertRecord(weekly[2]);
  s.store.InsertRecord(weekly[0]);
  s.store.InsertRecord(weekly[1]);
  const SeriesRange range = GetSeriesRange(s.doc.Tables, 1, weekly[0].ParentStamp);
  EXPECT_EQ(range.firstCode, 19980701);
  EXPECT_EQ(range.lastCode, 19980715);
  EXPECT_EQ(GetSeriesLowestSubNo(s.doc.Tables, 1, weekly[0].ParentStamp), 1);

  s.doc.Tables.SchDatList.At(1).Deleted = kDeleted;  // the first occurrence goes
  EXPECT_EQ(GetSeriesRange(s.doc.Tables, 1, weekly[0].ParentStamp).firstCode, 19980708);
  EXPECT_EQ(GetSeriesLowestSubNo(s.doc.Tables, 1, weekly[0].ParentStamp), 2);
  EXPECT_FALSE(GetSeriesRange(s.doc.Tables, 9, 9).found);
}

TEST(RecordOps, FindOrAddYearLoadsTheMasksOfAnExistingYear) {
  TestStore s;
  const int row = s.store.FindOrAddYear(2000);
  s.doc.Tables.AncYY.At(row).HolidayOn[1] = 1 << 28;  // 2000/2/29
  s.doc.Tables.AncYY.At(row).HolidayOff[11] = 1;
  EXPECT_EQ(s.store.FindOrAddYear(2001), 1);
  EXPECT_EQ(s.store.FindOrAddYear(2000), 0);
  EXPECT_EQ(s.doc.ShownYearMasks.HolidayOn[1], 1 << 28);
  EXPECT_EQ(s.doc.ShownYearMasks.HolidayOff[11], 1);
  EXPECT_EQ(s.doc.Tables.AncYY.Cell(1, 3), "0");
  s.store.FindOrAddYear(2002);  // a new year starts without marks
  EXPECT_EQ(s.doc.ShownYearMasks.HolidayOn[1], 0);
  EXPECT_EQ(s.doc.ShownYearMasks.HolidayOff[11], 0);
}

TEST(RecordOps, MonthHasData) {
  TestStore s;
  EXPECT_EQ(s.store.MonthHasData(1998, 7).monthRow, -1);
  const SchRecord a = MakeItem(1998, 7, 31, -1, -1, "A");
  s.store.InsertRecord(a);
  EXPECT_EQ(s.store.MonthHasData(1998, 7).monthRow, 0);
  EXPECT_TRUE(s.store.MonthHasData(1998, 7).hasData);
  s.store.DeleteItem(a);
  EXPECT_EQ(s.store.MonthHasData(1998, 7).monthRow, 0);
  EXPECT_FALSE(s.store.MonthHasData(1998, 7).hasData);
  s.doc.Tables.AncYY.At(0).HolidayOff[7] = 1 << 30;  // August 31
  EXPECT_EQ(s.store.MonthHasData(1998, 8).monthRow, -1);
  EXPECT_TRUE(s.store.MonthHasData(1998, 8).hasData);
}

TEST(RecordOps, BuildRecordLineAndBack) {
  SchRecord r = MakeItem(1998, 7, 9, 540, 600, "Tab\there");
  r.Memo = "one\r\ntwo\tthree";
  r.Private = 3;
  r.AlarmOn = 1;
  r.AlarmSound = "SCHALARM";
  r.AlarmLead = 15;
  const SchDatRow row = BuildRecordLine(r);
  EXPECT_EQ(row.Title, "Tab here");
  EXPECT_EQ(row.Memo, "one\r\ntwo three");
  EXPECT_EQ(row.Cell(kColPrivate), "1");
  EXPECT_EQ(row.Cell(kColDeleted), "0");
  EXPECT_EQ(row.Cell(kColPrev), "-1");
  const SchRecord back = RowToRecord(row);
  EXPECT_EQ(back.Private, 1);
  EXPECT_EQ(back.AlarmLead, 15);
  EXPECT_EQ(back.Title, "Tab here");
}

TEST(RecordOps, AnAlarmStillAheadTodayEntersTodaysList) {
  TestStore s;
  s.clock.Set({1998, 7, 9, 8, 0, 0});
  SchRecord ahead = MakeItem(1998, 7, 9, 540, 600, "ahead");
  ahead.AlarmOn = 1;
  ahead.AlarmLead = 15;
  SchRecord gone = MakeItem(1998, 7, 9, 480, 600, "gone");  // rings at 8:00, not later
  gone.AlarmOn = 1;
  SchRecord tomorrow = MakeItem(1998, 7, 10, 10, 600, "after midnight");  // rings today 23:50
  tomorrow.AlarmOn = 1;
  tomorrow.AlarmLead = 20;
  for (const SchRecord& r : {ahead, gone, tomorrow}) s.store.InsertRecord(r);
  EXPECT_EQ(s.alarms.alarmRows, (std::vector<int>{0, 2}));
}

TEST(RecordOps, NewUniqueStampWaitsForTheClockWhenItsStampIsTaken) {
  TestStore s;
  s.clock.Set({1998, 7, 9, 8, 0, 0});
  EXPECT_EQ(s.store.NewUniqueStamp(), MakeStamp(FakeClock({1998, 7, 9, 8, 0, 0})));

  SchRecord r = MakeItem(1998, 7, 9, 540, 600, "A");
  r.Stamp = MakeStamp(FakeClock({1998, 7, 9, 8, 0, 0}));
  s.store.InsertRecord(r);
  s.clock.SetSecondsPerReading(1);
  const std::int32_t stamp = s.store.NewUniqueStamp();
  EXPECT_NE(stamp, r.Stamp);
  EXPECT_EQ(stamp, MakeStamp(FakeClock({1998, 7, 9, 8, 0, 2})));
  EXPECT_TRUE(std::count(s.progress.events.begin(), s.progress.events.end(), "wait pointer") == 1);
  EXPECT_EQ(s.progress.events.back(), "normal pointer");
}

}  // namespace
}  // namespace sched
