#include <gtest/gtest.h>

#include <cstdio>
#include <map>
#include <sstream>
#include <string>

#include "store/row_order.h"
#include "store/stamp.h"
#include "tests/support/row_looks.h"
#include "tests/support/test_store.h"
#include "tests/support/trace.h"

namespace sched {
namespace {

using testing::CaseRow;
using testing::Join;
using testing::YesNo;

// A store over fakes as tests/data/store/tables.txt drives it: items inserted and deleted,
// saved and loaded, and the tables looked at.
struct Store {
  TestStore s;
  DateTime now{2026, 11, 21, 10, 0, 0};
  std::map<std::string, SchRecord> items;

  std::pair<int, int> Pair(const std::string& arg) const {  // "A,B"
    return {std::stoi(arg),
            static_cast<int>(std::stoll(arg.substr(arg.find(',') + 1), nullptr, 0))};
  }
};

using S = Store&;
using R = const CaseRow&;

testing::Trace<Store> StoreTrace() {
  testing::Trace<Store> t;
  const auto n = [](int value) { return std::to_string(value); };
  const auto define = [](S st, R r) {
    CivilDate a, b;
    const int dates = std::sscanf(r[2].c_str(), "%d-%d-%d..%d-%d-%d", &a.year, &a.month, &a.day,
                                  &b.year, &b.month, &b.day);
    SchRecord item = MakeItem(a.year, a.month, a.day, r.Int(3), r.Int(4), testing::Unescaped(r[5]));
    if (dates == 6) {
      SetEndDate(item, b);
    }
    item.Place = testing::Unescaped(r[6]);
    item.Memo = testing::Unescaped(r[7]);
    std::istringstream attributes(r[8]);
    for (std::string attribute; attributes >> attribute;) {
      const std::string key = attribute.substr(0, attribute.find('='));
      const std::string value = attribute.substr(attribute.find('=') + 1);
      const auto number = [&] { return static_cast<std::int32_t>(std::stoll(value, nullptr, 0)); };
      if (key == "stamp") item.Stamp = value == "now" ? MakeStamp(FakeClock(st.now)) : number();
      if (key == "sub") item.SubNo = static_cast<std::int16_t>(number());
      if (key == "parent") item.ParentSubNo = static_cast<std::int16_t>(number());
      if (key == "kind") item.RepeatKind = static_cast<std::int16_t>(number());
      if (key == "private") item.Private = static_cast<std::int16_t>(number());
      if (key == "alarm") {
        item.AlarmOn = 1;
        item.AlarmSound = value.substr(0, value.find(':'));
        item.AlarmLead = static_cast<std::int16_t>(std::stoi(value.substr(value.find(':') + 1)));
      }
    }
    if (item.ParentSubNo != 0) item.ParentStamp = item.Stamp;
    st.items[r[1]] = item;
  };
  t.steps["define"] = define;
  t.steps["item"] = [define](S st, R r) {
    define(st, r);
    st.s.store.InsertRecord(st.items[r[1]]);
  };
  t.steps["insert"] = [](S st, R r) {
    if (!r[2].empty()) st.items[r[1]].Title = r[2];
    st.s.store.InsertRecord(st.items[r[1]]);
  };
  t.steps["span"] = [](S st, R r) { InsertSpan(st.s.store, r.Date(1), r.Int(2), r[3], r.Int(4)); };
  t.steps["delete"] = [](S st, R r) { st.s.store.DeleteItem(st.items.at(r[1])); };
  t.steps["mark-deleted"] = [](S st, R r) {
    st.s.doc.Tables.SchDatList.Edit(r.Int(1)).Deleted = kDeleted;
  };
  t.steps["row-count"] = [](S st, R r) { st.s.doc.Tables.RowCount = r.Int(1); };
  t.steps["link"] = [](S st, R r) { st.s.doc.Tables.SchDatList.Edit(r.Int(1)).Next = r.Int(2); };
  t.steps["day-head"] = [](S st, R r) {
    st.s.doc.Tables.AncMM.Edit(r.Int(1)).DayHead[static_cast<std::size_t>(r.Int(2) - 1)] = r.Int(3);
  };
  t.steps["title"] = [](S st, R r) {
    st.s.doc.Tables.SchDatList.SetCell(r.Int(1), kColTitle, testing::Unescaped(r[2]));
  };
  // A year's row found or made, and its row; the masks of a month of it.
  t.steps["year"] = [](S st, R r) {
    EXPECT_EQ(st.s.store.FindOrAddYear(r.Int(1)), r.Int(2)) << r.where;
  };
  t.steps["masks"] = [](S st, R r) {
    AncYYRow& row = st.s.doc.Tables.AncYY.Edit(st.s.store.FindOrAddYear(r.Int(1)));
    row.HolidayOn[static_cast<std::size_t>(r.Int(2) - 1)] =
        static_cast<std::int32_t>(std::stoll(r[3], nullptr, 0));
    row.HolidayOff[static_cast<std::size_t>(r.Int(2) - 1)] =
        static_cast<std::int32_t>(std::stoll(r[4], nullptr, 0));
  };
  t.steps["private-level"] = [](S st, R r) {
    st.s.doc.PrivateLevel = static_cast<std::int16_t>(r.Int(1));
  };
  t.steps["clock"] = [](S st, R r) {
    const CivilDate d = r.Date(1);
    int hour = 0, minute = 0;
    std::sscanf(r[2].c_str(), "%d:%d", &hour, &minute);
    st.now = {d.year, d.month, d.day, hour, minute, 0};
    st.s.clock.Set(st.now);
  };
  t.steps["seconds-per-reading"] = [](S st, R r) { st.s.clock.SetSecondsPerReading(r.Int(1)); };
  t.steps["forget-calls"] = [](S st, R) {
    st.s.alarms.calls.clear();
    st.s.alarms.alarmRows.clear();
    st.s.progress.values.clear();
  };
  // Files of the store's folder.
  t.steps["roundtrip"] = [](S st, R r) { EXPECT_TRUE(st.s.RoundTrip()) << r.where; };
  t.steps["save"] = [](S st, R r) { EXPECT_FALSE(st.s.SaveTo(r[1]).empty()) << r.where; };
  t.steps["load"] = [](S st, R r) {
    EXPECT_TRUE(st.s.LoadFrom(st.s.dir.File(r[1]), r[2].empty() ? 1 : r.Int(2))) << r.where;
  };

  const auto tables = [](S st) -> const SchDatCTL& { return st.s.doc.Tables; };
  testing::AddRowLooks(t, tables);
  t.looks["counts"] = [n](S st, auto&) {
    const SchDatCTL& c = st.s.doc.Tables;
    return n(c.YearCount) + " years " + n(c.MonthCount) + " months " + n(c.RowCount) + " rows";
  };
  t.looks["table-rows"] = [n](S st, auto&) {
    const SchDatCTL& c = st.s.doc.Tables;
    return n(c.AncYY.Rows()) + " " + n(c.AncMM.Rows()) + " " + n(c.SchDatList.Rows());
  };
  t.looks["year-cell"] = [](S st, auto& a) {
    return st.s.doc.Tables.AncYY.Cell(st.Pair(a).first, st.Pair(a).second);
  };
  t.looks["month-cell"] = [](S st, auto& a) {
    return st.s.doc.Tables.AncMM.Cell(st.Pair(a).first, st.Pair(a).second);
  };
  t.looks["record-cell"] = [](S st, auto& a) {
    return st.s.doc.Tables.SchDatList.Cell(st.Pair(a).first, st.Pair(a).second);
  };
  t.looks["next"] = [n](S st, auto& row) {
    return n(st.s.doc.Tables.SchDatList.At(std::stoi(row)).Next);
  };
  // The titles of a day's live rows in the order of its chain.
  t.looks["chain"] = [](S st, auto& date) {
    const SchDatCTL& c = st.s.doc.Tables;
    int y = 0, m = 0, d = 0;
    std::sscanf(date.c_str(), "%d-%d-%d", &y, &m, &d);
    std::vector<std::string> titles;
    for (int row = GetDayHead(c, FindMonthRow(c, FindYearRow(c, y), m), d); row != -1;
         row = c.SchDatList.At(row).Next) {
      if (c.SchDatList.At(row).IsLive()) titles.emplace_back(c.SchDatList.Texts(row).Title);
    }
    return Join(titles);
  };
  // The months of a year's row in the order of its chain; the year's links.
  t.looks["months"] = [](S st, auto& yearRow) {
    const SchDatCTL& c = st.s.doc.Tables;
    std::vector<std::string> months;
    for (int row = c.AncYY.At(std::stoi(yearRow)).FirstMonth; row != -1;
         row = c.AncMM.At(row).NextMonth) {
      months.push_back(std::to_string(c.AncMM.At(row).Month));
    }
    return Join(months, " ");
  };
  t.looks["year-links"] = [n](S st, auto& row) {
    const AncYYRow& y = st.s.doc.Tables.AncYY.At(std::stoi(row));
    return "next " + n(y.NextYear) + " first " + n(y.FirstMonth);
  };
  // The live rows by date and chain, "y/m/d title" each; their SubNos.
  t.looks["by-date"] = [](S st, auto&) {
    return Join(LiveRowsInDateOrder(st.s.doc.Tables), " | ", [&](int row) {
      const SchDatRow& r = st.s.doc.Tables.SchDatList.At(row);
      return std::to_string(r.Year) + "/" + std::to_string(r.Month) + "/" + std::to_string(r.Day) +
             " " + std::string(st.s.doc.Tables.SchDatList.Texts(r).Title);
    });
  };
  t.looks["subnos"] = [](S st, auto&) {
    return Join(LiveRowsInDateOrder(st.s.doc.Tables), " ",
                [&](int row) { return std::to_string(st.s.doc.Tables.SchDatList.At(row).SubNo); });
  };
  // A series' first and last date, and its lowest SubNo: "series:PARENTSUBNO,PARENTSTAMP".
  t.looks["series"] = [n](S st, auto& a) -> std::string {
    const SeriesRange range = GetSeriesRange(st.s.doc.Tables, st.Pair(a).first, st.Pair(a).second);
    if (!range.found) return "none";
    return n(range.firstCode) + " to " + n(range.lastCode) + ", lowest " +
           n(GetSeriesLowestSubNo(st.s.doc.Tables, st.Pair(a).first, st.Pair(a).second));
  };
  t.looks["shown-masks"] = [](S st, auto& month) {
    const std::size_t m = std::stoul(month) - 1;
    return std::to_string(st.s.doc.ShownYearMasks.HolidayOn[m]) + " " +
           std::to_string(st.s.doc.ShownYearMasks.HolidayOff[m]);
  };
  t.looks["month-data"] = [n](S st, auto& a) {
    const MonthData data = st.s.store.MonthHasData(st.Pair(a).first, st.Pair(a).second);
    return n(data.monthRow) + (data.hasData ? " with data" : " empty");
  };
  t.looks["loaded"] = [n](S st, auto&) { return n(st.s.doc.LoadedRecords); };
  t.looks["alarm-calls"] = [](S st, auto&) { return Join(st.s.alarms.calls); };
  t.looks["alarm-rows"] = [](S st, auto&) {
    return Join(st.s.alarms.alarmRows, " ", [](int row) { return std::to_string(row); });
  };
  t.looks["progress"] = [](S st, auto&) {
    return Join(st.s.progress.values, " ", [](int v) { return std::to_string(v); });
  };
  t.looks["pointer"] = [](S st, auto&) { return Join(st.s.progress.events); };
  // Whether a new unique stamp is the stamp of the clock's date at a time, or an item's.
  t.looks["new-stamp-at"] = [](S st, auto& time) {
    DateTime at = st.now;
    std::sscanf(time.c_str(), "%d:%d:%d", &at.hour, &at.minute, &at.second);
    return YesNo(st.s.store.NewUniqueStamp() == MakeStamp(FakeClock(at)));
  };
  t.looks["new-stamp-of"] = [](S st, auto& item) {
    return YesNo(st.s.store.NewUniqueStamp() == st.items.at(item).Stamp);
  };
  return t;
}

TEST(Store, FollowsTheTraces) {
  StoreTrace().Run("store/tables.txt", 9, 180);
}

}  // namespace
}  // namespace sched
